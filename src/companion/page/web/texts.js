/**
 * Of a drawing with many texts those stay out that are too small to be read, until they are shown large
 * enough: a browser takes as long for one as for several shapes.
 */

import { restTime } from './dots.js';
import { afterPause } from './elements.js';
import { Grid } from './grid.js';
import { leavesOf, paintOf } from './marks.js';

/** @import {State} from './state.js' */
/** @import {Objects} from './objects.js' */
/** @import {View} from './view.js' */

// Pixels of a letter; below they are specks.
const readableSize = 3;
// What comes between two frames.
const mostAtOnce = 1000;

export class Texts {
    /**
     * @param {Element} drawing which says by its class that it has many
     * @param {Objects} objects
     * @param {View} view
     * @param {State} state
     */
    constructor(drawing, objects, view, state) {
        this.objects = objects;
        this.view = view;
        this.state = state;
        /** @type {Grid | null} */
        this.grid = null;
        /** Of the objects that were in view the texts that are still out. @type {Map<number, Element[]>} */
        this.waiting = new Map();
        this.largest = Number(drawing.getAttribute('data-largest'));
        if (!drawing.matches('.many'))
            return;
        // Without a table nobody knows where they are.
        if (objects.count === 0) {
            drawing.classList.remove('many');
            return;
        }
        for (const text of drawing.querySelectorAll(':scope > text, :scope > g:not([data-kind]) text'))
            text.classList.add('shown');
        for (const head of objects.data.heads ?? [])
            this.textsOf(head).forEach(text => text.classList.add('shown'));
        this.rest = afterPause(() => this.show(), restTime);
        state.follow(['view'], this.rest);
        this.rest();
    }

    /** @param {number} i */
    textsOf(i) {
        return leavesOf(this.objects.elements[i]).filter(leaf => leaf.localName === 'text');
    }

    /** Brings those in view that can be read, some at a time. */
    show() {
        const smallest = readableSize / this.state.now.view.scale;
        if (this.largest < smallest)
            return;
        this.grid ??= new Grid(this.objects, () => true);
        const revealed = [];
        let count = 0;
        for (const i of this.grid.touching(this.view.area)) {
            const texts = this.waiting.get(i) ?? this.textsOf(i);
            const left = texts.filter(text => Number(paintOf(text, 'font-size')) < smallest);
            this.waiting.set(i, left);
            if (left.length === texts.length)
                continue;
            texts.filter(text => !left.includes(text)).forEach(text => text.classList.add('shown'));
            revealed.push(i);
            count += texts.length - left.length;
            if (count >= mostAtOnce)
                break;
        }
        if (revealed.length > 0)
            this.state.change({ revealed });
        if (count >= mostAtOnce)
            this.rest?.();
    }
}
