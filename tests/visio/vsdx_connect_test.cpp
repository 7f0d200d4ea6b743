#include "visio_reading.h"

#include "support/golden.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// A node's rectangle of 72 by 36, its top left corner there.
void drawNode(Device &device, DotNode *node, QPoint topLeft)
{
    device.beginNode(node);
    device.drawRect(topLeft, topLeft + QPoint(72, 36), 0, device.pen(device.color(u"red"_s), 0, 1),
                    nullptr);
    device.endNode();
}

void drawEdge(Device &device, DotEdge *edge, const QList<QPoint> &line)
{
    device.beginEdge(edge);
    device.drawPolyline(line, device.pen(device.color(u"red"_s), 0, 1));
    device.endEdge();
}

QString show(const QDomElement &element)
{
    QStringList list;
    for (const QString &name :
         {u"FromSheet"_s, u"FromCell"_s, u"FromPart"_s, u"ToSheet"_s, u"ToCell"_s, u"ToPart"_s}) {
        list += element.attribute(name);
    }
    return list.join(u' ');
}

} // namespace

TEST(VisioVsdxConnect, an_edge_is_glued_to_points_on_both_shapes)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    drawNode(device, graph.a, {0, 0}); // sheet 1
    drawNode(device, graph.b, {144, 72}); // sheet 2
    drawEdge(device, graph.ab, {{72, 9}, {100, 9}, {144, 90}}); // sheet 3
    device.connect(graph.ab, graph.a, graph.b);
    const QDomDocument page = drawing.page();

    const QDomElement edge = shapeById(page, 3);
    const QString begin = u"PAR(PNT(Sheet.1!Connections.X1,SHEET.1!Connections.Y1))"_s;
    const QString end = u"PAR(PNT(Sheet.2!Connections.X1,SHEET.2!Connections.Y1))"_s;
    EXPECT_EQ(valueOf(edge, u"BeginX"_s), u"1"_s);
    EXPECT_EQ(formulaOf(edge, u"BeginX"_s), begin);
    EXPECT_EQ(valueOf(edge, u"BeginY"_s).toDouble(), (360 - 9) / 72.0);
    EXPECT_EQ(formulaOf(edge, u"BeginY"_s), begin);
    EXPECT_EQ(valueOf(edge, u"EndX"_s), u"2"_s);
    EXPECT_EQ(formulaOf(edge, u"EndX"_s), end);
    EXPECT_EQ(valueOf(edge, u"EndY"_s).toDouble(), (360 - 90) / 72.0);
    EXPECT_EQ(formulaOf(edge, u"EndY"_s), end);

    const QList<QDomElement> points = rowsOf(sectionOf(shapeById(page, 1), u"Connection"_s));
    ASSERT_EQ(points.size(), 1);
    EXPECT_EQ(points.at(0).attribute(u"IX"_s), u"0"_s);
    EXPECT_EQ(formulaOf(points.at(0), u"X"_s), u"Width*1"_s);
    EXPECT_EQ(formulaOf(points.at(0), u"Y"_s), u"Height*0.75"_s);

    const QList<QDomElement> connects = elementsWithin(page.documentElement(), u"Connect"_s);
    ASSERT_EQ(connects.size(), 2);
    EXPECT_EQ(connects.at(0).parentNode().toElement().tagName(), u"Connects"_s);
    EXPECT_EQ(show(connects.at(0)), u"3 BeginX 9 1 Connections.X1 100"_s);
    EXPECT_EQ(show(connects.at(1)), u"3 EndX 12 2 Connections.X1 100"_s);
}

TEST(VisioVsdxConnect, the_ends_stay_where_they_were_glued)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    drawNode(device, graph.a, {0, 0});
    drawNode(device, graph.b, {144, 0});
    device.beginEdge(graph.ab); // sheet 3
    device.drawPolyline({{72, 9}, {144, 9}}, device.pen(device.color(u"red"_s), 0, 1));
    device.connect(graph.ab, graph.a, graph.b);
    // The head takes four points out of the line.
    device.drawPolygon({{150, 9}, {140, 9}, {140, 12}, {150, 9}}, nullptr, device.color(u"red"_s));
    device.endEdge();
    const QDomDocument page = drawing.page();
    EXPECT_EQ(valueOf(shapeById(page, 3), u"EndX"_s), u"2"_s);
    EXPECT_EQ(valueOf(shapeById(page, 3), u"Width"_s).toDouble(), (140 - 72) / 72.0);
}

