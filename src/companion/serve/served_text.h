#pragma once

#include "companion/serve/served_file.h"

namespace ORR::Companion {

// The text that is edited and drawn, and how it stands to its file: whether the two are equal, or
// both have changed, which is a conflict that the user has to decide.
class ServedText
{
public:
    // Of a file, which is read, or of none.
    explicit ServedText(ServedFile *file);

    const QByteArray &bytes() const { return text; }
    // Grows with each change of the bytes.
    qint64 version() const { return textVersion; }
    // Only UTF-8 can be shown in an editor and come back as it was.
    bool isEditable() const { return text.isValidUtf8(); }
    bool isSaved() const { return file && file->content() == text; }
    bool isConflict() const { return conflict; }

    // What an editor made of the version `base`; -1 if it does not say of which. If that was before
    // the file's text was taken, which the editor has not seen, the two are in conflict.
    void edit(const QByteArray &bytes, qint64 base);
    // Takes the text of the file for its own. False if there is none.
    bool take();
    // The file may have changed. One whose text was not edited meanwhile is followed.
    void follow();

    // Why the text can't be saved, empty if it was. In a conflict it is only if `isForced`.
    QByteArray save(bool isForced);

private:
    bool isEdited() const;
    void set(const QByteArray &bytes);

    ServedFile *file; // may be null; not owned
    QByteArray text;
    qint64 textVersion = 0;
    std::optional<QByteArray> basis; // the file's text as it was last, while it was there
    qint64 takenVersion = 0; // the last one that is the file's
    bool conflict = false;
};

} // namespace ORR::Companion
