#pragma once

#include "companion/jobs/drawing_task.h"

#include <optional>
#include <variant>

namespace ORR::Companion {

// A page for a worker to make of a text, see `makePage`.
struct PageTask
{
    QByteArray input = {};
    QByteArray engine = {}; // by its name, in any case; empty for the one that the text names
    QByteArray fallbackTitle = {}; // in UTF-8
    bool htmlLabels = false;
    qint64 mostBytes = 0; // a longer document is a failure; 0 for any length
};

// A text for a worker to check, see `checkText`.
struct FindingsTask
{
    QByteArray input = {};
    QByteArray engine = {}; // as above
};

// What a worker can be given, by the number of its kind in the message that it comes in. Each is
// answered with a `DrawingAnswer`, in which the document of a page, or the findings of a check as
// `findingsAsJson` has them, stand for the drawing.
using WorkerTask = std::variant<DrawingTask, PageTask, FindingsTask>;

// How the further tasks travel, see `DrawingTask`.
QDataStream &operator<<(QDataStream &stream, const PageTask &task);
QDataStream &operator>>(QDataStream &stream, PageTask &task);
QDataStream &operator<<(QDataStream &stream, const FindingsTask &task);
QDataStream &operator>>(QDataStream &stream, FindingsTask &task);

// The bytes of any task, and the task of a kind of which they are; nothing if they are none, or if
// there is no such kind.
QByteArray bytesOfTask(const WorkerTask &task);
std::optional<WorkerTask> taskOf(std::size_t kind, const QByteArray &bytes);

} // namespace ORR::Companion
