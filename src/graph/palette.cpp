#include "graph/palette.h"

namespace ORR::Graph {

Palette &Palette::instance()
{
    static Palette *const palette = new Palette;
    return *palette;
}

QString Palette::background() const
{
    return QStringLiteral("#FFFFFF");
}

QString Palette::foreground() const
{
    return QStringLiteral("#000000");
}

QString Palette::fill() const
{
    return background();
}

QString Palette::neutral() const
{
    return QStringLiteral("#D4D4D4");
}

QString Palette::none() const
{
    return QStringLiteral("");
}

QString Palette::fontName() const
{
    return QStringLiteral("Arial");
}

QString Palette::fontSize() const
{
    return QStringLiteral("12");
}

} // namespace ORR::Graph
