/**
 * The objects of the drawing: the table that came with it and the elements that it was drawn as. An
 * object is a number, its place in the document.
 */

import { textAfter, unpack } from './packed.js';

/**
 * The table as it stands in the page, unpacked. Names of attributes are
 * told by their places in `names`. Lists of which nothing else is said have an entry for each object.
 *
 * @typedef {object} PageData
 * @property {string} engine empty for a replayed text
 * @property {[number, number]} size
 * @property {number[]} box four numbers a drawn object; a width below zero where nothing was drawn
 * @property {(number | string)[]} [undrawn] how many groups and nodes without an element come behind the
 * drawn objects, then the ids of these and of edges
 * @property {number[]} parent
 * @property {(string | 0)[]} label 0 where there is none, or where it is the id
 * @property {string[]} names of attributes
 * @property {(number | string)[]} values of own attributes, packed as unpacked() reads them
 * @property {number[]} set of each object
 * @property {number[][]} sets their defaults, -1 for none, and the names of own attributes
 * @property {(number | string)[][]} defaults those around them, -1 for none, a name, a value, and so on
 * @property {(number | string)[]} root what the graph itself was given: a name, a value, and so on
 * @property {Record<string, [number, number]>} ends
 * @property {number[]} [value] of charts
 * @property {number} [total] the sum of all values of a chart, also of what was not drawn
 * @property {number} legend
 * @property {number[]} [heads]
 * @property {Record<string, number>} [same]
 */

/** @typedef {{x: number, y: number, width: number, height: number}} Box */

const empty = /** @type {PageData} */ ({
    engine: '', size: [0, 0], box: [], parent: [], label: [], names: [], values: [], set: [],
    sets: [], defaults: [], root: [], ends: {}, legend: -1,
});

export class Objects {
    /**
     * @param {ArrayLike<Element> & Iterable<Element>} elements one for each object
     * @param {PageData} data
     */
    constructor(elements, data) {
        this.elements = elements;
        this.data = data;
        /** Of what was drawn. */
        this.count = elements.length;
        /** With what was too small to be drawn, which comes behind. */
        this.all = data.parent.length;
        /** @type {Map<Element, number> | null} */
        this.places = null;
        /** Copies that stand for objects as well. @type {Map<Element, number>} */
        this.copies = new Map();
        /** @type {string[][] | null} */
        this.values = null;
        /** @type {Map<number, number[]> | null} */
        this.membersOf = null;
        /** @type {Map<number, number[]> | null} */
        this.edgesOf = null;
    }

    get engine() {
        return this.data.engine;
    }

    /** Whether areas stand for values. */
    get isChart() {
        return this.data.value !== undefined;
    }

    /**
     * The object that an element of the drawing belongs to, -1 for none.
     *
     * @param {EventTarget | null} target
     */
    at(target) {
        const element = target instanceof Element ? target.closest('.head') ?? target.closest('g[data-kind]') : null;
        // Made at the first question: each element that a script looks at takes time.
        this.places ??= new Map(Array.from(this.elements, (one, i) => [one, i]));
        const place = element ? this.places.get(element) ?? this.copies.get(element) : undefined;
        return place === undefined ? -1 : this.whole(place);
    }

    /**
     * An object that was drawn in several pieces is known by one of them.
     *
     * @param {number} i
     */
    whole(i) {
        return this.data.same?.[i] ?? i;
    }

    /** @param {number} i */
    isPiece(i) {
        return this.whole(i) !== i;
    }

    /**
     * The elements that an object was drawn as.
     *
     * @param {number} i
     */
    pieces(i) {
        const others = Object.entries(this.data.same ?? {}).filter(([, whole]) => whole === i);
        return [i, ...others.map(([piece]) => Number(piece))].flatMap(piece => this.elements[piece] ?? []);
    }

    /** @param {number} i */
    kind(i) {
        const [groups, nodes] = this.data.undrawn ?? [];
        const further = i - this.count;
        return further < 0 ? this.elements[i].getAttribute('data-kind') ?? ''
            : further < Number(groups) ? 'cluster' : further < Number(groups) + Number(nodes) ? 'node' : 'edge';
    }

    /**
     * What a reader calls the kind.
     *
     * @param {number} i
     */
    kindName(i) {
        return this.kind(i) === 'cluster' ? 'group' : this.kind(i);
    }

    /** @param {number} i */
    id(i) {
        return String(i < this.count ? this.elements[i].getAttribute('data-id') ?? '' : this.data.undrawn?.[2 + i - this.count]);
    }

    /**
     * The label in one line, or what else an object is known by: the ends of an edge, the id.
     *
     * @param {number} i
     * @returns {string}
     */
    name(i) {
        const label = this.data.label[i];
        if (typeof label === 'string' && label.trim() !== '')
            return label.trim().replace(/\s+/g, ' ');
        const ends = this.ends(i);
        if (!ends)
            return this.id(i);
        return ends.map(end => end < 0 ? '…' : this.name(end)).join(' → ');
    }

    /**
     * Null where nothing was drawn, and for no object.
     *
     * @param {number} i
     * @returns {Box | null}
     */
    box(i) {
        const [x, y, width, height] = this.data.box.slice(4 * i, 4 * i + 4);
        return width >= 0 ? { x, y, width, height } : null;
    }

    /**
     * The object, or the group around it that is to be seen where it is not; -1 for none.
     *
     * @param {number} i
     */
    seen(i) {
        while (i >= 0 && !this.box(i))
            i = this.parent(i);
        return i;
    }

    /**
     * The object, or the group around it that has an element; -1 for none.
     *
     * @param {number} i
     */
    drawn(i) {
        while (i >= this.count)
            i = this.parent(i);
        return i;
    }

