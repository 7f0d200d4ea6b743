#include "layout/sequence/uml_fragment.h"

#include "sequence_fixture.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <vector>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

// A fixture that keeps the markers and spacers that fragments hand out.
struct FragmentFixture : Fixture
{
    std::vector<std::unique_ptr<GridObject>> kept;

    GridObject *keep(std::unique_ptr<GridObject> object)
    {
        return kept.emplace_back(std::move(object)).get();
    }
    // A section with its marker put into the fragment.
    GridObject *section(UmlCombinedFragment &fragment, int row, const QString &id,
                        const QString &label = {})
    {
        GridObject *marker = keep(fragment.addSection(row, subgraph(id, label)));
        marker->measure(style);
        fragment.addChild(marker);
        return marker;
    }
    QSize labelSize(const QString &line) { return textSize(line) + QSize(6, 6); }
};

} // namespace

TEST(UmlCombinedFragment, follows_the_cells_of_its_children)
{
    FragmentFixture fixture;
    UmlCombinedFragment fragment(2, 5, fixture.subgraph(u"f"_s));
    EXPECT_EQ(fragment.lastRow(), 2);
    EXPECT_EQ(fragment.lastCol(), 5);
    UmlObject left(1, 3, fixture.node(u"a"_s));
    UmlObject below(7, 6, fixture.node(u"b"_s));
    fragment.addChild(&left);
    fragment.addChild(&below);
    EXPECT_EQ(fragment.row(), 2);
    EXPECT_EQ(fragment.col(), 3);
    EXPECT_EQ(fragment.lastRow(), 7);
    EXPECT_EQ(fragment.lastCol(), 6);
    EXPECT_EQ(fragment.children(), (QList<GridObject *>{&left, &below}));
}

TEST(UmlCombinedFragment, starts_a_section_on_its_current_column)
{
    FragmentFixture fixture;
    UmlCombinedFragment fragment(0, 5, fixture.subgraph(u"f"_s));
    UmlObject left(0, 3, fixture.node(u"a"_s));
    fragment.addChild(&left);
    const std::unique_ptr<GridObject> marker =
        fragment.addSection(9, fixture.subgraph(u"s"_s, u"[else]"_s));
    marker->measure(fixture.style);
    EXPECT_EQ(fragment.lastRow(), 9);
    EXPECT_EQ(fragment.sectionCount(), 1);
    EXPECT_EQ(fragment.children().size(), 1); // the marker is for the caller to add
    EXPECT_EQ(marker->row(), 9);
    EXPECT_EQ(marker->col(), 3);
    EXPECT_EQ(marker->width(), 0);
    EXPECT_EQ(marker->height(), fixture.labelSize(u"[else]"_s).height());
    EXPECT_EQ(marker->xOffset(), 0);
    EXPECT_EQ(marker->yOffset(), 0); // hangs below its row
}

TEST(UmlCombinedFragment, closes_one_row_below_with_room_for_its_frame)
{
    FragmentFixture fixture;
    UmlCombinedFragment fragment(2, 0, fixture.subgraph(u"f"_s));
    UmlObject object(4, 3, fixture.node(u"a"_s));
    fragment.addChild(&object);
    const std::unique_ptr<GridObject> spacer = fragment.close();
    EXPECT_EQ(fragment.lastRow(), 5);
    EXPECT_EQ(fragment.nesting(), 0);
    EXPECT_EQ(spacer->row(), 5);
    EXPECT_EQ(spacer->col(), 3);
    EXPECT_EQ(spacer->element(), nullptr);
    EXPECT_EQ(spacer->width(), 12);
    EXPECT_EQ(spacer->height(), 5);
    EXPECT_EQ(spacer->xOffset(), 0); // right of its column
    EXPECT_EQ(spacer->yOffset(), -2); // centred on its row
}

TEST(UmlCombinedFragment, closes_around_the_fragments_within)
{
    FragmentFixture fixture;
    UmlCombinedFragment outer(0, 0, fixture.subgraph(u"outer"_s));
    UmlCombinedFragment middle(1, 0, fixture.subgraph(u"middle"_s));
    UmlCombinedFragment inner(2, 0, fixture.subgraph(u"inner"_s));
    UmlObject object(2, 4, fixture.node(u"a"_s));
    outer.addChild(&middle);
    middle.addChild(&inner);
    inner.addChild(&object);
    middle.addChild(fixture.keep(inner.close()));
    outer.addChild(fixture.keep(middle.close()));
    const std::unique_ptr<GridObject> spacer = outer.close();
    EXPECT_EQ(inner.nesting(), 0);
    EXPECT_EQ(middle.nesting(), 1);
    EXPECT_EQ(outer.nesting(), 2);
    EXPECT_EQ(inner.lastRow(), 3);
    EXPECT_EQ(middle.lastRow(), 4);
    EXPECT_EQ(outer.lastRow(), 5);
    EXPECT_EQ(outer.lastCol(), 4);
    EXPECT_EQ(spacer->width(), 7 * 2 + 12);
}

