// Prints the tokens that an editor sees in a text, a line for each: the place, the scopes without those
// of the whole, and the text.
//
//     node show_tokens.mjs TOOLS GRAMMAR TEXT
//
// TOOLS is where fetch_tools has put the reader of grammars and its regular expressions.
import { readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { resolve } from 'node:path';

const [tools, grammarFile, textFile] = process.argv.slice(2);
const require = createRequire(resolve(tools, 'package.json'));
const textmate = require('vscode-textmate');
const oniguruma = require('vscode-oniguruma');

async function readGrammar() {
    const wasm = require.resolve('vscode-oniguruma/release/onig.wasm');
    await oniguruma.loadWASM(readFileSync(wasm));
    const grammar = textmate.parseRawGrammar(readFileSync(grammarFile, 'utf8'), grammarFile);
    const registry = new textmate.Registry({
        onigLib: Promise.resolve({
            createOnigScanner: (patterns) => new oniguruma.OnigScanner(patterns),
            createOnigString: (text) => new oniguruma.OnigString(text),
        }),
        loadGrammar: async (name) => (name === grammar.scopeName ? grammar : null),
    });
    return registry.loadGrammar(grammar.scopeName);
}

const grammar = await readGrammar();
let state = textmate.INITIAL;
const lines = readFileSync(textFile, 'utf8').trimEnd().split('\n');
lines.forEach((line, index) => {
    const read = grammar.tokenizeLine(line, state);
    state = read.ruleStack;
    for (const token of read.tokens) {
        const text = line.slice(token.startIndex, token.endIndex);
        if (text.trim() === '')
            continue;
        const scopes = token.scopes.slice(1).join(' ') || '-';
        console.log(`${index + 1}:${token.startIndex + 1} ${scopes} ${JSON.stringify(text)}`);
    }
});
