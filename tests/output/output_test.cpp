#include "output/output.h"

#include "output/file.h"
#include "output/output_text.h"
#include "support/golden.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

TEST(Output, in_memory_takes_the_place_of_what_stood_there)
{
    QByteArray bytes = "what stood there";
    Output output(&bytes);
    EXPECT_TRUE(output.isOpen());
    EXPECT_TRUE(output.write("ab"));
    EXPECT_TRUE(output.write("\0c"_ba));
    EXPECT_TRUE(output.commit());
    EXPECT_EQ(bytes, "ab\0c"_ba);
}

TEST(Output, in_memory_takes_nothing_once_it_is_committed)
{
    QByteArray bytes;
    Output output(&bytes);
    ASSERT_TRUE(output.write("a") && output.commit());
    EXPECT_FALSE(output.isOpen());
    EXPECT_FALSE(output.write("b"));
    EXPECT_FALSE(output.commit());
    EXPECT_EQ(bytes, "a");
}

TEST(Output, in_memory_that_is_not_committed_is_empty)
{
    QByteArray bytes = "what stood there";
    {
        Output output(&bytes);
        ASSERT_TRUE(output.write("half"));
    }
    EXPECT_EQ(bytes, "");
}

TEST(Output, without_memory_cannot_be_opened)
{
    Output output(static_cast<QByteArray *>(nullptr));
    EXPECT_FALSE(output.isOpen());
    EXPECT_FALSE(output.write("a"));
    EXPECT_FALSE(output.commit());
    EXPECT_FALSE(writeOutput(static_cast<QByteArray *>(nullptr), ""));
}

TEST(Output, in_memory_opens_no_file_of_its_name)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(u"drawing.svg"_s);
    QByteArray bytes;
    EXPECT_TRUE(writeOutput({&bytes, name}, "a"));
    EXPECT_EQ(bytes, "a");
    EXPECT_FALSE(QFile::exists(name));
}

TEST(Output, text_of_any_length_is_the_same_in_a_file_and_in_memory)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(u"text"_s);
    QByteArray bytes;
    const auto write = [](const OutputTarget &target) {
        OutputText text(target);
        for (int i = 0; i < 20000; ++i)
            text << i << " and " << i / 7.0 << "\n";
        text << QByteArray(200'000, 'x');
        return text.finish();
    };
    EXPECT_TRUE(write(name));
    EXPECT_TRUE(write(&bytes));
    EXPECT_GT(bytes.size(), 500'000);
    EXPECT_TRUE(readTestFile(name) == bytes);
}

TEST(Output, picture_in_memory_has_the_format_of_its_name)
{
    const auto picture = [](const QString &name) {
        QByteArray bytes;
        File device({&bytes, name});
        device.begin(4, 3);
        EXPECT_EQ(device.end(), QString());
        return bytes;
    };
    EXPECT_TRUE(picture(u"drawing.png"_s).startsWith("\x89PNG"));
    EXPECT_TRUE(picture(u"drawing.jpg"_s).startsWith("\xFF\xD8"));
    EXPECT_EQ(QImage::fromData(picture(u"drawing.png"_s)).pixel(0, 0), qRgba(0, 0, 0, 0));
}