TEST(UmlCombinedFragment, is_as_high_as_its_label_and_that_of_its_first_section)
{
    FragmentFixture fixture;
    UmlCombinedFragment fragment(0, 0, fixture.subgraph(u"f"_s, u"alt"_s));
    fixture.section(fragment, 0, u"first"_s, u"[one]\\n[line more]"_s);
    fixture.section(fragment, 1, u"second"_s, u"[a]\\n[b]\\n[c]"_s);
    const int expected =
        labelRectangle(elementLabel(fixture.subgraph(u"t"_s, u"alt"_s), 1, fixture.style)).height()
        + labelRectangle(
              elementLabel(fixture.subgraph(u"u"_s, u"[one]\\n[line more]"_s), 1, fixture.style))
              .height();
    fragment.measure(fixture.style);
    EXPECT_EQ(fragment.height(), expected);
    EXPECT_EQ(fragment.yOffset(), -expected);
}

TEST(UmlCombinedFragment, is_as_wide_as_the_widest_of_its_labels)
{
    FragmentFixture fixture;
    UmlCombinedFragment fragment(0, 0, fixture.subgraph(u"f"_s, u"alternative"_s));
    fixture.section(fragment, 0, u"first"_s, u"[x]"_s);
    fragment.measure(fixture.style);
    EXPECT_EQ(fragment.width(), fixture.labelSize(u"alternative"_s).width());

    UmlCombinedFragment other(0, 0, fixture.subgraph(u"g"_s, u"alt"_s));
    fixture.section(other, 0, u"third"_s, u"[x]"_s);
    fixture.section(other, 1, u"fourth"_s, u"[a long condition]"_s);
    other.measure(fixture.style);
    EXPECT_EQ(other.width(), fixture.labelSize(u"[a long condition]"_s).width());
}

TEST(UmlCombinedFragment, spans_columns_and_no_rows)
{
    FragmentFixture fixture;
    const UmlCombinedFragment fragment(0, 0, fixture.subgraph(u"f"_s));
    EXPECT_TRUE(fragment.spansAxis(true));
    EXPECT_FALSE(fragment.spansAxis(false));
    EXPECT_EQ(fragment.objectKind(), 1);
}

TEST(UmlCombinedFragment, hangs_eight_left_of_its_column)
{
    FragmentFixture fixture;
    UmlCombinedFragment fragment(0, 0, fixture.subgraph(u"f"_s, u"alt"_s));
    fragment.measure(fixture.style);
    EXPECT_EQ(fragment.xOffset(), -8 - fixture.labelSize(u"alt"_s).width());
}

TEST(UmlCombinedFragment, stands_seven_left_of_a_fragment_within_on_the_same_column)
{
    FragmentFixture fixture;
    UmlCombinedFragment outer(0, 0, fixture.subgraph(u"outer"_s, u"x"_s));
    UmlCombinedFragment middle(0, 0, fixture.subgraph(u"middle"_s));
    UmlCombinedFragment inner(0, 0, fixture.subgraph(u"inner"_s, u"a wide label"_s));
    outer.addChild(&middle);
    middle.addChild(&inner);
    for (UmlCombinedFragment *fragment : {&inner, &middle, &outer})
        fragment->measure(fixture.style);
    const int innermost = -8 - fixture.labelSize(u"a wide label"_s).width();
    EXPECT_EQ(outer.xOffset(), innermost - 7 - 7);
    EXPECT_EQ(middle.xOffset(), innermost - 7);
    EXPECT_EQ(inner.xOffset(), innermost);
}

TEST(UmlCombinedFragment, need_not_move_for_a_fragment_on_another_column)
{
    FragmentFixture fixture;
    UmlCombinedFragment outer(0, 0, fixture.subgraph(u"outer"_s, u"x"_s));
    UmlCombinedFragment inner(0, 1, fixture.subgraph(u"inner"_s, u"a wide label"_s));
    outer.addChild(&inner);
    inner.measure(fixture.style);
    outer.measure(fixture.style);
    EXPECT_EQ(outer.xOffset(), -8 - fixture.labelSize(u"x"_s).width());
}

