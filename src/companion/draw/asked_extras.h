#pragma once

#include "companion/jobs/drawing_task.h"

#include <QList>
#include <QString>

#include <optional>

namespace ORR::Companion {

// What may be asked for beside engines and formats, of the formats that have it.
struct AskedExtras
{
    std::optional<double> scale = {};
    std::optional<QByteArray> background = {};
    std::optional<bool> embedded = {};

    // What is not asked for is as in those.
    AskedExtras orElse(const AskedExtras &others) const;
};

// Pixels for a point.
inline constexpr double smallestScale = 0.01;
inline constexpr double largestScale = 100;

// Why a number is no scale, "is no number from 0.01 to 100"; empty if it is one.
QString scaleFault(double number);

// Why a text is no colour; empty if it is one.
QString backgroundFault(const QString &text);

// Why one of the extras can't be had, since none of the formats takes it: "scale is for jpg, png
// only". Empty if all can.
QString unusedExtra(const AskedExtras &extras, const QList<DrawingOptions> &kinds);

// Gives each drawing those that its format takes.
void applyExtras(const AskedExtras &extras, QList<DrawingOptions> *kinds);

} // namespace ORR::Companion
