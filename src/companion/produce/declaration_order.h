#pragma once

#include "companion/produce/declarations.h"

#include <QList>

namespace ORR::Companion {

// Which declarations are drawn, by their numbers, in the order of their boxes: at most so many,
// those with the most members and heirs. What inherits stands behind what it inherits first, and
// families stand ahead of what is alone.
QList<int> chosenDeclarations(const QList<Declarations::Declaration> &all, int most);

} // namespace ORR::Companion
