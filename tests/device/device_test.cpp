#include "device/device.h"

#include "graph/limits.h"
#include "support/golden.h"
#include "support/recording_device.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// Draws its curves by the base class and keeps what that makes of them.
class FlatteningDevice : public RecordingDevice
{
public:
    QList<QPoint> line;
    bool filled = false;

    void drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill) override
    {
        // NOLINTNEXTLINE(bugprone-parent-virtual-call): the base is what is tested
        Device::drawBezier(points, pen, fill);
    }
    void drawPolyline(const QList<QPoint> &points, Pen *) override { line = points; }
    void drawPolygon(const QList<QPoint> &points, Pen *, Color *) override
    {
        line = points;
        filled = true;
    }
};

QList<QPoint> zigzag(int count)
{
    QList<QPoint> points;
    for (int i = 0; i < count; ++i)
        points.append({i * 10, i % 2 * 30});
    return points;
}

} // namespace

TEST(Device, colours_are_interned_by_name_as_given)
{
    RecordingDevice device;
    EXPECT_EQ(device.color(u""_s), device.color(u"black"_s));
    EXPECT_EQ(device.color(u"red"_s), device.color(u"red"_s));
    EXPECT_NE(device.color(u"red"_s), device.color(u"RED"_s));
    EXPECT_EQ(device.color(u""_s)->name(0), "black");
}

TEST(Device, a_solid_colour_has_one_name_and_no_stops)
{
    const Device::Color color(u"red"_s);
    EXPECT_EQ(color.type(), 0);
    EXPECT_EQ(color.name(0), "red");
    EXPECT_EQ(color.name(1), "");
    EXPECT_EQ(color.name(-1), "");
    EXPECT_EQ(color.offset(0), 0.0);
    EXPECT_EQ(color.stopCount(), 0);
}

TEST(Device, gradients_are_interned_by_six_digits_of_their_geometry)
{
    RecordingDevice device;
    const QStringList names{u"red"_s, u"blue"_s};
    const QList<double> offsets{0, 1};
    Device::Color *linear = device.linearGradient({0, 0}, {10, 20}, names, offsets);
    EXPECT_EQ(linear->type(), 1);
    EXPECT_EQ(linear->start(), QPointF(0, 0));
    EXPECT_EQ(linear->stop(), QPointF(10, 20));
    EXPECT_EQ(linear->stopCount(), 2);
    EXPECT_EQ(linear->name(1), "blue");
    EXPECT_EQ(linear->offset(1), 1.0);
    EXPECT_EQ(device.linearGradient({0, 0}, {10.0000001, 20}, names, offsets), linear);
    EXPECT_NE(device.linearGradient({0, 0}, {10.001, 20}, names, offsets), linear);
    EXPECT_NE(device.linearGradient({0, 0}, {10, 20}, names, {0, 0.5}), linear);

    Device::Color *radial = device.radialGradient({1, 2}, 1, {3, 4}, 9, names, offsets);
    EXPECT_EQ(radial->type(), 2);
    EXPECT_EQ(radial->start(), QPointF(1, 2));
    EXPECT_EQ(radial->stop(), QPointF(3, 4));
    EXPECT_EQ(radial->focalRadius(), 1);
    EXPECT_EQ(radial->radius(), 9);
    EXPECT_EQ(device.radialGradient({1, 2}, 1, {3, 4}, 9, names, offsets), radial);
    EXPECT_NE(device.radialGradient({1, 2}, 1, {3, 4}, 8, names, offsets), radial);
}

TEST(Device, fonts_round_their_size)
{
    RecordingDevice device;
    EXPECT_EQ(device.font(u"Arial"_s, 11.5, 0), device.font(u"Arial"_s, 12.4, 0));
    EXPECT_EQ(device.font(u"Arial"_s, 11.5, 0)->size(), 12);
    EXPECT_NE(device.font(u"Arial"_s, 12, 0), device.font(u"Arial"_s, 12, 1));
}

