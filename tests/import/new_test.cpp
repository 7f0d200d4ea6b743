// `orr new` on the real program.
#include "companion/examples/examples.h"
#include "drawing/layout_table.h"
#include "driver/program_run.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class NewProgram : public ProgramTest
{
protected:
    ProgramRun begin(const QStringList &arguments) const
    {
        return run({.arguments = QStringList(u"new"_s) + arguments,
                    .command = QStringLiteral(ORR_PROGRAM)});
    }
};

} // namespace

TEST_F(NewProgram, has_an_input_for_every_engine_that_draws_and_has_no_findings)
{
    ASSERT_EQ(qsizetype(ORR::Companion::starters().size()), ORR::Drawing::layoutNames().size());
    for (const QString &engine : ORR::Drawing::layoutNames()) {
        SCOPED_TRACE(engine.toStdString());
        const ProgramRun made = begin({engine.toUpper()});
        ASSERT_TRUE(succeeded(made));
        const ProgramRun drawing = run({.arguments = {u"-K"_s, engine, u"-T"_s, u"svg"_s},
                                        .input = made.output,
                                        .command = QStringLiteral(ORR_LAYOUT_PROGRAM)});
        EXPECT_TRUE(succeeded(drawing));
        EXPECT_GT(drawing.output.count('\n'), 10);
        const ProgramRun checked = run({.arguments = {u"check"_s, u"-K"_s, engine},
                                        .input = made.output,
                                        .command = QStringLiteral(ORR_PROGRAM)});
        EXPECT_EQ(checked.output, QByteArray());
        EXPECT_TRUE(succeeded(checked));
    }
}

TEST_F(NewProgram, writes_a_file_but_over_none)
{
    EXPECT_TRUE(succeeded(begin({u"treemap"_s, u"-o"_s, u"sizes.dot"_s})));
    EXPECT_EQ(fileContent(u"sizes.dot"_s), begin({u"treemap"_s}).output);
    writeFile(u"sizes.dot"_s, "mine");
    const ProgramRun again = begin({u"treemap"_s, u"-o"_s, u"sizes.dot"_s});
    EXPECT_EQ(again.status, 2);
    EXPECT_EQ(again.errors, "orr new: 'sizes.dot' is there already\n");
    EXPECT_EQ(fileContent(u"sizes.dot"_s), "mine");
    EXPECT_EQ(begin({u"treemap"_s, u"-o"_s, u"no/sizes.dot"_s}).errors,
              "orr new: 'no/sizes.dot' can't be written\n");
}

TEST_F(NewProgram, tells_what_engines_there_are)
{
    const ProgramRun none = begin({});
    EXPECT_EQ(none.status, 2);
    EXPECT_TRUE(none.errors.startsWith("orr new: an engine is missing; the engines are gftree,"));
    const ProgramRun misspelt = begin({u"tremap"_s});
    EXPECT_EQ(misspelt.status, 2);
    EXPECT_EQ(misspelt.errors,
              "orr new: there is no engine 'tremap'; did you mean 'treemap'?\n"
              "Try 'orr new --help'.\n");
}