TEST(UmlCombinedFragment, keeps_a_label_wider_than_what_the_nesting_asks_for)
{
    FragmentFixture fixture;
    UmlCombinedFragment outer(0, 0, fixture.subgraph(u"outer"_s, u"a very wide label"_s));
    UmlCombinedFragment inner(0, 0, fixture.subgraph(u"inner"_s, u"x"_s));
    outer.addChild(&inner);
    inner.measure(fixture.style);
    outer.measure(fixture.style);
    EXPECT_EQ(outer.xOffset(), -8 - fixture.labelSize(u"a very wide label"_s).width());
}

// Sections from the last to the first, each down to where the one below begins; then the tag.
TEST(UmlCombinedFragment, paints_its_sections_from_the_last_to_the_first_and_then_its_tag)
{
    FragmentFixture fixture;
    UmlCombinedFragment fragment(0, 0, fixture.subgraph(u"f"_s, u"alt"_s));
    fixture.section(fragment, 0, u"if"_s, u"[yes]"_s);
    UmlObject object(2, 1, fixture.node(u"a"_s));
    fragment.addChild(&object);
    fixture.section(fragment, 3, u"else"_s, u"[no]"_s);
    fragment.close();
    const QList<int> colPos{100, 200, 300};
    const QList<int> rowPos{60, 90, 120, 150, 190};
    fragment.measure(fixture.style);
    fragment.paint(&fixture.device, colPos, rowPos, fixture.style);

    const int width =
        std::max(fixture.labelSize(u"alt"_s).width(), fixture.labelSize(u"[yes]"_s).width());
    const int left = 100 - 8 - width;
    const int top =
        60 - fixture.labelSize(u"alt"_s).height() - fixture.labelSize(u"[yes]"_s).height();
    const int tagRight = left + fixture.labelSize(u"alt"_s).width() - 1;
    const int tagBottom = top + fixture.labelSize(u"alt"_s).height() - 1;
    const auto text = [](int x, int y, const QString &label) {
        return u"text %1,%2 \"%3\" Arial 12 #000000"_s.arg(x).arg(y).arg(label);
    };
    const auto rect = [&](int y, int bottom) {
        return u"rect %1,%2 212,%3 radius 0 pen black solid 1 fill #FFFFFF"_s.arg(left).arg(y).arg(
            bottom);
    };
    const QStringList expected{
        u"beginCluster else"_s,
        rect(150, 190),
        text(left + 3, 153, u"[no]"_s),
        u"endCluster"_s,
        u"beginCluster if"_s,
        rect(top, 150),
        text(left + 3, tagBottom + 3, u"[yes]"_s),
        u"endCluster"_s,
        u"beginCluster f"_s,
        u"polygon %1,%2 %3,%2 %3,%5 %4,%6 %1,%6 %1,%2 pen black solid 1 fill #FFFFFF"_s.arg(left)
            .arg(top)
            .arg(tagRight)
            .arg(tagRight - 3)
            .arg(tagBottom - 3)
            .arg(tagBottom),
        text(left + 3, top + 3, u"alt"_s),
        u"endCluster"_s,
    };
    EXPECT_EQ(fixture.device.calls(), expected);
}

TEST(UmlCombinedFragment, on_one_column_ends_where_its_widest_child_does)
{
    FragmentFixture fixture;
    UmlCombinedFragment fragment(0, 0, fixture.subgraph(u"f"_s));
    fixture.section(fragment, 0, u"s"_s);
    UmlActivation activation(0, 0, 3, fixture.node(u"a"_s));
    InvisibleGridObject wide(0, 0, {50, 0}, InvisibleGridObject::After, InvisibleGridObject::Centre,
                             fixture.node(u"b"_s));
    fragment.addChild(&activation);
    fragment.addChild(&wide);
    fragment.close();
    fragment.measure(fixture.style);
    fragment.paint(&fixture.device, {100, 200}, {60, 90}, fixture.style);
    EXPECT_EQ(fixture.device.callsOf(u"rect"_s),
              (QStringList{u"rect 92,60 150,90 radius 0 pen black solid 1 fill #FFFFFF"_s}));
}

