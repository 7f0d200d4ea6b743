/**
 * Which lines and texts a dark page would swallow. They keep their hue and get lighter, the more so the
 * darker they are; what lies on the fill of an object stays, and so do all fills of nodes and groups.
 */

import { Grid, holds, middleOf, overlap } from './grid.js';
import { isFilled, leavesOf, paintOf } from './marks.js';

/** @import {Box, Objects} from './objects.js' */

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

export class Turning {
    /** @param {Objects} objects */
    constructor(objects) {
        this.objects = objects;
        /** @type {SVGGraphicsElement[][]} */
        this.fills = [];
        for (let i = 0; i < objects.count; ++i) {
            // What an edge has filled is the head of its line, unless it is a square of a matrix.
            const hasFills = objects.kind(i) !== 'edge' || objects.engine === 'matrix';
            this.fills.push(!hasFills ? [] : leavesOf(objects.elements[i]).filter(leaf =>
                leaf instanceof SVGGeometryElement && isFilled(leaf)));
        }
        this.filled = new Set(this.fills.flat());
        this.grid = new Grid(objects, i => this.fills[i].length > 0);
        /** @type {{child: Element, paint: string, color: string}[]} */
        this.turned = [];
        /** @type {Set<string>} */
        this.named = new Set();
    }

    /** @param {number} i */
    look(i) {
        const lost = leavesOf(this.objects.elements[i]).flatMap(child => this.lostOf(i, child));
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
     * @param {SVGGraphicsElement} child
     */
    lostOf(i, child) {
        // The line around a fill stays with it. A text that is out is looked at when it comes.
        if (this.filled.has(child) || child.matches('.many text:not(.shown)'))
            return [];
        const least = isText(child) ? leastOfTexts : leastOfLines;
        // The fill of a shape stays, also one that things below shine through.
        const paints = isText(child) || this.objects.kind(i) === 'edge' ? ['fill', 'stroke'] : ['stroke'];
        return paints.flatMap(paint => {
            const parts = partsOf(paintOf(child, paint));
            return parts && contrastOf(parts) < least ? [{ child, paint, parts, least }] : [];
        });
    }

    /** @param {number} i */
    fillsBelow(i) {
        const box = this.objects.box(i);
        return box ? this.grid.touching(box).filter(j => j <= i).flatMap(j => this.fills[j]) : [];
    }

    /**
     * Gives a class to what turns of some objects, and each class its colour on a dark page.
     *
     * @param {Iterable<number>} list
     */
    turn(list) {
        this.turned = [];
        for (const i of list)
            this.look(i);
        // Changed only now: boxes would have to be found anew after each change.
        for (const { child, paint, color } of this.turned) {
            const name = `${paint}-${color}`;
            child.classList.add(name);
            if (!this.named.has(name))
                document.styleSheets[0].insertRule(
                    `@media screen { [data-theme="dark"] .${name} { ${paint}: #${color} } }`);
            this.named.add(name);
        }
    }
}

/**
 * What leads from the drawing to the plane of a part: rich texts have their own.
 *
 * @param {SVGGraphicsElement} leaf
 */
function planeOf(leaf) {
    const isRich = !leaf.parentElement?.hasAttribute('data-kind');
    return isRich && leaf.getCTM()?.inverse() || new DOMMatrix();
}

/**
 * @param {SVGGraphicsElement} leaf
 * @returns {Box} in the drawing
 */
function boxOf(leaf) {
    const { x, y, width, height } = leaf.getBBox();
    const plane = planeOf(leaf);
    return { x: x - plane.e, y: y - plane.f, width, height };
}

/**
 * Whether a text or line lies on the page, on a fill or on both. A text may be larger than its fill.
 *
 * @param {SVGGraphicsElement} child
 * @param {SVGGraphicsElement[]} fills
 */
function placeOf(child, fills) {
    const box = boxOf(child);
    if (isText(child)) {
        const middle = middleOf(box);
        const holdsIt = (/** @type {SVGGraphicsElement} */ fill) => fill instanceof SVGGeometryElement
            && fill.isPointInFill(middle.matrixTransform(planeOf(fill)));
        return fills.some(holdsIt) ? 'fill' : 'page';
    }
    const boxes = fills.map(boxOf);
    if (boxes.some(fill => holds(fill, box)))
        return 'fill';
    return boxes.some(fill => overlap(fill, box)) ? 'both' : 'page';
}
