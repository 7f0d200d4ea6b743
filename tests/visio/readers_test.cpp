#include "importer.h"
#include "visio_reading.h"

#include "support/golden.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

void drawNodesAndEdge(Device &device, const SmallGraph &graph)
{
    device.begin(720, 360);
    Device::Pen *pen = device.pen(device.color(u"red"_s), 0, 2);
    device.beginNode(graph.a);
    device.drawRect({40, 60}, {140, 100}, 0, pen, device.color(u"yellow"_s));
    device.drawText({60, 70}, device.text(u"first"_s, nullptr, device.color(u"blue"_s)));
    device.endNode();
    device.beginNode(graph.b);
    device.drawEllipse({220, 200}, 50, 30, pen, nullptr);
    device.drawText({200, 190}, device.text(u"second"_s, nullptr, nullptr));
    device.endNode();
    device.beginEdge(graph.ab);
    device.drawPolyline({{140, 80}, {180, 80}, {220, 120}, {220, 170}}, pen);
    device.drawPolygon({{220, 170}, {217, 164}, {223, 164}, {220, 170}}, pen,
                       device.color(u"red"_s));
    device.endEdge();
    device.connect(graph.ab, graph.a, graph.b);
    device.drawText({600, 200}, device.text(u"loose"_s, nullptr, nullptr));
    device.drawBezier({{600, 300}, {620, 250}, {640, 250}, {660, 300}}, pen, nullptr);
}

} // namespace

TEST(VisioReaders, an_importer_sees_every_shape_of_a_package)
{
    SmallGraph graph;
    PackageDrawing drawing;
    drawNodesAndEdge(drawing.device, graph);
    EXPECT_EQ(drawing.device.end(), QString());
    const Seen seen = readBy(drawing.path());
    if (seen.skipped)
        FAIL() << "vsd2raw is not installed";
    EXPECT_EQ(
        seen.count(u"startPage(draw:name: Page-1, svg:height: 5.0000in, svg:width: 10.0000in)"_s),
        1);
    EXPECT_EQ(seen.texts().join(u' '), u"first second loose"_s);
    // The filled rectangle, its border, the ellipse, the edge and the curve.
    EXPECT_EQ(seen.count(u"drawPath ("_s), 5);
    EXPECT_EQ(seen.outlines().value(0), u"M 40,60 L 140,60 L 140,100 L 40,100 L 40,60"_s);
    EXPECT_EQ(seen.outlines().value(2), u"M 170,200 A 270,200 A 170,200"_s);
    EXPECT_EQ(seen.outlines().value(3), u"M 140,80 L 180,80 L 220,120 L 220,170"_s);
    EXPECT_EQ(seen.outlines().value(4), u"M 600,300 C 660,300"_s);
    EXPECT_EQ(seen.count(u"draw:fill-color: #ffff00, draw:stroke: none"_s), 1);
    EXPECT_EQ(seen.count(u"draw:marker-end-path"_s), 1);
    EXPECT_EQ(seen.count(u"draw:marker-start-path"_s), 0);
    EXPECT_EQ(seen.count(u"svg:stroke-width: 0.0278in"_s), 5);
    EXPECT_EQ(seen.count(u"fo:color: #0000ff, fo:font-size: 11.0000pt, style:font-name: Arial"_s),
              1);
}

// Connectors are missing from what it sees: their places are formulas without values.
TEST(VisioReaders, an_importer_sees_every_shape_of_a_single_file_but_for_connectors)
{
    SmallGraph graph;
    XmlDrawing drawing;
    drawNodesAndEdge(drawing.device, graph);
    EXPECT_EQ(drawing.device.end(), QString());
    const Seen seen = readBy(drawing.path());
    if (seen.skipped)
        FAIL() << "vsd2raw is not installed";
    EXPECT_EQ(seen.count(u"svg:height: 5.0000in, svg:width: 10.0000in)"_s), 1);
    EXPECT_EQ(seen.texts().join(u' '), u"first second loose"_s);
    EXPECT_EQ(seen.count(u"drawPath ("_s), 4);
    EXPECT_EQ(seen.outlines().value(0), u"M 40,60 L 140,60 L 140,100 L 40,100 L 40,60"_s);
    EXPECT_EQ(seen.outlines().value(2), u"M 170,200 A 270,200 A 170,200"_s);
    EXPECT_EQ(seen.outlines().value(3), u"M 600,300 C 660,300"_s);
    EXPECT_EQ(seen.count(u"draw:fill-color: #ffff00, draw:stroke: none"_s), 1);
}

TEST(VisioReaders, an_importer_sees_clusters_and_their_members_in_a_package)
{
    SmallGraph graph;
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    Device::Pen *pen = device.pen(device.color(u"red"_s), 0, 1);
    device.beginCluster(graph.cluster, true);
    device.drawRect({20, 20}, {300, 340}, 0, pen, nullptr);
    device.beginNode(graph.a);
    device.drawRect({40, 60}, {140, 100}, 0, pen, nullptr);
    device.endNode();
    device.drawText({30, 24}, device.text(u"over"_s, nullptr, nullptr));
    device.endCluster();
    EXPECT_EQ(device.end(), QString());
    const Seen seen = readBy(drawing.path());
    if (seen.skipped)
        FAIL() << "vsd2raw is not installed";
    EXPECT_EQ(seen.count(u"drawPath ("_s), 2);
    EXPECT_EQ(seen.texts().join(u' '), u"over"_s);
}

// A shape that stands in another without a list of shapes between takes its place in this reader.
TEST(VisioReaders, an_importer_sees_the_members_of_a_cluster_in_a_single_file)
{
    SmallGraph graph;
    XmlDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    Device::Pen *pen = device.pen(device.color(u"red"_s), 0, 1);
    device.beginCluster(graph.cluster, true);
    device.drawRect({20, 20}, {300, 340}, 0, pen, nullptr);
    for (DotNode *node : {graph.a, graph.b}) {
        device.beginNode(node);
        device.drawRect({40, 60}, {140, 100}, 0, pen, nullptr);
        device.endNode();
    }
    device.endCluster();
    device.drawRect({400, 60}, {440, 100}, 0, pen, nullptr);
    EXPECT_EQ(device.end(), QString());
    const Seen seen = readBy(drawing.path());
    if (seen.skipped)
        FAIL() << "vsd2raw is not installed";
    EXPECT_EQ(seen.count(u"drawPath ("_s), 3);
    EXPECT_EQ(seen.outlines().value(0), u"M 40,60 L 140,60 L 140,100 L 40,100 L 40,60"_s);
}
