// The parts of a page: texts of JSON, labels, what authors gave, the values of charts, the
// document.
#include "companion/page/chart_values.h"
#include "companion/page/compact_drawing.h"
#include "companion/page/given_attributes.h"
#include "companion/page/json_text.h"
#include "companion/page/packed_lists.h"
#include "companion/page/page_data.h"
#include "companion/page/page_document.h"
#include "companion/page/page_drawing.h"
#include "companion/page/page_parts.h"
#include "companion/page/plain_label.h"
#include "companion/read_page.h"
#include "graph/dot_parser.h"
#include "support/golden.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

QJsonObject dataOf(const QByteArray &input, const QString &engine)
{
    const MadePage page = makePage({.input = input, .engine = engine});
    EXPECT_EQ(page.fault, QString());
    return readPage(page.document)[u"data"_s].toObject();
}

QJsonArray array(const QByteArray &json)
{
    return QJsonDocument::fromJson(json).array();
}

QByteArray hashOf(std::string_view text)
{
    return QCryptographicHash::hash(QByteArrayView(text.data(), qsizetype(text.size())),
                                    QCryptographicHash::Sha256)
        .toBase64();
}

} // namespace

TEST(JsonText, is_read_back_and_ends_no_script)
{
    const QStringList texts{u""_s,
                            u"a\"b\\c/"_s,
                            u"</script><!--"_s,
                            u"\b\f\n\r\t\u0001\u007f\u0085"_s,
                            u"\u2028\u2029\U0001F600\u00e4"_s,
                            QString(QChar(u'\0'))};
    for (const QString &text : texts) {
        const QByteArray json = jsonText(text);
        EXPECT_EQ(array('[' + json + ']').at(0).toString(), text) << json.data();
        for (const char *const bad : {"<", "\n", "\xe2\x80\xa8", "\xe2\x80\xa9"})
            EXPECT_FALSE(json.contains(bad)) << json.data();
    }
    EXPECT_EQ(jsonText(u"x\xd800y\xdc00"_s), "\"x\\ud800y\\udc00\"");
}

TEST(PlainLabel, ends_lines_where_the_drawing_does)
{
    EXPECT_EQ(plainLabel(u"a\\nb\\lc\\r"_s, false), u"a\nb\nc"_s);
    EXPECT_EQ(plainLabel(u"a\\\\nb\\x\\"_s, false), u"a\\\\nb\\x\\"_s);
    EXPECT_EQ(plainLabel(u"<b>a</b>\\n&lt;"_s, true), u"a\\n<"_s);
}

TEST(GivenAttributes, are_the_authors_own_and_those_by_default)
{
    const auto graph = ORR::Graph::parseDot("digraph { graph [bgcolor=none, style=mine];"
                                            " node [color=red]; a [url=x, area=\"\"]; b; }");
    const GivenAttributes given(*graph);
    graph->setNodeAttribute(graph->findNode(u"a"), u"x0"_s, u"7"_s);
    using ORR::Graph::AttributeMap;
    EXPECT_EQ(given.of(graph->root()), AttributeMap({{u"style"_s, u"mine"_s}}));
    EXPECT_EQ(given.of(graph->findNode(u"a")),
              AttributeMap({{u"url"_s, u"x"_s}, {u"area"_s, u""_s}}));
    EXPECT_TRUE(given.of(graph->findNode(u"b")).isEmpty());
    EXPECT_TRUE(given.of(nullptr).isEmpty());
    ASSERT_EQ(given.defaults().size(), 1U);
    EXPECT_EQ(given.defaultsOf(graph->findNode(u"b")), 0);
    EXPECT_EQ(given.defaults()[0].attributes, AttributeMap({{u"color"_s, u"red"_s}}));
    EXPECT_EQ(given.defaultsOf(graph->root()), -1);
}

TEST(GivenAttributes, have_the_defaults_of_all_subgraphs_around)
{
    const auto graph = ORR::Graph::parseDot(
        "digraph { node [p=1]; edge [q=2]; graph [r=3];"
        " subgraph c { graph [s=4]; node [t=5]; subgraph d { a; } b; } a -> b; }");
    const GivenAttributes given(*graph);
    const auto chain = [&](const ORR::Graph::DotObject *object) {
        QStringList names;
        for (int at = given.defaultsOf(object); at >= 0; at = given.defaults()[size_t(at)].outer) {
            for (const auto &entry : given.defaults()[size_t(at)].attributes)
                names.append(entry.name.text());
        }
        return names.join(u' ');
    };
    EXPECT_EQ(chain(graph->findNode(u"a")), u"t p"_s);
    EXPECT_EQ(chain(graph->findSubgraph(u"d")), u""_s);
    EXPECT_EQ(chain(graph->findSubgraph(u"c")), u""_s);
    EXPECT_EQ(chain(graph->findSubgraph(u"c")->edges.constFirst()), u"q"_s);
}

