#pragma once

#include <QByteArray>

namespace ORR::Drawing {

// As long as it lives, what is written to standard error is held back, and lost in the end: nothing
// gets there but what is written to `messages`. One at a time.
class HeldStandardError
{
public:
    HeldStandardError();
    ~HeldStandardError();
    HeldStandardError(const HeldStandardError &) = delete;
    HeldStandardError &operator=(const HeldStandardError &) = delete;

    // What has been held back so far.
    QByteArray text() const;
    // Its beginning, as far as there is room for it, and the length of that; none if nothing is
    // held at present. A handler of a signal may call it.
    static size_t copyText(char *buffer, size_t room);

    // The descriptor that leads to the real standard error, whether or not it is held.
    static int messages();

private:
    static int saved;
    static int memory;
};

} // namespace ORR::Drawing
