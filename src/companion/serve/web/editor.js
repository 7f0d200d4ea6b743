/** The text area in which the graph is written. Undo leads back over what comes from outside as well. */

import { Steps, difference } from './steps.js';

/** @import {Change} from './steps.js' */

export class Editor {
    /** @param {HTMLTextAreaElement} area */
    constructor(area) {
        this.area = area;
        this.steps = new Steps(area);
        /** Is told of the engine that goes with a text. @type {(engine: string) => void} */
        this.engineComes = () => {};
        // A text area has line feeds only; the file keeps what it had.
        this.lineEnd = '\n';
        this.isTyping = true;
        /** @type {((isTyped: boolean) => void)[]} */
        this.followers = [];
        area.addEventListener('input', () => this.tell());
        area.addEventListener('keydown', event => this.keyPressed(event));
        area.addEventListener('beforeinput', event => {
            if (/^history/.test(event.inputType)) {
                event.preventDefault();
                this.go(event.inputType === 'historyUndo');
            }
        });
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
     * @param {[string, string]} [engines] that of the text before, and that of this one
     */
    startFrom(text, engines) {
        this.replace(text, engines);
        this.area.setSelectionRange(0, 0);
        this.area.scrollTo(0, 0);
    }

    /**
     * @param {string} text
     * @param {[string, string]} [engines]
     */
    replace(text, engines) {
        const { lineEnd } = this;
        this.steps.close();
        this.lineEnd = text.includes('\r\n') ? '\r\n' : '\n';
        const change = difference(this.area.value, text.replace(/\r\n?/g, '\n'));
        if (change.start === change.end && change.text === '' && !engines)
            return change;
        const isFirst = this.area.value === '' && !this.steps.canUndo;
        this.area.setRangeText(change.text, change.start, change.end);
        if (isFirst)
            this.steps.begin();
        else
            this.steps.close({ lineEnds: [lineEnd, this.lineEnd], engines });
        this.tell();
        return change;
    }

    /** @param {KeyboardEvent} event */
    keyPressed(event) {
        const key = event.key.toLowerCase();
        if ((event.ctrlKey || event.metaKey) && !event.altKey && (key === 'z' || key === 'y')) {
            event.preventDefault();
            this.go(key === 'z' && !event.shiftKey);
        }
    }

    /**
     * Takes the last step back, or does it again.
     *
     * @param {boolean} isBack
     */
    go(isBack) {
        const step = this.area.readOnly ? undefined : this.steps.go(isBack);
        if (!step)
            return;
        const side = isBack ? 0 : 1;
        this.lineEnd = step.lineEnds?.[side] ?? this.lineEnd;
        if (step.engines)
            this.engineComes(step.engines[side]);
        this.tell();
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
 * @param {number} place
 * @param {Change} change
 */
function moved(place, { start, end, text }) {
    if (place <= start)
        return place;
    return place < end ? start : place + text.length - (end - start);
}