TEST(GivenAttributes, leave_out_what_a_finished_drawing_keeps_in_them)
{
    const auto graph =
        ORR::Graph::parseDot("digraph { graph [xdotversion=\"1.2\", bb=\"0,0,9,9\"];"
                             " a [_draw_=\"\", pos=\"1,2\", x0=3, area=4, url=u, width=1]; }");
    EXPECT_EQ(GivenAttributes(*graph).of(graph->findNode(u"a")),
              ORR::Graph::AttributeMap({{u"area"_s, u"4"_s}, {u"url"_s, u"u"_s}}));
}

TEST(ChartValues, sum_up_without_the_legend)
{
    const auto graph = ORR::Graph::parseDot(
        "digraph { subgraph c { a [area=1.5]; b [area=\"-3\"]; subgraph d { e [area=nan]; f "
        "[area=2]; } }"
        " subgraph l { graph [legend=top]; g [area=100]; } h [area=0.001, radius=10]; }");
    const auto *legend = graph->findSubgraph(u"l");
    const ChartValues values(u"treemap"_s, *graph, legend);
    EXPECT_EQ(values.of(graph->findNode(u"b")), 0.0);
    EXPECT_EQ(values.of(graph->findNode(u"e")), 0.0);
    EXPECT_EQ(values.of(graph->findSubgraph(u"c")), 3.5);
    EXPECT_DOUBLE_EQ(values.total(), 3.501);
    const ChartValues bubbles(u"flatbubble"_s, *graph, legend);
    EXPECT_DOUBLE_EQ(bubbles.of(graph->findNode(u"h")), 314.0);
}

TEST(PageData, tells_of_objects_in_the_order_of_their_groups)
{
    const QJsonObject data = dataOf(
        "digraph { a [label=\"A\\nB\", url=u]; b [label=b]; a -> b [tooltip=t]; }", u"gfdecl"_s);
    EXPECT_EQ(data[u"engine"_s], u"gfdecl"_s);
    EXPECT_EQ(data[u"label"_s], array("[\"A\\nB\",0,0]"));
    EXPECT_EQ(data[u"parent"_s], array("[-1,-1,-1]"));
    EXPECT_EQ(data[u"names"_s], array("[\"label\",\"url\",\"tooltip\"]"));
    EXPECT_EQ(data[u"attributes"_s], array("[[0,\"A\\\\nB\",1,\"u\"],0,[2,\"t\"]]"));
    EXPECT_EQ(data[u"ends"_s], QJsonObject({{u"2"_s, array("[0,1]")}}));
    EXPECT_EQ(data[u"legend"_s], -1);
    EXPECT_FALSE(data.contains(u"value"_s));
    EXPECT_FALSE(data.contains(u"heads"_s));
    EXPECT_EQ(data[u"box"_s].toArray().size(), 12);
}

// What begins alike, what stands there already, and pairs of surrogates that begin alike.
TEST(PageData, packs_values_that_are_read_back)
{
    const QJsonObject data = dataOf("digraph { graph [note=root]; node [kind=part];"
                                    " a [url=\"docs/one.html\", mark=\"\xf0\x9f\x98\x80x\"];"
                                    " b [url=\"docs/two.html\", mark=\"\xf0\x9f\x98\x81x\"];"
                                    " c [url=\"docs/one.html\", file=\"docs/one.html\"]; }",
                                    u"gfdecl"_s);
    EXPECT_EQ(data[u"values"_s],
              array("[\"#docs/one.html\",\"#\U0001F600x\",\"(two.html\",\"#\U0001F601x\",0,0]"));
    EXPECT_EQ(data[u"attributes"_s],
              array("[[1,\"docs/one.html\",2,\"\U0001F600x\"],[1,\"docs/two.html\",2,"
                    "\"\U0001F601x\"],[1,\"docs/one.html\",3,\"docs/one.html\"]]"));
    EXPECT_EQ(data[u"names"_s], array("[\"kind\",\"url\",\"mark\",\"file\",\"note\"]"));
    EXPECT_EQ(data[u"defaults"_s], array("[[-1,0,\"part\"]]"));
    EXPECT_EQ(data[u"root"_s], array("[4,\"root\"]"));
}

