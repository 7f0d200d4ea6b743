#include "companion/page/page_data.h"

#include "attributes/paint_attributes.h"
#include "companion/page/chart_values.h"
#include "companion/page/drawn_table.h"
#include "companion/page/json_text.h"
#include "companion/page/packed_attributes.h"
#include "companion/page/packed_lists.h"
#include "companion/page/plain_label.h"
#include "layout/attribute_tables.h"
#include "layout/charts/chart_legend.h"
#include "layout/sequence/umlseq_attributes.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ORR::Companion {

using namespace Graph;
using namespace Qt::StringLiterals;

namespace {

// Digits of a value: none of them is noise of a sum.
constexpr int valueDigits = 10;

QByteArray number(double value)
{
    return std::isfinite(value) ? QByteArray::number(value, 'g', valueDigits) : "0";
}

// The label of an object as it is looked up for the drawing; null for none.
const QString *labelOf(const DotGraph &graph, const DrawnTable::Row &row)
{
    if (row.subgraph)
        return PaintAttributes::label.find(&graph, row.subgraph);
    if (row.node)
        return PaintAttributes::label.find(&graph, row.node);
    return row.edge ? PaintAttributes::label.find(&graph, row.edge) : nullptr;
}

// As the drawing writes it.
QString idOfUndrawn(const DrawnTable::Row &row)
{
    if (row.edge)
        return row.edge->tail->id + "->"_L1 + row.edge->head->id;
    return row.subgraph ? row.subgraph->id : row.node->id;
}

// Writes an object of JSON, member by member.
class DataWriter
{
public:
    DataWriter(const QString &engineName, const DotGraph &drawnGraph,
               const GivenAttributes &givenAttributes, const PageSvg &pageDrawing)
        : engine(engineName), graph(drawnGraph), given(givenAttributes), drawing(pageDrawing),
          table(drawnGraph, pageDrawing)
    {
    }

    QByteArray document()
    {
        add("engine", jsonText(engine));
        add("size",
            '[' + QByteArray::number(drawing.size().width()) + ','
                + QByteArray::number(drawing.size().height()) + ']');
        addBoxes();
        addUndrawn();
        addParents();
        addTexts();
        addEnds();
        addChart();
        if (engine == "umlseq"_L1)
            addHeads();
        addPieces();
        return json + '}';
    }

private:
    void add(const char *name, const QByteArray &value)
    {
        json += (json.isEmpty() ? "{\"" : ",\n\"") + QByteArray(name) + "\":" + value;
    }

    // An entry for each object: `entry(i, row)`.
    template <typename Entry>
    void addColumn(const char *name, Entry entry)
    {
        QByteArray list;
        for (size_t i = 0; i < table.rows().size(); ++i)
            list += (i == 0 ? "" : ",") + entry(i, table.rows()[i]);
        add(name, '[' + list + ']');
    }

    void addBoxes()
    {
        QList<int> sides; // what covers nothing is nowhere else than the one before
        for (const DrawnObject &object : drawing.objects()) {
            const CoveredBox &box = object.box;
            const qsizetype before = std::max<qsizetype>(sides.size() - 4, 0);
            if (!box.isNull())
                sides << box.left << box.top << box.width() << box.height();
            else
                sides << sides.value(before) << sides.value(before + 1) << -1 << -1;
        }
        add("box", differences(sides, 4));
    }

    void addParents()
    {
        QList<int> parents;
        for (const DrawnTable::Row &row : table.rows())
            parents.append(row.parent);
        add("parent", differences(parents));
    }

    // The ids of what has no group in the drawing, and how many of them are subgraphs and nodes.
    void addUndrawn()
    {
        if (table.rows().size() == table.drawnCount())
            return;
        int subgraphs = 0;
        int nodes = 0;
        QByteArray list;
        QString last;
        for (size_t i = table.drawnCount(); i < table.rows().size(); ++i) {
            const DrawnTable::Row &row = table.rows()[i];
            subgraphs += row.subgraph ? 1 : 0;
            nodes += row.node ? 1 : 0;
            list += ',' + textAfter(&last, idOf(i));
        }
        add("undrawn",
            '[' + QByteArray::number(subgraphs) + ',' + QByteArray::number(nodes) + list + ']');
    }

