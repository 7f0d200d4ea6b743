// What is wrong with the syntax of a text, rule by rule.
#include "companion/check_said.h"
#include "companion/findings/finding_list.h"
#include "companion/syntax_told.h"
#include "support/golden.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

// What is told of a text that has one finding.
QString told(const QByteArray &text)
{
    const QStringList all = toldOf(text);
    EXPECT_EQ(all.size(), 1) << text.toStdString() << '\n' << all.join(u'\n').toStdString();
    return all.value(0);
}

} // namespace

TEST(SyntaxRules, nothing_is_wrong_with_what_the_dialect_has)
{
    for (const char *text :
         {"digraph { http://a.b/c -> C:\\x; src/*.h -> lib/*.cpp; 12:30 -> host:8080; */* }",
          "digraph { a [u=http://x/y v=//cdn.org w=//a/b color=#ff0000 x=src/* y=*/* z=lib/*] }",
          "digraph { \"two\nlines=\" -> \"a\nb\"[x=\"c=\"] \"a\":: \"x\"y }", "digraph {}",
          "digraph \"x\" { graph [a=b]; a [c=\"-1\", d=\"<b>\"] \"a:b\" -> \"//\"; }",
          "digraph { node [color=#ff0000] std::vector -> a.c:12; \"a->b\" \"--\" \"a[x\" }\n",
          "digraph { a-b -> c>d [URL=//x] subgraph s { } }", "digraph { a [x=a<b y=<] }"})
        EXPECT_EQ(toldOf(text), QStringList()) << text;
}

TEST(SyntaxRules, a_rejection_tells_what_was_found_and_what_was_expected)
{
    EXPECT_EQ(told("digraph { a [x=] y }").section(u' ', 1, 1), u"missing-value"_s);
    EXPECT_EQ(told("digraph { ] }"), u"1:11 syntax-error found ']', expected a statement or '}'"_s);
    EXPECT_EQ(
        told("digraph {\n a"),
        u"2:3 syntax-error found the end of the text, expected a statement, '->', '[', '}' or "
        "';'"_s);
    EXPECT_EQ(told(""), u"1:1 syntax-error found the end of the text, expected 'digraph'"_s);
    EXPECT_EQ(told("}"), u"1:1 syntax-error found '}', expected 'digraph'"_s);
    EXPECT_EQ(
        told("digraph { a [x=y }"),
        u"1:18 syntax-error found '}', expected an attribute, ']' or ',' (close the list ahead of "
        "this with ']')"_s);
}

TEST(SyntaxRules, a_long_text_is_shown_by_its_beginning)
{
    EXPECT_EQ(told("digraph a " + QByteArray(1000, 'x')),
              u"1:11 syntax-error found '"_s + QString(60, u'x')
                  + u"...', expected '{' (write a name of several words in quotes)"_s);
}

TEST(SyntaxRules, an_open_text_is_told_at_its_quote)
{
    EXPECT_EQ(
        told("digraph { a [x=1\n label=\"x] }\n"),
        u"2:8 unterminated-text the closing quote is missing: found a text without its closing "
        "quote, expected a value (write a quote within a text as \\\")"_s);
}

TEST(SyntaxRules, a_nul_byte_is_told)
{
    EXPECT_EQ(placesAndRules(QByteArray("digraph { \0 }", 13)), QStringList(u"1:11 nul-byte"_s));
}

TEST(SyntaxRules, a_chain_is_told_at_its_second_arrow)
{
    EXPECT_EQ(
        told("digraph { a -> b -> c }"),
        u"1:18 edge-chain an edge has two ends: found '->', expected a statement, '[', '}' or "
        "';' (write a statement for each edge: a -> b; b -> c)"_s);
}

TEST(SyntaxRules, an_edge_to_braces_and_bare_braces_are_told)
{
    EXPECT_EQ(placesAndRules("digraph { a -> { b c } }"), QStringList(u"1:16 edge-to-group"_s));
    EXPECT_EQ(placesAndRules("digraph { { a } }"), QStringList(u"1:11 bare-braces"_s));
}

