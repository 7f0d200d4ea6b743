/**
 * What a reader of the page has done so far, in one object that all modules read. Who changes it says
 * so by `change`, and those who follow a name are told once it is there.
 */

/**
 * @typedef {object} Place what the stage shows
 * @property {number} x the point of the drawing in the middle of the stage
 * @property {number} y
 * @property {number} scale pixels for a unit of the drawing
 */

/**
 * @typedef {object} Values
 * @property {Place} view
 * @property {boolean} fitted whether the whole drawing stays in view when the window changes
 * @property {number} chosen the object that the panel holds, -1 for none
 * @property {number} pointed the object under the pointer or with the focus, -1 for none
 * @property {boolean} focused whether the object that is pointed at has the focus
 * @property {{x: number, y: number} | null} spot the point of the drawing under the pointer
 * @property {number} group the group that was zoomed into, -1 for the whole drawing
 * @property {string} query
 * @property {string} color fill of the objects that a legend lights, empty for none
 * @property {boolean} table whether the table stands in the place of the drawing
 * @property {string} theme auto, light or dark
 * @property {string} keys off if those of one character do nothing, else empty
 * @property {number[]} revealed objects some texts of which have just come, of a drawing with many
 */

/** @type {Values} */
const initialValues = {
    view: { x: 0, y: 0, scale: 1 },
    fitted: true,
    chosen: -1,
    pointed: -1,
    focused: false,
    spot: null,
    group: -1,
    query: '',
    color: '',
    table: false,
    theme: 'auto',
    keys: '',
    revealed: [],
};

export class State {
    constructor() {
        /** @type {Readonly<Values>} */
        this.now = initialValues;
        /** @type {{names: (keyof Values)[], told: () => void}[]} */
        this.followers = [];
    }

    /**
     * Takes new values and tells who follows one that differs.
     *
     * @param {Partial<Values>} values
     */
    change(values) {
        const before = this.now;
        this.now = { ...before, ...values };
        const now = this.now;
        for (const { names, told } of this.followers) {
            if (names.some(name => before[name] !== now[name]))
                told();
        }
    }

    /**
     * @param {(keyof Values)[]} names
     * @param {() => void} told
     */
    follow(names, told) {
        this.followers.push({ names, told });
    }
}
