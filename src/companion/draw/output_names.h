#pragma once

#include <QByteArray>
#include <QHash>

#include <optional>

// Where drawings go.
namespace ORR::Companion {

// Whether a name is one of those that a system has for standard input and output, which are others
// in each process.
bool isStandardStream(const QByteArray &name);

// The name of an input with the suffix of a format in place of its own.
QByteArray outputBeside(const QByteArray &input, const QByteArray &suffix);

// The same below a folder, at the place that the input has below the root or the working folder.
// Nothing if it lies above that.
std::optional<QByteArray> outputBelow(const QByteArray &folder, const QByteArray &input,
                                      const QByteArray &suffix);

// Makes the folders on the way to an output that `outputBelow` gave. What can't be made is told by
// whoever writes there.
void makeFoldersOf(const QByteArray &output);

// Keeps two drawings from going to one file, and a drawing from going over an input. Symbolic links
// are followed, as they are when a file is written; each folder is looked at once.
class OutputClaims
{
public:
    OutputClaims();

    // A file that is read; "-" is standard input, if that is a file.
    void addInput(const QByteArray &input) { take(input, "an input"); }

    // The same of a file that no drawing may go over, with the words for it. Empty, or that it is
    // something else already. Devices and pipes may be everything at once.
    QByteArray take(const QByteArray &file, const QByteArray &use);

    // Takes the output for a drawing of that input. Empty, or why it can't be had: it is an input,
    // or another drawing has it. Once that is at its end, one of the same input may follow. `line`:
    // of the job, for the message; none for -1.
    QByteArray claim(const QByteArray &output, const QByteArray &input, qint64 line = -1);

    // The drawing is at its end.
    void release(const QByteArray &output);
    // There are no drawings any more; what was taken otherwise still is.
    void forgetOutputs() { claims.clear(); }

private:
    struct Claim
    {
        QByteArray input;
        qint64 line = -1;
        bool isHeld = true;
    };

    QByteArray placeOf(const QByteArray &name);
    QByteArray placeInFolder(const QByteArray &name);
    QByteArray folderAt(const QByteArray &name);

    QByteArray workingFolder;
    QHash<QByteArray, QByteArray> folders; // without links, by their names
    QHash<QByteArray, QByteArray> uses; // of files that are no outputs, by their places
    QHash<QByteArray, Claim> claims; // by their places
};

} // namespace ORR::Companion
