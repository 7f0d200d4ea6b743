/**
 * What part of the drawing is to be seen. The drawing is moved as a whole by one transformation, which
 * the browser does without painting anything anew: nothing here looks at the objects.
 */

import { afterPause, oncePerFrame } from './elements.js';
import { middleOf } from './grid.js';

/** @import {State, Place} from './state.js' */
/** @import {Box} from './objects.js' */

const border = 12;
const smallestScale = 1 / 64;
const largestScale = 64;
const flightTime = 220;
// How long nothing moves until the drawing is painted at its new scale.
const sharpTime = 120;

export class View {
    /**
     * @param {HTMLElement} stage shows a part
     * @param {HTMLElement} paper holds the drawing
     * @param {State} state
     * @param {[number, number]} size of the drawing
     */
    constructor(stage, paper, state, size) {
        this.stage = stage;
        this.state = state;
        this.size = size;
        this.bounds = stage.getBoundingClientRect();
        this.flight = 0;
        /** Over the stage. @type {PointerEvent | null} */
        this.pointer = null;
        // The scale that shows all of the drawing is no larger: pages open in their own size.
        this.largestFit = 1;
        const place = () => {
            const { scale } = state.now.view;
            paper.style.transform = `translate3d(${this.left}px, ${this.top}px, 0) scale(${scale})`;
        };
        const sharpen = afterPause(() => {
            paper.style.willChange = '';
        }, sharpTime);
        state.follow(['view'], oncePerFrame(() => {
            // While it moves its picture is stretched, which takes as long for any number of objects.
            paper.style.willChange = 'transform';
            place();
            sharpen();
        }));
        new ResizeObserver(() => this.resized()).observe(stage);
        addEventListener('scroll', () => this.resized(), { passive: true });
        state.change({ view: this.whole() });
        place();
    }

    /** Where the left side of the drawing lies on the stage, in pixels. */
    get left() {
        const { x, scale } = this.state.now.view;
        return this.bounds.width / 2 - x * scale;
    }

    get top() {
        const { y, scale } = this.state.now.view;
        return this.bounds.height / 2 - y * scale;
    }

    /** What of the drawing's plane is to be seen. */
    get area() {
        const { scale } = this.state.now.view;
        const { width, height } = this.bounds;
        return { x: -this.left / scale, y: -this.top / scale, width: width / scale, height: height / scale };
    }

    resized() {
        this.bounds = this.stage.getBoundingClientRect();
        const { fitted, view } = this.state.now;
        this.state.change({ view: fitted ? this.whole() : { ...view } });
    }

    /**
     * The point of the drawing that is seen at a point of the window.
     *
     * @param {number} clientX
     * @param {number} clientY
     */
    pointAt(clientX, clientY) {
        const { scale } = this.state.now.view;
        return {
            x: (clientX - this.bounds.left - this.left) / scale,
            y: (clientY - this.bounds.top - this.top) / scale,
        };
    }

    /**
     * The place that shows all of a box, and the scale no larger than given.
     *
     * @param {Box} box
     * @param {number} most
     * @returns {Place}
     */
    placeOf(box, most) {
        const across = (this.bounds.width - 2 * border) / Math.max(box.width, 1);
        const down = (this.bounds.height - 2 * border) / Math.max(box.height, 1);
        const scale = this.allowed(Math.min(across, down, most));
        const { x, y } = middleOf(box);
        return { x, y, scale };
    }

    /** @param {number} scale */
    allowed(scale) {
        return Math.min(Math.max(scale, smallestScale / 16), largestScale);
    }

    /** The place of the whole drawing, a small one in its own size until the reader wants it larger. */
    whole() {
        const [width, height] = this.size;
        return this.placeOf({ x: 0, y: 0, width, height }, this.largestFit);
    }

    /** Shows all of the drawing as large as the window has room for. */
    fit() {
        this.largestFit = largestScale;
        this.flyTo(this.whole(), true);
    }

    /** Shows the drawing in its own size, around the same middle. */
    showActualSize() {
        this.flyTo({ ...this.state.now.view, scale: 1 });
    }

