#include "companion/import/graphs/foreign_looks.h"

#include "graph/numbers.h"

#include <QColor>
#include <QHash>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

QString hueColor(const QByteArray &value)
{
    QByteArray blanks = value;
    blanks.replace(',', ' ');
    const QList<QByteArray> parts = blanks.simplified().split(' ');
    if (parts.size() != 3)
        return {};
    std::array<double, 3> hsv{};
    for (size_t i = 0; i < 3; ++i) {
        bool isNumber = false;
        const double part = parts[qsizetype(i)].toDouble(&isNumber);
        if (!isNumber || !(part >= 0))
            return {};
        hsv[i] = std::min(part, 1.0);
    }
    return QColor::fromHsvF(float(hsv[0]), float(hsv[1]), float(hsv[2])).name();
}

// Without empty ones.
QString withTrimmedLines(const QString &text)
{
    QStringList lines;
    for (const QStringView line : QStringView(text).split(u'\n')) {
        if (!line.trimmed().isEmpty())
            lines.append(line.trimmed().toString());
    }
    return lines.join(u'\n');
}

// Of markup the text: rows are lines, and cells have blanks between.
QString textOfMarkup(const QString &markup)
{
    static const QHash<QString, QChar> entities{
        {u"lt"_s, u'<'}, {u"gt"_s, u'>'}, {u"amp"_s, u'&'}, {u"quot"_s, u'"'}, {u"nbsp"_s, u' '}};
    QString text;
    for (qsizetype i = 0; i < markup.size(); ++i) {
        const QChar c = markup[i];
        const QChar closing = c == u'<' ? u'>' : c == u'&' ? u';' : QChar();
        const qsizetype end = closing.isNull() ? -1 : markup.indexOf(closing, i);
        if (end < 0) {
            text += c.isSpace() ? u' ' : c;
            continue;
        }
        const QString inner = markup.sliced(i + 1, end - i - 1).toLower();
        i = end;
        if (c == u'&')
            text += inner.startsWith(u'#') ? QChar(inner.sliced(1).toInt() & 0xffff)
                                           : entities.value(inner, u'?');
        else if (inner.startsWith(u"br") || inner.startsWith(u"/tr"))
            text += u'\n';
        else if (inner.startsWith(u"/td"))
            text += u' ';
    }
    return withTrimmedLines(text);
}

// "{<in> a|b}": the names of ports go, each field is a line.
QString textOfRecord(const QString &label)
{
    QString text;
    bool isPort = false;
    for (qsizetype i = 0; i < label.size(); ++i) {
        const QChar c = label[i];
        if (c == u'\\' && i + 1 < label.size() && !isPort)
            text += label.sliced(i++, 2);
        else if (c == u'<' || c == u'>')
            isPort = c == u'<';
        else if (c == u'|' && !isPort)
            text += u'\n';
        else if (c != u'{' && c != u'}' && !isPort)
            text += c;
    }
    return withTrimmedLines(text);
}

// What the escapes of a text stand for.
struct EscapedNames
{
    QString object; // a node, or an edge as "tail->head"
    QString graph;
    QString tail = {};
    QString head = {};
};

QString withoutEscapes(const QString &label, const EscapedNames &names)
{
    QString text;
    for (qsizetype i = 0; i < label.size(); ++i) {
        if (label[i] != u'\\' || i + 1 == label.size()) {
            text += label[i];
            continue;
        }
        const QChar c = label[++i];
        if (c == u'n' || c == u'l' || c == u'r')
            text += u'\n';
        else if (c == u'N' || c == u'L' || c == u'E')
            text += names.object;
        else if (c == u'G')
            text += names.graph;
        else if (c == u'T')
            text += names.tail;
        else if (c == u'H')
            text += names.head;
        else
            text += c;
    }
    while (text.endsWith(u'\n'))
        text.chop(1);
    return text;
}

