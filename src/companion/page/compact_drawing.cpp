#include "companion/page/compact_drawing.h"

#include <QHash>

#include <algorithm>

namespace ORR::Companion {

namespace {

// Beyond these the page leaves texts out that are too small to be read.
constexpr qsizetype manyTexts = 2000;

constexpr QByteArrayView rootTag = "<svg id=\"drawing\"";
constexpr QByteArrayView familyStart = " font-family=\"";
constexpr QByteArrayView sizeStart = " font-size=\"";

// What follows a name and the quotes before its value.
QByteArrayView valueAt(const QByteArray &drawing, qsizetype start)
{
    return QByteArrayView(drawing).sliced(start, drawing.indexOf('"', start) - start);
}

// The attributes of a class of drawings with many texts; empty for others.
QByteArray markOfMany(const QByteArray &drawing)
{
    if (drawing.count("<text") <= manyTexts)
        return {};
    int largest = 0;
    for (qsizetype at = drawing.indexOf(sizeStart); at >= 0; at = drawing.indexOf(sizeStart, at)) {
        at += sizeStart.size();
        largest = std::max(largest, valueAt(drawing, at).toInt());
    }
    return " class=\"many\" data-largest=\"" + QByteArray::number(largest) + '"';
}

// The family and size that most texts have, as they are written; the first of several, empty for
// none.
QByteArray commonFont(const QByteArray &drawing)
{
    QHash<QByteArray, qsizetype> counts;
    QByteArray common;
    for (qsizetype at = drawing.indexOf(familyStart); at >= 0;
         at = drawing.indexOf(familyStart, at + 1)) {
        qsizetype end = drawing.indexOf('"', at + familyStart.size()) + 1;
        if (!QByteArrayView(drawing).sliced(end).startsWith(sizeStart))
            continue;
        end = drawing.indexOf('"', end + sizeStart.size()) + 1;
        const QByteArray font = drawing.sliced(at, end - at);
        if (++counts[font] > counts.value(common))
            common = font;
    }
    return common;
}

// Quotes stand around values only, so that these bytes are attributes.
QByteArray takeInherited(QByteArray *drawing)
{
    QByteArray inherited = commonFont(*drawing);
    if (!inherited.isEmpty()) {
        drawing->replace(" fill=\"#000000\" font-family=", " font-family=");
        drawing->replace(inherited, "");
        inherited += " fill=\"#000000\"";
    }
    const QByteArray line = " stroke=\"#000000\"";
    const QByteArray none = " stroke=\"none\"";
    if (drawing->count(line) * line.size() > drawing->count("<text") * none.size()) {
        drawing->replace(line, "");
        drawing->replace("<text", "<text" + none);
        inherited += line;
    }
    return inherited;
}

bool isLetterOrComma(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == ',';
}

// The commands of paths need no blanks around their letters and commas.
QByteArray withShorterPaths(const QByteArray &drawing)
{
    constexpr QByteArrayView path = "<path d=\"";
    QByteArray shorter;
    shorter.reserve(drawing.size());
    qsizetype kept = 0; // the bytes ahead are in `shorter` already
    for (qsizetype at = drawing.indexOf(path); at >= 0; at = drawing.indexOf(path, kept)) {
        at += path.size();
        shorter += QByteArrayView(drawing).sliced(kept, at - kept);
        kept = drawing.indexOf('"', at);
        for (; at < kept; ++at) {
            const bool goes = drawing[at] == ' '
                && (isLetterOrComma(drawing[at - 1]) || isLetterOrComma(drawing[at + 1]));
            if (!goes)
                shorter += drawing[at];
        }
    }
    return shorter + drawing.sliced(kept);
}

} // namespace

void compactDrawing(QByteArray *drawing)
{
    // Browsers make a node of each line end and the blank behind it, which takes as long as an
    // element. Texts of several lines have two blanks there.
    drawing->replace(">\n <", "><").replace(">\n<", "><");
    *drawing = withShorterPaths(*drawing);
    QByteArray ofRoot = markOfMany(*drawing);
    const bool hasRichTexts = drawing->count("<g ") > drawing->count("<g data-kind=");
    if (!hasRichTexts)
        ofRoot += takeInherited(drawing);
    drawing->insert(rootTag.size(), ofRoot);
}

} // namespace ORR::Companion
