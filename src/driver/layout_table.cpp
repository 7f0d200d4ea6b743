#include "driver/layout_table.h"

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

namespace ORR::Driver {

namespace {

// Engines start in one of four ways, of which each has one: both given to the constructor, a
// function of the context, an object that runs with the context, or one that runs with the two
// apart. The engine lives as long as its run.
template <typename Engine>
QString start(Graph::LayoutContext context)
{
    if constexpr (requires { Engine(context.graph, context.device).run(); })
        return Engine(context.graph, context.device).run();
    else if constexpr (requires { Engine::run(context); })
        return Engine::run(context);
    else if constexpr (requires { Engine().run(context); })
        return Engine().run(context);
    else
        return Engine().run(context.graph, context.device);
}

} // namespace

const std::array<LayoutRow, 8> &layoutTable()
{
    static constexpr std::array<LayoutRow, 8> table{{
        {"gftree"_L1, start<GraflibTree>},
        {"gfdecl"_L1, start<GraflibDecl>},
        {"umlseq"_L1, start<UmlSequence>},
        {"matrix"_L1, start<MatrixLayout>},
        {"flatbubble"_L1, start<FlatBubble>},
        {"sunburst"_L1, start<Sunburst>},
        {"treemap"_L1, start<Treemap>},
        {"bar"_L1, start<BarChart>},
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

} // namespace ORR::Driver
