// What `orr draw` has beyond `orrlayout`: PDF, scale, background, SVG for a page.
#include "companion/draw_run.h"

#include <QImage>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

// Links that are none, and names and labels that would be markup, or end a string of PDF.
constexpr char hostileGraph[] = R"dot(digraph {
    graph [label="</title><script>a()</script>"];
    "\"><script>" [area=3, url="javascript:a()", label="</text><script>a()</script>"];
    ") >> endobj" [area=2, url="https://b.example/)>>endobj<script>\"", label=") Tj (x"];
    c [area=1, url="data:text/html,<script>"]; })dot";

class DrawExtrasTest : public DrawTest
{
protected:
    // Draws good.dot as treemap with these arguments, which name the output x.SUFFIX.
    QByteArray drawn(const QString &suffix, const QStringList &arguments = {},
                     const QString &input = u"good.dot"_s) const
    {
        const ProgramRun run =
            drawMany(QStringList{u"-K"_s, engine, u"-o"_s, u"x."_s + suffix, input} + arguments);
        EXPECT_EQ(run.status, 0) << run.errors.toStdString();
        return fileContent(u"x."_s + suffix);
    }

    QString engine = u"treemap"_s;

    QByteArray wrong(const QStringList &arguments) const
    {
        const ProgramRun run =
            drawMany(QStringList{u"-K"_s, u"treemap"_s, u"good.dot"_s} + arguments);
        EXPECT_EQ(run.status, 2);
        return run.errors.first(run.errors.indexOf('\n'));
    }
};

} // namespace

TEST_F(DrawExtrasTest, pdf_is_a_format_by_name_and_by_suffix)
{
    const QByteArray pdf = drawn(u"pdf"_s);
    EXPECT_TRUE(pdf.startsWith("%PDF-1.6\n"));
    EXPECT_TRUE(pdf.endsWith("%%EOF\n"));
    EXPECT_EQ(drawMany({u"-K"_s, u"treemap"_s, u"-T"_s, u"PDF,svg"_s, u"good.dot"_s}).status, 0);
    EXPECT_EQ(fileContent(u"good.pdf"_s), pdf);
    EXPECT_EQ(wrong({u"-T"_s, u"pfd"_s}),
              "orr draw: there is no format 'pfd'; did you mean 'pdf'?");
}

TEST_F(DrawExtrasTest, pdf_is_no_format_of_orrlayout)
{
    const ProgramRun run = this->run({.arguments = {u"-T"_s, u"pdf"_s, u"good.dot"_s},
                                      .command = QStringLiteral(ORR_LAYOUT_PROGRAM)});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_TRUE(run.errors.startsWith(formatMessage)) << run.errors.toStdString();
    EXPECT_FALSE(run.errors.contains(", pdf"));
}

TEST_F(DrawExtrasTest, without_extras_a_drawing_is_that_of_orrlayout)
{
    for (const QString &format : {u"svg"_s, u"png"_s, u"jpg"_s})
        EXPECT_EQ(drawn(format), drawnAlone(u"good.dot"_s, u"treemap"_s, format));
    EXPECT_EQ(drawn(u"png"_s, {u"--scale"_s, u"1"_s}),
              drawnAlone(u"good.dot"_s, u"treemap"_s, u"png"_s));
}

TEST_F(DrawExtrasTest, pictures_have_a_scale)
{
    const QSize size = QImage::fromData(drawn(u"png"_s)).size();
    for (const QString &suffix : {u"png"_s, u"jpg"_s}) {
        const QImage image = QImage::fromData(drawn(suffix, {u"--scale"_s, u"3"_s}));
        EXPECT_EQ(image.size(), size * 3);
        EXPECT_NEAR(image.dotsPerMeterX(), 3 * 2835, 5);
    }
}

TEST_F(DrawExtrasTest, a_background_is_any_colour_of_the_dialect)
{
    engine = u"gftree"_s; // which does not cover its page
    EXPECT_TRUE(drawn(u"svg"_s, {u"--background"_s, u"Yellow"_s}).contains(" fill=\"#ffff00\"/>"));
    EXPECT_NE(drawn(u"pdf"_s, {u"--background"_s, u"#12345678"_s}), drawn(u"pdf"_s));
    EXPECT_NE(drawn(u"jpg"_s, {u"--background"_s, u"gray"_s}), drawn(u"jpg"_s));
    EXPECT_NE(drawn(u"png"_s, {u"--background"_s, u"gray"_s}), drawn(u"png"_s));
}

TEST_F(DrawExtrasTest, an_svg_is_made_for_a_page)
{
    const QByteArray svg = drawn(u"svg"_s, {u"--embed"_s});
    EXPECT_TRUE(svg.startsWith("<svg width=\""));
    EXPECT_TRUE(svg.contains("<g id=\"node-"));
    EXPECT_FALSE(drawn(u"svg"_s).contains("<g id="));
}

