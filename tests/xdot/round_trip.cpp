#include "xdot/round_trip.h"

#include "device/replay_ops.h"
#include "device/xdot_render.h"
#include "graph/dot_parser.h"
#include "output/file.h"
#include "output/svg_rich_text.h"
#include "output/xdot.h"
#include "support/golden.h"

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdlib>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// Edges of curves that a margin moves by whole pixels come out equal but for the last bits.
constexpr int visibleDifference = 8;

// The raster device paints a square rectangle one unit wider and higher than the polygon of its
// corners, and there are only polygons in xdot. This one paints the polygon, so that the difference
// is out of the way of all others.
class PolygonFile : public File
{
public:
    using File::File;

    void drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill) override
    {
        if (radius != 0) {
            File::drawRect(topLeft, bottomRight, radius, pen, fill);
            return;
        }
        const QPoint topRight(bottomRight.x(), topLeft.y());
        const QPoint bottomLeft(topLeft.x(), bottomRight.y());
        drawPolygon({topLeft, topRight, bottomRight, bottomLeft, topLeft}, pen, fill);
    }
};

bool differ(QRgb a, QRgb b)
{
    const auto apart = [](int x, int y) { return std::abs(x - y) > visibleDifference; };
    return apart(qRed(a), qRed(b)) || apart(qGreen(a), qGreen(b)) || apart(qBlue(a), qBlue(b))
        || apart(qAlpha(a), qAlpha(b));
}

QString draw(const QByteArray &dot, const Engine &run, Device &device)
{
    const std::unique_ptr<DotGraph> graph = parseDot(dot);
    return graph ? run(graph.get(), &device) : u"the text was rejected"_s;
}

} // namespace

RoundTrip roundTrip(const QByteArray &dot, const Engine &run)
{
    const QTemporaryDir folder;
    const QString xdotFile = folder.filePath(u"drawing.xdot"_s);
    const QString directFile = folder.filePath(u"direct.png"_s);
    const QString replayedFile = folder.filePath(u"replayed.png"_s);

    RoundTrip trip;
    const auto note = [&](const QString &message) {
        if (trip.message.isEmpty())
            trip.message = message;
    };
    SvgRichText directSvg(&trip.directSvg);
    note(draw(dot, run, directSvg));
    PolygonFile directPng(directFile);
    note(draw(dot, run, directPng));
    XDot xdot(xdotFile);
    note(draw(dot, run, xdot));
    if (!trip.message.isEmpty())
        return trip;

    trip.xdot = readTestFile(xdotFile);
    const Engine replay = [&](DotGraph *graph, Device *device) {
        return Graphviz::XDotRender(device, graph).render(trip.xdot);
    };
    SvgRichText replayedSvg(&trip.replayedSvg);
    note(draw(trip.xdot, replay, replayedSvg));
    File replayedPng(replayedFile);
    note(draw(trip.xdot, replay, replayedPng));
    trip.directPng.load(directFile);
    trip.replayedPng.load(replayedFile);
    return trip;
}

qsizetype differingPixels(const QImage &direct, const QImage &replayed)
{
    const int margin = Graphviz::pageMargin;
    if (replayed.size() != direct.size() + QSize(2 * margin, 2 * margin)) {
        return std::max(qsizetype(direct.width()) * direct.height(),
                        qsizetype(replayed.width()) * replayed.height());
    }
    qsizetype count = 0;
    for (int y = 0; y < direct.height(); ++y) {
        for (int x = 0; x < direct.width(); ++x)
            count += differ(direct.pixel(x, y), replayed.pixel(x + margin, y + margin)) ? 1 : 0;
    }
    return count;
}

testing::AssertionResult roundTripHolds(const QString &folder, const QString &name,
                                        const QByteArray &dot, const Engine &run, qsizetype allowed)
{
    const RoundTrip trip = roundTrip(dot, run);
    if (!trip.message.isEmpty())
        return testing::AssertionFailure() << "message: " << trip.message.toStdString();
    const QString golden = folder + u'/' + name;
    const testing::AssertionResult xdot = matchesGolden(trip.xdot, golden + u".xdot"_s);
    const testing::AssertionResult svg = matchesGolden(trip.replayedSvg, golden + u".svg"_s);
    if (!xdot)
        return xdot;
    if (!svg)
        return svg;
    const qsizetype count = differingPixels(trip.directPng, trip.replayedPng);
    if (count <= allowed)
        return testing::AssertionSuccess();
    const QString direct = QDir::temp().filePath(name + u"-direct.png"_s);
    const QString replayed = QDir::temp().filePath(name + u"-replayed.png"_s);
    trip.directPng.save(direct);
    trip.replayedPng.save(replayed);
    return testing::AssertionFailure()
        << count << " pixels differ: " << direct.toStdString() << " " << replayed.toStdString();
}
