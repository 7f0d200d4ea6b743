#pragma once

#include "output/files/descriptor.h"
#include "output/files/unfinished_file.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace ORR::Graph {

// A file that appears whole or not at all. Its bytes go to a temporary file in the same folder,
// which takes the name with `commit`; until then, and if it never comes to that, what stood there
// stays. The last of several writers holds.
//
// Kept as editors do it: a symbolic link stays and what it leads to is replaced; owner,
// permissions, access list and the user's own attributes are those of the file that stood there. Of
// a file with several names only the one that was given gets the new content.
//
// Where nothing can take the place of what is there, it is written over from the first byte on: a
// device, a pipe, a file that may be written in a folder that may not, one whose owner can't be
// kept, or one that a file system is mounted on.
class OutputFile
{
public:
    // fileName: as `fileNameText` gives it. Opens what is there for writing and leaves it as it is.
    explicit OutputFile(const QString &fileName);
    // Without a `commit` that succeeded nothing is left of a temporary file.
    ~OutputFile();
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    // Whether it can be written and has not been committed yet.
    bool isOpen() const { return static_cast<bool>(file); }

    // False if not every byte arrived, now or earlier.
    bool write(QByteArrayView bytes);

    // Lets the file appear and closes it. False if anything that was written has not arrived.
    bool commit();

private:
    int openBeside(const QByteArray &path);
    bool isReplaced(const QByteArray &path) const;
    int makeTemporary(const QByteArray &path);
    int adoptTarget();
    void removeTemporary();
    bool emptyInPlace();
    bool replaceTarget();
    bool writeOverTarget();

    Descriptor target; // what stands there, unless it is `file` itself
    Descriptor folder; // only with a temporary file
    QByteArray name; // in the folder
    QByteArray temporaryName;
    UnfinishedFile unfinished;
    Descriptor file; // what is written to
    bool hasOldBytes = false; // in `file`, to be cut off before the first write
    bool replacesBytes = false; // those of `target`
    bool failed = false;
};

} // namespace ORR::Graph
