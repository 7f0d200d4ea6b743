// The corpus by the library, beside what the real program makes of it.
#include "library_calls.h"

#include "support/corpus.h"
#include "support/golden.h"

#include <QProcess>
#include <QTemporaryDir>

#include <atomic>
#include <thread>
#include <vector>

using namespace ORR::Drawing;
using namespace Qt::StringLiterals;

namespace {

// An input, how it is drawn, and what the real program makes of it.
struct KnownDrawing
{
    std::string name;
    std::string dot;
    std::string engine;
    std::string format;
    std::string expected;
};

std::string drawnByProgram(const CorpusInput &input, const QString &format)
{
    const QTemporaryDir folder;
    const QString output = folder.filePath("drawing."_L1 + format);
    EXPECT_EQ(
        QProcess::execute(QStringLiteral(ORR_PROGRAM),
                          {u"-K"_s, input.engine(), u"-T"_s, format, u"-o"_s, output, input.file}),
        0)
        << input.file.toStdString();
    return readTestFile(output).toStdString();
}

std::vector<KnownDrawing> knownDrawings()
{
    std::vector<KnownDrawing> drawings;
    for (const CorpusInput &input : corpusInputs()) {
        for (const Format each : allFormats()) {
            const QString format = formatRow(each).name;
            drawings.push_back({(input.file + " as "_L1 + format).toStdString(),
                                input.text().toStdString(), input.engine().toStdString(),
                                format.toStdString(), drawnByProgram(input, format)});
        }
    }
    return drawings;
}

// How many are not as they are known.
int drawAll(const std::vector<KnownDrawing> &drawings, size_t first)
{
    int failures = 0;
    for (size_t i = 0; i < drawings.size(); ++i) {
        const KnownDrawing &known = drawings[(first + i) % drawings.size()];
        const Drawn result = drawn(known.dot, known.engine.c_str(), known.format.c_str());
        const bool isAsKnown = result.drawing == known.expected;
        EXPECT_TRUE(isAsKnown) << known.name << ": " << result.message << result.drawing.size()
                               << " bytes, " << known.expected.size() << " of the program";
        failures += !isAsKnown;
    }
    return failures;
}

} // namespace

TEST(LibraryDrawings, are_those_of_the_program_from_one_thread_and_from_eight)
{
    const std::vector<KnownDrawing> drawings = knownDrawings();
    ASSERT_GE(drawings.size(), allLayouts().size() * allFormats().size());
    EXPECT_EQ(drawAll(drawings, 0), 0);
    EXPECT_EQ(workers().size(), 1U) << "one thread has one worker";

    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (size_t i = 0; i < 8; ++i)
        threads.emplace_back([&, i] { failures += drawAll(drawings, i * drawings.size() / 8); });
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
    EXPECT_LE(workers().size(), std::max(1U, std::thread::hardware_concurrency()));
}
