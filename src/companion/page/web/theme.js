/**
 * Light and dark: as the reader's system has it, until the reader says otherwise. What turns of the drawing
 * has classes, and the style sheet their colours.
 */

/** @import {State} from './state.js' */

const themes = ['auto', 'light', 'dark'];

/**
 * That of an address.
 *
 * @param {URLSearchParams} fields
 */
export function themeIn(fields) {
    return themes.find(theme => theme === fields.get('theme')) ?? 'auto';
}

/**
 * To be called before anything asks for the place of a part: what is dark at once is styled once.
 *
 * @param {HTMLElement} button switches from one theme to the next
 * @param {State} state
 */
export function followTheme(button, state) {
    const system = matchMedia('(prefers-color-scheme: dark)');
    const apply = () => {
        const { theme } = state.now;
        const isDark = theme === 'dark' || (theme === 'auto' && system.matches);
        document.documentElement.dataset.theme = isDark ? 'dark' : 'light';
        button.textContent = `Theme: ${theme}`;
    };
    button.onclick = () => state.change({ theme: themes[(themes.indexOf(state.now.theme) + 1) % themes.length] });
    system.onchange = apply;
    state.follow(['theme'], apply);
    state.change({ theme: themeIn(new URLSearchParams(location.hash.slice(1))) });
    apply();
}
