/** Tells of one object: the one that was chosen, or else the one under the pointer. */

import { create, createButton, entry, figure } from './elements.js';
import { valueNode } from './links.js';

/** @import {State} from './state.js' */
/** @import {Objects} from './objects.js' */

/** @typedef {(i: number) => Node[]} Section what an engine adds for an object */

const mostButtons = 40;

export class Panel {
    /**
     * @param {HTMLElement} panel
     * @param {Objects} objects
     * @param {State} state
     * @param {(i: number) => void} choose
     */
    constructor(panel, objects, state, choose) {
        this.panel = panel;
        this.objects = objects;
        this.state = state;
        this.choose = choose;
        /** @type {Section[]} */
        this.sections = [];
        /** @type {string | undefined} */
        this.counts = undefined;
        state.follow(['chosen', 'pointed'], () => this.update());
    }

    update() {
        const { chosen, pointed } = this.state.now;
        const shown = chosen >= 0 ? chosen : pointed;
        this.panel.classList.toggle('held', chosen >= 0);
        this.panel.classList.toggle('idle', shown < 0);
        // Only the chosen one is read out: a pointer passes over many.
        this.panel.setAttribute('aria-live', chosen >= 0 ? 'polite' : 'off');
        this.panel.replaceChildren(...shown < 0 ? this.summary() : this.description(shown));
    }

    summary() {
        this.counts ??= this.counted();
        return [
            create('h2', {}, 'Drawing'),
            create('p', {}, this.objects.engine === '' ? '' : `${this.objects.engine}: `, this.counts),
            create('p', { class: 'soft' }, 'Point at an object to read about it, and click to hold it. ',
                   'Press ? for the keys.'),
            create('dl', {}, ...attributeEntries(this.objects.rootAttributes)),
        ];
    }

    /** How many objects there are of each kind. */
    counted() {
        const pieces = Object.keys(this.objects.data.same ?? {}).map(piece => this.objects.kind(Number(piece)));
        const counts = ['node', 'edge', 'cluster'].map(kind => {
            const elements = this.objects.count && document.querySelectorAll(`#drawing [data-kind=${kind}]`).length;
            const count = elements - pieces.filter(its => its === kind).length;
            const name = kind === 'cluster' ? 'group' : kind;
            return count > 0 ? `${figure(count)} ${name}${count === 1 ? '' : 's'}` : '';
        });
        const undrawn = this.objects.all - this.objects.count;
        return counts.filter(text => text !== '').join(', ')
            + (undrawn > 0 ? `; ${figure(undrawn)} more not drawn by themselves` : '');
    }

    /** @param {number} i */
    description(i) {
        return [
            create('h2', {}, this.objects.name(i)),
            create('p', { class: 'soft' }, this.kindOf(i), this.state.now.chosen === i ? ', held' : ''),
            ...this.objects.box(i) ? [] : [create('p', {}, this.objects.isChart && this.objects.kind(i) !== 'edge'
                ? 'Too small to be drawn here.' : 'Not drawn by itself here.')],
            this.list(i),
            ...this.sections.flatMap(section => section(i)),
        ];
    }

    /** @param {number} i */
    kindOf(i) {
        const kind = this.objects.kindName(i);
        return kind[0].toUpperCase() + kind.slice(1);
    }

    /** @param {number} i */
    list(i) {
        const list = create('dl');
        if (this.objects.id(i) !== '')
            list.append(...entry('id', this.objects.id(i)));
        const path = this.objects.path(i);
        if (path.length > 0)
            list.append(...entry('in', ...path.map(group => this.button(group))));
        this.objects.ends(i)?.forEach((end, k) => {
            if (end >= 0)
                list.append(...entry(k === 0 ? 'from' : 'to', this.button(end)));
        });
        list.append(...attributeEntries(this.objects.attributes(i)));
        return list;
    }

    /**
     * A button that chooses an object.
     *
     * @param {number} i
     */
    button(i) {
        return createButton(this.objects.name(i), () => this.choose(i), { class: 'object' });
    }

    /**
     * A titled list of objects; of many, only some.
     *
     * @param {string} title
     * @param {number[]} list
     * @returns {Node[]}
     */
    titled(title, list) {
        const items = list.slice(0, mostButtons).map(i => create('li', {}, this.button(i)));
        if (list.length > mostButtons)
            items.push(create('li', {}, `and ${list.length - mostButtons} more`));
        if (list.length === 0)
            return [];
        return [create('h3', {}, `${title} (${list.length})`), create('ul', {}, ...items)];
    }
}

/** @param {[string, string][]} attributes */
function attributeEntries(attributes) {
    return attributes.flatMap(([name, value]) => entry(name, valueNode(name, value)));
}
