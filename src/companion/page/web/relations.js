/** Trees and declarations: who calls the chosen object and whom it calls; all others are dimmed. */

/** @import {State} from './state.js' */
/** @import {Objects} from './objects.js' */
/** @import {Veil} from './marks.js' */
/** @import {Panel} from './panel.js' */

const engines = ['gftree', 'gfdecl'];

/**
 * The nodes at the other ends of an object's edges; those of a group's members are its own.
 *
 * @param {Objects} objects
 * @param {number} i
 */
export function neighboursOf(objects, i) {
    const inside = new Set([i]);
    // A set goes on to hand out what is added on the way.
    for (const one of inside)
        objects.members(one).forEach(member => inside.add(member));
    const edges = new Set([...inside].flatMap(one => objects.edges(one)));
    const ends = [...edges].map(edge => objects.ends(edge) ?? [-1, -1]);
    const others = (/** @type {0 | 1} */ side) => [...new Set(
        ends.filter(pair => inside.has(pair[1 - side])).map(pair => pair[side]))]
        .filter(end => end >= 0 && (end === i || !inside.has(end)));
    return { callers: others(0), callees: others(1), edges: [...edges] };
}

/**
 * @param {Objects} objects
 * @param {State} state
 * @param {Veil} veil
 * @param {Panel} panel
 */
export function followRelations(objects, state, veil, panel) {
    if (!engines.includes(objects.engine))
        return;
    state.follow(['chosen'], () => veil.show(state.now.chosen < 0 ? null : litBy(objects, state.now.chosen)));
    panel.sections.push(i => {
        if (objects.kind(i) === 'edge')
            return [];
        const { callers, callees } = neighboursOf(objects, i);
        return [...panel.titled('Callers', callers), ...panel.titled('Callees', callees)];
    });
}

/**
 * @param {Objects} objects
 * @param {number} chosen
 */
function litBy(objects, chosen) {
    const ends = objects.ends(chosen);
    if (ends)
        return [...ends.filter(end => end >= 0), chosen];
    const { callers, callees, edges } = neighboursOf(objects, chosen);
    return [...new Set([chosen, ...callers, ...callees, ...edges])];
}
