// The grammar of the replay, the frames and what they inherit, the objects, and where texts go.

#include "device/xdot_render.h"
#include "graph/dot_parser.h"
#include "support/golden.h"
#include "support/recording_device.h"
#include "xdot/replay_support.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

const QString parseFault = u"Unable to parse input xdot"_s;

// The calls behind `begin`.
QStringList pageCalls(const QByteArray &statements)
{
    QStringList calls = replayCalls(page(statements));
    EXPECT_EQ(calls.takeFirst(), u"begin 108 58"_s);
    return calls;
}

struct Faulty
{
    QString message;
    QStringList calls;
};

Faulty replayFaulty(const QByteArray &text)
{
    RecordingDevice device;
    const QString message = replayOn(text, device);
    return {message, device.calls()};
}

const QByteArray dot = "_draw_=\"L 1 0 0\"";
const QString dotCall = u"polyline 4,54 pen none solid 1"_s;

} // namespace

TEST(Replay, bb_begins_a_page_with_a_margin_of_four)
{
    EXPECT_EQ(replayCalls("digraph g { graph [bb=\"0,0,100,50\"]; }"),
              QStringList{u"begin 108 58"_s});
    EXPECT_EQ(replayCalls("digraph { graph [bb=\"10,20,110.9,70\"]; }"),
              QStringList{u"begin 108 58"_s});
}

TEST(Replay, the_top_left_corner_of_bb_is_four_four)
{
    EXPECT_EQ(drawCalls("L 1 0 50"), QStringList{u"polyline 4,4 pen none solid 1"_s});
}

TEST(Replay, a_second_bb_is_ignored)
{
    EXPECT_EQ(pageCalls("graph [bb=\"0,0,7,7\"]; subgraph s { graph [bb=\"1,2,3,4\"]; }"),
              (QStringList{u"beginCluster s"_s, u"endCluster"_s}));
}

TEST(Replay, a_text_without_bb_never_begins)
{
    EXPECT_EQ(replayCalls("digraph g { n [_draw_=\"L 1 0 0\"]; }"),
              (QStringList{u"beginNode n"_s, u"polyline 4,4 pen none solid 1"_s, u"endNode"_s}));
}

TEST(Replay, fields_of_bb_that_are_missing_are_zero)
{
    EXPECT_EQ(replayCalls("digraph g { graph [bb=\"\"]; }"), QStringList{u"begin 8 8"_s});
    EXPECT_EQ(replayCalls("digraph g { graph [bb=\"5,6\"]; }"), QStringList{u"begin 3 2"_s});
    EXPECT_EQ(replayCalls("digraph g { graph [bb=\"x,y,z\"]; }"), QStringList{u"begin 8 8"_s});
}

TEST(Replay, absurd_pages_saturate)
{
    EXPECT_EQ(replayCalls("digraph g { graph [bb=\"0,0,1,2000000000\"]; }"),
              QStringList{u"begin 9 2000000008"_s});
    EXPECT_EQ(replayCalls("digraph g { graph [bb=\"0,0,1e99,-1e99\"]; }"),
              QStringList{u"begin 2147483647 -2147483640"_s});
    EXPECT_EQ(replayCalls("digraph g { graph [bb=\"0,0,nan,0\"]; }"), QStringList{u"begin 8 8"_s});
}

TEST(Replay, the_result_is_that_of_the_device)
{
    RecordingDevice device;
    device.setResult(u"no disk\n"_s);
    EXPECT_EQ(replayOn("digraph g { }", device), u"no disk\n"_s);
}

TEST(Replay, a_fault_keeps_what_was_drawn_and_ends_the_drawing)
{
    const Faulty faulty = replayFaulty(page("n [" + dot + "]; subgraph s { m [" + dot));
    EXPECT_EQ(faulty.message, parseFault);
    EXPECT_EQ(faulty.calls, (QStringList{u"begin 108 58"_s, dotCall, u"end"_s}));
}

TEST(Replay, objects_that_a_fault_leaves_open_are_not_ended)
{
    RecordingDevice device;
    const std::unique_ptr<DotGraph> graph = parseDot("digraph g { subgraph s { m; } }");
    const QByteArray text = "digraph g { subgraph s { m [x=1 ! } }";
    EXPECT_EQ(Graphviz::XDotRender(&device, graph.get()).render(text), parseFault);
    EXPECT_EQ(device.calls(), (QStringList{u"beginCluster s"_s, u"beginNode m"_s, u"end"_s}));
}

