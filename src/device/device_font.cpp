#include "device/device.h"
#include "device/point_resolution.h"
#include "device/text_widths.h"

namespace ORR::Graph {

Device::Font::Font(const QString &family, int size, int style)
    : familyName(family), pointSize(size), styleBits(style)
{
}

Device::Font::~Font() = default;

const QFont &Device::Font::qFont() const
{
    if (!toolkitFont) {
        QFont made(familyName, pointSize, -1, false);
        made.setStyleStrategy(QFont::StyleStrategy(QFont::PreferOutline | QFont::PreferQuality
                                                   | QFont::PreferAntialias));
        // Light hinting, as Debian has it, whatever the settings of a desktop say of it.
        made.setHintingPreference(QFont::PreferVerticalHinting);
        made.setWeight(styleBits & Bold ? QFont::Bold : QFont::Normal);
        made.setStyle(styleBits & Italic ? QFont::StyleItalic : QFont::StyleNormal);
        toolkitFont = atPointResolution(made);
    }
    return *toolkitFont;
}

const QFontMetrics &Device::Font::metrics() const
{
    if (!toolkitMetrics)
        toolkitMetrics.emplace(qFont(), pointDevice());
    return *toolkitMetrics;
}

QSize Device::Font::sizeOf(const QString &text) const
{
    if (!widths)
        widths = std::make_unique<TextWidths>(qFont(), metrics());
    return widths->sizeOf(text);
}

} // namespace ORR::Graph
