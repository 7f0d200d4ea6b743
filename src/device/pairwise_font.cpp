// After the tables GSUB, GPOS, GDEF and kern of the OpenType specification.
#include "device/pairwise_font.h"

#include "device/font_features.h"
#include "device/font_table.h"

#include <algorithm>
#include <array>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

constexpr int firstCharacter = ' ';
constexpr int lastCharacter = '~';

// The glyphs of the characters that are still thought to depend on their neighbours only.
class AsciiGlyphs
{
public:
    explicit AsciiGlyphs(const QRawFont &font)
    {
        QString text;
        for (int c = firstCharacter; c <= lastCharacter; ++c)
            text.append(QChar(c));
        const QList<quint32> indexes = font.glyphIndexesForString(text);
        for (int i = 0; i < indexes.size() && i < text.size(); ++i) {
            const qint64 glyph = indexes.at(i);
            glyphs.at(firstCharacter + i) = glyph;
            kept.set(firstCharacter + i, glyph != 0); // another font stands in for a missing one
            lowest = std::min(lowest, glyph);
            highest = std::max(highest, glyph);
        }
    }

    // Takes out the characters with the glyphs from `first` to `last`.
    void remove(int first, int last)
    {
        if (last < lowest || first > highest)
            return;
        for (int c = firstCharacter; c <= lastCharacter; ++c) {
            if (glyphs.at(c) >= first && glyphs.at(c) <= last)
                kept.reset(c);
        }
    }

    const AsciiSet &characters() const { return kept; }

private:
    std::array<qint64, 128> glyphs{};
    qint64 lowest = 0xFFFF;
    qint64 highest = 0;
    AsciiSet kept;
};

void removeCovered(AsciiGlyphs &glyphs, FontTable &table, qint64 coverage)
{
    const int format = table.shortAt(coverage);
    const int count = table.shortAt(coverage + 2);
    qint64 at = coverage + 4;
    for (int i = 0; i < count && !table.isBroken(); ++i) {
        const int first = table.shortAt(at);
        const int last = format == 1 ? first : table.shortAt(at + 2);
        glyphs.remove(first, last);
        at += format == 1 ? 2 : 6;
    }
    if (format != 1 && format != 2)
        table.setBroken();
}

// Lookups may pass over marks.
void removeMarks(AsciiGlyphs &glyphs, FontTable &gdef)
{
    constexpr int mark = 3;
    if (gdef.isMissing())
        return;
    const qint64 classes = gdef.shortAt(4);
    if (classes == 0)
        return;
    const int format = gdef.shortAt(classes);
    if (format == 1) {
        const int first = gdef.shortAt(classes + 2);
        const int count = gdef.shortAt(classes + 4);
        for (int i = 0; i < count && !gdef.isBroken(); ++i) {
            if (gdef.shortAt(classes + 6 + 2 * qint64(i)) == mark)
                glyphs.remove(first + i, first + i);
        }
    } else if (format == 2) {
        const int count = gdef.shortAt(classes + 2);
        for (qint64 at = classes + 4; at < classes + 4 + 6 * qint64(count) && !gdef.isBroken();
             at += 6) {
            if (gdef.shortAt(at + 4) == mark)
                glyphs.remove(gdef.shortAt(at), gdef.shortAt(at + 2));
        }
    } else {
        gdef.setBroken();
    }
}

// How the kinds of lookups are numbered in a table.
struct LookupKinds
{
    int context;
    int chainedContext;
    int extension;
    int last;
    // Those that only ever change the advance of a glyph, by itself or by the one behind it.
    int single = 0;
    int pair = 0;
};
constexpr LookupKinds substitutions{5, 6, 7, 8};
constexpr LookupKinds positionings{7, 8, 9, 9, 1, 2};

