#include "companion/serve/served_text.h"

namespace ORR::Companion {

ServedText::ServedText(ServedFile *file_) : file(file_)
{
    if (!file)
        return;
    file->read();
    basis = file->content();
    text = basis.value_or(QByteArray());
}

void ServedText::edit(const QByteArray &bytes, qint64 base)
{
    set(bytes);
    if (!isEdited())
        conflict = false;
    else if (base >= 0 && base < takenVersion)
        conflict = true;
}

bool ServedText::take()
{
    if (!file)
        return false;
    file->read();
    if (!file->content())
        return false;
    basis = file->content();
    set(*basis);
    takenVersion = textVersion;
    conflict = false;
    return true;
}

void ServedText::follow()
{
    if (!file)
        return;
    const bool wasEdited = isEdited();
    file->read();
    if (!file->content() || file->content() == basis)
        return;
    basis = file->content();
    if (wasEdited) {
        conflict = isEdited();
        return;
    }
    set(*basis);
    takenVersion = textVersion;
}

QByteArray ServedText::save(bool isForced)
{
    if (!file)
        return "there is no file: orr serve was started without one";
    follow();
    if (conflict && !isForced)
        return "the file has changed meanwhile";
    const QByteArray fault = file->write(text);
    if (!fault.isEmpty())
        return fault;
    basis = text;
    conflict = false;
    return {};
}

// What was begun without a file is edited once there is something.
bool ServedText::isEdited() const
{
    return text != basis.value_or(QByteArray());
}

void ServedText::set(const QByteArray &bytes)
{
    if (bytes == text)
        return;
    text = bytes;
    ++textVersion;
}

} // namespace ORR::Companion
