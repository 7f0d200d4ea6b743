#include "drawing/layout_table.h"

#include "layout/charts/bar_chart.h"
#include "layout/charts/flat_bubble.h"
#include "layout/charts/matrix_layout.h"
#include "layout/charts/sunburst.h"
#include "layout/charts/treemap.h"
#include "layout/graflib/graflib_decl.h"
#include "layout/graflib/graflib_tree.h"
#include "layout/sequence/uml_sequence.h"

using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace ORR::Drawing {

const std::array<LayoutRow, 8> &layoutTable()
{
    static constexpr std::array<LayoutRow, 8> table{{
        {"gftree"_L1, GraflibTree::run},
        {"gfdecl"_L1, GraflibDecl::run},
        {"umlseq"_L1, UmlSequence::run},
        {"matrix"_L1, MatrixLayout::run},
        {"flatbubble"_L1, FlatBubble::run},
        {"sunburst"_L1, Sunburst::run},
        {"treemap"_L1, Treemap::run},
        {"bar"_L1, BarChart::run},
    }};
    return table;
}

const LayoutRow &layoutRow(LayoutIndex layout)
{
    return layoutTable().at(static_cast<size_t>(layout));
}

QStringList layoutNames()
{
    QStringList names;
    for (const LayoutRow &row : layoutTable())
        names += row.name;
    return names;
}

std::optional<LayoutIndex> chooseLayout(const QString &name)
{
    const qsizetype position = layoutNames().indexOf(name.toLower());
    return position < 0 ? std::nullopt : std::optional(static_cast<LayoutIndex>(position));
}

} // namespace ORR::Drawing
