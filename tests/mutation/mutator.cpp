#include "mutation/mutator.h"

#include <algorithm>

namespace {

const QByteArrayList oddValues{
    "nan",    "inf", "-inf",  "0",          "-1",          "1e308",      "-1e308",
    "1e-320", "0.5", "65536", "2147483647", "-2147483648", "4294967296", "99999999999999999999",
    "",       "x",   "1,2",   "1e300,nan"};

// Ends of a text at which a reader looks for more.
const QByteArrayList openEnds{"-", "\"", "\"\\", "\"x", "x", "->", "[", "="};

// The bytes that mean something to a reader.
const QByteArray telling = "-\"\\[]{};=,\r";

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

bool isQuoted(const QByteArray &token)
{
    return token.size() > 1 && token.startsWith('"') && token.endsWith('"');
}

// Of an xdot text.
bool isOp(const QByteArray &word)
{
    return word.size() == 1
        && ((word[0] >= 'A' && word[0] <= 'Z') || (word[0] >= 'a' && word[0] <= 'z'));
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
    return below(12) == 0 ? cutOff(tokens) : tokens.join(' ');
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
    switch (below(13)) {
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
    case 6:
    case 7:
        changeWithin(&(*tokens)[anyWhere(*tokens, isQuoted)]);
        break;
    case 8:
        (*tokens)[anyWhere(*tokens, isQuoted)] = "\"\"";
        break;
    default:
        (*tokens)[anyWhere(*tokens, startsLikeANumber)] =
            '"' + oddValues[below(oddValues.size())] + '"';
        break;
    }
}

void Mutator::changeByte(QByteArray *token)
{
    if (!token->isEmpty())
        (*token)[below(token->size())] = anyByte();
}

// The words of a quoted text: ops lose their letter or some of what they set, or are others, counts
// lie, and the rest is missing.
void Mutator::changeWithin(QByteArray *token)
{
    if (!isQuoted(*token))
        return;
    QByteArrayList words = token->sliced(1, token->size() - 2).split(' ');
    const qsizetype at = anyWhere(words, isOp);
    const qsizetype run = 1 + below(std::min<qsizetype>(4, words.size() - at));
    switch (below(4)) {
    case 0:
        words.remove(at, run);
        break;
    case 1:
        words[at] = words[below(words.size())];
        break;
    case 2:
        words.resize(at);
        break;
    default:
        words[anyWhere(words, startsLikeANumber)] = oddValues[below(oddValues.size())];
        break;
    }
    *token = '"' + words.join(' ') + '"';
}

// A text that ends in the middle, half of the time with what a reader looks beyond.
QByteArray Mutator::cutOff(const QByteArrayList &tokens)
{
    if (below(2) == 0) {
        const QByteArray text = tokens.join(' ');
        return text.first(below(text.size() + 1));
    }
    const QByteArrayList left = tokens.first(below(tokens.size() + 1));
    return left.join(' ') + ' ' + openEnds[below(openEnds.size())];
}

// Half of the time one that means something to a reader.
char Mutator::anyByte()
{
    return below(2) == 0 ? telling[below(telling.size())] : static_cast<char>(below(256));
}

// The place of a word of the kind, or of any where a few tries find none.
qsizetype Mutator::anyWhere(const QByteArrayList &words, bool (*isOfKind)(const QByteArray &))
{
    qsizetype at = 0;
    for (int tries = 0; tries < 30; ++tries) {
        at = below(words.size());
        if (isOfKind(words[at]))
            break;
    }
    return at;
}

int numberFromEnvironment(const char *name, int otherwise)
{
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(name, &isNumber);
    return isNumber ? number : otherwise;
}
