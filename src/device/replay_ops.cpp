#include "device/replay_ops.h"

#include "device/xdot_reader.h"
#include "graph/numbers.h"

#include <algorithm>

namespace ORR::Graph::Graphviz {

namespace {

// Enough to complete a curve or a rectangle of which only the beginning stands in the text.
constexpr int mostMissing = 4;

class OpsReplay
{
public:
    OpsReplay(QByteArrayView ops, ReplayState &replayState, Device *drawingDevice,
              const PageTransform &transform, ReplayListener *listener)
        : reader(ops, listener), state(replayState), device(drawingDevice), page(transform)
    {
    }

    void run();

private:
    void replayOp(char op);
    void drawBezier(Device::Color *fill);
    void drawEllipse(Device::Color *fill);
    void drawPolyline();
    void drawPolygon(Device::Color *fill);
    bool drawRoundedRect(const QList<QPoint> &corners, Device::Color *fill);
    void drawPath(Device::Color *fill);
    void setColor(QByteArrayView setting);
    void setStyle();
    void setFont();
    void setGradient(QByteArrayView text);
    void collectText(bool html);
    void skipImage();
    QPoint readPoint();
    QList<QPoint> readPoints();

    XDotReader reader;
    ReplayState &state;
    Device *device;
    const PageTransform &page;
};

QPointF readPathPoint(XDotReader &reader, const PageTransform &page)
{
    const double x = reader.real();
    const double y = reader.real();
    return page.map(x, y);
}

void replayPathOp(char op, XDotReader &reader, const PageTransform &page, Device::Path *path)
{
    const auto point = [&] { return readPathPoint(reader, page); };
    switch (op) {
    case 'M':
        path->moveTo(point());
        break;
    case 'L':
        path->lineTo(point());
        break;
    case 'Z':
        path->closeSubpath();
        break;
    case 'C': {
        const QPointF c1 = point();
        const QPointF c2 = point();
        path->cubicTo(c1, c2, point());
        break;
    }
    case 'Q': {
        const QPointF c = point();
        path->quadTo(c, point());
        break;
    }
    case 'E': {
        const QPointF topLeft = point();
        const QPointF bottomRight = point();
        const double start = reader.real();
        path->arcTo(topLeft, bottomRight, start, reader.real());
        break;
    }
    default:
        reader.tellUnknownOp();
        break;
    }
}

void OpsReplay::run()
{
    while (const char op = reader.nextOp())
        replayOp(op);
}

void OpsReplay::replayOp(char op)
{
    switch (op) {
    case 'B':
        drawBezier(nullptr);
        break;
    case 'b':
        drawBezier(state.fill);
        break;
    case 'E':
        drawEllipse(state.fill);
        break;
    case 'e':
        drawEllipse(nullptr);
        break;
    case 'L':
        drawPolyline();
        break;
    case 'P':
        drawPolygon(state.fill);
        break;
    case 'p':
        drawPolygon(nullptr);
        break;
    case 'C':
        setColor("fillcolor");
        break;
    case 'c':
        setColor("color");
        break;
    case 'F':
        setFont();
        break;
    case 'S':
        setStyle();
        break;
    case 'T':
        collectText(false);
        break;
    case 'H':
        collectText(true);
        break;
    case 'D':
        drawPath(state.fill);
        break;
    case 'd':
        drawPath(nullptr);
        break;
    case 'I':
        skipImage();
        break;
    default:
        reader.tellUnknownOp();
        break;
    }
}

void OpsReplay::drawBezier(Device::Color *fill)
{
    device->drawBezier(readPoints(), state.pen(device), fill);
}

void OpsReplay::drawEllipse(Device::Color *fill)
{
    const QPoint centre = readPoint();
    const int rx = reader.integer();
    const int ry = reader.integer();
    device->drawEllipse(centre, rx, ry, state.pen(device), fill);
}

void OpsReplay::drawPolyline()
{
    device->drawPolyline(readPoints(), state.pen(device));
}

void OpsReplay::drawPolygon(Device::Color *fill)
{
    QList<QPoint> points = readPoints();
    if (drawRoundedRect(points, fill))
        return;
    if (!points.isEmpty() && points.constLast() != points.constFirst())
        points.append(QPoint(points.constFirst()));
    device->drawPolygon(points, state.pen(device), fill);
}

// Four corners of an object with rounded corners are a rectangle between the first and the third.
bool OpsReplay::drawRoundedRect(const QList<QPoint> &corners, Device::Color *fill)
{
    if (corners.size() != 4 || state.cornerRadius == 0)
        return false;
    const auto [left, right] = std::minmax({corners.at(0).x(), corners.at(2).x()});
    const auto [top, bottom] = std::minmax({corners.at(0).y(), corners.at(2).y()});
    const qint64 halfWidth = (qint64(right) - left) / 2;
    const qint64 halfHeight = (qint64(bottom) - top) / 2;
    // The greater of the two, although a corner then may be wider than the shorter side has room
    // for: devices bring it down themselves.
    const int limit = saturated(std::max(halfWidth, halfHeight));
    int radius = truncated(state.cornerRadius);
    if (radius > limit)
        radius = limit - 1;
    device->drawRect({left, top}, {right, bottom}, std::max(radius, 0), state.pen(device), fill);
    return true;
}

void OpsReplay::drawPath(Device::Color *fill)
{
    XDotReader pathReader = reader.within(reader.countedBytes());
    Device::Path *path = device->createPath();
    while (const char op = pathReader.nextOp())
        replayPathOp(op, pathReader, page, path);
    device->drawPath(path, state.pen(device), fill);
}

void OpsReplay::setColor(QByteArrayView setting)
{
    const QByteArrayView value = reader.countedBytes();
    if (value.startsWith('[') || value.startsWith('(')) {
        setGradient(value);
        return;
    }
    reader.tellWord(OpWord::Kind::Color, value);
    applySetting(state, device, setting, value);
}

void OpsReplay::setStyle()
{
    const QByteArrayView style = reader.countedBytes();
    reader.tellWord(OpWord::Kind::Style, style);
    applySetting(state, device, "style", style);
}

// A gradient is a fill, whichever op brought it.
void OpsReplay::setGradient(QByteArrayView text)
{
    const bool radial = text.front() == '(';
    XDotReader fields = reader.within(text.sliced(1));
    const QPointF start = readPathPoint(fields, page);
    const double startRadius = radial ? fields.real() : 0.0;
    const QPointF stop = readPathPoint(fields, page);
    const double stopRadius = radial ? fields.real() : 0.0;
    const qsizetype countPlace = fields.nextPlace();
    const int count = fields.integer();
    if (count < 0)
        fields.tell(OpFault::Cause::NegativeCount, countPlace, count);
    QStringList names;
    QList<double> offsets;
    // All missing stops are equal, so that one of them stands for all.
    for (int i = 0; i < count; ++i) {
        const bool missing = fields.atEnd();
        if (missing)
            fields.tell(OpFault::Cause::MissingPoints, countPlace, count, i);
        offsets.append(fields.real());
        const QByteArrayView name = fields.countedBytes();
        names.append(QString::fromUtf8(name));
        if (missing)
            break;
        fields.tellWord(OpWord::Kind::Color, name);
    }
    state.fill = radial
        ? device->radialGradient(start, startRadius, stop, stopRadius, names, offsets)
        : device->linearGradient(start, stop, names, offsets);
}

void OpsReplay::setFont()
{
    const QByteArrayView size = reader.word();
    applySetting(state, device, "fontname", reader.countedBytes());
    applySetting(state, device, "fontsize", size);
}

// The text stands on a baseline at the point; it is drawn from the top left of its box, which is
// taken to lie the font's size above.
void OpsReplay::collectText(bool html)
{
    const QPoint point = readPoint();
    const int alignment = reader.integer(); // -1 left, 0 centred, otherwise right
    const int width = reader.integer();
    const QString string = reader.countedString();
    Device::Font *font = device->font(state.fontName, state.fontSize, -1);
    Device::Text *text = device->text(string, font, state.penColor);
    qint64 x = point.x();
    if (alignment == 0)
        x += truncated(width * -0.5);
    else if (alignment != -1)
        x -= width;
    const QPoint topLeft = saturatedPoint(x, qint64(point.y()) - font->size());
    state.pendingTexts.append({text, topLeft, width, alignment == -1, html});
}

void OpsReplay::skipImage()
{
    for (int i = 0; i < 4; ++i)
        reader.integer();
    reader.countedBytes();
}

QPoint OpsReplay::readPoint()
{
    const int x = reader.integer();
    const int y = reader.integer();
    return page.map(x, y);
}

QList<QPoint> OpsReplay::readPoints()
{
    const qsizetype countPlace = reader.nextPlace();
    const int count = reader.integer();
    if (count < 0)
        reader.tell(OpFault::Cause::NegativeCount, countPlace, count);
    QList<QPoint> points;
    int missing = 0;
    XDotReader::CountedPoints counted{countPlace, count, 0};
    reader.setCounted(&counted);
    for (int i = 0; i < count; ++i) {
        counted.there = i;
        if (!reader.hasWord()) {
            if (++missing == 1)
                reader.tell(OpFault::Cause::MissingPoints, countPlace, count, i);
            if (missing > mostMissing)
                break;
        }
        points.append(readPoint());
    }
    reader.setCounted(nullptr);
    return points;
}

} // namespace

QPoint PageTransform::map(int x, int y) const
{
    return saturatedPoint(qint64(x) + pageMargin, qint64(canvasHeight) - y + pageMargin);
}

QPointF PageTransform::map(double x, double y) const
{
    return {x + pageMargin, canvasHeight - y + pageMargin};
}

void replayDrawing(QByteArrayView ops, ReplayState &state, Device *device,
                   const PageTransform &page, ReplayListener *listener)
{
    OpsReplay(ops, state, device, page, listener).run();
}

} // namespace ORR::Graph::Graphviz
