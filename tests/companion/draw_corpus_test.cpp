// What `orr draw` makes of the corpus and of generated inputs, beside what `orrlayout` makes of
// them with a process for each.
#include "companion/draw_run.h"
#include "invariants/generated_input.h"
#include "support/corpus.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <random>
#include <vector>

using namespace ORR::Drawing;
using namespace Qt::StringLiterals;

namespace {

struct KnownDrawing
{
    QString input;
    QString engine;
    QString format;
    QByteArray expected;
};

constexpr quint64 generatedInputs = 10; // for each engine; the first one in every format
const QStringList formatsOfOthers{u"svg"_s, u"xdot1.2"_s};

class DrawCorpusTest : public DrawTest
{
protected:
    void addCorpus()
    {
        for (const CorpusInput &input : corpusInputs()) {
            add(input.file, input.engine());
            const QString finished = input.besideIt(goldenSuffix(Format::XDot));
            if (QFileInfo::exists(finished))
                add(finished, QString());
        }
    }

    void addGenerated()
    {
        for (const LayoutIndex layout : allLayouts()) {
            const QString engine = layoutRow(layout).name;
            for (quint64 seed = 0; seed < generatedInputs; ++seed) {
                const QString name = u"%1-%2.dot"_s.arg(engine).arg(seed);
                writeFile(name, generatedInput(layout, seed));
                add(name, engine, seed == 0 ? formatNames() : formatsOfOthers);
            }
        }
    }

    void add(const QString &input, const QString &engine,
             const QStringList &formats = formatNames())
    {
        for (const QString &format : formats)
            all.push_back({input, engine, format, drawnAlone(input, engine, format)});
    }

    void expectAll(const QString &workers)
    {
        QByteArray lines;
        for (size_t i = 0; i < all.size(); ++i) {
            QJsonObject job{
                {u"in"_s, all[i].input}, {u"formats"_s, all[i].format}, {u"out"_s, outputOf(i)}};
            if (!all[i].engine.isEmpty())
                job.insert(u"engine"_s, all[i].engine);
            lines += QJsonDocument(job).toJson(QJsonDocument::Compact) + '\n';
        }
        const ProgramRun run = drawMany({u"--jobs"_s, u"-"_s, u"-j"_s, workers}, lines);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.errors,
                  QByteArray("orr draw: " + QByteArray::number(qsizetype(all.size()))
                             + " drawn, 0 failed\n"));
        for (size_t i = 0; i < all.size(); ++i)
            EXPECT_TRUE(fileContent(outputOf(i)) == all[i].expected)
                << all[i].input.toStdString() << " as " << all[i].format.toStdString();
    }

    void expectAllInAnyOrder()
    {
        expectAll(u"1"_s);
        std::mt19937 random(4711);
        for (const QString &workers : {u"2"_s, u"5"_s}) {
            std::shuffle(all.begin(), all.end(), random);
            expectAll(workers);
        }
    }

    QString outputOf(size_t i) const { return u"%1."_s.arg(i) + all[i].format; }

    std::vector<KnownDrawing> all;
};

} // namespace

TEST_F(DrawCorpusTest, is_the_same_in_any_order_and_with_any_number_of_workers)
{
    addCorpus();
    ASSERT_GE(all.size(), allLayouts().size() * allFormats().size());
    expectAllInAnyOrder();
}

TEST_F(DrawCorpusTest, is_the_same_for_generated_inputs)
{
    addGenerated();
    ASSERT_EQ(all.size(),
              allLayouts().size()
                  * (allFormats().size() + (generatedInputs - 1) * formatsOfOthers.size()));
    expectAllInAnyOrder();
}
