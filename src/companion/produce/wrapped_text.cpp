#include "companion/produce/wrapped_text.h"

#include <QStringList>
#include <QTextBoundaryFinder>

namespace ORR::Companion {

namespace {

// Longer words are parted without being measured letter by letter from their beginning.
constexpr qsizetype longestPiece = 400;

// The first letters of a word that fit, at least one.
qsizetype fitting(QStringView word, const QFontMetricsF &metrics, double width)
{
    const QString piece = word.first(std::min(word.size(), longestPiece)).toString();
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, piece);
    qsizetype fits = std::max<qsizetype>(1, finder.toNextBoundary());
    for (qsizetype next = finder.toNextBoundary(); next > 0; next = finder.toNextBoundary()) {
        if (metrics.horizontalAdvance(piece.first(next)) > width)
            break;
        fits = next;
    }
    return fits;
}

void appendWrapped(QStringView line, const QFontMetricsF &metrics, double width, QStringList *lines)
{
    QString current;
    for (const QStringView part : line.split(u' ', Qt::SkipEmptyParts)) {
        QStringView word = part;
        const QString longer =
            current.isEmpty() ? word.toString() : current + u' ' + word.toString();
        if (longer.size() <= longestPiece && metrics.horizontalAdvance(longer) <= width) {
            current = longer;
            continue;
        }
        if (!current.isEmpty())
            lines->append(current);
        while (word.size() > longestPiece || metrics.horizontalAdvance(word.toString()) > width) {
            const qsizetype fits = fitting(word, metrics, width);
            if (fits == word.size())
                break;
            lines->append(word.first(fits).toString());
            word = word.sliced(fits);
        }
        current = word.toString();
    }
    lines->append(current);
}

} // namespace

QString wrappedText(const QString &text, const QFontMetricsF &metrics, double width)
{
    QStringList lines;
    for (const QStringView line : QStringView(text).split(u'\n'))
        appendWrapped(line, metrics, width, &lines);
    return lines.join(u'\n');
}

} // namespace ORR::Companion
