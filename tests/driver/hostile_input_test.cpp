// Inputs that nobody means well with: a message or a drawing, and no crash.
#include "driver/program_run.h"
#include "support/golden.h"

using namespace Qt::StringLiterals;

namespace {

using HostileInput = ProgramTest;

QByteArray nested(int depth)
{
    QByteArray graph = "digraph {";
    for (int i = 0; i < depth; ++i)
        graph += "subgraph cluster_" + QByteArray::number(i) + " {";
    return graph + "a [area=1];" + QByteArray(depth, '}') + "}";
}

// The numbers that break what was computed with ordinary ones in mind.
const QList<QByteArray> oddNumbers{"1e308",       "\"-1e308\"", "nan",           "inf",
                                   "\"-inf\"",    "0",          "\"-1\"",        "1e-320",
                                   "99999999999", "\"\"",       "\"1e308,nan\"", "x"};

} // namespace

TEST_F(HostileInput, texts_that_are_no_graphs_are_rejected)
{
    const QList<QByteArray> texts{
        "\n",
        "digraph",
        "digraph {",
        "digraph { a [label=\"never closed };",
        "digraph { a [label=\"x\\",
        "strict digraph {}",
        "graph { a }",
        "digraph { a -> }",
        "digraph {} trailing",
        QByteArray("digraph { a [label=\"x\0y\"] }", 27),
        QByteArray("\0digraph {}", 11),
        QByteArray(1'000'000, '\0'),
        QByteArray(1'000'000, '{'),
        QByteArray("\xFF\xFE") + QByteArray("d\0i\0", 4),
        QByteArray("\xEF\xBB\xBF") + "digraph {}",
    };
    for (const QByteArray &text : texts)
        EXPECT_TRUE(failedWith(draw(text), parseMessage)) << text.left(60).toStdString();
}

TEST_F(HostileInput, graphs_of_nothing_are_drawn)
{
    for (const QByteArray text : {"digraph {}", "digraph { subgraph {} }", "digraph x { a; }"})
        EXPECT_TRUE(succeeded(draw(text))) << text.toStdString();
}

TEST_F(HostileInput, nothing_is_read_behind_a_null_byte_at_the_end)
{
    const QByteArray graph = smallGraph();
    const ProgramRun drawn = draw(graph + '\0' + "junk {{{");
    EXPECT_TRUE(succeeded(drawn));
    EXPECT_EQ(drawn.output, draw(graph).output);
}

TEST_F(HostileInput, invalid_utf8_is_drawn_with_replacement_characters)
{
    for (const QByteArray label : {"\xFF\xFE", "\xC3", "\xED\xA0\x80", "\xF8\x88\x80\x80\x80"}) {
        const ProgramRun drawn = draw("digraph { a [area=1 label=\"" + label + "\"] }");
        EXPECT_TRUE(succeeded(drawn));
        EXPECT_TRUE(drawn.output.contains("\xEF\xBF\xBD")) << drawn.output.toStdString();
    }
}

TEST_F(HostileInput, hundred_thousand_nested_subgraphs_are_drawn)
{
    EXPECT_TRUE(succeeded(draw(nested(100'000))));
}

TEST_F(HostileInput, million_nested_subgraphs_that_never_close_are_rejected)
{
    QByteArray graph = "digraph ";
    for (int i = 0; i < 1'000'000; ++i)
        graph += "{subgraph";
    EXPECT_TRUE(failedWith(draw(graph), parseMessage));
}

TEST_F(HostileInput, odd_numbers_are_drawn_in_every_attribute_of_the_page)
{
    for (const QByteArray name : {"width", "height", "margin", "fontsize"}) {
        for (const QByteArray &number : oddNumbers) {
            const QByteArray graph = "digraph { graph [" + name + '=' + number
                + "]; subgraph cluster_a { graph [label=A]; a [area=1 label=a]; }"
                  " subgraph key { graph [legend=right]; l [label=l]; } }";
            EXPECT_TRUE(succeeded(draw(graph, u"svg"_s))) << graph.toStdString();
        }
    }
}

TEST_F(HostileInput, odd_numbers_are_drawn_in_every_attribute_of_a_node)
{
    for (const QByteArray name : {"area", "fontsize", "penwidth", "gradientAngle", "margin"}) {
        for (const QByteArray &number : oddNumbers) {
            const QByteArray graph = "digraph { subgraph cluster_a { graph [" + name + '=' + number
                + " label=A fillcolor=\"red:blue\"]; a [fillcolor=\"red:blue\" label=a area=2 "
                + name + '=' + number + "]; b [area=1]; } }";
            EXPECT_TRUE(succeeded(draw(graph, u"svg"_s))) << graph.toStdString();
        }
    }
}

TEST_F(HostileInput, long_tokens_are_drawn)
{
    const QByteArray text(1'000'000, 'x');
    EXPECT_TRUE(succeeded(draw("digraph { " + text + " [area=1 " + text + '=' + text + "] }")));
}
