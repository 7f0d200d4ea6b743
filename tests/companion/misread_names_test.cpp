// What is told of names that are read as something else than they say, and of what follows from it.
#include "companion/check_said.h"
#include "companion/syntax_told.h"

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

// Of one graph's body, which starts in column 11: places and rules, a blank between.
std::string placesOf(const char *body)
{
    return placesAndRules(QByteArray("digraph { ") + body + "\n}").join(u", "_s).toStdString();
}

std::string suggestionFor(const char *body)
{
    const QList<Finding> findings = syntaxFindings(QByteArray("digraph { ") + body + "\n}");
    return findings.size() == 1 ? findings.first().suggestion.toStdString() : "";
}

} // namespace

TEST(MisreadNames, hold_edges_without_blanks)
{
    EXPECT_EQ(placesOf("a--b"), "1:11 undirected-edge");
    EXPECT_EQ(placesOf("x -> y; x-- y"), "1:19 undirected-edge");
    EXPECT_EQ(placesOf("a --b"), "1:13 undirected-edge");
    EXPECT_EQ(placesOf("\"a--b\" \"a\" --"), "1:22 undirected-edge");
    EXPECT_EQ(suggestionFor("a--b"), "write a -> b, or the name in quotes");
    EXPECT_EQ(placesOf("a-->b"), "1:11 arrow-in-name");
    EXPECT_EQ(placesOf("a <- b; c<->d"), "1:13 arrow-in-name, 1:19 arrow-in-name");
    EXPECT_EQ(suggestionFor("a <- b"), "write b -> a for an edge from b to a");
}

TEST(MisreadNames, hold_ports)
{
    EXPECT_EQ(placesOf("a:0 -> b:p:n"), "1:11 port, 1:18 port");
    EXPECT_EQ(placesOf("a:p [label=x]"), "1:11 port");
    EXPECT_EQ(placesOf("a:\"n\" -> b"), "1:11 port");
    EXPECT_EQ(suggestionFor("a:p:n -> b"), "write a, or \"a:p:n\" if the colon is meant");
    EXPECT_EQ(suggestionFor("a:\"n\" -> b"),
              "write a, or the whole name in quotes if the colon is meant");
}

TEST(MisreadNames, hold_no_ports_in_times_services_lines_and_addresses)
{
    EXPECT_EQ(placesOf("12:30 -> host:8080; a.c:1 -> std::x; http://x -> C:\\x; a: -> :b"), "");
    EXPECT_EQ(placesOf("\"a:p\" -> \"b\"::x"), "");
}

TEST(MisreadNames, are_ports_behind_quotes)
{
    EXPECT_EQ(saidOfBody("\"a\":n -> b"),
              "1:14 port: there are no ports here: ':n' is a node of its own; leave the port out, "
              "or put it into the quotes ahead of it");
    EXPECT_EQ(saidOfBody("a; b; a -> \"b\":n; \"b\":\"n\" -> a").substr(0, 9), "1:25 port");
}

// A quoted port with a blank in it is two names.
TEST(MisreadNames, are_told_once_with_the_rest_of_a_quoted_port)
{
    EXPECT_EQ(placesOf("a:\"n x\" -> b"), "1:11 port");
    EXPECT_EQ(placesOf("\"a\":\"n x\" -> b; c:d"), "1:14 port, 1:27 port");
}

TEST(MisreadNames, hold_comments_that_are_glued_to_them)
{
    EXPECT_EQ(placesOf("a/*x*/"), "1:12 comment");
    EXPECT_EQ(placesOf("a/* x y */ b"), "1:12 comment");
    EXPECT_EQ(placesOf("d//foo bar--baz\n a -> b//c"), "1:12 comment, 2:8 comment");
    EXPECT_EQ(placesOf("a -> b;//c\n c;#d\n #e\n"), "1:18 comment, 2:4 comment, 3:2 comment");
    EXPECT_EQ(placesOf("subgraph s/*x*/ { }"), "1:21 comment");
    EXPECT_EQ(placesOf("a:n//c"), "1:11 port, 1:14 comment");
    EXPECT_EQ(toldOf("digraph { d//foo\n}"),
              QStringList(u"1:12 comment there are no comments here: this is read as a part of the "
                          "name (leave the comment out)"_s));
}

TEST(MisreadNames, are_no_comments_in_values_that_may_be_meant)
{
    EXPECT_EQ(placesOf("a [label=//x]"), "1:20 comment");
    EXPECT_EQ(placesOf("a [label=x/*y*/]"), "1:21 comment");
    EXPECT_EQ(placesOf("a [URL=//x href=http://x//y label=a//b image=//x/y.png c=#0000ff]"), "");
    EXPECT_EQ(placesOf("a [accept=*/* b=*/* x=src/* y=lib/*/z z=/*]"), "");
}