// Where the glyphs are covered at which the subtable can begin to do anything.
qint64 firstCoverage(FontTable &table, qint64 subtable, int kind, const LookupKinds &kinds)
{
    const int format = table.shortAt(subtable);
    if (format == 1 || format == 2)
        return subtable + table.shortAt(subtable + 2);
    if (format == 3 && kind == kinds.context)
        return subtable + table.shortAt(subtable + 6);
    if (format == 3 && kind == kinds.chainedContext) {
        const qint64 input = subtable + 4 + 2 * qint64(table.shortAt(subtable + 2));
        return subtable + table.shortAt(input + 2);
    }
    table.setBroken();
    return 0;
}

// A pair whose second glyph changes nothing there, with no glyph passed over but marks.
bool isPlainPair(FontTable &table, qint64 subtable, int flags)
{
    constexpr int ignoreBasesOrLigatures = 0x6;
    return table.shortAt(subtable + 6) == 0 && !(flags & ignoreBasesOrLigatures);
}

void removeStarts(AsciiGlyphs &glyphs, FontTable &table, qint64 subtable, int kind, int flags,
                  const LookupKinds &kinds)
{
    if (kind == kinds.extension) {
        kind = table.shortAt(subtable + 2);
        subtable += table.longAt(subtable + 4);
    }
    if (kind < 1 || kind > kinds.last || kind == kinds.extension)
        table.setBroken();
    if (kind == kinds.single || (kind == kinds.pair && isPlainPair(table, subtable, flags)))
        return;
    const qint64 coverage = firstCoverage(table, subtable, kind, kinds);
    if (!table.isBroken())
        removeCovered(glyphs, table, coverage);
}

void removeStartsOfLookups(AsciiGlyphs &glyphs, FontTable &table, const LookupKinds &kinds)
{
    if (table.isMissing())
        return;
    if (table.shortAt(0) != 1)
        table.setBroken(); // a version of large fonts, whose offsets are longer
    const qint64 list = table.shortAt(8);
    const std::vector<bool> used = lookupsInUse(table);
    for (size_t i = 0; i < used.size() && !table.isBroken(); ++i) {
        if (!used[i])
            continue;
        const qint64 lookup = list + table.shortAt(list + 2 + 2 * qint64(i));
        const int kind = table.shortAt(lookup);
        const int flags = table.shortAt(lookup + 2);
        const int count = table.shortAt(lookup + 4);
        for (int k = 0; k < count && !table.isBroken(); ++k)
            removeStarts(glyphs, table, lookup + table.shortAt(lookup + 6 + 2 * qint64(k)), kind,
                         flags, kinds);
    }
}

// One horizontal list of pairs.
bool isPlainKerning(FontTable &kern)
{
    return kern.shortAt(0) == 0 && kern.shortAt(2) == 1 && kern.shortAt(8) == 1;
}

bool hasAny(const QRawFont &font, std::initializer_list<const char *> names)
{
    return std::any_of(names.begin(), names.end(),
                       [&](const char *name) { return !font.fontTable(name).isEmpty(); });
}

} // namespace

PairwiseFont pairwiseFont(const QRawFont &font)
{
    // Other ways to shape, with rules that aren't looked at here.
    if (!font.isValid() || !hasAny(font, {"head"}) || !hasAny(font, {"cmap"})
        || hasAny(font, {"Silf", "morx", "mort", "kerx", "trak"}))
        return {};
    FontTable kern(font.fontTable("kern"));
    if (!kern.isMissing() && !isPlainKerning(kern))
        return {};
    AsciiGlyphs glyphs(font);
    FontTable gdef(font.fontTable("GDEF"));
    FontTable gsub(font.fontTable("GSUB"));
    FontTable gpos(font.fontTable("GPOS"));
    removeMarks(glyphs, gdef);
    removeStartsOfLookups(glyphs, gsub, substitutions);
    removeStartsOfLookups(glyphs, gpos, positionings);
    if (gdef.isBroken() || gsub.isBroken() || gpos.isBroken() || kern.isBroken())
        return {};
    return {glyphs.characters(), !kern.isMissing()};
}

} // namespace ORR::Graph