TEST(PageData, has_values_and_the_legend_of_a_chart)
{
    const QJsonObject data =
        dataOf("digraph { subgraph c { a [area=3]; b [area=1]; } tiny [area=0.00001];"
               " subgraph l { graph [legend=top]; k [label=k, fillcolor=red]; } }",
               u"treemap"_s);
    EXPECT_EQ(data[u"value"_s], array("[4,3,1,0,0,1e-05]"));
    EXPECT_EQ(data[u"total"_s], 4.00001);
    EXPECT_EQ(data[u"parent"_s], array("[-1,0,0,-1,3,-1]"));
    EXPECT_EQ(data[u"legend"_s], 3);
}

// Behind what was drawn: subgraphs, nodes, edges, each with the innermost subgraph around it.
TEST(PageData, has_what_was_too_small_to_be_drawn)
{
    const QJsonObject data =
        dataOf("digraph { subgraph c { a [area=1]; few [area=1e-9, url=u];"
               " subgraph small { in [area=1e-9, label=\"I\"]; } } a -> few; }",
               u"treemap"_s);
    EXPECT_EQ(data[u"box"_s].toArray().size(), 4 * 2);
    EXPECT_EQ(data[u"undrawn"_s], array("[1,2,\"small\",\"few\",\"in\",\"a->few\"]"));
    EXPECT_EQ(data[u"parent"_s], array("[-1,0,0,0,2,0]"));
    EXPECT_EQ(data[u"label"_s], array("[0,0,0,0,\"I\",0]"));
    EXPECT_EQ(data[u"attributes"_s].toArray().at(3).toArray().at(3), u"u"_s);
    EXPECT_EQ(data[u"ends"_s], QJsonObject({{u"5"_s, array("[1,3]")}}));
}

TEST(PageData, has_the_uppermost_object_of_each_column)
{
    const QJsonObject data =
        dataOf("digraph { late [uml=object, row=2, col=0]; a [uml=object, row=0, col=0];"
               " b [uml=object, row=1, col=1]; c [uml=activation, row=0, col=2]; }",
               u"umlseq"_s);
    const QJsonArray heads = data[u"heads"_s].toArray();
    ASSERT_EQ(heads.size(), 2);
    const QJsonArray box = data[u"box"_s].toArray();
    EXPECT_LT(box.at(4 * heads.at(0).toInt() + 1).toInt(), 10);
    EXPECT_GT(box.at(4 * heads.at(1).toInt()).toInt(), box.at(4 * heads.at(0).toInt()).toInt());
}

TEST(PageData, is_that_of_a_text_that_brings_its_drawing)
{
    const QByteArray finished = "digraph { graph [xdotversion=\"1.2\", bb=\"0,0,50,50\"];\n"
                                "a [url=u, label=x, _draw_=\"c 5 -black P 3 1 1 9 1 9 9 \"];\n"
                                "a [_draw_=\"c 5 -black P 3 1 1 9 1 9 20 \"]; }";
    const QJsonObject data = dataOf(finished, {});
    EXPECT_EQ(data[u"engine"_s], u""_s);
    EXPECT_EQ(data[u"size"_s], array("[58,58]"));
    EXPECT_EQ(data[u"label"_s], array("[\"x\",\"x\"]"));
    EXPECT_EQ(data[u"same"_s], QJsonObject({{u"1"_s, 0}}));
    EXPECT_EQ(data[u"attributes"_s], array("[[0,\"u\"],[0,\"u\"]]"));
}

TEST(PackedLists, have_what_differs_from_what_came_before)
{
    EXPECT_EQ(differences({5, 7, 6, 7}), "[5,2,-1,1]");
    EXPECT_EQ(differences({1, 2, 3, 1, 5, 2}, 3), "[1,2,3,0,3,-1]");
    EXPECT_EQ(differences({}), "[]");
    QString last;
    EXPECT_EQ(textAfter(&last, u"file_1"_s), "\"#file_1\"");
    EXPECT_EQ(textAfter(&last, u"file_2"_s), "\"(2\"");
    EXPECT_EQ(last, u"file_2"_s);
    EXPECT_EQ(textAfter(&last, u"\U0001F600"_s), "\"#\U0001F600\"");
    EXPECT_EQ(textAfter(&last, u"\U0001F601"_s), "\"#\U0001F601\""); // the pair stays whole
}

