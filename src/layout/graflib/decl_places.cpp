#include "layout/graflib/decl_places.h"

#include "layout/graflib/decl_grid.h"

namespace ORR::Graph::Layout {

ContentPosition contentPosition(const QString &text)
{
    ContentPosition position;
    if (!text.isEmpty())
        position.vertical = text.at(0);
    if (text.size() == 2)
        position.horizontal = text.at(1);
    return position;
}

QPointF contentCorner(const QRectF &place, QSizeF size, ContentPosition position)
{
    double x = place.left();
    if (position.horizontal == u'c')
        x = place.center().x() - size.width() * 0.5;
    else if (position.horizontal == u'r')
        x = place.right() - size.width();
    double y = place.top();
    if (position.vertical == u'b')
        y = place.bottom() - size.height();
    else if (position.vertical == u'm')
        y = place.center().y() - size.height() * 0.5;
    return {x, y};
}

double nodeLeft(const QRectF &place, double left, double width, ContentPosition position)
{
    if (position.horizontal == u'r')
        return place.right() - width;
    if (position.horizontal == u'c')
        return place.center().x() - width * 0.5;
    return left;
}

QRectF placeWithinMargin(const QRectF &given, double margin)
{
    // The vertical sides stay: content at the top starts on the first line of its place.
    return given.adjusted(margin, 0.0, -margin, 0.0);
}

StackPlaces stackPlaces(const QList<StackedNode> &stack, const QRectF &place, QPointF corner,
                        ContentPosition position, double nodeSep)
{
    if (stack.isEmpty())
        return {{}, corner};
    StackPlaces places;
    places.nodes.reserve(stack.size());
    double y = corner.y();
    for (const StackedNode &node : stack) {
        const double left = nodeLeft(place, corner.x(), node.size.width(), position);
        places.nodes.append({left + node.offset, y});
        y += node.size.height() + nodeSep;
    }
    places.gridCorner = {corner.x(), y + (stackToGrid - nodeSep)};
    return places;
}

QList<QRectF> cellPlaces(const QList<AddressedCell> &cells, QPointF corner, const QRectF &place,
                         GridMode mode, const GridSpacing &spacing)
{
    QList<GridCell> columns;
    QList<GridCell> rows;
    for (const AddressedCell &cell : cells) {
        columns.append({cell.column, cell.row, cell.size.width()});
        rows.append({cell.row, cell.column, cell.size.height()});
    }
    const auto horizontal = mode == GridMode::ByRows ? flowPositions : alignedPositions;
    const auto vertical = mode == GridMode::ByColumns ? flowPositions : alignedPositions;
    horizontal(columns, corner.x(), place.right(), spacing.columnGap, spacing.extra);
    vertical(rows, corner.y(), place.bottom(), spacing.rowGap, 0.0);

    QList<QRectF> places;
    places.reserve(cells.size());
    for (qsizetype i = 0; i < cells.size(); ++i) {
        const double extra = columns.at(i).line == 0 ? spacing.extra : 0.0;
        places.append(QRectF(
            QPointF(columns.at(i).from, rows.at(i).from),
            QPointF(columns.at(i).to - spacing.columnGap - extra, rows.at(i).to - spacing.rowGap)));
    }
    return places;
}

} // namespace ORR::Graph::Layout
