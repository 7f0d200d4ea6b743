/** Sequence diagrams: the heads of the lifelines stay at the upper side of the stage. */

import { createDrawn, oncePerFrame } from './elements.js';
import { middleOf } from './grid.js';
import { copyOf, rectOf } from './marks.js';

/** @import {State} from './state.js' */
/** @import {Objects} from './objects.js' */
/** @import {View} from './view.js' */

const gap = 4;
const largestHead = 1.5;

/**
 * @param {SVGElement} layer as large as the stage
 * @param {Objects} objects
 * @param {View} view
 * @param {State} state
 */
export function keepHeads(layer, objects, view, state) {
    const heads = (objects.data.heads ?? []).flatMap(i => {
        const box = objects.box(i);
        return box ? [{ box, copy: createDrawn('g', { class: 'head' }), i }] : [];
    });
    for (const { box, copy, i } of heads) {
        layer.append(copy);
        objects.copies.set(copy, i);
        const ground = rectOf(box, gap);
        ground.setAttribute('class', 'head-ground');
        copy.append(ground, ...objects.pieces(i).map(copyOf));
    }
    const place = () => {
        const { scale } = state.now.view;
        const size = Math.min(scale, largestHead);
        for (const { box, copy } of heads) {
            const isAbove = box.y * scale + view.top < gap;
            copy.classList.toggle('away', !isAbove);
            const x = middleOf(box).x * (scale - size) + view.left;
            copy.setAttribute('transform', `matrix(${size} 0 0 ${size} ${x} ${gap - (box.y - gap) * size})`);
        }
    };
    if (heads.length === 0)
        return;
    state.follow(['view'], oncePerFrame(place));
    place();
}
