/**
 * Shows the newest page. It loads behind the one that is shown, with the fragment of that one's
 * address, which holds the view and the chosen object, and takes its place when it is there.
 */

import { create } from './../../page/web/elements.js';
import { keep, kept } from './kept.js';

/** @import {Session} from './session.js' */

// Another run has another address.
const placeKey = `place ${location.pathname}`;

export class Drawing {
    /**
     * @param {HTMLElement} stage
     * @param {Session} session
     * @param {(event: KeyboardEvent) => void} pressed is told of keys within the page
     */
    constructor(stage, session, pressed) {
        this.stage = stage;
        this.session = session;
        this.pressed = pressed;
        this.theme = 'auto';
        /** Of the page that is shown, or is coming. */
        this.version = -1;
        /** @type {HTMLIFrameElement | null} */
        this.shown = null;
        /** @type {HTMLIFrameElement | null} */
        this.coming = null;
        session.follow(() => this.update());
        // A shell that is loaded again shows the same place.
        addEventListener('pagehide', () => keep('sessionStorage', placeKey, this.fragment()));
    }

    update() {
        const version = this.session.state?.page?.version ?? -1;
        if (version >= 0 && version !== this.version && !this.coming && !this.session.isLost)
            this.load(version);
    }

    /** @param {string} theme of the shell, which the drawing takes as well */
    follow(theme) {
        this.theme = theme;
        if (this.shown)
            goTo(this.shown, withTheme(this.fragment(), theme));
    }

    fragment() {
        return this.shown ? fragmentOf(this.shown) : withTheme(kept('sessionStorage', placeKey), this.theme);
    }

    /** @param {number} version */
    load(version) {
        this.version = version;
        // A sandbox would hold nothing back that the page's own policy lets pass: the two are of one address.
        const src = `page/${version}#${this.fragment()}`;
        this.coming = create('iframe', { title: 'Drawing', class: 'coming', src });
        this.coming.addEventListener('load', () => this.arrive(), { once: true });
        this.stage.prepend(this.coming);
    }

    arrive() {
        if (this.coming?.contentDocument?.getElementById('drawing')) {
            requestAnimationFrame(() => requestAnimationFrame(() => this.swap()));
            return;
        }
        // The server has forgotten it, or has ended: the next state tells of another one.
        const isOld = this.version !== this.session.state?.page?.version;
        this.coming?.remove();
        this.coming = null;
        this.version = -1;
        if (isOld)
            this.update();
    }

    swap() {
        const { shown, coming } = this;
        if (!coming)
            return;
        // The view may have moved since the other one began to load.
        goTo(coming, shown ? this.fragment() : withTheme(fragmentOf(coming), this.theme));
        coming.contentWindow?.addEventListener('keydown', this.pressed);
        // The switch of the shell is that of the drawing, too.
        coming.contentDocument?.getElementById('theme')?.setAttribute('hidden', '');
        coming.classList.remove('coming');
        if (shown && shown === document.activeElement)
            focusLike(coming, shown);
        shown?.remove();
        this.shown = coming;
        this.coming = null;
        this.update();
    }
}

/**
 * @param {HTMLIFrameElement} frame
 * @returns {string} without the mark; empty if the frame shows something else
 */
function fragmentOf(frame) {
    try {
        return frame.contentWindow?.location.hash.slice(1) ?? '';
    } catch {
        return '';
    }
}

/**
 * Changes the address without an entry in the history.
 *
 * @param {HTMLIFrameElement} frame
 * @param {string} fragment
 */
function goTo(frame, fragment) {
    if (fragmentOf(frame) !== fragment)
        frame.contentWindow?.location.replace(`${frame.src.split('#')[0]}#${fragment}`);
}

/**
 * @param {string} fragment
 * @param {string} theme
 */
function withTheme(fragment, theme) {
    const fields = new URLSearchParams(fragment);
    if (theme === 'auto')
        fields.delete('theme');
    else
        fields.set('theme', theme);
    return fields.toString();
}

/**
 * Gives the focus to what has it in another page.
 *
 * @param {HTMLIFrameElement} frame
 * @param {HTMLIFrameElement} before
 */
function focusLike(frame, before) {
    const { id } = before.contentDocument?.activeElement ?? { id: '' };
    frame.focus();
    if (id !== '')
        frame.contentDocument?.getElementById(id)?.focus();
}
