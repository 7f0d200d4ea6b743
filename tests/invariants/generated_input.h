#pragma once

#include "drawing/layout_table.h"

#include <QByteArray>

// An input in the vocabulary of an engine, of some ten to a hundred objects, that it draws: groups
// within groups, areas of very different size, labels of any length, edges of all kinds. The same
// seed gives the same text, with one compiler.
QByteArray generatedInput(ORR::Drawing::LayoutIndex layout, quint64 seed);
