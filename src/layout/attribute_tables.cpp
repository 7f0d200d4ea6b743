#include "layout/attribute_tables.h"

#include "attributes/paint_attributes.h"
#include "layout/charts/legend_attributes.h"
#include "layout/charts/treemap_attributes.h"
#include "layout/sequence/umlseq_attributes.h"

namespace ORR::Graph::Layout {

std::span<const AttributeTable *const> attributeTables()
{
    static constexpr const AttributeTable *tables[] = {
        &PaintAttributes::table,
        &LegendAttributes::table,
        &TreemapAttributes::table,
        &UmlseqAttributes::table,
    };
    return tables;
}

} // namespace ORR::Graph::Layout
