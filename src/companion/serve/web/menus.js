/** The menus of the bar: engines, examples, and the formats of the drawing as a file. */

import { create, createButton, part } from './../../page/web/elements.js';
import { ask, refusalOf, stateAfter } from './server.js';
import { tell, tellReplaced } from './notices.js';

/** @import {Session} from './session.js' */
/** @import {Sender} from './sender.js' */
/** @import {Editor} from './editor.js' */

const formats = ['svg', 'png', 'jpg', 'xdot1.2', 'vsdx', 'vdx'];
const menuWidth = 260;
const edge = 8;

/**
 * A button below which a list of buttons opens.
 *
 * @param {string} id of the list
 * @param {[string, () => void][]} entries
 */
function fillMenu(id, entries) {
    const menu = part(id);
    const opener = part(`${id}-button`);
    menu.addEventListener('beforetoggle', () => {
        const { left, bottom } = opener.getBoundingClientRect();
        menu.style.left = `${Math.max(edge, Math.min(left, innerWidth - menuWidth - edge))}px`;
        menu.style.top = `${bottom + 4}px`;
    });
    const items = entries.map(([name, action]) => create('li', {}, createButton(name, () => {
        menu.hidePopover();
        action();
    })));
    menu.replaceChildren(create('ul', {}, ...items));
}

/**
 * @param {Session} session
 * @param {Sender} sender
 */
export function followEngine(session, sender) {
    const menu = /** @type {HTMLSelectElement} */ (part('engine'));
    menu.addEventListener('change', () => sender.choose(menu.value));
    session.follow(() => {
        const { engine, engines } = session.state ?? { engine: '', engines: [] };
        if (menu.options.length !== engines.length + 1) {
            const options = engines.map(name => create('option', { value: name }, name));
            menu.replaceChildren(create('option', { value: '' }, 'as in the text'), ...options);
        }
        menu.value = sender.engine ?? engine;
    });
}

/**
 * @param {Session} session
 * @param {Editor} editor
 * @param {Sender} sender
 */
export async function fillExamples(session, editor, sender) {
    const begin = (/** @type {string} */ engine, /** @type {string} */ text) => {
        const before = sender.engine ?? session.state?.engine ?? '';
        sender.engine = engine;
        editor.startFrom(text, [before, engine]);
        sender.send();
    };
    const open = async (/** @type {string} */ engine) => {
        const answer = await ask(`examples/${engine}`).catch(() => null);
        if (!answer?.ok) {
            tell('The example was not fetched.');
            return;
        }
        const before = { engine: sender.engine ?? session.state?.engine ?? '', text: editor.text };
        begin(engine, await answer.text());
        tellReplaced('The example has replaced the text.', before.text, () => begin(before.engine, before.text));
    };
    const answer = await ask('examples').catch(() => null);
    /** @type {{engine: string, name: string, title: string}[]} */
    const examples = answer?.ok ? await answer.json() : [];
    fillMenu('examples', examples.map(({ engine, title }) => [`${engine}: ${title}`, () => open(engine)]));
}

/**
 * The formats, of which the button downloads the one that is chosen.
 *
 * @param {Session} session
 * @param {Sender} sender
 */
export function followFormat(session, sender) {
    const menu = /** @type {HTMLSelectElement} */ (part('format'));
    const options = [...formats.map(format => [format, format.toUpperCase()]),
                     ['html', 'Page (HTML)'], ['dot', 'Text (DOT)']];
    menu.replaceChildren(...options.map(([value, name]) => create('option', { value }, name)));
    part('download').addEventListener('click', async () => {
        const format = menu.value;
        await sender.send();
        if (sender.isAhead) {
            tell('Not downloaded: the server lacks the text.');
            return;
        }
        const stem = session.state?.file.replace(/^.*\//, '').replace(/\.[^.]*$/, '') || 'drawing';
        const path = format === 'html' ? await pathOfPage() : format === 'dot' ? 'text' : `download/${format}`;
        if (path !== '')
            await download(path, `${stem}.${format === 'xdot1.2' ? 'xdot' : format}`);
    });
}

/**
 * Where the page of the text that the server has is found, once it is drawn. If it can't be drawn that is
 * told, and the path is empty.
 */
async function pathOfPage() {
    try {
        let state = await stateAfter(-1);
        while (state.busy)
            state = await stateAfter(state.version);
        const { page, text, engine, fault } = state;
        if (page?.text === text.version && page.engine === engine)
            return `page/${page.version}`;
        tell(fault || 'There is nothing to draw.');
    } catch {
        tell('The server does not answer.');
    }
    return '';
}

/**
 * Asked for by the shell and not by the browser, so that a refusal is read and not saved.
 *
 * @param {string} path
 * @param {string} name of the file
 */
async function download(path, name) {
    const answer = await ask(path, { signal: undefined }).catch(() => null);
    if (!answer?.ok) {
        tell(answer ? await refusalOf(answer) : 'Nothing is drawn yet, or the server has ended.');
        return;
    }
    const address = URL.createObjectURL(await answer.blob());
    create('a', { href: address, download: name }).click();
    URL.revokeObjectURL(address);
}
