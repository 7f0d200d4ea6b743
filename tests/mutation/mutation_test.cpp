// Spoiled inputs, many of them: every one is rejected or drawn, in every format, twice the same,
// and no reader reads on behind its end. ORR_MUTATIONS sets how many, ORR_MUTATION_SEED where to
// start.
#include "mutation/drawing_folder.h"
#include "mutation/mutator.h"

#include "device/xdot_render.h"
#include "graph/dot_parser.h"
#include "support/corpus.h"
#include "support/golden.h"
#include "support/guarded_text.h"
#include "support/recording_device.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include <optional>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

constexpr int ordinaryRounds = 2000;
constexpr qint64 timeLimit = 20000; // milliseconds for one drawing, under the sanitizers
constexpr qint64 largestPicture = 300 * 300; // pixels; larger ones only cost time

struct Input
{
    Drawing::LayoutIndex layout;
    QByteArray text;
};

// The small drawings of all engines, and the xdot texts that they give.
QList<Input> wellMeantInputs()
{
    QList<Input> inputs;
    for (const CorpusInput &drawing : drawingInputs()) {
        const QString xdot = drawing.besideIt(goldenSuffix(Drawing::Format::XDot));
        inputs.append({drawing.layout, drawing.text()});
        inputs.append({drawing.layout, readTestFile(xdot)});
    }
    return inputs;
}

// What came of one input on a device: the message of the run, or nothing if the text is no graph.
std::optional<QString> drawOn(Graph::Device *device, const Input &input)
{
    const std::unique_ptr<Graph::DotGraph> graph = Graph::parseDot(input.text);
    if (!graph)
        return std::nullopt;
    if (graph->root()->attributes.contains(u"xdotversion"_s))
        return Graph::Graphviz::XDotRender(device, graph.get()).render(input.text);
    return Drawing::layoutRow(input.layout).run({graph.get(), device});
}

qint64 pagePixels(const RecordingDevice &device)
{
    const QString begin = device.callsOf(u"begin"_s).value(0);
    return qAbs(begin.section(u' ', 1, 1).toLongLong() * begin.section(u' ', 2, 2).toLongLong());
}

} // namespace

TEST(Mutations, are_rejected_or_drawn_and_twice_the_same)
{
    const QList<Input> inputs = wellMeantInputs();
    ASSERT_FALSE(inputs.isEmpty());
    const DrawingFolder folder;
    const int first = numberFromEnvironment("ORR_MUTATION_SEED", 1);
    const int rounds = numberFromEnvironment("ORR_MUTATIONS", ordinaryRounds);
    int drawn = 0;
    for (int seed = first; seed < first + rounds; ++seed) {
        Mutator mutator(static_cast<quint64>(seed));
        Input input = inputs[mutator.below(inputs.size())];
        const GuardedText guarded(mutator.mutated(input.text));
        input.text = guarded.bytes();
        SCOPED_TRACE("ORR_MUTATIONS=1 ORR_MUTATION_SEED=" + std::to_string(seed));
        if (qEnvironmentVariableIsSet("ORR_MUTATION_SEED"))
            std::fprintf(stderr, "%d\n", seed);

        QElapsedTimer timer;
        timer.start();
        RecordingDevice once;
        const std::optional<QString> message = drawOn(&once, input);
        if (!message)
            continue;
        RecordingDevice twice;
        EXPECT_EQ(drawOn(&twice, input), message);
        EXPECT_EQ(once.log(), twice.log());

        auto format = allFormats().at(size_t(mutator.below(qsizetype(allFormats().size()))));
        if (isPicture(format) && pagePixels(once) > largestPicture)
            format = Drawing::Format::Svg;
        std::optional<QString> told;
        const auto draw = [&](Graph::Device *device) { told = drawOn(device, input); };
        const QByteArray file = folder.drawnFile(format, draw);
        EXPECT_EQ(folder.drawnFile(format, draw), file);
        EXPECT_TRUE(!file.isEmpty() || (told && !told->isEmpty()));
        EXPECT_LT(timer.elapsed(), timeLimit);
        drawn += message->isEmpty() ? 1 : 0;
    }
    // Else the changes would be so crude that only the reader sees them.
    EXPECT_GE(drawn, rounds / 4);
}
