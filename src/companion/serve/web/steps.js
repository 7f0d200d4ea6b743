/**
 * The steps that undo leads back over, and redo forth again: what was typed without a pause, and each text
 * that came from outside. The browser's own undo knows nothing of the latter.
 */

const pause = 1000;
// Characters of all steps; the oldest ones go.
const mostKept = 32 * 1024 * 1024;

/**
 * @typedef {object} Step
 * @property {number} start of what changed
 * @property {string} removed
 * @property {string} added
 * @property {[string, string]} [lineEnds] before and after, where they came with the text
 * @property {[string, string]} [engines] likewise
 */

export class Steps {
    /** @param {HTMLTextAreaElement} area */
    constructor(area) {
        this.area = area;
        /** As it was after the last step. */
        this.text = area.value;
        /** @type {Step[]} */
        this.past = [];
        /** @type {Step[]} */
        this.future = [];
        this.kept = 0;
        this.isOpen = false;
        let last = 0;
        area.addEventListener('beforeinput', ({ timeStamp }) => {
            if (timeStamp - last > pause)
                this.close();
            last = timeStamp;
        });
        area.addEventListener('input', () => this.isOpen = true);
    }

    /** The text that is there now is the first one: nothing leads back from it. */
    begin() {
        this.text = this.area.value;
    }

    /**
     * Makes a step of all that changed since the last one.
     *
     * @param {Partial<Step>} [more] of it
     */
    close(more) {
        this.isOpen = false;
        const { start, end, text } = difference(this.text, this.area.value);
        if (start === end && text === '' && !more?.engines)
            return;
        // A part of a text would keep the whole one in memory.
        const [removed, added] = structuredClone([this.text.slice(start, end), text]);
        this.past.push({ start, removed, added, ...more });
        this.future = [];
        this.text = this.area.value;
        this.kept = this.past.reduce((sum, step) => sum + step.removed.length + step.added.length, 0);
        while (this.kept > mostKept)
            this.kept -= this.past[0].removed.length + (this.past.shift()?.added.length ?? 0);
    }

    get canUndo() {
        return this.isOpen || this.past.length > 0;
    }

    get canRedo() {
        return !this.isOpen && this.future.length > 0;
    }

    /**
     * Takes the last step back, or does the one again that was taken back last.
     *
     * @param {boolean} isBack
     * @returns {Step | undefined} the step, if there is one
     */
    go(isBack) {
        this.close();
        const [from, to] = isBack ? [this.past, this.future] : [this.future, this.past];
        const step = from.pop();
        if (!step)
            return undefined;
        to.push(step);
        const [old, text] = isBack ? [step.added, step.removed] : [step.removed, step.added];
        this.area.setRangeText(text, step.start, step.start + old.length, 'end');
        this.text = this.area.value;
        return step;
    }
}

/**
 * @typedef {object} Change
 * @property {number} start of what goes
 * @property {number} end of what goes
 * @property {string} text that comes
 */

/**
 * What has to change in a text to make it the other one.
 *
 * @param {string} before
 * @param {string} after
 * @returns {Change}
 */
export function difference(before, after) {
    const shorter = Math.min(before.length, after.length);
    let start = 0;
    while (start < shorter && before[start] === after[start])
        ++start;
    let kept = 0;
    while (kept < shorter - start && before.at(-1 - kept) === after.at(-1 - kept))
        ++kept;
    // No character outside the first plane is cut in two.
    if (start > 0 && isHalf(before.charCodeAt(start - 1), 0xd800))
        --start;
    if (kept > 0 && isHalf(before.charCodeAt(before.length - kept), 0xdc00))
        --kept;
    return { start, end: before.length - kept, text: after.slice(start, after.length - kept) };
}

/**
 * @param {number} code
 * @param {number} first of the halves of that side
 */
function isHalf(code, first) {
    return code >= first && code < first + 0x400;
}
