/** Which objects a query finds: those whose label, id and attributes have all its words. */

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
        /** Whether the graph itself has them in its attributes. */
        this.isInRoot = false;
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
        const isFound = (/** @type {string} */ text) => text !== '' && words.every(word => text.includes(word));
        for (let i = 0; words.length > 0 && i < this.texts.length; ++i) {
            if (isFound(this.texts[i]))
                found.push(i);
        }
        this.isInRoot = words.length > 0 && isFound(folded(this.objects.rootAttributes.join('\n')));
        return found;
    }

    readTexts() {
        const texts = [];
        for (let i = 0; i < this.objects.all; ++i) {
            const values = this.objects.attributes(i).map(pair => pair.join('\n'));
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
