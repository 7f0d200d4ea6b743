#include "markup/reading.h"

#include "graph/dot_parser.h"
#include "graph/subgraph_walk.h"
#include "support/golden.h"
#include "visio/visio_reading.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QRegularExpression>
#include <QXmlStreamReader>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// Attributes of Visio's formats whose values are words of the format.
const QStringList namingAttributes{u"N"_s, u"T"_s, u"NameU"_s, u"Type"_s};

const QStringList drawingElements{u"Shape"_s,   u"path"_s, u"ellipse"_s, u"polyline"_s,
                                  u"polygon"_s, u"rect"_s, u"text"_s};

QString namesOf(const AttributeMap &attributes)
{
    QStringList names;
    for (const auto &entry : attributes)
        names += entry.name.text();
    names.sort();
    return names.join(u' ');
}

// The formula with "text" for the one string that it may hold, which goes to `texts`, and # for
// each number. A quote that does not belong to a string stays and is a difference from any other.
QString formulaWithoutTexts(const QString &formula, QStringList *texts)
{
    static const QRegularExpression number(u"\\d+(\\.\\d+)?(e[-+]?\\d+)?"_s);
    static const QRegularExpression lookup(u"\\A(FONTT?OID)\\(\"((?:[^\"]|\"\")*)\"\\)\\z"_s);
    if (const QRegularExpressionMatch match = lookup.match(formula); match.hasMatch()) {
        *texts += match.captured(2).replace("\"\""_L1, "\""_L1);
        return match.captured(1) + u"(text)"_s;
    }
    return QString(formula).replace(number, u"#"_s);
}

QString describe(const QXmlStreamReader &reader, QStringList *texts)
{
    QString line = reader.qualifiedName().toString();
    for (const QXmlStreamAttribute &attribute : reader.attributes()) {
        const QString name = attribute.qualifiedName().toString();
        const QString value = attribute.value().toString();
        line += u' ' + name;
        if (name == u'F')
            line += u'=' + formulaWithoutTexts(value, texts);
        else if (namingAttributes.contains(name))
            line += u'=' + value;
        else
            *texts += value;
    }
    return line;
}

// The toolkit paints a line of rich text in as many pieces as it has directions of writing and
// fonts, which is for the text to decide. They count as one.
void addLine(const QString &line, QStringList *structure)
{
    const bool isPiece = line.trimmed().startsWith("text "_L1) && line.contains("xml:space"_L1);
    if (!isPiece || structure->constLast() != line)
        *structure += line;
}

Reading readPackageParts(const QString &path)
{
    Reading reading;
    const QMap<QString, QByteArray> parts = readPackage(path);
    for (auto part = parts.cbegin(); part != parts.cend(); ++part) {
        reading.structure += part.key();
        reading.append(readXml(part.value()));
    }
    return reading;
}

} // namespace

bool Reading::says(const QString &text) const
{
    return std::ranges::any_of(texts, [&](const QString &each) { return each.contains(text); });
}

void Reading::append(const Reading &other)
{
    structure += other.structure;
    texts += other.texts;
    drawn += other.drawn;
}

Reading readXml(const QByteArray &xml)
{
    Reading reading;
    int depth = 0;
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            addLine(QString(depth++, u' ') + describe(reader, &reading.texts), &reading.structure);
            reading.drawn += drawingElements.contains(reader.name());
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        case QXmlStreamReader::Characters:
            if (!reader.isWhitespace())
                reading.texts += reader.text().toString();
            break;
        case QXmlStreamReader::StartDocument:
        case QXmlStreamReader::EndDocument:
            break;
        default:
            // Comments, instructions, declarations: we write them nowhere.
            reading.structure += reader.tokenString();
        }
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString() << "\n"
                                    << xml.toStdString();
    return reading;
}

Reading readXDotText(const QByteArray &dot)
{
    const std::unique_ptr<DotGraph> graph = parseDot(dot);
    EXPECT_TRUE(graph) << dot.toStdString();
    if (!graph)
        return {};
    Reading reading;
    const auto add = [&](const QString &head, const AttributeMap &attributes) {
        reading.structure += head + u' ' + namesOf(attributes);
        reading.drawn += attributes.contains(u"_draw_"_s) || attributes.contains(u"_ldraw_"_s);
        for (const auto &entry : attributes)
            reading.texts += entry.value;
    };
    for (const DotSubgraph *subgraph : subgraphsInPreorder(graph->root())) {
        add(subgraph->id + u" {"_s, subgraph->attributes);
        for (const DotNode *node : subgraph->nodes)
            add(node->id, node->attributes);
        for (const DotEdge *edge : subgraph->edges)
            add(edge->tail->id + u"->"_s + edge->head->id, edge->attributes);
    }
    return reading;
}

Reading readDrawing(const QString &path)
{
    if (path.endsWith(".vsdx"_L1))
        return readPackageParts(path);
    if (path.endsWith(".svg"_L1) || path.endsWith(".vdx"_L1))
        return readXml(readTestFile(path));
    if (path.endsWith(".xdot1.2"_L1))
        return readXDotText(readTestFile(path));
    const QImage image(path);
    EXPECT_FALSE(image.isNull()) << path.toStdString();
    return {};
}
