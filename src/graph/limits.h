#pragma once

#include <QtGlobal>

// What one input may cost, in one place. Each limit is far above what a drawing needs that is meant
// well; what goes beyond one is drawn in a simpler way, and the drawing goes on, or ends the run in
// a message where the comment says so.
namespace ORR::Graph::Limits {

// Bytes of the input. The reader rejects what is longer, so there is no use in reading it to its
// end.
inline constexpr qsizetype longestInput = 0x7fffffff;

// Rows and columns of a sequence, of either; more is a message. Every one of them takes memory and
// at least 5 points of the page, whether something stands on it or not, so an input must not be
// believed any number: a million is far more than a drawing can show and costs some twenty
// megabytes.
inline constexpr int mostGridLines = 1'000'000;

// Steps of a compact tree; more are a message. They keep every run to seconds: a placement takes
// some 50 ns, a move in a tree 3 ns and in any other graph 10 ns. Every parent moves all nodes
// below it once at most: those are half of the square of the nodes, in a chain. So no tree of
// 100,000 edges comes to as many moves, and no tree of 50 million nodes to as many placements.
inline constexpr qint64 mostPlacements = 50'000'000;
inline constexpr qint64 mostMovesInTree = 6'000'000'000;
inline constexpr qint64 mostMovesInGraph = 1'000'000'000;

// An image: its bytes, and its longer side, which the toolkit's painter can't go beyond. A larger
// drawing is scaled down to both.
inline constexpr double mostImageBytes = 200'000'000;
inline constexpr double longestImageSide = 32767;

// Levels of Visio shapes within each other. Readers give up on documents of some 256 levels, and
// what ties a shape to its containers names each of them. A shape below the last level is one of
// the page again, and a cluster there a top-level container.
inline constexpr int deepestShapes = 32;

// Visits of rows that one Visio shape may spend on joining its subpaths, which is quadratic. What
// is not joined by then stays as it is.
inline constexpr qint64 mostRowVisits = 20'000'000;

// Stops of a gradient; those beyond it are left out. SVG defines a gradient anew for each shape
// that it fills, so that a few bytes of input may name thousands of stops a thousand times; a ramp
// of colours has a dozen, and at 64 an eye sees no steps.
inline constexpr qsizetype mostGradientStops = 64;

// Rich text. The price of a text is an estimate of the time to lay it out and paint it, in steps of
// about five microseconds: see `RichTextPrice`. The factors come from measurements of each thing by
// itself, many times over, and are rather too high than too low.

// Half a second, which takes a table of 300 rows and 4 columns or 1,500 styled words. A text that
// costs more is drawn as its plain text.
inline constexpr qint64 dearestRichText = 100'000;

// Elements within elements. The toolkit works its way up from each element to the root, and walks
// some of its structures recursively; nobody writes labels of more than a dozen levels.
inline constexpr int deepestRichText = 100;

// UTF-16 units. Texts that long are mostly pictures, whose characters cost little each.
inline constexpr qsizetype longestRichText = 4 << 20;

// What the rich texts of one drawing may cost together beyond four steps for each of their
// characters: three seconds. Many labels that are meant well stay within the four steps; only a
// short text that costs much and pictures draw on this, and when it is used up such a text is drawn
// as plain text.
inline constexpr qint64 dearestRichTexts = 600'000;
inline constexpr qint64 freeStepsPerCharacter = 4;

// A printable ASCII character is the unit: it is read, shaped, broken into lines and painted. Any
// other, and an entity, may have to be looked for in many fonts or be shaped by rules of its own.
inline constexpr qint64 stepsPerRareCharacter = 5;

// A tag, which becomes a format that is compared with all others and a fragment that is painted by
// itself.
inline constexpr qint64 stepsPerTag = 8;

// A cell, beyond its tag: it is a frame with a layout of its own.
inline constexpr qint64 stepsPerCell = 16;

// A tag with `style`, `face` or `size`: a style is parsed as a sheet of its own, and a font that
// was not seen before is searched for among those of the machine.
inline constexpr qint64 stepsPerFont = 60;

// A place in the grid of a table. The layout goes over the grid several times, whether a cell fills
// the place or not: a span of thousands of columns takes a few bytes.
inline constexpr qint64 stepsPerGridPlace = 8;

// What is laid out or found by counting all that came before it: so many list items before a list
// item, or pictures before a picture, make a step.
inline constexpr qint64 itemsPerStep = 100;

// A table or a picture that floats is laid out around all that floated before it, and those around
// each other: the time grows with their number cubed. So the square of that number, divided by
// this, is what the next of them costs.
inline constexpr qint64 squaredFloatsPerStep = 160;

// The address of a picture is carried along and decoded, and never shaped.
inline constexpr qint64 pictureCharactersPerStep = 100;

// Pixels are decoded, converted, painted and, in SVG, packed again.
inline constexpr qint64 pixelsPerStep = 50;

// Each tag behind a style sheet is matched with every rule of it, and that with its ancestors: so
// many levels make the sheet twice as dear.
inline constexpr qint64 sheetCharactersPerStep = 64;
inline constexpr qint64 levelsPerSheet = 16;

// A table is laid out twice within each table around it, which is a power of two. From these on a
// count only says that it is too large, far beyond what any price allows; the sums and products of
// two stay in range.
inline constexpr qsizetype mostDoublings = 20;
inline constexpr qint64 mostGridPlaces = qint64(1) << 40;
inline constexpr qint64 longestSpan = qint64(1) << 31;

// Places in the grids of tables that a text may have beyond those that it was priced for, which is
// some 4 milliseconds. Ordinary markup that is not quite right makes the toolkit add a few.
inline constexpr qint64 mostUnpricedPlaces = 100;

// Pictures within rich text. A picture beyond a limit is an empty box.

// Bytes of one picture as it is stored.
inline constexpr qsizetype largestPicture = 1 << 20;

// Pixels of one picture, which take 4 bytes each in memory: an icon has some thousands, and a
// drawing of this size fills a screen.
inline constexpr qint64 mostPicturePixels = qint64(1600) * 1200;

// Passes over a JPEG. A progressive one has about ten; each costs time for the whole picture,
// although an empty one takes a few bytes.
inline constexpr int mostPictureScans = 50;

} // namespace ORR::Graph::Limits
