#include "companion/check/drawing_toolkit.h"

#include "drawing/held_standard_error.h"
#include "drawing/toolkit.h"

#include <QCoreApplication>

#include <optional>

namespace ORR::Companion {

namespace {

// Whoever made an application object has prepared it.
bool prepare()
{
    if (!QCoreApplication::instance())
        Drawing::prepareToolkit();
    return true;
}

// What there was to say of the fonts; nothing before they were looked for.
std::optional<QString> &foundFault()
{
    static std::optional<QString> fault;
    return fault;
}

} // namespace

void prepareDrawingToolkit()
{
    [[maybe_unused]] static const bool isPrepared = prepare();
}

bool startsDrawingToolkit(const std::function<QByteArray()> &lastWords)
{
    prepareDrawingToolkit();
    std::optional<QString> &fault = foundFault();
    if (!fault) {
        if (!QCoreApplication::instance())
            Drawing::startToolkit("orr", lastWords());
        fault = Drawing::fontFault();
    }
    return fault->isEmpty();
}

QString drawingToolkitFault()
{
    return foundFault().value_or(QString());
}

void endDrawingToolkit()
{
    // Libraries below it complain there of how it ends.
    const Drawing::HeldStandardError held;
    delete QCoreApplication::instance();
}

} // namespace ORR::Companion