TEST(MisreadNames, hold_quotes)
{
    EXPECT_EQ(
        saidOfBody("\"a -> \"b\";"),
        "1:11 quote-in-name: the text that opens here ends ahead of 'b\"', which is a name of "
        "its own; look for a missing quote; write a quote within a name as \\\"");
    EXPECT_EQ(saidOfBody("\"a;\n\"b\";\n c"),
              "1:11 quote-in-name: the text that opens here runs over 2 lines, and 'b\"' is a name "
              "of its own; look for a missing quote; write a quote within a name as \\\"");
    EXPECT_EQ(placesOf("\"a -> \"b c\";\n d"), "1:11 quote-in-name");
    EXPECT_EQ(placesOf("one two\";"), "1:15 quote-in-name");
    EXPECT_EQ(placesOf("\"a\"b \"c\" d e\";"), "1:22 quote-in-name");
}

TEST(MisreadNames, are_no_undeclared_nodes)
{
    EXPECT_EQ(saidOfBody("a; b; // see a -> bb\n a -> b", "matrix").find("undeclared"),
              std::string::npos);
    EXPECT_EQ(placesOf("a; b; a -> b:n; a--c -> b"), "1:22 port, 1:27 undirected-edge");
    EXPECT_EQ(saidOfBody("a; b; a -> b:n; a--c -> b").find("undeclared"), std::string::npos);
    // A word of a comment declares nothing.
    EXPECT_EQ(saidOfBody("/* a b */ a -> c").find("undeclared"), std::string::npos);
    EXPECT_EQ(saidOfBody("a -> c /* a */ ").find("undeclared"), std::string::npos);
    EXPECT_EQ(saidOfBody("a -> \"c\":n").find("undeclared"), std::string::npos);
    EXPECT_EQ(saidOfBody("c -> \"a\"; \"a\":n -> b").find("undeclared"), std::string::npos);
    // What stands outside of it does.
    EXPECT_NE(saidOfBody("/* a b */ b; a -> b").find("1:24 undeclared-node: node 'a'"),
              std::string::npos);
}

TEST(MisreadNames, have_no_attributes_and_no_places)
{
    const std::string told = "1:11 comment: there are no comments here: this is read as nodes; "
                             "leave the comment out";
    EXPECT_EQ(saidOfBody("// a [lable=x area=z]\n", "treemap"), told);
    EXPECT_EQ(saidOfBody("/* s */ subgraph s { }", "treemap"), told);
    EXPECT_EQ(saidOfBody("/* s */ node [uml=object]; /* t */", "umlseq"),
              told + "\n1:38 comment" + told.substr(12));
    EXPECT_EQ(saidOfBody("/* a -> b */ subgraph r { graph [axis=x]; c }", "matrix"), told);
}

TEST(MisreadNames, hold_arrows_with_a_blank_in_them)
{
    EXPECT_EQ(saidOfBody("a; b; a - > b"),
              "1:19 arrow-in-name: '- >' makes no edge: it is read as a node; write a -> b");
    EXPECT_EQ(placesOf("a -  > b"), "1:13 arrow-in-name");
    EXPECT_EQ(placesOf("a - >b"), "1:13 arrow-in-name");
    EXPECT_EQ(placesOf("a - b"), "1:13 negative-number");
    EXPECT_EQ(placesOf("a -x> b"), "1:13 negative-number");
}

TEST(MisreadNames, hold_quotes_of_other_kinds)
{
    EXPECT_EQ(saidOfBody("\u201cfirst one\u201d -> b").substr(0, 109),
              "1:11 quote-in-name: typographic quotes quote nothing: they are read as text; write "
              "the name in \"...\"");
    EXPECT_EQ(saidOfBody("a [label=\u201eAlpha\u201c]"),
              "1:20 quote-in-name: typographic quotes quote nothing: they are read as text; write "
              "the value in \"...\"");
    EXPECT_EQ(placesOf("a [label=\u201dAlpha\u201d]; \"\u201cb\u201d\" [label=c\u201d]"),
              "1:20 quote-in-name");
}

TEST(MisreadNames, are_values_that_end_in_a_quote)
{
    EXPECT_EQ(saidOfBody("a [label=Alpha\"]"),
              "1:20 quote-in-name: 'Alpha\"' is one value, with its quote; look for a missing "
              "quote; write a quote within a value as \\\"");
    EXPECT_EQ(placesOf("a [label=x\"y\"]; b [label=x\"y]; c [label=\"x\\\"\"]"), "");
}
