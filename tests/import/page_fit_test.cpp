#include "companion/produce/page_fit.h"

#include "companion/produce/graph_text.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;

namespace {

// So many rows below each other.
QByteArray stackOf(int most)
{
    GraphText text;
    text.nodeDefaults(Attributes().text("shape", u"rectangle"));
    for (int i = 0; i < most; ++i)
        text.node(Attributes().label(u"row"));
    return text.finished();
}

const PictureRequest stackRequest{.engine = QStringLiteral("gfdecl"), .width = 300, .height = 300};

} // namespace

TEST(PageFit, is_the_whole_if_it_keeps_the_page)
{
    const PageFit fit = fitToPage(stackRequest, 5, stackOf);
    EXPECT_EQ(fit.most, 5);
    EXPECT_TRUE(fit.fits);
}

TEST(PageFit, is_nearly_the_most_that_keeps_the_page)
{
    const PageFit fit = fitToPage(stackRequest, 1000, stackOf);
    EXPECT_TRUE(fit.fits);
    EXPECT_LE(fit.size.height(), 300);
    EXPECT_GT(fit.size.height(), 250);
    EXPECT_TRUE(pageNotes(fit, stackRequest, QStringLiteral("why")).isEmpty());
}

TEST(PageFit, is_the_smallest_where_nothing_keeps_the_page)
{
    PictureRequest tiny = stackRequest;
    tiny.width = tiny.height = 5;
    const PageFit fit = fitToPage(tiny, 1000, stackOf);
    EXPECT_EQ(fit.most, 1);
    EXPECT_FALSE(fit.fits);
    EXPECT_TRUE(pageNotes(fit, tiny, QStringLiteral("why")).value(0).endsWith(u"not 5 x 5: why."));
}
