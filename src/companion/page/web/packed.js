/** Unpacks the lists of the table, which are shorter as they stand in the page. */

/**
 * @typedef {object} PackedLists
 * @property {number[]} box each number less the fourth one before it
 * @property {number[]} parent each less the one before it
 * @property {(string | 0)[]} label texts as textAfter() reads them
 * @property {number[]} set a set, and how many objects one after another have it, and so on
 * @property {number[]} ends an edge, its tail, its head, and so on, each less the third one before it
 * @property {(number | string)[]} [undrawn] two numbers, then texts
 */

/**
 * @param {number[]} list each less the one so many places before it
 * @param {number} width
 */
function sums(list, width) {
    return list.reduce((sum, number, k) => {
        sum.push(number + (sum[k - width] ?? 0));
        return sum;
    }, /** @type {number[]} */ ([]));
}

/**
 * A text of which so many characters are those of the last one as its first one tells.
 *
 * @param {string} last
 * @param {string} packed
 */
export function textAfter(last, packed) {
    return last.slice(0, packed.charCodeAt(0) - 35) + packed.slice(1);
}

/**
 * @template {number | string} Entry
 * @param {Entry[]} list texts among numbers, which stay
 */
function texts(list) {
    let last = '';
    return list.map(entry => typeof entry === 'string' ? last = textAfter(last, entry) : entry);
}

/**
 * Puts the lists as they are meant in the place of those that are packed.
 *
 * @param {any} data
 */
export function unpack(data) {
    const { box, parent, label, set, ends, undrawn } = /** @type {PackedLists} */ (data);
    data.box = sums(box, 4);
    data.parent = sums(parent, 1);
    data.label = texts(label);
    data.undrawn = undrawn && texts(undrawn);
    data.set = set.flatMap((count, k) => k % 2 === 0 ? [] : Array(count).fill(set[k - 1]));
    const all = sums(ends, 3);
    data.ends = {};
    for (let k = 0; k < all.length; k += 3)
        data.ends[all[k]] = all.slice(k + 1, k + 3);
}
