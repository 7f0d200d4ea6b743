#pragma once

#include <QByteArrayView>

namespace ORR::Companion {

// What is seen of a DOT text without its grammar, outside of what is quoted or a comment.
struct ForeignTextMeasure
{
    int deepest = 0; // nesting of braces, or of "<" in HTML
    qsizetype longestString = 0; // in bytes
    qsizetype graphEnd = 0; // behind the brace that closes the first graph, or the end of the text
    qint64 restLine = 0; // of what follows that graph; 0 if nothing does
};
ForeignTextMeasure measuredForeignText(QByteArrayView text);

} // namespace ORR::Companion
