// The pages of all inputs of the project, as they are and with hostile texts everywhere.
#include "companion/page/page_drawing.h"
#include "companion/read_page.h"
#include "drawing/job.h"
#include "support/breaking_texts.h"
#include "support/corpus.h"
#include "support/page_rects.h"

#include <QJsonArray>
#include <QRegularExpression>
#include <QSet>

using namespace ORR;
using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

QByteArray pageOf(const QByteArray &input, const QString &engine)
{
    const MadePage page = makePage({.input = input, .engine = engine, .fallbackTitle = u"t"_s});
    EXPECT_EQ(page.fault, QString());
    return page.document;
}

constexpr QByteArrayView darkClass = " class=\"d";

// The elements within the drawing, a line each, without groups of objects and what turns them in
// the dark. The end tags of groups are all alike, so those of rich texts go, too. What a page may
// have at its root is left out: the colour of texts, common lines, and a font; so are blanks around
// the letters of paths.
QByteArrayList primitivesOf(QByteArray document, const QByteArray &font)
{
    document.replace("><", ">\n<").replace(">\n <", ">\n<");
    document.replace("<text stroke=\"none\"", "<text").replace(" stroke=\"#000000\"", "");
    document.replace(" fill=\"#000000\" font-family", " font-family");
    if (!font.isEmpty())
        document.replace(font, "");
    qsizetype start = document.indexOf("<svg id=\"drawing\"");
    start = start < 0 ? document.indexOf("<svg") : start;
    const qsizetype end = document.indexOf("</svg>", start);
    document = document.mid(start, end - start);
    for (qsizetype at = document.indexOf(darkClass); at >= 0; at = document.indexOf(darkClass, at))
        document.remove(at, document.indexOf('"', at + darkClass.size()) + 1 - at);
    QByteArrayList lines = document.split('\n');
    lines.removeFirst();
    static const QRegularExpression letters(u" ?([A-Za-z,]) ?"_s);
    for (QByteArray &line : lines) {
        constexpr QByteArrayView path = "<path d=\"";
        if (!line.startsWith(path))
            continue;
        const qsizetype quote = line.indexOf('"', path.size());
        QString data = QString::fromLatin1(line.sliced(path.size(), quote - path.size()));
        line = line.first(path.size()) + data.replace(letters, u"\\1"_s).toLatin1()
            + line.sliced(quote);
    }
    lines.removeIf(
        [](const QByteArray &line) { return line.startsWith("<g data-kind=") || line == "</g>"; });
    return lines;
}

// The bytes from one text to the next other one.
qsizetype partOf(const QByteArray &page, const QByteArray &from, const QByteArray &to)
{
    const qsizetype start = page.indexOf(from);
    return page.indexOf(to, start) - start;
}

// The font that stands at the root of the drawing of a page, empty for none.
QByteArray fontOf(const QByteArray &page)
{
    const qsizetype start = page.indexOf("<svg id=\"drawing\"");
    const QByteArray root = page.mid(start, page.indexOf(" viewBox", start) - start);
    const qsizetype font = root.indexOf(" font-family");
    return font < 0 ? QByteArray() : root.mid(font, root.indexOf(" fill=") - font);
}

QByteArray svgOf(const QByteArray &input, const QString &engine)
{
    QByteArray svg;
    const Drawing::Outcome outcome = Drawing::draw({.input = input, .engine = engine},
                                                   Drawing::inMemory(&svg, Drawing::Format::Svg));
    EXPECT_EQ(outcome.message, QString());
    return svg;
}

QByteArray xdotOf(const QByteArray &input, const QString &engine)
{
    QByteArray xdot;
    (void)Drawing::draw({.input = input, .engine = engine, .format = Drawing::Format::XDot},
                        Drawing::inMemory(&xdot, Drawing::Format::XDot));
    return xdot;
}

// All elements of the page, with the names of their attributes. A label that does not fit is left
// out, so that their number may differ.
QSet<QString> kindsOf(const QJsonObject &page)
{
    QSet<QString> kinds;
    for (const QJsonValue &element : page[u"elements"_s].toArray())
        kinds.insert(element.toString());
    return kinds;
}

class PageCorpus : public testing::TestWithParam<CorpusInput>
{
};

class HostilePage : public testing::TestWithParam<Drawing::LayoutIndex>
{
};

} // namespace

TEST_P(PageCorpus, has_the_primitives_of_svg_and_an_entry_for_each_group)
{
    const QByteArray input = GetParam().text();
    const QString engine = GetParam().engine();
    const QByteArray page = pageOf(input, engine);
    const QByteArray font = fontOf(page);
    EXPECT_EQ(primitivesOf(page, font), primitivesOf(withRectsOfPages(svgOf(input, engine)), font));
    EXPECT_EQ(pageOf(input, engine), page);
    const QJsonObject read = readPage(page);
    const QJsonObject data = read[u"data"_s].toObject();
    const qsizetype count = read[u"ids"_s].toArray().size();
    EXPECT_GT(count, 0);
    const qsizetype undrawn = std::max<qsizetype>(data[u"undrawn"_s].toArray().size() - 2, 0);
    for (const auto name : {"parent"_L1, "label"_L1, "attributes"_L1})
        EXPECT_EQ(data[name].toArray().size(), count + undrawn) << name.data();
    EXPECT_EQ(data[u"box"_s].toArray().size(), 4 * count);
}

