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
    const notice = part(id);
    notice.hidden = sentence === '';
    // A notice that stands already is not read out again.
    if (notice.firstChild?.textContent !== sentence)
        notice.replaceChildren(...sentence === '' ? [] : [create('span', {}, sentence), ...more]);
}

let toldTimer = 0;

/**
 * Tells what came of something that the user did.
 *
 * @param {string} sentence
 * @param {boolean} [stays] until it is dismissed or something else is told
 */
export function tell(sentence, stays = true) {
    clearTimeout(toldTimer);
    show('told', sentence, createButton('Dismiss', () => tell('')));
    if (!stays)
        toldTimer = setTimeout(() => tell(''), readingTime);
}

/**
 * Offers what to do about a file that differs from what the editor began with.
 *
 * @param {string} sentence
 * @param {Record<string, () => void>} choices
 */
export function offer(sentence, choices) {
    show('conflict', sentence, ...Object.entries(choices).map(([name, action]) => createButton(name, action)));
}

/** @param {Session} session */
export function followNotices(session) {
    const retry = createButton('Try now', () => session.tryNow());
    session.follow(() => {
        show('lost', session.isLost ? 'The server has ended. The text stays here; the connection is tried'
            + ' again from time to time.' : '', retry);
        const { state } = session;
        if (!state)
            return;
        const isEmpty = !state.page && state.fault === '' && !state.busy;
        part('empty').hidden = !isEmpty;
        show('fault', state.fault, create('small', {}, state.page
            ? 'The drawing is that of the last text that could be drawn.' : ''));
        part('busy').hidden = !state.busy || session.isLost;
        part('stage').setAttribute('aria-busy', String(state.busy));
    });
}
