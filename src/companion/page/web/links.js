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
    const address = value.trim().replaceAll(' ', '%20');
    if (/[\u0000-\u001f\u007f-\u009f]/.test(address))
        return '';
    // A reader may pass over blanks and what is not seen, so that no scheme is to be hidden among them.
    const bare = value.replace(/[\u0000-\u0020\u007f-\u00a0\u200b-\u200f\u2028\u2029\ufeff]/g, '');
    const scheme = /^([^/?#]*?):/.exec(bare);
    if (bare === '' || bare.includes('\\') || (scheme && !/^https?$/i.test(scheme[1])))
        return '';
    try {
        const { protocol } = new URL(address, 'https://x.invalid/base/');
        if (protocol !== 'http:' && protocol !== 'https:')
            return '';
    } catch {
        return '';
    }
    return address.startsWith('//') ? `https:${address}` : address;
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
