/** What the keys do: one table, which the dialog of help shows as well. */

import { create, part } from './elements.js';

/** @import {State} from './state.js' */
/** @import {View} from './view.js' */

const panStep = 60;

/**
 * @typedef {object} KeyRow
 * @property {string[]} keys as events name them
 * @property {string} shown
 * @property {string} meaning
 * @property {() => void} action
 * @property {boolean} [inDrawing] not where a part that scrolls has the focus
 */

/**
 * @param {string} shown in the help; not there if it is empty
 * @param {string} meaning
 * @param {() => void} action
 * @param {string[]} [keys] as events name them
 * @returns {KeyRow}
 */
export function keyRow(shown, meaning, action, keys = [shown]) {
    return { keys, shown, meaning, action };
}

/**
 * The arrows move the drawing, unless a part that they scroll has the focus.
 *
 * @param {View} view
 * @returns {KeyRow[]}
 */
export function arrowRows(view) {
    const steps = { ArrowLeft: [1, 0], ArrowRight: [-1, 0], ArrowUp: [0, 1], ArrowDown: [0, -1] };
    const rows = Object.entries(steps).map(([key, [x, y]]) =>
        ({ ...keyRow('', '', () => view.panBy(x * panStep, y * panStep), [key]), inDrawing: true }));
    return [keyRow('Arrows', 'move the drawing', () => {}, []), ...rows];
}

/**
 * Whether a key belongs to the element that has the focus.
 *
 * @param {KeyboardEvent} event
 * @param {KeyRow} row
 */
function isTaken(event, row) {
    const target = event.target instanceof Element ? event.target : null;
    if (target?.closest('input, textarea, select'))
        return event.key !== 'Escape';
    return row.inDrawing === true && !!target?.closest('#table, #panel');
}

/**
 * @param {KeyRow[]} rows
 * @param {State} state
 */
export function followKeys(rows, state) {
    addEventListener('keydown', event => {
        if (state.now.keys === 'off' && event.key.length === 1)
            return;
        if (event.ctrlKey || event.metaKey || event.altKey || document.querySelector('dialog[open]'))
            return;
        const row = rows.find(({ keys }) => keys.includes(event.key));
        if (!row || isTaken(event, row))
            return;
        event.preventDefault();
        row.action();
    });
}

/**
 * @param {KeyRow[]} rows
 * @param {State} state
 */
export function prepareHelp(rows, state) {
    const dialog = /** @type {HTMLDialogElement} */ (part('help'));
    const lines = rows.filter(({ shown }) => shown !== '').map(({ shown, meaning }) =>
        create('tr', {}, create('th', { scope: 'row' }, shown), create('td', {}, meaning)));
    part('help-keys').replaceChildren(...lines);
    // Who dictates, or hits keys by accident, has those of one character off.
    const letters = /** @type {HTMLInputElement} */ (part('letters'));
    letters.onchange = () => state.change({ keys: letters.checked ? '' : 'off' });
    state.follow(['keys'], () => {
        letters.checked = state.now.keys === '';
    });
    part('help-close').onclick = () => dialog.close();
    return part('help-button').onclick = () => dialog.showModal();
}
