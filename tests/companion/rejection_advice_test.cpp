// Of a text that is rejected: where the cause is, and how to write what is likely meant.
#include "companion/check_said.h"
#include "companion/syntax_told.h"

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

// What is said of the one thing that is wrong.
std::string toldOnce(const QByteArray &text)
{
    const QStringList said = saidOf(text);
    EXPECT_EQ(said.size(), 1) << text.toStdString() << '\n' << said.join(u'\n').toStdString();
    return said.value(0).toStdString();
}

// Behind the place: the rule and the suggestion.
std::string adviceFor(const QByteArray &text)
{
    const QList<Finding> findings = syntaxFindings(text);
    if (findings.size() != 1)
        return "not one finding";
    const Finding &finding = findings.first();
    return std::to_string(finding.line) + ':' + std::to_string(finding.column) + ' '
        + std::string(finding.rule->id) + ": " + finding.suggestion.toStdString();
}

} // namespace

TEST(RejectionAdvice, of_what_stands_behind_the_graph)
{
    EXPECT_EQ(toldOnce("digraph { a };"),
              "1:14 text-behind-graph: the graph is over: found ';', expected the end of the text; "
              "leave the semicolon out");
    EXPECT_EQ(adviceFor("digraph { a }\ndigraph { b }"),
              "2:1 text-behind-graph: write each graph into a text of its own");
    EXPECT_EQ(adviceFor("digraph { a } }"),
              "1:15 text-behind-graph: look for a closing brace too many");
}

TEST(RejectionAdvice, of_edges_without_an_end)
{
    EXPECT_EQ(toldOnce("digraph { a -> ; }"),
              "1:16 syntax-error: an edge needs a second end: found ';', expected a name; write a "
              "-> b");
    EXPECT_EQ(adviceFor("digraph { a -> }"), "1:16 syntax-error: write a -> b");
    EXPECT_EQ(adviceFor("digraph { a -> [x=y] }"), "1:16 syntax-error: write a -> b");
    EXPECT_EQ(toldOnce("digraph { -> b }"),
              "1:11 syntax-error: an edge begins with a node: found '->', expected a statement or "
              "'}'; write a -> b");
    EXPECT_EQ(adviceFor("digraph { a; -> b }"), "1:14 syntax-error: write a -> b");
    EXPECT_EQ(adviceFor("digraph { a [x=y] -> b }"),
              "1:19 syntax-error: write the edge ahead of its list: a -> b [...]");
    EXPECT_EQ(adviceFor("digraph { node -> b }"), "1:16 syntax-error: give the node another name");
}

TEST(RejectionAdvice, of_edges_of_groups)
{
    const std::string toGroup = "edge-to-group: write a statement for each edge: a -> b; a -> c";
    EXPECT_EQ(adviceFor("digraph { a -> subgraph x { b } }"), "1:16 " + toGroup);
    EXPECT_EQ(adviceFor("digraph { a -> subgraph { b } }"), "1:16 " + toGroup);
    EXPECT_EQ(adviceFor("digraph { a -> { b } }"), "1:16 " + toGroup);
    EXPECT_EQ(adviceFor("digraph { subgraph s { a } -> b }"),
              "1:28 edge-to-group: write a statement for each edge: a -> c; b -> c");
}

TEST(RejectionAdvice, of_subgraphs_and_names)
{
    EXPECT_EQ(toldOnce("digraph { subgraph x; }"),
              "1:21 syntax-error: a subgraph stands with its body only: found ';', expected '{'; "
              "write subgraph x { ... }");
    EXPECT_EQ(adviceFor("digraph { subgraph }"), "1:20 syntax-error: write subgraph x { ... }");
    EXPECT_EQ(adviceFor("digraph my graph { }"),
              "1:12 syntax-error: write a name of several words in quotes");
}

