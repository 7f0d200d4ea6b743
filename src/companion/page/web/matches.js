/** Which objects a query finds: those whose label, id and attribute values have all its words. */

/** @import {State} from './state.js' */
/** @import {Objects} from './objects.js' */

export class Matches {
    /**
     * @param {Objects} objects
     * @param {State} state
     */
    constructor(objects, state) {
        this.objects = objects;
        /** @type {string[] | null} */
        this.texts = null;
        /** What the present query finds, in the order of the drawing. @type {number[]} */
        this.found = [];
        state.follow(['query'], () => {
            this.found = this.find(state.now.query);
        });
    }

    /**
     * @param {string} query
     * @returns {number[]}
     */
    find(query) {
        const words = folded(query).split(/\s+/).filter(word => word !== '');
        const found = [];
        this.texts ??= this.readTexts();
        for (let i = 0; words.length > 0 && i < this.texts.length; ++i) {
            const text = this.texts[i];
            if (text !== '' && words.every(word => text.includes(word)))
                found.push(i);
        }
        return found;
    }

    readTexts() {
        const texts = [];
        for (let i = 0; i < this.objects.count; ++i) {
            const values = this.objects.attributes(i).map(([, value]) => value);
            const whole = [this.objects.data.label[i] || '', this.objects.id(i), ...values];
            texts.push(this.objects.isPiece(i) ? '' : folded(whole.join('\n')));
        }
        return texts;
    }
}

/**
 * Without what people do not mind when they search.
 *
 * @param {string} text
 */
function folded(text) {
    return text.toLowerCase().normalize('NFKC');
}
