#include "layout/sequence/uml_labels.h"

namespace ORR::Graph::Layout {

namespace {

// With its padding.
QSize sizeOf(const TextBlock &label)
{
    return label.isEmpty() ? QSize(0, 0) : paddedSize(label.size());
}

FragmentLabels measureFragment(UmlFragment &fragment, const GraphStyle &style)
{
    FragmentLabels labels{style.clusterLabel(fragment.subgraph), {}};
    fragment.label = sizeOf(labels.title);
    labels.sections.reserve(fragment.sections.size());
    for (UmlSection &section : fragment.sections) {
        labels.sections.append(style.clusterLabel(section.subgraph));
        section.label = sizeOf(labels.sections.constLast());
    }
    return labels;
}

bool needsLabel(const UmlNode &node)
{
    if (node.kind == UmlNode::Spacer)
        return node.node && (node.room.width() == sizeOfLabel || node.room.height() == sizeOfLabel);
    return node.kind == UmlNode::Object;
}

TextBlock measureNode(UmlNode &node, const GraphStyle &style)
{
    if (!needsLabel(node))
        return {};
    TextBlock label = style.nodeLabel(node.node);
    node.label = sizeOf(label);
    return label;
}

TextBlock measureEdge(UmlEdge &edge, const GraphStyle &style)
{
    TextBlock label = style.edgeLabel(edge.edge);
    edge.label = sizeOf(label);
    return label;
}

} // namespace

// The fragments from the last to the first. Fonts tell from the first labels how all others may be
// measured, so the order is kept.
UmlLabels measureLabels(UmlParts &parts, const GraphStyle &style)
{
    UmlLabels labels;
    labels.fragments.resize(parts.fragments.size());
    for (qsizetype i = parts.fragments.size() - 1; i >= 0; --i)
        labels.fragments[i] = measureFragment(parts.fragments[i], style);
    labels.nodes.reserve(parts.nodes.size());
    for (UmlNode &node : parts.nodes)
        labels.nodes.append(measureNode(node, style));
    labels.edges.reserve(parts.edges.size());
    for (UmlEdge &edge : parts.edges)
        labels.edges.append(measureEdge(edge, style));
    return labels;
}

} // namespace ORR::Graph::Layout
