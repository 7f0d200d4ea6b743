// docs/import.md and docs/new.md: their lines for a shell work, and their pictures are what comes
// of them.
#include "companion/doc_page.h"
#include "companion/import/import_format.h"
#include "driver/program_run.h"
#include "support/picture.h"

#include <QDir>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QString placeInProject(const QString &name)
{
    return QStringLiteral(ORR_PROJECT_FOLDER "/") + name;
}

// A line of a page, and the picture that follows it.
struct ShownLine
{
    QString command;
    QString picture; // its file, below docs
};

// The blocks of code that begin with the words and have a picture behind them.
QList<ShownLine> shownLines(const QString &page, const QString &words)
{
    static const QRegularExpression shown(
        u"```sh\\n([^`]*)```\\s*!\\[[^\\]]*\\]\\((pictures/[^)]+)\\)"_s);
    QList<ShownLine> lines;
    for (const QRegularExpressionMatch &match : shown.globalMatch(docPage(page))) {
        if (match.captured(1).contains(words))
            lines += {match.captured(1).trimmed(), match.captured(2)};
    }
    return lines;
}

class ImportDocs : public ProgramTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir(path(u"."_s)).mkdir(u"bin"_s));
        ASSERT_TRUE(QDir(path(u"."_s)).mkdir(u"out"_s));
        ASSERT_TRUE(QFile::link(QStringLiteral(ORR_PROGRAM), path(u"bin/orr"_s)));
        ASSERT_TRUE(QFile::link(QStringLiteral(ORR_LAYOUT_PROGRAM), path(u"bin/orrlayout"_s)));
        ASSERT_TRUE(QFile::link(placeInProject(u"tests"_s), path(u"tests"_s)));
    }

    ProgramRun line(const QString &command) const
    {
        return run(
            {.arguments = {u"-c"_s, u"PATH=$PWD/bin:$PATH; "_s + command}, .command = u"sh"_s});
    }

    // The lines with their drawings as images, and that of the first one beside the one of the
    // page.
    void compare(const ShownLine &shown) const
    {
        static const QRegularExpression output(u"-o (out/[\\w-]+)\\.\\w+"_s);
        const QString file = output.match(shown.command).captured(1) + u".png"_s;
        QString command = shown.command;
        command.replace(output, u"-o \\1.png"_s);
        SCOPED_TRACE(command.toStdString());
        const ProgramRun made = line(command);
        EXPECT_EQ(made.status, 0) << made.errors.toStdString();
        EXPECT_TRUE(matchesPicture(QImage(path(file)), placeInProject(u"docs/"_s + shown.picture)));
    }
};

} // namespace

TEST_F(ImportDocs, show_a_drawing_of_every_format)
{
    const QList<ShownLine> lines = shownLines(u"import.md"_s, u"orr import"_s);
    QStringList drawn;
    for (const ShownLine &shown : lines) {
        static const QRegularExpression format(u"orr import (\\S+)"_s);
        drawn += format.match(shown.command).captured(1);
        compare(shown);
    }
    ASSERT_FALSE(ORR::Companion::importFormats().empty());
    for (const ORR::Companion::ImportFormat &format : ORR::Companion::importFormats())
        EXPECT_TRUE(drawn.contains(QLatin1StringView(format.name))) << format.name;
}

TEST_F(ImportDocs, list_the_formats_as_the_program_does)
{
    const ProgramRun list =
        run({.arguments = {u"import"_s, u"--formats"_s}, .command = QStringLiteral(ORR_PROGRAM)});
    EXPECT_TRUE(succeeded(list));
    const QStringList blocks = codeBlocks(docPage(u"import.md"_s), u"text"_s);
    EXPECT_TRUE(blocks.contains(QString::fromUtf8(list.output))) << list.output.toStdString();
}

TEST_F(ImportDocs, show_a_starter_of_every_engine)
{
    const QList<ShownLine> lines = shownLines(u"new.md"_s, u"orr new"_s);
    EXPECT_EQ(lines.size(), 8);
    for (const ShownLine &shown : lines)
        compare(shown);
}
