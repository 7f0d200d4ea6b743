#include "visio_reading.h"

#include "support/golden.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

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

QList<QDomElement> connectionsOf(const QDomElement &shape)
{
    QList<QDomElement> found;
    for (QDomElement row = shape.firstChildElement(u"Connection"_s); !row.isNull();
         row = row.nextSiblingElement(u"Connection"_s)) {
        found.append(row);
    }
    return found;
}

QString show(const QDomElement &element)
{
    QStringList list;
    for (const QString &name : {u"ToPart"_s, u"ToSheet"_s, u"FromPart"_s, u"FromSheet"_s})
        list += element.attribute(name);
    return list.join(u' ');
}

} // namespace

TEST(VisioVdxConnect, an_edge_is_glued_to_points_on_both_shapes)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    drawNode(device, graph.a, {0, 0}); // sheet 1
    drawNode(device, graph.b, {144, 72}); // sheet 2
    drawEdge(device, graph.ab, {{72, 9}, {144, 90}}); // sheet 3
    device.connect(graph.ab, graph.a, graph.b);
    const QDomDocument document = drawing.document();

    const QList<QDomElement> points = connectionsOf(shapeById(document, 1));
    ASSERT_EQ(points.size(), 1);
    EXPECT_EQ(points.at(0).attribute(u"IX"_s), u"0"_s);
    EXPECT_EQ(formulaAt(points.at(0), u"X"_s), u"Width*1"_s);
    EXPECT_EQ(textAt(points.at(0), u"X"_s), u"1"_s);
    EXPECT_EQ(formulaAt(points.at(0), u"Y"_s), u"Height*0.75"_s);
    EXPECT_EQ(textAt(points.at(0), u"Y"_s), u"0.375"_s);

    const QDomElement edge = shapeById(document, 3);
    const QString begin = u"PAR(PNT(Sheet.1!Connections.X1,SHEET.1!Connections.Y1))"_s;
    const QString end = u"PAR(PNT(Sheet.2!Connections.X1,SHEET.2!Connections.Y1))"_s;
    EXPECT_EQ(formulaAt(edge, u"XForm1D/BeginX"_s), begin);
    EXPECT_EQ(textAt(edge, u"XForm1D/BeginX"_s), u"1"_s);
    EXPECT_EQ(formulaAt(edge, u"XForm1D/BeginY"_s), begin);
    EXPECT_EQ(formulaAt(edge, u"XForm1D/EndX"_s), end);
    EXPECT_EQ(formulaAt(edge, u"XForm1D/EndY"_s), end);
    EXPECT_EQ(textAt(edge, u"XForm1D/EndY"_s), u"3.75"_s);

    const QList<QDomElement> connects = elementsWithin(document.documentElement(), u"Connect"_s);
    ASSERT_EQ(connects.size(), 2);
    EXPECT_EQ(connects.at(0).parentNode().toElement().tagName(), u"Connects"_s);
    EXPECT_EQ(show(connects.at(0)), u"100 2 12 3"_s); // the head's comes first
    EXPECT_EQ(show(connects.at(1)), u"100 1 9 3"_s);
}

TEST(VisioVdxConnect, two_edges_that_end_on_a_node_give_it_two_points)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    drawNode(device, graph.a, {0, 0});
    drawNode(device, graph.b, {144, 0});
    for (int k = 0; k < 2; ++k) {
        drawEdge(device, graph.ab, {{72, 18}, {144, 18}});
        device.connect(graph.ab, graph.a, graph.b);
    }
    const QDomDocument document = drawing.document();
    const QList<QDomElement> points = connectionsOf(shapeById(document, 2));
    ASSERT_EQ(points.size(), 2);
    EXPECT_EQ(points.at(0).attribute(u"IX"_s), u"0"_s);
    EXPECT_EQ(points.at(1).attribute(u"IX"_s), u"1"_s);
    const QList<QDomElement> connects = elementsWithin(document.documentElement(), u"Connect"_s);
    EXPECT_EQ(connects.at(0).attribute(u"ToPart"_s), u"100"_s);
    EXPECT_EQ(connects.at(2).attribute(u"ToPart"_s), u"101"_s);
    EXPECT_EQ(formulaAt(shapeById(document, 4), u"XForm1D/EndX"_s),
              u"PAR(PNT(Sheet.2!Connections.X2,SHEET.2!Connections.Y2))"_s);
}

