/** The search field: how many objects are found, the way from one to the next, and their marks. */

import { afterPause, figure } from './elements.js';
import { anchorOf, outlineOf } from './marks.js';

/** @import {State} from './state.js' */
/** @import {Objects} from './objects.js' */
/** @import {Marks} from './marks.js' */
/** @import {Dots} from './dots.js' */
/** @import {Matches} from './matches.js' */

const typingPause = 150;
// More than these get a dot but no outline.
const mostOutlines = 300;

export class Search {
    /**
     * @param {HTMLInputElement} field
     * @param {HTMLElement} count
     * @param {State} state
     * @param {Matches} matches
     * @param {(i: number) => void} choose
     */
    constructor(field, count, state, matches, choose) {
        this.field = field;
        this.state = state;
        this.matches = matches;
        this.choose = choose;
        field.oninput = afterPause(() => state.change({ query: field.value }), typingPause);
        field.onkeydown = event => this.keyPressed(event);
        state.follow(['query', 'chosen'], () => {
            if (document.activeElement !== field)
                field.value = state.now.query;
            const text = this.told();
            // Said only if it is new, or every choice would be read out.
            if (count.textContent !== text)
                count.textContent = text;
        });
    }

    /** @param {KeyboardEvent} event */
    keyPressed(event) {
        if (event.key === 'Enter') {
            event.preventDefault();
            this.state.change({ query: this.field.value });
            this.step(event.shiftKey ? -1 : 1);
        } else if (event.key === 'Escape') {
            event.stopPropagation();
            this.field.value = '';
            this.state.change({ query: '' });
            this.field.blur();
        }
    }

    told() {
        const { query, chosen } = this.state.now;
        const { found } = this.matches;
        if (query.trim() === '')
            return '';
        const place = found.indexOf(chosen);
        return (place < 0 ? `${figure(found.length)} found` : `${figure(place + 1)} of ${figure(found.length)}`)
            + (this.matches.isInRoot ? ', and in the graph' : '');
    }

    /**
     * Chooses the next object found, or the one before; around from the last to the first.
     *
     * @param {1 | -1} direction
     */
    step(direction) {
        const { found } = this.matches;
        if (found.length === 0)
            return;
        const place = found.indexOf(this.state.now.chosen);
        const next = place < 0 && direction < 0 ? found.length - 1 : place + direction;
        this.choose(found[(next + found.length) % found.length]);
    }
}

/**
 * Marks all that is found: an outline, and a dot that is seen however small the object is.
 *
 * @param {Objects} objects
 * @param {State} state
 * @param {Matches} matches
 * @param {Marks} marks
 * @param {Dots} dots
 */
export function markFound(objects, state, matches, marks, dots) {
    state.follow(['query'], () => {
        const found = [...new Set(matches.found.map(i => objects.seen(i)))].filter(i => i >= 0);
        const isFew = found.length <= mostOutlines;
        marks.show('found', isFew ? found.flatMap(i => outlineOf(objects, i)) : []);
        dots.show(found.flatMap(i => {
            const point = anchorOf(objects, i, isFew);
            const box = objects.box(i);
            // Only an outline makes the dot needless.
            const size = isFew && box ? Math.max(box.width, box.height) : 0;
            return point ? [{ x: point.x, y: point.y, size }] : [];
        }));
    });
}
