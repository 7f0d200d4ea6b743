#include "companion/import/lines/change_log.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/lines/numstat_lines.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// False if the sum is beyond double.
bool addLines(ChangedLines *sum, const ChangedLines &lines)
{
    sum->added += lines.added;
    sum->deleted += lines.deleted;
    return std::isfinite(sum->all());
}

// What is behind a word of a head, "Author: "; nothing if the line has another one.
std::optional<QByteArrayView> behindWord(QByteArrayView line, QByteArrayView word)
{
    if (!line.startsWith(word))
        return std::nullopt;
    return line.sliced(word.size()).trimmed();
}

} // namespace

ChangeLog::Entry &ChangeLog::Entries::of(const QByteArray &name)
{
    const auto known = places.constFind(name);
    if (known != places.constEnd())
        return list[*known];
    places.insert(name, list.size());
    list.append({.name = name});
    return list.last();
}

void ChangeLog::readDate(const ImportSource &source, QByteArrayView date)
{
    month = monthOfDate(date);
    if (!month.isEmpty())
        return;
    if (undatedHeads.count == 0)
        firstUndated = date.toByteArray();
    undatedHeads.add(source.place());
}

void ChangeLog::readHead(const ImportSource &source, QByteArrayView line)
{
    if (line.startsWith("commit ")) {
        author.clear();
        month.clear();
    } else if (const auto who = behindWord(line, "Author:")) {
        const qsizetype mail = who->lastIndexOf(" <");
        author = (mail < 0 ? *who : who->first(mail)).toByteArray();
    } else if (const auto when = behindWord(line, "Date:")) {
        readDate(source, *when);
    } else if (const auto written = behindWord(line, "AuthorDate:")) {
        readDate(source, *written);
    }
}

// Newer commits come first: what a file was called before stands in older ones only.
void ChangeLog::add(const ChangedLines &lines, const QByteArray &path, const QByteArray &former)
{
    const QByteArray name = laterNames.value(path, path);
    if (!former.isEmpty() && former != path)
        laterNames[former] = name;
    const bool isNewest = !fileEntries.places.contains(name);
    Entry &file = fileEntries.of(name);
    areSumsFinite = addLines(&file.lines, lines) && areSumsFinite;
    if (isNewest)
        file.isGone = lines.added == 0 && lines.deleted > 0;
    if (!author.isEmpty())
        areSumsFinite = addLines(&authorEntries.of(author).lines, lines) && areSumsFinite;
    if (!month.isEmpty())
        areSumsFinite = addLines(&monthEntries.of(month).lines, lines) && areSumsFinite;
}

std::optional<ImportFault> ChangeLog::readChange(ImportSource &source, QByteArrayView line)
{
    const std::optional<NumstatChange> change = numstatChange(line);
    if (!change)
        return source.faultHere(quotedText(line)
                                + u" is no line of --numstat; added lines, deleted lines and the "
                                  "path are expected, with tabs between"_s);
    const ChangedLines lines = {.added = change->added, .deleted = change->deleted};
    if (change->path.isEmpty()) { // a renamed file of -z
        QByteArrayView record;
        QByteArray names[2];
        for (QByteArray &name : names) {
            if (!source.nextLine(&record) || record.isEmpty())
                return source.faultHere(u"the names of a renamed file are missing"_s);
            name = record.toByteArray();
        }
        add(lines, names[1], names[0]);
        return std::nullopt;
    }
    const NumstatPath named = numstatPath(change->path);
    add(lines, named.path, named.former);
    return std::nullopt;
}

// A record of -z: heads of a commit, whose lines end as everywhere, and one change.
std::optional<ImportFault> ChangeLog::readRecord(ImportSource &source, QByteArrayView record)
{
    while (!record.isEmpty() && !isNumstatMeant(record)) {
        const qsizetype end = record.indexOf('\n');
        readHead(source, end < 0 ? record : record.first(end));
        record = end < 0 ? QByteArrayView() : record.sliced(end + 1);
    }
    if (record.isEmpty())
        return std::nullopt;
    const std::optional<NumstatChange> change = numstatRecordChange(record);
    if (!change || change->path.isEmpty())
        return readChange(source, record);
    add({.added = change->added, .deleted = change->deleted}, change->path.toByteArray(), {});
    return std::nullopt;
}

std::optional<ImportFault> ChangeLog::read(ImportSource &source)
{
    author.clear();
    month.clear();
    const bool hasRecords = source.beginning().contains('\0');
    source.setSeparator(hasRecords ? '\0' : '\n');
    QByteArrayView line;
    while (source.nextLine(&line)) {
        std::optional<ImportFault> fault;
        if (hasRecords)
            fault = readRecord(source, line);
        else if (isNumstatMeant(line))
            fault = readChange(source, line);
        else
            readHead(source, line);
        if (fault)
            return fault;
        if (!areSumsFinite)
            return source.faultHere(u"with these the lines are more than a number can hold"_s);
    }
    // "Gone" is what no line is left of; of the beginning of a log more may have been there.
    for (Entry &file : fileEntries.list)
        file.isGone = file.isGone && file.lines.added <= file.lines.deleted;
    return std::nullopt;
}

} // namespace ORR::Companion
