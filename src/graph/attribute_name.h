#pragma once

#include <QAtomicInt>
#include <QHashFunctions>
#include <QString>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

namespace ORR::Graph {

// The attribute names that the program itself reads or writes, in the order of their bytes. What
// they mean is told by the tables of whoever reads them.
inline constexpr std::string_view attributeVocabulary[] = {
    "_draw_",      "_ldraw_",     "a0",
    "area",        "arrowhead",   "axis",
    "bb",          "bgcolor",     "col",
    "color",       "contentpos",  "crossing",
    "d1",          "d2",          "expandcolor",
    "expander",    "fillcolor",   "fontcolor",
    "fontname",    "fontsize",    "gradientAngle",
    "grid",        "headsegment", "height",
    "htmllabels",  "label",       "legend",
    "level",       "lhead",       "ltail",
    "margin",      "nesting",     "nodesep",
    "pad",         "penwidth",    "peripheries",
    "pos",         "r",           "r0",
    "r1",          "radius",      "rankdir",
    "ranksep",     "rounded",     "row",
    "rstep",       "shape",       "slash",
    "sort",        "style",       "sweep",
    "tailsegment", "uml",         "visible",
    "width",       "x",           "x0",
    "x1",          "xdotversion", "xoffset",
    "xshift",      "y",           "y0",
    "y1",          "yshift",
};
static_assert(std::is_sorted(std::begin(attributeVocabulary), std::end(attributeVocabulary)));

// How a name is spelled, once for all who use it.
struct AttributeSpelling
{
    QString text;
    mutable QAtomicInt users = 0; // the names that hold it; those of the vocabulary do not count
};

// The spellings of the vocabulary, in its order, made before `main`.
extern const AttributeSpelling *const knownSpellings;

// A name of the vocabulary as a number, which a program that spells it wrong does not compile with:
// `"area"_attribute`.
class KnownAttribute
{
public:
    consteval explicit KnownAttribute(std::string_view spelled) : number(numberOf(spelled)) { }

    const AttributeSpelling *spelling() const { return knownSpellings + number; }
    const QString &text() const { return spelling()->text; }

private:
    static consteval std::ptrdiff_t numberOf(std::string_view spelled)
    {
        const auto found =
            std::find(std::begin(attributeVocabulary), std::end(attributeVocabulary), spelled);
        return found != std::end(attributeVocabulary)
            ? found - std::begin(attributeVocabulary)
            : throw "the name is missing in the vocabulary";
    }

    std::ptrdiff_t number;
};

consteval KnownAttribute operator""_attribute(const char *spelled, std::size_t length)
{
    return KnownAttribute(std::string_view(spelled, length));
}

// The name of an attribute. Those of the vocabulary are told from each other, and from all others,
// by where their spelling stands, so that finding one in a map compares no texts. Any other name
// has a spelling of its own, which its copies share.
class AttributeName
{
public:
    AttributeName()
        : spelling(knownSpellings) { } // some name or other, for lists to make room with
    AttributeName(const QString &text); // NOLINT(google-explicit-constructor)
    AttributeName(KnownAttribute known) : spelling(known.spelling()) { } // NOLINT(*-explicit-*)
    AttributeName(const AttributeName &other) : spelling(other.spelling) { hold(); }
    AttributeName(AttributeName &&other) noexcept
        : spelling(std::exchange(other.spelling, knownSpellings))
    {
    }
    AttributeName &operator=(AttributeName other) noexcept
    {
        std::swap(spelling, other.spelling);
        return *this;
    }
    ~AttributeName() { release(); }

    const QString &text() const { return spelling->text; }

    bool isKnown() const
    {
        return spelling >= knownSpellings && spelling < knownSpellings + knownCount;
    }

    // Where a known name stands in the vocabulary.
    std::ptrdiff_t number() const { return spelling - knownSpellings; }

    friend bool operator==(const AttributeName &a, const AttributeName &b)
    {
        return a.spelling == b.spelling
            || (!b.isKnown() && !a.isKnown() && a.spelling->text == b.spelling->text);
    }
    friend size_t qHash(const AttributeName &name, size_t seed)
    {
        return qHash(name.spelling->text, seed);
    }

private:
    static constexpr std::ptrdiff_t knownCount = std::ssize(attributeVocabulary);

    void hold() const
    {
        if (!isKnown())
            spelling->users.ref();
    }
    void release() const
    {
        if (!isKnown() && !spelling->users.deref())
            delete spelling;
    }

    const AttributeSpelling *spelling;
};

} // namespace ORR::Graph

Q_DECLARE_TYPEINFO(ORR::Graph::AttributeName, Q_RELOCATABLE_TYPE);
