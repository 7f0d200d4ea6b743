#include "output/visio/visio_shape.h"

#include "device/text_image.h"

#include <algorithm>

namespace ORR::Graph {

VisioShape::VisioShape(int id, VisioKind kind, VisioShape *parent, const VisioCells &formatCells)
    : sheet(id), cells(formatCells), outer(parent), nesting(parent ? parent->level() + 1 : 1),
      element(cellDepth())
{
    content.kind = kind;
    content.geometry.isEdge = content.isEdge();
    if (parent)
        parent->inner.append(this);
}

void VisioShape::addText(QPoint topLeft, const Device::Text *text)
{
    cells.takeFont(content, text, element.body);
    const QRectF box(topLeft, QSizeF(TextImage::textSize(text, false)));
    QRectF &all = content.textBox;
    if (content.texts.isEmpty()) {
        all = box;
    } else {
        all = QRectF(
            QPointF(std::min(all.left(), box.left()), std::min(all.top(), box.top())),
            QPointF(std::max(all.right(), box.right()), std::max(all.bottom(), box.bottom())));
    }
    content.texts.append(text->text());
    knownFrame.reset();
}

void VisioShape::finish(int pageHeight)
{
    // A text that stands for itself is as large as its box.
    if (content.geometry.isEmpty() && !content.texts.isEmpty())
        content.geometry.add(frameRows());
    cells.writeShape(content, frame(pageHeight), element.body);
    content.geometry.keepEnds();
    element.body.squeeze();
    finished = true;
}

QPointF VisioShape::end(VisioEnd end) const
{
    const VisioGeometry &rows = content.geometry;
    return (end == VisioEnd::Begin ? rows.firstRow() : rows.lastRow()).point();
}

int VisioShape::connectionIndex(QPointF devicePoint, int pageHeight)
{
    if (cells.sharesConnectionPoints()) {
        const std::pair<double, double> key(devicePoint.x() + 0.0, devicePoint.y() + 0.0);
        if (const auto known = connectionPoints.constFind(key);
            known != connectionPoints.constEnd())
            return *known;
        connectionPoints.insert(key, connectionCount);
    }
    VisioElement::LatePart &section = element.connections;
    if (section.at < 0) {
        element.settle(section);
        VisioMarkup around(cellDepth());
        cells.startConnections(around);
        section.head = around.markup();
        cells.endConnections(around);
        section.tail = around.markup().sliced(section.head.size());
    }
    const VisioFrame &place = frame(pageHeight);
    VisioMarkup row(cellDepth() + cells.connectionDepth());
    cells.writeConnection(row, connectionCount, place.position(devicePoint), place);
    section.content.append(row.markup());
    return connectionCount++;
}

void VisioShape::glue(VisioEnd end, const QByteArray &formula)
{
    element.settle(element.ends);
    glued.at(static_cast<size_t>(end)) = formula;
}

void VisioShape::writeEnds(int pageHeight)
{
    const auto onPage = [&](VisioEnd which) {
        if (!hasEnds())
            return QPointF();
        const QPointF point = end(which);
        return QPointF(point.x(), pageHeight - point.y());
    };
    element.settle(element.ends);
    VisioMarkup markup(cellDepth());
    cells.writeEnds(markup, onPage(VisioEnd::Begin), onPage(VisioEnd::Finish), glued);
    element.ends.content = markup.markup();
    glued = {};
}

void VisioShape::tie(const QByteArray &entries, bool isContainer)
{
    element.settle(element.container);
    VisioMarkup markup(cellDepth());
    cells.writeContainer(markup, entries, isContainer);
    element.container.content = markup.markup();
}

void VisioShape::appendStart(QByteArray &document) const
{
    VisioMarkup start(depth());
    cells.startShape(start, idText(), !inner.isEmpty());
    document.append(start.markup());
}

void VisioShape::appendEnd(QByteArray &document) const
{
    document.append(QByteArray(depth(), ' ') + "</Shape>\n");
}

const VisioFrame &VisioShape::frame(int pageHeight)
{
    if (!knownFrame)
        knownFrame = VisioFrame(frameRows(), isEdge(), pageHeight, cells.measure());
    return *knownFrame;
}

QList<VisioRow> VisioShape::frameRows() const
{
    if (hasEnds() || content.texts.isEmpty())
        return content.geometry.allRows();
    return VisioGeometry::rectangleRows(content.textBox.topLeft(), content.textBox.bottomRight());
}

} // namespace ORR::Graph
