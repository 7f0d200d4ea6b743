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

#include <algorithm>
#include <initializer_list>
#include <iterator>

namespace ORR::Graph::Layout {

namespace {

using enum AttributeElement;

constexpr const AttributeTable *gftreeTables[] = {
    &PaintAttributes::table, &GraflibAttributes::table, &GftreeAttributes::table};
constexpr const AttributeTable *gfdeclTables[] = {
    &PaintAttributes::table, &GraflibAttributes::table, &GfdeclAttributes::table};
constexpr const AttributeTable *umlseqTables[] = {&PaintAttributes::table,
                                                  &UmlseqAttributes::table};
constexpr const AttributeTable *matrixTables[] = {&PaintAttributes::table,
                                                  &MatrixAttributes::table};
constexpr const AttributeTable *bubbleTables[] = {&PaintAttributes::table, &LegendAttributes::table,
                                                  &BubbleAttributes::table};
constexpr const AttributeTable *sunburstTables[] = {
    &PaintAttributes::table, &LegendAttributes::table, &SunburstAttributes::table};
constexpr const AttributeTable *treemapTables[] = {
    &PaintAttributes::table, &LegendAttributes::table, &TreemapAttributes::table};
constexpr const AttributeTable *barTables[] = {&PaintAttributes::table, &LegendAttributes::table,
                                               &BarAttributes::table};

// Subgraphs are painted by the rows of frames; edges have no labels.
constexpr PaintedElements ofGraflib{Node, Node | Edge, Node};
constexpr PaintedElements ofSequence{Cluster | Node | Edge, Cluster | Node | Edge, Cluster | Node};
// Headers are mere texts. The squares of edges are filled with the colour of their lines. That the
// label of the graph is measured, though not drawn, can widen the page.
constexpr PaintedElements ofMatrix{Root | Cluster | Node | Edge, Cluster | Edge, Cluster};
// The graph itself may be the legend of a chart, and its label the title.
constexpr PaintedElements ofArea{Root | Cluster | Node, Cluster | Node, Cluster | Node};
// The disc in the middle is that of the graph.
constexpr PaintedElements ofSunburst{Root | Cluster | Node, Root | Cluster | Node,
                                     Root | Cluster | Node};
// No subgraph but the legend, which has a title only.
constexpr PaintedElements ofBars{Root | Cluster | Node, Node, Node};

constexpr EngineTables engines[] = {
    {"gftree", gftreeTables, ofGraflib},  {"gfdecl", gfdeclTables, ofGraflib},
    {"umlseq", umlseqTables, ofSequence}, {"matrix", matrixTables, ofMatrix},
    {"flatbubble", bubbleTables, ofArea}, {"sunburst", sunburstTables, ofSunburst},
    {"treemap", treemapTables, ofArea},   {"bar", barTables, ofBars},
};

bool isOneOf(const AttributeRow &row, std::initializer_list<const AttributeRow *> rows)
{
    return std::find(rows.begin(), rows.end(), &row) != rows.end();
}

} // namespace

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

std::span<const EngineTables> engineTables()
{
    return engines;
}

bool hasLegends(const QString &engine)
{
    return std::any_of(std::begin(engines), std::end(engines), [&](const EngineTables &one) {
        return engine == latin1(one.engine)
            && std::find(one.tables.begin(), one.tables.end(), &LegendAttributes::table)
            != one.tables.end();
    });
}

AttributeElements elementsRead(const EngineTables &engine, const AttributeRow &row)
{
    using namespace PaintAttributes;
    const auto &[labels, lines, fills] = engine.painted;
    if (isOneOf(row, {&label, &fontName, &fontSize, &fontColor}))
        return row.elements & labels;
    if (isOneOf(row, {&color, &penWidth}))
        return row.elements & lines;
    if (isOneOf(row, {&fillColor, &gradientAngle}))
        return row.elements & fills;
    // Dashes of lines, and the kind of a gradient.
    if (isOneOf(row, {&style}))
        return row.elements & (lines | fills);
    return row.elements;
}

} // namespace ORR::Graph::Layout
