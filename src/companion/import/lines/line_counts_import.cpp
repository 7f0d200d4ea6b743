#include "companion/import/lines/line_counts_import.h"

#include "companion/import/reading/json_kinds.h"
#include "companion/import/trees/tree_result.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

using CountsFault = std::optional<ImportFault>;

// The lines of files and languages, as they are read from one document after the other.
class LineCounts
{
public:
    explicit LineCounts(const JsonDocument *read, WeightTree *weights, KindNames *names)
        : document(read), kinds(read), tree(weights), languages(names)
    {
    }

    // `place` is the value that faults are told of.
    CountsFault addFile(const JsonValue &place, const QByteArray &path, const QByteArray &language,
                        const JsonValue &code)
    {
        if (path.isEmpty())
            return document->faultAt(place, u"the file has no name"_s);
        return add(tree->at(path), place, language, code);
    }
    CountsFault addLanguage(const JsonValue &place, const QByteArray &name, const JsonValue &code)
    {
        return add(tree->child(WeightTree::root, name), place, name, code);
    }
    // What is of another kind is missing, and a fault in the end.
    JsonKinds &expected() { return kinds; }
    CountsFault fault(const JsonValue &value, const QString &words) const
    {
        return document->faultAt(value, words);
    }

private:
    CountsFault add(WeightTree::Item item, const JsonValue &place, const QByteArray &language,
                    const JsonValue &code)
    {
        if (!code.isNumber())
            return document->faultAt(code.isMissing() ? place : code,
                                     u"lines of code are expected, as a number"_s);
        if (!std::isfinite(code.number()) || code.number() < 0)
            return document->faultAt(code, u"this can't be a number of lines"_s);
        tree->addWeight(item, code.number());
        if (tree->kind(item) < 0)
            tree->setKind(item, languages->of(language.isEmpty() ? "(unknown)" : language));
        return std::nullopt;
    }

    const JsonDocument *document;
    JsonKinds kinds;
    WeightTree *tree;
    KindNames *languages;
};

using CountsReader = CountsFault (*)(const JsonValue &root, LineCounts *counts);

ImportResult readCounts(std::vector<ImportSource> &sources, CountsReader reader)
{
    WeightTree tree;
    KindNames languages;
    for (ImportSource &source : sources) {
        const QByteArray text = source.rest();
        if (!source.fault().empty())
            break; // which is told with the result
        CountsFault fault;
        const std::optional<JsonDocument> document =
            JsonDocument::read(text, source.name(), &fault);
        if (!document)
            return {.fault = std::move(fault)};
        LineCounts counts(&*document, &tree, &languages);
        fault = reader(document->root(), &counts);
        if (counts.expected().fault())
            fault = counts.expected().fault(); // which may have led to the other
        if (fault)
            return {.fault = std::move(fault)};
    }
    const QStringList names = languages.rankIn(&tree);
    return treeResult(std::move(tree),
                      {.weight = u"lines of code"_s,
                       .unit = TreeMeaning::Unit::Count,
                       .coloring = TreeMeaning::Coloring::ByKind,
                       .color = u"language"_s,
                       .kinds = names},
                      sources, u"there are no lines of code"_s);
}

// Calls `each` with the values of an array or object, up to the first fault.
template <typename Each>
CountsFault eachCounted(const JsonValue &values, const Each &each)
{
    for (JsonValue value = values.first(); !value.isMissing(); value = value.next()) {
        if (CountsFault fault = each(value))
            return fault;
    }
    return std::nullopt;
}

CountsFault readClocMember(const JsonValue &member, LineCounts *counts)
{
    const QByteArray name = member.name();
    if (name == "header" || name == "SUM")
        return std::nullopt;
    const JsonValue code = member["code"];
    if (member["nFiles"].isNumber())
        return counts->addLanguage(member, name, code);
    const JsonValue language = member["language"];
    if (!language.isString())
        return counts->fault(member, u"this is neither a file nor a language of cloc"_s);
    return counts->addFile(member, name, language.bytes(), code);
}

