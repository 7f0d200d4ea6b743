#pragma once

#include "companion/page/svg_shape.h"

#include <optional>
#include <vector>

namespace ORR::Companion {

// The fills of a drawing so far, each over those before it, to be found by their place. Looking
// takes a bounded time, whatever lies there: of very many in one place the last ones count.
class FillsBelow
{
public:
    explicit FillsBelow(const QSizeF &size);

    // luminance: of the fill, none for one of several colours.
    void add(SvgShape shape, std::optional<double> luminance);

    struct Fill
    {
        SvgShape shape;
        std::optional<double> luminance;
    };
    // The uppermost one at a point, null for none.
    const Fill *at(const QPointF &point) const;
    // Whether the box of one holds the box, or only shares a part of it.
    bool holds(const QRectF &box) const;
    bool touches(const QRectF &box) const;

private:
    QRect cellsOf(const QRectF &box) const;
    const std::vector<size_t> &cellAt(int column, int row) const;

    QSizeF cellSize;
    std::vector<Fill> fills;
    std::vector<std::vector<size_t>> cells; // those that reach into each, by their places
    std::vector<size_t> large; // those that would fill many cells
};

} // namespace ORR::Companion