    /** @param {number} i */
    parent(i) {
        return this.data.parent[i];
    }

    /**
     * The groups around an object, the outermost one first.
     *
     * @param {number} i
     */
    path(i) {
        const groups = [];
        for (let group = this.parent(i); group >= 0 && groups.length < this.all; group = this.parent(group))
            groups.unshift(group);
        return groups;
    }

    /** The numbers of the defaults of an object and of its own attributes. @param {number} i */
    setOf(i) {
        return this.data.sets[this.data.set[i]];
    }

    /** The values of own attributes of each object, made when they are first asked for. */
    unpacked() {
        /** @type {string[]} */
        const texts = [];
        /** @type {string[]} */
        const last = [];
        let at = 0;
        return this.data.set.map(set => this.data.sets[set].slice(1).map(name => {
            const packed = this.data.values[at++];
            if (typeof packed === 'number')
                return last[name] = texts[packed];
            last[name] = textAfter(last[name] ?? '', packed);
            texts.push(last[name]);
            return last[name];
        }));
    }

    /**
     * Names and values in the order of the input: its own, then those by default, the innermost first.
     *
     * @param {number} i
     * @returns {[string, string][]}
     */
    attributes(i) {
        this.values ??= this.unpacked();
        const { defaults, names } = this.data;
        const values = this.values[i];
        const [first, ...own] = this.setOf(i);
        /** @type {[number, string][]} */
        const pairs = own.map((name, k) => [name, values[k]]);
        for (let at = first; at >= 0; at = Number(defaults[at][0])) {
            const further = pairsOf(defaults[at].slice(1)).filter(([name]) =>
                names[name] !== 'label' && !pairs.some(pair => pair[0] === name));
            pairs.push(...further);
        }
        return pairs.map(([name, value]) => [names[name], value]);
    }

    /**
     * What the graph itself was given.
     *
     * @returns {[string, string][]}
     */
    get rootAttributes() {
        return pairsOf(this.data.root).map(([name, value]) => [this.data.names[name], value]);
    }

    /**
     * The objects at the tail and the head of an edge, -1 for one that is not drawn; null for what is no
     * edge.
     *
     * @param {number} i
     */
    ends(i) {
        return this.data.ends[i] ?? null;
    }

    /**
     * The objects directly in a group, or in none for -1, in the order of the drawing.
     *
     * @param {number} group
     */
    members(group) {
        this.membersOf ??= this.gathered(i => [this.parent(i)]);
        return this.membersOf.get(group) ?? [];
    }

    /**
     * The edges at a node.
     *
     * @param {number} node
     */
    edges(node) {
        this.edgesOf ??= this.gathered(i => [...new Set(this.ends(i) ?? [])]);
        return this.edgesOf.get(node) ?? [];
    }

    /**
     * All objects by the keys of each.
     *
     * @param {(i: number) => number[]} keysOf
     */
    gathered(keysOf) {
        /** @type {Map<number, number[]>} */
        const lists = new Map();
        for (let i = 0; i < this.count; ++i) {
            for (const key of this.isPiece(i) ? [] : keysOf(i)) {
                const list = lists.get(key);
                if (list)
                    list.push(i);
                else
                    lists.set(key, [i]);
            }
        }
        return lists;
    }

    /**
     * A text by which an object is found again, also in a later drawing of the same graph.
     *
     * @param {number} i
     */
    key(i) {
        return `${i}.${this.kind(i)}.${this.id(i)}`;
    }

    /**
     * The object of a key, or the first one with its kind and id; -1 if there is none any more.
     *
     * @param {string} key
     */
    find(key) {
        const [place, kind = ''] = key.split('.', 2);
        const id = key.slice(place.length + kind.length + 2);
        /** @type {(i: number) => boolean} */
        const isIt = i => this.kind(i) === kind && this.id(i) === id;
        if (kind === '')
            return -1;
        const i = /^\d+$/.test(place) ? Number(place) : this.all;
        if (i < this.all && isIt(i))
            return this.whole(i);
        for (let other = 0; other < this.all; ++other) {
            if (isIt(other))
                return this.whole(other);
        }
        return -1;
    }
}

/**
 * @param {(number | string)[]} list a name, a value, and so on
 * @returns {[number, string][]}
 */
function pairsOf(list) {
    return list.flatMap((name, k) => k % 2 === 0 ? [[Number(name), String(list[k + 1])]] : []);
}

/**
 * What is wrong with a table; empty if it fits the drawing.
 *
 * @param {any} data
 * @param {number} count of elements
 */
function faultOf(data, count) {
    const lists = ['box', 'parent', 'label', 'names', 'values', 'set', 'sets', 'defaults', 'root', 'ends'].map(name => data?.[name]);
    if (!lists.every(Array.isArray))
        return 'is incomplete';
    unpack(data);
    const further = Math.max((data.undrawn?.length ?? 2) - 2, 0);
    const sizes = [data.box.length / 4, ...[data.parent, data.label, data.set].map(({ length }) => length - further)];
    if (sizes.some(size => size !== count))
        return `does not fit the drawing, which has ${count} objects`;
    return '';
}

/**
 * The table and the drawing together. If the table can't be read there are words that say so, and
 * the drawing has no objects.
 *
 * @param {Element} drawing
 * @param {string} text of the table; empty if there is none
 * @returns {{objects: Objects, fault: string}}
 */
export function readObjects(drawing, text) {
    const elements = drawing.querySelectorAll('g[data-kind]');
    let fault = '';
    try {
        const data = JSON.parse(text);
        fault = faultOf(data, elements.length);
        if (fault === '')
            return { objects: new Objects(elements, data), fault };
    } catch {
        fault = text === '' ? 'is missing' : 'is damaged';
    }
    return { objects: new Objects([], empty), fault };
}