TEST(Device, missing_parts_of_a_font_come_from_the_default_font)
{
    RecordingDevice device;
    EXPECT_EQ(device.font({}, -1.0, -1), device.defaultFont());
    EXPECT_EQ(device.defaultFont()->family(), "Arial");
    EXPECT_EQ(device.defaultFont()->size(), 12);
    EXPECT_EQ(device.defaultFont()->style(), 0);
    Device::Font *font = device.font(u"Courier"_s, -1.0, 3);
    EXPECT_EQ(font->family(), "Courier");
    EXPECT_EQ(font->size(), 12);
    EXPECT_EQ(font->style(), 3);
}

TEST(Device, pens_are_unique_per_colour_object)
{
    RecordingDevice device;
    Device::Color *red = device.color(u"red"_s);
    Device::Pen *pen = device.pen(red, 1, 2);
    EXPECT_EQ(device.pen(red, 1, 2), pen);
    EXPECT_NE(device.pen(red, 1, 3), pen);
    EXPECT_NE(device.pen(red, 0, 2), pen);
    EXPECT_NE(device.pen(device.color(u"#FF0000"_s), 1, 2), pen);
    EXPECT_EQ(pen->color(), red);
}

TEST(Device, texts_are_unique_per_string_font_and_first_colour_name)
{
    RecordingDevice device;
    Device::Color *red = device.color(u"red"_s);
    Device::Text *text = device.text(u"x"_s, nullptr, red);
    EXPECT_EQ(text->font(), device.defaultFont());
    EXPECT_EQ(device.text(u"x"_s, device.defaultFont(), red), text);
    EXPECT_NE(device.text(u"y"_s, nullptr, red), text);
    EXPECT_NE(device.text(u"x"_s, device.font(u"Arial"_s, 9, 0), red), text);
    EXPECT_NE(device.text(u"x"_s, nullptr, device.color(u"blue"_s)), text);
    EXPECT_EQ(device.text(u"x"_s, nullptr,
                          device.linearGradient({0, 0}, {1, 1}, {u"red"_s, u"blue"_s}, {0, 1})),
              text);
}

TEST(Device, a_curve_becomes_ten_straight_pieces)
{
    FlatteningDevice device;
    device.drawBezier(zigzag(4), nullptr, nullptr);
    EXPECT_EQ(device.line.size(), 11);
    EXPECT_EQ(device.line.constFirst(), QPoint(0, 0));
    EXPECT_EQ(device.line.at(5), QPoint(15, 15));
    EXPECT_EQ(device.line.constLast(), QPoint(30, 30));
    EXPECT_FALSE(device.filled);
    device.drawBezier(zigzag(7), nullptr, device.color(u"red"_s));
    EXPECT_EQ(device.line.size(), 21);
    EXPECT_TRUE(device.filled);
}

TEST(Device, points_that_make_no_whole_curve_are_dropped)
{
    FlatteningDevice device;
    device.drawBezier(zigzag(5), nullptr, nullptr);
    EXPECT_EQ(device.line.size(), 11);
    device.drawBezier(zigzag(3), nullptr, nullptr);
    EXPECT_EQ(device.line, QList<QPoint>{QPoint(0, 0)});
    device.line.clear();
    device.drawBezier({}, nullptr, nullptr);
    EXPECT_TRUE(device.line.isEmpty());
}

TEST(Device, huge_curves_stay_within_the_integers)
{
    constexpr int far = std::numeric_limits<int>::max();
    FlatteningDevice device;
    device.drawBezier({{-far, far}, {far, -far}, {far, far}, {far, -far}}, nullptr, nullptr);
    EXPECT_EQ(device.line.constFirst(), QPoint(-far, far));
    EXPECT_EQ(device.line.constLast(), QPoint(far, -far + 1)) << "a negative end loses its half";
}