TEST(RejectionAdvice, of_values_and_lists)
{
    EXPECT_EQ(adviceFor("digraph { a [label=Two words] }"),
              "1:24 missing-value: write name=value, or a value of several words in quotes");
    EXPECT_EQ(adviceFor("digraph { a [label=\"a\" bold] }"),
              "1:24 missing-value: write name=value");
    EXPECT_EQ(adviceFor("digraph { a [label=\"a\" + \"b\"] }"),
              "1:24 syntax-error: write them as one");
    EXPECT_EQ(adviceFor("digraph { a -> b color=red; }"),
              "1:18 name-value-statement: write [color=...]");
    EXPECT_EQ(adviceFor("digraph { a;\n color=red; }"),
              "2:2 name-value-statement: write graph [color=...]");
}

TEST(RejectionAdvice, of_lists_that_are_not_closed_or_stand_alone)
{
    EXPECT_EQ(adviceFor("digraph { a; [x=y] }"),
              "1:14 syntax-error: leave the semicolon ahead of it out");
    EXPECT_EQ(adviceFor("digraph { node [x=y\n a -> b }"),
              "2:4 syntax-error: close the list ahead of this with ']'");
    EXPECT_EQ(adviceFor("digraph { a [x=y b }"),
              "1:20 syntax-error: close the list ahead of this with ']'");
    EXPECT_EQ(adviceFor("digraph { a => b }"), "1:13 syntax-error: write a -> b");
    EXPECT_EQ(adviceFor("digraph { a[ x=y ] }"),
              "1:11 missing-blank: put a blank ahead of the bracket");
    EXPECT_EQ(placesAndRules("digraph { b; a[//c\n x=y ] }"), QStringList(u"1:14 missing-blank"_s));
}

TEST(RejectionAdvice, of_the_beginning)
{
    EXPECT_EQ(toldOnce("{ a -> b }"),
              "1:1 syntax-error: the beginning of the graph is missing: found '{', expected "
              "'digraph'; write 'digraph' ahead of the brace");
    EXPECT_EQ(adviceFor("a -> b"), "1:1 syntax-error: write digraph { ... } around the statements");
    EXPECT_EQ(adviceFor("diagraph G { a }"), "1:1 syntax-error: begin with 'digraph'");
    EXPECT_EQ(adviceFor("grph { a }"), "1:1 syntax-error: begin with 'digraph'");
    EXPECT_EQ(adviceFor("DIGRAPH G { a }"), "1:1 syntax-error: write 'digraph'");
    EXPECT_EQ(adviceFor("GRAPH G { a }"),
              "1:1 undirected-graph: begin with 'digraph' and write edges with '->'");
    EXPECT_EQ(adviceFor("STRICT digraph { a }"),
              "1:1 strict-graph: leave 'strict' out: parallel edges are kept");
}

TEST(RejectionAdvice, of_other_encodings)
{
    const std::string advice = "; save it as UTF-8 without a byte order mark";
    const std::string mark = ": found a byte order mark, expected 'digraph'";
    EXPECT_EQ(toldOnce("\xEF\xBB\xBF"
                       "digraph {}"),
              "1:1 syntax-error: the text begins with a byte order mark" + mark
                  + "; save it as UTF-8 without one");
    EXPECT_EQ(toldOnce(QByteArray("\xFF\xFE"
                                  "d\0i\0",
                                  6)),
              "1:1 nul-byte: the text is UTF-16, little-endian" + mark + advice);
    EXPECT_EQ(toldOnce(QByteArray("\xFE\xFF\0d\0i", 6)),
              "1:1 nul-byte: the text is UTF-16, big-endian" + mark + advice);
    EXPECT_EQ(toldOnce(QByteArray("\xFF\xFE\0\0d\0\0\0", 8)),
              "1:1 nul-byte: the text is UTF-32" + mark + advice);
    const std::string bytes = ": found NUL bytes between the characters, expected 'digraph'";
    EXPECT_EQ(toldOnce(QByteArray("d\0i\0", 4)),
              "1:1 nul-byte: the text is UTF-16, little-endian" + bytes + advice);
    EXPECT_EQ(toldOnce(QByteArray("\0d\0i", 4)),
              "1:1 nul-byte: the text is UTF-16, big-endian" + bytes + advice);
    EXPECT_EQ(placesAndRules(QByteArray("\0", 1)), QStringList(u"1:1 nul-byte"_s));
}