TEST(Replay, the_message_of_a_fault_goes_before_that_of_the_device)
{
    RecordingDevice device;
    device.setResult(u"no disk\n"_s);
    EXPECT_EQ(replayOn("digraph g {", device), parseFault);
    EXPECT_EQ(device.calls(), QStringList{u"end"_s});
}

TEST(Replay, the_head_is_digraph_with_or_without_a_name)
{
    EXPECT_EQ(replayFaulty("digraph {}").message, u""_s);
    EXPECT_EQ(replayFaulty("digraph \"a b\" {}").message, u""_s);
    EXPECT_EQ(replayFaulty("\"digraph\" g {}").message, u""_s);
    for (const QByteArray text : {"", "graph g {}", "strict digraph g {}", "Digraph g {}", "{}",
                                  "digraph g", "digraph g h {}", "digraph g ["})
        EXPECT_EQ(replayFaulty(text).message, parseFault) << text.toStdString();
}

TEST(Replay, what_stands_behind_the_last_brace_is_not_read)
{
    EXPECT_EQ(replayFaulty("digraph g { } [ } ;").message, u""_s);
}

TEST(Replay, keywords_need_an_attribute_list)
{
    for (const QByteArray word : {"graph", "node", "edge"}) {
        EXPECT_EQ(replayFaulty("digraph g { " + word + "; }").message, parseFault);
        EXPECT_EQ(replayFaulty("digraph g { " + word + " []; }").message, u""_s);
        EXPECT_EQ(replayFaulty("digraph g { " + word + " [] }").message, u""_s);
        EXPECT_TRUE(parseDot("digraph g { " + word + "; }"));
    }
}

TEST(Replay, an_edge_needs_an_attribute_list)
{
    EXPECT_EQ(replayFaulty("digraph g { a -> b; }").message, parseFault);
    EXPECT_EQ(replayFaulty("digraph g { a -> b [] }").message, u""_s);
    EXPECT_EQ(replayFaulty("digraph g { a -> [] }").message, parseFault);
    EXPECT_TRUE(parseDot("digraph g { a -> b; }"));
}

TEST(Replay, a_node_alone_needs_a_semicolon)
{
    EXPECT_EQ(replayFaulty("digraph g { a }").message, parseFault);
    EXPECT_EQ(replayFaulty("digraph g { a b; }").message, parseFault);
    EXPECT_TRUE(parseDot("digraph g { a }"));
    EXPECT_EQ(pageCalls("a;"), QStringList()); // and draws nothing
}

TEST(Replay, no_semicolon_follows_a_subgraph)
{
    EXPECT_EQ(replayFaulty("digraph g { subgraph s { }; }").message, parseFault);
    EXPECT_EQ(replayFaulty("digraph g { subgraph s { } }").message, u""_s);
    EXPECT_TRUE(parseDot("digraph g { subgraph s { }; }"));
}

TEST(Replay, one_semicolon_may_follow_an_attribute_list)
{
    EXPECT_EQ(replayFaulty("digraph g { a []; b [] c []; }").message, u""_s);
    EXPECT_EQ(replayFaulty("digraph g { a [];; }").message, parseFault);
}

TEST(Replay, attribute_lists_are_checked_to_their_end)
{
    for (const QByteArray list : {"[", "[x", "[x=", "[x=1", "[x 1]", "[=1]", "[x=]", "[,]",
                                  "[x=1,,y=2]", "[x=1;y=2]", "[x=\"1]", "[x={}]"})
        EXPECT_EQ(replayFaulty("digraph g { a " + list + " }").message, parseFault)
            << list.toStdString();
    EXPECT_EQ(replayFaulty("digraph g { a [x=1 y=2, z=3,] }").message, u""_s);
}

TEST(Replay, statements_are_names_and_nothing_else)
{
    for (const QByteArray statement : {"{ a; }", ";", "=", "a = b;", "[x=1]", "-> b [];", ",",
                                       "a -> b -> c [];", "subgraph s;", "subgraph s [];"})
        EXPECT_EQ(replayFaulty("digraph g { " + statement + " }").message, parseFault)
            << statement.toStdString();
}

