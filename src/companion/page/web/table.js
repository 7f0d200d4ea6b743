/**
 * All objects as a table, for people who do not see the drawing or want to sort it. It shows what the
 * search finds, or everything, and has pages, so that it stays quick however many objects there are.
 */

import { create, createButton, figure } from './elements.js';
import { columnsOf } from './columns.js';
import { valueNode } from './links.js';

/** @import {State} from './state.js' */
/** @import {Objects} from './objects.js' */
/** @import {Matches} from './matches.js' */
/** @import {Column} from './columns.js' */

const rowsOfPage = 200;

export class Table {
    /**
     * @param {HTMLElement} section
     * @param {Objects} objects
     * @param {State} state
     * @param {Matches} matches
     * @param {(i: number) => void} choose
     */
    constructor(section, objects, state, matches, choose) {
        this.section = section;
        this.objects = objects;
        this.state = state;
        this.matches = matches;
        this.choose = choose;
        /** @type {Column[]} */
        this.columns = [];
        this.sorted = -1;
        this.descending = false;
        this.page = 0;
        /** @type {number[]} */
        this.rows = [];
        state.follow(['table', 'query'], () => this.update());
        state.follow(['chosen'], () => this.markChosen());
    }

    update() {
        this.section.hidden = !this.state.now.table;
        if (this.section.hidden) {
            this.section.replaceChildren();
            return;
        }
        if (this.columns.length === 0)
            this.columns = columnsOf(this.objects);
        this.page = 0;
        this.rows = this.listed();
        this.sort();
        this.show();
    }

    /** What the query finds, or all objects where there is no query. */
    listed() {
        if (this.state.now.query.trim() !== '')
            return [...this.matches.found];
        return Array.from({ length: this.objects.all }, (_, i) => i).filter(i => !this.objects.isPiece(i));
    }

    sort() {
        const column = this.columns[this.sorted];
        if (!column)
            return;
        const { compare } = new Intl.Collator('en', { numeric: true });
        const keyed = this.rows.map(i => ({ i, key: column.key(i) }));
        const sign = this.descending ? -1 : 1;
        keyed.sort((a, b) => sign * (column.isNumber ? ordered(Number(a.key), Number(b.key))
            : compare(String(a.key), String(b.key))) || a.i - b.i);
        this.rows = keyed.map(({ i }) => i);
    }

    /** @param {number} column */
    sortBy(column) {
        this.descending = this.sorted === column && !this.descending;
        this.sorted = column;
        this.page = 0;
        this.sort();
        this.show();
        this.section.querySelectorAll('thead button')[column]?.dispatchEvent(new Event('refocus'));
    }

    show() {
        const first = this.page * rowsOfPage;
        const rows = this.rows.slice(first, first + rowsOfPage);
        const last = first + rows.length;
        const told = this.rows.length === 0 ? 'No objects'
            : `Objects ${figure(first + 1)} to ${figure(last)}`
                + ` of ${figure(this.rows.length)}`;
        this.section.replaceChildren(
            this.turner(told),
            create('table', {}, create('caption', { class: 'unseen' }, 'Objects of the drawing'), this.head(),
                   create('tbody', {}, ...rows.map(i => this.row(i)))));
        this.section.scrollTop = 0;
        this.markChosen();
    }

    /**
     * The line that tells what is shown and turns the pages.
     *
     * @param {string} told
     */
    turner(told) {
        const pages = Math.ceil(this.rows.length / rowsOfPage);
        const turn = (/** @type {string} */ name, /** @type {number} */ page) =>
            createButton(name, () => this.turnTo(page, name),
                         { 'aria-disabled': page < 0 || page >= pages ? 'true' : undefined });
        return create('p', { class: 'turner' }, create('span', { role: 'status' }, told),
                      turn('First page', this.page === 0 ? -1 : 0), turn('Previous page', this.page - 1),
                      turn('Next page', this.page + 1),
                      turn('Last page', this.page === pages - 1 ? -1 : pages - 1));
    }

    /**
     * @param {number} page
     * @param {string} name of the button, which keeps the focus
     */
    turnTo(page, name) {
        if (page < 0 || page * rowsOfPage >= this.rows.length)
            return;
        this.page = page;
        this.show();
        [...this.section.querySelectorAll('button')].find(button => button.textContent === name)?.focus();
    }

    head() {
        const cells = this.columns.map((column, k) => {
            const order = this.sorted !== k ? 'none' : this.descending ? 'descending' : 'ascending';
            const button = createButton(column.name, () => this.sortBy(k));
            button.addEventListener('refocus', () => button.focus());
            return create('th', { scope: 'col', 'aria-sort': order }, button);
        });
        return create('thead', {}, create('tr', {}, ...cells));
    }

    /** @param {number} i */
    row(i) {
        const [name, ...others] = this.columns;
        const button = createButton(name.text(i), () => this.choose(i), { class: 'object' });
        const cells = others.map(({ name: attribute, text, isNumber }) =>
            create('td', { class: isNumber ? 'number' : undefined }, valueNode(attribute, text(i))));
        return create('tr', { 'data-row': i }, create('th', { scope: 'row' }, button), ...cells);
    }

    markChosen() {
        for (const row of this.section.querySelectorAll('tr[data-row]')) {
            const isChosen = row.getAttribute('data-row') === String(this.state.now.chosen);
            row.classList.toggle('current', isChosen);
            row.querySelector('button')?.setAttribute('aria-pressed', String(isChosen));
        }
    }
}

/**
 * @param {number} a
 * @param {number} b
 */
function ordered(a, b) {
    return a < b ? -1 : a > b ? 1 : 0;
}
