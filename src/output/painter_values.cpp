#include "output/painter_values.h"

#include "device/color_value.h"

#include <QLinearGradient>
#include <QList>
#include <QRadialGradient>

#include <cmath>

namespace ORR::Graph {

namespace {

// The toolkit refuses others, with a warning.
constexpr int widestPen = 32767;

QColor colorOfStop(const Device::Color *color, int stop)
{
    const ColorValue value = ColorValue::of(color, stop);
    return {value.red(), value.green(), value.blue(), value.alpha()};
}

QBrush withStops(QGradient gradient, const Device::Color *fill)
{
    for (int i = 0; i < fill->stopCount(); ++i) {
        const double offset = fill->offset(i);
        if (offset >= 0.0 && offset <= 1.0)
            gradient.setColorAt(offset, colorOfStop(fill, i));
    }
    return gradient;
}

// The toolkit's painter runs out of its colour tables where the squares of the numbers overflow.
constexpr double largestNumber = 1e9;

// Whether the gradient lies where a drawing can be, which no coordinate that is not a number does.
bool isPaintable(const Device::Color *gradient)
{
    const QPointF start = gradient->start();
    const QPointF stop = gradient->stop();
    for (const double number : {start.x(), start.y(), stop.x(), stop.y(), gradient->radius()}) {
        if (!(std::fabs(number) <= largestNumber))
            return false;
    }
    return true;
}

} // namespace

QColor painterColor(const Device::Color *color)
{
    return colorOfStop(color, 0);
}

QPen painterPen(const Device::Pen *pen)
{
    if (!pen)
        return {};
    if (!pen->color())
        return QPen(Qt::NoPen);
    QPen result(painterColor(pen->color()));
    if (pen->width() >= 0 && pen->width() <= widestPen)
        result.setWidth(pen->width());
    if (pen->style() == Device::Pen::Dashed) {
        result.setStyle(Qt::DashLine);
        result.setDashPattern({5.0, 5.0});
    } else if (pen->style() == Device::Pen::Dotted) {
        result.setStyle(Qt::DotLine);
        result.setCapStyle(Qt::RoundCap);
        result.setDashPattern({0.01, 1.99});
    }
    return result;
}

QBrush painterBrush(const Device::Color *fill)
{
    if (!fill)
        return Qt::NoBrush;
    if (!isPaintable(fill))
        return painterColor(fill);
    switch (fill->type()) {
    case Device::Color::Linear:
        return withStops(QLinearGradient(fill->start(), fill->stop()), fill);
    case Device::Color::Radial:
        return withStops(QRadialGradient(fill->stop(), fill->radius(), fill->start()), fill);
    case Device::Color::Solid:
        break;
    }
    return painterColor(fill);
}

} // namespace ORR::Graph