TEST(Replay, keywords_may_be_quoted)
{
    EXPECT_EQ(pageCalls("\"subgraph\" s { \"node\" [" + dot + "]; }"),
              (QStringList{u"beginCluster s"_s, dotCall, u"endCluster"_s}));
}

TEST(Replay, objects_begin_and_end_around_their_drawing)
{
    EXPECT_EQ(pageCalls("subgraph s { graph [" + dot + "]; a [" + dot + "]; } b []; a -> b [" + dot
                        + "];"),
              (QStringList{u"beginCluster s"_s, dotCall, u"beginNode a"_s, dotCall, u"endNode"_s,
                           u"endCluster"_s, u"beginNode b"_s, u"endNode"_s, u"beginEdge a->b"_s,
                           dotCall, u"endEdge"_s, u"connect a->b a b"_s}));
}

TEST(Replay, an_edge_ahead_of_its_nodes_connects_to_nothing)
{
    EXPECT_EQ(pageCalls("a -> b [];"),
              (QStringList{u"beginEdge a->b"_s, u"endEdge"_s, u"connect a->b (none) (none)"_s}));
}

TEST(Replay, clusters_are_told_their_members)
{
    struct Device : RecordingDevice
    {
        Cluster *last = nullptr;
        Cluster *createCluster(DotSubgraph *subgraph) override
        {
            return last = RecordingDevice::createCluster(subgraph);
        }
    } device;
    const QByteArray text = page("subgraph s { a []; subgraph t { } }");
    const std::unique_ptr<DotGraph> graph = parseDot(text);
    DotSubgraph *s = graph->findSubgraph(u"s"_s);
    device.beginCluster(s, true);
    Device::Cluster *expected = device.last;
    EXPECT_EQ(Graphviz::XDotRender(&device, graph.get()).render(text), u""_s);
    EXPECT_EQ(device.last->members, QList<DotNode *>()); // that of t
    EXPECT_EQ(expected->members, s->nodes);
    EXPECT_EQ(device.clusterObjects(expected).size(), 1);
}

TEST(Replay, an_unnamed_subgraph_draws_and_is_no_object)
{
    EXPECT_EQ(pageCalls("subgraph { graph [" + dot + "]; }"), QStringList{dotCall});
}

TEST(Replay, keyword_statements_draw_and_are_no_objects)
{
    EXPECT_EQ(pageCalls("graph [" + dot + "]; node [" + dot + "]; edge [" + dot + "];"),
              (QStringList{dotCall, dotCall, dotCall}));
}

TEST(Replay, parallel_edges_are_paired_in_the_order_of_the_file)
{
    struct Device : RecordingDevice
    {
        QStringList labels;
        Edge *createEdge(DotEdge *edge) override
        {
            labels += edge->attributes.value(u"k"_s);
            return RecordingDevice::createEdge(edge);
        }
    } device;
    EXPECT_EQ(
        replayOn("digraph g { a -> b [k=1]; a -> c [k=x]; a -> b [k=2]; a -> b [k=3]; }", device),
        u""_s);
    EXPECT_EQ(device.labels, (QStringList{u"1"_s, u"x"_s, u"2"_s, u"3"_s}));
}

TEST(Replay, settings_act_whatever_their_place_in_the_list)
{
    EXPECT_EQ(nodeCalls(dot + ", color=red, penwidth=3.9, style=dotted"),
              QStringList{u"polyline 4,54 pen red dotted 3"_s});
    EXPECT_EQ(nodeCalls("fillcolor=blue, _draw_=\"E 0 0 1 1\""),
              QStringList{u"ellipse 4,54 radii 1,1 pen none solid 1 fill blue"_s});
}

TEST(Replay, settings_take_effect_in_the_order_of_the_file)
{
    EXPECT_EQ(nodeCalls("penwidth=5, style=bold, " + dot),
              QStringList{u"polyline 4,54 pen none solid 2"_s});
    EXPECT_EQ(nodeCalls("style=bold, penwidth=5, " + dot),
              QStringList{u"polyline 4,54 pen none solid 5"_s});
}

