/** Zooming into groups, and the trail of their names back up. */

import { create, createButton } from './elements.js';

/** @import {State} from './state.js' */
/** @import {Objects} from './objects.js' */
/** @import {View} from './view.js' */

// A group that covers more of what is around it shows nothing new.
const sameArea = 0.9;

export class Trail {
    /**
     * @param {HTMLElement} nav
     * @param {Objects} objects
     * @param {View} view
     * @param {State} state
     */
    constructor(nav, objects, view, state) {
        this.nav = nav;
        this.objects = objects;
        this.view = view;
        this.state = state;
        state.follow(['group'], () => this.update());
    }

    /**
     * Zooms to an object; in a chart to the next group on the way to it. Up again from nothing.
     *
     * @param {number} i
     */
    enter(i) {
        const seen = this.objects.seen(i);
        const target = seen >= 0 && this.objects.isChart ? this.nextStep(seen) : seen;
        const box = target < 0 ? null : this.objects.box(target);
        if (!box) {
            this.leave();
            return;
        }
        const isGroup = this.objects.kind(target) === 'cluster';
        this.state.change({ group: isGroup ? target : this.objects.parent(target) });
        this.view.show(box);
    }

    /** @param {number} i */
    nextStep(i) {
        const steps = [...this.objects.path(i), i];
        const next = steps.slice(steps.indexOf(this.state.now.group) + 1);
        return next.find(step => this.areaOf(step) < sameArea * this.areaOf(this.state.now.group)) ?? i;
    }

    /** @param {number} group */
    areaOf(group) {
        const [width, height] = this.objects.data.size;
        const box = group < 0 ? { width, height } : this.objects.box(group);
        return box ? box.width * box.height : 0;
    }

    /** Goes to the group around the present one. */
    leave() {
        const { group } = this.state.now;
        this.goTo(group < 0 ? -1 : this.objects.parent(group));
    }

    /** @param {number} group */
    goTo(group) {
        this.state.change({ group });
        const box = group < 0 ? null : this.objects.box(group);
        if (box)
            this.view.show(box);
        else
            this.view.fit();
    }

    update() {
        const { group } = this.state.now;
        const steps = group < 0 ? [] : [-1, ...this.objects.path(group), group];
        const items = steps.map(step => {
            const name = step < 0 ? 'Whole drawing' : this.objects.name(step);
            const here = step === group ? 'true' : undefined;
            return create('li', {}, createButton(name, () => this.goTo(step), { 'aria-current': here }));
        });
        this.nav.hidden = steps.length === 0;
        this.nav.replaceChildren(create('ol', {}, ...items));
    }
}
