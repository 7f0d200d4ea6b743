#include "companion/jobs/worker_task.h"

#include "companion/jobs/value_bytes.h"

namespace ORR::Companion {

QDataStream &operator<<(QDataStream &stream, const PageTask &task)
{
    return stream << task.input << task.engine << task.fallbackTitle << task.htmlLabels
                  << task.mostBytes;
}

QDataStream &operator>>(QDataStream &stream, PageTask &task)
{
    return stream >> task.input >> task.engine >> task.fallbackTitle >> task.htmlLabels
        >> task.mostBytes;
}

QDataStream &operator<<(QDataStream &stream, const FindingsTask &task)
{
    return stream << task.input << task.engine;
}

QDataStream &operator>>(QDataStream &stream, FindingsTask &task)
{
    return stream >> task.input >> task.engine;
}

QByteArray bytesOfTask(const WorkerTask &task)
{
    return std::visit([](const auto &one) { return bytesOf(one); }, task);
}

// In the order of the variant.
std::optional<WorkerTask> taskOf(std::size_t kind, const QByteArray &bytes)
{
    switch (kind) {
    case 0:
        return valueOf<DrawingTask>(bytes);
    case 1:
        return valueOf<PageTask>(bytes);
    case 2:
        return valueOf<FindingsTask>(bytes);
    default:
        return std::nullopt;
    }
}

} // namespace ORR::Companion
