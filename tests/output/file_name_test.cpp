#include "output/files/file_name.h"

#include "support/golden.h"

#include <QSet>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

TEST(FileName, utf8_is_read_as_such)
{
    EXPECT_EQ(fileNameText("gr\xC3\xB6\xC3\x9F"
                           "e \xF0\x9F\x98\x80.dot"),
              u"größe \U0001F600.dot"_s);
    EXPECT_EQ(fileNameBytes(u"größe \U0001F600.dot"_s),
              "gr\xC3\xB6\xC3\x9F"
              "e \xF0\x9F\x98\x80.dot"_ba);
}

TEST(FileName, suffix_is_seen_in_any_name)
{
    EXPECT_TRUE(fileNameText("\xFF\xC3.svg").endsWith(".svg"_L1));
}

TEST(FileName, every_name_comes_back_and_none_is_that_of_another)
{
    QByteArrayList names{"",
                         ":x",
                         "\xEF\xBB\xBF"
                         "a",
                         "\xEF\xBF\xBD",
                         "\xC3\xB6\xFF",
                         "\xED\xB3\xBF", // a lone surrogate, which is no UTF-8
                         "\xED\xA0\xBD\xED\xB8\x80", // a pair of them
                         "\xF0\x9F\x98",
                         "\xF0\x9F\x98\x80",
                         "\xF8\x88\x80\x80\x80",
                         "\xC0\xAF"};
    for (int byte = 1; byte < 256; ++byte) {
        names.append(QByteArray(1, static_cast<char>(byte)));
        names.append("a" + QByteArray(1, static_cast<char>(byte)) + "\xC3\xB6");
    }
    QSet<QString> texts;
    for (const QByteArray &name : std::as_const(names)) {
        EXPECT_EQ(fileNameBytes(fileNameText(name)), name) << name.toHex().toStdString();
        texts.insert(fileNameText(name));
    }
    EXPECT_EQ(texts.size(), names.size());
}
