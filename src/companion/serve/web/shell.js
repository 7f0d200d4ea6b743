/** Puts the modules together when the shell opens. */

import { part } from './../../page/web/elements.js';
import { Session } from './session.js';
import { Editor } from './editor.js';
import { Numbers } from './numbers.js';
import { followNotices } from './notices.js';
import { Sender } from './sender.js';
import { Findings } from './findings.js';
import { Drawing } from './drawing.js';
import { prepareSplitter } from './splitter.js';
import { followTheme } from './theme.js';
import { fillExamples, followEngine, followFormat } from './menus.js';
import { Saving } from './saving.js';

/**
 * From the text to the findings, to the drawing, to the bar, and round.
 *
 * @param {1 | -1} step
 */
function focusNextPane(step) {
    const focused = document.activeElement;
    const panes = ['textarea', '#finding-list button', 'iframe:not(.coming)', '#engine']
        .map(selector => document.querySelector(selector)).filter(one => one instanceof HTMLElement);
    const at = panes.findIndex(pane => pane === focused || pane.closest('ol')?.contains(focused));
    panes.at((at + step) % panes.length)?.focus();
}

/** @param {Editor} editor */
function followSteps(editor) {
    part('undo').addEventListener('click', () => editor.go(true));
    part('redo').addEventListener('click', () => editor.go(false));
    editor.follow(() => {
        part('undo').setAttribute('aria-disabled', String(!editor.steps.canUndo));
        part('redo').setAttribute('aria-disabled', String(!editor.steps.canRedo));
    });
}

function openShell() {
    const session = new Session();
    const editor = new Editor(/** @type {HTMLTextAreaElement} */ (part('text')));
    const sender = new Sender(editor, session);
    const saving = new Saving(session, sender, editor);
    const pressed = (/** @type {KeyboardEvent} */ event) => {
        if (event.key === 'F6')
            focusNextPane(event.shiftKey ? -1 : 1);
        else if (event.key.toLowerCase() === 's' && (event.ctrlKey || event.metaKey) && !event.altKey)
            saving.save();
        else
            return;
        event.preventDefault();
    };
    addEventListener('keydown', pressed);
    new Findings(session, editor, new Numbers(part('numbers'), editor));
    const drawing = new Drawing(part('stage'), session, pressed);
    followNotices(session);
    followSteps(editor);
    prepareSplitter(part('splitter'), part('panes'));
    followTheme(part('theme'), theme => drawing.follow(theme));
    followEngine(session, sender);
    followFormat(session, sender);
    fillExamples(session, editor, sender);
    session.run();
}

openShell();
