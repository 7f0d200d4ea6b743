#pragma once

#include "device/device.h"

#include <QSize>
#include <QString>

#include <optional>

namespace ORR::Companion {

// Measures labels as a drawing will measure them, in one font. The toolkit has to be started.
class LabelRuler
{
public:
    static constexpr const char *family = "Arial";

    explicit LabelRuler(int fontSize);

    int pointSize() const { return points; }
    int lineHeight() const { return height; } // of a line of Latin letters
    // Of a label of some lines, which line feeds part.
    QSize sizeOf(const QString &label) const;
    int widthOf(const QString &line) const { return sizeOf(line).width(); }

    // The line, or as much of its beginning and its end as is not wider than that; nothing if not
    // even `least` of its characters have room.
    QString elided(const QString &line, int width, int least = 4) const;
    // The word in up to so many lines, parted where names are put together ("_", "-", ".", blanks,
    // a capital behind a small letter); nothing if there is no way to have it in the room.
    QString wrapped(const QString &word, QSize room, int mostLines = 3) const;

private:
    Graph::Device::Font font;
    int points;
    int height;
    int leading;
};

} // namespace ORR::Companion
