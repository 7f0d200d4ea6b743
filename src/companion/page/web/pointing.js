/** Which object is meant by the pointer, and what a click and a double click do with it. */

import { oncePerFrame } from './elements.js';
import { Grid } from './grid.js';

/** @import {State} from './state.js' */
/** @import {Objects} from './objects.js' */
/** @import {View} from './view.js' */

// Lines are thin: one that is not further away, in pixels, is meant as well.
const reach = 6;
const directions = 8;
const mostLines = 50;

export class Pointing {
    /**
     * @param {HTMLElement} stage
     * @param {Objects} objects
     * @param {View} view
     * @param {State} state
     */
    constructor(stage, objects, view, state) {
        this.objects = objects;
        this.view = view;
        /** @type {Grid | null} */
        this.lines = null;
        const look = oncePerFrame(() => {
            const last = view.pointer;
            const spot = last && view.pointAt(last.clientX, last.clientY);
            state.change({ pointed: last ? this.objectOf(last) : -1, focused: false, spot });
        });
        stage.addEventListener('pointermove', event => {
            if (event.pointerType === 'touch' || event.buttons !== 0)
                return;
            view.pointer = event;
            look();
        });
        stage.addEventListener('pointerleave', () => {
            view.pointer = null;
            look();
        });
    }

    /**
     * The object at the point of an event, or else the line nearby; -1 for none.
     *
     * @param {MouseEvent} event
     */
    objectOf(event) {
        const found = this.objects.at(event.target);
        if (found >= 0 && this.objects.kind(found) !== 'cluster')
            return found;
        const line = this.lineNear(this.view.pointAt(event.clientX, event.clientY));
        return line >= 0 ? line : found;
    }

    /** @param {{x: number, y: number}} point */
    lineNear(point) {
        this.lines ??= new Grid(this.objects, i => this.objects.kind(i) === 'edge');
        const around = reach / this.view.state.now.view.scale;
        const area = { x: point.x - around, y: point.y - around, width: 2 * around, height: 2 * around };
        const lines = this.lines.touching(area).slice(0, mostLines);
        for (const distance of [around / 3, around * 2 / 3, around]) {
            const line = lines.find(i => isNear(this.objects.elements[i], point, distance));
            if (line !== undefined)
                return this.objects.whole(line);
        }
        return -1;
    }
}

/**
 * Whether a line of an element runs through a circle around a point.
 *
 * @param {Element} element
 * @param {{x: number, y: number}} centre
 * @param {number} radius
 */
function isNear(element, centre, radius) {
    const shapes = [...element.children].filter(child => child instanceof SVGGeometryElement);
    for (let k = 0; k < directions; ++k) {
        const angle = k * 2 * Math.PI / directions;
        const point = new DOMPoint(centre.x + radius * Math.cos(angle), centre.y + radius * Math.sin(angle));
        if (shapes.some(shape => shape.isPointInStroke(point)))
            return true;
    }
    return false;
}
