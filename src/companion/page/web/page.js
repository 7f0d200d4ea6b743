/** Puts the modules together when the page opens. */

import { part } from './elements.js';
import { State } from './state.js';
import { readObjects } from './objects.js';
import { View } from './view.js';
import { followGestures } from './gestures.js';
import { Pointing } from './pointing.js';
import { Marks, Veil, outlineOf } from './marks.js';
import { Panel } from './panel.js';
import { shareLines } from './chart.js';
import { Legend } from './legend.js';
import { followRelations } from './relations.js';
import { followMatrix } from './matrix.js';
import { keepHeads } from './lifelines.js';
import { Trail } from './trail.js';
import { Matches } from './matches.js';
import { Search, markFound } from './search.js';
import { Table } from './table.js';
import { followTheme } from './theme.js';
import { mirrorAddress } from './address.js';
import { Roving } from './roving.js';
import { followKeys, prepareHelp } from './keys.js';

/** @import {Objects} from './objects.js' */
/** @import {KeyRow} from './keys.js' */

const zoomStep = 1.25;
const panStep = 60;

/** @param {string} id */
function drawnPart(id) {
    return /** @type {SVGSVGElement} */ (/** @type {unknown} */ (part(id)));
}

/** The size that the drawing was given, which stands in the page even if the table does not. */
function sizeOf(/** @type {Element} */ drawing) {
    return /** @type {[number, number]} */ (['width', 'height'].map(name => Number(drawing.getAttribute(name)) || 1));
}

/**
 * Says in the page that something is not as it should be.
 *
 * @param {string} sentence empty for nothing
 */
function tell(sentence) {
    const notice = part('notice');
    notice.textContent = sentence === '' ? '' : `${sentence} The drawing can be looked at, but not searched.`;
    notice.hidden = sentence === '';
}

/**
 * @param {Objects} objects
 * @param {State} state
 * @param {View} view
 */
function prepareParts(objects, state, view) {
    const choose = (/** @type {number} */ i) => {
        state.change({ chosen: i });
        const box = objects.box(i);
        if (box && !state.now.table)
            view.reveal(box);
    };
    const drawing = part('drawing');
    const marks = new Marks(drawnPart('marks'), view, state);
    const veil = new Veil(drawnPart('lit'), drawing, objects);
    const matches = new Matches(objects, state);
    const panel = new Panel(part('panel'), objects, state, choose);
    if (objects.isChart)
        panel.sections.push(shareLines(objects));
    followRelations(objects, state, veil, panel);
    followMatrix(objects, state, marks);
    keepHeads(drawnPart('heads'), objects, view, state);
    markFound(objects, state, matches, marks);
    for (const name of /** @type {const} */ (['pointed', 'chosen'])) {
        state.follow([name], () => marks.show(name, state.now[name] < 0 ? [] : outlineOf(objects, state.now[name])));
    }
    const field = /** @type {HTMLInputElement} */ (part('query'));
    return {
        legend: new Legend(objects, state, veil),
        trail: new Trail(part('trail'), objects, view, state),
        search: new Search(field, part('count'), state, matches, choose),
        table: new Table(part('table'), objects, state, matches, choose),
        roving: new Roving(part('stage'), objects, state, i => {
            const box = objects.box(i);
            if (box)
                view.reveal(box);
        }),
        pointing: new Pointing(part('stage'), objects, view, state),
        panel,
        choose,
    };
}

/** @typedef {ReturnType<typeof prepareParts>} Parts */

/**
 * @param {State} state
 * @param {View} view
 * @param {Parts} parts
 */
function followClicks(state, view, { legend, trail, search, pointing, roving }) {
    const stage = part('stage');
    stage.addEventListener('click', event => {
        const i = pointing.objectOf(event);
        if (!legend.press(i))
            state.change({ chosen: i });
    });
    stage.addEventListener('dblclick', event => trail.enter(pointing.objectOf(event)));
    stage.addEventListener('keydown', event => {
        const i = event.target === document.activeElement ? roving.current : -1;
        if (i < 0 || (event.key !== 'Enter' && event.key !== ' '))
            return;
        event.preventDefault();
        if (!legend.press(i))
            state.change({ chosen: i });
    });
    const buttons = {
        'zoom-in': () => view.zoom(zoomStep),
        'zoom-out': () => view.zoom(1 / zoomStep),
        'fit': () => trail.goTo(-1),
        'actual-size': () => view.showActualSize(),
        'previous': () => search.step(-1),
        'next': () => search.step(1),
        'table-button': () => state.change({ table: !state.now.table }),
    };
    for (const [id, action] of Object.entries(buttons))
        part(id).addEventListener('click', action);
    state.follow(['table'], () => part('table-button').setAttribute('aria-pressed', String(state.now.table)));
}

