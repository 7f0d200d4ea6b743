#include "graph/dot_tokenizer.h"

#include "support/guarded_text.h"

#include <gtest/gtest.h>

#include <QList>
#include <QPair>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

using Tokens = QList<QPair<int, QByteArray>>;

constexpr int id = static_cast<int>(DotToken::Identifier);

// All tokens of a text up to its end.
Tokens tokensOf(const QByteArray &input)
{
    Tokens tokens;
    DotTokenizer tokenizer(input);
    for (; tokenizer.kind() != DotToken::End; tokenizer.next())
        tokens.append({static_cast<int>(tokenizer.kind()), tokenizer.text().toByteArray()});
    return tokens;
}

} // namespace

TEST(DotTokenizer, reads_every_kind_of_token)
{
    const Tokens expected{{id, "a"}, {1, ""}, {id, "b c"}, {3, ""}, {4, ""},
                          {5, ""},   {6, ""}, {7, ""},     {8, ""}, {9, ""}};
    EXPECT_EQ(tokensOf("a -> \"b c\",={[}];"), expected);
}

TEST(DotTokenizer, dash_swallows_the_byte_behind_it)
{
    EXPECT_EQ(tokensOf("-12"), (Tokens{{id, "-2"}}));
    EXPECT_EQ(tokensOf("-5"), (Tokens{{id, "-"}}));
    EXPECT_EQ(tokensOf("-"), (Tokens{{id, "-"}}));
    EXPECT_EQ(tokensOf("-1.5]"), (Tokens{{id, "-.5"}, {8, ""}}));
    EXPECT_EQ(tokensOf("- a"), (Tokens{{id, "-a"}}));
    EXPECT_EQ(tokensOf("-} b"), (Tokens{{id, "-"}, {id, "b"}}));
    EXPECT_EQ(tokensOf("--> a"), (Tokens{{id, "->"}, {id, "a"}}));
}

TEST(DotTokenizer, brackets_and_quotes_do_not_stop_an_unquoted_identifier)
{
    EXPECT_EQ(tokensOf("a[b{c\"d-e>f:g<h=i"),
              (Tokens{{id, "a[b{c\"d-e>f:g<h"}, {4, ""}, {id, "i"}}));
}

TEST(DotTokenizer, quoted_text_unescapes_only_quotes_and_line_feeds)
{
    EXPECT_EQ(tokensOf(R"("x\"y")"), (Tokens{{id, "x\"y"}}));
    EXPECT_EQ(tokensOf("\"a\\\nb\""), (Tokens{{id, "ab"}}));
    EXPECT_EQ(tokensOf(R"("a\\b\n\l")"), (Tokens{{id, R"(a\\b\n\l)"}}));
    EXPECT_EQ(tokensOf(R"("a\\"b")"), (Tokens{{id, R"(a\"b)"}}));
    EXPECT_EQ(tokensOf(R"("")"), (Tokens{{id, ""}}));
    EXPECT_EQ(tokensOf(R"("\"" "\"\"")"), (Tokens{{id, "\""}, {id, "\"\""}}));
}

TEST(DotTokenizer, line_ends_become_line_feeds_everywhere)
{
    EXPECT_EQ(tokensOf("\"a\r\nb\rc\""), (Tokens{{id, "a\nb\nc"}}));
    EXPECT_EQ(tokensOf("a\rb"), (Tokens{{id, "a"}, {id, "b"}}));
}

TEST(DotTokenizer, ends_at_nul_and_at_an_unterminated_string)
{
    EXPECT_EQ(tokensOf(QByteArray("a\0b", 3)), (Tokens{{id, "a"}}));
    EXPECT_EQ(tokensOf(QByteArray("\"a\0b\"", 5)), Tokens());
    EXPECT_EQ(tokensOf("\"abc"), Tokens());
    EXPECT_EQ(tokensOf("\"abc\\"), Tokens());
    EXPECT_EQ(tokensOf(""), Tokens());
    EXPECT_EQ(tokensOf(" \t\n"), Tokens());
}

