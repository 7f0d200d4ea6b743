#include "device/replay_state.h"

#include "graph/numbers.h"

namespace ORR::Graph::Graphviz {

namespace {

void applyStyle(ReplayState &state, QByteArrayView style)
{
    if (style == QByteArrayView("dashed"))
        state.penStyle = Device::Pen::Dashed;
    else if (style == QByteArrayView("dotted"))
        state.penStyle = Device::Pen::Dotted;
    else if (style == QByteArrayView("solid"))
        state.penStyle = Device::Pen::Solid;
    else if (style == QByteArrayView("bold"))
        state.penWidth = 2;
}

} // namespace

ReplayState ReplayState::inner(ReplayObjectKind innerKind) const
{
    ReplayState frame = *this;
    frame.pendingTexts.clear();
    frame.kind = innerKind;
    return frame;
}

void applySetting(ReplayState &state, Device *device, QByteArrayView name, QByteArrayView value)
{
    if (name == QByteArrayView("color"))
        state.penColor = device->color(QString::fromUtf8(value));
    else if (name == QByteArrayView("fillcolor"))
        state.fill = device->color(QString::fromUtf8(value));
    else if (name == QByteArrayView("fontname"))
        state.fontName = QString::fromUtf8(value);
    else if (name == QByteArrayView("fontsize"))
        state.fontSize = numberFrom(value);
    else if (name == QByteArrayView("penwidth"))
        state.penWidth = truncated(numberFrom(value));
    else if (name == QByteArrayView("style"))
        applyStyle(state, value);
    else if (name == QByteArrayView("rounded"))
        state.cornerRadius = numberFrom(value);
}

} // namespace ORR::Graph::Graphviz
