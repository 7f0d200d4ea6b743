/**
 * What is drawn over the drawing: marks that keep their width at any zoom, and copies of objects that
 * are lit above a veil. Nothing in the drawing itself changes for a mark, so that it need not be
 * painted again.
 */

import { createDrawn, oncePerFrame } from './elements.js';
import { middleOf } from './grid.js';

/** @import {State} from './state.js' */
/** @import {Objects, Box} from './objects.js' */
/** @import {View} from './view.js' */

const layers = ['bands', 'found', 'pointed', 'chosen'];

export class Marks {
    /**
     * @param {SVGElement} layer as large as the stage
     * @param {View} view
     * @param {State} state
     */
    constructor(layer, view, state) {
        const scaled = createDrawn('g');
        layer.append(scaled);
        /** @type {Map<string, SVGGElement>} */
        this.groups = new Map(layers.map(name => [name, createDrawn('g', { class: name })]));
        scaled.append(...this.groups.values());
        const place = () => {
            const { scale } = state.now.view;
            scaled.setAttribute('transform', `matrix(${scale} 0 0 ${scale} ${view.left} ${view.top})`);
        };
        state.follow(['view'], oncePerFrame(place));
        place();
    }

    /**
     * Draws what a layer has from now on, in units of the drawing.
     *
     * @param {string} layer
     * @param {SVGElement[]} marks
     * @param {boolean} [focused] whether they are those of the focus
     */
    show(layer, marks, focused = false) {
        const group = this.groups.get(layer);
        group?.replaceChildren(...marks);
        group?.classList.toggle('focused', focused);
    }
}

/**
 * The outline of an object, once as a halo and once as a line; its box where it has no shape.
 *
 * @param {Objects} objects
 * @param {number} i
 */
export function outlineOf(objects, i) {
    const shapes = objects.pieces(i).flatMap(shapesOf);
    const box = objects.box(i);
    const outlines = shapes.length > 0 ? shapes.map(bareCopy) : box ? [rectOf(box, 1)] : [];
    return ['halo', 'line'].flatMap(name => outlines.map(outline => {
        const copy = /** @type {SVGElement} */ (outline.cloneNode());
        copy.setAttribute('class', name);
        return copy;
    }));
}

/**
 * The shapes of an object itself, without texts and without its members.
 *
 * @param {Element} element
 * @returns {SVGGeometryElement[]}
 */
export function shapesOf(element) {
    return [...element.children].filter(child => child instanceof SVGGeometryElement);
}

/**
 * The texts and shapes of an object itself, those of rich texts as well.
 *
 * @param {Element} element
 * @returns {SVGGraphicsElement[]}
 */
export function leavesOf(element) {
    const leaves = [...element.children].flatMap(child => child.localName !== 'g' ? [child]
        : child.hasAttribute('data-kind') ? [] : [...child.querySelectorAll(':not(g, defs, defs *)')]);
    return leaves.filter(leaf => leaf instanceof SVGGraphicsElement);
}

/**
 * A paint of a shape or text, which they may have from what is around.
 *
 * @param {Element} leaf
 * @param {string} paint fill or stroke, or its opacity, or a property of the font
 */
export function paintOf(leaf, paint) {
    return leaf.closest(`[${paint}]`)?.getAttribute(paint) ?? null;
}

/**
 * Whether a shape has a fill that is seen, or one with more than a part.
 *
 * @param {Element} shape
 * @param {number} [opacity]
 */
export function isSeen(shape, opacity = 0) {
    return shape.getAttribute('fill') !== 'none' && Number(shape.getAttribute('fill-opacity') ?? 1) > opacity;
}

/** @param {SVGGeometryElement} shape */
function bareCopy(shape) {
    const copy = /** @type {SVGElement} */ (shape.cloneNode());
    for (const { name } of [...copy.attributes]) {
        if (/^(stroke|fill|class)/.test(name))
            copy.removeAttribute(name);
    }
    return copy;
}

/**
 * @param {Box} box
 * @param {number} margin
 */
export function rectOf({ x, y, width, height }, margin) {
    return createDrawn('rect',
        { x: x - margin, y: y - margin, width: width + 2 * margin, height: height + 2 * margin });
}

/**
 * A point that belongs to an object: the middle of its box, or of its line where that lies beside it.
 *
 * @param {Objects} objects
 * @param {number} i
 * @param {boolean} exact looks at the shape, which takes longer
 */
export function anchorOf(objects, i, exact) {
    const box = objects.box(i);
    if (!box)
        return null;
    const middle = middleOf(box);
    const shape = exact ? shapesOf(objects.elements[i])[0] : undefined;
    if (!shape || shape instanceof SVGRectElement || shape.isPointInFill(middle))
        return middle;
    return shape.getPointAtLength(shape.getTotalLength() / 2);
}

/**
 * A copy of an object as it is drawn, which is no part of the drawing for anybody who asks.
 *
 * @param {Element} element
 */
export function copyOf(element) {
    const copy = /** @type {SVGElement} */ (element.cloneNode(true));
    for (const name of ['tabindex', 'role', 'aria-label', 'aria-pressed'])
        copy.removeAttribute(name);
    // What it inherits where it is drawn.
    for (const name of ['fill', 'stroke', 'font-family', 'font-size'])
        copy.setAttribute(name, paintOf(element, name) ?? '');
    return copy;
}

export class Veil {
    /**
     * @param {SVGElement} layer lies on the drawing and has its size
     * @param {Element} drawing
     * @param {Objects} objects
     * @param {State} state
     */
    constructor(layer, drawing, objects, state) {
        for (const name of ['width', 'height', 'viewBox'])
            layer.setAttribute(name, drawing.getAttribute(name) ?? '');
        layer.classList.toggle('many', drawing.matches('.many'));
        this.layer = layer;
        this.drawing = drawing;
        this.objects = objects;
        /** @type {number[] | null} */
        this.lit = null;
        state.follow(['revealed'], () => this.show(this.lit));
    }

    /**
     * Dims the drawing except for these objects; nothing is dimmed for null.
     *
     * @param {number[] | null} lit
     */
    show(lit) {
        this.lit = lit;
        this.drawing.classList.toggle('dimmed', lit !== null);
        this.layer.replaceChildren();
        if (!lit)
            return;
        const [width, height] = this.objects.data.size;
        this.layer.append(createDrawn('rect', { class: 'veil', width, height }));
        for (const i of lit)
            this.layer.append(...this.ground(i), ...this.objects.pieces(i).map(copyOf));
    }

    /**
     * What a copy needs beneath it to be read: the fill that the object lies on.
     *
     * @param {number} i
     */
    ground(i) {
        const box = this.objects.box(i);
        if (!box || this.objects.kind(i) === 'edge')
            return [];
        for (const group of this.objects.path(i).reverse()) {
            const shape = shapesOf(this.objects.elements[group])[0];
            // One with half of its fill or less hides nothing.
            if (!shape || !isSeen(shape, 0.5))
                continue;
            const ground = rectOf(box, 0);
            ground.setAttribute('fill', shape.getAttribute('fill') ?? '');
            return [ground];
        }
        return [];
    }
}
