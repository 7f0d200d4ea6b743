/**
 * Which attribute values are links. A scheme other than http and https never is one, however it is
 * written.
 */

import { create } from './elements.js';

const linkNames = ['url', 'href'];

/**
 * The address that an attribute may lead to; empty if it may not.
 *
 * @param {string} name
 * @param {string} value
 */
export function linkOf(name, value) {
    if (!linkNames.includes(name.toLowerCase()))
        return '';
    // Readers of addresses skip control characters and blanks, so a scheme may be hidden among them.
    const bare = value.replace(/[\u0000-\u0020\u007f-\u00a0\u200b-\u200f\u2028\u2029\ufeff]/g, '');
    const scheme = /^([^/?#]*?):/.exec(bare);
    if (bare === '' || bare.includes('\\') || (scheme && !/^https?$/i.test(scheme[1])))
        return '';
    try {
        const { protocol } = new URL(bare, 'https://x.invalid/base/');
        if (protocol !== 'http:' && protocol !== 'https:')
            return '';
    } catch {
        return '';
    }
    return bare.startsWith('//') ? `https:${bare}` : bare;
}

/**
 * A value as a link if it may be one, as a text otherwise.
 *
 * @param {string} name
 * @param {string} value
 * @returns {Node}
 */
export function valueNode(name, value) {
    const link = linkOf(name, value);
    return link === '' ? document.createTextNode(value)
        : create('a', { href: link, rel: 'noopener noreferrer', target: '_blank' }, value);
}