TEST(VisioVsdxConnect, edges_that_meet_at_a_point_share_it)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    drawNode(device, graph.a, {0, 0});
    drawNode(device, graph.b, {144, 0});
    drawNode(device, graph.c, {288, 0});
    drawEdge(device, graph.ab, {{72, 18}, {144, 18}});
    drawEdge(device, graph.bc, {{144, 18}, {288, 18}});
    device.connect(graph.ab, graph.a, graph.b);
    device.connect(graph.bc, graph.b, graph.c);
    device.connect(graph.bc, graph.a, graph.c);
    const QDomDocument page = drawing.page();
    EXPECT_EQ(rowsOf(sectionOf(shapeById(page, 2), u"Connection"_s)).size(), 1);
    const QList<QDomElement> points = rowsOf(sectionOf(shapeById(page, 1), u"Connection"_s));
    ASSERT_EQ(points.size(), 2);
    EXPECT_EQ(points.at(1).attribute(u"IX"_s), u"1"_s);
    const QList<QDomElement> connects = elementsWithin(page.documentElement(), u"Connect"_s);
    EXPECT_EQ(show(connects.at(4)), u"5 BeginX 9 1 Connections.X2 101"_s);
}

TEST(VisioVsdxConnect, connecting_ahead_of_the_end_of_an_edge_gives_the_same_glue)
{
    QStringList glue;
    for (const int order : {0, 1, 2}) {
        PackageDrawing drawing;
        Device &device = drawing.device;
        SmallGraph graph;
        device.begin(720, 360);
        drawNode(device, graph.a, {0, 0});
        drawNode(device, graph.b, {144, 0});
        device.beginEdge(graph.ab);
        if (order == 0)
            device.connect(graph.ab, graph.a, graph.b);
        device.drawPolyline({{72, 18}, {144, 18}}, device.pen(device.color(u"red"_s), 0, 1));
        if (order == 1)
            device.connect(graph.ab, graph.a, graph.b);
        device.endEdge();
        if (order == 2)
            device.connect(graph.ab, graph.a, graph.b);
        const QDomDocument page = drawing.page();
        QStringList found;
        for (const QDomElement &connect : elementsWithin(page.documentElement(), u"Connect"_s))
            found += show(connect);
        found += valueOf(shapeById(page, 3), u"EndX"_s) + formulaOf(shapeById(page, 3), u"EndX"_s);
        glue += found.join(u'|');
    }
    EXPECT_EQ(glue.at(0),
              u"3 BeginX 9 1 Connections.X1 100|3 EndX 12 2 Connections.X1 100|"
              "2PAR(PNT(Sheet.2!Connections.X1,SHEET.2!Connections.Y1))"_s);
    EXPECT_EQ(glue.at(1), glue.at(0));
    EXPECT_EQ(glue.at(2), glue.at(0));
}

TEST(VisioVsdxConnect, an_end_that_is_not_drawn_leaves_no_connection)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    drawNode(device, graph.a, {0, 0});
    drawEdge(device, graph.ab, {{72, 18}, {144, 18}});
    device.connect(graph.ab, graph.a, graph.b);
    device.connect(graph.bc, graph.a, graph.a);
    const QDomDocument page = drawing.page();
    EXPECT_TRUE(elementsWithin(page.documentElement(), u"Connect"_s).isEmpty());
    EXPECT_TRUE(elementsWithin(page.documentElement(), u"Connects"_s).isEmpty());
    EXPECT_TRUE(sectionOf(shapeById(page, 1), u"Connection"_s).isNull());
}

TEST(VisioVsdxConnect, a_drawing_that_never_began_connects_nothing)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    drawNode(device, graph.a, {0, 0});
    drawNode(device, graph.b, {144, 0});
    drawEdge(device, graph.ab, {{72, 18}, {144, 18}});
    device.connect(graph.ab, graph.a, graph.b);
    const QDomDocument page = drawing.page();
    EXPECT_FALSE(page.documentElement().isNull());
    EXPECT_TRUE(shapesOf(page).isEmpty());
    EXPECT_TRUE(elementsWithin(page.documentElement(), u"Connects"_s).isEmpty());
}

