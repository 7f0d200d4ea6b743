#include "tools/manual/engines_page.h"

#include "device/color_value.h"
#include "layout/attribute_tables.h"
#include "tools/attribute_words.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Docs {

using namespace Graph;

namespace {

// The engines that read by a table.
QStringList readersOf(const AttributeTable &table)
{
    QStringList names;
    for (const Layout::EngineTables &engine : Layout::engineTables()) {
        if (std::ranges::find(engine.tables, &table) != engine.tables.end())
            names += latin1(engine.engine);
    }
    return names;
}

void writeRow(RoffPage *page, const AttributeRow &row)
{
    const QString meaning = latin1(row.meaning);
    page->term(bold(row.name.text()), plain(meaning.first(1).toUpper() + meaning.sliced(1) + u'.'));
    page->further(plain(u"Of %1; %2; default: %3; looked up: %4."_s.arg(
        elementText(row.elements), typeText(row), defaultText(row), lookupText(row))));
    if (row.words.empty())
        return;
    page->beginList();
    for (const AttributeWord &word : row.words)
        page->term(bold(latin1(word.word)), plain(latin1(word.meaning)));
    page->endList();
}

void writeTable(RoffPage *page, const AttributeTable &table)
{
    const QString name = latin1(table.reader);
    page->subheading(name);
    const QStringList readers = readersOf(table);
    if (readers != QStringList{name})
        page->paragraph(plain(u"Read by "_s + readers.join(u", "_s) + u'.'));
    for (const AttributeRow *row : table.rows)
        writeRow(page, *row);
    if (table.working.empty())
        return;
    QStringList written;
    for (const WorkingRow *row : table.working)
        written += bold(row->name.text());
    written.removeDuplicates();
    page->paragraph(u"The engine itself writes "_s + written.join(u", "_s) + u'.');
}

void writeColors(RoffPage *page)
{
    page->heading(u"COLOURS"_s);
    page->paragraph(marked(u"A colour is `#rrggbb`, `#rrggbbaa` with its opacity, or one of these "
                           "names in any case. Anything else is black."_s));
    QStringList names;
    for (const QString &name : colorNames()) {
        const ColorValue color(name);
        names += color.alpha() == 0 ? bold(name) + u" (nothing is painted)"_s
                                    : bold(name) + u" ("_s + plain(color.toString()) + u')';
    }
    page->paragraph(names.join(u", "_s) + u'.');
}

} // namespace

ManualPage enginesPage(const ManualSetting &setting)
{
    const QString name = u"orrlayout-engines"_s;
    const QList<ProseSection> prose = proseOf(name, setting);
    if (prose.isEmpty())
        return {name, 7, {}};
    RoffPage page({name, 7, setting.date, setting.source});
    page.heading(u"NAME"_s);
    page.summary(name, u"the engines of orrlayout and their attributes"_s);
    page.heading(u"DESCRIPTION"_s);
    page.prose(prose.constFirst().blocks);
    for (const ProseSection &section : prose.sliced(1)) {
        page.heading(section.heading);
        page.prose(section.blocks);
    }
    page.heading(u"ATTRIBUTES"_s);
    for (const AttributeTable *table : Layout::attributeTables())
        writeTable(&page, *table);
    writeColors(&page);
    page.heading(u"SEE ALSO"_s);
    page.paragraph(bold(u"orrlayout"_s) + u"(1), "_s + bold(u"orr"_s) + u"(1)"_s);
    return {name, 7, page.text()};
}

} // namespace ORR::Docs
