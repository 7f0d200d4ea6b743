#include "visio_reading.h"

#include "support/golden.h"

#include <limits>
#include <memory>
#include <random>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// Runs the same calls on both devices; each must end well and give a document.
template <typename Draw>
void onBoth(Draw draw)
{
    {
        PackageDrawing package;
        draw(static_cast<Device &>(package.device));
        const QByteArray page = package.parts().value(u"visio/pages/page1.xml"_s);
        EXPECT_FALSE(page.contains("nan") || page.contains("inf")) << page.toStdString();
        parsed(page);
    }
    XmlDrawing xml;
    draw(static_cast<Device &>(xml.device));
    const QByteArray bytes = xml.bytes();
    EXPECT_FALSE(bytes.contains("nan") || bytes.contains("inf")) << bytes.toStdString();
    parsed(bytes);
}

} // namespace

TEST(VisioSturdiness, paint_that_was_never_set_is_taken)
{
    onBoth([](Device &device) {
        device.begin(72, 72);
        device.drawRect({0, 0}, {9, 9}, 0, device.pen(nullptr, 0, 1), nullptr);
        device.drawPolyline({{0, 0}, {9, 9}}, nullptr);
        device.drawText({0, 0}, device.text(u"x"_s, nullptr, nullptr));
        device.drawText({0, 0}, nullptr);
    });
}

TEST(VisioSturdiness, objects_that_never_end_are_finished)
{
    SmallGraph graph;
    PackageDrawing package;
    XmlDrawing xml;
    for (Device *device :
         {static_cast<Device *>(&package.device), static_cast<Device *>(&xml.device)}) {
        device->begin(72, 72);
        device->beginCluster(graph.cluster, true);
        device->beginNode(graph.a);
        device->drawRect({0, 0}, {72, 72}, 0, nullptr, nullptr);
    }
    EXPECT_EQ(valueOf(shapeById(package.page(), 2), u"Width"_s), u"1"_s);
    EXPECT_EQ(textAt(shapeById(xml.document(), 2), u"XForm/Width"_s), u"1"_s);
}

TEST(VisioSturdiness, ends_without_a_beginning_do_nothing)
{
    onBoth([](Device &device) {
        device.begin(72, 72);
        device.endNode();
        device.endEdge();
        device.endCluster();
        device.drawRect({0, 0}, {9, 9}, 0, nullptr, nullptr);
        device.endCluster();
    });
}

TEST(VisioSturdiness, an_object_begun_twice_is_two_shapes)
{
    SmallGraph graph;
    PackageDrawing drawing;
    drawing.device.begin(72, 72);
    for (int k = 0; k < 2; ++k) {
        drawing.device.beginNode(graph.a);
        drawing.device.endNode();
    }
    EXPECT_EQ(shapesOf(drawing.page()).size(), 2);
}

TEST(VisioSturdiness, shapes_without_extent_divide_by_nothing)
{
    onBoth([](Device &device) {
        SmallGraph graph;
        device.begin(0, 0);
        device.beginNode(graph.a);
        device.drawRect({5, 5}, {5, 5}, 3, nullptr, nullptr);
        device.drawEllipse({5, 5}, 0, 0, nullptr, nullptr);
        device.drawText({5, 5}, device.text(QString(), nullptr, nullptr));
        device.endNode();
        device.beginNode(graph.b);
        device.endNode();
        for (const QList<QPoint> &line :
             {QList<QPoint>{{5, 5}, {5, 5}}, QList<QPoint>{{5, 5}, {9, 9}, {5, 5}}}) {
            device.beginEdge(graph.ab);
            device.drawPolyline(line, nullptr);
            device.drawPolygon({{5, 5}, {5, 5}, {5, 5}, {5, 5}}, nullptr, nullptr);
            device.drawText({5, 5}, device.text(u"x"_s, nullptr, nullptr));
            device.endEdge();
            device.connect(graph.ab, graph.a, graph.b);
        }
    });
}

TEST(VisioSturdiness, edges_without_a_line_are_taken)
{
    onBoth([](Device &device) {
        SmallGraph graph;
        device.begin(72, 72);
        device.beginNode(graph.a);
        device.endNode();
        device.beginNode(graph.b);
        device.endNode();
        device.beginEdge(graph.ab);
        device.connect(graph.ab, graph.a, graph.b);
        device.endEdge();
        device.connect(graph.ab, graph.a, graph.b);
        device.beginEdge(graph.bc);
        device.drawText({1, 2}, device.text(u"alone"_s, nullptr, nullptr));
        device.endEdge();
        device.connect(graph.bc, graph.b, graph.a);
        device.beginEdge(graph.bc);
        device.drawRect({0, 0}, {9, 9}, 0, nullptr, nullptr);
        device.connect(graph.bc, graph.b, graph.a);
    });
}