QString foreignShape(const QByteArray &shape)
{
    static const QHash<QByteArray, QString> shapes{{"", u"oval"_s},
                                                   {"ellipse", u"oval"_s},
                                                   {"oval", u"oval"_s},
                                                   {"circle", u"oval"_s},
                                                   {"doublecircle", u"oval"_s},
                                                   {"point", u"oval"_s},
                                                   {"egg", u"oval"_s},
                                                   {"hexagon", u"hexagon"_s},
                                                   {"octagon", u"octagon"_s},
                                                   {"doubleoctagon", u"octagon"_s},
                                                   {"parallelogram", u"parallelogram"_s},
                                                   {"plaintext", u"none"_s},
                                                   {"plain", u"none"_s},
                                                   {"none", u"none"_s}};
    return shapes.value(shape, u"rectangle"_s);
}

QString textOf(const ForeignGraph::Values &values, const char *name, const EscapedNames &names)
{
    const QString given = QString::fromUtf8(values[name]);
    return values.isHtml(name) ? textOfMarkup(given) : withoutEscapes(given, names);
}

QList<AuthorFact> foreignFacts(const ForeignGraph::Values &values, const EscapedNames &names)
{
    QList<AuthorFact> facts;
    const char *link = values["URL"].isEmpty() ? "href" : "URL";
    const std::pair<const char *, QString> given[] = {{link, u"url"_s}, {"tooltip", u"tooltip"_s}};
    for (const auto &[name, fact] : given) {
        const QString value = textOf(values, name, names);
        if (!value.trimmed().isEmpty())
            facts.append({fact, value});
    }
    return facts;
}

QString wordsWithin(const QByteArray &style, std::initializer_list<const char *> known)
{
    QStringList words;
    for (const char *word : known) {
        if (style.contains(word))
            words.append(QString::fromLatin1(word));
    }
    return words.join(u',');
}

// Of lines, in points; 0 if nothing is said.
int foreignWidth(const ForeignGraph::Values &values)
{
    constexpr double widest = 50;
    constexpr int boldWidth = 2;
    bool isNumber = false;
    const double width = values["penwidth"].toDouble(&isNumber);
    if (isNumber && width >= 0)
        return std::max(1, Graph::rounded(std::min(width, widest)));
    return values["style"].contains("bold") ? boldWidth : 0;
}

// The first of several, without the names of faces that PostScript's have behind a hyphen.
QString foreignFamily(const QByteArray &name)
{
    static const QRegularExpression faces(u"-(Roman|Regular|Bold|Italic|Oblique)+$"_s);
    return QString::fromUtf8(name).section(u',', 0, 0).trimmed().remove(faces);
}

double foreignTextSize(const QByteArray &size)
{
    constexpr double largest = 100;
    bool isNumber = false;
    const double points = size.toDouble(&isNumber);
    return isNumber && points > 0 ? std::clamp(points, 1.0, largest) : 0;
}

bool hasArrow(const ForeignGraph::Values &values, bool isDirected)
{
    const QByteArray direction = values["dir"];
    const QByteArray head = values["arrowhead"];
    if (head == "none")
        return false;
    if (direction.isEmpty())
        return isDirected && !head.isEmpty();
    return direction == "forward" || direction == "both";
}

bool hasPaint(const ForeignGraph::Values &values)
{
    for (const char *name :
         {"shape", "style", "color", "fillcolor", "fontcolor", "penwidth", "peripheries"}) {
        if (!values[name].isEmpty())
            return true;
    }
    return false;
}

