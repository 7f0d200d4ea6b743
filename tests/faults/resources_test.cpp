// Too little memory, too few descriptors, no fonts.
#include "faults/fault_run.h"
#include "support/golden.h"

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QSize>

using namespace Qt::StringLiterals;

namespace {

constexpr rlim_t megabyte = rlim_t(1024) * 1024;

QByteArray picture(const QColor &color, QSize size)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    EXPECT_TRUE(image.save(&buffer, "png"));
    return "<img src='data:image/png;base64," + png.toBase64() + "'>";
}

// A finished drawing with a rich text of nearly as many pixels as one may have. Together they take
// more memory than the program has asked for when it starts.
QByteArray drawingWithPictures()
{
    const QByteArray text = picture(Qt::red, {1600, 1200}) + picture(Qt::blue, {1600, 1200})
        + picture(Qt::green, {1000, 1000});
    return "digraph { graph [bb=\"0,0,90,90\" xdotversion=\"1.2\"];\n"
           "a [_ldraw_=\"F 12 5 -Arial c 3 -red H 20 80 -1 50 "
        + QByteArray::number(text.size()) + " -" + text + "\"]; }";
}

class Resources : public FaultTest
{
protected:
    // Either the file is whole, or there is a message and the file is as it was.
    void expectDrawingOrMessage(const ProgramRun &drawn, const QByteArray &whole) const
    {
        if (drawn.status == 0) {
            EXPECT_TRUE(fileContent(output()) == whole);
        } else {
            EXPECT_EQ(drawn.status, 1);
            EXPECT_TRUE(drawn.errors.endsWith('\n')) << drawn.errors.toStdString();
            EXPECT_TRUE(isUntouched());
        }
    }

    ProgramRun drawWithMemory(rlim_t limit, const QByteArray &graph) const
    {
        return run({.arguments = arguments(), .input = graph, .before = limited(RLIMIT_AS, limit)});
    }

    // The least memory that a small drawing can be made with, to the megabyte.
    rlim_t leastMemory() const
    {
        static rlim_t least = 0;
        if (least != 0)
            return least;
        rlim_t enough = 1024 * megabyte;
        EXPECT_EQ(drawWithMemory(enough, smallGraph()).status, 0);
        for (rlim_t step = enough / 2; step >= megabyte; step /= 2) {
            if (drawWithMemory(enough - step, smallGraph()).status == 0)
                enough -= step;
        }
        writeFile(output(), oldContent);
        least = enough;
        return least;
    }
};

ORR_FOR_EACH_FORMAT(Resources);

} // namespace

TEST_P(Resources, too_little_memory_to_start_with_is_told)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizers take more address space than any limit";
#endif
    const rlim_t least = leastMemory();
    for (const rlim_t less : {2, 8}) {
        EXPECT_TRUE(
            failedWith(drawWithMemory(least - less * megabyte, smallGraph()), "Out of memory\n"));
        EXPECT_TRUE(isUntouched());
    }
}

TEST_P(Resources, memory_that_ends_during_the_drawing_is_told)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizers take more address space than any limit";
#endif
    const QByteArray graph = largeGraph(30'000);
    const QByteArray whole = drawing(graph);
    const rlim_t least = leastMemory();
    for (const rlim_t more : {0, 3, 8, 20}) {
        const ProgramRun drawn = drawWithMemory(least + more * megabyte, graph);
        EXPECT_TRUE(more != 0 || drawn.status == 1) << "the graph is too small for this test";
        expectDrawingOrMessage(drawn, whole);
        writeFile(output(), oldContent);
    }
}

// The toolkit gives no picture where there is no memory for one, as for one that is spoiled. A
// drawing without it would be half of one.
TEST_P(Resources, memory_that_ends_in_a_picture_of_a_rich_text_is_told)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizers take more address space than any limit";
#endif
    const QByteArray graph = drawingWithPictures();
    const QStringList replay{u"-T"_s, format(), u"-o"_s, output()};
    ASSERT_TRUE(succeeded(run({.arguments = replay, .input = graph})));
    const QByteArray whole = fileContent(output());
    const rlim_t least = leastMemory();
    int failures = 0;
    for (rlim_t more = 0; more <= 24; more += 3) {
        writeFile(output(), oldContent);
        const ProgramRun drawn = run({.arguments = replay,
                                      .input = graph,
                                      .before = limited(RLIMIT_AS, least + more * megabyte)});
        SCOPED_TRACE(more);
        expectDrawingOrMessage(drawn, whole);
        EXPECT_EQ(drawn.errors, drawn.status == 0 ? "" : "Out of memory\n");
        failures += drawn.status != 0;
    }
    // Only SVG looks at the picture itself.
    EXPECT_GE(failures, format() == "svg"_L1 ? 2 : 0);
}

TEST_P(Resources, too_few_descriptors_leave_the_old_or_the_new)
{
    const QByteArray whole = drawing(smallGraph());
    int failures = 0;
    // With less than four the program itself can't be loaded.
    for (rlim_t count = 4; count <= 24; ++count) {
        const ProgramRun drawn = run({.arguments = arguments(),
                                      .input = smallGraph(),
                                      .before = limited(RLIMIT_NOFILE, count)});
        failures += drawn.status != 0;
        if (drawn.status == 0) {
            EXPECT_TRUE(fileContent(output()).endsWith(whole.last(2))) << count;
            writeFile(output(), oldContent);
        } else {
            EXPECT_TRUE(isUntouched()) << count;
        }
        EXPECT_EQ(allFiles(), QStringList(output())) << count;
    }
    EXPECT_GT(failures, 0);
    EXPECT_LT(failures, 19);
}

TEST_P(Resources, no_font_at_all_is_told)
{
    writeFile(u"fonts.conf"_s, R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig><cachedir>/dev/null/cache</cachedir></fontconfig>
)");
    const ProgramRun drawn = run({.arguments = arguments(),
                                  .input = smallGraph(),
                                  .environment = {{u"FONTCONFIG_FILE"_s, path(u"fonts.conf"_s)}}});
    EXPECT_EQ(drawn.status, 1);
    EXPECT_EQ(drawn.errors, "Unable to find a font\n");
    EXPECT_EQ(fileContent(output()), oldContent);
}