    /**
     * Zooms to a box.
     *
     * @param {Box} box
     */
    show(box) {
        this.flyTo(this.placeOf(box, 8));
    }

    /**
     * Brings a box into view: nothing moves if it is to be seen, and a tiny one is made larger.
     *
     * @param {Box} box
     */
    reveal(box) {
        const { scale } = this.state.now.view;
        const readable = Math.max(box.width, box.height) * scale >= 12;
        const [x, y] = [box.x * scale + this.left, box.y * scale + this.top];
        const { width, height } = this.bounds;
        if (readable && isWithin(x, box.width * scale, width) && isWithin(y, box.height * scale, height))
            return;
        const wanted = readable ? scale : 24 / Math.max(box.width, box.height, 1);
        const centre = middleOf(box);
        this.flyTo({ x: centre.x, y: centre.y, scale: this.allowed(wanted) });
    }

    /**
     * Moves by pixels.
     *
     * @param {number} dx
     * @param {number} dy
     */
    panBy(dx, dy) {
        const { x, y, scale } = this.state.now.view;
        this.moveTo({ x: x - dx / scale, y: y - dy / scale, scale });
    }

    /**
     * Zooms so that what lies under a point of the window stays there.
     *
     * @param {number} factor
     * @param {number} clientX
     * @param {number} clientY
     */
    zoomAt(factor, clientX, clientY) {
        const still = this.pointAt(clientX, clientY);
        const { x, y, scale } = this.state.now.view;
        const changed = this.allowed(scale * factor);
        const kept = scale / changed;
        this.moveTo({ x: still.x + (x - still.x) * kept, y: still.y + (y - still.y) * kept, scale: changed });
    }

    /**
     * Zooms around the pointer, or the middle of the stage where none is over it.
     *
     * @param {number} factor
     */
    zoom(factor) {
        const { left, top, width, height } = this.bounds;
        const { clientX, clientY } = this.pointer ?? { clientX: left + width / 2, clientY: top + height / 2 };
        this.zoomAt(factor, clientX, clientY);
    }

    /** @param {Place} place */
    moveTo(place) {
        cancelAnimationFrame(this.flight);
        this.state.change({ view: this.kept(place), fitted: false });
    }

    /**
     * The place with its middle on the drawing, so that nobody loses it.
     *
     * @param {Place} place
     * @returns {Place}
     */
    kept({ x, y, scale }) {
        const [width, height] = this.size;
        return { x: Math.min(Math.max(x, 0), width), y: Math.min(Math.max(y, 0), height), scale };
    }

    /**
     * Goes to a place in some frames, or at once where motion is not wanted.
     *
     * @param {Place} place
     * @param {boolean} [fitted]
     */
    flyTo(place, fitted = false) {
        cancelAnimationFrame(this.flight);
        const start = this.state.now.view;
        const began = performance.now();
        const still = matchMedia('(prefers-reduced-motion: reduce)').matches;
        const step = (/** @type {number} */ now) => {
            const share = still ? 1 : Math.min((now - began) / flightTime, 1);
            const view = share < 1 ? between(start, place, Math.max(share, 0)) : place;
            this.state.change({ view, fitted });
            if (share < 1)
                this.flight = requestAnimationFrame(step);
        };
        step(began);
    }
}

/**
 * Whether a length lies in a room, or fills it.
 *
 * @param {number} start
 * @param {number} length
 * @param {number} room
 */
function isWithin(start, length, room) {
    return start >= 0 && start + Math.min(length, room) <= room;
}

/**
 * A place on the way from one to another, evenly in the logarithm of the scale.
 *
 * @param {Place} from
 * @param {Place} to
 * @param {number} share
 * @returns {Place}
 */
function between(from, to, share) {
    const eased = share * (2 - share);
    const scale = from.scale * (to.scale / from.scale) ** eased;
    // The middle moves with the size on the screen, so that the way looks straight.
    const moved = from.scale === to.scale ? eased
        : (1 / from.scale - 1 / scale) / (1 / from.scale - 1 / to.scale);
    return { x: from.x + (to.x - from.x) * moved, y: from.y + (to.y - from.y) * moved, scale };
}
