// `orr draw --changed`.
#include "companion/draw_run.h"
#include "support/golden.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

class DrawChangedTest : public DrawTest
{
protected:
    void SetUp() override
    {
        DrawTest::SetUp();
        ASSERT_TRUE(QDir(path(u"."_s)).mkdir(u"out"_s));
        writeFile(u"b.dot"_s, smallGraph());
    }

    QByteArray drawChanged(const QStringList &arguments = {}) const
    {
        const ProgramRun run = drawMany(QStringList{u"--changed"_s, u"-K"_s, u"treemap"_s, u"-d"_s,
                                                    u"out"_s, u"good.dot"_s, u"b.dot"_s}
                                        + arguments);
        EXPECT_EQ(run.status, 0);
        return run.errors;
    }

    static constexpr char all[] = "orr draw: 2 drawn, 0 failed, 0 unchanged\n";
    static constexpr char one[] = "orr draw: 1 drawn, 0 failed, 1 unchanged\n";
    static constexpr char none[] = "orr draw: 0 drawn, 0 failed, 2 unchanged\n";
    const QString notes = u"out/.orr-draw-notes"_s;
};

} // namespace

TEST_F(DrawChangedTest, draws_what_was_not_drawn_from_the_same_bytes)
{
    EXPECT_EQ(drawChanged(), all);
    EXPECT_EQ(drawChanged(), none);
    writeFile(u"b.dot"_s, smallGraph()); // another time, the same bytes
    EXPECT_EQ(drawChanged(), none);
    writeFile(u"b.dot"_s, smallGraph() + '\n');
    EXPECT_EQ(drawChanged(), one);
    EXPECT_EQ(drawChanged(), none);
}

TEST_F(DrawChangedTest, draws_again_with_other_options_or_fonts)
{
    EXPECT_EQ(drawChanged(), all);
    EXPECT_EQ(
        drawMany({u"--changed"_s, u"-K"_s, u"bar"_s, u"-d"_s, u"out"_s, u"good.dot"_s, u"b.dot"_s})
            .errors,
        all);
    EXPECT_EQ(drawChanged(), all);
    writeFile(u"fonts.conf"_s, readTestFile(QStringLiteral(ORR_TEST_FONTS)));
    const ProgramRun other = run({.arguments = {u"draw"_s, u"--changed"_s, u"-K"_s, u"treemap"_s,
                                                u"-d"_s, u"out"_s, u"good.dot"_s, u"b.dot"_s},
                                  .environment = {{u"FONTCONFIG_FILE"_s, path(u"fonts.conf"_s)}}});
    EXPECT_EQ(other.errors, all);
}

TEST_F(DrawChangedTest, draws_again_with_other_templates)
{
    const ProgramRun made =
        shell(u"mkdir home && cp -R '%1/conf' home"_s.arg(QStringLiteral(ORR_PROJECT_FOLDER)));
    ASSERT_EQ(made.status, 0) << made.errors.toStdString();
    const auto drawn = [this] {
        return run({.arguments = {u"draw"_s, u"--changed"_s, u"-K"_s, u"treemap"_s, u"-T"_s,
                                  u"svg,vsdx"_s, u"-d"_s, u"out"_s, u"good.dot"_s},
                    .environment = {{u"ORRHOME"_s, path(u"home"_s)}}})
            .errors;
    };
    EXPECT_EQ(drawn(), all);
    EXPECT_EQ(drawn(), none);
    const QString file = u"home/conf/orrery/visio/empty/visio/document.xml"_s;
    writeFile(file, fileContent(file) + '\n');
    EXPECT_EQ(drawn(), all);
}

TEST_F(DrawChangedTest, draws_again_what_is_gone_or_was_altered)
{
    EXPECT_EQ(drawChanged(), all);
    ASSERT_TRUE(QFile::remove(path(u"out/b.svg"_s)));
    EXPECT_EQ(drawChanged(), one);
    writeFile(u"out/good.svg"_s, "something else");
    EXPECT_EQ(drawChanged(), one);
    EXPECT_EQ(fileContent(u"out/good.svg"_s), drawnAlone(u"good.dot"_s, u"treemap"_s, u"svg"_s));
}

TEST_F(DrawChangedTest, takes_damaged_notes_for_none)
{
    EXPECT_EQ(drawChanged(), all);
    const QByteArray whole = fileContent(notes);
    for (const QByteArray &damaged :
         {QByteArray(), whole.first(whole.size() - 1), whole.sliced(1),
          QByteArray(whole).replace("svg", "svh"), QByteArray("orr draw notes 1\nend \n"),
          QByteArray(1000, '\0')}) {
        writeFile(notes, damaged);
        EXPECT_EQ(drawChanged(), all) << damaged.toStdString();
    }
    EXPECT_EQ(drawChanged(), none);
}

TEST_F(DrawChangedTest, draws_again_what_failed)
{
    for (int i = 0; i < 2; ++i) {
        const ProgramRun run = drawMany({u"--changed"_s, u"faulty.dot"_s});
        EXPECT_EQ(run.status, 1);
        EXPECT_TRUE(run.errors.endsWith("0 drawn, 1 failed, 0 unchanged\n"));
    }
    EXPECT_EQ(newFiles(), QStringList({u"b.dot"_s, u"out"_s}));
}

TEST_F(DrawChangedTest, reads_a_pipe_once)
{
    const QString command =
        u"cat good.dot >waits.dot & exec \"$0\" draw --changed -K bar -T svg waits.dot"_s;
    for (int i = 0; i < 2; ++i) {
        const ProgramRun run = shell(command);
        EXPECT_EQ(run.errors, "orr draw: 1 drawn, 0 failed, 0 unchanged\n");
    }
}

TEST_F(DrawChangedTest, has_notes_for_each_share)
{
    for (const bool isFirst : {true, false}) {
        int drawn = 0;
        for (const QString &share : {u"1/2"_s, u"2/2"_s}) {
            const QByteArray errors = drawChanged({u"--shard"_s, share});
            for (int count = 1; count <= 2; ++count)
                drawn += errors.startsWith("orr draw: " + QByteArray::number(count)) ? count : 0;
        }
        EXPECT_EQ(drawn, isFirst ? 2 : 0);
    }
    EXPECT_FALSE(QFile::exists(path(notes)));
    EXPECT_EQ(drawChanged(), all);
}
