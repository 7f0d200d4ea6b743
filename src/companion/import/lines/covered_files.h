#pragma once

#include "companion/produce/weight_tree.h"

#include <QByteArray>
#include <QHash>
#include <QList>

namespace ORR::Companion {

// Which lines of which source files ran. What several tests or objects say of one file is joined: a
// line counts once, and is covered if any of them ran it.
class CoveredFiles
{
public:
    // Its number by its path as it was read, however often that goes up and down.
    qsizetype file(const QByteArray &written);

    void addLine(qsizetype file, quint64 line, bool isHit);
    // What is known of a file of which no line is: the greatest of several counts.
    void addSummary(qsizetype file, double hit, double lines);

    // A thing for each file, in the order of their first mention: its weight is its lines, its
    // share the covered ones of them.
    WeightTree tree() const;

private:
    struct File
    {
        QByteArray path;
        QHash<quint64, bool> lines = {};
        double summaryHit = 0;
        double summaryLines = 0;
    };

    QList<File> files;
    QHash<QByteArray, qsizetype> numbers;
};

} // namespace ORR::Companion
