#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <vector>

// Comments, which the dialect does not have: where a text holds what is meant as one.
namespace ORR::Companion {

struct SourceRange
{
    qsizetype offset = -1; // -1 for none
    qsizetype end = -1;
};

// Where a comment begins in the name at the offset: at its first byte, or behind a name that it is
// glued to. -1 for none. The slashes of an address (`http://`) and the stars of a path (`src/*.h`)
// are none.
qsizetype commentInName(QByteArrayView text, qsizetype offset);

// The same of the value of an attribute, UTF-8, which may well begin with two slashes if it is an
// address, and with a `#` if it is a colour.
qsizetype commentInValue(QByteArrayView text, qsizetype offset, QByteArrayView attribute);

// Behind the comment that begins at the offset.
qsizetype commentEnd(QByteArrayView text, qsizetype offset);

// The one of these comments, which begin up to a fault of the text, that the fault is owed to: the
// one that it is in, or the last one, if the text gets further without them all.
SourceRange breakingComment(const QByteArray &text, qsizetype fault,
                            const std::vector<SourceRange> &comments);

} // namespace ORR::Companion
