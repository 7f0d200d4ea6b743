#include "companion/produce/text_fit.h"

#include <QFont>
#include <QFontMetricsF>

namespace ORR::Companion {

namespace {

// Of a longer text no more can be seen, and measuring takes its time.
constexpr qsizetype longestLine = 2000;

QFontMetricsF metricsOf(int fontSize)
{
    QFont font(QString::fromLatin1(drawnFont));
    font.setPixelSize(fontSize); // a unit of drawings is a point
    return QFontMetricsF(font);
}

} // namespace

double lineWidth(const QString &text, int fontSize)
{
    return metricsOf(fontSize).horizontalAdvance(text.left(longestLine));
}

QString elidedLine(const QString &text, int fontSize, double width, Qt::TextElideMode mode)
{
    const QString line = text.size() <= longestLine
        ? text
        : text.left(longestLine / 2) + text.right(longestLine / 2);
    return metricsOf(fontSize).elidedText(line, mode, width);
}

} // namespace ORR::Companion
