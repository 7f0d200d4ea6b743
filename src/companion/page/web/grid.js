/**
 * Finds objects by their place: a grid over the drawing, each of whose cells knows the boxes that reach
 * into it. It is built once, when it is first asked.
 */

/** @import {Objects, Box} from './objects.js' */

const cellsAcross = 64;
// A box over more cells than this is looked at every time, so that large groups don't fill all cells.
const mostCells = 64;

export class Grid {
    /**
     * @param {Objects} objects
     * @param {(i: number) => boolean} wanted which objects stand in the grid
     */
    constructor(objects, wanted) {
        const [width, height] = objects.data.size;
        this.objects = objects;
        this.cellWidth = Math.max(width / cellsAcross, 1);
        this.cellHeight = Math.max(height / cellsAcross, 1);
        /** @type {Map<number, number[]>} */
        this.cells = new Map();
        /** @type {number[]} */
        this.large = [];
        for (let i = 0; i < objects.count; ++i) {
            const box = wanted(i) ? objects.box(i) : null;
            if (box)
                this.add(i, this.cellsOf(box));
        }
    }

    /**
     * @param {number} i
     * @param {number[]} cells
     */
    add(i, cells) {
        if (cells.length > mostCells) {
            this.large.push(i);
            return;
        }
        for (const cell of cells) {
            const list = this.cells.get(cell);
            if (list)
                list.push(i);
            else
                this.cells.set(cell, [i]);
        }
    }

    /** @param {Box} box */
    cellsOf(box) {
        const within = (/** @type {number} */ cell) =>
            Math.min(Math.max(Math.floor(cell), 0), cellsAcross - 1);
        const [left, right] = [box.x, box.x + box.width].map(x => within(x / this.cellWidth));
        const [top, bottom] = [box.y, box.y + box.height].map(y => within(y / this.cellHeight));
        const cells = [];
        for (let row = top; row <= bottom; ++row) {
            for (let column = left; column <= right; ++column)
                cells.push(row * cellsAcross + column);
        }
        return cells;
    }

    /**
     * The objects whose boxes touch this one, in the order of the drawing.
     *
     * @param {Box} area
     */
    touching(area) {
        const found = new Set(this.large);
        for (const cell of this.cellsOf(area)) {
            for (const i of this.cells.get(cell) ?? [])
                found.add(i);
        }
        return [...found].filter(i => overlap(this.objects.box(i), area)).sort((a, b) => a - b);
    }
}

/** @param {Box} box */
export function middleOf({ x, y, width, height }) {
    return new DOMPoint(x + width / 2, y + height / 2);
}

/**
 * @param {Box | null} a
 * @param {Box} b
 */
export function overlap(a, b) {
    return a !== null && a.x <= b.x + b.width && b.x <= a.x + a.width && a.y <= b.y + b.height
        && b.y <= a.y + a.height;
}
