#include "companion/watch/watch_messages.h"

#include "companion/draw/quoted_name.h"

#include <QByteArrayList>

#include <algorithm>
#include <utility>

namespace ORR::Companion {

namespace {

QByteArray inMilliseconds(qint64 microseconds)
{
    return QByteArray::number(double(microseconds) / 1000, 'f', 1) + " ms";
}

} // namespace

std::string waitingMessage(const std::string &program, const QByteArray &input,
                           const std::string &fault)
{
    return program + ": " + quotedName(input).toStdString() + " can't be read: " + fault
        + "; waiting for it\n";
}

std::string inputMessage(const std::string &program, const QByteArray &input,
                         const QByteArray &message)
{
    return program + ": " + (quotedName(input) + ": " + message + '\n').toStdString();
}

std::string drawingMessages(const std::string &program, const QByteArray &input,
                            const QList<PlannedDrawing> &drawings,
                            const QList<DrawingAnswer> &answers)
{
    QByteArrayList drawn;
    qint64 time = 0;
    QList<std::pair<QByteArray, QByteArrayList>>
        failed; // by messages, in the order of the drawings
    for (qsizetype i = 0; i < answers.size(); ++i) {
        const DrawingAnswer &answer = answers.at(i);
        const QByteArray output = quotedName(drawings.at(i).task.output);
        if (answer.isDrawn) {
            drawn += output;
            time += answer.microseconds;
            continue;
        }
        const auto same = std::ranges::find(failed, answer.message,
                                            &std::pair<QByteArray, QByteArrayList>::first);
        if (same == failed.end())
            failed.append({answer.message, {output}});
        else
            same->second += output;
    }
    std::string lines;
    if (!drawn.isEmpty())
        lines +=
            inputMessage(program, input, drawn.join(", ") + " drawn in " + inMilliseconds(time));
    for (const auto &[message, outputs] : std::as_const(failed)) {
        const bool isOfAll = outputs.size() == drawings.size();
        lines +=
            inputMessage(program, input, isOfAll ? message : outputs.join(", ") + ": " + message);
    }
    return lines;
}

} // namespace ORR::Companion