TEST(DotTokenizer, form_feed_and_no_break_space_are_no_white_space)
{
    EXPECT_EQ(tokensOf("a\fb"), (Tokens{{id, "a\fb"}}));
}

TEST(DotTokenizer, there_are_no_comments)
{
    EXPECT_EQ(tokensOf("// #x /*"), (Tokens{{id, "//"}, {id, "#x"}, {id, "/*"}}));
}

TEST(DotTokenizer, a_text_cut_off_anywhere_is_not_read_beyond_its_end)
{
    const QByteArray whole = "digraph g { a -> \"b \\\" \\\n c\" [x=-1, y=\"-\"]; --\\ }";
    for (qsizetype size = 0; size <= whole.size(); ++size) {
        const QByteArray text = whole.first(size);
        const GuardedText guarded(text);
        EXPECT_EQ(tokensOf(guarded.bytes()), tokensOf(text)) << text.toStdString();
    }
}

TEST(DotTokenizer, the_steps_of_a_grammar_take_what_comes_and_leave_what_does_not)
{
    DotTokenizer tokens("a = \"b c\" ;");
    EXPECT_EQ(tokens.takeIdentifier(), u"a"_s);
    EXPECT_FALSE(tokens.takeIf(DotToken::Comma));
    tokens.take(DotToken::Equals);
    EXPECT_EQ(tokens.takeIdentifierIfAny(), u"b c"_s);
    EXPECT_EQ(tokens.takeIdentifierIfAny(), QString());
    tokens.expect(DotToken::Semicolon);
    EXPECT_TRUE(tokens.takeIf(DotToken::Semicolon));
    EXPECT_EQ(tokens.kind(), DotToken::End);
}

TEST(DotTokenizer, what_is_expected_and_does_not_come_is_thrown)
{
    DotTokenizer tokens("= a");
    EXPECT_THROW(tokens.expect(DotToken::Comma), int);
    EXPECT_THROW(tokens.take(DotToken::Identifier), int);
    EXPECT_THROW(tokens.takeIdentifier(), int);
    EXPECT_EQ(tokens.kind(), DotToken::Equals); // nothing was stepped over
}

TEST(DotTokenizer, a_graph_begins_with_its_keyword_and_perhaps_a_name)
{
    for (const char *head : {"digraph {", "digraph g {", "\"digraph\" \"a b\" {"}) {
        DotTokenizer tokens(head);
        tokens.takeGraphHead();
        EXPECT_EQ(tokens.kind(), DotToken::OpenBrace) << head;
    }
    for (const char *head : {"", "{", "graph {", "Digraph {", "strict digraph {"}) {
        DotTokenizer tokens(head);
        EXPECT_THROW(tokens.takeGraphHead(), int) << head;
    }
}

TEST(IdentifierEnd, is_where_the_tokenizer_ends)
{
    for (const char *text : {"word next",
                             "word",
                             "a[b]",
                             "a{b}c",
                             "x=1",
                             "x;",
                             "x,",
                             "x\ty",
                             "x\ny",
                             "-12 3",
                             "-",
                             "- a",
                             "-=b c",
                             "\"quoted text\" x",
                             R"("with \" quote" x)",
                             R"("slash \\" x" y)",
                             "\"line \\\n\" x",
                             "\"\"",
                             "\"a\"b",
                             "\xc3\xa4 x"}) {
        const QByteArray bytes(text);
        const DotTokenizer tokenizer(bytes);
        ASSERT_EQ(tokenizer.kind(), DotToken::Identifier) << text;
        EXPECT_EQ(identifierEnd(bytes, 0), tokenizer.end()) << text;
    }
    EXPECT_EQ(identifierEnd("\"open", 0), 5);
    EXPECT_EQ(identifierEnd("", 0), 0);
}
