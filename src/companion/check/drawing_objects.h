#pragma once

#include "companion/check/checked_text.h"
#include "companion/check/watched_drawing.h"
#include "companion/findings/finding_list.h"
#include "drawing/layout_table.h"

#include <QByteArray>
#include <QString>

#include <optional>

// What is missing of the objects of a drawing that was watched.
namespace ORR::Companion {

// A drawing that an engine or the replay has made. Nothing of it is owned.
struct ForetoldDrawing
{
    const QByteArray &bytes; // of the text, with its line ends normalised
    const CheckedText &text;
    const Graph::DotGraph *graph; // with what the engine wrote
    std::optional<Drawing::LayoutIndex> engine; // nothing for the replay
    Graph::DotSubgraph *legend; // null for none
    const WatchedDrawing &drawing;
};

// Puts the finding where the node or the subgraph is mentioned first, or leaves it without a place
// for null.
void placeAt(const Graph::DotObject *object, const ForetoldDrawing &made, Finding *finding);

// The nodes of a chart that are left out of it, one number a reason.
struct LeftOutNodes
{
    enum Reason { WithoutArea, TooDeep, TooSmall, reasonCount };

    struct Nodes
    {
        qint64 count = 0; // without those that are told at the value that is to blame
        const Graph::DotNode *first = nullptr; // by its place in the text
    };
    Nodes nodes[reasonCount];
    qint64 toldAtValue = 0; // the others, without an area
    bool hasInfinite = false; // or not a number: such a size, told at its value, spoils all others
    // What is wrong with the first such size, or one that is not read as a number; empty for none.
    QString unusableSize;
    qint64 all = 0; // nodes of the chart, without those of its legend
};

// Only charts leave nodes out by their size; of every other drawing there is nothing.
std::optional<LeftOutNodes> leftOutNodes(const ForetoldDrawing &made);

// A finding for each reason.
void findLeftOutNodes(const LeftOutNodes &leftOut, const ForetoldDrawing &made,
                      FindingList *findings);

// Labels that their cells or groups can't hold, and those of slices, which have none.
void findUnseenLabels(const ForetoldDrawing &made, FindingList *findings);

// Rich texts and pictures in them that are not shown as they are meant.
void findUnshownTexts(const ForetoldDrawing &made, FindingList *findings);

// Fonts that are not there, of which others take the place.
void findReplacedFonts(const ForetoldDrawing &made, FindingList *findings);

} // namespace ORR::Companion
