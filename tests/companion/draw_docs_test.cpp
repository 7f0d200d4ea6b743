// docs/draw.md: what it shows is what the program does.
#include "companion/doc_page.h"
#include "companion/draw_run.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

// What the page takes for granted: its inputs, and a program that writes one.
class DrawDocs : public DrawTest
{
protected:
    void SetUp() override
    {
        DrawTest::SetUp();
        for (const QString &place : {u"calls"_s, u"src"_s, u"out"_s, u"x"_s, u"bin"_s})
            ASSERT_TRUE(QDir(path(u"."_s)).mkdir(place));
        const QByteArray areas = "digraph { graph [layout=treemap]; a [area=2]; b [area=1]; }";
        for (const QString &name : {u"a.dot"_s, u"areas.dot"_s, u"src/b.dot"_s})
            writeFile(name, areas);
        writeFile(u"calls/a.dot"_s, "digraph { a -> b; }");
        writeFile(u"bin/producer"_s, "#!/bin/sh\ncat areas.dot\n");
        ASSERT_EQ(shell(u"chmod +x bin/producer; ln -s \"$0\" bin/orr"_s).status, 0);
    }

    ProgramRun line(const QString &command) const
    {
        return shell(u"PATH=$PWD/bin:$PATH; "_s + command);
    }
};

// The files of drawings that a remark names, but for those that it leaves open.
QStringList drawingsIn(const QString &remark)
{
    static const QRegularExpression name(u"[\\w/]+\\.(svg|png)\\b"_s);
    QStringList names;
    for (const QRegularExpressionMatch &match : name.globalMatch(remark))
        names += match.captured();
    return names;
}

// An answer without what is another one each time.
QJsonObject steadyPart(QJsonObject answer)
{
    QJsonArray drawings;
    for (const QJsonValue &value : answer[u"drawings"_s].toArray()) {
        QJsonObject drawing = value.toObject();
        EXPECT_GT(drawing.take(u"milliseconds"_s).toDouble(), 0);
        EXPECT_GT(drawing.take(u"peakMemory"_s).toInteger(), 0);
        drawings.append(drawing);
    }
    answer[u"drawings"_s] = drawings;
    return answer;
}

} // namespace

TEST_F(DrawDocs, have_lines_for_a_shell_that_work)
{
    const QStringList blocks = codeBlocks(docPage(u"draw.md"_s), u"sh"_s);
    ASSERT_FALSE(blocks.isEmpty());
    for (const QString &command : blocks.join(QString()).split(u'\n', Qt::SkipEmptyParts)) {
        const ProgramRun run = line(command);
        EXPECT_EQ(run.status, 0) << command.toStdString() << run.errors.toStdString();
        EXPECT_TRUE(run.errors.endsWith(" drawn, 0 failed\n")) << run.errors.toStdString();
        for (const QString &file : drawingsIn(command.section(u'#', 1)))
            EXPECT_GT(QFileInfo(path(file)).size(), 0) << file.toStdString();
    }
    EXPECT_TRUE(QFileInfo::exists(path(u"out/src/b.png"_s)));
    EXPECT_EQ(fileContent(u"areas.png"_s), fileContent(u"out/areas.png"_s));
    EXPECT_EQ(fileContent(u"areas.svg"_s), fileContent(u"out/areas.svg"_s));
}

TEST_F(DrawDocs, show_a_job_and_its_answer)
{
    const QStringList blocks =
        codeBlocks(sectionOf(docPage(u"draw.md"_s), u"## Jobs"_s), u"json"_s);
    ASSERT_EQ(blocks.size(), 2);
    const ProgramRun run = drawMany({u"--jobs"_s, u"-"_s, u"-j"_s, u"1"_s}, blocks[0].toUtf8());
    EXPECT_EQ(run.status, 0) << run.output.toStdString();
    const QJsonObject shown = QJsonDocument::fromJson(blocks[1].toUtf8()).object();
    const QList<QJsonObject> answers = jsonLines(run.output);
    ASSERT_EQ(answers.size(), 1);
    EXPECT_EQ(QJsonDocument(steadyPart(answers.first())).toJson().toStdString(),
              QJsonDocument(steadyPart(shown)).toJson().toStdString());
}
