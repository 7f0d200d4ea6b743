/**
 * Exchanges the text and the engine with the server, one request after the other: what was typed while
 * one was under way goes with the next, the last text alone.
 */

import { afterPause } from './../../page/web/elements.js';
import { ask, post, refusalOf } from './server.js';
import { tell } from './notices.js';

/** @import {Session} from './session.js' */
/** @import {Editor} from './editor.js' */

const typingPause = 150;
const longestText = 16 * 1024 * 1024;
const firstRetry = 1000;
const longestRetry = 30_000;

export class Sender {
    /**
     * @param {Editor} editor
     * @param {Session} session
     */
    constructor(editor, session) {
        this.editor = editor;
        this.session = session;
        /** Of the text that the editor has, or had before it was typed in. */
        this.version = -1;
        this.edits = 0;
        this.sentEdits = 0;
        this.isRefused = false;
        /** @type {string | null} the engine, if it is not sent yet */
        this.engine = null;
        this.wasLost = false;
        this.last = Promise.resolve();
        this.retry = { timer: 0, pause: firstRetry };
        const sendLater = afterPause(() => this.send(), typingPause);
        editor.follow(isTyped => {
            if (!isTyped)
                return;
            ++this.edits;
            sendLater();
        });
        editor.engineComes = engine => {
            this.engine = engine;
        };
        session.follow(() => this.followState());
    }

    get isTextPending() {
        return this.edits > this.sentEdits;
    }

    /** Whether the editor has a text that the server does not have, or would not take. */
    get isAhead() {
        return this.isTextPending || this.isRefused;
    }

    /** Lets the text of the server come, whatever was typed. */
    giveIn() {
        this.sentEdits = this.edits;
        this.isRefused = false;
    }

    /** @param {string} engine */
    choose(engine) {
        this.engine = engine;
        this.send();
    }

    /**
     * Does something when all that was asked for before is done.
     *
     * @param {() => Promise<void>} work
     */
    enqueue(work) {
        this.last = this.last.then(work).catch(() => this.tryAgain());
        return this.last;
    }

    /** Sends what is not sent yet; done when the server has it. */
    send() {
        return this.enqueue(() => this.sendPending());
    }

    async sendPending() {
        const { edits, engine, isTextPending } = this;
        if (!isTextPending && engine === null)
            return;
        const answer = isTextPending ? await this.postText() : await post('engine', { engine: engine ?? '' });
        if (this.engine === engine)
            this.engine = null;
        this.sentEdits = Math.max(this.sentEdits, edits);
        if (isTextPending)
            this.isRefused = !answer?.ok;
        this.retry.pause = firstRetry;
        if (answer && !answer.ok)
            tell(await refusalOf(answer));
    }

    /** @returns {Promise<Response | null>} null for a text that no server would take */
    async postText() {
        const { text } = this.editor;
        if (text.length > longestText / 3 && new Blob([text]).size > longestText) {
            tell('The text is too large: more than 16 MB.');
            return null;
        }
        const engine = this.engine ?? this.session.state?.engine ?? '';
        const answer = await post('text', { engine, base: this.version }, text);
        if (answer.ok)
            this.version = (await answer.clone().json()).version;
        return answer;
    }

    tryAgain() {
        clearTimeout(this.retry.timer);
        this.retry.timer = setTimeout(() => {
            this.send();
            this.enqueue(() => this.takeNewer());
        }, this.retry.pause);
        this.retry.pause = Math.min(2 * this.retry.pause, longestRetry);
    }

    followState() {
        const { state, isLost } = this.session;
        if (state)
            this.editor.area.readOnly = !state.text.editable;
        if (this.wasLost && !isLost)
            this.send();
        this.wasLost = isLost;
        this.enqueue(() => this.takeNewer());
    }

    /** Takes the text of the server if it is none of this editor, unless there is more typed here. */
    async takeNewer() {
        const version = this.session.state?.text.version ?? -1;
        if (version <= this.version || this.isAhead || this.session.isLost)
            return;
        const { edits } = this;
        const answer = await ask('text');
        if (!answer.ok || this.edits !== edits)
            return;
        const text = new TextDecoder('utf-8', { ignoreBOM: true }).decode(await answer.arrayBuffer());
        if (this.edits !== edits)
            return;
        this.version = version;
        this.editor.take(text);
    }
}
