// Whatever an input says, nothing that it names is opened, in any format and on any way that leads
// to rich text.
#include "driver/open_watch.h"
#include "driver/program_run.h"
#include "support/golden.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList formats{u"xdot1.2"_s, u"jpg"_s, u"png"_s, u"svg"_s, u"vsdx"_s, u"vdx"_s};

// %1 is the path of a file.
const QStringList hostileTexts{
    u"<img src='%1'>"_s,
    u"<IMG SRC=\"%1\" width=20 height=10>"_s,
    u"<img src='file://%1'>"_s,
    u"<img source=%1 align=left>text"_s,
    u"<img src='&#47;..&#x2f;..%1'>"_s,
    u"<img src='%1' alt='%1' title='%1'>"_s,
    u"<img src='data:image/png;base64,AAAA,%1'><img src='data:text/html,%1'>"_s,
    u"<img src=\"data:image/svg+xml,<svg xmlns='http://www.w3.org/2000/svg' "
    "xmlns:xlink='http://www.w3.org/1999/xlink'><image width='9' height='9' "
    "xlink:href='%1'/></svg>\">"_s,
    u"<link rel='stylesheet' type='text/css' href='%1'><p>a"_s,
    u"<link type=text/css href='file://%1'>a"_s,
    u"<style>@import url(%1);</style><p>a"_s,
    u"<style>@import '%1';</style><p>a"_s,
    u"<style>p { background-image: url(%1) }</style><p>a</p>"_s,
    u"<p style='background-image: url(%1)'>a"_s,
    u"<p style='background: url(\"%1\") red; list-style-image: url(%1)'>a"_s,
    u"<ul style='list-style: url(%1)'><li>a</ul>"_s,
    u"<table background='%1'><tr background='%1'><td background='%1'>a</table>"_s,
    u"<body background='%1'>a"_s,
    u"<base href='file:///'><img src='%1'>"_s,
    u"<object data='%1'></object><embed src='%1'><iframe src='%1'></iframe>"_s,
    u"<script src='%1'></script><video src='%1'></video>a"_s,
    u"<a href='%1'>a</a><a name='%1'>b</a>"_s,
    u"<font face='%1'>a</font><span style='font-family: url(%1)'>b</span>"_s,
    u"<style>@font-face { font-family: x; src: url(%1) }</style><font face=x>a</font>"_s,
    u"<meta http-equiv=refresh content='0; url=%1'>a"_s,
    u"<!--StartFragment--><img src='%1'><!--EndFragment-->"_s,
    u"<span style='color: red; border-image: url(%1); image: url(%1)'>a</span>"_s,
    u"%1"_s,
};

QByteArray counted(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    QByteArray quoted = bytes;
    return QByteArray::number(bytes.size()) + " -" + quoted.replace('"', "\\\"");
}

// A finished drawing with the texts, one a node.
QByteArray drawingOf(const QStringList &texts, const QByteArray &op)
{
    QByteArray graph = "digraph {\n graph [bb=\"0,0,300,300\" xdotversion=\"1.2\"];\n";
    for (qsizetype i = 0; i < texts.size(); ++i)
        graph += " n" + QByteArray::number(i) + " [_ldraw_=\"F 12 5 -Arial c 3 -red " + op
            + " 20 100 -1 50 " + counted(texts.at(i)) + "\"];\n";
    return graph + "}\n";
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
    watch->alsoWatch(u"/dev/zero"_s);
    watch->opened();
}

QStringList Fence::texts() const
{
    QStringList result;
    for (qsizetype i = 0; i < hostileTexts.size(); ++i)
        result += QString(hostileTexts.at(i)).replace(u"%1"_s, bait(u"%1.png"_s.arg(i)));
    for (const QString &endless : {u"/dev/zero"_s, bait(u"pipe"_s)}) {
        for (const QString &text : hostileTexts)
            result += QString(text).replace(u"%1"_s, endless);
    }
    const QString address = u"http://127.0.0.1:%1/a.png"_s.arg(trap.port());
    for (const QString &text : hostileTexts)
        result += QString(text).replace(u"%1"_s, address);
    return result;
}

void Fence::expectNothingTouched(const ProgramCall &call, const QString &what)
{
    SCOPED_TRACE(what.toStdString());
    EXPECT_TRUE(succeeded(run(call)));
    EXPECT_EQ(watch->opened(), QStringList());
    EXPECT_FALSE(trap.sprung());
}

} // namespace

TEST_F(Fence, the_watch_sees_what_is_opened)
{
    QFile file(bait(u"3.png"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QFile device(u"/dev/zero"_s);
    ASSERT_TRUE(device.open(QIODevice::ReadOnly));
    EXPECT_EQ(watch->opened(), QStringList({u"3.png"_s, u"/dev/zero"_s}));
    EXPECT_EQ(watch->opened(), QStringList());

    EXPECT_EQ(run({.arguments = {bait(u"4.png"_s), u"-T"_s, u"svg"_s}}).status, 1);
    EXPECT_EQ(watch->opened(), QStringList({u"4.png"_s})) << "the program's own opening";
}

TEST_F(Fence, rich_text_of_a_finished_drawing_opens_nothing)
{
    const QByteArray drawing = drawingOf(texts(), "H");
    for (const QString &format : formats)
        expectNothingTouched({.arguments = {u"-T"_s, format}, .input = drawing}, format);
}

TEST_F(Fence, texts_that_are_read_as_html_open_nothing)
{
    const QByteArray drawing = drawingOf(texts(), "T");
    for (const QString &format : formats)
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

TEST_F(Fence, the_html_of_an_engine_opens_nothing)
{
    const QString color = u"red\\\"><img src='%1'><link type=text/css href='%1'>"_s;
    for (const QString &file : {bait(u"0.png"_s), bait(u"pipe"_s), u"/dev/zero"_s}) {
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
