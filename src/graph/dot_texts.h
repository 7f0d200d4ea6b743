#pragma once

#include "graph/attribute_name.h"
#include "graph/recent_texts.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <algorithm>
#include <optional>
#include <string>

namespace ORR::Graph {

// The texts of one DOT input as the graph takes them, from UTF-8. Most values and nearly all names
// were there before: those share what was made for the first.
class DotTexts
{
public:
    // The value of an attribute.
    QString value(QByteArrayView bytes)
    {
        const std::optional<ShortText> text = ShortText::of(bytes);
        return text && text->isAscii()
            ? recentValues.of(*text, [&] { return QString::fromLatin1(bytes); })
            : QString::fromUtf8(bytes);
    }

    // The name of an attribute.
    AttributeName name(QByteArrayView bytes)
    {
        const std::optional<ShortText> text = ShortText::of(bytes);
        return text ? recentNames.of(*text, [&] { return nameOf(bytes); }) : nameOf(bytes);
    }

    // The id of a node, valid until the next call.
    QStringView id(QByteArrayView bytes)
    {
        nodeId.resize(size_t(bytes.size()));
        char16_t all = 0;
        std::transform(bytes.begin(), bytes.end(), nodeId.begin(), [&all](char c) {
            const char16_t wide = static_cast<unsigned char>(c);
            all |= wide;
            return wide;
        });
        if (all >= 0x80) {
            const QString text = QString::fromUtf8(bytes);
            nodeId.assign(reinterpret_cast<const char16_t *>(text.utf16()), size_t(text.size()));
        }
        return nodeId;
    }

private:
    // Enough for the colours, sizes and words of a drawing, and for its vocabulary.
    static constexpr size_t rememberedValues = 1024;
    static constexpr size_t rememberedNames = 64;

    const AttributeName &nameOf(QByteArrayView bytes)
    {
        auto known = names.constFind(QByteArray::fromRawData(bytes.data(), bytes.size()));
        if (known == names.cend())
            known = names.insert(bytes.toByteArray(), QString::fromUtf8(bytes));
        return *known;
    }

    QHash<QByteArray, AttributeName> names; // those met so far
    RecentTexts<QString, rememberedValues> recentValues;
    RecentTexts<AttributeName, rememberedNames> recentNames;
    std::u16string nodeId; // room that one id after the other is read into
};

} // namespace ORR::Graph
