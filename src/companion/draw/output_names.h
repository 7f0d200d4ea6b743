#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>

#include <optional>
#include <string>

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

// Keeps two drawings from going to one file, and a drawing from going over an input. Names are
// compared without looking at the disk: links are not followed.
class OutputClaims
{
public:
    OutputClaims();

    // A file that is read.
    void addInput(const QByteArray &input);

    // Takes the output for a drawing of that input. Empty, or why it can't be had: it is an input,
    // or another drawing has it. Once that is at its end, one of the same input may follow.
    QByteArray claim(const QByteArray &output, const QByteArray &input);

    // The drawing is at its end.
    void release(const QByteArray &output);

private:
    struct Claim
    {
        QByteArray input;
        bool isHeld = true;
    };

    QByteArray placeOf(const QByteArray &name) const;

    std::string workingFolder;
    QSet<QByteArray> inputs;
    QHash<QByteArray, Claim> claims;
};

} // namespace ORR::Companion
