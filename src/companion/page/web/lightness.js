/**
 * Which lines and texts a dark page would swallow. They keep their hue and get lighter, the more so the
 * darker they are; what lies on the fill of an object stays, and so do all fills of nodes and groups.
 */

import { Grid, holds, overlap } from './grid.js';
import { isFilled, shapesOf } from './marks.js';

/** @import {Objects} from './objects.js' */

const pageLuminance = 0.009;
// The contrast with the dark page: what WCAG 2 asks for, and as much as there is with white.
const leastOfTexts = 4.5;
const leastOfLines = 3;
const contrastBetween = 4.2;
const whiteInBlack = 0.9;

/**
 * Red, green and blue from 0 to 1 of a colour such as #8090a0; null for what is none.
 *
 * @param {string | null} color
 */
function partsOf(color) {
    const digits = /^#([0-9a-f]{6})$/i.exec(color ?? '')?.[1];
    return digits ? [0, 2, 4].map(k => parseInt(digits.slice(k, k + 2), 16) / 255) : null;
}

/**
 * The contrast with the page as WCAG 2 defines it, below 1 for what is darker.
 *
 * @param {number[]} parts
 */
function contrastOf(parts) {
    const [red, green, blue] = parts
        .map(part => part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4);
    return (0.2126 * red + 0.7152 * green + 0.0722 * blue + 0.05) / (pageLuminance + 0.05);
}

/** @param {Element} child */
function isText(child) {
    return child.localName === 'text';
}

/**
 * The six digits of a colour with at least so much white and contrast.
 *
 * @param {number[]} parts
 * @param {number} white below 1
 * @param {number} least
 */
function lightened(parts, white, least) {
    const mixed = parts.map(part => part + (1 - part) * white);
    if (contrastOf(mixed) < least)
        return lightened(parts, white + 0.02, least);
    return mixed.map(part => Math.ceil(255 * part).toString(16).padStart(2, '0')).join('');
}

class Turning {
    /** @param {Objects} objects */
    constructor(objects) {
        this.objects = objects;
        /** @type {SVGGeometryElement[][]} */
        this.fills = [];
        for (let i = 0; i < objects.count; ++i) {
            // What an edge has filled is the head of its line, unless it is a square of a matrix.
            this.fills.push(shapesOf(objects.elements[i]).filter(shape =>
                isFilled(shape) && (objects.kind(i) !== 'edge' || shape instanceof SVGRectElement)));
        }
        this.filled = new Set(this.fills.flat());
        this.grid = new Grid(objects, i => this.fills[i].length > 0);
        /** @type {{child: Element, paint: string, color: string}[]} */
        this.turned = [];
    }

    /** @param {number} i */
    look(i) {
        const lost = [...this.objects.elements[i].children].flatMap(child => this.lostOf(i, child));
        const below = lost.length > 0 ? this.fillsBelow(i) : [];
        for (const { child, paint, parts, least } of lost) {
            const place = placeOf(child, below);
            if (place === 'fill')
                continue;
            const color = place === 'both' ? lightened(parts, 0, contrastBetween)
                : lightened(parts, whiteInBlack * (1 - Math.max(...parts)), least);
            this.turned.push({ child, paint, color });
        }
    }

    /**
     * What of a text or line would hardly be seen on the page.
     *
     * @param {number} i
     * @param {Element} element
     */
    lostOf(i, element) {
        const child = /** @type {SVGGeometryElement} */ (element);
        // The line around a fill stays with it.
        if (this.filled.has(child))
            return [];
        const least = isText(child) ? leastOfTexts : leastOfLines;
        // The fill of a shape stays, also one that things below shine through.
        const paints = isText(child) || this.objects.kind(i) === 'edge' ? ['fill', 'stroke'] : ['stroke'];
        return paints.flatMap(paint => {
            const parts = partsOf(child.getAttribute(paint));
            return parts && contrastOf(parts) < least ? [{ child, paint, parts, least }] : [];
        });
    }

    /** @param {number} i */
    fillsBelow(i) {
        const box = this.objects.box(i);
        return box ? this.grid.touching(box).filter(j => j <= i).flatMap(j => this.fills[j]) : [];
    }
}

/**
 * Whether a text or line lies on the page, on a fill or on both. A text may be larger than its fill.
 *
 * @param {SVGGraphicsElement} child
 * @param {SVGGeometryElement[]} fills
 */
function placeOf(child, fills) {
    const box = child.getBBox();
    if (isText(child)) {
        const middle = new DOMPoint(box.x + box.width / 2, box.y + box.height / 2);
        return fills.some(fill => fill.isPointInFill(middle)) ? 'fill' : 'page';
    }
    const boxes = fills.map(fill => fill.getBBox());
    if (boxes.some(fill => holds(fill, box)))
        return 'fill';
    return boxes.some(fill => overlap(fill, box)) ? 'both' : 'page';
}

/**
 * Gives a class to all that turns, and each class its colour on a dark page.
 *
 * @param {Objects} objects
 */
export function turnLines(objects) {
    const turning = new Turning(objects);
    for (let i = 0; i < objects.count; ++i)
        turning.look(i);
    const [sheet] = document.styleSheets;
    const named = new Set();
    // Changed only now: boxes would have to be found anew after each change.
    for (const { child, paint, color } of turning.turned) {
        const name = `${paint}-${color}`;
        child.classList.add(name);
        if (!named.has(name))
            sheet.insertRule(`@media screen { [data-theme="dark"] .${name} { ${paint}: #${color} } }`);
        named.add(name);
    }
}
