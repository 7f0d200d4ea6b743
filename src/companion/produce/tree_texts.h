#pragma once

#include "companion/produce/graph_text.h"
#include "companion/produce/picture.h"
#include "companion/produce/shown_tree.h"
#include "companion/produce/tree_picture.h"

// A tree as the text of a graph for each of the engines that can draw one, and what these texts
// have in common.
namespace ORR::Companion {

// What is to be drawn, and how; none of it is owned.
struct TreeJob
{
    const WeightTree &tree;
    const TreeMeaning &meaning;
    const PictureRequest &request;
};

WrittenGraph treemapText(const TreeJob &job);
WrittenGraph sunburstText(const TreeJob &job);
WrittenGraph bubbleText(const TreeJob &job);
WrittenGraph barText(const TreeJob &job);
WrittenGraph callTreeText(const TreeJob &job);

// What the whole is: the title that was asked for, else the name of the root.
QString titleOf(const TreeJob &job, const ShownTree &tree);
// With the weight of the whole behind it.
QString titleWithWeight(const TreeJob &job, const ShownTree &tree);

// What sizes and colours are, a line each: "area: lines", "colour: coverage". `size` is what grows
// with the weight.
QString meaningWords(const TreeJob &job, const QString &size);

// The path, the weight and the share of a thing, for whoever asks the drawing for them.
void addFacts(Attributes *attributes, const TreeJob &job, const ShownTree &tree, int thing);

// A weight as an engine is to have it, which adds them up: the sum of a whole that is huge or tiny
// would not be what double or six digits can hold.
double areaOf(double weight, const ShownTree &tree);

// Why a drawing is larger than what was asked for.
QString tooSmallPage(const PictureRequest &request, const QString &why);

} // namespace ORR::Companion
