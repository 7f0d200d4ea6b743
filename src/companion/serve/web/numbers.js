/** The numbers of the lines beside the text, only as many as are in view. */

import { create, oncePerFrame } from './../../page/web/elements.js';

/** @import {Editor} from './editor.js' */

export class Numbers {
    /**
     * @param {HTMLElement} gutter
     * @param {Editor} editor
     */
    constructor(gutter, editor) {
        this.editor = editor;
        this.column = create('div');
        gutter.append(this.column);
        this.lines = 1;
        /** @type {Map<number, string>} severities of lines */
        this.marks = new Map();
        this.update = oncePerFrame(() => this.show());
        editor.follow(() => this.count());
        editor.area.addEventListener('scroll', this.update);
        new ResizeObserver(this.update).observe(editor.area);
    }

    count() {
        const { value } = this.editor.area;
        this.lines = 1;
        for (let end = value.indexOf('\n'); end >= 0; end = value.indexOf('\n', end + 1))
            ++this.lines;
        this.update();
    }

    /** @param {Map<number, string>} marks severities of lines */
    mark(marks) {
        this.marks = marks;
        this.update();
    }

    show() {
        const { scrollTop, clientHeight } = this.editor.area;
        const { lineHeight } = this.editor;
        const first = Math.floor(scrollTop / lineHeight);
        const last = Math.min(this.lines, first + Math.ceil(clientHeight / lineHeight) + 1);
        const rows = [];
        for (let line = first + 1; line <= last; ++line)
            rows.push(create('div', { class: this.marks.get(line) }, String(line)));
        this.column.replaceChildren(...rows);
        this.column.style.minWidth = `${String(this.lines).length}ch`;
        this.column.style.transform = `translateY(${first * lineHeight - scrollTop}px)`;
    }
}
