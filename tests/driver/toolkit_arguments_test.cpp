#include "driver/toolkit_arguments.h"

#include <gtest/gtest.h>

using namespace ORR::Driver;
using namespace Qt::StringLiterals;

namespace {

// What is left of a command line, words apart by blanks, behind the program's name.
QString left(const QString &words)
{
    return withoutToolkitArguments(u"orrlayout %1"_s.arg(words).split(u' ', Qt::SkipEmptyParts))
        .mid(1)
        .join(u' ');
}

} // namespace

TEST(ToolkitArguments, name_of_the_program_stays_whatever_it_is)
{
    EXPECT_EQ(withoutToolkitArguments({u"-style"_s, u"in.dot"_s}),
              QStringList({u"-style"_s, u"in.dot"_s}));
    EXPECT_EQ(withoutToolkitArguments({}), QStringList());
}

TEST(ToolkitArguments, program_keeps_its_own)
{
    const QString own = u"-K treemap -T svg -o style in.dot platform - -- -h --version"_s;
    EXPECT_EQ(left(own), own);
}

TEST(ToolkitArguments, those_with_a_value_are_taken_with_it)
{
    for (const QString &name :
         {u"platform"_s, u"platformpluginpath"_s, u"platformtheme"_s, u"plugin"_s,
          u"qmljsdebugger"_s, u"qwindowgeometry"_s, u"qwindowicon"_s, u"qwindowtitle"_s,
          u"session"_s, u"style"_s, u"stylesheet"_s}) {
        EXPECT_EQ(left(u"-K bar -%1 value in.dot"_s.arg(name)), u"-K bar in.dot"_s);
        EXPECT_EQ(left(u"--%1 value in.dot"_s.arg(name)), u"in.dot"_s);
        EXPECT_EQ(left(u"in.dot -%1"_s.arg(name)), u"in.dot -%1"_s.arg(name)) << "it lacks one";
    }
}

TEST(ToolkitArguments, three_may_have_their_value_behind_a_sign)
{
    EXPECT_EQ(left(u"-style=fusion in.dot"_s), u"in.dot"_s);
    EXPECT_EQ(left(u"--stylesheet=a in.dot -qmljsdebugger=port:1"_s), u"in.dot"_s);
    EXPECT_EQ(left(u"-platform=offscreen in.dot"_s), u"-platform=offscreen in.dot"_s);
}

TEST(ToolkitArguments, those_without_a_value_are_taken_alone)
{
    EXPECT_EQ(left(u"-reverse --widgetcount in.dot -qdebug -qdevel -testability"_s), u"in.dot"_s);
}

TEST(ToolkitArguments, names_are_whole)
{
    for (const QString &word :
         {u"-styles"_s, u"-rev"_s, u"-platforms"_s, u"---style"_s, u"style"_s, u"-Style"_s})
        EXPECT_EQ(left(word + u" in.dot"_s), word + u" in.dot"_s);
}