TEST_F(DrawExtrasTest, says_what_is_wrong_with_their_use)
{
    EXPECT_EQ(wrong({u"--background"_s, u"yelow"_s}),
              "orr draw: there is no colour 'yelow'; did you mean 'yellow'?");
    EXPECT_EQ(wrong({u"--background"_s, u"#12345g"_s}), "orr draw: there is no colour '#12345g'");
    EXPECT_EQ(wrong({u"--background"_s, u"#123"_s}), "orr draw: there is no colour '#123'");
    EXPECT_EQ(wrong({u"-T"_s, u"svg,pdf"_s, u"--scale"_s, u"2"_s}),
              "orr draw: --scale is for jpg, png only");
    EXPECT_EQ(wrong({u"-T"_s, u"vdx,vsdx,xdot1.2"_s, u"--background"_s, u"red"_s}),
              "orr draw: --background is for jpg, png, svg, pdf only");
    EXPECT_EQ(wrong({u"-T"_s, u"png"_s, u"--embed"_s}), "orr draw: --embed is for svg only");
    for (const QString &scale : {u"0"_s, u"-1"_s, u"101"_s, u"nan"_s, u"inf"_s, u"x"_s})
        EXPECT_TRUE(wrong({u"-T"_s, u"png"_s, u"--scale"_s, scale}).contains("--scale"))
            << scale.toStdString();
    EXPECT_TRUE(newFiles().isEmpty());
}

TEST_F(DrawExtrasTest, change_the_formats_that_have_them_alone)
{
    const ProgramRun run = drawMany({u"-K"_s, u"treemap"_s, u"-T"_s, u"svg,png,vdx"_s, u"--scale"_s,
                                     u"2"_s, u"--background"_s, u"red"_s, u"good.dot"_s});
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(fileContent(u"good.vdx"_s), drawnAlone(u"good.dot"_s, u"treemap"_s, u"vdx"_s));
    EXPECT_EQ(fileContent(u"good.svg"_s), drawn(u"svg"_s, {u"--background"_s, u"red"_s}));
    EXPECT_EQ(fileContent(u"good.png"_s),
              drawn(u"png"_s, {u"--background"_s, u"red"_s, u"--scale"_s, u"2"_s}));
}

TEST_F(DrawExtrasTest, are_members_of_jobs)
{
    const QByteArray lines =
        R"({"in":"good.dot","out":"1.png","formats":"png"}
{"in":"good.dot","out":"2.png","formats":"png","scale":0.5,"background":"blue"}
{"in":"good.dot","out":"3.svg","embed":true}
{"in":"good.dot","out":"4.svg","embed":false}
{"in":"good.dot","out":"5.pdf","formats":"pdf"}
{"in":"good.dot","out":"6.svg","scale":2}
{"in":"good.dot","out":"7.png","formats":"png","scale":"2"}
{"in":"good.dot","out":"8.png","formats":"png","scale":1000}
{"in":"good.dot","out":"9.png","formats":"png","background":"bleu"}
{"in":"good.dot","out":"10.png","formats":"png","background":7}
{"in":"good.dot","out":"11.svg","embed":1}
)";
    const ProgramRun run = drawMany({u"--jobs"_s, u"-"_s, u"-K"_s, u"treemap"_s, u"--scale"_s,
                                     u"2"_s, u"--background"_s, u"lime"_s, u"--embed"_s},
                                    lines);
    EXPECT_EQ(run.status, 1);
    const QStringList lime{u"--background"_s, u"lime"_s};
    EXPECT_EQ(fileContent(u"1.png"_s), drawn(u"png"_s, lime + QStringList{u"--scale"_s, u"2"_s}));
    EXPECT_EQ(fileContent(u"2.png"_s),
              drawn(u"png"_s, {u"--background"_s, u"blue"_s, u"--scale"_s, u"0.5"_s}));
    EXPECT_EQ(fileContent(u"3.svg"_s), drawn(u"svg"_s, lime + QStringList{u"--embed"_s}));
    EXPECT_EQ(fileContent(u"4.svg"_s), drawn(u"svg"_s, lime));
    EXPECT_EQ(fileContent(u"5.pdf"_s), drawn(u"pdf"_s, lime));
    QMap<int, QString> messages;
    for (const QJsonObject &answer : jsonLines(run.output)) {
        if (answer.contains(u"message"_s))
            messages[answer[u"line"_s].toInt()] = answer[u"message"_s].toString();
    }
    EXPECT_EQ(messages.size(), 6);
    EXPECT_EQ(messages[6].toStdString(), "scale is for jpg, png only");
    EXPECT_EQ(messages[7].toStdString(), "'scale' is no number from 0.01 to 100");
    EXPECT_EQ(messages[8], messages[7]);
    EXPECT_EQ(messages[9].toStdString(), "there is no colour 'bleu'; did you mean 'blue'?");
    EXPECT_EQ(messages[10].toStdString(), "'background' is no text");
    EXPECT_EQ(messages[11].toStdString(), "'embed' is neither true nor false");
}

