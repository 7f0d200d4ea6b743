/**
 * Which lines and texts a dark page would swallow. They turn light where they lie on the page, and grey
 * where they lie on the page and on a fill alike; on the fill of an object they stay.
 */

import { Grid, holds, overlap } from './grid.js';
import { shapesOf } from './marks.js';

/** @import {Objects, Box} from './objects.js' */

// Of the dark page, with which a colour has to have some contrast to stay.
const pageLuminance = 0.009;
const leastContrast = 4.5;

const paints = ['fill', 'stroke'];

/**
 * The relative luminance of a colour such as #8090a0, as WCAG 2 defines it; 1 for what is none.
 *
 * @param {string} color
 */
export function luminance(color) {
    const digits = /^#([0-9a-f]{6})$/i.exec(color)?.[1];
    if (!digits)
        return 1;
    const [red, green, blue] = [0, 2, 4].map(k => parseInt(digits.slice(k, k + 2), 16) / 255)
        .map(part => part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4);
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}

/** @param {string | null} color */
function isLostOnDark(color) {
    return color !== null && (luminance(color) + 0.05) / (pageLuminance + 0.05) < leastContrast;
}

/**
 * The shape whose fill an object has beneath its texts, null for none.
 *
 * @param {Objects} objects
 * @param {number} i
 */
function filledShape(objects, i) {
    const shape = shapesOf(objects.elements[i])[0];
    // What an edge has first is a line or the head of one, unless it is a square of a matrix.
    if (shape === undefined || (objects.kind(i) === 'edge' && !(shape instanceof SVGRectElement)))
        return null;
    const fill = shape.getAttribute('fill') ?? 'none';
    return fill === 'none' || fill === '#000000' ? null : shape;
}

/**
 * Gives classes to what turns: `turned` on the page, `half-turned` on both, each with the paint.
 *
 * @param {Objects} objects
 */
export function turnLines(objects) {
    const fills = new Grid(objects, i => filledShape(objects, i) !== null);
    for (let i = 0; i < objects.count; ++i) {
        const box = objects.box(i);
        if (box)
            turnObject(objects, i, box, fills);
    }
}

/**
 * @param {Objects} objects
 * @param {number} i
 * @param {Box} box
 * @param {Grid} fills
 */
function turnObject(objects, i, box, fills) {
    const own = filledShape(objects, i);
    // The line around a fill stays with it.
    const lost = [...objects.elements[i].children].filter(child => child !== own && isLost(child));
    if (lost.length === 0)
        return;
    const below = fills.touching(box).filter(j => j <= i)
        .map(j => filledShape(objects, j)?.getBBox() ?? null);
    for (const child of lost)
        turn(/** @type {SVGGraphicsElement} */ (child), below);
}

/** @param {Element} child */
function isLost(child) {
    return child.localName !== 'g' && paints.some(paint => isLostOnDark(child.getAttribute(paint)));
}

/**
 * @param {SVGGraphicsElement} child
 * @param {(Box | null)[]} below the fills that it may lie on
 */
function turn(child, below) {
    const box = child.getBBox();
    const isText = child.localName === 'text';
    if (below.some(fill => holds(fill, box)))
        return;
    const isBetween = !isText && below.some(fill => overlap(fill, box));
    for (const paint of paints) {
        if (isLostOnDark(child.getAttribute(paint)))
            child.classList.add(`${isBetween ? 'half-turned' : 'turned'}-${paint}`);
    }
}
