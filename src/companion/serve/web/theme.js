/** Light and dark: as the system has it, until the user says otherwise, here and in the drawing. */

import { keep, kept } from './kept.js';

const themes = ['auto', 'light', 'dark'];
const themeKey = 'theme';

/**
 * @param {HTMLElement} button switches from one theme to the next
 * @param {(theme: string) => void} told
 */
export function followTheme(button, told) {
    const system = matchMedia('(prefers-color-scheme: dark)');
    let theme = kept('localStorage', themeKey);
    if (!themes.includes(theme))
        theme = themes[0];
    const apply = () => {
        const isDark = theme === 'dark' || (theme === 'auto' && system.matches);
        document.documentElement.dataset.theme = isDark ? 'dark' : 'light';
        button.textContent = `Theme: ${theme}`;
        told(theme);
    };
    button.addEventListener('click', () => {
        theme = themes[(themes.indexOf(theme) + 1) % themes.length];
        keep('localStorage', themeKey, theme);
        apply();
    });
    system.addEventListener('change', apply);
    apply();
}