TEST(SyntaxRules, another_head_is_told)
{
    EXPECT_EQ(placesAndRules("strict digraph {}"), QStringList(u"1:1 strict-graph"_s));
    EXPECT_EQ(placesAndRules(" graph {}"), QStringList(u"1:2 undirected-graph"_s));
    EXPECT_EQ(placesAndRules("digraph{ a }"), QStringList(u"1:1 missing-blank"_s));
    EXPECT_TRUE(told("Digraph {}").endsWith(u"(write 'digraph')"_s));
    EXPECT_TRUE(told("\xEF\xBB\xBF"
                     "digraph {}")
                    .endsWith(u"(save it as UTF-8 without one)"_s));
}

TEST(SyntaxRules, an_attribute_outside_of_a_list_is_told_at_its_name)
{
    EXPECT_EQ(told("digraph {\n rankdir=LR;\n}"),
              u"2:2 name-value-statement attributes stand in lists only: found '=', expected a "
              "statement, '->', '[', '}' or ';' (write graph [rankdir=...])"_s);
}

TEST(SyntaxRules, separators_where_there_are_none_are_told)
{
    EXPECT_EQ(placesAndRules("digraph { a [x=1; y=2] }"), QStringList(u"1:17 stray-separator"_s));
    EXPECT_EQ(placesAndRules("digraph { a [x=1,, y=2] }"), QStringList(u"1:18 stray-separator"_s));
    EXPECT_EQ(placesAndRules("digraph { a;; }"), QStringList(u"1:13 stray-separator"_s));
    EXPECT_EQ(placesAndRules("digraph { a, b }"), QStringList(u"1:12 stray-separator"_s));
    EXPECT_EQ(placesAndRules("digraph { ; }"), QStringList(u"1:11 stray-separator"_s));
}

TEST(SyntaxRules, what_is_wrong_with_a_list_is_told)
{
    EXPECT_EQ(placesAndRules("digraph { a [x=y] [z=w] }"), QStringList(u"1:19 second-list"_s));
    EXPECT_EQ(placesAndRules("digraph { a [bold] }"), QStringList(u"1:14 missing-value"_s));
    EXPECT_EQ(placesAndRules("digraph { a [bold, x=1] }"), QStringList(u"1:14 missing-value"_s));
    EXPECT_EQ(placesAndRules("digraph { a [x=] }"), QStringList(u"1:16 missing-value"_s));
}

TEST(SyntaxRules, a_bracket_within_a_name_is_told_at_the_name)
{
    EXPECT_EQ(told("digraph { a[label=x] }"),
              u"1:11 missing-blank 'a[label' is one name: found '=', expected a statement, '->', "
              "'[', '}' or ';' (put a blank ahead of the bracket)"_s);
    EXPECT_EQ(placesAndRules("digraph G{ a }"), QStringList(u"1:9 missing-blank"_s));
    EXPECT_EQ(placesAndRules("digraph { subgraph s{ a } }"), QStringList(u"1:20 missing-blank"_s));
    EXPECT_EQ(placesAndRules("digraph { a{b }"), QStringList(u"1:11 bracket-in-name"_s));
}

TEST(SyntaxRules, what_stands_behind_the_graph_is_told)
{
    EXPECT_EQ(placesAndRules("digraph { } }"), QStringList(u"1:13 text-behind-graph"_s));
    EXPECT_EQ(placesAndRules("digraph { }\n\"x"), QStringList(u"2:1 unread-text"_s));
    EXPECT_EQ(placesAndRules(QByteArray("digraph {} \0x", 13)), QStringList(u"1:12 unread-text"_s));
}

TEST(SyntaxRules, a_comment_that_becomes_nodes_is_told_once)
{
    EXPECT_EQ(told("digraph {\n // two words\n a }"),
              u"2:2 comment there are no comments here: this is read as nodes (leave the comment "
              "out)"_s);
    EXPECT_EQ(
        placesAndRules("digraph { /* a\n -- b */ /* c */ d\n # e\n # f\n}"),
        (QStringList{u"1:11 comment"_s, u"2:10 comment"_s, u"3:2 comment"_s, u"4:2 comment"_s}));
    EXPECT_EQ(placesAndRules("digraph { //\n -- }"),
              (QStringList{u"1:11 comment"_s, u"2:2 undirected-edge"_s}));
}

