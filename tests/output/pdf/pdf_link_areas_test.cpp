#include "output/pdf/pdf_link_areas.h"

#include "support/golden.h"

using namespace ORR::Graph;

namespace {

// The only area.
QRectF areaOf(const PdfLinkAreas &areas)
{
    EXPECT_EQ(areas.areas().size(), 1);
    return areas.areas().value(0).box;
}

} // namespace

TEST(PdfLinkAreas, hold_all_that_an_object_draws)
{
    PdfLinkAreas areas;
    areas.begin("a", false);
    areas.add(PdfLinkAreas::ShapeMark, {10, 10, 20, 5});
    areas.add(PdfLinkAreas::TextMark, {12, 12, 30, 2});
    areas.end();
    EXPECT_EQ(areaOf(areas), QRectF(10, 10, 32, 5));
}

TEST(PdfLinkAreas, leave_out_lines_unless_there_is_nothing_else)
{
    PdfLinkAreas areas;
    areas.begin("a", false);
    areas.add(PdfLinkAreas::LineMark, {0, 5, 100, 0});
    EXPECT_EQ(areaOf(areas), QRectF(0, 5, 100, 0));
    areas.add(PdfLinkAreas::LineMark, {50, 0, 0, 100});
    EXPECT_EQ(areaOf(areas), QRectF(0, 0, 100, 100));
    areas.add(PdfLinkAreas::ShapeMark, {1, 2, 3, 4});
    EXPECT_EQ(areaOf(areas), QRectF(1, 2, 3, 4));
}

TEST(PdfLinkAreas, are_the_texts_of_an_edge)
{
    PdfLinkAreas areas;
    areas.begin("a", true);
    areas.add(PdfLinkAreas::LineMark, {0, 0, 100, 100});
    areas.add(PdfLinkAreas::ShapeMark, {98, 98, 4, 4});
    EXPECT_EQ(areaOf(areas), QRectF(0, 0, 102, 102));
    areas.add(PdfLinkAreas::TextMark, {40, 40, 20, 10});
    EXPECT_EQ(areaOf(areas), QRectF(40, 40, 20, 10));
}

TEST(PdfLinkAreas, belong_to_the_innermost_object)
{
    PdfLinkAreas areas;
    areas.add(PdfLinkAreas::ShapeMark, {0, 0, 1000, 1000});
    areas.begin("outer", false);
    areas.add(PdfLinkAreas::ShapeMark, {0, 0, 100, 100});
    areas.begin("", false);
    areas.add(PdfLinkAreas::ShapeMark, {0, 0, 200, 200});
    areas.end();
    areas.begin("inner", false);
    areas.add(PdfLinkAreas::ShapeMark, {10, 10, 1, 1});
    areas.end();
    areas.begin("nothing", false);
    areas.end();
    areas.end();
    areas.end();
    areas.add(PdfLinkAreas::ShapeMark, {0, 0, 300, 300});
    const QList<PdfLinkAreas::Area> all = areas.areas();
    ASSERT_EQ(all.size(), 2);
    EXPECT_EQ(all.at(0).address, "outer");
    EXPECT_EQ(all.at(0).box, QRectF(0, 0, 100, 100));
    EXPECT_EQ(all.at(1).address, "inner");
}
