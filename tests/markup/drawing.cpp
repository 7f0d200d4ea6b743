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

QString draw(Drawing::Format format, Drawing::LayoutIndex layout, const QByteArray &text,
             const QString &path)
{
    const std::unique_ptr<Graph::DotGraph> graph = Graph::parseDot(text);
    if (!graph)
        return u"no graph"_s;
    const auto device = Drawing::formatRow(format).create({path, QStringLiteral(ORR_HOME)});
    if (graph->root()->attributes.contains(u"xdotversion"_s))
        return Graph::Graphviz::XDotRender(device.get(), graph.get()).render(text);
    return Drawing::layoutRow(layout).run({graph.get(), device.get()});
}

ReadDrawing drawn(Drawing::Format format, Drawing::LayoutIndex layout, const QByteArray &graph,
                  bool isRead)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"drawing."_s + Drawing::formatRow(format).name);
    ReadDrawing drawing;
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

ReadDrawing fileOf(Drawing::Format format, Drawing::LayoutIndex layout, const QByteArray &graph)
{
    return drawn(format, layout, graph, false);
}

ReadDrawing drawingOf(Drawing::Format format, Drawing::LayoutIndex layout, const QByteArray &graph)
{
    return drawn(format, layout, graph, true);
}

ReadDrawing expectSameStructure(Drawing::Format format, Drawing::LayoutIndex layout,
                                const QByteArray &hostile, const QByteArray &plain)
{
    SCOPED_TRACE(std::string(Drawing::formatRow(format).name.data()) + ": "
                 + hostile.toStdString());
    const ReadDrawing drawing = drawingOf(format, layout, hostile);
    const ReadDrawing other = drawingOf(format, layout, plain);
    EXPECT_EQ(drawing.reading.structure, other.reading.structure);
    if (!isPicture(format)) {
        EXPECT_GT(drawing.reading.drawn, 0);
    }
    return drawing;
}
