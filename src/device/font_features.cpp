// After the common table formats of the OpenType specification and its registry of features.
#include "device/font_features.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace ORR::Graph {

namespace {

constexpr int tagSize = 4;
constexpr int recordSize = 6; // a tag and an offset
constexpr int noFeature = 0xFFFF;

// The features that are off unless a text asks for them. Those of fractions may come on beside a
// fraction slash, which is no ASCII. The registry has others; what is missing here counts as being
// on.
constexpr std::string_view optionalFeatures[] = {
    "aalt", "afrc", "c2pc", "c2sc", "case", "cpsp", "cswh", "dlig", "dnom", "frac", "hist",
    "hlig", "lnum", "mgrk", "nalt", "numr", "onum", "ordn", "ornm", "pcap", "pnum", "salt",
    "sinf", "size", "smcp", "subs", "sups", "swsh", "titl", "tnum", "unic", "zero",
};

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Stylistic sets and variants of single characters have numbers.
bool isOptional(std::string_view tag)
{
    const bool isNumbered = isDigit(tag[2]) && isDigit(tag[3]);
    if (isNumbered && (tag.starts_with("ss") || tag.starts_with("cv")))
        return true;
    return std::find(std::begin(optionalFeatures), std::end(optionalFeatures), tag)
        != std::end(optionalFeatures);
}

void addRequiredOf(FontTable &table, qint64 language, std::set<int> &features)
{
    const int feature = table.shortAt(language + 2);
    if (feature != noFeature)
        features.insert(feature);
}

// A script or a language may have one feature that is always on, whatever its name.
std::set<int> requiredFeatures(FontTable &table)
{
    std::set<int> features;
    const qint64 scripts = table.shortAt(4);
    const int scriptCount = table.shortAt(scripts);
    for (int i = 0; i < scriptCount && !table.isBroken(); ++i) {
        const qint64 record = scripts + 2 + qint64(recordSize) * i;
        const qint64 script = scripts + table.shortAt(record + tagSize);
        if (const int language = table.shortAt(script))
            addRequiredOf(table, script + language, features);
        const int languageCount = table.shortAt(script + 2);
        for (int k = 0; k < languageCount && !table.isBroken(); ++k) {
            const qint64 entry = script + 4 + qint64(recordSize) * k;
            addRequiredOf(table, script + table.shortAt(entry + tagSize), features);
        }
    }
    return features;
}

std::string tagAt(FontTable &table, qint64 position)
{
    std::string tag;
    for (int i = 0; i < tagSize; i += 2) {
        const int two = table.shortAt(position + i);
        tag += {char(two >> 8), char(two & 0xFF)};
    }
    return tag;
}

// Other features in place of some, for certain variations of a font.
bool hasVariations(FontTable &table)
{
    return table.shortAt(2) > 0 && table.longAt(10) != 0;
}

void markLookups(FontTable &table, qint64 feature, std::vector<bool> &used)
{
    const int count = table.shortAt(feature + 2);
    for (int i = 0; i < count && !table.isBroken(); ++i) {
        const size_t lookup = size_t(table.shortAt(feature + 4 + 2 * qint64(i)));
        if (lookup < used.size())
            used[lookup] = true;
    }
}

} // namespace

std::vector<bool> lookupsInUse(FontTable &table)
{
    const qint64 features = table.shortAt(6);
    const bool isAll = hasVariations(table);
    std::vector<bool> used(size_t(table.shortAt(table.shortAt(8))), isAll);
    if (isAll)
        return used;
    const std::set<int> required = requiredFeatures(table);
    const int count = table.shortAt(features);
    for (int i = 0; i < count && !table.isBroken(); ++i) {
        const qint64 record = features + 2 + qint64(recordSize) * i;
        if (required.contains(i) || !isOptional(tagAt(table, record)))
            markLookups(table, features + table.shortAt(record + tagSize), used);
    }
    return used;
}

} // namespace ORR::Graph
