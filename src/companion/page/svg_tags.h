#pragma once

#include <QByteArrayView>

namespace ORR::Companion {

// A tag of an SVG that the program wrote itself; views into its text.
struct SvgTag
{
    QByteArrayView text; // from < to >
    QByteArrayView name;
    bool isEnd = false; // </name>
    bool isWhole = false; // <name/>

    // As it is written; null if it has none of this name.
    QByteArrayView attribute(QByteArrayView attributeName) const;
    double number(QByteArrayView attributeName, double otherwise = 0) const;
};

// The first tag from a place on; one with an empty text if there is none.
SvgTag nextTag(QByteArrayView svg, qsizetype from);

} // namespace ORR::Companion
