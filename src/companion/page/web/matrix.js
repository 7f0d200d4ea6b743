/** Dependency matrix: a band along the row and one along the column of the pointer. */

import { middleOf } from './grid.js';
import { rectOf } from './marks.js';

/** @import {State} from './state.js' */
/** @import {Objects, Box} from './objects.js' */
/** @import {Marks} from './marks.js' */

/**
 * The lines that squares of one size stand on, along one axis.
 *
 * @typedef {object} Lines
 * @property {number} first
 * @property {number} last
 * @property {number} step from one to the next
 * @property {number} size of a square
 */

/**
 * @param {Objects} objects
 * @param {State} state
 * @param {Marks} marks
 */
export function followMatrix(objects, state, marks) {
    if (objects.engine !== 'matrix')
        return;
    const boxes = [];
    for (let i = 0; i < objects.count; ++i) {
        const box = objects.ends(i) ? objects.box(i) : null;
        if (box)
            boxes.push(box);
    }
    if (boxes.length === 0)
        return;
    const columns = linesOf(boxes.map(box => box.x), Math.min(...boxes.map(box => box.width)));
    const rows = linesOf(boxes.map(box => box.y), Math.min(...boxes.map(box => box.height)));
    const [width, height] = objects.data.size;
    state.follow(['spot', 'pointed'], () => {
        const box = objects.box(state.now.pointed);
        const spot = state.now.spot ?? (box && middleOf(box));
        const x = spot && lineAt(columns, spot.x);
        const y = spot && lineAt(rows, spot.y);
        const bands = [];
        if (x !== null)
            bands.push(bandOf({ x, y: 0, width: columns.size, height }));
        if (y !== null)
            bands.push(bandOf({ x: 0, y, width, height: rows.size }));
        marks.show('bands', bands);
    });
}

/** @param {Box} box */
function bandOf(box) {
    const band = rectOf(box, 0);
    band.setAttribute('class', 'band');
    return band;
}

/**
 * @param {number[]} places
 * @param {number} size
 * @returns {Lines}
 */
function linesOf(places, size) {
    const sorted = [...new Set(places)].sort((a, b) => a - b);
    const step = sorted.slice(1).reduce((least, place, k) => Math.min(least, place - sorted[k]), Infinity);
    const [first, last] = [sorted[0], sorted[sorted.length - 1]];
    return { first, last, step: Number.isFinite(step) ? step : size, size };
}

/**
 * The line of squares that holds a place, null if none does.
 *
 * @param {Lines} lines
 * @param {number} place
 */
function lineAt({ first, last, step, size }, place) {
    const line = first + Math.floor((place - first) / step) * step;
    return line < first || line > last || place > line + Math.max(size, step) ? null : line;
}
