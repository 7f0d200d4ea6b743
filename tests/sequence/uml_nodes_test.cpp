#include "layout/sequence/uml_nodes.h"

#include "sequence_fixture.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

using Align = InvisibleGridObject::Align;

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

// An invisible object of a size of its own at (0, 0).
InvisibleGridObject invisible(int width, int height, Align xAlign, Align yAlign,
                              DotNode *node = nullptr)
{
    return InvisibleGridObject(0, 0, {width, height}, xAlign, yAlign, node);
}

QStringList paintCalls(Fixture &fixture, const GridObject &object, const QList<int> &colPos,
                       const QList<int> &rowPos)
{
    object.paint(&fixture.device, colPos, rowPos, fixture.style);
    return fixture.device.calls();
}

} // namespace

TEST(UmlObject, measures_its_label_and_is_centred)
{
    Fixture fixture;
    UmlObject object(0, 0, fixture.node(u"a"_s, u"Shop"_s));
    object.measure(fixture.style);
    const QSize text = fixture.textSize(u"Shop"_s);
    EXPECT_EQ(object.width(), text.width() + 6);
    EXPECT_EQ(object.height(), text.height() + 6);
    EXPECT_EQ(object.xOffset(), -((text.width() + 6) / 2));
    EXPECT_EQ(object.yOffset(), -((text.height() + 6) / 2));
    EXPECT_FALSE(object.spansAxis(true));
    EXPECT_FALSE(object.spansAxis(false));
    EXPECT_EQ(object.objectKind(), 0);
}

TEST(UmlObject, paints_a_box_with_its_label_as_a_node)
{
    Fixture fixture;
    UmlObject object(0, 0, fixture.node(u"a"_s, u"Shop"_s));
    object.measure(fixture.style);
    const QRect box = object.bounds({100}, {50});
    const QStringList expected{
        u"beginNode a"_s,
        u"rect %1,%2 %3,%4 radius 0 pen #000000 solid 1 fill #FFFFFF"_s.arg(box.left())
            .arg(box.top())
            .arg(box.right())
            .arg(box.bottom()),
        u"text %1,%2 \"Shop\" Arial 12 #000000"_s.arg(box.left() + 3).arg(box.top() + 3),
        u"endNode"_s,
    };
    EXPECT_EQ(paintCalls(fixture, object, {100}, {50}), expected);
}

TEST(UmlObject, without_a_label_paints_a_box_that_ends_one_unit_before_it_begins)
{
    Fixture fixture;
    UmlObject object(0, 0, fixture.node(u"a"_s));
    object.measure(fixture.style);
    const QStringList expected{
        u"beginNode a"_s,
        u"rect 100,50 99,49 radius 0 pen #000000 solid 1 fill #FFFFFF"_s,
        u"endNode"_s,
    };
    EXPECT_EQ(paintCalls(fixture, object, {100}, {50}), expected);
}

TEST(UmlObject, takes_the_first_colour_of_a_gradient)
{
    Fixture fixture;
    DotNode *node = fixture.node(u"a"_s);
    node->attributes.insert(u"fillcolor"_s, u"red;blue"_s);
    UmlObject object(0, 0, node);
    object.measure(fixture.style);
    EXPECT_EQ(paintCalls(fixture, object, {100}, {50}).at(1),
              u"rect 100,50 99,49 radius 0 pen #000000 solid 1 fill red"_s);
}

TEST(UmlActivation, measures_ten_by_ten_whatever_its_label)
{
    Fixture fixture;
    const UmlActivation bar(0, 0, 0, fixture.node(u"a"_s, u"a long label"_s));
    EXPECT_EQ(bar.width(), 10);
    EXPECT_EQ(bar.height(), 10);
    EXPECT_EQ(bar.xOffset(), -5);
    EXPECT_EQ(bar.yOffset(), 0);
    EXPECT_FALSE(bar.spansAxis(true));
    EXPECT_FALSE(bar.spansAxis(false));
    EXPECT_EQ(bar.objectKind(), 0);
}

TEST(UmlActivation, stands_four_further_right_for_each_level_of_nesting)
{
    Fixture fixture;
    DotNode *node = fixture.node(u"a"_s);
    EXPECT_EQ(UmlActivation(0, 0, 1, node).xOffset(), -1);
    EXPECT_EQ(UmlActivation(0, 0, 3, node).xOffset(), 7);
    EXPECT_EQ(UmlActivation(0, 0, -1, node).xOffset(), -9);
}

