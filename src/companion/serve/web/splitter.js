/** The line between the text and the drawing, which the pointer and the arrows move. */

const least = 15;
const most = 85;
const usual = 40;
const step = 2;

/**
 * @param {HTMLElement} separator
 * @param {HTMLElement} panes
 */
export function prepareSplitter(separator, panes) {
    const stacked = matchMedia('(max-width: 800px)');
    let share = usual;
    const set = (/** @type {number} */ wanted) => {
        share = Math.min(Math.max(wanted, least), most);
        panes.style.setProperty('--split', String(share));
        separator.setAttribute('aria-valuenow', String(Math.round(share)));
    };
    const turn = () => separator.setAttribute('aria-orientation', stacked.matches ? 'horizontal' : 'vertical');
    separator.addEventListener('keydown', event => {
        const steps = { ArrowLeft: -step, ArrowUp: -step, ArrowRight: step, ArrowDown: step, Home: -100, End: 100 };
        const by = steps[/** @type {keyof typeof steps} */ (event.key)];
        if (by === undefined || event.ctrlKey || event.altKey || event.metaKey)
            return;
        event.preventDefault();
        set(share + by);
    });
    separator.addEventListener('dblclick', () => set(usual));
    separator.addEventListener('pointerdown', event => {
        if (event.button === 0)
            separator.setPointerCapture(event.pointerId);
    });
    separator.addEventListener('pointermove', event => {
        if (!separator.hasPointerCapture(event.pointerId))
            return;
        const { left, top, width, height } = panes.getBoundingClientRect();
        set(100 * (stacked.matches ? (event.clientY - top) / height : (event.clientX - left) / width));
    });
    stacked.addEventListener('change', turn);
    turn();
    set(usual);
}
