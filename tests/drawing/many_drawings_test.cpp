// The corpus in one process, beside what the real program makes of it with a process for each.
#include "drawing/job.h"
#include "drawing/layout_table.h"
#include "drawing/toolkit.h"
#include "support/corpus.h"
#include "support/golden.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <random>
#include <vector>

using namespace ORR::Drawing;
using namespace Qt::StringLiterals;

namespace {

// A job, what it is called, and what the real program draws for it.
struct KnownJob
{
    std::string name;
    Job job;
    QByteArray expected;
};

// What the program draws, with a process of its own.
QByteArray drawnByProgram(const QString &file, const QString &engine, Format format)
{
    const QTemporaryDir folder;
    const QString output = folder.filePath("drawing."_L1 + formatRow(format).name);
    QStringList arguments{u"-T"_s, formatRow(format).name, u"-o"_s, output, file};
    if (!engine.isEmpty())
        arguments << u"-K"_s << engine;
    EXPECT_EQ(QProcess::execute(QStringLiteral(ORR_PROGRAM), arguments), 0) << file.toStdString();
    return readTestFile(output);
}

void addJobs(std::vector<KnownJob> *jobs, const QString &file, const QString &engine)
{
    const QByteArray input = readTestFile(file);
    for (const Format format : allFormats()) {
        jobs->push_back({(file + u" as "_s + formatRow(format).name).toStdString(),
                         {.input = input,
                          .engine = engine,
                          .format = format,
                          .homeDirectory = QStringLiteral(ORR_HOME)},
                         drawnByProgram(file, engine, format)});
    }
}

// All inputs, and the finished drawings beside them to be replayed.
std::vector<KnownJob> knownJobs()
{
    std::vector<KnownJob> jobs;
    for (const CorpusInput &input : corpusInputs()) {
        addJobs(&jobs, input.file, input.engine());
        const QString finished = input.besideIt(goldenSuffix(Format::XDot));
        if (QFileInfo::exists(finished))
            addJobs(&jobs, finished, QString());
    }
    return jobs;
}

void expectAsKnown(const std::vector<KnownJob> &jobs)
{
    for (const KnownJob &known : jobs) {
        QByteArray bytes;
        const Outcome outcome = draw(known.job, inMemory(&bytes, known.job.format));
        EXPECT_EQ(outcome.message, QString()) << known.name;
        EXPECT_TRUE(bytes == known.expected) << known.name << ": " << bytes.size() << " bytes, "
                                             << known.expected.size() << " of the program";
    }
}

} // namespace

TEST(ManyDrawings, in_one_process_are_those_of_a_process_for_each_in_any_order)
{
    ASSERT_EQ(fontFault(), QString());
    std::vector<KnownJob> jobs = knownJobs();
    ASSERT_GE(jobs.size(), allLayouts().size() * allFormats().size());
    expectAsKnown(jobs);
    std::mt19937 random(4711);
    std::shuffle(jobs.begin(), jobs.end(), random);
    expectAsKnown(jobs);
}