TEST(VisioVsdxConnect, a_drawing_that_begins_late_keeps_its_connections)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    drawNode(device, graph.a, {0, 0});
    drawNode(device, graph.b, {144, 0});
    drawEdge(device, graph.ab, {{72, 18}, {144, 18}});
    device.connect(graph.ab, graph.a, graph.b);
    device.begin(720, 360);
    const QDomDocument page = drawing.page();
    EXPECT_EQ(shapesOf(page).size(), 3);
    EXPECT_EQ(elementsWithin(page.documentElement(), u"Connect"_s).size(), 2);
}

TEST(VisioVsdxConnect, a_cluster_is_a_container_of_its_members)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    DotSubgraph *inner = graph.graph.createCluster(graph.cluster, QString(), u"inner"_s);
    DotNode *deep = graph.graph.createNode(inner, QString(), u"deep"_s);
    device.begin(720, 360);
    device.beginCluster(graph.cluster, true); // sheet 1
    drawNode(device, graph.a, {0, 0}); // 2
    device.beginCluster(inner, true); // 3
    drawNode(device, deep, {0, 90}); // 4
    device.endCluster();
    drawNode(device, graph.b, {0, 180}); // 5
    device.endCluster();
    drawNode(device, graph.c, {144, 0}); // 6
    const QDomDocument page = drawing.page();

    const auto relationships = [&](int id) {
        return formulaOf(shapeById(page, id), u"Relationships"_s);
    };
    const QString in1 = u"DEPENDSON(4,Sheet.1!SheetRef())"_s;
    const QString in3 = u"DEPENDSON(4,Sheet.3!SheetRef())"_s;
    const QString holds = u"DEPENDSON(1,Sheet.%1!SheetRef())"_s;
    EXPECT_EQ(relationships(1), u"SUM(%1,%2,%3)"_s.arg(holds.arg(3), holds.arg(2), holds.arg(5)));
    EXPECT_EQ(relationships(2), u"SUM(%1)"_s.arg(in1));
    EXPECT_EQ(relationships(3), u"SUM(%1,%2)"_s.arg(in1, holds.arg(4)));
    EXPECT_EQ(relationships(4), u"SUM(%1,%2)"_s.arg(in1, in3));
    EXPECT_EQ(relationships(5), u"SUM(%1)"_s.arg(in1));
    EXPECT_EQ(relationships(6), QString());
    EXPECT_EQ(valueOf(shapeById(page, 2), u"Relationships"_s), u"0"_s);

    const QDomElement user = sectionOf(shapeById(page, 1), u"User"_s);
    const QDomElement row = rowsOf(user).value(0);
    EXPECT_EQ(row.attribute(u"N"_s), u"msvStructureType"_s);
    EXPECT_EQ(valueOf(row, u"Value"_s), u"Container"_s);
    EXPECT_EQ(cellOf(row, u"Value"_s).attribute(u"U"_s), u"STR"_s);
    EXPECT_TRUE(sectionOf(shapeById(page, 2), u"User"_s).isNull());
}

TEST(VisioVsdxConnect, a_cluster_without_members_has_no_relationships)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    device.beginCluster(graph.cluster, false);
    drawNode(device, graph.a, {0, 0});
    device.endCluster();
    const QDomDocument page = drawing.page();
    EXPECT_FALSE(sectionOf(shapeById(page, 1), u"User"_s).isNull());
    EXPECT_TRUE(cellOf(shapeById(page, 1), u"Relationships"_s).isNull());
    EXPECT_TRUE(cellOf(shapeById(page, 2), u"Relationships"_s).isNull());
}

TEST(VisioVsdxConnect, a_subgraph_drawn_twice_is_held_by_its_last_shape)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    drawNode(device, graph.a, {0, 0}); // sheet 1
    for (int k = 0; k < 2; ++k) { // sheets 2 and 3
        device.beginCluster(graph.cluster, true);
        device.endCluster();
    }
    const QDomDocument page = drawing.page();
    EXPECT_EQ(formulaOf(shapeById(page, 1), u"Relationships"_s),
              u"SUM(DEPENDSON(4,Sheet.3!SheetRef()))"_s);
    EXPECT_TRUE(sectionOf(shapeById(page, 2), u"User"_s).isNull());
}