TEST(CompactDrawing, has_at_its_root_what_most_elements_have)
{
    QByteArray drawing =
        "<svg id=\"drawing\" width=\"9\">\n<g data-kind=\"node\" data-id=\"a\">\n"
        " <path d=\"M0,0h9v9h-9z\" stroke=\"#000000\" fill=\"#ff0000\"/>\n"
        " <path d=\"M 0 0 C 1 2, 3 4, 5 6\" stroke=\"#00ff00\" fill=\"none\"/>\n"
        " <path d=\"M0,0h9v9h-9z\" stroke=\"#000000\" fill=\"none\"/>\n"
        " <text x=\"1\" y=\"2\" fill=\"#000000\" font-family=\"A\" font-size=\"12\">a</text>\n"
        " <text x=\"1\" y=\"2\" fill=\"#0000ff\" font-family=\"A\" font-size=\"9\">b</text>\n"
        "</g>\n</svg>\n";
    compactDrawing(&drawing);
    EXPECT_EQ(drawing,
              "<svg id=\"drawing\" font-family=\"A\" font-size=\"12\" fill=\"#000000\""
              " stroke=\"#000000\" width=\"9\"><g data-kind=\"node\" data-id=\"a\">"
              "<path d=\"M0,0h9v9h-9z\" fill=\"#ff0000\"/>"
              "<path d=\"M0 0C1 2,3 4,5 6\" stroke=\"#00ff00\" fill=\"none\"/>"
              "<path d=\"M0,0h9v9h-9z\" fill=\"none\"/>"
              "<text stroke=\"none\" x=\"1\" y=\"2\">a</text>"
              "<text stroke=\"none\" x=\"1\" y=\"2\" fill=\"#0000ff\" font-family=\"A\""
              " font-size=\"9\">b</text></g></svg>\n");
}

// Rich texts bring groups that say what is inherited in them.
TEST(CompactDrawing, leaves_rich_texts_as_they_are)
{
    const QByteArray rich = "<svg id=\"drawing\" width=\"9\"><g fill=\"none\"><text"
                            " fill=\"#000000\" font-family=\"A\" font-size=\"12\">a</text></g>"
                            "<path stroke=\"#000000\"/><path stroke=\"#000000\"/></svg>\n";
    QByteArray drawing = rich;
    compactDrawing(&drawing);
    EXPECT_EQ(drawing, rich);
}

TEST(PageDocument, allows_its_own_script_and_style_by_their_hash)
{
    const QByteArray document =
        pageDocument({u"A <b> & {{code}}"_s, "<svg></svg>", "{\"{{title}}\":1}"});
    const QJsonObject page = readPage(document);
    EXPECT_EQ(page[u"title"_s], u"A <b> & {{code}}"_s);
    EXPECT_EQ(page[u"script"_s].toString().toUtf8(),
              QByteArray(pageCode.data(), qsizetype(pageCode.size())));
    EXPECT_EQ(page[u"style"_s].toString().toUtf8(),
              QByteArray(pageTheme.data(), qsizetype(pageTheme.size())));
    EXPECT_EQ(page[u"policy"_s].toString().toUtf8(),
              "default-src 'none'; script-src 'sha256-" + hashOf(pageCode) + "'; style-src 'sha256-"
                  + hashOf(pageTheme) + "'; img-src data:; base-uri 'none'; form-action 'none'");
    EXPECT_EQ(page[u"data"_s].toObject(), QJsonObject({{u"{{title}}"_s, 1}}));
    EXPECT_EQ(document, pageDocument({u"A <b> & {{code}}"_s, "<svg></svg>", "{\"{{title}}\":1}"}));
}

// The limit is what was promised to whoever loads pages.
TEST(PageDocument, has_code_theme_and_template_below_60_kilobytes)
{
    const size_t size = pageCode.size() + pageTheme.size() + pageTemplate.size();
    RecordProperty("bytes", int(size));
    std::printf("a page has %zu bytes of its own\n", size);
    EXPECT_LT(size, 60'000U);
    EXPECT_GT(pageCode.size(), 10'000U);
    for (const char *const comment : {"/**", "@param", "\n//", "import {", "export "})
        EXPECT_EQ(pageCode.find(comment), std::string_view::npos) << comment;
}

TEST(PageTitle, is_the_option_the_label_the_name_or_else_what_is_at_hand)
{
    const auto titleOf = [](const QByteArray &input, const QString &option) {
        const MadePage page = makePage(
            {.input = input, .engine = u"bar"_s, .title = option, .fallbackTitle = u"file"_s});
        return readPage(page.document)[u"title"_s].toString();
    };
    EXPECT_EQ(titleOf("digraph \"a name\" { graph [label=\"a\\nlabel\"]; }", u"own"_s), u"own"_s);
    EXPECT_EQ(titleOf("digraph \"a name\" { graph [label=\"a\\nlabel\"]; }", {}), u"a label"_s);
    EXPECT_EQ(titleOf("digraph \"a name\" { }", {}), u"a name"_s);
    EXPECT_EQ(titleOf("digraph { }", {}), u"file"_s);
}
