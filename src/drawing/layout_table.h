#pragma once

#include "layout/layout_context.h"

#include <QLatin1StringView>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace ORR::Drawing {

// The layout engines by their position in the table.
enum class LayoutIndex { GfTree, GfDecl, UmlSeq, Matrix, FlatBubble, Sunburst, Treemap, Bar };

// One layout engine.
struct LayoutRow
{
    QLatin1StringView name; // the value of -K
    // Lays out and draws. Empty for success, otherwise a message for the user that ends in a line
    // feed.
    QString (*run)(const Graph::LayoutContext &context);
};

// All engines, each at its position.
const std::array<LayoutRow, 8> &layoutTable();
const LayoutRow &layoutRow(LayoutIndex layout);

// The names in the order of the table.
QStringList layoutNames();

// The engine of a name (the value of -K, in any case), or nothing.
std::optional<LayoutIndex> chooseLayout(const QString &name);

} // namespace ORR::Drawing