TEST(UmlActivation, any_nesting_keeps_its_offset_within_an_int)
{
    Fixture fixture;
    DotNode *node = fixture.node(u"a"_s);
    EXPECT_EQ(UmlActivation(0, 0, highest, node).xOffset(), highest);
    EXPECT_EQ(UmlActivation(0, 0, lowest, node).xOffset(), lowest);
}

TEST(UmlActivation, lasts_from_its_row_to_its_end_row)
{
    Fixture fixture;
    UmlActivation bar(1, 0, 0, fixture.node(u"a"_s));
    EXPECT_EQ(bar.endRow(), 1);
    EXPECT_EQ(bar.bounds({100}, {10, 30, 90}), QRect(95, 30, 10, 0));
    bar.setEndRow(2);
    EXPECT_EQ(bar.bounds({100}, {10, 30, 90}), QRect(95, 30, 10, 60));
}

TEST(UmlActivation, that_ends_before_it_begins_has_a_negative_height)
{
    Fixture fixture;
    UmlActivation bar(1, 0, 0, fixture.node(u"a"_s));
    bar.setEndRow(0);
    const QRect bounds = bar.bounds({100}, {10, 30});
    EXPECT_EQ(bounds.top(), 30);
    EXPECT_EQ(bounds.bottom(), 9);
}

TEST(UmlActivation, paints_a_bar_without_its_label)
{
    Fixture fixture;
    UmlActivation bar(0, 0, 0, fixture.node(u"a"_s, u"label"_s));
    bar.setEndRow(1);
    const QStringList expected{
        u"beginNode a"_s,
        u"rect 95,10 104,39 radius 0 pen #000000 solid 1 fill #FFFFFF"_s,
        u"endNode"_s,
    };
    EXPECT_EQ(paintCalls(fixture, bar, {100}, {10, 40}), expected);
}

TEST(InvisibleGridObject, has_the_size_it_was_given)
{
    Fixture fixture;
    DotNode *labelled = fixture.node(u"a"_s, u"label"_s);
    InvisibleGridObject object = invisible(40, 30, Align::Centre, Align::Centre, labelled);
    object.measure(fixture.style);
    EXPECT_EQ(object.width(), 40);
    EXPECT_EQ(object.height(), 30);
    EXPECT_FALSE(object.spansAxis(true));
    EXPECT_FALSE(object.spansAxis(false));
    EXPECT_EQ(object.objectKind(), 0);
}

TEST(InvisibleGridObject, takes_minus_one_from_its_label_for_each_measure_on_its_own)
{
    Fixture fixture;
    DotNode *node = fixture.node(u"a"_s, u"label"_s);
    const QSize text = fixture.textSize(u"label"_s);
    InvisibleGridObject wide = invisible(-1, 30, Align::Centre, Align::Centre, node);
    wide.measure(fixture.style);
    EXPECT_EQ(wide.width(), text.width() + 6);
    EXPECT_EQ(wide.height(), 30);
    InvisibleGridObject high = invisible(40, -1, Align::Centre, Align::Centre, node);
    high.measure(fixture.style);
    EXPECT_EQ(high.width(), 40);
    EXPECT_EQ(high.height(), text.height() + 6);
}

TEST(InvisibleGridObject, without_an_element_takes_nothing_from_its_label)
{
    Fixture fixture;
    InvisibleGridObject object = invisible(-1, -1, Align::Before, Align::Before);
    object.measure(fixture.style);
    EXPECT_EQ(object.width(), 0);
    EXPECT_EQ(object.height(), 0);
}

TEST(InvisibleGridObject, hangs_before_its_anchor_stands_on_it_or_hangs_after_it)
{
    Fixture fixture;
    EXPECT_EQ(invisible(41, 31, Align::Before, Align::Before).xOffset(), -41);
    EXPECT_EQ(invisible(41, 31, Align::Centre, Align::Before).xOffset(), -20);
    EXPECT_EQ(invisible(41, 31, Align::After, Align::Before).xOffset(), 0);
    EXPECT_EQ(invisible(41, 31, Align::After, Align::Before).yOffset(), -31);
    EXPECT_EQ(invisible(41, 31, Align::After, Align::Centre).yOffset(), -15);
    EXPECT_EQ(invisible(41, 31, Align::Before, Align::After).yOffset(), 0);
}

