#include "companion/import/programs/size_import.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/builds/object_path.h"
#include "companion/import/programs/bloaty_table.h"
#include "companion/import/programs/linker_map.h"
#include "companion/import/programs/section_kind.h"
#include "companion/import/programs/size_table.h"
#include "companion/import/trees/tree_result.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

TreeMeaning bytesByKind()
{
    TreeMeaning meaning{.weight = u"size"_s, .unit = TreeMeaning::Unit::Bytes};
    meaning.coloring = TreeMeaning::Coloring::ByKind;
    meaning.color = u"section"_s;
    meaning.kinds = sectionKinds();
    return meaning;
}

bool isBar(const ImportOptions &options)
{
    return options.engine == "bar"_L1;
}

WeightTree treeOf(const QList<SizedSection> &sections, bool areSeveral, bool isFlat)
{
    WeightTree tree;
    for (const SizedSection &row : sections) {
        const QByteArray path = readableOutput(row.file);
        const WeightTree::Item file = !areSeveral ? WeightTree::root
            : isFlat                              ? tree.child(WeightTree::root, path)
                                                  : tree.at(path);
        if (row.size == 0)
            continue;
        const bool isFile = isFlat && areSeveral;
        const WeightTree::Item item = isFile ? file : tree.child(file, row.section);
        tree.addWeight(item, row.size);
        if (!isFile)
            tree.setKind(item, sectionKind(row.section));
    }
    return tree;
}

ImportResult readTables(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    QList<SizedSection> sections;
    for (ImportSource &source : sources) {
        if (std::optional<ImportFault> fault = readSizeTable(&source, &sections))
            return {.fault = fault};
    }
    const bool areSeveral = std::ranges::any_of(
        sections, [&](const SizedSection &row) { return row.file != sections.constFirst().file; });
    TreeMeaning meaning = bytesByKind();
    if (!areSeveral && !sections.isEmpty())
        meaning.rootName = QString::fromUtf8(sections.constFirst().file);
    return treeResult(treeOf(sections, areSeveral, isBar(options)), meaning, sources,
                      u"nothing in it has a size"_s);
}

ImportResult readMaps(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    if (!options.by.empty() && options.by != "section" && options.by != "object") {
        return {.fault =
                    sources.front().faultHere(u"--by can be section or object for a map, not "_s
                                              + quotedText(QByteArrayView(options.by)))};
    }
    const auto order =
        options.by == "object" ? LinkerMap::Order::ObjectFirst : LinkerMap::Order::SectionFirst;
    LinkerMap map(order, isBar(options));
    for (ImportSource &source : sources) {
        if (std::optional<ImportFault> fault = map.read(&source))
            return {.fault = fault};
    }
    TreeMeaning meaning = bytesByKind();
    meaning.rootName = u"sections"_s;
    meaning.ownName = u"(the rest)"_s;
    return treeResult(map.tree(), meaning, sources, u"nothing in it has a size"_s);
}

ImportResult readBloaty(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    BloatyTable table(QByteArray::fromStdString(options.area), isBar(options));
    QList<ImportFault> notes;
    for (ImportSource &source : sources) {
        if (std::optional<ImportFault> fault = table.read(&source, &notes))
            return {.fault = fault};
    }
    TreeMeaning meaning = bytesByKind();
    if (!table.hasSections())
        meaning.coloring = TreeMeaning::Coloring::ByTop;
    ImportResult result = treeResult(table.tree(), meaning, sources, u"nothing in it has a size"_s);
    result.notes = notes;
    return result;
}

} // namespace

int likenessOfSize(QByteArrayView beginning)
{
    const bool isLike = isSizeTable(beginning) || BloatyTable::looksLike(beginning)
        || LinkerMap::looksLike(beginning);
    return isLike ? 100 : 0;
}

ImportResult readSize(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    const QByteArrayView beginning = sources.front().beginning();
    const bool isBloaty = BloatyTable::looksLike(beginning);
    const bool isTable = isBloaty || isSizeTable(beginning);
    if (isTable && !options.by.empty())
        return {.fault = sources.front().faultHere(u"--by is for maps, and this is a table"_s)};
    if (!isBloaty && !options.area.empty())
        return {.fault = sources.front().faultHere(u"--area is for tables of bloaty"_s)};
    if (isBloaty)
        return readBloaty(sources, options);
    return isTable ? readTables(sources, options) : readMaps(sources, options);
}

} // namespace ORR::Companion
