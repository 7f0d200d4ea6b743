#include "layout/sequence/uml_painter.h"

#include "graph/numbers.h"
#include "layout/sequence/arrow_shapes.h"

namespace ORR::Graph::Layout {

namespace {

// Draws the parts of a diagram one after the other.
class UmlPainter
{
public:
    UmlPainter(const UmlDiagram &umlDiagram, const GraphStyle &graphStyle, Device *drawingDevice)
        : parts(umlDiagram.parts), labels(umlDiagram.labels), extents(umlDiagram.extents),
          anchors(umlDiagram.anchors), style(graphStyle), device(drawingDevice)
    {
    }

    void paint()
    {
        for (qsizetype i = 0; i < parts.fragments.size(); ++i)
            paintFragment(parts.fragments.at(i), labels.fragments.at(i), extents.fragments.at(i));
        for (qsizetype i = 0; i < parts.nodes.size(); ++i)
            paintNode(parts.nodes.at(i), labels.nodes.at(i), extents.nodes.at(i));
        for (qsizetype i = 0; i < parts.edges.size(); ++i)
            paintEdge(parts.edges.at(i), labels.edges.at(i), extents.edges.at(i));
    }

private:
    // The sections from the last to the first, then the title tag.
    void paintFragment(const UmlFragment &fragment, const FragmentLabels &text,
                       const CellExtent &extent)
    {
        const FragmentPlace place = fragmentPlace(fragment, extent, extents, anchors);
        for (qsizetype i = place.sections.size() - 1; i >= 0; --i) {
            DotSubgraph *subgraph = fragment.sections.at(i).subgraph;
            const QRect &section = place.sections.at(i);
            beginFragment(subgraph);
            device->drawRect(section.topLeft(), section.bottomRight(), 0,
                             style.clusterPen(subgraph), style.clusterFill(subgraph, nullptr));
            drawLabel(text.sections.at(i),
                      {section.left(), i == 0 ? place.tag.bottom() : section.top()});
            device->endCluster();
        }
        beginFragment(fragment.subgraph);
        device->drawPolygon(tagOutline(place.tag), style.clusterPen(fragment.subgraph),
                            style.clusterFill(fragment.subgraph, nullptr));
        drawLabel(text.title, place.tag.topLeft());
        device->endCluster();
    }

    // The device is told what a fragment and its sections hold. They are painted one after the
    // other and not within each other, so it has no other way to know.
    void beginFragment(DotSubgraph *subgraph)
    {
        constexpr bool withMembers = true;
        device->beginCluster(subgraph, withMembers);
    }

    // Of a spacer, a device that records objects gets to know the node; nothing is drawn.
    void paintNode(const UmlNode &node, const TextBlock &label, const CellExtent &extent)
    {
        if (!node.node)
            return;
        device->beginNode(node.node);
        switch (node.kind) {
        case UmlNode::Object: {
            const QRect box = nodeBounds(node, extent, anchors);
            drawBox(box, node.node);
            drawLabel(label, box.topLeft());
            break;
        }
        case UmlNode::Activation:
            drawBox(nodeBounds(node, extent, anchors), node.node);
            break;
        case UmlNode::FoundMessage:
            device->drawEllipse(anchors.at(node.cell), dotRadius, dotRadius,
                                style.nodePen(node.node), style.nodeFill(node.node, nullptr));
            break;
        case UmlNode::Spacer:
            break;
        }
        device->endNode();
    }

    // The outline and fill of a box. Fills are asked for without an area to span, so of a gradient
    // the first colour is taken.
    void drawBox(const QRect &box, DotNode *node)
    {
        device->drawRect(box.topLeft(), box.bottomRight(), 0, style.nodePen(node),
                         style.nodeFill(node, nullptr));
    }

    // A return that is not visible is not even told to the device.
    void paintEdge(const UmlEdge &edge, const TextBlock &label, const CellExtent &extent)
    {
        if (edge.kind == UmlEdge::Return && !edge.visible)
            return;
        device->beginEdge(edge.edge);
        const QRect from = boundsOfNode(edge.tail);
        const QRect to = boundsOfNode(edge.head);
        const QRect box = boundsAt(edge.cell, extent, anchors);
        switch (edge.kind) {
        case UmlEdge::LifeLine: // its label takes room and is not drawn
            paintLifeLine(edge, from, to);
            break;
        case UmlEdge::Message:
            drawLabel(label, box.topLeft());
            paintMessage(edge, box, from, to);
            break;
        case UmlEdge::Return:
            drawLabel(label, box.topLeft());
            paintReturn(edge, from, to);
            break;
        }
        device->endEdge();
        device->connect(edge.edge, parts.nodes.at(edge.tail).node, parts.nodes.at(edge.head).node);
    }

    void paintLifeLine(const UmlEdge &edge, const QRect &from, const QRect &to)
    {
        const bool downward =
            parts.nodes.at(edge.tail).cell.row < parts.nodes.at(edge.head).cell.row;
        device->drawPolyline(lifeLine(from, to, anchors.x(edge.cell.col), downward),
                             style.edgePen(edge.edge, false));
    }

    // An arrow with a filled head, on the row of its head. Within one column it is a hook.
    void paintMessage(const UmlEdge &edge, const QRect &box, const QRect &from, const QRect &to)
    {
        Device::Pen *pen = style.edgePen(edge.edge, false);
        const bool rightward = runsRight(parts, edge);
        const Shaft shaft = levelShaft(from, to, to.top(), rightward);
        if (isWithinColumn(parts, edge)) {
            const Hook hook = hookBeside(box, from, to, !edge.label.isEmpty());
            device->drawPolyline(hook.out, pen);
            device->drawPolyline(hook.back, pen);
        } else {
            device->drawPolyline({shaft.tip, shaft.start}, pen);
        }
        const ArrowHead head = arrowHead(shaft.tip, rightward);
        device->drawPolygon({shaft.tip, head.lower, head.upper, shaft.tip}, pen,
                            style.edgeFill(edge.edge, nullptr));
    }

    // An arrow with an open head, on a row of its own.
    void paintReturn(const UmlEdge &edge, const QRect &from, const QRect &to)
    {
        const bool rightward = runsRight(parts, edge);
        const Shaft shaft = levelShaft(from, to, anchors.y(edge.cell.row), rightward);
        const ArrowHead head = arrowHead(shaft.tip, rightward);
        device->drawPolyline({head.lower, shaft.tip, head.upper}, style.edgePen(edge.edge, true));
        device->drawPolyline({shaft.tip, shaft.start}, style.edgePen(edge.edge, false));
    }

    QRect boundsOfNode(qsizetype index) const
    {
        return nodeBounds(parts.nodes.at(index), extents.nodes.at(index), anchors);
    }

    // Within the padding of a box with that corner.
    void drawLabel(const TextBlock &label, QPoint corner)
    {
        TextBlock::draw(
            label,
            saturatedPoint(qint64(corner.x()) + labelPadding, qint64(corner.y()) + labelPadding),
            device);
    }

    const UmlParts &parts;
    const UmlLabels &labels;
    const UmlExtents &extents;
    const GridAnchors &anchors;
    const GraphStyle &style;
    Device *device;
};

} // namespace

void paintUml(const UmlDiagram &diagram, const GraphStyle &style, Device *device)
{
    UmlPainter(diagram, style, device).paint();
}

} // namespace ORR::Graph::Layout
