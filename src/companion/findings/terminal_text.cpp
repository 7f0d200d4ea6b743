#include "companion/findings/terminal_text.h"

#include <QChar>

#include <algorithm>
#include <array>
#include <cstdio>

namespace ORR::Companion {

namespace {

struct Character
{
    char32_t code = 0; // of a byte that is no UTF-8 the byte
    qsizetype length = 1; // in bytes
    bool isUtf8 = false;
};

// The first character; there is one. What is well-formed is told by table 3-7 of the Unicode
// standard.
Character firstCharacter(QByteArrayView bytes)
{
    const auto at = [&](qsizetype i) {
        return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U;
    };
    const unsigned lead = at(0);
    if (lead < 0x80)
        return {lead, 1, true};
    const qsizetype length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    char32_t code = lead & (0xFFU >> (length + 1));
    for (qsizetype i = 1; i < length; ++i) {
        if ((at(i) & 0xC0) != 0x80)
            return {lead};
        code = code << 6 | (at(i) & 0x3F);
    }
    constexpr std::array<char32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = code >= 0xD800 && code < 0xE000;
    if (lead < 0xC0 || lead > 0xF4 || code < least.at(size_t(length)) || isSurrogate
        || code > 0x10FFFF)
        return {lead};
    return {code, length, true};
}

// Unicode's embeddings, overrides, isolates and marks of direction, and its separators of lines.
bool turnsLine(char32_t code)
{
    return (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069)
        || code == 0x200E || code == 0x200F || code == 0x061C || code == 0x2028 || code == 0x2029;
}

bool isControl(char32_t code)
{
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

// As it is written out; empty for a character that stays.
QByteArray written(const Character &character, bool keepsTabs)
{
    const char *form = nullptr;
    if (!character.isUtf8 || (isControl(character.code) && !(keepsTabs && character.code == '\t')))
        form = "\\x%02x";
    else if (turnsLine(character.code))
        form = "\\u%04x";
    if (!form)
        return {};
    std::array<char, 16> buffer{};
    std::snprintf(buffer.data(), buffer.size(), form, unsigned(character.code));
    return buffer.data();
}

QByteArray shown(QByteArrayView bytes, bool keepsTabs)
{
    QByteArray text;
    text.reserve(bytes.size());
    while (!bytes.isEmpty()) {
        const Character character = firstCharacter(bytes);
        const QByteArray instead = written(character, keepsTabs);
        if (instead.isEmpty())
            text.append(bytes.first(character.length));
        else
            text.append(instead);
        bytes = bytes.sliced(character.length);
    }
    return text;
}

struct CodeRange
{
    char32_t first;
    char32_t last;
};

// The blocks whose characters take two columns, after Unicode's EastAsianWidth.txt; single ones
// among the symbols are left out.
constexpr std::array<CodeRange, 18> wideRanges{{
    {0x1100, 0x115F}, // Hangul letters
    {0x231A, 0x231B},
    {0x23E9, 0x23EC},
    {0x2E80, 0x303E}, // radicals, punctuation
    {0x3041, 0x33FF}, // kana, squared words
    {0x3400, 0x4DBF},
    {0x4E00, 0xA4CF}, // Han, Yi
    {0xA960, 0xA97C},
    {0xAC00, 0xD7A3}, // Hangul syllables
    {0xF900, 0xFAFF},
    {0xFE10, 0xFE19},
    {0xFE30, 0xFE6B},
    {0xFF01, 0xFF60}, // full-width forms
    {0xFFE0, 0xFFE6},
    {0x16FE0, 0x1B2FF}, // Tangut, Khitan, Nushu
    {0x1F300, 0x1F64F}, // pictures
    {0x1F900, 0x1F9FF},
    {0x20000, 0x3FFFD},
}};

int columnsOf(char32_t code)
{
    switch (QChar::category(code)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
        return 0;
    default:
        break;
    }
    const auto after = std::upper_bound(
        wideRanges.begin(), wideRanges.end(), code,
        [](char32_t wanted, const CodeRange &range) { return wanted < range.first; });
    return after != wideRanges.begin() && code <= std::prev(after)->last ? 2 : 1;
}

} // namespace

QByteArray terminalText(QByteArrayView bytes)
{
    return shown(bytes, false);
}

QByteArray terminalLine(QByteArrayView bytes)
{
    return shown(bytes, true);
}

QByteArray blanksFor(QByteArrayView bytes)
{
    QByteArray blanks;
    while (!bytes.isEmpty()) {
        const Character character = firstCharacter(bytes);
        const QByteArray instead = written(character, true);
        if (!instead.isEmpty())
            blanks.append(instead.size(), ' ');
        else if (character.code == '\t')
            blanks.append('\t');
        else
            blanks.append(columnsOf(character.code), ' ');
        bytes = bytes.sliced(character.length);
    }
    return blanks;
}

} // namespace ORR::Companion
