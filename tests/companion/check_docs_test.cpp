// docs/check.md holds every rule, and what it shows is what the program does.
#include "companion/check/rules.h"
#include "companion/doc_page.h"
#include "driver/program_run.h"
#include "support/golden.h"

#include <QRegularExpression>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

QString text(std::string_view of)
{
    return QString::fromLatin1(of.data(), qsizetype(of.size()));
}

QString headingOf(const Rule &rule)
{
    return u"### `%1`"_s.arg(text(rule.id));
}

class CheckDocs : public ProgramTest
{
protected:
    // Runs the command, which begins with "$ orr ", on the text in a file of the name that the page
    // uses.
    ProgramRun runCommand(const QString &command, const QString &input) const
    {
        writeFile(u"example.dot"_s, input.toUtf8());
        return run({.arguments = command.split(u' ').sliced(2)});
    }
};

} // namespace

TEST_F(CheckDocs, have_the_rules_of_the_table_in_its_order_and_no_others)
{
    QStringList expected;
    for (const Rule *rule : checkRules())
        expected += headingOf(*rule);
    static const QRegularExpression heading(u"^### .*$"_s, QRegularExpression::MultilineOption);
    QStringList found;
    for (const QRegularExpressionMatch &match :
         heading.globalMatch(sectionOf(checkPage(), u"## The rules"_s)))
        found += match.captured();
    EXPECT_EQ(found, expected);
}

TEST_F(CheckDocs, say_what_the_rules_say)
{
    const QString page = checkPage();
    for (const Rule *rule : checkRules()) {
        const QString section = sectionOf(page, headingOf(*rule)).remove(u'`').simplified();
        const QString first =
            u"%1: %2. %3"_s.arg(rule->severity == Severity::Error ? u"Error"_s : u"Warning"_s,
                                text(rule->sentence), text(rule->help));
        EXPECT_TRUE(section.startsWith(first))
            << rule->id << " begins with\n"
            << section.first(std::min(section.size(), first.size())).toStdString()
            << "\nand not with\n"
            << first.toStdString();
    }
}

TEST_F(CheckDocs, have_examples_that_do_what_they_say)
{
    const QString page = checkPage();
    for (const Rule *rule : checkRules()) {
        const QString section = sectionOf(page, headingOf(*rule));
        const QStringList inputs = codeBlocks(section, u"dot"_s);
        const QStringList runs = codeBlocks(section, u"text"_s);
        ASSERT_EQ(inputs.size(), 2) << rule->id << ": a faulty input and the mended one";
        ASSERT_FALSE(runs.isEmpty()) << rule->id;
        ASSERT_TRUE(runs.first().startsWith("$ orr check "_L1)) << rule->id;
        const QString command = runs.first().section(u'\n', 0, 0);

        const ProgramRun faulty = runCommand(command, inputs[0]);
        EXPECT_EQ(QString::fromUtf8(faulty.output), runs.first().section(u'\n', 1)) << rule->id;
        EXPECT_TRUE(faulty.output.contains('[' + text(rule->id).toUtf8() + ']')) << rule->id;
        EXPECT_EQ(faulty.status, rule->severity == Severity::Error ? 1 : 0) << rule->id;

        EXPECT_EQ(runCommand(command + " --werror"_L1, inputs[0]).status, 1) << rule->id;

        // A second command stands for a mistake that is not in the text.
        const QString mendedCommand = runs.size() > 1 ? runs[1].section(u'\n', 0, 0) : command;
        const ProgramRun mended = runCommand(mendedCommand, inputs[1]);
        EXPECT_TRUE(succeeded(mended)) << rule->id;
        EXPECT_EQ(mended.output, "") << rule->id;
    }
}
