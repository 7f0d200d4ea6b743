#include "drawing/printable_bytes.h"

#include <algorithm>

namespace ORR::Drawing {

namespace {

using Byte = unsigned char;

// The bytes of a character that begins so; none begins so if 0.
std::size_t sequenceLength(Byte first)
{
    if (first < 0x80)
        return 1;
    if (first < 0xC2 || first > 0xF4)
        return 0;
    return first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

// The length of the character at the beginning, or 0 if there is none.
std::size_t characterLength(const Byte *text, std::size_t length)
{
    const std::size_t wanted = sequenceLength(*text);
    const auto continues = [](Byte byte) { return (byte & 0xC0) == 0x80; };
    return wanted <= length
            && std::all_of(text + 1, text + std::max<std::size_t>(wanted, 1), continues)
        ? wanted
        : 0;
}

// C0, the delete character and C1, which has two bytes.
bool isControl(const Byte *text)
{
    return *text < 0x20 || *text == 0x7F || (*text == 0xC2 && text[1] < 0xA0);
}

char *writeEscape(Byte code, char *to)
{
    static constexpr char digits[] = "0123456789abcdef";
    for (const char c : {'\\', 'x', digits[code >> 4], digits[code & 15]})
        *to++ = c;
    return to;
}

} // namespace

std::size_t writePrintable(const char *text, std::size_t length, char *to)
{
    char *end = to;
    const auto *bytes = reinterpret_cast<const Byte *>(text);
    for (std::size_t i = 0; i < length;) {
        const std::size_t size = characterLength(bytes + i, length - i);
        if (size == 0) {
            end = writeEscape(bytes[i++], end);
            continue;
        }
        end = isControl(bytes + i) ? writeEscape(bytes[i + size - 1], end)
                                   : std::copy(text + i, text + i + size, end);
        i += size;
    }
    return static_cast<std::size_t>(end - to);
}

} // namespace ORR::Drawing