TEST(RejectionAdvice, finds_the_text_that_is_not_closed)
{
    EXPECT_EQ(
        toldOnce("digraph {\n a [label=\"Alpha];\n b [label=\"Beta\"];\n}\n"),
        "2:11 unterminated-text: a closing quote is missing, so that the text that opens here "
        "runs over 2 lines: found ']', expected '='; look for the end of the text");
    EXPECT_EQ(
        toldOnce("digraph { a [label=\"Alpha, color=\"red\"]; }"),
        "1:20 unterminated-text: a closing quote is missing, so that the text that opens here "
        "ends at the opening quote of the next one: found ']', expected '='; look for the end "
        "of the text");
    EXPECT_EQ(placesAndRules("digraph {\n a [label=\"Alpha];\n b [label=\" Beta\"];\n c:n\n}"),
              QStringList(u"2:11 unterminated-text"_s));
    EXPECT_EQ(placesAndRules("digraph {\n a [label=\"A];\n b [color=\"#ff0000\"];\n}"),
              QStringList(u"2:11 unterminated-text"_s));
    EXPECT_EQ(placesAndRules("digraph {\n \"a;\n \"b\";\n \"c d\" [x=\"y];\n}"),
              (QStringList{u"2:2 quote-in-name"_s, u"4:11 unterminated-text"_s}));
}

TEST(RejectionAdvice, takes_no_text_of_several_lines_for_one_that_is_not_closed)
{
    EXPECT_EQ(placesAndRules("digraph {\n a [label=\"two\nlines\"];\n b [x=] }"),
              QStringList(u"4:7 missing-value"_s));
    EXPECT_EQ(placesAndRules("digraph {\n \"two\nlines\"[x=\"y=\"] -> b }"),
              QStringList(u"3:16 syntax-error"_s));
}

TEST(RejectionAdvice, of_a_quote_within_a_text)
{
    EXPECT_EQ(toldOnce("digraph { a [label=\"say \"hi\" there\"] }"),
              "1:26 syntax-error: a quote ends the text ahead of this: found 'there\"', expected "
              "'='; write a quote within a text as \\\"");
}

TEST(RejectionAdvice, finds_the_comment_that_breaks_the_text_behind_its_end)
{
    EXPECT_EQ(placesAndRules("digraph { // of a subgraph\n a [x=y] }"),
              QStringList(u"1:11 comment-rejected"_s));
    EXPECT_EQ(placesAndRules("digraph {\n a [//c\n x=y] }"),
              QStringList(u"2:5 comment-rejected"_s));
    EXPECT_EQ(placesAndRules("digraph { a [label=// the label\n x] }"),
              QStringList(u"1:20 comment-rejected"_s));
    EXPECT_EQ(placesAndRules("digraph { a [label=/* x */\"y z\"] }"),
              QStringList(u"1:20 comment-rejected"_s));
    EXPECT_EQ(placesAndRules("digraph { a//c = d\n }"), QStringList(u"1:12 comment-rejected"_s));
    EXPECT_EQ(placesAndRules("digraph { a // \"b\n c [x=\"y\"] }"),
              QStringList(u"1:13 comment-rejected"_s));
}

TEST(RejectionAdvice, is_given_once_for_what_follows_from_the_first_fault)
{
    // Ahead of the fault, but behind its cause.
    EXPECT_EQ(placesAndRules("digraph { a -> b // c:d -> e -> f\n }"),
              QStringList(u"1:18 comment-rejected"_s));
    EXPECT_EQ(placesAndRules("digraph {\n \"a;\n \"b:c\" d = e }"),
              QStringList(u"2:2 unterminated-text"_s));
    EXPECT_EQ(placesAndRules("digraph {\n a:n [label=\"x];\n b [label=\"y -z\"]; }"),
              (QStringList{u"2:2 port"_s, u"2:13 unterminated-text"_s}));
}