TEST(VisioVdxConnect, an_end_without_a_shape_gets_no_connection)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    drawNode(device, graph.a, {0, 0});
    drawEdge(device, graph.ab, {{72, 18}, {144, 36}});
    device.connect(graph.ab, graph.a, graph.b);
    const QDomDocument document = drawing.document();
    const QList<QDomElement> connects = elementsWithin(document.documentElement(), u"Connect"_s);
    ASSERT_EQ(connects.size(), 1);
    EXPECT_EQ(show(connects.at(0)), u"100 1 9 2"_s);
    EXPECT_EQ(textAt(shapeById(document, 2), u"XForm1D/EndX"_s), u"2"_s);
    EXPECT_EQ(formulaAt(shapeById(document, 2), u"XForm1D/EndX"_s), QString());
}

TEST(VisioVdxConnect, connecting_ahead_of_the_end_of_an_edge_gives_the_same_glue)
{
    QStringList glue;
    for (const int order : {0, 1, 2}) {
        XmlDrawing drawing;
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
        const QDomDocument document = drawing.document();
        QStringList found;
        for (const QDomElement &connect : elementsWithin(document.documentElement(), u"Connect"_s))
            found += show(connect);
        found += formulaAt(shapeById(document, 3), u"XForm1D/EndX"_s);
        glue += found.join(u'|');
    }
    EXPECT_EQ(glue.at(0),
              u"100 2 12 3|100 1 9 3|"
              "PAR(PNT(Sheet.2!Connections.X1,SHEET.2!Connections.Y1))"_s);
    EXPECT_EQ(glue.at(1), glue.at(0));
    EXPECT_EQ(glue.at(2), glue.at(0));
}

TEST(VisioVdxConnect, a_cluster_is_a_container_of_its_members)
{
    XmlDrawing drawing;
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
    device.endCluster();
    const QDomDocument document = drawing.document();

    const auto relationships = [&](int id) {
        return formulaAt(shapeById(document, id), u"v14:Layout/v14:Relationships"_s);
    };
    const QString in1 = u"DEPENDSON(4,Sheet.1!SheetRef())"_s;
    const QString in3 = u"DEPENDSON(4,Sheet.3!SheetRef())"_s;
    const QString holds = u"DEPENDSON(1,Sheet.%1!SheetRef())"_s;
    EXPECT_EQ(relationships(1), u"SUM(%1,%2)"_s.arg(holds.arg(3), holds.arg(2)));
    EXPECT_EQ(relationships(2), u"SUM(%1)"_s.arg(in1));
    EXPECT_EQ(relationships(3), u"SUM(%1,%2)"_s.arg(in1, holds.arg(4)));
    EXPECT_EQ(relationships(4), u"SUM(%1,%2)"_s.arg(in1, in3));
    EXPECT_EQ(childAt(shapeById(document, 2), u"v14:Layout"_s).attribute(u"xmlns:v14"_s),
              u"http://schemas.microsoft.com/office/visio/2010/extension"_s);

    const QDomElement cluster = shapeById(document, 1);
    EXPECT_EQ(childAt(cluster, u"User"_s).attribute(u"ID"_s), u"0"_s);
    EXPECT_EQ(childAt(cluster, u"User"_s).attribute(u"NameU"_s), u"msvStructureType"_s);
    EXPECT_EQ(textAt(cluster, u"User/Value"_s), u"Container"_s);
    EXPECT_EQ(childAt(cluster, u"User/Value"_s).attribute(u"Unit"_s), u"STR"_s);
    EXPECT_EQ(textAt(cluster, u"Layout/ShapeSplit"_s), u"0"_s);
    EXPECT_TRUE(childAt(shapeById(document, 2), u"User"_s).isNull());
}
