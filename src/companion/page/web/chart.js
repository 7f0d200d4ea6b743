/** The shares of a chart's objects: of the group around them and of the whole. */

import { create, entry, figure } from './elements.js';

/** @import {Objects} from './objects.js' */

/**
 * Whether an object stands for a value, which neither edges nor the legend do.
 *
 * @param {Objects} objects
 * @param {number} i
 */
export function hasShare(objects, i) {
    const { legend } = objects.data;
    return objects.isChart && objects.kind(i) !== 'edge' && legend !== i && (legend < 0 || !objects.path(i).includes(legend));
}

/** @param {Objects} objects */
function totalOf(objects) {
    return objects.data.total ?? objects.members(-1).filter(i => hasShare(objects, i))
        .reduce((sum, i) => sum + (objects.data.value?.[i] ?? 0), 0);
}

/**
 * A share in percent with two digits that count.
 *
 * @param {number} part
 * @param {number} whole
 */
export function percent(part, whole) {
    const share = 100 * part / whole;
    if (!Number.isFinite(share))
        return 'none';
    return `${figure(Number(share.toPrecision(share >= 10 ? 3 : 2)))} %`;
}

/**
 * @param {Objects} objects
 * @returns {(i: number) => Node[]} the lines of the panel
 */
export function shareLines(objects) {
    const total = totalOf(objects);
    return i => {
        if (!hasShare(objects, i))
            return [];
        const value = objects.data.value?.[i] ?? 0;
        const parent = objects.parent(i);
        const list = create('dl', { class: 'shares' });
        list.append(...entry('value', figure(value)));
        if (parent >= 0)
            list.append(...entry(`of ${objects.name(parent)}`, percent(value, objects.data.value?.[parent] ?? 0)));
        list.append(...entry('of the whole', percent(value, total)));
        return [list];
    };
}
