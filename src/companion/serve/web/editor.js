/**
 * The text area in which the graph is written. What comes from outside goes in as typing does where
 * the browser allows it, so that undo leads back over it.
 */

// An undoable insertion takes Chromium a second for 430 lines, and five for 1,100.
const mostLines = 50;
const mostInserted = 20_000;

export class Editor {
    /** @param {HTMLTextAreaElement} area */
    constructor(area) {
        this.area = area;
        // A text area has line feeds only; the file keeps what it had.
        this.lineEnd = '\n';
        this.isTyping = true;
        this.isFilled = false;
        /** @type {((isTyped: boolean) => void)[]} */
        this.followers = [];
        area.addEventListener('input', () => this.tell());
    }

    /**
     * @param {(isTyped: boolean) => void} told of each change: whether it was the user's
     */
    follow(told) {
        this.followers.push(told);
    }

    tell() {
        for (const told of this.followers)
            told(this.isTyping);
    }

    /** The text as it goes to the file. */
    get text() {
        const { value } = this.area;
        return this.lineEnd === '\n' ? value : value.replaceAll('\n', this.lineEnd);
    }

    /**
     * Shows the text of the server, with the caret and the view where they are.
     *
     * @param {string} text
     */
    take(text) {
        const { selectionStart, selectionEnd, scrollTop, scrollLeft } = this.area;
        this.isTyping = false;
        const change = this.replace(text);
        this.isTyping = true;
        this.area.setSelectionRange(moved(selectionStart, change), moved(selectionEnd, change));
        this.area.scrollTo(scrollLeft, scrollTop);
    }

    /**
     * Puts another text in the place of this one, as an edit of the user.
     *
     * @param {string} text
     */
    startFrom(text) {
        this.replace(text);
        this.area.setSelectionRange(0, 0);
        this.area.scrollTo(0, 0);
    }

    /** @param {string} text */
    replace(text) {
        this.lineEnd = text.includes('\r\n') ? '\r\n' : '\n';
        const change = difference(this.area.value, text.replace(/\r\n?/g, '\n'));
        if (change.start === change.end && change.text === '')
            return change;
        // Before the first text there is nothing to go back to.
        if (!this.isFilled || !insertUndoably(this.area, change)) {
            this.area.setRangeText(change.text, change.start, change.end);
            this.tell();
        }
        this.isFilled = true;
        return change;
    }

    /**
     * Selects a line and brings it to the middle.
     *
     * @param {number} line from 1
     * @param {number} column from 1, which is brought into view as well
     */
    selectLine(line, column) {
        const { value } = this.area;
        let start = 0;
        for (let i = 1; i < line && value.includes('\n', start); ++i)
            start = value.indexOf('\n', start) + 1;
        const end = value.indexOf('\n', start);
        this.area.focus({ preventScroll: true });
        this.area.setSelectionRange(start, end < 0 ? value.length : end);
        const { fontSize } = getComputedStyle(this.area);
        const across = column * parseFloat(fontSize) * 0.6 - this.area.clientWidth / 2;
        const down = (line - 0.5) * this.lineHeight - this.area.clientHeight / 2;
        this.area.scrollTo(across < this.area.clientWidth / 4 ? 0 : across, down);
    }

    /** In pixels. */
    get lineHeight() {
        return parseFloat(getComputedStyle(this.area).lineHeight);
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
function difference(before, after) {
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

/**
 * @param {number} place
 * @param {Change} change
 */
function moved(place, { start, end, text }) {
    if (place <= start)
        return place;
    return place < end ? start : place + text.length - (end - start);
}

/**
 * The command is old, but it is the only one that undo knows of. It works on what has the focus.
 *
 * @param {HTMLTextAreaElement} area
 * @param {Change} change
 */
function insertUndoably(area, { start, end, text }) {
    if (area.readOnly || text.length > mostInserted || text.split('\n').length > mostLines)
        return false;
    const focused = document.activeElement;
    area.focus({ preventScroll: true });
    area.setSelectionRange(start, end);
    const isDone = text === '' ? document.execCommand('delete')
        : document.execCommand('insertText', false, text);
    if (focused !== area)
        area.blur();
    if (focused instanceof HTMLElement)
        focused.focus({ preventScroll: true });
    return isDone;
}
