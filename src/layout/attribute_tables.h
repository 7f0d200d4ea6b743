#pragma once

#include "attributes/attribute_row.h"

#include <span>

// All tables of attributes, for whoever lists them: documents, checks, completions. An engine reads
// by its own.
namespace ORR::Graph::Layout {

// Those that several engines share come first. They live as long as the program.
std::span<const AttributeTable *const> attributeTables();

// What an engine asks of the rows of paint, which are the same for all engines: the elements that
// have labels, lines and fills there.
struct PaintedElements
{
    AttributeElements labels; // the text and its font
    AttributeElements lines;
    AttributeElements fills;
};

// The tables by which an engine reads, its own one last.
struct EngineTables
{
    std::string_view engine; // the name of -K
    std::span<const AttributeTable *const> tables;
    PaintedElements painted;
};

// Every engine, in the order in which they are listed for a user.
std::span<const EngineTables> engineTables();

// Whether there is an engine of the name, and it has legends: so the charts are told from all
// others.
bool hasLegends(const QString &engine);

// The elements of which the engine reads a row of one of its tables.
AttributeElements elementsRead(const EngineTables &engine, const AttributeRow &row);

} // namespace ORR::Graph::Layout
