#pragma once

#include "companion/import/reading/import_source.h"

#include <QByteArray>
#include <QHash>
#include <QList>

#include <optional>

namespace ORR::Companion {

// The lines that changes added and deleted.
struct ChangedLines
{
    double added = 0;
    double deleted = 0;

    double all() const { return added + deleted; }
};

// What a log of changes tells of the files, their authors and the months, each in the order of
// their first line.
class ChangeLog
{
public:
    struct Entry
    {
        QByteArray name;
        ChangedLines lines = {};
        bool isGone = false; // of a file: the newest change only took lines away, and none is left
    };

    // Reads one log to its end: the line that is broken, if one is.
    std::optional<ImportFault> read(ImportSource &source);

    const QList<Entry> &files() const { return fileEntries.list; }
    // Empty if the heads of the commits do not tell them.
    const QList<Entry> &authors() const { return authorEntries.list; }
    const QList<Entry> &months() const { return monthEntries.list; }
    // The dates in heads that tell no month, and the first of them.
    const CountedNote &undated() const { return undatedHeads; }
    const QByteArray &undatedText() const { return firstUndated; }

private:
    struct Entries
    {
        QList<Entry> list;
        QHash<QByteArray, qsizetype> places;

        // The entry of a name, made if there is none.
        Entry &of(const QByteArray &name);
    };

    std::optional<ImportFault> readRecord(ImportSource &source, QByteArrayView record);
    std::optional<ImportFault> readChange(ImportSource &source, QByteArrayView line);
    void readHead(const ImportSource &source, QByteArrayView line);
    void readDate(const ImportSource &source, QByteArrayView date);
    void add(const ChangedLines &lines, const QByteArray &path, const QByteArray &former);

    Entries fileEntries;
    Entries authorEntries;
    Entries monthEntries;
    QHash<QByteArray, QByteArray> laterNames; // what a file is called at the end of the log
    CountedNote undatedHeads;
    QByteArray firstUndated;
    bool areSumsFinite = true;
    QByteArray author; // of the commit that is being read
    QByteArray month;
};

} // namespace ORR::Companion
