#include "companion/findings/text_printer.h"

#include "companion/findings/locate.h"
#include "companion/sample_findings.h"
#include "support/golden.h"

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

// What is printed of one finding in a text.
QByteArray printed(const QByteArray &bytes, const Finding &finding, const TextForm &form = {})
{
    ORR::Graph::SourceText text(bytes);
    return findingsAsText({"a.dot", located({finding}, &text)}, form);
}

} // namespace

TEST(FindingsAsText, are_lines_as_compilers_write_them)
{
    Finding finding = findingAt(4, 6);
    finding.suggestion = u"did you mean 'ab'?"_s;
    EXPECT_EQ(printed("xx\n ba", finding),
              "a.dot:2:2: warning: a word is misspelt; did you mean 'ab'? [misspelt]\n");
    EXPECT_EQ(printed("xx\n ba", findingAt(0, 1, broken)),
              "a.dot:1:1: error: the text is broken [broken]\n");
}

TEST(FindingsAsText, have_no_place_where_there_is_none)
{
    EXPECT_EQ(printed("xx", findingAt(-1)), "a.dot: warning: a word is misspelt [misspelt]\n");
}

TEST(FindingsAsText, are_harmless)
{
    Finding finding = findingAt(0);
    finding.sentence = u"a\u001b[2J\nb\u202e"_s;
    EXPECT_EQ(findingsAsText({"x\x1b\n\xff.dot", {finding}}, {}),
              "x\\x1b\\x0a\\xff.dot: warning: a\\x1b[2J\\x0ab\\u202e [misspelt]\n");
}

TEST(FindingsAsText, call_standard_input_so)
{
    EXPECT_EQ(findingsAsText({"", {findingAt(-1)}}, {}),
              "<stdin>: warning: a word is misspelt [misspelt]\n");
}

TEST(FindingsAsText, point_into_the_line)
{
    EXPECT_EQ(printed("xx\n ba", findingAt(4), {.excerpts = true}),
              "a.dot:2:2: warning: a word is misspelt [misspelt]\n"
              "   ba\n"
              "   ^\n");
    EXPECT_EQ(printed("\t\xe6\xbc\xa2\x1bx", findingAt(5), {.excerpts = true}),
              "a.dot:1:4: warning: a word is misspelt [misspelt]\n"
              "  \t\xe6\xbc\xa2\\x1bx\n"
              "  \t      ^\n");
}

TEST(FindingsAsText, point_into_a_piece_of_a_long_line)
{
    const QByteArray blank(60, '-');
    EXPECT_EQ(printed(blank + blank + "x" + blank, findingAt(120), {.excerpts = true}),
              "a.dot:1:121: warning: a word is misspelt [misspelt]\n"
              "  ..."
                  + blank + "x" + blank.first(59)
                  + "...\n"
                    "  "
                  + QByteArray(63, ' ') + "^\n");
}

TEST(FindingsAsText, are_coloured_on_demand)
{
    EXPECT_EQ(printed("x", findingAt(0, 1, broken), {.excerpts = true, .colors = true}),
              "\x1b[1ma.dot:1:1:\x1b[0m \x1b[1;31merror:\x1b[0m the text is broken [broken]\n"
              "  x\n"
              "  \x1b[1;32m^\x1b[0m\n");
}
