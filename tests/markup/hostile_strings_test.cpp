// No text becomes markup: strings that end a value, an element or a formula go through every
// attribute of the engines' inputs and every op of a finished drawing, in all formats. What comes
// out has the elements and attributes that a harmless text of the same kind gives.
#include "markup/element_tree.h"

#include "device/xdot_render.h"
#include "driver/format_table.h"
#include "driver/layout_table.h"
#include "graph/dot_parser.h"
#include "support/golden.h"
#include "visio/visio_reading.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

const QStringList hostileStrings{
    u"x\"/><script>alert(1)</script><g onload=\"e()\" a=\""_s,
    u"x'/>]]>--><!DOCTYPE a><?b?>&amp;&#60;c&#62;&d' onload='e()"_s,
    u"x\")+RUN(\"y\")&\"=1+1"_s,
    u"x\u001b[31m\u0007\u0001\u009by"_s,
};

// A text of the same length and kind that means nothing to any reader.
QString harmless(QString text)
{
    static const QRegularExpression special(u"[<>&\"'#=()\\[\\]!?/+\\-\\x00-\\x1f\\x7f-\\x9f]"_s);
    return text.replace(special, u"x"_s);
}

QString quoted(QString text)
{
    return u'"' + text.replace(u'"', u"\\\""_s) + u'"';
}

struct Drawn
{
    QString message;
    QStringList tree;
};

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Formulas that hold a font family are a call with one string, whatever the family is.
void expectPlainFormulas(const QByteArray &xml)
{
    static const QRegularExpression call(u"\\AFONTT?OID\\(\"(?:[^\"]|\"\")*\"\\)\\z"_s,
                                         QRegularExpression::DotMatchesEverythingOption);
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString formula = reader.attributes().value("F"_L1).toString();
        if (formula.contains("FONT"_L1) || formula.contains(u'"')) {
            EXPECT_TRUE(call.match(formula).hasMatch()) << formula.toStdString();
        }
    }
}

QStringList treeOf(Driver::DriverFormat format, const QString &path)
{
    switch (format) {
    case Driver::DriverFormat::XDot:
        return graphTree(content(path));
    case Driver::DriverFormat::Jpg:
    case Driver::DriverFormat::Png:
        EXPECT_FALSE(QImage(path).isNull());
        return {};
    case Driver::DriverFormat::Svg:
        return elementTree(content(path));
    case Driver::DriverFormat::Vdx:
        expectPlainFormulas(content(path));
        return elementTree(content(path));
    case Driver::DriverFormat::Vsdx:
        break;
    }
    QStringList tree;
    const QMap<QString, QByteArray> parts = readPackage(path);
    for (auto part = parts.cbegin(); part != parts.cend(); ++part) {
        tree += part.key();
        expectPlainFormulas(part.value());
        tree += elementTree(part.value());
    }
    return tree;
}

Drawn drawn(Driver::DriverFormat format, Driver::LayoutIndex layout, const QString &text)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"drawing."_s + Driver::formatRow(format).name);
    const QByteArray input = text.toUtf8();
    const std::unique_ptr<Graph::DotGraph> graph = Graph::parseDot(input);
    EXPECT_TRUE(graph) << input.toStdString();
    if (!graph)
        return {};
    const auto device = Driver::formatRow(format).create({path, QStringLiteral(ORR_HOME)});
    Drawn result;
    result.message = graph->root()->attributes.contains(u"xdotversion"_s)
        ? Graph::Graphviz::XDotRender(device.get(), graph.get()).render(input)
        : Driver::layoutRow(layout).run({graph.get(), device.get()});
    if (result.message.isEmpty())
        result.tree = treeOf(format, path);
    return result;
}

void expectSameTrees(Driver::LayoutIndex layout, const QString &hostile, const QString &plain)
{
    for (int i = 0; i < 6; ++i) {
        const auto format = Driver::DriverFormat(i);
        SCOPED_TRACE(std::string(Driver::formatRow(format).name.data()) + ": "
                     + hostile.toStdString());
        const Drawn a = drawn(format, layout, hostile);
        const Drawn b = drawn(format, layout, plain);
        EXPECT_EQ(a.message.isEmpty(), b.message.isEmpty()) << a.message.toStdString();
        EXPECT_EQ(a.tree, b.tree);
    }
}

