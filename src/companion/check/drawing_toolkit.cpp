#include "companion/check/drawing_toolkit.h"

#include "companion/command/streams.h"
#include "drawing/toolkit.h"

#include <QCoreApplication>

namespace ORR::Companion {

namespace {

// Whoever made an application object has prepared it.
bool prepare()
{
    if (!QCoreApplication::instance())
        Drawing::prepareToolkit();
    return true;
}

bool start()
{
    if (!QCoreApplication::instance())
        Drawing::startToolkit("orr");
    const QString fault = Drawing::fontFault();
    if (!fault.isEmpty())
        tell("orr check: the drawing is not checked: " + fault.toStdString());
    return fault.isEmpty();
}

} // namespace

void prepareDrawingToolkit()
{
    [[maybe_unused]] static const bool isPrepared = prepare();
}

bool startsDrawingToolkit()
{
    prepareDrawingToolkit();
    static const bool isThere = start();
    return isThere;
}

} // namespace ORR::Companion