TEST(SyntaxRules, a_comment_that_breaks_the_text_is_told_at_its_first_character)
{
    EXPECT_EQ(placesAndRules("digraph { // a = b\n }"), QStringList(u"1:11 comment-rejected"_s));
    EXPECT_EQ(placesAndRules("digraph { // say \"so\n }"), QStringList(u"1:11 comment-rejected"_s));
    EXPECT_EQ(placesAndRules("digraph { /* a\n;; */ }"), QStringList(u"1:11 comment-rejected"_s));
    EXPECT_EQ(placesAndRules("// head\ndigraph { }"), QStringList(u"1:1 comment-rejected"_s));
    EXPECT_EQ(placesAndRules("digraph { } // end"), QStringList(u"1:13 comment-rejected"_s));
    EXPECT_EQ(placesAndRules("digraph { a [ /* x */ b=c] }"),
              QStringList(u"1:15 comment-rejected"_s));
    EXPECT_EQ(placesAndRules("digraph { /* x */ a=b }"),
              (QStringList{u"1:11 comment"_s, u"1:19 name-value-statement"_s}));
}

TEST(SyntaxRules, angle_brackets_are_told)
{
    EXPECT_EQ(placesAndRules("digraph { a [label=<b>] }"), QStringList(u"1:20 html-text"_s));
    EXPECT_EQ(placesAndRules("digraph { a [label=<<b>x y</b>>] }"),
              QStringList(u"1:20 html-text-rejected"_s));
    EXPECT_EQ(placesAndRules("digraph { a [label=<<font color=\"red\">x</font>>, z=1] }"),
              QStringList(u"1:20 html-text-rejected"_s));
}

TEST(SyntaxRules, ports_are_told_at_their_names)
{
    EXPECT_EQ(
        told("digraph { a:n -> b }"),
        u"1:11 port there are no ports here: 'a:n' is one name (write a, or \"a:n\" if the colon "
        "is meant)"_s);
    EXPECT_EQ(placesAndRules("digraph { a -> b:p:s }"), QStringList(u"1:16 port"_s));
}

TEST(SyntaxRules, other_edges_are_told)
{
    EXPECT_EQ(placesAndRules("digraph { a -- b }"), QStringList(u"1:13 undirected-edge"_s));
    EXPECT_EQ(placesAndRules("digraph { a->b }"), QStringList(u"1:11 arrow-in-name"_s));
}

TEST(SyntaxRules, a_minus_sign_that_is_not_quoted_is_told)
{
    EXPECT_EQ(
        told("digraph { a [x=-12] }"),
        u"1:16 negative-number the character behind the minus sign of '-12' is lost (write it "
        "in quotes)"_s);
    EXPECT_EQ(placesAndRules("digraph { -1 [x=- ] }"),
              (QStringList{u"1:11 negative-number"_s, u"1:17 negative-number"_s}));
}

TEST(SyntaxRules, a_minus_sign_that_begins_the_name_of_an_attribute_is_told)
{
    EXPECT_EQ(saidOfBody("a [-x=1 \"-y\"=2]", "treemap").substr(0, 106),
              "1:14 negative-number: the character behind the minus sign of '-x' is lost; write it "
              "in quotes\n1:19 unknown");
    EXPECT_EQ(placesAndRules("digraph { // a [-x=1]\n }"), QStringList(u"1:11 comment"_s));
}

TEST(SyntaxRules, places_count_characters_and_every_kind_of_line_end)
{
    EXPECT_EQ(placesAndRules("digraph {\r\n\r \xc3\xa4\xc3\xb6 -- b }"),
              QStringList(u"3:5 undirected-edge"_s));
}

TEST(SyntaxRules, of_a_rule_a_hundred_findings_are_told_and_the_others_counted)
{
    const QStringList all = toldOf("digraph { " + QByteArray("-1 ").repeated(1000) + " // a\n }");
    ASSERT_EQ(all.size(), FindingList::mostOfRule + 2);
    EXPECT_EQ(all.at(FindingList::mostOfRule).section(u' ', 0, 1), u"1:3012 comment"_s);
    EXPECT_EQ(all.last(), u"0:0 negative-number ... and 900 more"_s);
}
