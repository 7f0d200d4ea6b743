#include "companion/check/drawing_toolkit.h"

#include "companion/command/streams.h"
#include "driver/toolkit.h"

#include <QCoreApplication>

namespace ORR::Companion {

namespace {

bool start()
{
    if (!QCoreApplication::instance()) {
        Driver::prepareToolkit();
        Driver::startToolkit("orr");
    }
    const QString fault = Driver::fontFault();
    if (!fault.isEmpty())
        tell("orr check: the drawing is not checked: " + fault.toStdString());
    return fault.isEmpty();
}

} // namespace

bool startsDrawingToolkit()
{
    static const bool isThere = start();
    return isThere;
}

} // namespace ORR::Companion
