#include "companion/import/graphs/foreign_looks.h"

#include <QColor>
#include <QHash>
#include <QStringList>

#include <algorithm>
#include <array>

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

QString withoutEscapes(const QString &label, const QString &name, const QString &graph)
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
        else if (c == u'N' || c == u'L')
            text += name;
        else if (c == u'G')
            text += graph;
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

} // namespace

QList<QByteArray> lookedAtAttributes()
{
    return {"label",     "shape",       "style",  "color",  "fillcolor",
            "fontcolor", "peripheries", "weight", "rankdir"};
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
    return withoutEscapes(isRecord ? textOfRecord(given) : given, QString::fromUtf8(name),
                          QString::fromUtf8(graph));
}

ThingLook foreignLook(const ForeignGraph::Values &values)
{
    const QByteArray style = values["style"];
    const QByteArray shape = values["shape"].toLower();
    if (shape.isEmpty() && style.isEmpty() && values["color"].isEmpty()
        && values["fillcolor"].isEmpty() && values["fontcolor"].isEmpty())
        return {};
    ThingLook look{.line = foreignColor(values["color"]),
                   .letters = foreignColor(values["fontcolor"]),
                   .shape = foreignShape(shape),
                   .twoLines = shape.startsWith("double") || values["peripheries"] == "2"};
    if (style.contains("filled") || style.contains("radial"))
        look.fill = foreignColor(values["fillcolor"]);
    if (look.fill.isEmpty() && style.contains("filled"))
        look.fill = look.line.isEmpty() ? u"#d3d3d3"_s : look.line;
    QStringList words;
    for (const char *word : {"rounded", "dashed", "dotted", "invis"}) {
        if (style.contains(word))
            words.append(QString::fromLatin1(word));
    }
    look.style = words.isEmpty() ? u"solid"_s : words.join(u',');
    return look;
}

} // namespace ORR::Companion