/**
 * Ends what was begun last: the table, the light of a legend, the hold of an object, the search.
 *
 * @param {State} state
 */
function letGo(state) {
    const { table, color, chosen } = state.now;
    state.change(table ? { table: false } : color !== '' ? { color: '' } : chosen >= 0 ? { chosen: -1 } : { query: '' });
}

/**
 * @param {State} state
 * @param {View} view
 * @param {Parts} parts
 * @returns {KeyRow[]}
 */
function keyRows(state, view, { trail, roving }) {
    const pan = (/** @type {number} */ dx, /** @type {number} */ dy) => () => view.panBy(dx * panStep, dy * panStep);
    const arrow = { shown: '', meaning: '', inDrawing: true };
    return [
        { keys: ['+', '='], shown: '+', meaning: 'larger', action: () => view.zoom(zoomStep) },
        { keys: ['-', '_'], shown: '-', meaning: 'smaller', action: () => view.zoom(1 / zoomStep) },
        { keys: ['0'], shown: '0', meaning: 'the whole drawing', action: () => trail.goTo(-1) },
        { keys: ['1'], shown: '1', meaning: 'its own size, 100 %', action: () => view.showActualSize() },
        { keys: ['ArrowLeft'], shown: 'Arrows', meaning: 'move the drawing', action: pan(1, 0), inDrawing: true },
        { ...arrow, keys: ['ArrowRight'], action: pan(-1, 0) },
        { ...arrow, keys: ['ArrowUp'], action: pan(0, 1) },
        { ...arrow, keys: ['ArrowDown'], action: pan(0, -1) },
        { keys: ['n'], shown: 'n', meaning: 'next object of the group', action: () => roving.toSibling(1) },
        { keys: ['p'], shown: 'p', meaning: 'previous object of the group', action: () => roving.toSibling(-1) },
        { keys: ['i'], shown: 'i', meaning: 'into a group, or to what a node calls', action: () => roving.into() },
        { keys: ['o'], shown: 'o', meaning: 'out to the group, or to who calls', action: () => roving.outOf() },
        { keys: [], shown: 'Enter', meaning: 'hold the object with the focus', action: () => {} },
        { keys: ['z'], shown: 'z', meaning: 'zoom to the object, or into its group', action: () => trail.enter(roving.current) },
        { keys: ['Backspace'], shown: 'Backspace', meaning: 'up to the group around', action: () => trail.leave() },
        { keys: ['/'], shown: '/', meaning: 'search; Enter and Shift+Enter go on and back', action: () => part('query').focus() },
        { keys: ['t'], shown: 't', meaning: 'table of all objects', action: () => state.change({ table: !state.now.table }) },
        { keys: ['Escape'], shown: 'Escape', meaning: 'let go, close', action: () => letGo(state) },
    ];
}

function openPage() {
    const drawing = part('drawing');
    const { objects, fault } = readObjects(drawing, document.getElementById('page-data')?.textContent ?? '');
    const state = new State();
    document.documentElement.classList.add('live');
    part('bar').hidden = false;
    part('panel').hidden = false;
    tell(fault);
    const view = new View(part('stage'), part('paper'), state, sizeOf(drawing));
    const parts = prepareParts(objects, state, view);
    followGestures(part('stage'), view);
    followClicks(state, view, parts);
    const rows = keyRows(state, view, parts);
    const showHelp = prepareHelp(rows);
    followKeys([...rows, { keys: ['?'], shown: '', meaning: '', action: showHelp }]);
    followTheme(part('theme'), objects, state);
    mirrorAddress(objects, view, state);
    parts.panel.update();
}

openPage();