// A finished drawing with these ops in the attribute of a node.
QString finished(const QString &attribute, const QString &ops)
{
    return u"digraph { graph [bb=\"0,0,90,90\" xdotversion=\"1.2\" fontname=Arial]; a [%1=%2]; }"_s
        .arg(attribute, quoted(ops));
}

QString counted(const QString &text)
{
    return QString::number(text.toUtf8().size()) + u" -"_s + text;
}

// The name, where the string goes into: attribute and ops, with %1 for the counted string.
struct Op
{
    QString attribute;
    QString ops;
};

const QList<Op> allOps{
    {u"_draw_"_s, u"c %1 C %1 P 3 0 0 9 0 9 9 E 9 9 3 3 L 2 0 0 9 9 b 4 0 0 1 1 2 2 3 3"_s},
    {u"_draw_"_s, u"S %1 p 4 0 0 9 0 9 9 0 9"_s},
    {u"_draw_"_s, u"d %1 D %1 I 0 0 9 9 %1 p 3 0 0 9 0 9 9"_s},
    {u"_draw_"_s, u"C 3 -red c %1 e 9 9 3 3"_s},
    {u"_ldraw_"_s, u"F 12 %1 T 9 9 0 9 1 -a"_s},
    {u"_ldraw_"_s, u"F 12 5 -Arial c %1 T 9 9 0 9 1 -a"_s},
    {u"_ldraw_"_s, u"F 12 5 -Arial T 9 9 -1 9 %1"_s},
    {u"_ldraw_"_s, u"F 12 %1 H 9 9 0 9 8 -<b>a</b>"_s},
    {u"_ldraw_"_s, u"F 12 5 -Arial c %1 H 9 9 0 9 8 -<b>a</b>"_s},
};

// Rich texts with %1 for the string, as it stands in HTML.
const QStringList richTexts{
    u"<font face=\"%1\">a</font>"_s,
    u"<font face=\"A,%1,B\">a</font> <b>b</b>"_s,
    u"<span style=\"font-family:'%1'\">a</span>"_s,
    u"<p style=\"font-family:'%1'\"></p><p>b"_s,
    u"<ul style=\"font-family:'%1'\"><li>a</ul>"_s,
    u"<table style=\"font-family:'%1'\"><tr><td>a</table>"_s,
    u"<a href=\"%1\" name=\"%1\" title=\"%1\">a</a>"_s,
    u"<p id=\"%1\" class=\"%1\" lang=\"%1\">a"_s,
    u"<img src=\"%1\" alt=\"%1\" title=\"%1\" width=9 height=9>a"_s,
    u"<table background=\"%1\"><tr><td>a</table>"_s,
    u"<b>%1</b>"_s,
};

} // namespace

TEST(HostileStrings, in_every_attribute_of_every_engine_stay_text)
{
    static const QRegularExpression attribute(u"(\\b[A-Za-z_]+)=\"[^\"]*\""_s);
    int attributes = 0;
    for (const QString &engine : Driver::layoutNames()) {
        const QDir folder(QStringLiteral(ORR_DRAWINGS_FOLDER) + u'/' + engine);
        for (const QString &name : folder.entryList({u"*.dot"_s}, QDir::Files, QDir::Name)) {
            const QString text = QString::fromUtf8(content(folder.filePath(name)));
            QStringList names;
            for (const QRegularExpressionMatch &match : attribute.globalMatch(text))
                names += match.captured(1);
            names.removeDuplicates();
            for (const QString &each : std::as_const(names)) {
                const QRegularExpression place(u"\\b%1=\"[^\"]*\""_s.arg(each));
                const QString &hostile = hostileStrings.at(attributes++ % hostileStrings.size());
                const auto with = [&](const QString &value) {
                    QString changed = text;
                    const QString setting = each + u'=' + quoted(value);
                    return changed.replace(place, QString(setting).replace(u'\\', u"\\\\"_s));
                };
                expectSameTrees(*Driver::chooseLayout(engine), with(hostile),
                                with(harmless(hostile)));
            }
        }
    }
    EXPECT_GT(attributes, 80);
}

