// docs/tutorial.md: its lines for a shell, run one after the other, do what they say. So do those
// of the front page that draw.
#include "docs/doc_samples.h"
#include "driver/program_run.h"
#include "support/golden.h"
#include "support/picture.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

class Tutorial : public ProgramTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir(path(u"."_s)).mkdir(u"bin"_s));
        ASSERT_TRUE(QFile::link(QStringLiteral(ORR_PROGRAM), path(u"bin/orr"_s)));
        ASSERT_TRUE(QFile::link(QStringLiteral(ORR_LAYOUT_PROGRAM), path(u"bin/orrlayout"_s)));
    }

    // What the lines print on both streams, as a terminal shows it.
    ProgramRun shell(const QString &lines) const
    {
        return run({.arguments = {u"-e"_s, u"-c"_s, u"exec 2>&1; PATH=$PWD/bin:$PATH\n"_s + lines},
                    .environment = {{u"LC_ALL"_s, u"C.UTF-8"_s}, {u"NO_COLOR"_s, u"1"_s}},
                    .command = u"sh"_s});
    }
};

} // namespace

TEST_F(Tutorial, has_steps_that_do_what_they_say)
{
    const QList<DocBlock> blocks = docBlocks(u"docs/tutorial.md"_s);
    int steps = 0;
    int pictures = 0;
    for (qsizetype i = 0; i < blocks.size(); ++i) {
        const DocBlock &block = blocks[i];
        if (block.language != "sh"_L1)
            continue;
        SCOPED_TRACE(block.text.toStdString());
        ++steps;
        const bool prints = i + 1 < blocks.size() && blocks[i + 1].language == "text"_L1;
        const ProgramRun step = shell(block.text);
        EXPECT_EQ(step.status, 0);
        EXPECT_EQ(QString::fromUtf8(step.output), prints ? blocks[i + 1].text : QString());
        if (block.picture.isEmpty())
            continue;
        ++pictures;
        const QString made = QFileInfo(block.picture).fileName().remove(u"tutorial-"_s);
        EXPECT_TRUE(matchesPicture(QImage(path(made)), projectPath(block.picture)));
    }
    EXPECT_GT(steps, 6);
    EXPECT_GT(pictures, 2);
}

TEST_F(Tutorial, follows_lines_of_the_front_page_that_draw)
{
    for (const QString &name : {u"examples"_s, u"src"_s, u"tests"_s})
        ASSERT_TRUE(QFile::link(projectPath(name), path(name)));
    writeFile(u"any.dot"_s, "graph { a:port -- {b; c} -- a /* and so on */ }");
    int drawings = 0;
    for (const DocBlock &block : docBlocks(u"README.md"_s)) {
        if (block.language != "sh"_L1 || !block.text.contains(" -o "_L1))
            continue;
        const ProgramRun run = shell(block.text);
        EXPECT_EQ(run.status, 0) << run.output.toStdString();
        for (const QString &file : {u"map.svg"_s, u"sizes.svg"_s, u"any.vsdx"_s}) {
            EXPECT_TRUE(block.text.contains(u"-o "_s + file));
            EXPECT_GT(QFileInfo(path(file)).size(), 1000) << file.toStdString();
            ++drawings;
        }
    }
    EXPECT_EQ(drawings, 3);
}

// Each block is a step or the output of the one ahead of it, which was compared.
TEST_F(Tutorial, shows_nothing_that_no_step_made)
{
    const QList<DocBlock> blocks = docBlocks(u"docs/tutorial.md"_s);
    ASSERT_FALSE(blocks.isEmpty());
    for (qsizetype i = 0; i < blocks.size(); ++i) {
        const bool isOutput =
            i > 0 && blocks[i].language == "text"_L1 && blocks[i - 1].language == "sh"_L1;
        EXPECT_TRUE(blocks[i].language == "sh"_L1 || isOutput) << blocks[i].text.toStdString();
    }
}
