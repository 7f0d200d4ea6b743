#pragma once

#include "companion/import/reading/import_source.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <optional>

namespace ORR::Companion {

// What ninja wrote of its builds: of each output the newest entry.
class BuildLog
{
public:
    static bool looksLike(QByteArrayView beginning);

    // Adds a whole log. Its entries are newer than those before. Steps that end before they begin
    // take no time and are told.
    std::optional<ImportFault> read(ImportSource *source, QList<ImportFault> *notes);

    // Calls with the output and the milliseconds of each step, in the order of the outputs' first
    // mention; with the first output of several.
    template <typename Visitor>
    void visitSteps(const Visitor &visit) const;

private:
    struct Entry
    {
        QByteArray output;
        QByteArray step; // start, end and command, which outputs of one step share
        double milliseconds;
    };

    bool readEntry(QByteArrayView line, bool *isBackward);

    QList<Entry> entries;
    QHash<QByteArray, qsizetype> places; // of outputs among the entries
};

template <typename Visitor>
void BuildLog::visitSteps(const Visitor &visit) const
{
    QSet<QByteArray> visited;
    for (const Entry &entry : entries) {
        if (visited.contains(entry.step))
            continue;
        visited.insert(entry.step);
        visit(entry.output, entry.milliseconds);
    }
}

} // namespace ORR::Companion