TEST(Replay, fonts_come_from_attributes_too)
{
    EXPECT_EQ(nodeCalls("fontname=Courier, fontsize=\"9.6\", color=red,"
                        " _ldraw_=\"T 0 50 -1 9 1 -x\""),
              QStringList{u"text 4,-6 \"x\" Courier 10 red"_s});
}

TEST(Replay, unknown_attributes_have_no_effect)
{
    EXPECT_EQ(nodeCalls("Color=red, stroke=blue, style=\"bold,dashed\", \"\"=x, " + dot),
              QStringList{dotCall});
}

TEST(Replay, settings_die_with_their_statement)
{
    EXPECT_EQ(pageCalls("graph [color=red]; node [color=blue]; n [" + dot + "];"),
              (QStringList{u"beginNode n"_s, dotCall, u"endNode"_s}));
}

TEST(Replay, settings_within_a_drawing_die_with_it)
{
    EXPECT_EQ(nodeCalls("_draw_=\"c 3 -red S 6 -dashed L 1 0 0\", _hdraw_=\"L 1 0 0\""),
              (QStringList{u"polyline 4,54 pen red dashed 1"_s, dotCall}));
}

TEST(Replay, drawings_inherit_the_settings_of_their_object)
{
    EXPECT_EQ(nodeCalls("color=red, _draw_=\"L 1 0 0\", _hdraw_=\"L 1 0 0\", _tdraw_=\"L 1 0 0\""),
              (QStringList{u"polyline 4,54 pen red solid 1"_s, u"polyline 4,54 pen red solid 1"_s,
                           u"polyline 4,54 pen red solid 1"_s}));
}

TEST(Replay, drawings_come_in_a_fixed_order)
{
    const auto named = [](const QByteArray &attribute, int x) {
        return attribute + "=\"L 1 " + QByteArray::number(x) + " 0\", ";
    };
    const QStringList calls =
        nodeCalls(named("_tldraw_", 6) + named("_hldraw_", 5) + named("_tdraw_", 4)
                  + named("_hdraw_", 3) + named("_ldraw_", 2) + named("_draw_", 1));
    ASSERT_EQ(calls.size(), 6);
    for (int i = 0; i < 6; ++i)
        EXPECT_TRUE(calls.at(i).startsWith(u"polyline %1,54"_s.arg(i + 5))) << i;
}

TEST(Replay, the_last_of_two_equal_drawing_attributes_holds)
{
    EXPECT_EQ(nodeCalls("_draw_=\"L 1 0 0\", _draw_=\"L 1 1 0\""),
              QStringList{u"polyline 5,54 pen none solid 1"_s});
}

TEST(Replay, texts_are_drawn_from_ldraw_only)
{
    for (const QByteArray attribute : {"_draw_", "_hdraw_", "_tdraw_", "_hldraw_", "_tldraw_"})
        EXPECT_EQ(nodeCalls(attribute + "=\"F 9 5 -Arial T 0 0 -1 9 1 -x\""), QStringList());
    EXPECT_EQ(nodeCalls("_ldraw_=\"F 9 5 -Arial T 0 0 -1 9 1 -x\"").size(), 1);
}

TEST(Replay, texts_come_behind_the_shapes_of_their_attribute)
{
    EXPECT_EQ(labelCalls("F 9 5 -Arial T 0 0 -1 9 1 -x L 1 0 0"),
              (QStringList{dotCall, u"text 4,45 \"x\" Arial 9 none"_s}));
}

TEST(Replay, left_aligned_texts_of_a_wide_object_share_a_left_edge)
{
    // The object is 72 wide and centred on 60; the widest of the texts is 31.
    EXPECT_EQ(nodeCalls("pos=\"60,20\", width=1, _ldraw_=\"F 9 5 -Arial T 0 0 -1 31 1 -a"
                        " T 7 0 -1 9 1 -b T 60 0 0 9 1 -c\""),
              (QStringList{u"text 49,45 \"a\" Arial 9 none"_s, // 60 - 15 + 4
                           u"text 49,45 \"b\" Arial 9 none"_s,
                           u"text 60,45 \"c\" Arial 9 none"_s})); // 64 - 4
}

