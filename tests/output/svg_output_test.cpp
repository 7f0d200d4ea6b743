// Where the SVG devices write to, and what the file is worth in the end.

#include "drawn.h"
#include "support/golden.h"

#include <QDir>
#include <QTemporaryDir>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

void drawLabels(Svg &device, int count)
{
    device.begin(1000, 1000);
    Device::Pen *pen = device.pen(device.color(u"black"_s), 0, 1);
    for (int i = 0; i < count; ++i) {
        device.drawRect({i, i}, {i + 10, i + 5}, 0, pen, device.color(u"yellow"_s));
        device.drawText({i, i},
                        device.text(QString::number(i), nullptr, device.color(u"#000000"_s)));
    }
}

// Every operation, on a device that may have nothing to write to.
void drawEverything(Svg &device)
{
    Device::Color *fill = device.linearGradient({0, 0}, {1, 1}, {u"red"_s, u"blue"_s}, {0, 1});
    Device::Pen *pen = device.pen(device.color(u"red"_s), 1, 2);
    device.begin(10, 10);
    device.drawBezier({{0, 0}, {1, 1}, {2, 2}, {3, 3}}, pen, fill);
    device.drawEllipse({5, 5}, 3, 3, pen, fill);
    device.drawPolyline({{0, 0}, {1, 1}}, pen);
    device.drawPolygon({{0, 0}, {1, 1}, {0, 1}}, pen, fill);
    device.drawRect({0, 0}, {5, 5}, 1, pen, fill);
    device.drawText({0, 0}, device.text(u"text"_s, nullptr, fill));
    device.drawRichText({0, 0}, device.text(u"<b>text</b>"_s, nullptr, fill));
    Device::Path *path = device.createPath();
    ASSERT_NE(path, nullptr);
    path->moveTo({0, 0});
    device.drawPath(path, pen, fill);
}

const QStringList nastyTexts{
    u"plain"_s,
    u"]]> <![CDATA[ --> <!-- &amp; &nope; &#1; &#xD800;"_s,
    u"\"'><svg onload=\"x\">"_s,
    u"<a b=\"</g></svg>\">"_s,
    u"\u0000\u0001\u0008\u000b\u000c\u001f\u007f\u0085\ufffe\uffff"_s,
    QString(QChar(0xDC00)) + u"low before high"_s + QChar(0xD800),
    u"\r\n\t \r"_s,
    u"\u202e\u2028\u2029\ufeff\U0010FFFF"_s,
    u"<b>unclosed <i>crossed</b> <table><tr><td>cell"_s,
    u"<font face='a\"b<c>&amp;d' color='#zz\"'>x</font>"_s,
    u"<p style='font-family:\"q\\\"uote\"; color:rgb(1,2'>x"_s,
    u"&#1;&#2;&#xFFFF;&#55296;&#8;<b>&#11;</b>"_s,
    u"<img src='data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42m"
    "Nk+M9QDwADhgGAWjR9awAAAABJRU5ErkJggg=='>"_s,
    u"<a href='x\"y&z'>link</a><hr><ul><li>item</ul>"_s,
};

} // namespace

TEST(SvgOutput, a_file_holds_the_same_bytes_as_memory)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(u"a.svg"_s);
    QByteArray bytes;
    {
        Svg toFile(name);
        Svg toMemory(&bytes);
        drawLabels(toFile, 3000); // several blocks of the output
        drawLabels(toMemory, 3000);
        EXPECT_EQ(toFile.end(), QString());
        EXPECT_EQ(toMemory.end(), QString());
        EXPECT_EQ(readTestFile(name), bytes);
    }
    EXPECT_EQ(readTestFile(name), bytes);
    EXPECT_GT(bytes.size(), 300000);
}

TEST(SvgOutput, a_file_takes_the_place_of_what_stood_there)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(u"a.svg"_s);
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(100000, 'x'));
    file.close();
    Svg device(name);
    device.begin(1, 1);
    EXPECT_EQ(device.end(), QString());
    EXPECT_TRUE(readTestFile(name).endsWith("\n</svg>\n"));
}

TEST(SvgOutput, an_output_that_cannot_be_opened_is_told_by_end)
{
    for (const QString &name : {u"/no/such/folder/a.svg"_s, QDir::tempPath(), QString()}) {
        SvgRichText device(name);
        drawEverything(device);
        EXPECT_EQ(device.end(), u"Unable to open file\n"_s) << name.toStdString();
    }
}

TEST(SvgOutput, a_null_buffer_cannot_be_opened)
{
    SvgRichText device(static_cast<QByteArray *>(nullptr));
    drawEverything(device);
    EXPECT_EQ(device.end(), u"Unable to open file\n"_s);
}

TEST(SvgOutput, a_full_disk_is_told_by_end)
{
    for (const int labels : {0, 3000}) {
        Svg device(u"/dev/full"_s);
        drawLabels(device, labels);
        EXPECT_EQ(device.end(), u"Unable to write to file\n"_s);
    }
}

TEST(SvgOutput, the_same_calls_give_the_same_bytes)
{
    const auto draw = [](Svg &device) { drawEverything(device); };
    EXPECT_EQ(document(draw), document(draw));
}

TEST(SvgOutput, every_operation_leaves_the_document_well_formed)
{
    EXPECT_TRUE(isWellFormed(document([](Svg &device) {
        Device::Pen *pen = device.pen(nullptr, 2, -5);
        device.drawBezier({}, pen, nullptr);
        device.drawPolygon({}, nullptr, device.color(u"\"<"_s));
        device.drawRect({0, 0}, {-5, -5}, -1, pen,
                        device.radialGradient({0, 0}, qQNaN(), {qInf(), -qInf()}, -1,
                                              {u"\"><"_s, u""_s}, {qQNaN()}));
        Device::Path *path = device.createPath();
        path->arcTo({0, 0}, {0, 0}, qQNaN(), qInf());
        device.drawPath(path, pen, nullptr);
    })));
}

TEST(SvgOutput, every_text_leaves_the_document_well_formed)
{
    for (const QString &nasty : nastyTexts) {
        const auto draw = [&](Svg &device) {
            Device::Font *font = device.font(nasty, 10, 3);
            Device::Text *text = device.text(nasty, font, device.color(nasty));
            device.drawText({0, 0}, text);
            device.drawRichText({0, 0}, text);
            device.drawText({0, 0}, device.text(u" \n"_s + nasty, font, nullptr));
            device.drawRichText({0, 0}, device.text(u"<b> "_s + nasty, font, nullptr));
        };
        EXPECT_TRUE(isWellFormed(document<Svg>(draw)));
        EXPECT_TRUE(isWellFormed(document<SvgRichText>(draw)));
    }
}
