/**
 * The keyboard's way through the drawing. One object at a time can be reached by Tab; from there keys
 * lead to its neighbours in the group, into a group and out of it.
 */

import { neighboursOf } from './relations.js';

/** @import {State} from './state.js' */
/** @import {Objects} from './objects.js' */

export class Roving {
    /**
     * @param {HTMLElement} stage
     * @param {Objects} objects
     * @param {State} state
     * @param {(i: number) => void} reveal brings an object into view
     */
    constructor(stage, objects, state, reveal) {
        this.objects = objects;
        this.state = state;
        this.reveal = reveal;
        this.stop = -1;
        stage.addEventListener('focusin', event => this.focused(objects.at(event.target)));
        stage.addEventListener('focusout', () => state.change({ pointed: -1, focused: false }));
        state.follow(['chosen'], () => this.stopAt(objects.drawn(state.now.chosen)));
        this.stopAt(objects.data.parent.indexOf(-1));
        this.nameAll();
    }

    /** Gives all objects a role and a name while nothing else is to be done: of many it takes long. */
    nameAll() {
        let i = 0;
        const step = (/** @type {IdleDeadline} */ deadline) => {
            while (i < this.objects.count && deadline.timeRemaining() > 0)
                this.name(i++);
            if (i < this.objects.count)
                requestIdleCallback(step);
        };
        requestIdleCallback(step);
    }

    /** @param {number} i */
    name(i) {
        const element = this.objects.elements[i];
        if (element.hasAttribute('role'))
            return;
        element.setAttribute('role', this.objects.kind(i) === 'cluster' ? 'group' : 'img');
        element.setAttribute('aria-label', `${this.objects.kindName(i)} ${this.objects.name(i)}`);
    }

    /** @param {number} i */
    focused(i) {
        if (i < 0)
            return;
        // Who came here by the pointer sees the object already.
        if (!this.objects.elements[i].matches(':focus-visible'))
            return;
        this.state.change({ pointed: i, focused: true, spot: null });
        this.reveal(i);
    }

    /**
     * Makes an object the one that Tab leads to. An entry of a legend can be reached anyway.
     *
     * @param {number} i
     */
    stopAt(i) {
        if (!this.objects.elements[i] || i === this.stop)
            return;
        const before = this.stop < 0 ? null : this.objects.elements[this.stop];
        if (before?.getAttribute('role') !== 'button')
            before?.removeAttribute('tabindex');
        this.stop = i;
        this.objects.elements[i].setAttribute('tabindex', '0');
        this.name(i);
    }

    /** The object that keys start from, -1 for none. */
    get current() {
        const focused = this.objects.at(document.activeElement);
        return focused >= 0 ? focused : this.objects.drawn(this.state.now.chosen);
    }

    /** @param {number} i */
    moveTo(i) {
        const drawn = this.objects.drawn(i);
        if (drawn < 0)
            return;
        this.stopAt(drawn);
        const element = this.objects.elements[drawn];
        if (element instanceof SVGElement)
            element.focus({ preventScroll: true });
    }

    /**
     * To the next object of the same group, or the one before; around from the last to the first.
     *
     * @param {1 | -1} direction
     */
    toSibling(direction) {
        const { current } = this;
        if (current < 0)
            return this.moveTo(this.stop);
        const siblings = this.objects.members(this.objects.parent(current));
        const next = siblings.indexOf(current) + direction + siblings.length;
        this.moveTo(siblings[next % siblings.length]);
    }

    /** To the first object of a group, the first callee of a node, the head of an edge. */
    into() {
        const { current } = this;
        if (current < 0)
            return this.moveTo(this.stop);
        this.moveTo(this.objects.members(current)[0] ?? this.objects.ends(current)?.[1]
            ?? neighboursOf(this.objects, current).callees[0] ?? -1);
    }

    /** To the group around; outside of groups to the tail of an edge, the first caller of a node. */
    outOf() {
        const { current } = this;
        if (current < 0)
            return;
        const parent = this.objects.parent(current);
        this.moveTo(parent >= 0 ? parent : this.objects.ends(current)?.[0]
            ?? neighboursOf(this.objects, current).callers[0] ?? -1);
    }
}