TEST(Replay, left_aligned_texts_stay_where_they_are_without_width_or_pos)
{
    const QByteArray label = "_ldraw_=\"F 9 5 -Arial T 10 0 -1 31 1 -a\"";
    const QStringList stays{u"text 14,45 \"a\" Arial 9 none"_s};
    EXPECT_EQ(nodeCalls("pos=\"60,20\", " + label), stays);
    EXPECT_EQ(nodeCalls("width=1, " + label), stays);
    EXPECT_EQ(nodeCalls("pos=\"0,20\", width=1, " + label), stays);
    EXPECT_EQ(nodeCalls("pos=\"-60,20\", width=1, " + label), stays);
    EXPECT_EQ(nodeCalls("pos=\"e,60,20\", width=1, " + label), stays);
    EXPECT_EQ(nodeCalls("pos=\"60,20\", width=\"0.43\", " + label), stays); // 31, not more
}

TEST(Replay, width_is_rounded_to_points)
{
    // 0.438 inches are 31.536 points, so 32.
    EXPECT_EQ(nodeCalls("pos=\"60.5,20\", width=\"0.438\","
                        " _ldraw_=\"F 9 5 -Arial T 10 0 -1 31 1 -a\""),
              QStringList{u"text 50,45 \"a\" Arial 9 none"_s}); // 61 - 15 + 4
}

TEST(Replay, pos_and_width_reach_the_label_wherever_they_stand)
{
    EXPECT_EQ(nodeCalls("_ldraw_=\"F 9 5 -Arial T 0 0 -1 31 1 -a\", width=1, pos=\" 60\""),
              QStringList{u"text 49,45 \"a\" Arial 9 none"_s});
}

TEST(Replay, pos_and_width_die_with_their_statement)
{
    EXPECT_EQ(
        pageCalls("m [pos=\"60,20\", width=1]; n [_ldraw_=\"F 9 5 -Arial T 0 0 -1 9 1 -a\"];"),
        (QStringList{u"beginNode m"_s, u"endNode"_s, u"beginNode n"_s,
                     u"text 4,45 \"a\" Arial 9 none"_s, u"endNode"_s}));
}

TEST(Replay, a_left_edge_of_zero_leaves_texts_where_they_are)
{
    // 1 - 10 / 2 + 4 is 0.
    EXPECT_EQ(nodeCalls("pos=\"1,20\", width=1, _ldraw_=\"F 9 5 -Arial T 20 0 -1 10 1 -a\""),
              QStringList{u"text 24,45 \"a\" Arial 9 none"_s});
}

TEST(Replay, with_html_labels_every_text_is_rich)
{
    const QByteArray text = page("n [_ldraw_=\"F 9 5 -Arial T 0 0 -1 9 1 -x\"];");
    const std::unique_ptr<DotGraph> graph = parseDot(text);
    graph->declareAttribute(graph->root(), u"htmllabels"_s, u"on"_s, QString());
    RecordingDevice device;
    EXPECT_EQ(Graphviz::XDotRender(&device, graph.get()).render(text), u""_s);
    EXPECT_EQ(device.callsOf(u"richtext"_s), QStringList{u"richtext 4,45 \"x\" Arial 9 none"_s});
}

TEST(Replay, a_plain_device_gets_the_same_drawing)
{
    RecordingDevice device(false);
    EXPECT_EQ(replayOn(page("subgraph s { n [" + dot + "]; } n -> n [" + dot + "];"), device),
              u""_s);
    EXPECT_EQ(device.calls(),
              (QStringList{u"begin 108 58"_s, dotCall, u"endNode"_s, u"endCluster"_s, dotCall,
                           u"endEdge"_s, u"end"_s}));
}

TEST(Replay, the_saved_render_is_an_empty_file_in_the_home_directory)
{
    const QTemporaryDir home;
    const QByteArray oldHome = qgetenv("HOME");
    const QString path = home.filePath(u"render.txt"_s);
    qputenv("HOME", home.path().toLocal8Bit());
    RecordingDevice device;
    replayOn("digraph g { }", device);
    EXPECT_FALSE(QFile::exists(path));

    qputenv("ORR_SAVE_RENDER", "");
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    EXPECT_EQ(replayOn("digraph g { }", device), u""_s);
    EXPECT_EQ(readTestFile(path), QByteArray());

    qputenv("HOME", "/dev/null/none");
    EXPECT_EQ(replayOn("digraph g { }", device), u""_s);
    qunsetenv("ORR_SAVE_RENDER");
    qputenv("HOME", oldHome);
}
