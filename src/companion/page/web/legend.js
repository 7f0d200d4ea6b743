/** The entries of a chart's legend are switches, each of which lights what has its colour. */

import { isSeen, shapesOf } from './marks.js';

/** @import {State} from './state.js' */
/** @import {Objects} from './objects.js' */
/** @import {Veil} from './marks.js' */

/**
 * The fill of an object, empty for none.
 *
 * @param {Objects} objects
 * @param {number} i
 */
function colorOf(objects, i) {
    const [shape] = shapesOf(objects.elements[i]);
    return shape && isSeen(shape) ? shape.getAttribute('fill') ?? '' : '';
}

/**
 * The objects of the legend that stand for a colour.
 *
 * @param {Objects} objects
 */
function entriesOf(objects) {
    const { legend } = objects.data;
    return (legend < 0 ? [] : objects.members(legend))
        .filter(i => objects.kind(i) === 'node' && colorOf(objects, i) !== '');
}

/**
 * Whether the legend has an entry of a colour.
 *
 * @param {Objects} objects
 * @param {string} color
 */
export function isLegendColor(objects, color) {
    return entriesOf(objects).some(i => colorOf(objects, i) === color);
}

export class Legend {
    /**
     * @param {Objects} objects
     * @param {State} state
     * @param {Veil} veil
     */
    constructor(objects, state, veil) {
        this.objects = objects;
        this.state = state;
        this.entries = entriesOf(objects);
        for (const i of this.entries)
            this.prepare(i);
        state.follow(['color'], () => {
            const { color } = state.now;
            veil.show(color === '' ? null : this.colored(color));
            for (const i of this.entries)
                objects.elements[i].setAttribute('aria-pressed', String(colorOf(objects, i) === color));
        });
    }

    /** @param {number} i */
    prepare(i) {
        const element = this.objects.elements[i];
        const named = { role: 'button', tabindex: '0', 'aria-pressed': 'false',
                        'aria-label': `Light what has the colour of ${this.objects.name(i)}` };
        for (const [name, value] of Object.entries(named))
            element.setAttribute(name, value);
    }

    /**
     * Lights what an entry stands for, or ends it. Says whether the object is an entry.
     *
     * @param {number} i
     */
    press(i) {
        if (!this.entries.includes(i))
            return false;
        const color = colorOf(this.objects, i);
        this.state.change({ color: this.state.now.color === color ? '' : color });
        return true;
    }

    /**
     * All objects with a fill. A group would cover its members, unless they lie beside it as in rings.
     *
     * @param {string} color
     */
    colored(color) {
        const withGroups = this.objects.engine === 'sunburst';
        const found = [];
        for (let i = 0; i < this.objects.count; ++i) {
            if (colorOf(this.objects, i) === color && (withGroups || this.objects.kind(i) === 'node'))
                found.push(i);
        }
        return found;
    }
}