    QString idOf(size_t i) const
    {
        return i < table.drawnCount() ? drawing.objects()[i].id : idOfUndrawn(table.rows()[i]);
    }

    // Labels, and attributes without a label that these tell already.
    void addTexts()
    {
        QString last;
        addColumn("label", [&](size_t i, const auto &row) {
            const QString label = plainLabelOf(row);
            const bool isTold = label.isEmpty() || label == idOf(i);
            return isTold ? QByteArray("0") : textAfter(&last, label);
        });
        PackedAttributes packed(given);
        for (const DrawnTable::Row &row : table.rows())
            packed.add(row.object(), attributes(row));
        add("values", packed.values());
        add("set", packed.setOfEach());
        add("sets", packed.sets());
        add("defaults", packed.defaults());
        add("root", packed.pairs(given.of(graph.root())));
        add("names", packed.names());
    }

    QString plainLabelOf(const DrawnTable::Row &row) const
    {
        const QString *label = labelOf(graph, row);
        return label ? plainLabel(*label, graph.htmlLabels()) : QString();
    }

    AttributeMap attributes(const DrawnTable::Row &row) const
    {
        const AttributeMap all = given.of(row.object());
        const QString *label = all.find("label"_attribute);
        if (!label || *label != plainLabelOf(row))
            return all;
        AttributeMap others;
        for (const AttributeMap::Entry &entry : all) {
            if (entry.name != "label"_attribute)
                others.insert(entry.name, entry.value);
        }
        return others;
    }

    void addEnds()
    {
        QList<int> ends;
        for (size_t i = 0; i < table.rows().size(); ++i) {
            if (const DotEdge *edge = table.rows()[i].edge)
                ends << int(i) << table.find(edge->tail) << table.find(edge->head);
        }
        add("ends", differences(ends, 3));
    }

    void addChart()
    {
        const bool isChart = Layout::hasLegends(engine);
        const DotSubgraph *legend = isChart ? Layout::findLegend(&graph) : nullptr;
        add("legend", QByteArray::number(legend ? table.find(legend) : -1));
        if (!isChart)
            return;
        const ChartValues values(engine, graph, legend);
        addColumn("value",
                  [&](size_t, const auto &row) { return number(values.of(row.object())); });
        add("total", number(values.total()));
    }

    // The uppermost object of each column.
    void addHeads()
    {
        using namespace Layout::UmlseqAttributes;
        QMap<int, int> heads; // by column
        for (size_t i = 0; i < table.rows().size(); ++i) {
            const DotNode *node = table.rows()[i].node;
            if (i >= table.drawnCount() || !node || nodeKind.of(&graph, node) != Object)
                continue;
            const int column = col.of(&graph, node);
            const auto head = heads.constFind(column);
            if (head == heads.cend() || topOf(i) < topOf(size_t(*head)))
                heads.insert(column, int(i));
        }
        QByteArray list;
        for (const int head : std::as_const(heads))
            list += (list.isEmpty() ? "" : ",") + QByteArray::number(head);
        add("heads", '[' + list + ']');
    }

    int topOf(size_t i) const { return drawing.objects()[i].box.top; }

    void addPieces()
    {
        if (table.pieces().isEmpty())
            return;
        QByteArray list;
        for (auto piece = table.pieces().cbegin(); piece != table.pieces().cend(); ++piece)
            list += (list.isEmpty() ? "\"" : ",\"") + QByteArray::number(piece.key())
                + "\":" + QByteArray::number(piece.value());
        add("same", '{' + list + '}');
    }

    QString engine;
    const DotGraph &graph;
    const GivenAttributes &given;
    const PageSvg &drawing;
    DrawnTable table;
    QByteArray json;
};

} // namespace

QByteArray pageData(const QString &engine, const DotGraph &graph, const GivenAttributes &given,
                    const PageSvg &drawing)
{
    return DataWriter(engine, graph, given, drawing).document();
}

} // namespace ORR::Companion
