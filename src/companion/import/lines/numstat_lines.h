#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

// What stands in the lines of `git log --numstat`.
namespace ORR::Companion {

// "12<tab>3<tab>path"
struct NumstatChange
{
    double added = 0; // lines
    double deleted = 0;
    bool isBinary = false; // "-" for both: git counts no lines
    QByteArrayView path; // as it is written; empty if -z puts it into the records behind
};

// Whether a line begins as such a one does: digits or "-", and a tab.
bool isNumstatMeant(QByteArrayView line);
// What such a line says; nothing if it is broken, also by a tab in the path, which git puts into
// quotes.
std::optional<NumstatChange> numstatChange(QByteArrayView line);
// The same of a record of -z, where any path stands as it is.
std::optional<NumstatChange> numstatRecordChange(QByteArrayView record);

// A path as git writes it where no -z is given: in quotes if it holds unusual bytes, and of a
// renamed file both, what they share once: "src/{old => new}/file.c".
struct NumstatPath
{
    QByteArray path = {}; // the new one
    QByteArray former = {}; // empty if it has none
};
NumstatPath numstatPath(QByteArrayView written);

// The month of a date in one of git's forms, "2025-09", where the author was; of seconds without a
// zone (--date=unix) that of UTC. Empty if it tells none, as "3 weeks ago".
QByteArray monthOfDate(QByteArrayView date);

} // namespace ORR::Companion
