#include "companion/import/lines/covered_files.h"

#include <QByteArrayList>

#include <algorithm>

namespace ORR::Companion {

namespace {

// Compilers that run in several folders name the same file in several ways.
QByteArray shortestPath(const QByteArray &path)
{
    QByteArrayList parts;
    for (const QByteArray &part : path.split('/')) {
        const bool goesUp = part == ".." && !parts.isEmpty() && parts.constLast() != "..";
        if (goesUp)
            parts.removeLast();
        else if (!part.isEmpty() && part != ".")
            parts.append(part);
    }
    return parts.join('/');
}

} // namespace

qsizetype CoveredFiles::file(const QByteArray &written)
{
    const QByteArray path = shortestPath(written);
    if (const auto known = numbers.constFind(path); known != numbers.cend())
        return *known;
    numbers.insert(path, files.size());
    files.append({.path = path});
    return files.size() - 1;
}

void CoveredFiles::addLine(qsizetype file, quint64 line, bool isHit)
{
    bool &isLineHit = files[file].lines[line];
    isLineHit = isLineHit || isHit;
}

void CoveredFiles::addSummary(qsizetype file, double hit, double lines)
{
    File &summed = files[file];
    summed.summaryLines = std::max(summed.summaryLines, lines);
    summed.summaryHit = std::min(std::max(summed.summaryHit, hit), summed.summaryLines);
}

WeightTree CoveredFiles::tree() const
{
    WeightTree tree;
    for (const File &file : files) {
        const auto hit = double(std::count(file.lines.cbegin(), file.lines.cend(), true));
        const bool isSummary = file.lines.isEmpty();
        const double lines = isSummary ? file.summaryLines : double(file.lines.size());
        const WeightTree::Item item = tree.at(file.path);
        tree.addWeight(item, lines);
        tree.addShare(item, isSummary ? file.summaryHit : hit, lines);
    }
    return tree;
}

} // namespace ORR::Companion
