#include "companion/page/svg_shape.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <numbers>
#include <vector>

namespace ORR::Companion {

namespace {

constexpr std::array<QByteArrayView, 7> shapes{"polygon", "path",   "rect", "polyline",
                                               "ellipse", "circle", "line"};

// Steps through numbers between which blanks and commas stand.
class Numbers
{
public:
    explicit Numbers(QByteArrayView given) : text(given) { }

    // The letter that stands there, 0 for none.
    char letter()
    {
        skip();
        const bool isLetter = !text.isEmpty() && std::isalpha(static_cast<unsigned char>(text[0]));
        const char c = isLetter ? text[0] : '\0';
        text = text.sliced(isLetter ? 1 : 0);
        return c;
    }
    bool atEnd()
    {
        skip();
        return text.isEmpty();
    }
    double number()
    {
        skip();
        qsizetype end = 0;
        while (end < text.size() && !isBetween(text[end]) && !isCommand(text[end]))
            ++end;
        const double value = text.first(end).toDouble();
        text = text.sliced(end);
        return std::isfinite(value) ? value : 0;
    }
    QPointF point()
    {
        const double x = number();
        return {x, number()};
    }

private:
    static bool isBetween(char c) { return c == ' ' || c == ',' || c == '\n'; }
    static bool isCommand(char c)
    {
        return c != 'e' && std::isalpha(static_cast<unsigned char>(c));
    }
    void skip()
    {
        while (!text.isEmpty() && isBetween(text[0]))
            text = text.sliced(1);
    }

