#include "output/xdot_text.h"

#include "graph/numbers.h"

#include <QStringList>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

QString stopsText(const Device::Color *gradient)
{
    QString text = QString::number(gradient->stopCount());
    for (int i = 0; i < gradient->stopCount(); ++i) {
        const QString name = gradient->name(i);
        text += u' ' + numberText(gradient->offset(i)) + u' ' + xdotCounted(name);
    }
    return text;
}

QString gradientText(const Device::Color *gradient, int pageHeight)
{
    const bool linear = gradient->type() == Device::Color::Linear;
    const QString focalRadius = numberText(gradient->focalRadius());
    const QString radius = numberText(gradient->radius());
    if (gradient->stopCount() == 0) {
        return linear ? u"[%1 %2 %3 %4 %5]"_s
                      : u"(%3 %4 "_s + focalRadius + u" %5 %6 "_s + radius + u" %7)"_s;
    }
    const QString start =
        numberText(gradient->start().x()) + u' ' + numberText(pageHeight - gradient->start().y());
    const QString stop =
        numberText(gradient->stop().x()) + u' ' + numberText(pageHeight - gradient->stop().y());
    if (linear)
        return u'[' + start + u' ' + stop + u' ' + stopsText(gradient) + u']';
    return u'(' + start + u' ' + focalRadius + u' ' + stop + u' ' + radius + u' '
        + stopsText(gradient) + u')';
}

QString styleOp(int style)
{
    switch (style) {
    case Device::Pen::Solid:
        return u"S 5 -solid"_s;
    case Device::Pen::Dashed:
        return u"S 6 -dashed"_s;
    case Device::Pen::Dotted:
        return u"S 6 -dotted"_s;
    default:
        return {};
    }
}

QString colorOp(QChar op, const QString &name)
{
    return op + u' ' + xdotCounted(name) + u' ';
}

} // namespace

QString xdotCounted(const QString &text)
{
    // A zero byte would end all of the drawing for its reader.
    const QString written = QString(text).remove(QChar::Null);
    // A backslash in front of a line feed continues a line: neither of the two is read.
    const qsizetype unread = 2 * written.count("\\\n"_L1);
    return QString::number(written.toUtf8().size() - unread) + " -"_L1 + written;
}

QString xdotPoint(QPoint point, int pageHeight)
{
    return QString::number(point.x()) + u' ' + coordinateText(qint64(pageHeight) - point.y());
}

QString xdotPoints(const QList<QPoint> &points, int pageHeight)
{
    QString text;
    for (const QPoint point : points) {
        if (!text.isEmpty())
            text += u' ';
        text += xdotPoint(point, pageHeight);
    }
    return text;
}

QString xdotPaint(const Device::Pen *pen, const Device::Color *fill, int pageHeight)
{
    QStringList ops;
    if (pen) {
        const QString style = styleOp(pen->style());
        if (!style.isEmpty())
            ops.append(style);
        const QString name = pen->color() ? pen->color()->name(0) : QString();
        if (!name.isEmpty())
            ops.append(colorOp(u'c', name));
    }
    if (fill) {
        const QString name = xdotFill(fill, pageHeight);
        if (!name.isEmpty())
            ops.append(colorOp(u'C', name));
    }
    return ops.join(u' ');
}

QString xdotFill(const Device::Color *fill, int pageHeight)
{
    return fill->type() == Device::Color::Solid ? fill->name(0) : gradientText(fill, pageHeight);
}

} // namespace ORR::Graph
