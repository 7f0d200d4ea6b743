#include "driver/layout_table.h"

using namespace Qt::StringLiterals;

namespace ORR::Driver {

const std::array<LayoutRow, 8> &layoutTable()
{
    static constexpr std::array<LayoutRow, 8> table{{
        {"gftree"_L1, nullptr},
        {"gfdecl"_L1, nullptr},
        {"umlseq"_L1, nullptr},
        {"matrix"_L1, nullptr},
        {"flatbubble"_L1, nullptr},
        {"sunburst"_L1, nullptr},
        {"treemap"_L1, nullptr},
        {"bar"_L1, nullptr},
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
    if (position < 0 || !layoutTable().at(static_cast<size_t>(position)).run)
        return std::nullopt;
    return static_cast<LayoutIndex>(position);
}

} // namespace ORR::Driver
