#include "output/svg.h"

#include "device/color_value.h"
#include "graph/html_text.h"
#include "graph/numbers.h"
#include "output/svg_path.h"
#include "output/xml_text.h"

#include <QRegularExpression>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

constexpr int wholeColor = -1; // instead of the index of a stop
constexpr int pointsPerCurve = 3;

bool isName(const Device::Color *color, QLatin1StringView name)
{
    return color && color->name(0).compare(name, Qt::CaseInsensitive) == 0;
}

bool startsWithBlank(QByteArrayView line)
{
    return line.startsWith(' ') || line.startsWith('\t');
}

int difference(int a, int b)
{
    return saturated(qint64(a) - b);
}

int sum(int a, int b)
{
    return saturated(qint64(a) + b);
}

// The text with each numeric reference resolved that it held on entry. A reference that a
// replacement forms is resolved only if the same one stood in the text before.
QString withResolvedReferences(QString text)
{
    static const QRegularExpression reference(u"&#(\\d+);"_s);
    const QString before = text;
    QRegularExpressionMatchIterator matches = reference.globalMatch(before);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        char16_t code = 0;
        for (const QChar digit : match.capturedView(1))
            code = static_cast<char16_t>(code * 10 + (digit.unicode() - u'0'));
        text.replace(match.captured(0), QString(QChar(code)));
    }
    return text;
}

QString plainText(const QString &html)
{
    // An ampersand is resolved once more, for what was escaped twice.
    QString text = withoutTags(html);
    text.replace("&amp;"_L1, "&"_L1);
    return withResolvedReferences(withResolvedEntities(text)).trimmed();
}

} // namespace

Svg::Svg(const OutputTarget &target, const DrawingExtras &drawingExtras)
    : out(target), extras(drawingExtras)
{
}

void Svg::begin(int width, int height)
{
    if (!out.isOpen())
        return;
    out << "<?xml version=\"1.0\"?>\n";
    out << "<svg width=\"" << width << "\" height=\"" << height << "\" ";
    out << "xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\">\n";
    writeBackground(width, height);
}

QString Svg::end()
{
    if (!out.isOpen())
        return u"Unable to open file\n"_s;
    out << "</svg>\n";
    return out.finish() ? QString() : u"Unable to write to file\n"_s;
}

void Svg::drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    if (!out.isOpen())
        return;
    beginShape(fill);
    out << " <path d=\"";
    if (!points.isEmpty())
        out << "M " << points.constFirst().x() << " " << points.constFirst().y();
    for (qsizetype i = pointsPerCurve; i < points.size(); i += pointsPerCurve) {
        const QPoint *p = points.constData() + i - 2;
        out << " C " << p[0].x() << " " << p[0].y() << ", " << p[1].x() << " " << p[1].y() << ", "
            << p[2].x() << " " << p[2].y();
    }
    out << "\"";
    endShape(pen, fill);
}

void Svg::drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill)
{
    if (!out.isOpen())
        return;
    beginShape(fill);
    out << " <ellipse cx=\"" << centre.x() << "\" cy=\"" << centre.y() << "\" rx=\"" << rx
        << "\" ry=\"" << ry << "\"";
    endShape(pen, fill);
}

void Svg::drawPolyline(const QList<QPoint> &points, Pen *pen)
{
    if (!out.isOpen())
        return;
    out << " <polyline points=\"";
    writePoints(points);
    out << "\"";
    endShape(pen, nullptr);
}

void Svg::drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    if (!out.isOpen())
        return;
    beginShape(fill);
    out << " <polygon points=\"";
    writePoints(points);
    out << "\"";
    endShape(pen, fill);
}

void Svg::drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill)
{
    if (!out.isOpen())
        return;
    beginShape(fill);
    out << " <rect x=\"" << topLeft.x() << "\" y=\"" << topLeft.y() << "\" width=\""
        << difference(bottomRight.x(), topLeft.x()) << "\" height=\""
        << difference(bottomRight.y(), topLeft.y()) << "\"";
    if (radius != 0)
        out << " rx=\"" << radius << "\"";
    endShape(pen, fill);
}

void Svg::drawText(QPoint topLeft, Text *text)
{
    if (!out.isOpen() || !text)
        return;
    const Font *font = text->font() ? text->font() : defaultFont();
    const QByteArray escaped = xmlEscaped(text->text(), XmlForm::Text);
    int y = sum(topLeft.y(), font->size());
    out << " <text";
    if (!escaped.contains('\n')) {
        out << " x=\"" << topLeft.x() << "\" y=\"" << y << "\"";
        writeTextStyle(text, font);
        if (startsWithBlank(escaped))
            out << " xml:space='preserve'";
        out << ">" << escaped;
    } else {
        writeTextStyle(text, font);
        out << ">";
        for (const QByteArray &line : escaped.split('\n')) {
            out << "\n  <tspan x=\"" << topLeft.x() << "\" y=\"" << y << "\"";
            if (startsWithBlank(line))
                out << " xml:space='preserve'";
            out << ">" << line << "</tspan>";
            y = sum(y, font->size());
        }
    }
    out << "</text>\n";
}

