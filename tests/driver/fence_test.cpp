// Whatever an input says, nothing that it names is opened, in any format and on any way that leads
// to rich text.
#include "drawing/format_table.h"
#include "driver/hostile_texts.h"
#include "driver/open_watch.h"
#include "driver/program_run.h"
#include "support/golden.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

const QString endlessDevice = u"/dev/zero"_s;

QStringList withoutAll(QStringList list, const QString &text)
{
    list.removeAll(text);
    return list;
}

class Fence : public ProgramTest
{
protected:
    void SetUp() override;
    // Each text with a file of its own.
    QStringList texts() const;
    QString bait(const QString &name) const { return path(u"baits/"_s + name); }
    void expectNothingTouched(const ProgramCall &call, const QString &what);

    ConnectionTrap trap;
    std::unique_ptr<OpenWatch> watch;
};

void Fence::SetUp()
{
    ASSERT_TRUE(QDir().mkpath(path(u"baits"_s)));
    QImage picture(20, 20, QImage::Format_RGB32);
    picture.fill(Qt::red);
    for (qsizetype i = 0; i < hostileTexts.size(); ++i) {
        ASSERT_TRUE(picture.save(bait(u"%1.png"_s.arg(i)), "png"));
        ASSERT_TRUE(picture.save(bait(u"%1@2x.png"_s.arg(i)), "png"));
    }
    ASSERT_EQ(mkfifo(QFile::encodeName(bait(u"pipe"_s)).constData(), 0600), 0);
    watch = std::make_unique<OpenWatch>(path(u"baits"_s));
    watch->alsoWatch(endlessDevice);
    watch->opened();
}

QStringList Fence::texts() const
{
    QStringList result;
    for (qsizetype i = 0; i < hostileTexts.size(); ++i)
        result += QString(hostileTexts.at(i)).replace(u"%1"_s, bait(u"%1.png"_s.arg(i)));
    for (const QString &endless : {endlessDevice, bait(u"pipe"_s)}) {
        for (const QString &text : hostileTexts)
            result += QString(text).replace(u"%1"_s, endless);
    }
    const QString address = u"http://127.0.0.1:%1/a.png"_s.arg(trap.port());
    for (const QString &text : hostileTexts)
        result += QString(text).replace(u"%1"_s, address);
    return result;
}

// Any other program may open the device meanwhile. What an input makes this one open, it opens at
// each run.
void Fence::expectNothingTouched(const ProgramCall &call, const QString &what)
{
    SCOPED_TRACE(what.toStdString());
    constexpr int mostRuns = 5;
    QStringList opened;
    for (int i = 0; i == 0 || (i < mostRuns && opened.contains(endlessDevice)); ++i) {
        EXPECT_TRUE(succeeded(run(call)));
        opened = watch->opened();
        EXPECT_EQ(withoutAll(opened, endlessDevice), QStringList());
    }
    EXPECT_FALSE(opened.contains(endlessDevice));
    EXPECT_FALSE(trap.sprung());
}

} // namespace

TEST_F(Fence, the_watch_sees_what_is_opened)
{
    QFile file(bait(u"3.png"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QFile endless(endlessDevice);
    ASSERT_TRUE(endless.open(QIODevice::ReadOnly));
    const QStringList opened = watch->opened();
    EXPECT_TRUE(opened.contains(endlessDevice));
    EXPECT_EQ(withoutAll(opened, endlessDevice), QStringList({u"3.png"_s}));
    EXPECT_EQ(withoutAll(watch->opened(), endlessDevice), QStringList());

    EXPECT_EQ(run({.arguments = {bait(u"4.png"_s), u"-T"_s, u"svg"_s}}).status, 1);
    EXPECT_EQ(withoutAll(watch->opened(), endlessDevice), QStringList({u"4.png"_s}))
        << "the program's own opening";
}

TEST_F(Fence, rich_text_of_a_finished_drawing_opens_nothing)
{
    const QByteArray drawing = drawingOf(texts(), "H");
    for (const QString &format : ORR::Drawing::formatNames())
        expectNothingTouched({.arguments = {u"-T"_s, format}, .input = drawing}, format);
}

TEST_F(Fence, texts_that_are_read_as_html_open_nothing)
{
    const QByteArray drawing = drawingOf(texts(), "T");
    for (const QString &format : ORR::Drawing::formatNames())
        expectNothingTouched({.arguments = {u"-T"_s, format},
                              .input = drawing,
                              .environment = {{u"ORR_GVLAYOUT_USE_HTML"_s, u"1"_s}}},
                             format);
}

TEST_F(Fence, a_screen_of_twice_the_resolution_opens_nothing)
{
    expectNothingTouched({.arguments = {u"-T"_s, u"svg"_s},
                          .input = drawingOf(texts(), "H"),
                          .environment = {{u"QT_SCALE_FACTOR"_s, u"2"_s}}},
                         u"scaled"_s);
}

// The boxes that expand a node are the only HTML that an engine makes; a tree is enough for them.
TEST_F(Fence, the_html_of_an_engine_opens_nothing)
{
    const QString color = u"red\\\"><img src='%1'><link type=text/css href='%1'>"_s;
    for (const QString &file : {bait(u"0.png"_s), bait(u"pipe"_s), endlessDevice}) {
        const QByteArray graph = "digraph { graph [expandcolor=\"" + color.arg(file).toUtf8()
            + "\"]; a [label=a shape=rectangle expander=true]; a -> b []; }";
        const ProgramCall call{.arguments = {u"-K"_s, u"gftree"_s, u"-T"_s, u"xdot1.2"_s},
                               .input = graph};
        expectNothingTouched(call, file);
        const QByteArray drawing = run(call).output;
        EXPECT_TRUE(drawing.contains("color: red&quot;&gt;&lt;img")) << drawing.toStdString();
        expectNothingTouched({.arguments = {u"-T"_s, u"svg"_s}, .input = drawing}, file);
    }
}

TEST_F(Fence, no_picture_of_the_machine_gets_into_a_drawing)
{
    const ProgramRun drawn =
        run({.arguments = {u"-T"_s, u"svg"_s}, .input = drawingOf(texts(), "H")});
    EXPECT_FALSE(drawn.output.contains("<image")) << drawn.output.toStdString();
}
