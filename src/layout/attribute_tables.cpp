#include "layout/attribute_tables.h"

#include "attributes/paint_attributes.h"
#include "layout/charts/bar_attributes.h"
#include "layout/charts/bubble_attributes.h"
#include "layout/charts/legend_attributes.h"
#include "layout/charts/matrix_attributes.h"
#include "layout/charts/sunburst_attributes.h"
#include "layout/charts/treemap_attributes.h"
#include "layout/graflib/gfdecl_attributes.h"
#include "layout/graflib/gftree_attributes.h"
#include "layout/graflib/graflib_attributes.h"
#include "layout/sequence/umlseq_attributes.h"

namespace ORR::Graph::Layout {

std::span<const AttributeTable *const> attributeTables()
{
    static constexpr const AttributeTable *tables[] = {
        &PaintAttributes::table,   &LegendAttributes::table, &GraflibAttributes::table,
        &GftreeAttributes::table,  &GfdeclAttributes::table, &UmlseqAttributes::table,
        &MatrixAttributes::table,  &BubbleAttributes::table, &SunburstAttributes::table,
        &TreemapAttributes::table, &BarAttributes::table,
    };
    return tables;
}

} // namespace ORR::Graph::Layout
