#include "companion/syntax/head_rejections.h"

#include "companion/syntax/syntax_rules.h"
#include "graph/dot_tokenizer.h"

namespace ORR::Companion {

using namespace Qt::StringLiterals;
using Graph::DotFault;
using Graph::DotToken;

namespace {

struct Encoding
{
    QByteArrayView mark;
    QLatin1StringView name;
};

// Those of four bytes begin with those of two.
const Encoding encodings[] = {
    {QByteArrayView("\xFF\xFE\0\0", 4), "UTF-32"_L1},
    {QByteArrayView("\0\0\xFE\xFF", 4), "UTF-32"_L1},
    {QByteArrayView("\xFF\xFE", 2), "UTF-16, little-endian"_L1},
    {QByteArrayView("\xFE\xFF", 2), "UTF-16, big-endian"_L1},
};

// Without a mark: a letter of ASCII and a NUL byte, in turn.
QLatin1StringView unmarkedEncoding(const QByteArray &text)
{
    if (text.size() < 4 || (text.at(0) == '\0') == (text.at(1) == '\0')
        || (text.at(0) == '\0') != (text.at(2) == '\0')
        || (text.at(1) == '\0') != (text.at(3) == '\0'))
        return {};
    return text.at(0) == '\0' ? "UTF-16, big-endian"_L1 : "UTF-16, little-endian"_L1;
}

Explanation otherEncoding(QLatin1StringView name, const QString &found)
{
    return {&SyntaxRules::nulByte,
            "the text is "_L1 + name,
            u"save it as UTF-8 without a byte order mark"_s,
            0,
            2,
            found};
}

// Whether a name or nothing and a brace follow the first word, as they follow "digraph".
bool isFollowedByBody(const QByteArray &text)
{
    Graph::DotTokenizer tokens(text);
    if (tokens.next() == DotToken::Identifier)
        tokens.next();
    return tokens.kind() == DotToken::OpenBrace;
}

} // namespace

std::optional<Explanation> explainEncoding(const QByteArray &text)
{
    for (const Encoding &encoding : encodings) {
        if (text.startsWith(encoding.mark))
            return otherEncoding(encoding.name, u"a byte order mark"_s);
    }
    if (const QLatin1StringView name = unmarkedEncoding(text); !name.isEmpty())
        return otherEncoding(name, u"NUL bytes between the characters"_s);
    if (text.startsWith("\xEF\xBB\xBF"))
        return Explanation{&SyntaxRules::syntaxError,
                           u"the text begins with a byte order mark"_s,
                           u"save it as UTF-8 without one"_s,
                           0,
                           3,
                           u"a byte order mark"_s};
    return {};
}

Explanation explainHead(const DotFault &fault, const QByteArray &text)
{
    const QByteArray word = fault.text.toLower();
    if (word == "strict")
        return {&SyntaxRules::strictGraph, u"there are no strict graphs here"_s,
                u"leave 'strict' out: parallel edges are kept"_s};
    if (word == "graph" || word.startsWith("graph{"))
        return {&SyntaxRules::undirectedGraph, u"there are no undirected graphs here"_s,
                u"begin with 'digraph' and write edges with '->'"_s};
    if (fault.text.startsWith("digraph{"))
        return {&SyntaxRules::missingBlank, u"'{' belongs to the name ahead of it"_s,
                u"put a blank ahead of it"_s};
    if (word == "digraph" || word.startsWith("digraph{"))
        return {&SyntaxRules::syntaxError, u"keywords are written in small letters"_s,
                u"write 'digraph'"_s};
    if (fault.found == DotToken::OpenBrace)
        return {&SyntaxRules::syntaxError, u"the beginning of the graph is missing"_s,
                u"write 'digraph' ahead of the brace"_s};
    if (fault.found != DotToken::Identifier)
        return {&SyntaxRules::syntaxError, {}, {}};
    if (isFollowedByBody(text))
        return {&SyntaxRules::syntaxError, {}, u"begin with 'digraph'"_s};
    return {&SyntaxRules::syntaxError, u"the beginning of the graph is missing"_s,
            u"write digraph { ... } around the statements"_s};
}

} // namespace ORR::Companion
