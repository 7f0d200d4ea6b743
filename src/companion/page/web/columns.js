/** The columns of the table of objects: what an object has in each, and which way that sorts. */

import { hasShare, percent } from './chart.js';
import { figure } from './elements.js';

/** @import {Objects} from './objects.js' */

/**
 * @typedef {object} Column
 * @property {string} name
 * @property {boolean} isNumber
 * @property {(i: number) => string} text
 * @property {(i: number) => number | string} key by which rows are sorted
 */

const mostAttributes = 5;
// An attribute that fewer objects have gets no column.
const rareShare = 0.02;

/**
 * @param {Objects} objects
 * @returns {Column[]}
 */
export function columnsOf(objects) {
    const columns = [
        textColumn('Kind', i => objects.kindName(i)),
        textColumn('Id', i => objects.id(i)),
        textColumn('Group', i => objects.path(i).map(group => objects.name(group)).join(' › ')),
    ];
    if (objects.isChart)
        columns.push(valueColumn(objects));
    return [textColumn('Label', i => objects.name(i)), ...columns, ...attributeColumns(objects)];
}

/**
 * @param {string} name
 * @param {(i: number) => string} text
 * @returns {Column}
 */
function textColumn(name, text) {
    return { name, isNumber: false, text, key: text };
}

/**
 * @param {Objects} objects
 * @returns {Column}
 */
function valueColumn(objects) {
    const { value = [], total = 0 } = objects.data;
    const text = (/** @type {number} */ i) => !hasShare(objects, i) ? ''
        : total > 0 ? `${figure(value[i])} (${percent(value[i], total)})`
        : figure(value[i]);
    return { name: 'Value', isNumber: true, text, key: i => hasShare(objects, i) ? value[i] : -Infinity };
}

/**
 * The attributes that most objects have, but for those that another column shows.
 *
 * @param {Objects} objects
 * @returns {Column[]}
 */
function attributeColumns(objects) {
    const counts = objects.data.names.map((name, k) => ({ name, k, count: 0 }));
    // What is given by default to many says less than what each was given.
    for (let i = 0; i < objects.all; ++i)
        objects.setOf(i).slice(1).forEach(k => ++counts[k].count);
    const fewest = objects.all * rareShare;
    return counts.filter(({ name, count }) => name !== 'label' && count > fewest).sort((a, b) => b.count - a.count)
        .slice(0, mostAttributes).map(({ name }) => attributeColumn(objects, name));
}

/**
 * @param {Objects} objects
 * @param {string} name
 * @returns {Column}
 */
function attributeColumn(objects, name) {
    const text = (/** @type {number} */ i) =>
        objects.attributes(i).find(([its]) => its === name)?.[1] ?? '';
    const number = (/** @type {number} */ i) => text(i).trim() === '' ? -Infinity : Number(text(i));
    let isNumber = true;
    for (let i = 0; isNumber && i < objects.all; ++i)
        isNumber = !Number.isNaN(number(i));
    return { name, isNumber, text, key: isNumber ? number : text };
}
