// How fragments are drawn.
#include "layout/sequence/uml_painter.h"

#include "sequence_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

// Sections from the last to the first, each down to where the one below begins; then the tag.
TEST(PaintFragment, draws_its_sections_from_the_last_to_the_first_and_then_its_tag)
{
    DiagramFixture fixture;
    UmlFragment fragment;
    fragment.subgraph = fixture.subgraph(u"f"_s, u"alt"_s);
    fragment.sections = {{0, fixture.subgraph(u"if"_s, u"[yes]"_s)},
                         {3, fixture.subgraph(u"else"_s, u"[no]"_s)}};
    fragment.cells = {0, 4, 1};
    fixture.parts.fragments = {fragment};
    const QStringList calls = fixture.paint({100, 200, 300}, {60, 90, 120, 150, 190});

    const QSize title = fixture.labelSize(u"alt"_s);
    const QSize first = fixture.labelSize(u"[yes]"_s);
    const int left = 100 - 8 - std::max(title.width(), first.width());
    const int top = 60 - title.height() - first.height();
    const int tagRight = left + title.width() - 1;
    const int tagBottom = top + title.height() - 1;
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
    EXPECT_EQ(calls, expected);
}

TEST(PaintFragment, without_a_section_is_its_tag_alone)
{
    DiagramFixture fixture;
    UmlFragment fragment;
    fragment.subgraph = fixture.subgraph(u"f"_s, u"opt"_s);
    fixture.parts.fragments = {fragment};
    fixture.paint({100, 200}, {60, 90});
    EXPECT_EQ(fixture.diagram.extents.fragments.at(0).width, fixture.labelSize(u"opt"_s).width());
    EXPECT_EQ(fixture.device.callsOf(u"rect"_s), QStringList());
    EXPECT_EQ(fixture.device.callsOf(u"polygon"_s).size(), 1);
    EXPECT_EQ(fixture.device.callsOf(u"text"_s).size(), 1);
}

TEST(PaintFragment, tells_the_device_what_it_and_its_sections_hold)
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
    const auto graph = parseDot("digraph { subgraph f { graph [uml=combinedfragment] "
                                "subgraph s { graph [uml=section] a [uml=object] } } }");
    MemberDevice device;
    EXPECT_EQ(UmlSequence::run({graph.get(), &device}), u""_s);
    DotSubgraph *section = graph->root()->subgraphs.at(0)->subgraphs.at(0);
    ASSERT_EQ(device.made.size(), 2);
    EXPECT_EQ(device.made.at(0)->members, QList<DotNode *>{section->nodes.at(0)});
    EXPECT_EQ(device.made.at(1)->subclusters, QList<DotSubgraph *>{section});
}
