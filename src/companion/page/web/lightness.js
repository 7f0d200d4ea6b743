/**
 * Which lines and texts a dark page would swallow. They turn light where they lie on the page, and grey
 * where they lie on the page and on a fill alike; on the fill of an object they stay.
 */

import { Grid, holds } from './grid.js';
import { shapesOf } from './marks.js';

/** @import {Objects, Box} from './objects.js' */

// Of the dark page, with which a colour has to have some contrast to stay.
const pageLuminance = 0.009;
const leastContrast = 4.5;

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
 * @param {Objects} objects
 * @param {number} i
 */
function isFilled(objects, i) {
    const fill = objects.kind(i) === 'edge' ? 'none' : shapesOf(objects.elements[i])[0]?.getAttribute('fill');
    return (fill ?? 'none') !== 'none' && fill !== '#000000';
}

/**
 * Gives classes to what turns: `turned` on the page, `half-turned` on both, each with the paint.
 *
 * @param {Objects} objects
 */
export function turnLines(objects) {
    const fills = new Grid(objects, i => isFilled(objects, i));
    for (let i = 0; i < objects.count; ++i) {
        const box = objects.box(i);
        if (box && !isFilled(objects, i))
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
    const lost = [...objects.elements[i].children].filter(child => child instanceof SVGGraphicsElement
        && child.localName !== 'g' && (isLostOnDark(child.getAttribute('fill')) || isLostOnDark(child.getAttribute('stroke'))));
    if (lost.length === 0)
        return;
    const below = fills.touching(box).filter(j => j < i).map(j => objects.box(j));
    if (below.some(fill => holds(fill, box)))
        return;
    for (const child of lost)
        turn(/** @type {SVGGraphicsElement} */ (child), below);
}

/**
 * @param {SVGGraphicsElement} child
 * @param {(Box | null)[]} below the fills that the object may lie on
 */
function turn(child, below) {
    let name = 'turned';
    if (below.length > 0) {
        const box = child.getBBox();
        if (below.some(fill => holds(fill, box)))
            return;
        name = child.localName === 'text' ? 'turned' : 'half-turned';
    }
    for (const paint of ['fill', 'stroke']) {
        if (isLostOnDark(child.getAttribute(paint)))
            child.classList.add(`${name}-${paint}`);
    }
}