TEST(UmlCombinedFragment, on_one_column_never_ends_left_of_it)
{
    FragmentFixture fixture;
    UmlCombinedFragment fragment(0, 0, fixture.subgraph(u"f"_s));
    fixture.section(fragment, 0, u"s"_s);
    InvisibleGridObject before(0, 0, {50, 0}, InvisibleGridObject::Before,
                               InvisibleGridObject::Centre, fixture.node(u"b"_s));
    fragment.addChild(&before);
    fragment.close();
    fragment.measure(fixture.style);
    fragment.paint(&fixture.device, {100, 200}, {60, 90}, fixture.style);
    EXPECT_EQ(fixture.device.callsOf(u"rect"_s),
              (QStringList{u"rect 92,60 100,90 radius 0 pen black solid 1 fill #FFFFFF"_s}));
}

TEST(UmlCombinedFragment, over_several_columns_ends_further_out_for_each_level_within)
{
    FragmentFixture fixture;
    UmlCombinedFragment outer(0, 0, fixture.subgraph(u"outer"_s));
    fixture.section(outer, 0, u"s"_s);
    UmlCombinedFragment inner(0, 0, fixture.subgraph(u"inner"_s));
    outer.addChild(&inner);
    UmlObject object(1, 1, fixture.node(u"a"_s));
    inner.addChild(&object);
    outer.addChild(fixture.keep(inner.close()));
    outer.close();
    inner.measure(fixture.style);
    outer.measure(fixture.style);
    outer.paint(&fixture.device, {100, 200, 300}, {60, 90, 120, 150}, fixture.style);
    EXPECT_EQ(fixture.device.callsOf(u"rect"_s),
              (QStringList{u"rect 85,60 219,150 radius 0 pen black solid 1 fill #FFFFFF"_s}));
}

TEST(UmlCombinedFragment, without_a_section_is_its_tag_alone)
{
    FragmentFixture fixture;
    UmlCombinedFragment fragment(0, 0, fixture.subgraph(u"f"_s, u"opt"_s));
    fragment.close();
    fragment.measure(fixture.style);
    EXPECT_EQ(fragment.height(), fixture.labelSize(u"opt"_s).height());
    EXPECT_EQ(fragment.width(), fixture.labelSize(u"opt"_s).width());
    fragment.measure(fixture.style);
    fragment.paint(&fixture.device, {100, 200}, {60, 90}, fixture.style);
    EXPECT_EQ(fixture.device.callsOf(u"rect"_s), QStringList());
    EXPECT_EQ(fixture.device.callsOf(u"polygon"_s).size(), 1);
    EXPECT_EQ(fixture.device.callsOf(u"text"_s).size(), 1);
}

TEST(UmlCombinedFragment, tells_the_device_what_it_and_its_sections_hold)
{
    class MemberDevice : public RecordingDevice
    {
    public:
        Cluster *createCluster(DotSubgraph *subgraph) override
        {
            made.append(RecordingDevice::createCluster(subgraph));
            return made.constLast();
        }
        QList<Cluster *> made;
    };
    FragmentFixture fixture;
    UmlCombinedFragment fragment(0, 0, fixture.subgraph(u"f"_s));
    DotSubgraph *section = fixture.graph.createSubgraph(fixture.graph.findSubgraph(u"f"_s), u"s"_s);
    DotNode *node = fixture.graph.createNode(section, {}, u"a"_s);
    fragment.addChild(fixture.keep(fragment.addSection(0, section)));
    fragment.close();

    MemberDevice device;
    fragment.measure(fixture.style);
    fragment.paint(&device, {100, 200}, {60, 90}, GraphStyle(&fixture.graph, &device));
    ASSERT_EQ(device.made.size(), 2);
    EXPECT_EQ(device.made.at(0)->members, QList<DotNode *>{node});
    EXPECT_EQ(device.made.at(1)->subclusters, QList<DotSubgraph *>{section});
}

TEST(UmlCombinedFragment, measures_a_chain_of_a_hundred_thousand)
{
    FragmentFixture fixture;
    DotSubgraph *subgraph = fixture.subgraph(u"f"_s);
    std::vector<std::unique_ptr<UmlCombinedFragment>> chain;
    for (int i = 0; i < 100'000; ++i) {
        chain.push_back(std::make_unique<UmlCombinedFragment>(0, 0, subgraph));
        if (i > 0)
            chain[i - 1]->addChild(chain[i].get());
    }
    for (int i = 100'000; i-- > 1;)
        chain[i - 1]->addChild(fixture.keep(chain[i]->close()));
    chain.front()->close();
    for (int i = 100'000; i-- > 0;)
        chain[i]->measure(fixture.style);
    EXPECT_EQ(chain.front()->nesting(), 99'999);
    EXPECT_EQ(chain.front()->lastRow(), 100'000);
    EXPECT_EQ(chain.front()->xOffset(), -8 - 7 * 99'999);
}
