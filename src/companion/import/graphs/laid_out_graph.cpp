#include "companion/import/graphs/laid_out_graph.h"

#include "companion/import/graphs/foreign_graph.h"
#include "companion/produce/drawn_size.h"
#include "companion/produce/graph_text.h"
#include "companion/produce/page_fit.h"

#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr int longestRun = 60'000; // milliseconds
constexpr qsizetype longestSaid = 300;

constexpr std::array layoutPrograms{"dot", "neato", "fdp", "circo"};
constexpr char keptLayout[] = "kept";

// What is drawn of an object, and what the operations begin with.
constexpr std::array drawingNames{"_draw_", "_hdraw_", "_tdraw_"};
constexpr std::array textNames{"_ldraw_", "_hldraw_", "_tldraw_"};
constexpr std::array settingNames{"penwidth", "style"};

class ReplayWriter
{
public:
    explicit ReplayWriter(const ForeignGraph &laidOut)
        : graph(laidOut), text(QString::fromUtf8(laidOut.name)), ids(laidOut.nodes.size())
    {
    }

    QByteArray written();

private:
    static void addDrawing(const ForeignGraph::Values &values, Attributes *attributes);
    void writeCluster(int cluster);
    void writeNodes(int cluster);

    const ForeignGraph &graph;
    GraphText text;
    QList<GraphText::Id> ids;
};

void ReplayWriter::addDrawing(const ForeignGraph::Values &values, Attributes *attributes)
{
    const auto add = [&](const char *name, const QByteArray &value) {
        if (!value.isEmpty())
            attributes->text(name, QString::fromUtf8(value));
    };
    for (const char *name : settingNames)
        add(name, values[name]);
    for (const char *name : drawingNames)
        add(name, values[name]);
    // Texts are drawn from one of them alone.
    QByteArray texts;
    for (const char *name : textNames) {
        const QByteArray more = values[name];
        texts += (texts.isEmpty() || more.isEmpty() ? QByteArray() : QByteArray(" ")) + more;
    }
    add("_ldraw_", texts);
}

void ReplayWriter::writeNodes(int cluster)
{
    for (qsizetype i = 0; i < graph.nodes.size(); ++i) {
        const ForeignGraph::Node &node = graph.nodes[i];
        if (node.cluster != cluster)
            continue;
        Attributes attributes;
        attributes.fact(u"name", QString::fromUtf8(node.name));
        addDrawing(node.values, &attributes);
        ids[i] = text.node(attributes);
    }
}

void ReplayWriter::writeCluster(int cluster)
{
    Attributes attributes;
    attributes.fact(u"name", QString::fromUtf8(graph.clusters[cluster].name));
    addDrawing(graph.clusters[cluster].values, &attributes);
    text.beginGroup(attributes);
}

QByteArray ReplayWriter::written()
{
    Attributes attributes;
    attributes.text("bb", QString::fromUtf8(graph.values["bb"])).text("xdotversion", u"1.2");
    addDrawing(graph.values, &attributes);
    text.graph(attributes);
    // Clusters stand behind those that they are in, and ahead of those beside.
    QList<int> open;
    for (int cluster = 0; cluster < graph.clusters.size(); ++cluster) {
        while (!open.isEmpty() && open.last() != graph.clusters[cluster].parent) {
            writeNodes(open.takeLast());
            text.endGroup();
        }
        writeCluster(cluster);
        open.append(cluster);
    }
    while (!open.isEmpty()) {
        writeNodes(open.takeLast());
        text.endGroup();
    }
    writeNodes(-1);
    for (const ForeignGraph::Edge &edge : graph.edges) {
        Attributes drawing;
        addDrawing(edge.values, &drawing);
        text.edge(ids[edge.tail], ids[edge.head], drawing);
    }
    return text.finished();
}

// The place of everything is given.
class LaidOutPicture : public Picture
{
public:
    explicit LaidOutPicture(const QByteArray &replay) : text(replay) { }

    WrittenGraph write(const PictureRequest &request) const override
    {
        PageFit fit{.text = text, .size = drawnSize(text, request.engine)};
        fit.fits = fit.size.width() <= request.width && fit.size.height() <= request.height;
        return {text,
                pageNotes(fit, request, u"what was laid out by another program is not scaled"_s)};
    }

private:
    QByteArray text;
};

// What the program writes, or why it wrote nothing.
std::optional<QByteArray> outputOf(const QString &program, const QByteArray &input, QString *why)
{
    QProcess process;
    process.start(program, {u"-Txdot1.2"_s});
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(longestRun)) {
        *why = process.error() == QProcess::Timedout ? u"it took more than a minute"_s
                                                     : process.errorString();
        process.kill();
        process.waitForFinished();
        return std::nullopt;
    }
    const QByteArray output = process.readAllStandardOutput();
    if (process.exitStatus() == QProcess::NormalExit && !output.isEmpty())
        return output;
    *why = QString::fromUtf8(process.readAllStandardError().left(longestSaid));
    return std::nullopt;
}

} // namespace

std::optional<QByteArray> replayableText(const QByteArray &xdot, const std::string &source,
                                         std::optional<ImportFault> *fault)
{
    QList<QByteArray> wanted{"bb"};
    for (const char *name : settingNames)
        wanted.append(name);
    for (const char *name : drawingNames)
        wanted.append(name);
    for (const char *name : textNames)
        wanted.append(name);
    const auto graph = readForeignGraph(xdot, source, wanted, fault);
    if (!graph)
        return std::nullopt;
    if (graph->nodes.isEmpty() && graph->clusters.isEmpty()) {
        *fault = ImportFault{{}, u"the graph has no nodes"_s};
        return std::nullopt;
    }
    return ReplayWriter(*graph).written();
}

std::unique_ptr<Picture> layOutForeignGraph(const QByteArray &text, const std::string &program,
                                            const std::string &source,
                                            std::optional<ImportFault> *fault)
{
    const auto failed = [&](const QString &sentence) {
        *fault = ImportFault{{.source = source}, sentence};
        return nullptr;
    };
    const auto drawn = [&](const QByteArray &xdot, const std::string &origin) {
        const auto replay = replayableText(xdot, origin, fault);
        return replay ? std::make_unique<LaidOutPicture>(*replay) : nullptr;
    };
    if (program == keptLayout)
        return drawn(text, source);
    const QString name = QString::fromStdString(program);
    const bool isKnown = std::any_of(layoutPrograms.begin(), layoutPrograms.end(),
                                     [&](const char *known) { return program == known; });
    if (!isKnown)
        return failed(u"'%1' is none of the layouts dot, neato, fdp, circo and kept"_s.arg(name));
    const QString path = QStandardPaths::findExecutable(name);
    if (path.isEmpty())
        return failed(u"there is no '%1' in PATH; it is one of Graphviz' programs"_s.arg(name));
    QString why;
    const auto output = outputOf(path, text, &why);
    if (!output)
        return failed(u"'%1' did not lay the graph out: %2"_s.arg(name, why.simplified()));
    return drawn(*output, program);
}

} // namespace ORR::Companion
