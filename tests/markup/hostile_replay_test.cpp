// Hostile texts in every op and setting of a finished drawing, in all formats.
#include "markup/drawing.h"
#include "support/breaking_texts.h"
#include "support/golden.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

// With the margin of the replay.
constexpr QSize pageSize(98, 98);

// All objects that may have ops.
QByteArray finished(const QByteArray &settings)
{
    return "digraph { graph [bb=\"0,0,90,90\" xdotversion=\"1.2\" fontname=Arial " + settings
        + "]; node [" + settings + "]; edge [" + settings + "]; subgraph c { graph [" + settings
        + "]; a [" + settings + "]; } b [" + settings + "]; a -> b [" + settings + "]; }";
}

QByteArray counted(const QByteArray &text)
{
    return QByteArray::number(text.size()) + " -" + text;
}

// Expects of each hostile text that it makes the same structure as a harmless one; `with` gives the
// graph for a text. `isShown` is for texts that each format but a picture has to say.
template <typename With>
void expectText(With with, bool isShown)
{
    for (const QByteArray &text : breakingTexts()) {
        const QByteArray hostile = with(text);
        const QByteArray plain = with(harmlessText(text));
        for (const auto format : allFormats()) {
            const ReadDrawing drawing = expectSameStructure(format, {}, hostile, plain);
            if (isPicture(format)) {
                EXPECT_EQ(drawing.size, pageSize);
            }
            const bool isXdot = format == Drawing::Format::XDot;
            if (isShown && !isPicture(format)) {
                EXPECT_TRUE(
                    drawing.reading.says(isXdot ? QString::fromUtf8(text) : asXmlHasIt(text)))
                    << Drawing::formatRow(format).name.data() << ' ' << hostile.toStdString();
            }
        }
    }
}

// An attribute and its ops, with # for the counted text.
struct Op
{
    QByteArray attribute;
    QByteArray ops;
    bool isShown;
};

const QList<Op> allOps{
    {"_draw_", "c # C # P 3 0 0 9 0 9 9 E 9 9 3 3 L 2 0 0 9 9 b 4 0 0 1 1 2 2 3 3", false},
    {"_draw_", "S # p 4 0 0 9 0 9 9 0 9", false},
    {"_draw_", "d # D # I 0 0 9 9 # p 3 0 0 9 0 9 9", false},
    {"_draw_", "C 3 -red c # e 9 9 3 3", false},
    {"_draw_", "F 12 # T 9 9 0 9 # H 9 9 0 9 # p 3 0 0 9 0 9 9", false},
    {"_hdraw_", "c # C # S # F 9 # P 3 0 0 9 0 9 9", false},
    {"_tdraw_", "c # C # S # F 9 # P 3 0 0 9 0 9 9", false},
    {"_ldraw_", "F 12 # T 9 9 0 9 1 -a", true},
    {"_ldraw_", "F 12 5 -Arial c # T 9 9 0 9 1 -a", false},
    {"_ldraw_", "F 12 5 -Arial T 9 9 -1 9 #", true},
    {"_ldraw_", "F 12 # H 9 9 0 9 8 -<b>a</b>", false},
    {"_ldraw_", "F 12 5 -Arial c # H 9 9 0 9 8 -<b>a</b>", false},
    {"_hldraw_", "F 12 # c # T 9 9 0 9 # P 3 0 0 9 0 9 9", false},
    {"_tldraw_", "F 12 # c # H 9 9 0 9 # P 3 0 0 9 0 9 9", false},
};

// Settings that name things, and those that are numbers or words.
const QList<QByteArrayList> settings{
    {"fontname", "color", "fillcolor", "fontcolor", "style", "label"},
    {"rounded", "pos", "width", "height", "bb", "penwidth", "fontsize"},
};

// Rich texts with # for the string, as it stands in HTML.
const QByteArrayList richTexts{
    "<font face=\"#\">a</font>",
    "<font face=\"A,#,B\">a</font> <b>b</b>",
    "<span style=\"font-family:'#'\">a</span>",
    "<p style=\"font-family:'#'\"></p><p>b",
    "<ul style=\"font-family:'#'\"><li>a</ul>",
    "<table style=\"font-family:'#'\"><tr><td>a</table>",
    "<a href=\"#\" name=\"#\" title=\"#\">a</a>",
    "<p id=\"#\" class=\"#\" lang=\"#\">a",
    "<img src=\"#\" alt=\"#\" title=\"#\" width=9 height=9>a",
    "<table background=\"#\"><tr><td>a</table>",
    "<b>#</b>",
};

} // namespace

TEST(HostileStrings, in_every_op_of_a_finished_drawing_stay_text)
{
    for (const Op &op : allOps) {
        const auto with = [&](const QByteArray &text) {
            return finished(op.attribute + '='
                            + quotedInGraph(QByteArray(op.ops).replace("#", counted(text))));
        };
        expectText(with, op.isShown);
    }
}

TEST(HostileStrings, in_the_colours_of_a_gradient_stay_text)
{
    for (const QByteArray head : {"[0 0 9 9 2 ", "(0 0 1 9 9 5 2 "}) {
        const auto with = [&](const QByteArray &name) {
            const QByteArray gradient = head + "0 " + counted(name) + " 1 " + counted(name);
            return finished("_draw_="
                            + quotedInGraph("C " + counted(gradient) + " P 3 0 0 9 0 9 9"));
        };
        expectText(with, false);
    }
}

TEST(HostileStrings, in_the_settings_of_a_finished_drawing_stay_text)
{
    for (const QByteArrayList &names : settings) {
        const auto with = [&](const QByteArray &value) {
            QByteArray list = "fontsize=9";
            for (const QByteArray &name : names)
                list += ' ' + name + '=' + quotedInGraph(value);
            return finished(list
                            + " _draw_=\"p 4 0 0 9 0 9 9 0 9\""
                              " _ldraw_=\"T 9 9 0 9 1 -a H 9 9 0 9 8 -<b>a</b>\"");
        };
        expectText(with, names.contains("fontname"));
    }
}

TEST(HostileStrings, in_rich_text_stay_text)
{
    for (const QByteArray &html : richTexts) {
        const auto with = [&](const QByteArray &value) {
            const QByteArray escaped = QString::fromUtf8(value).toHtmlEscaped().toUtf8();
            const QByteArray text = QByteArray(html).replace("#", escaped);
            return finished("_ldraw_=" + quotedInGraph("F 12 5 -Arial H 9 9 0 9 " + counted(text)));
        };
        expectText(with, false);
    }
}

TEST(HostileStrings, come_out_as_they_went_in)
{
    for (const QString &family : {u"A & B"_s, u"x\"/><script>"_s, u"50%"_s, u"%22"_s}) {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"a.svg"_s);
        const auto device =
            Drawing::formatRow(Drawing::Format::Svg).create({path, QStringLiteral(ORR_HOME)});
        device->begin(9, 9);
        device->drawRichText(
            {0, 0}, device->text(u"text"_s, device->font(family, 9, 0), device->color({})));
        EXPECT_EQ(device->end(), QString());
        QXmlStreamReader reader(readTestFile(path));
        QString found;
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == "text"_L1) {
                found = reader.attributes().value("font-family"_L1).toString();
                EXPECT_EQ(reader.readElementText(), "text");
            }
        }
        EXPECT_EQ(found, family);
    }
}
