#include "companion/syntax/comments.h"

#include "graph/dot_parser.h"
#include "graph/dot_tokenizer.h"

#include <algorithm>

namespace ORR::Companion {

using Graph::unquotedAt;

namespace {

// Comments that are glued to a name are short; a long text is not searched for the end of each.
constexpr qsizetype longestGlued = 200;

// Whether what stands behind `/*` ends a comment: `src/*` and `*/*` on one line are paths.
bool closesComment(QByteArrayView inside, qsizetype ofToken)
{
    const qsizetype end = inside.first(std::min(longestGlued, inside.size())).indexOf("*/");
    if (end < 0 || inside.startsWith('/'))
        return false;
    return end < ofToken || end + 2 == inside.size()
        || QByteArrayView(" \t\n,;=[]{}\"").contains(inside.at(end + 2));
}

// The index of a comment `/* */` within a token, -1 for none. `rest` is the text from the token on.
qsizetype blockComment(QByteArrayView rest, QByteArrayView token)
{
    qsizetype start = token.indexOf("/*");
    while (start >= 0 && !closesComment(rest.sliced(start + 2), token.size() - start - 2))
        start = token.indexOf("/*", start + 1);
    return start;
}

bool isAddress(QByteArrayView attribute)
{
    const QByteArray small = attribute.toByteArray().toLower();
    return small.contains("url") || small.contains("href");
}

qsizetype placeAt(qsizetype offset, qsizetype index)
{
    return index < 0 ? -1 : offset + index;
}

} // namespace

qsizetype commentInName(QByteArrayView text, qsizetype offset)
{
    const QByteArrayView name = unquotedAt(text, offset);
    if (name.startsWith('#') || name.startsWith("/*"))
        return offset;
    if (!name.contains('/'))
        return -1;
    const qsizetype block = blockComment(text.sliced(offset), name);
    const qsizetype line = name.contains("://") ? -1 : name.indexOf("//");
    return placeAt(offset, block < 0 || (line >= 0 && line < block) ? line : block);
}

qsizetype commentInValue(QByteArrayView text, qsizetype offset, QByteArrayView attribute)
{
    const QByteArrayView value = unquotedAt(text, offset);
    if (!value.contains('/'))
        return -1;
    if (value.startsWith("//")) {
        const QByteArrayView words = value.sliced(2);
        const bool isMeant = !words.isEmpty()
            && (isAddress(attribute) || words.contains('.') || words.contains('/'));
        return isMeant ? -1 : offset;
    }
    return placeAt(offset, blockComment(text.sliced(offset), value));
}

qsizetype commentEnd(QByteArrayView text, qsizetype offset)
{
    const bool isBlock = text.sliced(offset).startsWith("/*");
    const qsizetype last = isBlock ? text.indexOf("*/", offset + 2) : text.indexOf('\n', offset);
    return last < 0 ? text.size() : last + (isBlock ? 2 : 1);
}

SourceRange breakingComment(const QByteArray &text, qsizetype fault,
                            const std::vector<SourceRange> &comments)
{
    if (comments.empty() || comments.back().end > fault)
        return comments.empty() ? SourceRange() : comments.back();
    QByteArray without = text;
    for (const SourceRange &comment : comments) {
        char *const bytes = without.data();
        std::replace_if(
            bytes + comment.offset, bytes + comment.end, [](char c) { return c != '\n'; }, ' ');
    }
    const Graph::DotReading reading = Graph::readDot(without);
    const bool getsFurther = !reading.fault || reading.fault->offset > fault;
    return getsFurther ? comments.back() : SourceRange();
}

} // namespace ORR::Companion
