#include "mutation/mutator.h"

#include <algorithm>

namespace {

const QByteArrayList oddValues{
    "nan",    "inf", "-inf",  "0",          "-1",          "1e308",      "-1e308",
    "1e-320", "0.5", "65536", "2147483647", "-2147483648", "4294967296", "99999999999999999999",
    "",       "x",   "1,2",   "1e300,nan"};

bool isSpace(char c)
{
    return c == ' ' || c == '\n' || c == '\t';
}

bool isPunctuation(char c)
{
    return QByteArrayView("{}[]=;,").contains(c);
}

// Where the quoted string that starts at `from` ends.
qsizetype endOfQuoted(const QByteArray &text, qsizetype from)
{
    for (qsizetype i = from + 1; i < text.size(); ++i) {
        if (text[i] == '\\')
            ++i;
        else if (text[i] == '"')
            return i + 1;
    }
    return text.size();
}

qsizetype endOfToken(const QByteArray &text, qsizetype from)
{
    if (text[from] == '"')
        return endOfQuoted(text, from);
    if (isPunctuation(text[from]))
        return from + 1;
    qsizetype end = from;
    while (end < text.size() && !isSpace(text[end]) && !isPunctuation(text[end])
           && text[end] != '"')
        ++end;
    return end;
}

QByteArrayList tokensOf(const QByteArray &text)
{
    QByteArrayList tokens;
    for (qsizetype i = 0; i < text.size();) {
        if (isSpace(text[i])) {
            ++i;
            continue;
        }
        const qsizetype end = endOfToken(text, i);
        tokens.append(text.mid(i, end - i));
        i = end;
    }
    return tokens;
}

bool isWord(const QByteArray &token)
{
    return !isPunctuation(token[0]) && token != "->";
}

bool startsLikeANumber(const QByteArray &token)
{
    const qsizetype at = token.startsWith('"') ? 1 : 0;
    return at < token.size()
        && (token[at] == '-' || token[at] == '.' || (token[at] >= '0' && token[at] <= '9'));
}

} // namespace

QByteArray Mutator::mutated(const QByteArray &text)
{
    QByteArrayList tokens = tokensOf(text);
    for (qsizetype left = 1 + below(5); left > 0 && !tokens.isEmpty(); --left)
        changeOnce(&tokens);
    return tokens.join(' ');
}

qsizetype Mutator::below(qsizetype end)
{
    return static_cast<qsizetype>(random() % static_cast<quint64>(end));
}

void Mutator::changeOnce(QByteArrayList *tokens)
{
    const qsizetype at = below(tokens->size());
    const qsizetype other = below(tokens->size());
    const qsizetype run = 1 + below(std::min<qsizetype>(8, tokens->size() - at));
    switch (below(10)) {
    case 0:
        changeByte(&(*tokens)[at]);
        break;
    case 1:
        tokens->remove(at, run);
        break;
    case 2: {
        const QByteArrayList copied = tokens->mid(at, run);
        for (qsizetype i = 0; i < copied.size(); ++i)
            tokens->insert(other + i, copied[i]);
        break;
    }
    case 3:
    case 4:
    case 5:
        if (isWord(tokens->at(at)) && isWord(tokens->at(other)))
            (*tokens)[at] = tokens->at(other);
        break;
    default:
        (*tokens)[anyNumber(*tokens)] = '"' + oddValues[below(oddValues.size())] + '"';
        break;
    }
}

void Mutator::changeByte(QByteArray *token)
{
    if (!token->isEmpty())
        (*token)[below(token->size())] = static_cast<char>(below(256));
}

// The place of a token that reads as a number, or of any where a few tries find none.
qsizetype Mutator::anyNumber(const QByteArrayList &tokens)
{
    qsizetype at = 0;
    for (int tries = 0; tries < 30; ++tries) {
        at = below(tokens.size());
        if (startsLikeANumber(tokens[at]))
            break;
    }
    return at;
}