TEST_F(DrawExtrasTest, are_part_of_what_has_changed)
{
    const auto changed = [this](const QStringList &arguments) {
        return drawMany(QStringList{u"-K"_s, u"treemap"_s, u"-T"_s, u"svg,png,pdf"_s,
                                    u"--changed"_s, u"good.dot"_s}
                        + arguments)
            .errors;
    };
    const auto sum = [](int drawn) {
        return "orr draw: " + QByteArray::number(drawn) + " drawn, 0 failed, "
            + QByteArray::number(3 - drawn) + " unchanged\n";
    };
    EXPECT_EQ(changed({}), sum(3));
    EXPECT_EQ(changed({u"--scale"_s, u"1"_s}), sum(0));
    EXPECT_EQ(changed({u"--scale"_s, u"2"_s}), sum(1));
    EXPECT_EQ(changed({u"--scale"_s, u"2"_s, u"--embed"_s}), sum(1));
    EXPECT_EQ(changed({u"--scale"_s, u"2"_s, u"--embed"_s}), sum(0));
    EXPECT_EQ(changed({u"--background"_s, u"red"_s}), sum(3));
    EXPECT_EQ(changed({u"--background"_s, u"blue"_s}), sum(3));
}

TEST_F(DrawExtrasTest, make_no_markup_of_what_the_input_says)
{
    writeFile(u"hostile.dot"_s, hostileGraph);
    const QByteArray svg = drawn(u"svg"_s, {u"--embed"_s}, u"hostile.dot"_s);
    QXmlStreamReader reader(svg);
    QSet<QString> ids;
    QStringList links;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        EXPECT_TRUE(QStringList({u"svg"_s, u"title"_s, u"desc"_s, u"g"_s, u"a"_s, u"rect"_s,
                                 u"text"_s, u"polyline"_s, u"polygon"_s})
                        .contains(reader.name()))
            << reader.name().toString().toStdString();
        for (const QXmlStreamAttribute &attribute : reader.attributes()) {
            EXPECT_FALSE(attribute.name().startsWith(u"on"_s));
            if (attribute.name() == u"href"_s)
                links += attribute.value().toString();
            if (attribute.name() == u"id"_s) {
                EXPECT_FALSE(ids.contains(attribute.value().toString()));
                ids.insert(attribute.value().toString());
            }
        }
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    EXPECT_GE(ids.size(), 3);
    EXPECT_EQ(links, QStringList(u"https://b.example/)%3E%3Eendobj%3Cscript%3E%22"_s));
    const QByteArray pdf = drawn(u"pdf"_s, {}, u"hostile.dot"_s);
    EXPECT_EQ(pdf.count("/URI <"), 1);
    EXPECT_TRUE(pdf.contains("/URI <" + links.value(0).toLatin1().toHex() + ">"));
    EXPECT_FALSE(pdf.contains("<script"));
    EXPECT_FALSE(pdf.contains("javascript"));
}

TEST_F(DrawExtrasTest, are_the_same_in_one_worker_and_in_several)
{
    QStringList inputs;
    for (int i = 0; i < 12; ++i) {
        inputs += u"i%1.dot"_s.arg(i);
        writeFile(inputs.last(),
                  "digraph { " + QByteArray("x").repeated(i + 1)
                      + " [area=1, url=\"a\", fillcolor=\"red;blue\", style=\"linear\"];"
                        "b [area=2]; }");
    }
    QList<QByteArray> once;
    for (const QString &workers : {u"1"_s, u"3"_s}) {
        const ProgramRun run =
            drawMany(QStringList{u"-K"_s, u"treemap"_s, u"-T"_s, u"pdf,svg,png"_s, u"--embed"_s,
                                 u"--scale"_s, u"1.5"_s, u"-j"_s, workers}
                     + inputs);
        EXPECT_EQ(run.status, 0) << run.errors.toStdString();
        QList<QByteArray> files;
        for (const QString &input : std::as_const(inputs)) {
            for (const QString &suffix : {u"pdf"_s, u"svg"_s, u"png"_s})
                files += fileContent(input.chopped(3) + suffix);
        }
        if (once.isEmpty())
            once = files;
        EXPECT_EQ(files, once);
    }
}

TEST_F(DrawExtrasTest, a_pdf_appears_whole_or_not_at_all)
{
    writeFile(u"x.pdf"_s, "old");
    const ProgramRun full = drawMany(
        {u"-K"_s, u"treemap"_s, u"-o"_s, u"/dev/full"_s, u"-T"_s, u"pdf"_s, u"good.dot"_s});
    EXPECT_EQ(full.status, 1);
    EXPECT_TRUE(full.errors.startsWith("orr draw: 'good.dot': Could not save drawing to file"));
    const ProgramRun faulty =
        drawMany({u"-K"_s, u"treemap"_s, u"-o"_s, u"x.pdf"_s, u"faulty.dot"_s});
    EXPECT_EQ(faulty.status, 1);
    EXPECT_EQ(fileContent(u"x.pdf"_s), "old");
    EXPECT_TRUE(drawn(u"pdf"_s).startsWith("%PDF"));
    EXPECT_EQ(newFiles(), QStringList(u"x.pdf"_s));
}
