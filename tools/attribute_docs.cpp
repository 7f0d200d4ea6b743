#include "tools/attribute_docs.h"

#include "device/color_value.h"
#include "layout/attribute_tables.h"
#include "tools/attribute_words.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Docs {

using namespace Graph;

namespace {

constexpr QLatin1StringView firstMarker = "<!-- attributes: "_L1;
constexpr QLatin1StringView markerEnd = " -->"_L1;
constexpr QLatin1StringView lastMarker = "<!-- end of attributes -->"_L1;
constexpr QLatin1StringView colorPage = "colors"_L1;

// A text within a cell.
QString cell(QString text)
{
    return text.replace(u'|', "\\|"_L1);
}

QString cell(std::string_view text)
{
    return cell(QString(latin1(text)));
}

QString code(const QString &text)
{
    return u'`' + text + u'`';
}

QString tableLine(const QStringList &cells)
{
    return u"| "_s + cells.join(u" | "_s) + u" |\n"_s;
}

QString tableHead(const QStringList &titles)
{
    return tableLine(titles) + tableLine(QStringList(titles.size(), u"---"_s));
}

QString typeCell(const AttributeRow &row)
{
    QString text = cell(typeText(row));
    if (!row.unit.empty() || row.words.empty())
        return text;
    QStringList words;
    for (const AttributeWord &word : row.words)
        words += code(cell(word.word));
    return text + u": "_s + words.join(u", "_s);
}

QString rowText(const AttributeRow &row)
{
    return tableLine({elementText(row.elements), code(row.name.text()), typeCell(row),
                      cell(defaultText(row)), lookupText(row), cell(row.meaning)});
}

QString wordText(std::span<const AttributeRow *const> rows)
{
    QString text;
    for (const AttributeRow *row : rows) {
        for (const AttributeWord &word : row->words)
            text += tableLine({elementText(row->elements), code(row->name.text()),
                               code(cell(word.word)), cell(word.meaning)});
    }
    return text.isEmpty()
        ? QString()
        : u'\n' + tableHead({u"Element"_s, u"Attribute"_s, u"Word"_s, u"Meaning"_s}) + text;
}

QString workingText(std::span<const WorkingRow *const> rows)
{
    if (rows.empty())
        return {};
    QString text = u"\nThe engine itself writes:\n\n"_s
        + tableHead({u"Element"_s, u"Attribute"_s, u"Unit"_s, u"Meaning"_s});
    for (const WorkingRow *row : rows) {
        const QString unit = row->unit.empty() ? u"none"_s : cell(row->unit);
        text += tableLine(
            {elementText(row->elements), code(row->name.text()), unit, cell(row->meaning)});
    }
    return text;
}

// What stands under a marker with that name; null if there is no such thing.
QString markedText(QStringView name)
{
    if (name == colorPage)
        return colorText();
    const auto tables = Layout::attributeTables();
    const auto found = std::find_if(tables.begin(), tables.end(), [&](const AttributeTable *table) {
        return name == latin1(table->reader);
    });
    return found == tables.end() ? QString() : attributeText(**found);
}

} // namespace

QString attributeText(const AttributeTable &table)
{
    QString text = tableHead(
        {u"Element"_s, u"Attribute"_s, u"Type"_s, u"Default"_s, u"Lookup"_s, u"Meaning"_s});
    for (const AttributeRow *row : table.rows)
        text += rowText(*row);
    return text + wordText(table.rows) + workingText(table.working);
}

QString colorText()
{
    QString text = tableHead({u"Name"_s, u"Colour"_s});
    const QStringList names = colorNames();
    for (const QString &name : names) {
        const ColorValue color(name);
        text += tableLine(
            {code(name), color.alpha() == 0 ? u"nothing is painted"_s : code(color.toString())});
    }
    return text;
}

RenewedPage renewedPage(const QString &page)
{
    QString text;
    qsizetype copied = 0;
    for (;;) {
        const qsizetype start = page.indexOf(firstMarker, copied);
        if (start < 0)
            return {text + page.sliced(copied), {}};
        const qsizetype nameStart = start + firstMarker.size();
        const qsizetype nameEnd = page.indexOf(markerEnd, nameStart);
        const qsizetype end = page.indexOf(lastMarker, nameStart);
        if (nameEnd < 0 || end < nameEnd)
            return {page, u"the marker at %1 has no end"_s.arg(start)};
        const QStringView name = QStringView(page).sliced(nameStart, nameEnd - nameStart);
        const QString marked = markedText(name);
        if (marked.isNull())
            return {page, u"there is no table \"%1\""_s.arg(name)};
        const qsizetype bodyStart = nameEnd + markerEnd.size();
        text += page.sliced(copied, bodyStart - copied) + u"\n\n"_s + marked + u'\n';
        copied = end;
    }
}

} // namespace ORR::Docs
