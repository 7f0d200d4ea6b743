// Every engine has a drawing and an example, and every drawing a golden in each format: so that no
// suite passes because there was nothing to draw.
#include "support/corpus.h"
#include "support/golden.h"

#include <QDir>
#include <QFile>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

QStringList foldersIn(const QString &root)
{
    return QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
}

class CorpusOfEngine : public testing::TestWithParam<Drawing::LayoutIndex>
{
};

} // namespace

TEST_P(CorpusOfEngine, has_a_drawing_and_an_example)
{
    EXPECT_FALSE(inputsOf(GetParam(), drawingInputs()).empty()) << "in tests/drawings";
    EXPECT_FALSE(inputsOf(GetParam(), exampleInputs()).empty()) << "in examples";
}

TEST_P(CorpusOfEngine, has_a_golden_for_each_format_and_for_the_replay)
{
    for (const CorpusInput &input : inputsOf(GetParam(), drawingInputs())) {
        QStringList suffixes{u"replayed.svg"_s, u"replayed.png"_s};
        for (const Drawing::Format format : allFormats())
            suffixes += goldenSuffix(format);
        for (const QString &suffix : suffixes)
            EXPECT_FALSE(readTestFile(input.besideIt(suffix)).isEmpty()) << suffix.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(All, CorpusOfEngine, testing::ValuesIn(allLayouts()), nameOfLayout);

// A folder that is misspelt, or that of an engine that is gone, is drawn by nobody.
TEST(Corpus, has_no_folder_that_is_no_engine)
{
    QStringList engines = Drawing::layoutNames();
    engines.sort();
    EXPECT_EQ(foldersIn(drawingsFolder()), engines);
    QStringList examples = foldersIn(examplesFolder());
    EXPECT_TRUE(examples.removeOne(u"produce"_s)) << "what writes inputs, and no inputs";
    EXPECT_TRUE(examples.removeOne(u"embed"_s)) << "what draws with the library";
    EXPECT_EQ(examples, engines);
}

TEST(Corpus, has_no_golden_whose_drawing_is_gone)
{
    for (const QString &engine : foldersIn(drawingsFolder())) {
        const QDir folder(QDir(drawingsFolder()).filePath(engine));
        for (const QString &file : folder.entryList(QDir::Files, QDir::Name)) {
            const QString input = file.section(u'.', 0, 0) + u".dot"_s;
            EXPECT_TRUE(QFile::exists(folder.filePath(input))) << file.toStdString();
        }
    }
}

TEST(Corpus, names_each_engine_s_picture_in_the_documents)
{
    const QDir pictures(QStringLiteral(ORR_TEST_FOLDER "/../../docs/pictures"));
    for (const QString &engine : Drawing::layoutNames())
        EXPECT_FALSE(pictures.entryList({engine + u"-*.png"_s}, QDir::Files).isEmpty())
            << engine.toStdString();
}
