#include "companion/import/reading/json_bytes.h"

namespace ORR::Companion {

namespace {

// The first bytes of a character in UTF-8 with the range of the second one (The Unicode Standard,
// table 3-7); those behind it are any of 80 to BF.
struct Utf8Row
{
    quint8 first, last; // of the first byte
    quint8 low, high; // of the second
    int length;
};
constexpr Utf8Row utf8Rows[] = {
    {0xc2, 0xdf, 0x80, 0xbf, 2}, {0xe0, 0xe0, 0xa0, 0xbf, 3}, {0xe1, 0xec, 0x80, 0xbf, 3},
    {0xed, 0xed, 0x80, 0x9f, 3}, {0xee, 0xef, 0x80, 0xbf, 3}, {0xf0, 0xf0, 0x90, 0xbf, 4},
    {0xf1, 0xf3, 0x80, 0xbf, 4}, {0xf4, 0xf4, 0x80, 0x8f, 4},
};

// Of the character at the beginning, in bytes; 0 if it is none.
int utf8Length(QByteArrayView text)
{
    const auto lead = quint8(text[0]);
    if (lead < 0x80)
        return 1;
    for (const Utf8Row &row : utf8Rows) {
        if (lead < row.first || lead > row.last)
            continue;
        if (text.size() < row.length || quint8(text[1]) < row.low || quint8(text[1]) > row.high)
            return 0;
        for (int i = 2; i < row.length; ++i) {
            if ((quint8(text[i]) & 0xc0) != 0x80)
                return 0;
        }
        return row.length;
    }
    return 0;
}

} // namespace

JsonBytes::JsonBytes(const char *first, const char *last, JsonProgress *seen)
    : byte(first), end(last), characterEnd(first), progress(seen)
{
    lookAhead();
}

// What was looked at as a whole character is not looked at again within it.
void JsonBytes::lookAhead()
{
    form = Form::AsIs;
    if (byte < characterEnd || byte == end)
        return;
    const int length = utf8Length(QByteArrayView(byte, end));
    characterEnd = byte + length;
    if (length == 0)
        form = Form::FirstOfTwo;
}

// Latin-1 is the beginning of Unicode: of eight bits, UTF-8 has two in the first byte.
char JsonBytes::encodedByte() const
{
    const auto written = quint8(*byte);
    return form == Form::FirstOfTwo ? char(0xc0 | (written >> 6)) : char(0x80 | (written & 0x3f));
}

JsonBytes &JsonBytes::advance()
{
    if (form == Form::FirstOfTwo) {
        form = Form::SecondOfTwo;
        return *this;
    }
    if (form == Form::SecondOfTwo)
        ++progress->added;
    progress->byte = ++byte;
    lookAhead();
    return *this;
}

} // namespace ORR::Companion
