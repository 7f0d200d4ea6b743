#include "layout/graflib/decl_lanes.h"

#include <QHash>

#include <cmath>

namespace ORR::Graph::Layout {

namespace {

// Each list of cells hands out its own offsets, in this order, to the cells that are in use.
constexpr CellAddress lanePrimary[] = {{0, 1}, {0, 0}, {1, 0}};
constexpr CellAddress laneSecondary[] = {{0, 2}, {1, 2}};

constexpr double laneStep = 6.0;
constexpr double alignedWithin = 4.0; // ends no further apart in x count as standing in line
constexpr double loopDepth = 15.0; // how far an edge between them goes out to the left

} // namespace

QList<double> laneOffsets(const QList<CellAddress> &cells)
{
    QHash<CellAddress, qsizetype> numbers;
    for (qsizetype i = 0; i < cells.size(); ++i)
        numbers.insert(cells.at(i), i);
    QList<double> offsets(cells.size(), 0.0);
    const auto handOut = [&](const auto &lanes) {
        double offset = 0.0;
        for (const CellAddress &lane : lanes) {
            const auto found = numbers.constFind(lane);
            if (found == numbers.cend())
                continue;
            offsets[*found] = offset;
            offset += laneStep;
        }
    };
    handOut(lanePrimary);
    handOut(laneSecondary);
    return offsets;
}

DeclEdge declEdge(const EdgeAnchor &tail, double tailOffset, const EdgeAnchor &head,
                  double headOffset)
{
    double startX = tail.x;
    double middleX = tail.x - loopDepth;
    double endX = head.x;
    if (!(std::abs(head.x - tail.x) <= alignedWithin)) {
        if (head.x <= tail.x) {
            endX = head.x + head.width;
            middleX = (head.x + head.width + tail.x) * 0.5;
        } else {
            startX = tail.x + tail.width;
            middleX = (head.x + tail.x + tail.width) * 0.5;
        }
    }
    // Each end takes the offset of the other end's cell, so that edges from one node to several
    // cells leave it on separate lanes. That is meant.
    const double startY = tail.y + headOffset;
    const double endY = head.y + tailOffset;
    return {{startX, middleX, middleX, endX}, {startY, startY, endY, endY}};
}

} // namespace ORR::Graph::Layout
