/** Wheel, drag and pinch on the stage, and taps that were none of these. */

/** @import {View} from './view.js' */

// A finger or a hand that moves less meant to tap.
const tapDistance = 4;
const wheelStep = 1 / 500;
const lineHeight = 16;

/**
 * @param {HTMLElement} stage
 * @param {View} view
 */
export function followGestures(stage, view) {
    followWheel(stage, view);
    const drag = followPointers(stage, view);
    // A click that ends a drag is none.
    stage.addEventListener('click', event => {
        if (drag.moved)
            event.stopPropagation();
    }, { capture: true });
}

/**
 * @param {HTMLElement} stage
 * @param {View} view
 */
function followWheel(stage, view) {
    stage.addEventListener('wheel', event => {
        event.preventDefault();
        const unit = event.deltaMode === WheelEvent.DOM_DELTA_PIXEL ? 1 : lineHeight;
        // Some browsers turn a wheel with Shift themselves.
        const across = event.shiftKey && event.deltaX === 0 ? event.deltaY : event.deltaX;
        if (!event.ctrlKey && (event.shiftKey || Math.abs(across) > Math.abs(event.deltaY))) {
            view.panBy(-across * unit, 0);
            return;
        }
        const pixels = event.deltaY * unit;
        // A pinch on a touch pad comes as a wheel with Ctrl, in smaller steps.
        view.zoomAt(Math.exp(-pixels * wheelStep * (event.ctrlKey ? 5 : 1)), event.clientX, event.clientY);
    }, { passive: false });
}

/**
 * @param {HTMLElement} stage
 * @param {View} view
 */
function followPointers(stage, view) {
    /** @type {Map<number, {x: number, y: number}>} */
    const fingers = new Map();
    const drag = { moved: false, x: 0, y: 0 };
    stage.addEventListener('pointerdown', event => {
        if (event.pointerType === 'mouse' && event.button !== 0)
            return;
        if (fingers.size === 0)
            Object.assign(drag, { moved: false, x: event.clientX, y: event.clientY });
        fingers.set(event.pointerId, { x: event.clientX, y: event.clientY });
    });
    stage.addEventListener('pointermove', event => {
        const before = fingers.get(event.pointerId);
        if (!before)
            return;
        if (!drag.moved && Math.hypot(event.clientX - drag.x, event.clientY - drag.y) < tapDistance)
            return;
        drag.moved = true;
        stage.setPointerCapture(event.pointerId);
        const now = { x: event.clientX, y: event.clientY };
        const other = [...fingers].find(([id]) => id !== event.pointerId)?.[1];
        fingers.set(event.pointerId, now);
        moveFinger(view, before, now, other);
    });
    const release = (/** @type {PointerEvent} */ event) => fingers.delete(event.pointerId);
    stage.onpointerup = release;
    stage.onpointercancel = release;
    return drag;
}

/** @typedef {{x: number, y: number}} Point */

/**
 * One finger drags; of two each moves its half and stretches the rest from the other one.
 *
 * @param {View} view
 * @param {Point} before
 * @param {Point} now
 * @param {Point | undefined} other
 */
function moveFinger(view, before, now, other) {
    if (!other) {
        view.panBy(now.x - before.x, now.y - before.y);
        return;
    }
    view.panBy((now.x - before.x) / 2, (now.y - before.y) / 2);
    const distance = (/** @type {Point} */ { x, y }) => Math.max(Math.hypot(x - other.x, y - other.y), 1);
    view.zoomAt(distance(now) / distance(before), (now.x + other.x) / 2, (now.y + other.y) / 2);
}
