#include "companion/jobs/drawing_task.h"

namespace ORR::Companion {

QDataStream &operator<<(QDataStream &stream, const DrawingTask &task)
{
    return stream << task.hasFile << task.input << task.output << task.options.engine
                  << task.options.format << task.options.htmlLabels << task.options.scale
                  << task.options.background << task.options.embedded;
}

QDataStream &operator>>(QDataStream &stream, DrawingTask &task)
{
    return stream >> task.hasFile >> task.input >> task.output >> task.options.engine
        >> task.options.format >> task.options.htmlLabels >> task.options.scale
        >> task.options.background >> task.options.embedded;
}

QDataStream &operator<<(QDataStream &stream, const DrawingAnswer &answer)
{
    return stream << answer.isDrawn << answer.message << answer.microseconds << answer.peakMemory
                  << answer.drawing;
}

QDataStream &operator>>(QDataStream &stream, DrawingAnswer &answer)
{
    return stream >> answer.isDrawn >> answer.message >> answer.microseconds >> answer.peakMemory
        >> answer.drawing;
}

} // namespace ORR::Companion
