/** What the check has found in the text; each finding leads to its line. */

import { create, createButton, part } from './../../page/web/elements.js';

/** @import {Session} from './session.js' */
/** @import {Editor} from './editor.js' */
/** @import {Numbers} from './numbers.js' */
/** @import {Finding} from './server.js' */

const mostShown = 200;
const severities = /** @type {const} */ (['error', 'warning', 'note']);

export class Findings {
    /**
     * @param {Session} session
     * @param {Editor} editor
     * @param {Numbers} numbers
     */
    constructor(session, editor, numbers) {
        this.session = session;
        this.editor = editor;
        this.numbers = numbers;
        this.list = part('finding-list');
        this.shown = '[]';
        session.follow(() => this.update());
    }

    update() {
        const { findings = [], findingsFault = '' } = this.session.state ?? {};
        const summary = findingsFault === '' ? summaryOf(findings) : `Not checked: ${findingsFault}`;
        if (part('finding-count').textContent !== summary)
            part('finding-count').textContent = summary;
        const shown = JSON.stringify(findings);
        if (shown === this.shown)
            return;
        this.shown = shown;
        this.show(findings);
    }

    /** @param {Finding[]} findings */
    show(findings) {
        const focused = this.buttons().findIndex(button => button === document.activeElement);
        const items = findings.slice(0, mostShown).map(finding => this.item(finding));
        if (findings.length > mostShown)
            items.push(create('li', {}, `and ${(findings.length - mostShown).toLocaleString('en')} more`));
        this.list.replaceChildren(...items);
        if (focused >= 0)
            (this.buttons()[focused] ?? this.editor.area).focus();
        this.numbers.mark(marksOf(findings));
    }

    buttons() {
        return [...this.list.querySelectorAll('button')];
    }

    /** @param {Finding} finding */
    item({ severity, line, column, message, suggestion }) {
        const place = line > 0 ? ` ${line}:${column} ` : ' ';
        const content = [create('b', {}, severity), create('span', { class: 'place' }, place), message];
        if (suggestion)
            content.push(create('span', { class: 'suggestion' }, suggestion));
        if (line <= 0)
            return create('li', { class: severity }, ...content);
        const button = createButton('', () => this.editor.selectLine(line, column));
        button.append(...content);
        return create('li', { class: severity }, button);
    }
}

/** @param {Finding[]} findings */
function summaryOf(findings) {
    const counts = severities.map(severity => {
        const count = findings.filter(one => one.severity === severity).length;
        return count === 0 ? '' : `${count.toLocaleString('en')} ${severity}${count === 1 ? '' : 's'}`;
    });
    return counts.filter(text => text !== '').join(', ') || 'none';
}

/**
 * The worst severity of each line that has one.
 *
 * @param {Finding[]} findings
 */
function marksOf(findings) {
    /** @type {Map<number, string>} */
    const marks = new Map();
    for (const severity of [...severities].reverse()) {
        for (const finding of findings) {
            if (finding.severity === severity)
                marks.set(finding.line, severity);
        }
    }
    return marks;
}
