#include "output/pdf/pdf_objects.h"

#include "support/golden.h"

using namespace ORR::Graph;

namespace {

// A file of these objects, from 1 on, the first of which is the root.
QByteArray fileOf(const QByteArrayList &contents)
{
    QByteArray file = "%PDF-1.6\n";
    QByteArray table =
        "xref\n0 " + QByteArray::number(contents.size() + 1) + "\n0000000000 65535 f \n";
    for (qsizetype i = 0; i < contents.size(); ++i) {
        table += QByteArray::number(file.size()).rightJustified(10, '0') + " 00000 n \n";
        file += QByteArray::number(i + 1) + " 0 obj\n" + contents.at(i) + "\nendobj\n";
    }
    const QByteArray place = QByteArray::number(file.size());
    return file + table + "trailer\n<<\n/Size " + QByteArray::number(contents.size() + 1)
        + "\n/Info 2 0 R\n/Root 1 0 R\n>>\nstartxref\n" + place + "\n%%EOF\n";
}

} // namespace

TEST(PdfObjects, are_those_of_the_file)
{
    const auto objects =
        PdfObjects::read(fileOf({"<</Pages 3 0 R>>", "<<>>", "<</Kids \n[\n12 0 R 4 0 R]>>"}));
    ASSERT_TRUE(objects);
    EXPECT_EQ(objects->root(), 1);
    EXPECT_EQ(objects->info(), 2);
    EXPECT_EQ(objects->content(1), "<</Pages 3 0 R>>");
    EXPECT_EQ(objects->content(0), "");
    EXPECT_EQ(objects->content(4), "");
    EXPECT_EQ(objects->reference(1, "/Pages"), 3);
    EXPECT_EQ(objects->reference(3, "/Kids"), 12);
    EXPECT_EQ(objects->reference(3, "/Pages"), 0);
    EXPECT_EQ(objects->reference(9, "/Pages"), 0);
}

TEST(PdfObjects, are_written_and_read_again)
{
    auto objects = PdfObjects::read(fileOf({"<<>>", "<</Old 1>>"}));
    ASSERT_TRUE(objects);
    objects->setContent(2, "<</New (endobj 7 0 obj xref)>>");
    EXPECT_EQ(objects->add("<< /Length 3 >>\nstream\n\n\n\nendstream"), 3);
    const auto again = PdfObjects::read(objects->written());
    ASSERT_TRUE(again);
    EXPECT_EQ(again->root(), 1);
    EXPECT_EQ(again->info(), 2);
    EXPECT_EQ(again->content(1), "<<>>");
    EXPECT_EQ(again->content(2), "<</New (endobj 7 0 obj xref)>>");
    EXPECT_EQ(again->content(3), "<< /Length 3 >>\nstream\n\n\n\nendstream");
    EXPECT_EQ(again->written(), objects->written());
}

TEST(PdfObjects, that_are_equal_have_one_identifier)
{
    const auto one = PdfObjects::read(fileOf({"<<>>", "<</A 1>>"}));
    const auto other = PdfObjects::read(fileOf({"<<>>", "<</A 2>>"}));
    ASSERT_TRUE(one && other);
    const auto identifier = [](const PdfObjects &objects) {
        const QByteArray file = objects.written();
        return file.sliced(file.indexOf("/ID ["), 74);
    };
    EXPECT_EQ(identifier(*one).count('<'), 2);
    EXPECT_EQ(identifier(*one), identifier(*one));
    EXPECT_NE(identifier(*one), identifier(*other));
}

TEST(PdfObjects, are_not_there_where_the_file_is_something_else)
{
    const QByteArray good = fileOf({"<<>>", "<<>>"});
    EXPECT_TRUE(PdfObjects::read(good));
    EXPECT_FALSE(PdfObjects::read(""));
    EXPECT_FALSE(PdfObjects::read("startxref"));
    EXPECT_FALSE(PdfObjects::read("startxref\n5\n"));
    for (const auto &[what, instead] :
         {std::pair<const char *, const char *>{"startxref\n", "startxref\n9"},
          {"startxref\n", "startxref\nx"},
          {"xref\n0 3", "xref\n1 3"},
          {"xref\n0 3", "xref\n0 9"},
          {"xref\n0 3", "xref\n0 0"},
          {"xref\n0 3", "stream"},
          {"0000000009 00000 n", "0000009999 00000 n"},
          {"trailer", "trail"}}) {
        QByteArray bad = good;
        bad.replace(what, instead);
        ASSERT_NE(bad, good) << what;
        EXPECT_FALSE(PdfObjects::read(bad)) << what << " as " << instead;
    }
    for (qsizetype i = 0; i < good.size(); ++i)
        (void)PdfObjects::read(good.first(i)); // whatever comes of it, nothing else is read
}