// The limit is what was promised to whoever loads pages, but for what small drawings have as well
// as large ones.
TEST(PageSize, of_drawing_and_table_is_at_most_one_and_a_half_of_the_svg)
{
    constexpr qsizetype ofEachPage = 1600;
    for (const CorpusInput &input : exampleInputs()) {
        const QByteArray page = pageOf(input.text(), input.engine());
        const qsizetype drawing = partOf(page, "<svg id=\"drawing\"", "</svg>");
        const qsizetype table = partOf(page, "id=\"page-data\">", "</script>");
        const qsizetype svg = svgOf(input.text(), input.engine()).size();
        EXPECT_GT(table, 200) << input.file.toStdString();
        EXPECT_LE(2 * (drawing + table - ofEachPage), 3 * svg)
            << input.file.toStdString() << ": " << double(drawing) / double(svg) << " and "
            << double(table) / double(svg);
    }
}

// Cells without a label have the least SVG for what their authors say of them.
TEST(PageSize, of_the_table_keeps_to_that_with_much_said_of_each_object)
{
    QByteArray input = "digraph { graph [width=\"6400\", height=\"4800\"]; node [unit=lines];\n";
    for (int group = 0; group < 2000; ++group) {
        const QByteArray folder = "src/group_" + QByteArray::number(group);
        input += "subgraph cluster_" + QByteArray::number(group) + " {\n";
        for (int i = 10 * group; i < 10 * group + 10; ++i) {
            const QByteArray name = "file_" + QByteArray::number(i) + ".cpp";
            const QByteArray line = QByteArray::number(i % 311);
            input += 'n' + QByteArray::number(i) + " [label=\"" + name + "\", area=\""
                + QByteArray::number(1 + i * 7919LL % 997)
                + "\", url=\"https://code.example/blob/main/" + folder + '/' + name + "#L" + line
                + "\", file=\"" + folder + '/' + name + "\", line=\"" + line + "\", tooltip=\""
                + name + " has " + line + " lines\"];\n";
        }
        input += "}\n";
    }
    input += "}";
    const QByteArray page = pageOf(input, u"treemap"_s);
    const qsizetype table = partOf(page, "id=\"page-data\">", "</script>");
    EXPECT_GT(page.count("<g data-kind=\"node\""), 15'000);
    EXPECT_GT(table, 500'000);
    EXPECT_LE(2 * table, 3 * svgOf(input, u"treemap"_s).size());
}

// Each would be a node in the browser.
TEST(PageSize, has_no_line_ends_between_the_elements_of_the_drawing)
{
    const CorpusInput input = exampleInputs().front();
    const QByteArray page = pageOf(input.text(), input.engine());
    const qsizetype start = page.indexOf("<svg id=\"drawing\"");
    const QByteArray drawing = page.mid(start, page.indexOf("</svg>", start) - start);
    EXPECT_GT(drawing.count("<g data-kind="), 10);
    EXPECT_EQ(drawing.count(">\n"), 0);
}

// The same drawing, when an xdot text brings it.
TEST_P(PageCorpus, is_drawn_from_a_finished_drawing)
{
    const QByteArray xdot = xdotOf(GetParam().text(), GetParam().engine());
    const QByteArray page = pageOf(xdot, {});
    const QByteArray font = fontOf(page);
    EXPECT_EQ(primitivesOf(page, font), primitivesOf(withRectsOfPages(svgOf(xdot, {})), font));
    EXPECT_EQ(readPage(page)[u"data"_s].toObject()[u"engine"_s], u""_s);
}

INSTANTIATE_TEST_SUITE_P(Inputs, PageCorpus, testing::ValuesIn(corpusInputs()), nameOfInput);

// Texts that mean something to a reader of HTML, as values of what is drawn and of what is only
// read, as names, as ids and as the title: the reader sees the elements, attributes, scripts and
// styles of the same page with harmless texts, and the data give the very texts back.
TEST_P(HostilePage, has_no_element_of_its_input)
{
    using enum GraphElement;
    const std::vector<CorpusInput> inputs = inputsOf(GetParam(), drawingInputs());
    ASSERT_FALSE(inputs.empty());
    const auto pageWith = [&](const QByteArray &text) {
        QByteArray graph = inputs.front().text();
        const QByteArrayList names{"label", "url",       "href",      "tooltip", "fontname",
                                   "color", "fillcolor", "fontcolor", text};
        for (const QByteArray &name : names) {
            for (const GraphElement element : {Root, Cluster, Node, Edge})
                graph = withAttribute(graph, element, quotedInGraph(name), text);
        }
        graph.replace(0, graph.indexOf('{'), "digraph " + quotedInGraph(text) + ' ');
        return readPage(pageOf(graph, inputs.front().engine()));
    };
    for (const QByteArray &text : breakingTexts()) {
        const QJsonObject hostile = pageWith(text);
        const QJsonObject harmless = pageWith(harmlessText(text));
        EXPECT_GT(hostile[u"elements"_s].toArray().size(), 50);
        EXPECT_EQ(kindsOf(hostile) - kindsOf(harmless), QSet<QString>()) << text.data();
        EXPECT_EQ(hostile[u"script"_s], harmless[u"script"_s]) << text.data();
        EXPECT_EQ(hostile[u"style"_s], harmless[u"style"_s]) << text.data();
        EXPECT_EQ(hostile[u"policy"_s], harmless[u"policy"_s]) << text.data();
        const QJsonObject data = hostile[u"data"_s].toObject();
        const QString very = QString::fromUtf8(text);
        EXPECT_TRUE(data[u"names"_s].toArray().contains(very)) << text.data();
        bool isThere = false;
        for (const QJsonValue &list : data[u"attributes"_s].toArray())
            isThere = isThere || list.toArray().contains(very);
        EXPECT_TRUE(isThere) << text.data();
    }
}

INSTANTIATE_TEST_SUITE_P(Engines, HostilePage, testing::ValuesIn(allLayouts()), nameOfLayout);
