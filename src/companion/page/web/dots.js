/**
 * Dots of one size at points of the drawing, however many. While the view moves, the picture of them moves
 * along as it is; it is painted anew when the view rests.
 */

import { afterPause, oncePerFrame } from './elements.js';

/** @import {State} from './state.js' */
/** @import {View} from './view.js' */

const radius = 4;
const haloRadius = 5.5;
// Of dots that lie as close as this one is enough.
const leastDistance = 6;
const largeEnough = 24;
export const restTime = 100;

/**
 * @typedef {object} Dot
 * @property {number} x
 * @property {number} y
 * @property {number} size of what it stands for; where that is large on the stage no dot is needed
 */

export class Dots {
    /**
     * @param {HTMLCanvasElement} canvas as large as the stage
     * @param {View} view
     * @param {State} state
     */
    constructor(canvas, view, state) {
        this.canvas = canvas;
        this.view = view;
        /** @type {Dot[]} */
        this.points = [];
        this.drawn = { left: 0, top: 0, scale: 1 };
        const rest = afterPause(() => this.paint(), restTime);
        const move = oncePerFrame(() => this.move());
        state.follow(['view'], () => {
            if (this.points.length > 0) {
                move();
                rest();
            }
        });
        state.follow(['theme'], rest);
    }

    /** @param {Dot[]} points of the drawing */
    show(points) {
        this.points = points;
        this.paint();
    }

    /** Moves what was painted to where it belongs now. */
    move() {
        const { left, top, scale } = this.drawn;
        const factor = this.view.state.now.view.scale / scale;
        const [x, y] = [this.view.left - left * factor, this.view.top - top * factor];
        this.canvas.style.transform = `translate(${x}px, ${y}px) scale(${factor})`;
    }

    paint() {
        const { width, height } = this.view.bounds;
        const density = devicePixelRatio;
        this.canvas.width = Math.round(width * density);
        this.canvas.height = Math.round(height * density);
        this.drawn = { left: this.view.left, top: this.view.top, scale: this.view.state.now.view.scale };
        this.canvas.style.transform = '';
        const context = this.canvas.getContext('2d');
        if (!context || this.points.length === 0)
            return;
        context.scale(density, density);
        const style = getComputedStyle(this.canvas);
        const places = this.placesInView();
        for (const [size, color] of /** @type {const} */ ([[haloRadius, style.getPropertyValue('--page')],
                                                          [radius, style.color]])) {
            context.fillStyle = color;
            // One by one: a path of many circles takes far longer to fill.
            for (const { x, y } of places) {
                context.beginPath();
                context.arc(x, y, size, 0, 2 * Math.PI);
                context.fill();
            }
        }
    }

    /** Where dots are to be seen on the stage, without those that others cover. */
    placesInView() {
        const { left, top, scale } = this.drawn;
        const { width, height } = this.view.bounds;
        /** @type {Map<number, {x: number, y: number}>} */
        const places = new Map();
        for (const point of this.points) {
            const [x, y] = [point.x * scale + left, point.y * scale + top];
            if (point.size * scale > largeEnough)
                continue;
            if (x < -haloRadius || y < -haloRadius || x > width + haloRadius || y > height + haloRadius)
                continue;
            const cell = Math.floor(y / leastDistance) * 65536 + Math.floor(x / leastDistance);
            if (!places.has(cell))
                places.set(cell, { x, y });
        }
        return [...places.values()];
    }
}
