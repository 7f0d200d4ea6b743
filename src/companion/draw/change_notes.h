#pragma once

#include "companion/jobs/drawing_task.h"

#include <QByteArray>
#include <QHash>

namespace ORR::Companion {

// What a drawing is made from, as a hash: the bytes of its input and its options.
QByteArray stampOf(const QByteArray &input, const DrawingOptions &options);

// The notes of earlier runs about what their drawings were made from, in one file. Its lines:
//
//   orr draw notes 1
//   SURROUNDINGS                       see `surroundingsStamp`
//   STAMP SIZE TIME OUTPUT             of each drawing, and how its file was left
//   end CHECKSUM                       of all bytes before this line
//
// A file that is anything else, or was noted in other surroundings, is as none.
class ChangeNotes
{
public:
    // Reads the file, if there is one. `surroundings`: a hash of what else makes a drawing.
    ChangeNotes(const QByteArray &file, const QByteArray &surroundings);

    // Whether the output is there as it was left, and made from the same.
    bool holds(const QByteArray &output, const QByteArray &stamp) const;
    // The output has just been made from that.
    void note(const QByteArray &output, const QByteArray &stamp);
    // Writes the file if anything was noted. False if that failed; the former one is there then.
    bool save() const;

private:
    struct Note
    {
        QByteArray stamp;
        QByteArray state; // of the file
    };

    void load(const QByteArray &text);

    QByteArray file;
    QByteArray surroundings;
    QHash<QByteArray, Note> notes; // by the names of the outputs as they were given
    bool isNew = false;
};

} // namespace ORR::Companion
