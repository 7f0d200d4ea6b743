/** Saves the text to its file, and minds that the file may have changed outside. */

import { part } from './../../page/web/elements.js';
import { post, refusalOf } from './server.js';
import { offer, tell, tellReplaced } from './notices.js';

/** @import {Session} from './session.js' */
/** @import {Sender} from './sender.js' */
/** @import {Editor} from './editor.js' */

export class Saving {
    /**
     * @param {Session} session
     * @param {Sender} sender
     * @param {Editor} editor
     */
    constructor(session, sender, editor) {
        this.session = session;
        this.sender = sender;
        this.editor = editor;
        /** @type {string | null} the text that gives way to that of the file */
        this.given = null;
        /** Whether there is a text without a file that the user has written. */
        this.isWritten = false;
        this.isConflict = false;
        part('save').addEventListener('click', () => this.save());
        session.follow(() => this.update());
        editor.follow(isTyped => {
            this.isWritten ||= isTyped;
            this.offerBack(isTyped);
            this.update();
        });
        addEventListener('beforeunload', event => {
            if (this.isUnsaved())
                event.preventDefault();
        });
    }

    isUnsaved() {
        const { file = '', text } = this.session.state ?? {};
        if (!text || this.sender.isAhead)
            return this.sender.isAhead;
        // The server may have a text already, and its state not yet tell so.
        return file === '' ? this.isWritten : !text.saved || text.version < this.sender.version;
    }

    update() {
        const { file = '', text } = this.session.state ?? {};
        const isUnsaved = this.isUnsaved();
        part('save').hidden = file === '';
        part('save').setAttribute('aria-disabled', String(!isUnsaved));
        part('unsaved').hidden = file === '' || !isUnsaved;
        part('file').textContent = file || 'No file';
        document.title = `${isUnsaved && file !== '' ? '• ' : ''}${file || 'orr serve'}`;
        const isConflict = text?.conflict ?? false;
        if (isConflict !== this.isConflict) {
            this.isConflict = isConflict;
            if (isConflict)
                this.ask(`${file} has changed outside.`, 'Keep mine', () => {});
            else
                offer('', {});
        }
    }

    /**
     * @param {string} sentence
     * @param {string} name of the choice that keeps the text of the editor
     * @param {() => void} keep
     */
    ask(sentence, name, keep) {
        const close = (/** @type {() => void} */ action) => () => {
            offer('', {});
            action();
        };
        offer(sentence, { 'Take the file’s text': close(() => this.take()), [name]: close(keep) });
    }

    take() {
        return this.sender.enqueue(async () => {
            const answer = await post('take', {});
            if (!answer.ok) {
                tell(await refusalOf(answer));
                return;
            }
            this.given = this.editor.text;
            this.sender.giveIn();
        });
    }

    /**
     * Offers what was typed, once the text of the file has come in its place.
     *
     * @param {boolean} isTyped
     */
    offerBack(isTyped) {
        const { given } = this;
        this.given = null;
        if (isTyped || given === null)
            return;
        tellReplaced('The file’s text has replaced what was typed.', given, () => {
            this.editor.startFrom(given);
            this.sender.send();
        });
    }

    /** @param {boolean} [isForced] also over what has changed outside */
    async save(isForced = false) {
        if (!this.isUnsaved() || part('save').hidden)
            return;
        await this.sender.send();
        await this.sender.enqueue(() => this.write(isForced));
    }

    /** @param {boolean} isForced */
    async write(isForced) {
        if (this.sender.isAhead) {
            tell('Not saved: the server lacks the text.');
            return;
        }
        const wanted = { base: this.sender.version, force: Number(isForced) };
        const answer = await post('save', wanted).catch(() => null);
        if (answer?.ok) {
            tell('Saved.', {}, true);
            return;
        }
        const { fault, conflict } = await answer?.json() ?? { fault: 'the server does not answer.' };
        // The state tells of it too, but offers less.
        this.isConflict ||= conflict === true;
        if (conflict)
            this.ask('The file has changed outside.', 'Save over it', () => this.save(true));
        else
            tell(`Not saved: ${fault}`);
    }
}
