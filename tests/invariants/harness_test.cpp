// What the invariants are judged with sees a drawing that breaks them.
#include "invariants/figures.h"
#include "invariants/generated_input.h"
#include "invariants/weights.h"

#include "graph/dot_parser.h"
#include "support/corpus.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

using Draw = std::function<void(MeasuringDevice &device)>;

// What is wrong with a page of 90 by 90 points on which this is drawn.
std::string faultsOf(const Draw &draw)
{
    MeasuringDevice device;
    device.begin(90, 90);
    draw(device);
    device.end();
    return device.drawn().faults.join(u'\n').toStdString();
}

Figure boxAt(double left, double top, double width, double height)
{
    return {Figure::Box, {left, top, width, height}, {}};
}

Figure circleAt(double x, double y, double radius)
{
    return {Figure::Circle, {x - radius, y - radius, 2 * radius, 2 * radius}, {}};
}

Figure sliceAt(double start, double sweep, double inner, double outer)
{
    return {Figure::Slice, {}, {start, sweep, inner, outer}};
}

} // namespace

TEST(Harness, finds_nothing_wrong_with_a_drawing)
{
    EXPECT_EQ(faultsOf([](MeasuringDevice &device) {
                  device.drawRect({1, 1}, {9, 9}, 0, nullptr, nullptr);
              }),
              "");
}

TEST(Harness, sees_calls_in_the_wrong_place)
{
    EXPECT_NE(faultsOf([](MeasuringDevice &device) { device.begin(9, 9); }), "");
    EXPECT_NE(faultsOf([](MeasuringDevice &device) { device.end(); }), "");
    EXPECT_NE(faultsOf([](MeasuringDevice &device) { device.endNode(); }), "");
    EXPECT_NE(faultsOf([](MeasuringDevice &device) { delete device.createNode(nullptr); }), "");
    MeasuringDevice undrawn;
    EXPECT_FALSE(undrawn.drawn().faults.isEmpty());
}

TEST(Harness, sees_numbers_that_are_no_coordinates)
{
    constexpr int highest = std::numeric_limits<int>::max();
    const auto pathTo = [](double x) {
        return faultsOf([x](MeasuringDevice &device) {
            Graph::Device::Path *path = device.createPath();
            path->moveTo({0, 0});
            path->lineTo({x, 0});
            device.drawPath(path, nullptr, nullptr);
        });
    };
    EXPECT_EQ(pathTo(8), "");
    EXPECT_NE(pathTo(std::numeric_limits<double>::quiet_NaN()), "");
    EXPECT_NE(pathTo(std::numeric_limits<double>::infinity()), "");
    EXPECT_NE(faultsOf([](MeasuringDevice &device) {
                  device.drawPolyline({{0, 0}, {highest, 0}}, nullptr);
              }),
              "");
    EXPECT_NE(faultsOf([](MeasuringDevice &device) {
                  device.drawRect({9, 9}, {1, 1}, 0, nullptr, nullptr);
              }),
              "");
}

TEST(Harness, sees_children_outside)
{
    EXPECT_TRUE(isInside(boxAt(0, 0, 11, 10), boxAt(0, 0, 10, 10)));
    EXPECT_FALSE(isInside(boxAt(0, 0, 12, 10), boxAt(0, 0, 10, 10)));
    EXPECT_FALSE(isInside(boxAt(0, -2, 5, 5), boxAt(0, 0, 10, 10)));
    EXPECT_TRUE(isInside(boxAt(0, 0, 12, 10), boxAt(0, 0, 10, 10), 2));
    EXPECT_TRUE(isInside(circleAt(50, 50, 10), circleAt(50, 60, 20)));
    EXPECT_FALSE(isInside(circleAt(50, 50, 10), circleAt(50, 63, 20)));
    EXPECT_TRUE(isInside(sliceAt(350, 20, 40, 80), sliceAt(340, 60, 0, 40)));
    EXPECT_FALSE(isInside(sliceAt(350, 60, 40, 80), sliceAt(340, 60, 0, 40))) << "angle";
    EXPECT_FALSE(isInside(sliceAt(350, 20, 30, 80), sliceAt(340, 60, 0, 40))) << "radius";
}

TEST(Harness, sees_siblings_that_overlap)
{
    EXPECT_TRUE(areApart(boxAt(0, 0, 10, 10), boxAt(9, 0, 10, 10)));
    EXPECT_FALSE(areApart(boxAt(0, 0, 10, 10), boxAt(8, 0, 10, 10)));
    EXPECT_TRUE(areApart(circleAt(0, 0, 10), circleAt(18, 0, 10)));
    EXPECT_FALSE(areApart(circleAt(0, 0, 10), circleAt(17, 0, 10)));
    EXPECT_TRUE(areApart(sliceAt(350, 20, 0, 40), sliceAt(10, 30, 0, 40)));
    EXPECT_FALSE(areApart(sliceAt(350, 20, 0, 40), sliceAt(9, 30, 0, 40)));
    EXPECT_TRUE(areApart(sliceAt(350, 20, 0, 40), sliceAt(9, 30, 40, 80))) << "another ring";
}

TEST(Harness, sees_what_has_another_scale)
{
    EXPECT_EQ(outOfProportion({{u"a"_s, 1, 2}, {u"b"_s, 2, 3}}), QStringList());
    EXPECT_EQ(outOfProportion({{u"a"_s, 1, 2}, {u"b"_s, 2.5, 3}}), QStringList{u"b"_s});
    EXPECT_EQ(outOfProportion({{u"a"_s, 1, 3}, {u"b"_s, 2, 4}, {u"c"_s, 1, 1.5}}),
              QStringList{u"c"_s});
}

TEST(Harness, knows_of_each_engine_how_it_shows_weights)
{
    for (const Drawing::LayoutIndex layout : allLayouts())
        EXPECT_EQ(weightRowCount(layout), 1) << Drawing::layoutRow(layout).name.data();
}

TEST(Harness, generates_graphs_that_depend_on_the_seed_alone)
{
    for (const Drawing::LayoutIndex layout : allLayouts()) {
        const QByteArray text = generatedInput(layout, 1);
        EXPECT_TRUE(Graph::parseDot(text)) << text.toStdString();
        EXPECT_EQ(generatedInput(layout, 1), text);
        EXPECT_NE(generatedInput(layout, 2), text);
    }
}