CountsFault readClocRoot(const JsonValue &root, LineCounts *counts)
{
    if (!root.isObject())
        return counts->fault(root, u"the object that cloc writes is expected"_s);
    const JsonValue files = root["by_file"];
    return eachCounted(files.isObject() ? files : root, [counts](const JsonValue &member) {
        return readClocMember(member, counts);
    });
}

CountsFault readSccLanguage(const JsonValue &language, LineCounts *counts)
{
    JsonKinds &expected = counts->expected();
    const JsonValue files = expected.array(language["Files"]);
    const QByteArray name = expected.string(language["Name"]).bytes();
    if (files.count() == 0)
        return counts->addLanguage(language, name, language["Code"]);
    return eachCounted(files, [&](const JsonValue &file) {
        return counts->addFile(file, expected.string(file["Location"]).bytes(), name, file["Code"]);
    });
}

CountsFault readSccRoot(const JsonValue &root, LineCounts *counts)
{
    const JsonValue languages = root.isObject() ? root["languageSummary"] : root;
    if (!languages.isArray())
        return counts->fault(root, u"the array of languages that scc writes is expected"_s);
    return eachCounted(languages, [counts](const JsonValue &language) {
        return readSccLanguage(language, counts);
    });
}

CountsFault readTokeiReports(const JsonValue &reports, const QByteArray &language,
                             LineCounts *counts)
{
    JsonKinds &expected = counts->expected();
    return eachCounted(expected.array(reports), [&](const JsonValue &report) {
        return counts->addFile(report, expected.string(report["name"]).bytes(), language,
                               expected.object(report["stats"])["code"]);
    });
}

// The files of a language, and then what of other languages is within them.
CountsFault readTokeiLanguage(const JsonValue &language, LineCounts *counts)
{
    const QByteArray name = language.name();
    if (name == "Total")
        return std::nullopt;
    const JsonValue reports = counts->expected().array(language["reports"]);
    if (reports.count() == 0)
        return counts->addLanguage(language, name, language["code"]);
    if (CountsFault fault = readTokeiReports(reports, name, counts))
        return fault;
    return eachCounted(
        counts->expected().object(language["children"]),
        [&](const JsonValue &within) { return readTokeiReports(within, name, counts); });
}

CountsFault readTokeiRoot(const JsonValue &root, LineCounts *counts)
{
    if (!root.isObject())
        return counts->fault(root, u"the object of languages that tokei writes is expected"_s);
    return eachCounted(
        root, [counts](const JsonValue &language) { return readTokeiLanguage(language, counts); });
}

// Whether the beginning of a JSON text holds each of the words.
bool beginsWithAll(QByteArrayView beginning, std::initializer_list<QByteArrayView> words)
{
    const QByteArrayView text = beginning.trimmed();
    if (!text.startsWith('{') && !text.startsWith('['))
        return false;
    return std::all_of(words.begin(), words.end(),
                       [&](QByteArrayView word) { return text.contains(word); });
}

} // namespace

int likenessOfCloc(QByteArrayView beginning)
{
    return beginsWithAll(beginning, {"\"cloc_version\""}) ? 100 : 0;
}

int likenessOfScc(QByteArrayView beginning)
{
    return beginsWithAll(beginning, {"\"Name\"", "\"Code\"", "\"WeightedComplexity\""}) ? 95 : 0;
}

int likenessOfTokei(QByteArrayView beginning)
{
    // The keys of the first language may be far behind its files.
    if (beginsWithAll(beginning, {"\"reports\"", "\"stats\"", "\"blanks\""}))
        return 95;
    return beginsWithAll(beginning, {"\"blanks\"", "\"inaccurate\""}) ? 95 : 0;
}

ImportResult readCloc(std::vector<ImportSource> &sources, const ImportOptions & /*options*/)
{
    return readCounts(sources, readClocRoot);
}

ImportResult readScc(std::vector<ImportSource> &sources, const ImportOptions & /*options*/)
{
    return readCounts(sources, readSccRoot);
}

ImportResult readTokei(std::vector<ImportSource> &sources, const ImportOptions & /*options*/)
{
    return readCounts(sources, readTokeiRoot);
}

} // namespace ORR::Companion
