// What goes from a line of a script or a style sheet, and what has to stay.
#include "companion/page/compact_lines.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>

namespace {

using ORR::Companion::addScriptLine;
using ORR::Companion::addThemeLine;

std::string script(std::initializer_list<const char *> lines)
{
    std::string result;
    for (const char *const line : lines)
        addScriptLine(line, &result);
    return result;
}

std::string theme(std::initializer_list<const char *> lines)
{
    std::string result;
    for (const char *const line : lines)
        addThemeLine(line, &result);
    return result;
}

using Pairs = std::initializer_list<std::pair<const char *, const char *>>;

} // namespace

TEST(CompactLines, signs_that_would_become_another_stay_apart)
{
    for (const auto &[given, kept] : Pairs{
             {"a + +b;", "a+ +b;"},
             {"a + ++b;", "a+ ++b;"},
             {"a++ + b;", "a++ +b;"},
             {"a - -b;", "a- -b;"},
             {"a - +b;", "a-+b;"},
             {"a / /x y/.n;", "a/ /x y/.n;"},
         })
        EXPECT_EQ(script({given}), kept);
}

TEST(CompactLines, expressions_stay_and_what_stands_around_them_goes)
{
    for (const auto &[given, kept] : Pairs{
             {"return / x = 1 /.test(a) ? b : c;", "return/ x = 1 /.test(a)?b:c;"},
             {"a = /[/ '] \\/ =/ig in b + c;", "a=/[/ '] \\/ =/ig in b+c;"},
             {"a = / '/ in b;", "a=/ '/ in b;"},
             {"f(a, / , /g, b);", "f(a,/ , /g,b);"},
             {"x => / \\[ ' / .test(x);", "x=>/ \\[ ' /.test(x);"},
             {"typeof / ' / + ' = ';", "typeof/ ' /+' = ';"},
         })
        EXPECT_EQ(script({given}), kept);
}

TEST(CompactLines, strokes_behind_values_divide)
{
    for (const auto &[given, kept] : Pairs{
             {"a / b + ' / ' / c;", "a/b+' / '/c;"},
             {"(a) / 2 + `= ${b / 2} =` / 3;", "(a)/2+`= ${b / 2} =`/3;"},
             {"a[0] / b / c;", "a[0]/b/c;"},
             {"a++ / b + '/ x';", "a++/b+'/ x';"},
             {"a.return / b / ' / ';", "a.return/b/' / ';"},
             {"returned / b / ' / ';", "returned/b/' / ';"},
         })
        EXPECT_EQ(script({given}), kept);
}

TEST(CompactLines, texts_stay)
{
    for (const auto &[given, kept] : Pairs{
             {"a = ' = ' + \" '= \";", "a=' = '+\" '= \";"},
             {"a = '\\' = ' + b;", "a='\\' = '+b;"},
             {"a = ` = ${ b ? ` ${ c } ' ` : ' ` } '} - ` + 1;",
              "a=` = ${ b ? ` ${ c } ' ` : ' ` } '} - `+1;"},
             {"a = ` ${ f({ b: { c } }) } = ` + 1;", "a=` ${ f({ b: { c } }) } = `+1;"},
             {"a = ` $ { ' ` + b;", "a=` $ { ' `+b;"},
         })
        EXPECT_EQ(script({given}), kept);
}

TEST(CompactLines, words_stay_apart)
{
    for (const auto &[given, kept] : Pairs{
             {"return typeof a in b;", "return typeof a in b;"},
             {"for (const [a, b] of c) {", "for(let[a,b]of c){"},
             {"const { a } = b.const ;", "let{a}=b.const;"},
             {"async function* f() {", "async function*f(){"},
             {"x = { const: 1, constant : 2 };", "x={const:1,constant:2};"},
         })
        EXPECT_EQ(script({given}), kept);
}

TEST(CompactLines, line_ends_go_where_signs_stand)
{
    EXPECT_EQ(script({"if (a)", "return b;", "else", "c;", "}"}), "if(a)return b;else\nc}");
    EXPECT_EQ(script({"a", "+ +b", "- -c;"}), "a+ +b- -c;");
    EXPECT_EQ(script({"a = b", "/ ' / '.length / c;"}), "a=b/' / '.length/c;");
    EXPECT_EQ(script({"f({", "a,", "b: [", "c,", "],", "},", ");"}), "f({a,b:[c]});");
    EXPECT_EQ(script({"a = [,", "];"}), "a=[,];");
    EXPECT_EQ(script({"a = [b,,", "];"}), "a=[b,,];");
}

TEST(CompactLines, blanks_of_selectors_and_declarations_go_where_they_say_nothing)
{
    EXPECT_EQ(theme({"a > b, c + d ~ e f:not(.g) :hover {", "color: red !important;",
                     "content: \" : , / ! \";", "grid-row: 1 / -1;",
                     "width: calc(1px + (2px - 3px));", "font: 14px/1.4 \"A B\", c;", "}"}),
              "a>b,c+d~e f:not(.g) :hover{color:red!important;content:\" : , / ! \";grid-row:1/-1;"
              "width:calc(1px + (2px - 3px));font:14px/1.4 \"A B\",c}");
    EXPECT_EQ(theme({"@media screen and (max-width: 7px) {", "[a=\" > \"] b {", "}", "}"}),
              "@media screen and (max-width:7px){[a=\" > \"] b{}}");
}
