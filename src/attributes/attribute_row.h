#pragma once

#include "graph/attribute_name.h"

#include <QFlags>
#include <QString>

#include <span>
#include <string_view>

// Tables of attributes: what an engine reads of its input, a row for each attribute. The rows are
// constants, so that a table is there before anything runs; whoever lists them (documents, checks,
// completions) and whoever reads an input by them (attribute_readers.h) have the same ones.
namespace ORR::Graph {

enum class AttributeElement : quint8 {
    Root = 1, // the graph itself
    Cluster = 2, // every other subgraph
    Node = 4,
    Edge = 8,
};
Q_DECLARE_FLAGS(AttributeElements, AttributeElement)
Q_DECLARE_OPERATORS_FOR_FLAGS(AttributeElements)

// How the text of an attribute is read. Nothing fails: what does not parse is 0, an empty list or
// the default.
enum class AttributeType : quint8 {
    Number, // a decimal number
    Integer, // a decimal integer; a text with a fraction is none and reads 0
    Inches, // a number, a size in inches, which is read in points
    NumberPair, // the first and the last number of a comma list
    InchPair, // the same for sizes in inches, read in points
    Color, // a colour, or several with ";" between for a gradient
    Choice, // one of its words exactly; any other text is the default
    Words, // holds any of its words
    Text, // taken as it stands
};

// Where a value is looked for.
enum class AttributeLookup : quint8 {
    Own, // at the object alone
    // At the object and, if it is not there, for a subgraph at those around it, from the inside
    // out; for a node or an edge at the defaults of its kind in the subgraphs around it.
    Inherited,
    // At a subgraph alone and, if it is not there, at the defaults of the nodes in it, which may
    // stand in the subgraphs around: so is looked up what draws a subgraph in the way of a node.
    OwnOrNodeDefault,
};

// One word of a choice.
struct AttributeWord
{
    std::string_view word;
    std::string_view meaning;
};

struct AttributeRow
{
    KnownAttribute name;
    AttributeElements elements; // those that are read; none other can be
    AttributeType type;
    AttributeLookup lookup;
    std::string_view unit; // of the text as the input has it; empty for none
    std::string_view byDefault; // what holds where the input says nothing; empty for nothing at all
    std::string_view meaning; // one sentence
    std::span<const AttributeWord> words; // of a choice, in the order that its reader counts
};

// An attribute that the passes of an engine write and read back, as text of six digits: their
// rounding is part of every drawing. What the input says under such a name is overwritten, or is
// read in its place where a pass does not write.
struct WorkingRow
{
    KnownAttribute name;
    AttributeElements elements;
    std::string_view unit;
    std::string_view meaning;
};

// The table of one reader.
struct AttributeTable
{
    std::string_view reader; // an engine by its name, or what several of them share
    std::span<const AttributeRow *const> rows; // in the order in which they are to be shown
    std::span<const WorkingRow *const> working;
};

// The number of the word that a text is, from 0; -1 for none of them.
int wordIn(std::span<const AttributeWord> words, const QString &text);

// A text of a table, all of which are ASCII.
inline QLatin1StringView latin1(std::string_view text)
{
    return {text.data(), qsizetype(text.size())};
}

// The words for a person.
QString elementName(AttributeElement element); // "root", "cluster", "node", "edge"
QString typeName(AttributeType type);
// "own", "inherited", "default of its kind", "own or node default"; for a root, which has nothing
// around it, "own" instead of "inherited".
QString lookupName(AttributeLookup lookup, AttributeElement element);

} // namespace ORR::Graph
