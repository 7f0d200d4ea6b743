/** What the shell has to say: above the panes what concerns the text, over the drawing what concerns it. */

import { create, createButton, part } from './../../page/web/elements.js';

/** @import {Session} from './session.js' */

const readingTime = 5000;

/**
 * @param {string} id
 * @param {string} sentence none for no notice
 * @param {...Node} more
 */
function show(id, sentence, ...more) {
    part(id).hidden = sentence === '';
    part(id).replaceChildren(create('span', {}, sentence), ...more);
}

/** @param {Record<string, () => void>} choices */
function buttons(choices) {
    return Object.entries(choices).map(([name, action]) => createButton(name, action));
}

let toldTimer = 0;

/**
 * Tells what came of something that the user did, until it is dismissed or something else is told.
 *
 * @param {string} sentence
 * @param {Record<string, () => void>} [choices]
 * @param {boolean} [goes] by itself, since it needs no answer
 */
export function tell(sentence, choices = {}, goes = false) {
    clearTimeout(toldTimer);
    if (goes)
        toldTimer = setTimeout(tell, readingTime, '');
    show('told', sentence, ...buttons({ ...choices, Dismiss: () => tell('') }));
}

/**
 * Tells that a text was replaced, and offers it again.
 *
 * @param {string} sentence
 * @param {string} text that was replaced; nothing is told of one without content
 * @param {() => void} bringBack
 */
export function tellReplaced(sentence, text, bringBack) {
    if (text.trim() === '')
        return;
    tell(sentence, { 'Bring the text back': () => {
        bringBack();
        tell('');
    } });
}

/**
 * Offers what to do about a file that differs from what the editor began with.
 *
 * @param {string} sentence
 * @param {Record<string, () => void>} choices
 */
export function offer(sentence, choices) {
    show('conflict', sentence, ...buttons(choices));
}

/** @param {Session} session */
export function followNotices(session) {
    const retry = createButton('Try now', () => session.tryNow());
    // What stands already is not read out again.
    /** @type {Record<string, string>} */
    const shown = {};
    const showOnce = (/** @type {string} */ id, /** @type {string} */ sentence, /** @type {Node} */ more) => {
        if (shown[id] !== sentence)
            show(id, shown[id] = sentence, more);
    };
    session.follow(() => {
        showOnce('lost', session.isLost ? 'The server has ended; it is looked for again now and then.'
            + ' The text stays here.' : '', retry);
        const { state } = session;
        if (!state)
            return;
        const isDrawn = state.busy || state.page?.text === state.text.version;
        // Only a text with nothing in it is neither drawn nor at fault.
        const fault = state.fault || (isDrawn ? '' : 'There is nothing to draw. Write a graph, or begin with an example.');
        showOnce('fault', fault, create('small', {}, state.page
            ? 'This is the last text that could be drawn.' : ''));
        part('busy').hidden = !state.busy || session.isLost;
        part('stage').setAttribute('aria-busy', String(state.busy));
    });
}
