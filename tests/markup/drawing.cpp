#include "markup/drawing.h"

#include "device/xdot_render.h"
#include "graph/dot_parser.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QTemporaryDir>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

QString draw(Driver::DriverFormat format, Driver::LayoutIndex layout, const QByteArray &text,
             const QString &path)
{
    const std::unique_ptr<Graph::DotGraph> graph = Graph::parseDot(text);
    if (!graph)
        return u"no graph"_s;
    const auto device = Driver::formatRow(format).create({path, QStringLiteral(ORR_HOME)});
    if (graph->root()->attributes.contains(u"xdotversion"_s))
        return Graph::Graphviz::XDotRender(device.get(), graph.get()).render(text);
    return Driver::layoutRow(layout).run({graph.get(), device.get()});
}

Drawing drawn(Driver::DriverFormat format, Driver::LayoutIndex layout, const QByteArray &graph,
              bool isRead)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"drawing."_s + Driver::formatRow(format).name);
    Drawing drawing;
    drawing.message = draw(format, layout, graph, path);
    EXPECT_EQ(drawing.message, QString()) << graph.toStdString();
    if (!drawing.message.isEmpty())
        return drawing;
    drawing.bytes = readTestFile(path);
    if (isRead)
        drawing.reading = readDrawing(path);
    if (isRead && isPicture(format))
        drawing.size = QImage(path).size();
    return drawing;
}

} // namespace

Drawing fileOf(Driver::DriverFormat format, Driver::LayoutIndex layout, const QByteArray &graph)
{
    return drawn(format, layout, graph, false);
}

Drawing drawingOf(Driver::DriverFormat format, Driver::LayoutIndex layout, const QByteArray &graph)
{
    return drawn(format, layout, graph, true);
}

Drawing expectSameStructure(Driver::DriverFormat format, Driver::LayoutIndex layout,
                            const QByteArray &hostile, const QByteArray &plain)
{
    SCOPED_TRACE(std::string(Driver::formatRow(format).name.data()) + ": " + hostile.toStdString());
    const Drawing drawing = drawingOf(format, layout, hostile);
    const Drawing other = drawingOf(format, layout, plain);
    EXPECT_EQ(drawing.reading.structure, other.reading.structure);
    if (!isPicture(format)) {
        EXPECT_GT(drawing.reading.drawn, 0);
    }
    return drawing;
}