TEST(HostileStrings, in_every_attribute_that_is_painted_stay_text)
{
    for (const QString &hostile : hostileStrings) {
        for (const QString &name : {u"label"_s, u"fontname"_s, u"fontcolor"_s, u"color"_s,
                                    u"style"_s, u"expandcolor"_s}) {
            const auto with = [&](const QString &value) {
                return u"digraph { graph [%1=%2 fontsize=9]; node [%1=%2 fontsize=9 "
                       u"shape=rectangle "
                       "expander=true]; edge [%1=%2]; a [label=a]; a -> b []; }"_s.arg(
                           name, quoted(value));
            };
            expectSameTrees(Driver::LayoutIndex::GfTree, with(hostile), with(harmless(hostile)));
        }
    }
}

TEST(HostileStrings, in_every_op_of_a_finished_drawing_stay_text)
{
    for (const Op &op : allOps) {
        for (const QString &hostile : hostileStrings)
            expectSameTrees(
                {}, finished(op.attribute, QString(op.ops).replace(u"%1"_s, counted(hostile))),
                finished(op.attribute,
                         QString(op.ops).replace(u"%1"_s, counted(harmless(hostile)))));
    }
}

TEST(HostileStrings, in_the_colours_of_a_gradient_stay_text)
{
    for (const QString &hostile : hostileStrings) {
        const auto with = [](const QString &name) {
            const QString gradient = u"[0 0 9 9 2 0 %1 1 %1"_s.arg(counted(name));
            return finished(u"_draw_"_s, u"C %1 P 3 0 0 9 0 9 9"_s.arg(counted(gradient)));
        };
        expectSameTrees({}, with(hostile), with(harmless(hostile)));
    }
}

TEST(HostileStrings, in_the_settings_of_a_finished_drawing_stay_text)
{
    for (const QString &hostile : hostileStrings) {
        for (const QString &name : {u"fontname"_s, u"color"_s, u"fillcolor"_s, u"style"_s,
                                    u"label"_s, u"rounded"_s, u"pos"_s, u"width"_s}) {
            const auto with = [&](const QString &value) {
                return u"digraph { graph [bb=\"0,0,90,90\" xdotversion=\"1.2\"]; a [%1=%2 "
                       "fontsize=9 _draw_=\"P 3 0 0 9 0 9 9\" _ldraw_=\"T 9 9 0 9 1 -a H 9 9 0 9 8 "
                       "-<b>a</b>\"]; }"_s.arg(name, quoted(value));
            };
            expectSameTrees({}, with(hostile), with(harmless(hostile)));
        }
    }
}

TEST(HostileStrings, in_rich_text_stay_text)
{
    for (const QString &html : richTexts) {
        for (const QString &hostile : hostileStrings) {
            const auto with = [&](const QString &value) {
                const QString text = QString(html).replace(u"%1"_s, value.toHtmlEscaped());
                return finished(u"_ldraw_"_s, u"F 12 5 -Arial H 9 9 0 9 "_s + counted(text));
            };
            expectSameTrees({}, with(hostile), with(harmless(hostile)));
        }
    }
}

TEST(HostileStrings, in_ids_stay_text)
{
    for (const QString &hostile : hostileStrings) {
        const auto with = [](const QString &id) {
            return u"digraph %1 { subgraph %1 { %1 [label=a shape=rectangle] } %1 -> b []; }"_s.arg(
                quoted(id));
        };
        for (const auto format :
             {Driver::DriverFormat::Svg, Driver::DriverFormat::Vdx, Driver::DriverFormat::Vsdx}) {
            const auto layout = Driver::LayoutIndex::GfTree;
            EXPECT_EQ(drawn(format, layout, with(hostile)).tree,
                      drawn(format, layout, with(harmless(hostile))).tree);
        }
    }
}

TEST(HostileStrings, come_out_as_they_went_in)
{
    for (const QString &family : {u"A & B"_s, u"x\"/><script>"_s, u"50%"_s, u"%22"_s}) {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"a.svg"_s);
        const auto device =
            Driver::formatRow(Driver::DriverFormat::Svg).create({path, QStringLiteral(ORR_HOME)});
        device->begin(9, 9);
        device->drawRichText(
            {0, 0}, device->text(u"text"_s, device->font(family, 9, 0), device->color({})));
        EXPECT_EQ(device->end(), QString());
        QXmlStreamReader reader(content(path));
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
