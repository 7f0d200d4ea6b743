#pragma once

#include "companion/import/reading/import_fault.h"
#include "output/files/descriptor.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>
#include <string>

namespace ORR::Companion {

// One input, read once from its beginning to its end in pieces: it may be longer than memory. The
// mark of UTF-8 that some systems put in front is no part of it.
class ImportSource
{
public:
    // Opens a file, "-" is standard input. `fault` is the system's word if it can't be read.
    explicit ImportSource(const std::string &name);
    // Bytes in memory under a name.
    ImportSource(const std::string &name, const QByteArray &bytes);
    ImportSource(ImportSource &&) = default;

    const std::string &name() const { return sourceName; }
    // Whether it is a folder, which has no bytes: reading it is a fault.
    bool isFolder() const { return isDirectory; }
    // Why nothing could be read, or not all of it; empty if all is well. To be asked at the end.
    const std::string &fault() const { return readFault; }

    // The beginning, of at most 64 KB, for whoever asks what the input looks like. Nothing is
    // taken.
    QByteArrayView beginning();

    // The next line without its end (line feed, also behind a carriage return; or the separator
    // that was set), valid until the next call. False at the end.
    bool nextLine(QByteArrayView *line);
    // That of the line given last, from 1.
    qint64 lineNumber() const { return linesGiven; }
    // '\n' at first.
    void setSeparator(char end) { separator = end; }

    // All that is left.
    QByteArray rest();

    ImportPlace place() const { return {.source = sourceName, .line = linesGiven}; }
    ImportFault faultHere(const QString &sentence) const { return {place(), sentence}; }

private:
    QByteArrayView unread() const { return {buffer.constData() + start, filled - start}; }
    void makeRoom();
    bool readMore();
    void skipMark();

    std::string sourceName;
    std::string readFault;
    Graph::Descriptor file;
    int descriptor = -1; // where more comes from
    QByteArray buffer; // with room for more behind what was read
    qsizetype start = 0; // of what was not given yet
    qsizetype filled = 0; // end of what was read
    qint64 linesGiven = 0;
    char separator = '\n';
    bool isDirectory = false;
    bool hasBegun = false;
};

} // namespace ORR::Companion
