#pragma once

#include "layout/charts/circle_packing.h"

#include <QList>

#include <optional>

// The packing and its enclosing circle as they are defined, a step at a time and without any care:
// what the real ones are held against. Null if it took more rounds than any input that ends does.
std::optional<double> packAsDefined(QList<ORR::Graph::Layout::PackCircle> &circles);
std::optional<ORR::Graph::Layout::Circle>
encloseAsDefined(const QList<ORR::Graph::Layout::Circle> &circles);
