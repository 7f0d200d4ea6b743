/** What the browser keeps for the next time, where its settings let it. */

/** @typedef {'localStorage' | 'sessionStorage'} Place for all times, or as long as the tab is open */

/**
 * @param {Place} place
 * @param {string} key
 * @param {string} value
 */
export function keep(place, key, value) {
    try {
        window[place].setItem(key, value);
    } catch {
        // It works without.
    }
}

/**
 * @param {Place} place
 * @param {string} key
 * @returns {string} empty if there is nothing
 */
export function kept(place, key) {
    try {
        return window[place].getItem(key) ?? '';
    } catch {
        return '';
    }
}
