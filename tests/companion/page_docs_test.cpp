// docs/page.md: its lines for a shell work, and its pictures are there.
#include "companion/doc_page.h"
#include "companion/read_page.h"
#include "driver/program_run.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QString projectFile(const QString &name)
{
    return QStringLiteral(ORR_PROJECT_FOLDER "/") + name;
}

class PageDocs : public ProgramTest
{
protected:
    // What the page takes for granted: the program, the examples, an input.
    void SetUp() override
    {
        ASSERT_TRUE(QDir(path(u"."_s)).mkdir(u"bin"_s));
        ASSERT_TRUE(QFile::link(QStringLiteral(ORR_PROGRAM), path(u"bin/orr"_s)));
        ASSERT_TRUE(QFile::link(projectFile(u"examples"_s), path(u"examples"_s)));
        writeFile(u"areas.dot"_s, "digraph { a [area=2]; b [area=1]; }");
    }

    ProgramRun line(const QString &command) const
    {
        return run(
            {.arguments = {u"-c"_s, u"PATH=$PWD/bin:$PATH; "_s + command}, .command = u"sh"_s});
    }
};

} // namespace

TEST_F(PageDocs, have_lines_for_a_shell_that_work)
{
    static const QRegularExpression output(u"-o (\\S+)"_s);
    const QStringList blocks = codeBlocks(docPage(u"page.md"_s), u"sh"_s);
    const QStringList commands =
        blocks.join(QString()).split(u'\n', Qt::SkipEmptyParts).filter(u"orr page"_s);
    ASSERT_GT(commands.size(), 1);
    for (const QString &command : commands) {
        EXPECT_TRUE(succeeded(line(command))) << command.toStdString();
        const QString page = output.match(command).captured(1);
        EXPECT_FALSE(readPage(fileContent(page)).isEmpty()) << command.toStdString();
    }
}

TEST(PagePictures, that_are_shown_are_there_and_small)
{
    static const QRegularExpression picture(u"\\]\\((pictures/[^)]+)\\)"_s);
    QStringList shown;
    for (const QString &page : {u"page.md"_s, u"serve.md"_s}) {
        for (const QRegularExpressionMatch &match : picture.globalMatch(docPage(page)))
            shown += match.captured(1);
    }
    EXPECT_GT(shown.size(), 5);
    for (const QString &file : std::as_const(shown))
        EXPECT_GT(QFileInfo(projectFile(u"docs/"_s + file)).size(), 1000) << file.toStdString();
    qint64 bytes = 0;
    const QDir pictures(projectFile(u"docs/pictures"_s));
    for (const QFileInfo &file : pictures.entryInfoList({u"page-*.png"_s}))
        bytes += file.size();
    EXPECT_LT(bytes, 1'500'000);
}
