/** Puts the modules together when the page opens. */

import { part } from './elements.js';
import { State } from './state.js';
import { readObjects } from './objects.js';
import { View } from './view.js';
import { followGestures } from './gestures.js';
import { Pointing } from './pointing.js';
import { Marks, Veil, outlineOf } from './marks.js';
import { Dots } from './dots.js';
import { Texts } from './texts.js';
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
import { arrowRows, followKeys, keyRow, prepareHelp } from './keys.js';

/** @import {Objects} from './objects.js' */
/** @import {KeyRow} from './keys.js' */

const zoomStep = 1.25;

/** @param {string} id */
function drawnPart(id) {
    return /** @type {SVGSVGElement} */ (/** @type {unknown} */ (part(id)));
}

/**
 * The size that the drawing was given, which stands in the page even if the table does not.
 *
 * @param {Element} drawing
 * @returns {[number, number]}
 */
function sizeOf(drawing) {
    const side = (/** @type {string} */ name) => Number(drawing.getAttribute(name)) || 1;
    return [side('width'), side('height')];
}

/**
 * Says in the page that the table is not as it should be.
 *
 * @param {string} fault empty for none
 */
function tell(fault) {
    const notice = part('notice');
    notice.textContent = `The table of objects ${fault}. The drawing can be looked at, but not searched.`;
    notice.hidden = fault === '';
}

/**
 * @param {Objects} objects
 * @param {State} state
 * @param {Marks} marks
 */
function outlineWhatIsMeant(objects, state, marks) {
    for (const name of /** @type {const} */ (['pointed', 'chosen'])) {
        state.follow([name, 'focused'], () => {
            const i = state.now[name];
            const seen = objects.seen(i);
            marks.show(name, seen < 0 ? [] : outlineOf(objects, seen), state.now.focused);
        });
    }
}

/**
 * @param {Objects} objects
 * @param {State} state
 * @param {View} view
 */
function prepareParts(objects, state, view) {
    const choose = (/** @type {number} */ i) => {
        state.change({ chosen: i });
        const box = objects.box(objects.seen(i));
        if (box && !state.now.table)
            view.reveal(box);
    };
    const drawing = part('drawing');
    const marks = new Marks(drawnPart('marks'), view, state);
    const veil = new Veil(drawnPart('lit'), drawing, objects, state);
    const matches = new Matches(objects, state);
    const panel = new Panel(part('panel'), objects, state, choose);
    if (objects.isChart)
        panel.sections.push(shareLines(objects));
    followRelations(objects, state, veil, panel);
    followMatrix(objects, state, marks);
    keepHeads(drawnPart('heads'), objects, view, state);
    new Texts(drawing, objects, view, state);
    const dots = new Dots(/** @type {HTMLCanvasElement} */ (part('dots')), view, state);
    markFound(objects, state, matches, marks, dots);
    outlineWhatIsMeant(objects, state, marks);
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
        part(id).onclick = action;
    state.follow(['table'], () => part('table-button').setAttribute('aria-pressed', String(state.now.table)));
}

/**
 * Ends what was begun last: the table, the light of a legend, the hold of an object, the search.
 *
 * @param {State} state
 */
function letGo(state) {
    const { table, color, chosen } = state.now;
    if (table)
        state.change({ table: false });
    else if (color !== '')
        state.change({ color: '' });
    else if (chosen >= 0)
        state.change({ chosen: -1 });
    else
        state.change({ query: '' });
}

/**
 * @param {State} state
 * @param {View} view
 * @param {Parts} parts
 * @returns {KeyRow[]}
 */
function keyRows(state, view, { trail, roving }) {
    return [
        keyRow('+', 'larger', () => view.zoom(zoomStep), ['+', '=']),
        keyRow('-', 'smaller', () => view.zoom(1 / zoomStep), ['-', '_']),
        keyRow('0', 'the whole drawing', () => trail.goTo(-1)),
        keyRow('1', 'its own size, 100 %', () => view.showActualSize()),
        ...arrowRows(view),
        keyRow('n', 'next object of the group', () => roving.toSibling(1)),
        keyRow('p', 'previous object of the group', () => roving.toSibling(-1)),
        keyRow('i', 'into a group, or to what a node calls', () => roving.into()),
        keyRow('o', 'out to the group, or to who calls', () => roving.outOf()),
        keyRow('Enter', 'hold the object with the focus', () => {}, []),
        keyRow('z', 'zoom to the object, or into its group', () => trail.enter(roving.current)),
        keyRow('Backspace', 'up to the group around', () => trail.leave()),
        keyRow('/', 'search; Enter and Shift+Enter go on and back', () => part('query').focus()),
        keyRow('t', 'table of all objects', () => state.change({ table: !state.now.table })),
        keyRow('Escape', 'let go, close', () => letGo(state)),
    ];
}

function openPage() {
    const drawing = part('drawing');
    const { objects, fault } = readObjects(drawing, document.getElementById('page-data')?.textContent ?? '');
    const state = new State();
    followTheme(part('theme'), state);
    document.documentElement.classList.add('live');
    part('bar').hidden = false;
    part('panel').hidden = false;
    tell(fault);
    const view = new View(part('stage'), part('paper'), state, sizeOf(drawing));
    const parts = prepareParts(objects, state, view);
    followGestures(part('stage'), view);
    followClicks(state, view, parts);
    const rows = keyRows(state, view, parts);
    const showHelp = prepareHelp(rows, state);
    followKeys([...rows, keyRow('', '', showHelp, ['?'])], state);
    mirrorAddress(objects, view, state);
    parts.panel.update();
}

openPage();
