#pragma once

#include <QString>

#include <array>
#include <optional>

namespace ORR::Graph::Layout {

// How an edge's polyline is kept in the edge's attributes: the four numbers along one axis as a
// text with single blanks between.

using FourNumbers = std::array<double, 4>;

QString polylineText(const FourNumbers &numbers);

// None for a text with more or fewer than three blanks; a part that is no number is 0.
std::optional<FourNumbers> polylineNumbers(const QString &text);

} // namespace ORR::Graph::Layout
