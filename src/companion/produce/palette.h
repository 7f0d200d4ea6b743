#pragma once

#include <QByteArray>
#include <QList>

// Colours for fills, "#RRGGBB" each, light enough for black letters upon them (contrast at least
// 4.5 to 1), and told apart by readers who do not see green: as a deuteranope sees them any two
// are at least 10 apart in CIEDE2000 (CIE 142-2001; Sharma, Wu and Dalal 2005), by the simulation
// of Viénot, Brettel and Mollon (1999).
namespace ORR::Companion {

// The fills of sorts of things, the first ones for the most frequent ones. More sorts than there
// are of them share the last one, which is grey.
const QList<QByteArray> &kindFills();

// The grey of what has no sort, or of many.
QByteArray neutralFill();

// The grey of what has no place on a scale.
QByteArray unscaledFill();

// A fill on a scale, place from 0 to 1 (beyond: its end; not a number: `unscaledFill`). `Rising`
// goes from pale to dark blue, `Diverging` from orange over a pale grey to blue. A scale has room
// for `scaleSteps` steps, evenly spread, that are told apart as other fills are.
constexpr int scaleSteps = 5;
enum class ColorScale { Rising, Diverging };
QByteArray scaleFill(ColorScale scale, double place);

// Black or white, whichever is easier to read upon a fill.
QByteArray letterColor(QByteArrayView fill);

// How far two colours are apart for a deuteranope, and the contrast of two (WCAG 2.2), 1 to 21.
double deuteranopeDistance(QByteArrayView a, QByteArrayView b);
double contrast(QByteArrayView a, QByteArrayView b);

} // namespace ORR::Companion
