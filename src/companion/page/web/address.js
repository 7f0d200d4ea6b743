/** The fragment of the address says what is to be seen, so that a link opens the same place. */

import { afterPause } from './elements.js';
import { isLegendColor } from './legend.js';
import { themeIn } from './theme.js';

/** @import {State, Values} from './state.js' */
/** @import {Objects} from './objects.js' */
/** @import {View} from './view.js' */

const writingPause = 250;

/**
 * @param {Objects} objects
 * @param {View} view
 * @param {State} state
 */
export function mirrorAddress(objects, view, state) {
    let written = '';
    const write = () => {
        written = fragmentOf(objects, state.now);
        try {
            history.replaceState(null, '', written === '' ? '#' : `#${written}`);
        } catch {
            // A page inside another one may have no address of its own; it works without.
        }
    };
    const read = () => {
        if (location.hash.slice(1) !== written)
            state.change(valuesOf(location.hash.slice(1), objects, view));
    };
    read();
    state.follow(['view', 'fitted', 'chosen', 'group', 'query', 'color', 'theme', 'table', 'keys'],
                 afterPause(write, writingPause));
    addEventListener('hashchange', read);
}

/**
 * @param {Objects} objects
 * @param {Readonly<Values>} now
 */
function fragmentOf(objects, now) {
    const fields = new URLSearchParams();
    const { x, y, scale } = now.view;
    // One that fills the window is larger than pages open.
    if (!now.fitted || scale > 1)
        fields.set('view', [x.toFixed(1), y.toFixed(1), scale.toPrecision(4)].join(','));
    if (now.chosen >= 0)
        fields.set('chosen', objects.key(now.chosen));
    if (now.group >= 0)
        fields.set('group', objects.key(now.group));
    for (const name of /** @type {const} */ (['query', 'color', 'keys'])) {
        if (now[name] !== '')
            fields.set(name, now[name]);
    }
    if (now.theme !== 'auto')
        fields.set('theme', now.theme);
    if (now.table)
        fields.set('table', '1');
    return fields.toString();
}

/**
 * What a fragment asks for, with what it does not name as it is at first.
 *
 * @param {string} fragment
 * @param {Objects} objects
 * @param {View} view
 * @returns {Partial<Values>}
 */
function valuesOf(fragment, objects, view) {
    const fields = new URLSearchParams(fragment);
    const object = (/** @type {string} */ name) => objects.find(fields.get(name) ?? '');
    const [x, y, scale] = (fields.get('view') ?? '').split(',').map(Number);
    const color = fields.get('color') ?? '';
    const isPlace = [x, y, scale].every(Number.isFinite) && scale > 0;
    return {
        view: isPlace ? view.kept({ x, y, scale: view.allowed(scale) }) : view.whole(),
        fitted: !isPlace,
        chosen: object('chosen'),
        group: object('group'),
        query: fields.get('query') ?? '',
        color: isLegendColor(objects, color) ? color : '',
        theme: themeIn(fields),
        table: fields.get('table') === '1',
        keys: fields.get('keys') === 'off' ? 'off' : '',
    };
}