TEST(Device, a_device_without_objects_takes_the_protocol_in_silence)
{
    RecordingDevice device(false);
    DotGraph graph;
    DotNode *node = graph.createNode(graph.root(), {}, u"a"_s);
    DotEdge *edge = graph.createEdge(node, node, {});
    device.beginNode(node);
    device.beginEdge(edge);
    device.beginCluster(graph.root(), true);
    device.connect(edge, node, node);
    EXPECT_TRUE(device.calls().isEmpty());
}

TEST(Device, connect_hands_on_the_objects_that_were_begun)
{
    RecordingDevice device;
    DotGraph graph;
    DotNode *a = graph.createNode(graph.root(), {}, u"a"_s);
    DotNode *b = graph.createNode(graph.root(), {}, u"b"_s);
    DotEdge *edge = graph.createEdge(a, b, {});
    device.connect(edge, a, b);
    device.beginNode(a);
    device.endNode();
    device.beginEdge(edge);
    device.connect(edge, a, b);
    device.endEdge();
    EXPECT_EQ(device.callsOf(u"connect"_s),
              (QStringList{u"connect (none) (none) (none)"_s, u"connect a->b a (none)"_s}));
}

TEST(Device, a_cluster_knows_its_members_if_it_is_told_to)
{
    RecordingDevice device;
    DotGraph graph;
    DotSubgraph *outer = graph.createSubgraph(graph.root(), u"outer"_s);
    DotSubgraph *inner = graph.createSubgraph(outer, u"inner"_s);
    graph.createSubgraph(outer, u"never begun"_s);
    DotNode *node = graph.createNode(outer, {}, u"a"_s);
    device.beginCluster(graph.root(), true);
    device.beginCluster(outer, true);
    device.beginCluster(inner, false);
    device.beginNode(node);

    Device::Cluster root;
    root.subclusters = {outer};
    const QList<Device::Cluster *> outers = device.clusterObjects(&root);
    ASSERT_EQ(outers.size(), 1);
    EXPECT_EQ(outers.at(0)->members, QList<DotNode *>{node});
    EXPECT_EQ(outers.at(0)->subclusters, outer->subgraphs);
    EXPECT_EQ(device.nodeObjects(outers.at(0)).size(), 1);
    const QList<Device::Cluster *> inners = device.clusterObjects(outers.at(0));
    ASSERT_EQ(inners.size(), 1);
    EXPECT_TRUE(inners.at(0)->members.isEmpty());
    EXPECT_TRUE(device.clusterObjects(nullptr).isEmpty());
    EXPECT_TRUE(device.nodeObjects(nullptr).isEmpty());
}

TEST(Device, an_object_begun_again_takes_the_place_of_the_first)
{
    RecordingDevice device;
    DotGraph graph;
    DotNode *node = graph.createNode(graph.root(), {}, u"a"_s);
    Device::Cluster cluster;
    cluster.members = {node};
    device.beginNode(node);
    Device::Node *first = device.nodeObjects(&cluster).at(0);
    device.beginNode(node);
    ASSERT_EQ(device.nodeObjects(&cluster).size(), 1);
    EXPECT_NE(device.nodeObjects(&cluster).at(0), first);
}

TEST(Device, a_gradient_keeps_only_so_many_stops)
{
    RecordingDevice device;
    const qsizetype most = Limits::mostGradientStops;
    const QStringList names(most + 100, u"red"_s);
    const QList<double> offsets(most + 100, 0.5);
    EXPECT_EQ(device.linearGradient({}, {1, 1}, names, offsets)->stopCount(), most);
    EXPECT_EQ(device.radialGradient({}, 0, {1, 1}, 2, names, offsets)->stopCount(), most);
    EXPECT_EQ(device.linearGradient({}, {1, 1}, names.first(most), offsets.first(most)),
              device.linearGradient({}, {1, 1}, names, offsets));
}
