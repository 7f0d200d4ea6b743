/**
 * Follows the state of the server. Each change is told to whoever follows; so is that the server does
 * not answer any more, and that it does so again.
 */

import { stateAfter } from './server.js';

/** @import {ServerState} from './server.js' */

const firstPause = 500;
const longestPause = 30_000;

export class Session {
    constructor() {
        /** @type {ServerState | null} */
        this.state = null;
        this.isLost = false;
        /** @type {(() => void)[]} */
        this.followers = [];
        /** Ends a pause before the next attempt. */
        this.tryNow = () => {};
    }

    /** @param {() => void} told */
    follow(told) {
        this.followers.push(told);
    }

    tell() {
        for (const told of this.followers)
            told();
    }

    /** Asks for one state after the other, for as long as the shell is open. */
    async run() {
        for (let pause = firstPause;;) {
            try {
                this.take(await this.next());
                pause = firstPause;
            } catch {
                this.lose();
                await this.rest(pause);
                pause = Math.min(2 * pause, longestPause);
            }
        }
    }

    next() {
        // A server that is back is asked for what it has, so that it answers at once.
        return stateAfter(this.isLost ? -1 : this.state?.version ?? -1);
    }

    /** @param {ServerState} state */
    take(state) {
        const isNew = this.isLost || state.version !== this.state?.version;
        this.state = state;
        this.isLost = false;
        if (isNew)
            this.tell();
    }

    lose() {
        if (this.isLost)
            return;
        this.isLost = true;
        this.tell();
    }

    /** @param {number} pause in milliseconds */
    rest(pause) {
        return new Promise(done => {
            const timer = setTimeout(done, pause);
            this.tryNow = () => {
                clearTimeout(timer);
                done(undefined);
            };
        });
    }
}