TEST(InvisibleGridObject, any_size_keeps_its_offset_within_an_int)
{
    Fixture fixture;
    EXPECT_EQ(invisible(lowest, lowest, Align::Before, Align::Before).xOffset(), highest);
    EXPECT_EQ(invisible(lowest, lowest, Align::Before, Align::Centre).yOffset(), 1 << 30);
    EXPECT_EQ(invisible(highest, highest, Align::Before, Align::Before).xOffset(), -highest);
}

TEST(InvisibleGridObject, shows_its_element_to_the_device_and_draws_nothing)
{
    Fixture fixture;
    InvisibleGridObject object =
        invisible(40, 30, Align::Centre, Align::Centre, fixture.node(u"a"_s, u"label"_s));
    object.measure(fixture.style);
    EXPECT_EQ(paintCalls(fixture, object, {10}, {20}),
              (QStringList{u"beginNode a"_s, u"endNode"_s}));
}

TEST(InvisibleGridObject, without_an_element_leaves_no_trace)
{
    Fixture fixture;
    const InvisibleGridObject object = invisible(40, 30, Align::Centre, Align::Centre);
    EXPECT_EQ(paintCalls(fixture, object, {10}, {20}), QStringList());
}

TEST(SectionMarker, is_shown_under_the_id_of_its_section)
{
    Fixture fixture;
    InvisibleGridObject marker(0, 0, {0, -1}, Align::Centre, Align::After,
                               fixture.subgraph(u"else"_s));
    marker.measure(fixture.style);
    EXPECT_EQ(paintCalls(fixture, marker, {10}, {20}),
              (QStringList{u"beginNode else"_s, u"endNode"_s}));
}

TEST(SectionMarker, measures_a_label_of_the_section_itself)
{
    Fixture fixture;
    InvisibleGridObject marker(0, 0, {-1, -1}, Align::Centre, Align::After,
                               fixture.subgraph(u"s"_s, u"[else]"_s));
    marker.measure(fixture.style);
    EXPECT_EQ(marker.width(), fixture.textSize(u"[else]"_s).width() + 6);
    EXPECT_EQ(marker.height(), fixture.textSize(u"[else]"_s).height() + 6);
}

TEST(SectionMarker, measures_the_node_defaults_around_it_when_the_section_has_no_label)
{
    Fixture fixture;
    DotSubgraph *outer = fixture.subgraph(u"outer"_s, u"graph label"_s);
    DotSubgraph *section = fixture.graph.createSubgraph(outer, u"s"_s);
    fixture.graph.declareAttribute(section, u"label"_s, u"default inside"_s, u"node"_s);
    InvisibleGridObject unlabelled(0, 0, {-1, -1}, Align::Centre, Align::After, section);
    unlabelled.measure(fixture.style);
    EXPECT_EQ(unlabelled.width(), 0);

    fixture.graph.declareAttribute(outer, u"label"_s, u"default"_s, u"node"_s);
    InvisibleGridObject labelled(0, 0, {-1, -1}, Align::Centre, Align::After, section);
    labelled.measure(fixture.style);
    EXPECT_EQ(labelled.width(), fixture.textSize(u"default"_s).width() + 6);
}

TEST(UmlFoundMessage, measures_six_by_six_whatever_its_label)
{
    Fixture fixture;
    const UmlFoundMessage dot(0, 0, fixture.node(u"a"_s, u"label"_s));
    EXPECT_EQ(dot.width(), 6);
    EXPECT_EQ(dot.height(), 6);
    EXPECT_EQ(dot.xOffset(), -3);
    EXPECT_EQ(dot.yOffset(), -3);
    EXPECT_FALSE(dot.spansAxis(true));
    EXPECT_FALSE(dot.spansAxis(false));
    EXPECT_EQ(dot.objectKind(), 0);
    EXPECT_EQ(dot.bounds({100}, {50}), QRect(97, 47, 6, 6));
}

TEST(UmlFoundMessage, paints_a_dot_on_its_anchor)
{
    Fixture fixture;
    const UmlFoundMessage dot(1, 0, fixture.node(u"a"_s, u"label"_s));
    const QStringList expected{
        u"beginNode a"_s,
        u"ellipse 100,50 radii 3,3 pen #000000 solid 1 fill #FFFFFF"_s,
        u"endNode"_s,
    };
    EXPECT_EQ(paintCalls(fixture, dot, {100}, {0, 50}), expected);
}
