#pragma once

#include <QByteArray>

// A text that ends where memory ends: behind its NUL lies a page that nobody may read. What reads
// on crashes at once, in every build, while behind an ordinary text lies room that its container
// has kept, and with it mostly something harmless.
class GuardedText
{
public:
    explicit GuardedText(const QByteArray &text);
    ~GuardedText();
    GuardedText(const GuardedText &) = delete;
    GuardedText &operator=(const GuardedText &) = delete;

    // The text in that place and not a copy; valid as long as the object.
    QByteArray bytes() const;

private:
    char *memory;
    qsizetype room; // of the memory that can be read
    qsizetype size;
};