ThingLook foreignPaint(const ForeignGraph::Values &values)
{
    const QByteArray style = values["style"];
    const QByteArray shape = values["shape"].toLower();
    ThingLook look{.line = foreignColor(values["color"]),
                   .letters = foreignColor(values["fontcolor"]),
                   .shape = foreignShape(shape),
                   .style = wordsWithin(style, {"rounded", "dashed", "dotted"}),
                   .width = foreignWidth(values),
                   .twoLines = shape.startsWith("double") || values["peripheries"] == "2"};
    if (style.contains("filled") || style.contains("radial"))
        look.fill = foreignColor(values["fillcolor"]);
    if (look.fill.isEmpty() && style.contains("filled"))
        look.fill = look.line.isEmpty() ? u"#d3d3d3"_s : look.line;
    if (look.style.isEmpty())
        look.style = u"solid"_s;
    return look;
}

} // namespace

QList<QByteArray> lookedAtAttributes()
{
    return {"label",    "shape",    "style",       "color",    "fillcolor", "fontcolor",
            "fontname", "fontsize", "peripheries", "penwidth", "arrowhead", "dir",
            "weight",   "rankdir",  "URL",         "href",     "tooltip"};
}

QString foreignColor(const QByteArray &value)
{
    const qsizetype end = std::min({value.indexOf(':') < 0 ? value.size() : value.indexOf(':'),
                                    value.indexOf(';') < 0 ? value.size() : value.indexOf(';')});
    QByteArray first = value.first(end).trimmed();
    if (first == "transparent" || first == "none" || first == "invis")
        return u"none"_s;
    if (first.startsWith('#')) {
        // The toolkit has the opacity in front.
        const bool isColor = (first.size() == 7 || first.size() == 9)
            && QColor::isValidColorName(QLatin1StringView(first));
        return isColor ? QString::fromLatin1(first) : QString();
    }
    if (first.startsWith('/'))
        first = first.sliced(first.lastIndexOf('/') + 1);
    const QString hue = hueColor(first);
    if (!hue.isEmpty())
        return hue;
    if (!first.isEmpty() && !QColor::isValidColorName(QString::fromLatin1(first)))
        while (!first.isEmpty() && first.back() >= '0' && first.back() <= '9')
            first.chop(1);
    const QColor color = first.isEmpty() ? QColor() : QColor(QString::fromLatin1(first));
    return color.isValid() ? color.name() : QString();
}

QString foreignLabel(const ForeignGraph::Values &values, const QByteArray &name,
                     const QByteArray &graph)
{
    const QString given = QString::fromUtf8(values["label"]);
    if (given.isEmpty())
        return QString::fromUtf8(name);
    if (values.isHtml("label"))
        return textOfMarkup(given);
    const bool isRecord = values["shape"].toLower().endsWith("record");
    return withoutEscapes(isRecord ? textOfRecord(given) : given,
                          {QString::fromUtf8(name), QString::fromUtf8(graph)});
}

ThingLook foreignLook(const ForeignGraph &graph, const ForeignGraph::Node &node)
{
    const ForeignGraph::Values &values = node.values;
    ThingLook look;
    if (hasPaint(values))
        look = foreignPaint(values);
    look.family = foreignFamily(values["fontname"]);
    look.textSize = foreignTextSize(values["fontsize"]);
    look.facts =
        foreignFacts(values, {QString::fromUtf8(node.name), QString::fromUtf8(graph.name)});
    return look;
}

LinkLook foreignLinkLook(const ForeignGraph &graph, const ForeignGraph::Edge &edge)
{
    const ForeignGraph::Values &values = edge.values;
    const QString tail = QString::fromUtf8(graph.nodes[edge.tail].name);
    const QString head = QString::fromUtf8(graph.nodes[edge.head].name);
    const EscapedNames names{tail + (graph.isDirected ? u"->"_s : u"--"_s) + head,
                             QString::fromUtf8(graph.name), tail, head};
    return {.color = foreignColor(values["color"]),
            .style = wordsWithin(values["style"], {"dashed", "dotted"}),
            .width = foreignWidth(values),
            .hasArrow = hasArrow(values, graph.isDirected),
            .label = textOf(values, "label", names),
            .facts = foreignFacts(values, names)};
}

} // namespace ORR::Companion
