#include "companion/draw/planned_drawing.h"

#include "companion/draw/quoted_name.h"
#include "drawing/format_table.h"

#include <utility>

namespace ORR::Companion {

namespace {

QByteArray suffixOf(const DrawingOptions &kind)
{
    const QLatin1StringView name =
        Drawing::formatRow(static_cast<Drawing::Format>(kind.format)).name;
    return {name.data(), name.size()};
}

std::optional<QByteArray> outputOf(const QByteArray &input, const DrawingOptions &kind,
                                   const DrawRequest &request)
{
    if (request.output)
        return request.output;
    if (request.folder)
        return outputBelow(*request.folder, input, suffixOf(kind));
    return outputBeside(input, suffixOf(kind));
}

Plan planned(const LineOfJob &job, qint64 line, const DrawRequest &request)
{
    Plan plan;
    for (qsizetype i = 0; i < job.kinds.size(); ++i) {
        const std::optional<QByteArray> output = job.outputs.isEmpty()
            ? outputOf(job.input, job.kinds.at(i), request)
            : std::optional(job.outputs.at(i));
        if (!output)
            return {{},
                    quotedName(job.input)
                        + " lies above the working folder, so that it has no "
                          "place below that of the outputs"};
        plan.drawings.append(
            {.task = {.input = job.input, .output = *output, .options = job.kinds.at(i)},
             .input = job.input,
             .makesFolders = request.folder && job.outputs.isEmpty(),
             .job = line});
    }
    return plan;
}

} // namespace

Plan planOfFile(const QByteArray &input, const DrawRequest &request)
{
    return planned({.input = input, .kinds = request.kinds}, -1, request);
}

Plan planOfJob(const LineOfJob &job, qint64 line, const DrawRequest &request)
{
    return planned(job, line, request);
}

bool isInShard(const QByteArray &input, const Shard &shard)
{
    quint64 hash = 0xcbf29ce484222325;
    for (const char byte : input)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    // The lowest bits of this hash are those of a sum; the upper half is well mixed.
    return (hash >> 32) % shard.count == shard.index - 1;
}

} // namespace ORR::Companion