void Svg::drawRichText(QPoint topLeft, Text *richText)
{
    if (!out.isOpen() || !richText)
        return;
    drawText(topLeft, text(plainText(richText->text()), richText->font(), richText->color()));
}

Device::Path *Svg::createPath()
{
    return new SvgPath;
}

void Svg::drawPath(Path *path, Pen *pen, Color *fill)
{
    const std::unique_ptr<Path> owned(path);
    const auto *svgPath = dynamic_cast<const SvgPath *>(path);
    if (!svgPath || !out.isOpen())
        return;
    beginShape(fill);
    out << " <path d=\"" << svgPath->data().trimmed() << "\"";
    endShape(pen, fill);
}

void Svg::writeExtraAttributes() { }

// Each use of a gradient is preceded by a definition of its own.
QByteArray Svg::defineGradient(const Color *color)
{
    const QByteArray id = "Gradient" + QByteArray::number(++gradientCount);
    writeGradient(color, id);
    return id;
}

void Svg::writeBackground(int width, int height)
{
    if (extras.background.isEmpty())
        return;
    out << " <rect x=\"0\" y=\"0\" width=\"" << width << "\" height=\"" << height << "\"";
    paintValue(color(extras.background), "fill", "fill-opacity", wholeColor);
    out << "/>\n";
}

void Svg::beginShape(const Color *fill)
{
    if (fill && fill->type() != Color::Solid)
        gradientId = defineGradient(fill);
}

void Svg::endShape(const Pen *pen, const Color *fill)
{
    writeStroke(pen);
    writeFill(fill);
    writeExtraAttributes();
    out << "/>\n";
}

void Svg::writePoints(const QList<QPoint> &points)
{
    const char *separator = "";
    for (const QPoint p : points) {
        out << separator << p.x() << "," << p.y();
        separator = " ";
    }
}

void Svg::writeGradient(const Color *color, QByteArrayView id)
{
    const bool isLinear = color->type() == Color::Linear;
    const QPointF start = color->start();
    const QPointF stop = color->stop();
    if (isLinear) {
        out << "<linearGradient x1=\"" << start.x() << "\" y1=\"" << start.y() << "\" x2=\""
            << stop.x() << "\" y2=\"" << stop.y() << "\" ";
    } else {
        out << "<radialGradient fx=\"" << start.x() << "\" fy=\"" << start.y() << "\" cx=\""
            << stop.x() << "\" cy=\"" << stop.y() << "\" r=\"" << color->radius() << "\" ";
    }
    out << "id=\"" << id << "\" gradientUnits=\"userSpaceOnUse\">\n";
    for (int i = 0; i < color->stopCount(); ++i) {
        out << "<stop offset=\"" << color->offset(i) << "\"";
        paintValue(color, "stop-color", "stop-opacity", i);
        out << "/>\n";
    }
    out << (isLinear ? "</linearGradient>\n" : "</radialGradient>\n");
}

void Svg::writeStroke(const Pen *pen)
{
    paintValue(pen ? pen->color() : nullptr, "stroke", "stroke-opacity", wholeColor);
    if (!pen)
        return;
    if (pen->width() > 1)
        out << " stroke-width=\"" << pen->width() << "\"";
    if (pen->style() == Pen::Dashed)
        out << " stroke-dasharray=\"5\"";
    else if (pen->style() == Pen::Dotted)
        out << " stroke-dasharray=\"1,3\"";
}

void Svg::writeFill(const Color *fill)
{
    // The default background stays open, so that what lies below shows through. It is told by its
    // text alone: the name "white" does fill.
    const Color *painted = isName(fill, "#FFFFFF"_L1) ? nullptr : fill;
    paintValue(painted, "fill", "fill-opacity", wholeColor);
}

void Svg::writeTextStyle(const Text *text, const Font *font)
{
    if (isName(text->color(), "#000000"_L1))
        out << " fill=\"#000000\"";
    else
        paintValue(text->color(), "fill", "", wholeColor);
    out << " font-family=\"" << xmlEscaped(font->family(), XmlForm::Text) << "\" font-size=\""
        << font->size() << "\"";
    if (font->style() & Font::Bold)
        out << " font-weight=\"bold\"";
    if (font->style() & Font::Italic)
        out << " font-style=\"italic\"";
}

void Svg::paintValue(const Color *color, QByteArrayView attribute, QByteArrayView opacityAttribute,
                     int stop)
{
    if (!color) {
        out << " " << attribute << "=\"none\"";
        return;
    }
    if (color->type() != Color::Solid && stop == wholeColor) {
        out << " " << attribute << "=\"url(#" << gradientId << ")\"";
        return;
    }
    const Paint paint = paintOf(color->name(stop == wholeColor ? 0 : stop));
    if (paint.alpha != 255 && !opacityAttribute.isEmpty())
        out << " " << opacityAttribute << "=\"" << paint.alpha / 255.0 << "\"";
    out << " " << attribute << "=\"" << paint.value << "\"";
}

Svg::Paint Svg::paintOf(const QString &colorName)
{
    const auto known = paints.constFind(colorName);
    if (known != paints.cend())
        return *known;
    const ColorValue value(colorName);
    return *paints.insert(colorName, {value.toString().toLatin1(), value.alpha()});
}

} // namespace ORR::Graph
