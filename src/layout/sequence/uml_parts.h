#pragma once

#include "graph/dot_graph.h"
#include "layout/sequence/fragment_frame.h"
#include "layout/sequence/object_extents.h"

#include <QList>
#include <QSize>

#include <memory>
#include <vector>

// What a sequence diagram consists of, as the graph says it. Every part stands on a cell of an
// integer grid and knows others by their index. No element of the graph is owned, and sizes of
// labels are those with their padding: 0 without a label, and until the labels are measured.
namespace ORR::Graph::Layout {

struct UmlCell
{
    int row = 0;
    int col = 0;
};

// As a width or height of a spacer: that of its label.
inline constexpr int sizeOfLabel = -1;

struct UmlNode
{
    // A box with a label, the bar on a lifeline that lasts as long as a call, the dot where a
    // message comes from whose sender is not on the diagram, and room where nothing is drawn: the
    // spacers of the graph, the markers of sections and the spacers that close fragments.
    enum Kind { Object, Activation, FoundMessage, Spacer };

    Kind kind = Object;
    UmlCell cell;
    DotNode *node = nullptr; // null only for the spacer that closes a fragment
    int endRow = 0; // where an activation ends; its own row until a return comes from it
    int nesting = 0; // of an activation
    QSize room{0, 0}; // of a spacer
    CellAlign xAlign = CellAlign::Centre; // of a spacer
    CellAlign yAlign = CellAlign::Centre;
    QSize label{0, 0}; // of an object and a spacer that needs it
};

struct UmlEdge
{
    // The line that hangs from a node, a call, and the way back from one.
    enum Kind { LifeLine, Message, Return };

    Kind kind = LifeLine;
    UmlCell cell; // always on the column of its tail
    DotEdge *edge = nullptr;
    qsizetype tail = 0; // indices of nodes
    qsizetype head = 0;
    bool visible = true; // of a return
    QSize label{0, 0};
};

// A section of a fragment.
struct UmlSection
{
    int row = 0;
    DotSubgraph *subgraph = nullptr;
    QSize label{0, 0};
};

// One of the parts.
struct UmlPart
{
    enum List { Fragment, Node, Edge };

    List list = Fragment;
    qsizetype index = 0;
};

// A combined fragment. The column of its cell is that of its cells, which follow what is put into
// it while a diagram is read.
struct UmlFragment
{
    int row = 0;
    FragmentCells cells{0, 0, 0};
    DotSubgraph *subgraph = nullptr;
    QSize label{0, 0};
    QList<UmlSection> sections = {};
    QList<UmlPart> contents = {}; // in the order in which they were made

    UmlCell cell() const { return {row, cells.col}; }
};

// All of a diagram, each list in the order in which its parts were made. Fragments come before
// those within them.
struct UmlParts
{
    QList<UmlFragment> fragments;
    QList<UmlNode> nodes;
    QList<UmlEdge> edges;
    int rows = 0; // of the grid: as many as hold all parts
    int cols = 0;
    std::vector<std::unique_ptr<DotNode>> markers; // the nodes that stand for sections
};

// The marker of a section that starts on that row: room for its label below the row, on the column
// that the fragment has by now.
UmlNode sectionMarker(int row, const UmlFragment &fragment, DotNode *node);

// Keeps room for the frame of a fragment on its last cell, once its contents are complete.
UmlNode closingSpacer(const UmlFragment &fragment);

// Whether an edge runs to the right, by the columns of its ends.
bool runsRight(const UmlParts &parts, const UmlEdge &edge);

// Whether both ends of an edge stand on one column.
bool isWithinColumn(const UmlParts &parts, const UmlEdge &edge);

} // namespace ORR::Graph::Layout
