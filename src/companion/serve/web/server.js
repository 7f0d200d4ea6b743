/** What is asked of the server. All its addresses are relative to that of the shell. */

/**
 * @typedef {object} Finding
 * @property {'error' | 'warning' | 'note'} severity
 * @property {number} line from 1; 0 if it has no place
 * @property {number} column from 1, in characters
 * @property {string} rule
 * @property {string} message
 * @property {string} suggestion
 */

/**
 * @typedef {object} ServerState
 * @property {number} version grows with each change
 * @property {string} file its name, empty for none
 * @property {string} engine empty for the one that the text names
 * @property {string[]} engines
 * @property {{version: number, editable: boolean, saved: boolean, conflict: boolean}} text
 * @property {{version: number, text: number, engine: string} | null} page the last that was drawn
 * @property {string} fault why the present text is not drawn
 * @property {boolean} busy
 * @property {Finding[]} findings
 * @property {string} findingsFault why there are none
 */

// The server answers a question for its state after 20 s at the latest.
const longestAnswer = 30_000;

/**
 * Fails if there is no server, or another one, which knows none of these addresses.
 *
 * @param {string} path
 * @param {RequestInit} [options]
 * @returns {Promise<Response>} the answer, which may be a refusal
 */
export async function ask(path, options = {}) {
    const answer = await fetch(path, { signal: AbortSignal.timeout(longestAnswer), ...options });
    if (answer.status === 403 || answer.status === 404)
        throw new Error(`There is no ${path}.`);
    return answer;
}

/**
 * The state once it is another one than that of a version. Fails as `ask` does.
 *
 * @param {number} version -1 for the present state at once
 * @returns {Promise<ServerState>}
 */
export async function stateAfter(version) {
    const answer = await ask(`state?after=${version}`);
    if (!answer.ok)
        throw new Error(`No state: ${answer.status}.`);
    return answer.json();
}

/**
 * @param {string} path
 * @param {Record<string, string | number>} values of the query
 * @param {string} [body]
 */
export function post(path, values, body = '') {
    const fields = /** @type {Record<string, string>} */ (values);
    return ask(`${path}?${new URLSearchParams(fields)}`, { method: 'POST', body });
}

/**
 * Why the server did not do what it was asked for, as it says itself.
 *
 * @param {Response} answer
 */
export async function refusalOf(answer) {
    const text = (await answer.text()).trim();
    if (text.startsWith('{'))
        return String(JSON.parse(text).fault);
    return text || `The server answered with status ${answer.status}.`;
}
