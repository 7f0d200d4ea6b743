// The pictures of the documents are what the program draws, and are read on a dark page, too.
#include "docs/doc_samples.h"
#include "driver/program_run.h"
#include "support/corpus.h"
#include "support/golden.h"
#include "support/picture.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>

using namespace Qt::StringLiterals;

namespace {

const QString pictureFolder = u"docs/pictures/"_s;
constexpr int widest = 1500; // pixels

// A block of DOT, and where the test draws it.
struct Sample
{
    QString page;
    DocBlock block;
    QString input;
    QString output;
};

QList<Sample> allSamples()
{
    QList<Sample> samples;
    for (const QString &page : docPages()) {
        for (const DocBlock &block : docBlocks(page)) {
            if (block.language != "dot"_L1)
                continue;
            const QString place =
                u"%1/%2"_s.arg(sampleEngine(page, block, ORR::Drawing::layoutNames()))
                    .arg(int(samples.size()), 4, 10, QChar(u'0'));
            samples.append({page, block, place + u".dot"_s, u"out/"_s + place + u".png"_s});
        }
    }
    return samples;
}

// The files of the names in the folder of pictures, sorted.
QFileInfoList pictures(const QStringList &names)
{
    return QDir(projectPath(pictureFolder)).entryInfoList(names, QDir::Files, QDir::Name);
}

// No picture at all, or one colour everywhere.
bool isBlank(const QImage &picture)
{
    if (picture.isNull())
        return true;
    QImage plain(picture.size(), picture.format());
    plain.fill(picture.pixelColor(0, 0));
    return plain == picture;
}

class DocPictures : public ProgramTest
{
protected:
    // Draws the inputs of one engine on white, below `out`. One that can't be drawn leaves nothing
    // there.
    ProgramRun drawOnWhite(const QString &engine, const QStringList &inputs) const
    {
        return run({.arguments = QStringList{u"draw"_s, u"-K"_s, engine, u"-T"_s, u"png"_s,
                                             u"--background"_s, u"white"_s, u"-d"_s, u"out"_s}
                        + inputs});
    }

    void SetUp() override { ASSERT_TRUE(QDir(path(u"."_s)).mkdir(u"out"_s)); }

    // What was drawn, as wide as a page can show it.
    QImage image(const QString &file) const
    {
        const QImage drawn(path(file));
        return drawn.width() <= widest ? drawn
                                       : drawn.scaledToWidth(widest, Qt::SmoothTransformation);
    }
};

} // namespace

TEST_F(DocPictures, stand_behind_every_sample)
{
    const QList<Sample> samples = allSamples();
    QMap<QString, QStringList> inputs;
    for (const Sample &sample : samples) {
        const QString engine = sample.input.section(u'/', 0, 0);
        ASSERT_TRUE(QDir(path(u"."_s)).mkpath(engine));
        // A NUL byte, which no page can hold, is shown by its symbol.
        writeFile(sample.input,
                  sample.block.text.toUtf8().replace("\xe2\x90\x80"_ba, QByteArray(1, '\0')));
        inputs[engine] += sample.input;
    }
    for (const auto &[engine, files] : inputs.asKeyValueRange())
        EXPECT_GE(drawOnWhite(engine, files).status, 0) << engine.toStdString();

    for (const Sample &sample : samples) {
        const DocBlock &block = sample.block;
        SCOPED_TRACE((sample.page + u":\n"_s + block.text).toStdString());
        const QImage drawn = image(sample.output);
        if (isBlank(drawn)) {
            EXPECT_EQ(sample.page, u"docs/check.md"_s) << "only faults draw nothing";
            EXPECT_EQ(block.picture, u""_s) << "has a picture and draws nothing";
            continue;
        }
        EXPECT_NE(block.picture, u""_s) << "has no picture right behind it";
        if (!block.picture.isEmpty()) {
            EXPECT_TRUE(matchesPicture(drawn, projectPath(block.picture)));
        }
    }
}

TEST_F(DocPictures, of_samples_are_small_and_all_shown)
{
    QStringList shown;
    for (const Sample &sample : allSamples())
        shown += sample.block.picture;
    shown.removeAll(QString());
    EXPECT_GT(shown.size(), 50);
    shown.sort();
    QStringList kept;
    for (const QFileInfo &file : pictures({u"sample-*.png"_s})) {
        kept += pictureFolder + file.fileName();
        EXPECT_LT(file.size(), 60'000) << file.fileName().toStdString();
    }
    EXPECT_EQ(shown, kept) << "each in one place, and none that is in no place";
}

TEST_F(DocPictures, of_the_front_page_are_the_examples)
{
    const QString page = projectText(u"README.md"_s);
    ASSERT_TRUE(QDir(path(u"."_s)).mkdir(u"inputs"_s));
    QStringList shown;
    for (const CorpusInput &input : exampleInputs()) {
        const QString name = u"%1-%2"_s.arg(input.engine(), input.name());
        const QString picture = pictureFolder + name + u".png"_s;
        if (!page.contains(u"](%1)"_s.arg(picture)))
            continue;
        shown += input.engine();
        const QString place = u"inputs/"_s + name;
        writeFile(place + u".dot"_s, input.text());
        EXPECT_EQ(drawOnWhite(input.engine(), {place + u".dot"_s}).status, 0);
        EXPECT_TRUE(matchesPicture(image(u"out/%1.png"_s.arg(place)), projectPath(picture)));
    }
    EXPECT_EQ(shown, ORR::Drawing::layoutNames());
}

TEST_F(DocPictures, have_no_transparent_ground)
{
    int seen = 0;
    for (const QFileInfo &file : pictures({u"*.png"_s})) {
        ++seen;
        EXPECT_FALSE(QImage(file.filePath()).hasAlphaChannel()) << file.fileName().toStdString();
    }
    EXPECT_GT(seen, 50);
}