TEST(VisioSturdiness, the_largest_coordinates_are_taken)
{
    onBoth([](Device &device) {
        constexpr int least = std::numeric_limits<int>::min();
        constexpr int most = std::numeric_limits<int>::max();
        device.begin(most, least);
        SmallGraph graph;
        device.drawRect({least, least}, {most, most}, most, nullptr, nullptr);
        device.drawEllipse({most, least}, most, least, nullptr, nullptr);
        device.drawBezier({{least, most}, {most, least}, {0, 0}, {most, most}}, nullptr, nullptr);
        device.drawText({most, most}, device.text(u"x"_s, nullptr, nullptr));
        device.beginEdge(graph.ab);
        device.drawPolyline({{least, least}, {most, least}, {most, most}}, nullptr);
        device.drawPolygon({{most, most}, {most, least}, {least, most}, {0, 0}}, nullptr, nullptr);
        device.drawText({most, most}, device.text(u"x"_s, nullptr, nullptr));
        device.endEdge();
        Device::Path *path = device.createPath();
        path->moveTo({1e300, -1e300});
        path->arcTo({-1e300, -1e300}, {1e300, 1e300}, 1e300, -1e300);
        path->closeSubpath();
        device.drawPath(path, nullptr, nullptr);
    });
}

TEST(VisioSturdiness, texts_lose_what_a_document_cannot_hold)
{
    const QString text = u"a"_s + QChar(0x00) + QChar(0x0B) + QChar(0xDC00) + u"b"_s;
    PackageDrawing package;
    XmlDrawing xml;
    for (Device *device :
         {static_cast<Device *>(&package.device), static_cast<Device *>(&xml.device)}) {
        device->begin(72, 72);
        device->drawText({0, 0}, device->text(text, device->font(text, 12, 0), nullptr));
    }
    EXPECT_EQ(shapeById(package.page(), 1).firstChildElement(u"Text"_s).text(), u"ab"_s);
    EXPECT_EQ(textAt(shapeById(xml.document(), 1), u"Text"_s), u"ab"_s);
}

TEST(VisioSturdiness, deep_nesting_starts_over_and_recurses_nowhere)
{
    constexpr int levels = 20000;
    constexpr int nesting = 32;
    const auto draw = [](Device &device, DotGraph &graph) {
        device.begin(720, 360);
        DotSubgraph *subgraph = graph.root();
        QList<DotSubgraph *> all;
        for (int k = 0; k < levels; ++k) {
            subgraph = graph.createCluster(subgraph, QString(), QString());
            all.append(subgraph);
        }
        for (DotSubgraph *one : std::as_const(all))
            device.beginCluster(one, true);
        for (int k = 0; k < levels; ++k)
            device.endCluster();
    };
    const auto graph = std::make_unique<DotGraph>();
    PackageDrawing package;
    draw(package.device, *graph);
    const QByteArray page = package.parts().value(u"visio/pages/page1.xml"_s);
    EXPECT_EQ(page.count("<Shape "), levels);
    EXPECT_EQ(page.count("\"Container\""), levels);
    XmlDrawing xml;
    draw(xml.device, *graph);
    const QByteArray bytes = xml.bytes();
    EXPECT_EQ(bytes.count("<Shape "), levels);
    int depth = 0;
    int deepest = 0;
    for (const QByteArray &line : bytes.split('\n')) {
        depth += line.contains("<Shape ") - line.contains("</Shape>");
        deepest = std::max(deepest, depth);
    }
    EXPECT_EQ(deepest, nesting);
    EXPECT_EQ(depth, 0);
}

// Any calls in any order: whatever comes, the result is a document of finite numbers.
TEST(VisioSturdiness, any_order_of_calls_gives_a_document)
{
    for (unsigned seed = 0; seed < 60; ++seed) {
        onBoth([seed](Device &device) {
            std::mt19937 random(seed);
            const auto below = [&](int limit) { return int(random() % unsigned(limit)); };
            const auto points = [&] {
                QList<QPoint> list;
                for (int k = below(6); k > 0; --k)
                    list.append({below(9), below(9)});
                return list;
            };
            SmallGraph graph;
            const QList<DotNode *> nodes{graph.a, graph.b, graph.c};
            Device::Pen *pen = device.pen(device.color(u"red"_s), 0, 1);
            device.begin(99, 99);
            for (int k = 0; k < 120; ++k) {
                Device::Color *fill = below(2) ? device.color(u"lime"_s) : nullptr;
                switch (below(14)) {
                case 0:
                    device.beginNode(nodes.at(below(3)));
                    break;
                case 1:
                    device.beginEdge(below(2) ? graph.ab : graph.bc);
                    break;
                case 2:
                    device.beginCluster(graph.cluster, below(2));
                    break;
                case 3:
                    device.endNode();
                    break;
                case 4:
                    device.endEdge();
                    break;
                case 5:
                    device.endCluster();
                    break;
                case 6:
                    device.drawBezier(points(), pen, fill);
                    break;
                case 7:
                    device.drawPolyline(points(), pen);
                    break;
                case 8:
                    device.drawPolygon(points(), pen, fill);
                    break;
                case 9:
                    device.drawEllipse({below(9), below(9)}, below(9), below(9), pen, fill);
                    break;
                case 10:
                    device.drawRect({below(9), 0}, {9, below(9)}, 0, pen, fill);
                    break;
                case 11:
                    device.drawText({below(9), 0}, device.text(u"x"_s, nullptr, fill));
                    break;
                case 12:
                    device.connect(graph.ab, nodes.at(below(3)), nodes.at(below(3)));
                    break;
                default:
                    device.connect(graph.bc, nodes.at(below(3)), nullptr);
                    break;
                }
            }
        });
    }
}