    QByteArrayView text;
};

double degrees(double radians)
{
    return radians * 180 / std::numbers::pi;
}

// From the end points to the centre, as the implementation notes of SVG 1.1 (F.6) have it, for an
// ellipse that is not turned.
void addArc(QPointF radii, bool isLarge, bool isClockwise, const QPointF &end, QPainterPath *path)
{
    double rx = std::fabs(radii.x());
    double ry = std::fabs(radii.y());
    const QPointF half = (path->currentPosition() - end) / 2;
    if (rx == 0 || ry == 0 || half.isNull())
        return path->lineTo(end);
    const double reach = std::hypot(half.x() / rx, half.y() / ry);
    rx *= std::max(reach, 1.0);
    ry *= std::max(reach, 1.0);
    const double square = std::pow(rx * half.y(), 2) + std::pow(ry * half.x(), 2);
    const double share = std::sqrt(std::max(0.0, std::pow(rx * ry, 2) / square - 1));
    const double side = isLarge == isClockwise ? -share : share;
    const QPointF centre(side * rx * half.y() / ry, -side * ry * half.x() / rx);
    const QPointF middle = centre + (path->currentPosition() + end) / 2;
    const auto angleOf = [&](const QPointF &point) {
        return degrees(std::atan2((point.y() - centre.y()) / ry, (point.x() - centre.x()) / rx));
    };
    const double start = angleOf(half);
    double sweep = angleOf(-half) - start;
    if (isClockwise && sweep < 0)
        sweep += 360;
    else if (!isClockwise && sweep > 0)
        sweep -= 360;
    // The toolkit counts angles against the clock.
    path->arcTo(QRectF(middle.x() - rx, middle.y() - ry, 2 * rx, 2 * ry), -start, -sweep);
}

// Of the commands that the program writes.
QPainterPath pathOf(QByteArrayView data)
{
    QPainterPath path;
    Numbers numbers(data);
    for (char command = 0; !numbers.atEnd();) {
        const char given = numbers.letter();
        command = given ? given : command; // one letter may stand for several
        if (command == 'M') {
            path.moveTo(numbers.point());
        } else if (command == 'L') {
            path.lineTo(numbers.point());
        } else if (command == 'h') {
            path.lineTo(path.currentPosition() + QPointF(numbers.number(), 0));
        } else if (command == 'v') {
            path.lineTo(path.currentPosition() + QPointF(0, numbers.number()));
        } else if (command == 'Q') {
            const QPointF control = numbers.point();
            path.quadTo(control, numbers.point());
        } else if (command == 'C') {
            const QPointF first = numbers.point();
            const QPointF second = numbers.point();
            path.cubicTo(first, second, numbers.point());
        } else if (command == 'A') {
            const QPointF radii = numbers.point();
            numbers.number();
            const bool isLarge = numbers.number() != 0;
            const bool isClockwise = numbers.number() != 0;
            addArc(radii, isLarge, isClockwise, numbers.point(), &path);
        } else if ((command == 'Z' || command == 'z') && given) {
            path.closeSubpath();
        } else {
            numbers.number(); // of what nobody writes
        }
    }
    return path;
}

std::vector<QPointF> pointsOf(QByteArrayView text)
{
    std::vector<QPointF> points;
    for (Numbers numbers(text); !numbers.atEnd();)
        points.push_back(numbers.point());
    return points;
}

QRectF rectOf(const SvgTag &tag)
{
    if (tag.name == "rect")
        return {tag.number("x"), tag.number("y"), tag.number("width"), tag.number("height")};
    if (tag.name == "line") {
        const QPointF start(tag.number("x1"), tag.number("y1"));
        return QRectF(start, QPointF(tag.number("x2"), tag.number("y2"))).normalized();
    }
    const double rx = tag.number(tag.name == "circle" ? "r" : "rx");
    const double ry = tag.number(tag.name == "circle" ? "r" : "ry");
    return {tag.number("cx") - rx, tag.number("cy") - ry, 2 * rx, 2 * ry};
}

QRectF boxOf(const std::vector<QPointF> &points)
{
    if (points.empty())
        return {};
    const auto [left, right] = std::ranges::minmax(points, {}, &QPointF::x);
    const auto [top, bottom] = std::ranges::minmax(points, {}, &QPointF::y);
    return {QPointF(left.x(), top.y()), QPointF(right.x(), bottom.y())};
}

bool isBox(const std::vector<QPointF> &p)
{
    return p.size() == 4 && p[0].y() == p[1].y() && p[1].x() == p[2].x() && p[2].y() == p[3].y()
        && p[3].x() == p[0].x();
}

// The corners of a path of lines only, without the end of one that is closed; none for others.
std::vector<QPointF> cornersOf(const QPainterPath &path)
{
    std::vector<QPointF> corners;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (i == 0 ? !element.isMoveTo() : !element.isLineTo())
            return {};
        corners.push_back(element);
    }
    if (corners.size() > 1 && corners.back() == corners.front())
        corners.pop_back();
    return corners;
}

// Of a polygon that is a box only its box.
SvgShape shapeOfPoints(const std::vector<QPointF> &points, const QTransform &plane)
{
    SvgShape shape{plane.mapRect(boxOf(points)), {}};
    if (isBox(points) || points.empty())
        return shape;
    shape.outline.moveTo(plane.map(points.front()));
    for (const QPointF &point : points)
        shape.outline.lineTo(plane.map(point));
    shape.outline.closeSubpath();
    return shape;
}

} // namespace

bool isShape(const SvgTag &tag)
{
    return std::ranges::find(shapes, tag.name) != shapes.end();
}

SvgShape shapeOf(const SvgTag &tag, const QTransform &plane)
{
    if (tag.name == "polygon" || tag.name == "polyline")
        return shapeOfPoints(pointsOf(tag.attribute("points")), plane);
    QPainterPath outline;
    if (tag.name == "path") {
        outline = pathOf(tag.attribute("d"));
        if (const std::vector<QPointF> corners = cornersOf(outline); isBox(corners))
            return shapeOfPoints(corners, plane);
        outline = plane.map(outline);
    } else if (tag.name == "rect" || tag.name == "line") {
        return {plane.mapRect(rectOf(tag)), {}};
    } else {
        outline.addEllipse(plane.mapRect(rectOf(tag)));
    }
    return {outline.boundingRect(), outline};
}

} // namespace ORR::Companion
