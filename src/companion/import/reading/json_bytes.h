#pragma once

#include <QByteArrayView>

#include <cstddef>
#include <iterator>

namespace ORR::Companion {

// How far a reader of JSON came.
struct JsonProgress
{
    const char *byte = nullptr; // the next one that it gets
    qint64 added = 0; // bytes that it got and that are not in the text
};

// Goes through a text of JSON and lets others see how far it came. Tools write names of files as
// they are, in whatever encoding; JSON has to be UTF-8. A byte that can't be UTF-8 is given as the
// character that it is in Latin-1, so that such names stay as many as they were.
class JsonBytes
{
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char *;
    using reference = char;

    // `seen` is kept up, and belongs to the caller.
    JsonBytes(const char *first, const char *last, JsonProgress *seen);

    char operator*() const { return form == Form::AsIs ? *byte : encodedByte(); }
    JsonBytes &operator++()
    {
        // Nearly all is ASCII, and that is never within a character of several bytes.
        if (form != Form::AsIs || byte + 1 == end || quint8(byte[1]) >= 0x80)
            return advance();
        progress->byte = ++byte;
        return *this;
    }
    bool operator==(const JsonBytes &other) const { return byte == other.byte; }
    bool operator!=(const JsonBytes &other) const { return byte != other.byte; }

private:
    enum class Form { AsIs, FirstOfTwo, SecondOfTwo };
    char encodedByte() const;
    JsonBytes &advance();
    void lookAhead();

    const char *byte;
    const char *end;
    const char *characterEnd; // of the UTF-8 that `byte` is within
    JsonProgress *progress;
    Form form = Form::AsIs;
};

} // namespace ORR::Companion
