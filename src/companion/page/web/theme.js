/** Light and dark: as the reader's system has it, until the reader says otherwise. */

import { Turning } from './lightness.js';

/** @import {State} from './state.js' */
/** @import {Objects} from './objects.js' */

const themes = ['auto', 'light', 'dark'];

/**
 * @param {HTMLElement} button switches from one theme to the next
 * @param {Objects} objects
 * @param {State} state
 */
export function followTheme(button, objects, state) {
    const system = matchMedia('(prefers-color-scheme: dark)');
    /** @type {Turning | null} */
    let turning = null;
    const turn = (/** @type {Iterable<number>} */ list) => {
        turning?.turn(list);
        state.change({ turned: state.now.turned + 1 });
    };
    const apply = () => {
        const { theme } = state.now;
        const isDark = theme === 'dark' || (theme === 'auto' && system.matches);
        document.documentElement.dataset.theme = isDark ? 'dark' : 'light';
        button.textContent = `Theme: ${theme}`;
        if (isDark && !turning) {
            turning = new Turning(objects);
            turn(Array(objects.count).keys());
        }
    };
    button.onclick = () => state.change({ theme: themes[(themes.indexOf(state.now.theme) + 1) % themes.length] });
    system.onchange = apply;
    state.follow(['theme'], apply);
    state.follow(['revealed'], () => {
        if (turning)
            turn(state.now.revealed);
    });
    apply();
}

/** @param {string | null} name */
export function isTheme(name) {
    return name !== null && themes.includes(name);
}
