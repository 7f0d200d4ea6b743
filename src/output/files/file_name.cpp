#include "output/files/file_name.h"

namespace ORR::Graph {

namespace {

constexpr char16_t escapedByte = 0xDC00; // with the byte added

bool isEscaped(QChar character)
{
    return character.unicode() >= escapedByte + 0x80 && character.unicode() <= escapedByte + 0xFF;
}

} // namespace

QString fileNameText(QByteArrayView bytes)
{
    QString text = QString::fromUtf8(bytes);
    if (text.toUtf8() == bytes)
        return text;
    text.clear();
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text += QChar(static_cast<char16_t>(code < 0x80 ? code : escapedByte + code));
    }
    return text;
}

QByteArray fileNameBytes(const QString &text)
{
    QByteArray bytes;
    qsizetype plain = 0; // where the part begins that is UTF-16 as usual
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isSecondHalf = i > plain && text.at(i - 1).isHighSurrogate();
        if (!isEscaped(text.at(i)) || isSecondHalf)
            continue;
        bytes += QStringView(text).mid(plain, i - plain).toUtf8();
        bytes += static_cast<char>(text.at(i).unicode() - escapedByte);
        plain = i + 1;
    }
    return bytes + QStringView(text).mid(plain).toUtf8();
}

} // namespace ORR::Graph
