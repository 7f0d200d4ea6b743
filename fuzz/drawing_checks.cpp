#include "drawing_checks.h"

#include "fuzz_target.h"
#include "graph/dot_parser.h"
#include "output/file.h"
#include "support/recording_device.h"

#include <QFile>
#include <QTemporaryDir>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mostPixels = qint64(400) * 400; // larger pictures only cost time

// The raster device, for which a page is too large earlier.
class SmallPicture : public Graph::File
{
public:
    using File::File;

    void begin(int width, int height) override
    {
        if (qint64(width) * height <= mostPixels)
            File::begin(width, height);
    }
};

std::unique_ptr<Graph::Device> makeDevice(Driver::DriverFormat format, const QString &fileName)
{
    if (format == Driver::DriverFormat::Png || format == Driver::DriverFormat::Jpg)
        return std::make_unique<SmallPicture>(fileName);
    return Driver::formatRow(format).create({fileName, QStringLiteral(ORR_HOME)});
}

// Takes the file away once it is read, so that no run sees one of an earlier run.
QByteArray takeFile(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    file.remove();
    return bytes;
}

struct Outcome
{
    QString message;
    QByteArray drawing;
    friend bool operator==(const Outcome &, const Outcome &) = default;
};

// Parses anew for each run, since engines keep their results in the graph.
void checkTwice(const QByteArray &text, const std::function<Outcome(Graph::DotGraph *)> &draw)
{
    const std::unique_ptr<Graph::DotGraph> graph = Graph::parseDot(text);
    if (!graph)
        return;
    const Outcome once = draw(graph.get());
    require(!once.message.isEmpty() || !once.drawing.isEmpty(), "a message or a drawing");
    const Outcome twice = draw(Graph::parseDot(text).get());
    require(twice == once, "the same from the same input");
}

} // namespace

void checkCalls(const QByteArray &text, const Run &run)
{
    checkTwice(text, [&](Graph::DotGraph *graph) -> Outcome {
        RecordingDevice device;
        const QString message = run(graph, &device);
        if (device.callsOf(u"end"_s).isEmpty())
            return {message, {}};
        return {message, device.log().toUtf8()};
    });
}

void checkFile(const QByteArray &text, const Run &run, Driver::DriverFormat format)
{
    static const QTemporaryDir folder;
    // A picture takes its format from the suffix.
    const QString fileName = folder.filePath("drawing."_L1 + Driver::formatRow(format).name);
    checkTwice(text, [&](Graph::DotGraph *graph) -> Outcome {
        std::unique_ptr<Graph::Device> device = makeDevice(format, fileName);
        const QString message = run(graph, device.get());
        device.reset(); // it may still hold the file
        return {message, takeFile(fileName)};
    });
}
