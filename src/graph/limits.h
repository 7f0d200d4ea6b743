#pragma once

#include <QtGlobal>

// What one input may cost, in one place. Each limit is far above what a drawing needs that is meant
// well; what goes beyond one is drawn in a simpler way, and the drawing goes on.
namespace ORR::Graph::Limits {

// Stops of a gradient; those beyond it are left out. SVG defines a gradient anew for each shape
// that it fills, so that a few bytes of input may name thousands of stops a thousand times; at 256
// stops an eye sees one even ramp.
inline constexpr qsizetype mostGradientStops = 256;

// Rich text. The price of a text is an estimate of the time to lay it out and paint it, in steps of
// about five microseconds: see `RichTextPrice`.

// Half a second, which takes a table of 300 rows and 4 columns or 1,500 styled words. A text that
// costs more is drawn as its plain text.
inline constexpr qint64 dearestRichText = 100'000;

// Elements within elements. The toolkit works its way up from each element to the root, and walks
// some of its structures recursively; nobody writes labels of more than a dozen levels.
inline constexpr int deepestRichText = 100;

// UTF-16 units. Texts that long are mostly pictures, whose characters cost little each.
inline constexpr qsizetype longestRichText = 4 << 20;

// What the rich texts of one drawing may cost together beyond four steps for each of their
// characters: ten seconds. Many labels that are meant well stay within the four steps; only a short
// text that costs much draws on this, and when it is used up such a text is drawn as plain text.
inline constexpr qint64 dearestRichTexts = 2'000'000;
inline constexpr qint64 freeStepsPerCharacter = 4;

// Pictures within rich text. A picture beyond a limit is an empty box.

// Bytes of one picture as it is stored.
inline constexpr qsizetype largestPicture = 1 << 20;

// Pixels of one picture, which take 4 bytes each in memory: an icon has some thousands, and a
// drawing of this size fills a screen.
inline constexpr qint64 mostPicturePixels = 1600 * 1200;

// Passes over a JPEG. A progressive one has about ten; each costs time for the whole picture,
// although an empty one takes a few bytes.
inline constexpr int mostPictureScans = 50;

} // namespace ORR::Graph::Limits
