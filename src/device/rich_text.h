#pragma once

#include <QFont>
#include <QString>
#include <QTextDocument>

#include <memory>

namespace ORR::Graph {

// The one place that hands a rich text to the toolkit, and the fence around it: whatever the text
// says, no file, connection or device is opened, and no text takes the toolkit more than the limits
// of limits.h allow. Pictures come out of the text itself; style sheets and pictures from elsewhere
// do not exist.

// The text, laid out in that font without a margin; null if it is beyond a limit.
std::unique_ptr<QTextDocument> richTextDocument(const QString &html, const QFont &font);

// The text without its markup, as the toolkit reads it; not for one that is beyond a limit.
QString plainTextOf(const QString &html);

// What is left of the text without its tags, a line for each block: what is drawn of one that is
// beyond a limit. The toolkit does not see it.
QString withoutMarkup(const QString &html);

// What the rich texts of one drawing may still cost.
class RichTextBudget
{
public:
    // Whether the text is to be laid out: it is within its limits and those of the drawing. To be
    // asked once for each time that it is drawn.
    bool take(const QString &html);

private:
    qint64 spent = 0;
};

// A font family that is part of a rich text is named by a text that needs no escaping in XML, since
// the toolkit's SVG painter does not escape it. This gives the family back.
QString familyFromFenced(const QString &family);

} // namespace ORR::Graph
