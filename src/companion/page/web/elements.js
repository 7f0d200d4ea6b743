/**
 * Makes elements. Texts of the input go in as text and never as markup, so nothing of them can become
 * an element.
 */

const svgNamespace = 'http://www.w3.org/2000/svg';

/**
 * An HTML element with attributes; one whose value is undefined is left out.
 *
 * @template {keyof HTMLElementTagNameMap} Tag
 * @param {Tag} tag
 * @param {Record<string, string | number | undefined>} [attributes]
 * @param {...(Node | string)} children
 * @returns {HTMLElementTagNameMap[Tag]}
 */
export function create(tag, attributes = {}, ...children) {
    const element = document.createElement(tag);
    setAttributes(element, attributes);
    element.append(...children);
    return element;
}

/**
 * An SVG element, likewise.
 *
 * @template {keyof SVGElementTagNameMap} Tag
 * @param {Tag} tag
 * @param {Record<string, string | number | undefined>} [attributes]
 * @returns {SVGElementTagNameMap[Tag]}
 */
export function createDrawn(tag, attributes = {}) {
    const element = document.createElementNS(svgNamespace, tag);
    setAttributes(element, attributes);
    return element;
}

/**
 * @param {Element} element
 * @param {Record<string, string | number | undefined>} attributes
 */
function setAttributes(element, attributes) {
    for (const [name, value] of Object.entries(attributes)) {
        if (value !== undefined)
            element.setAttribute(name, String(value));
    }
}

/**
 * An entry of a list of descriptions.
 *
 * @param {string} name
 * @param {...(Node | string)} nodes
 */
export function entry(name, ...nodes) {
    return [create('dt', {}, name), create('dd', {}, ...nodes)];
}

/**
 * A number as readers expect it, with its thousands apart.
 *
 * @param {number} number
 */
export function figure(number) {
    return number.toLocaleString('en');
}

/**
 * A button with a text that does something.
 *
 * @param {string} text
 * @param {() => void} action
 * @param {Record<string, string | undefined>} [attributes]
 */
export function createButton(text, action, attributes = {}) {
    const button = create('button', attributes, text);
    button.onclick = action;
    return button;
}

/**
 * The element of the page with this id, which the page is known to have.
 *
 * @param {string} id
 * @returns {HTMLElement}
 */
export function part(id) {
    const found = document.getElementById(id);
    if (!found)
        throw new Error(`The page has no part ${id}.`);
    return found;
}

/**
 * Calls a function once at the next frame, however often it was asked for before.
 *
 * @param {() => void} work
 * @returns {() => void}
 */
export function oncePerFrame(work) {
    let waiting = false;
    return () => {
        if (waiting)
            return;
        waiting = true;
        requestAnimationFrame(() => {
            waiting = false;
            work();
        });
    };
}

/**
 * Calls a function when it was not asked for again for some time.
 *
 * @param {() => void} work
 * @param {number} pause in milliseconds
 * @returns {() => void}
 */
export function afterPause(work, pause) {
    let timer = 0;
    return () => {
        clearTimeout(timer);
        timer = setTimeout(work, pause);
    };
}
