#include "device/ellipse.h"

#include <cmath>

namespace ORR::Graph {

namespace {

// Deliberately not a more precise one: the last digits of every arc depend on it.
constexpr double pi = 3.14159265;

// The angle that differs by whole turns and lies from -180 up to but not including 180.
double withinHalfTurns(double angle)
{
    const double turned = std::fmod(angle, 360.0);
    if (turned >= 180.0)
        return turned - 360.0;
    if (turned < -180.0)
        return turned + 360.0;
    return turned;
}

} // namespace

QPointF pointOnEllipse(QPointF centre, double rx, double ry, double angle)
{
    angle = withinHalfTurns(angle);
    if (angle == 90.0)
        return {centre.x(), centre.y() - ry};
    if (angle == -90.0)
        return {centre.x(), centre.y() + ry};
    double t = std::atan(std::tan(angle * pi / 180) * rx / ry);
    if (angle > 90.0 && angle <= 180.0)
        t += pi;
    else if (angle >= -180.0 && angle <= -90.0)
        t -= pi;
    return {centre.x() + std::cos(t) * rx, centre.y() - std::sin(t) * ry};
}

} // namespace ORR::Graph
