#include "companion/produce/chart_disc.h"

#include "graph/numbers.h"

#include <algorithm>

namespace ORR::Companion {

using namespace Qt::StringLiterals;

namespace {

// The greatest diameter with which the page is no larger than that; 0 if there is none.
int largestDisc(const ChartKey &key, QSize page, int margin)
{
    int fits = 0;
    int tooLarge = std::min(page.width(), page.height()) - 2 * margin + 1;
    while (tooLarge - fits > 1) {
        const int middle = (fits + tooLarge) / 2;
        const QSize size = key.pageOf(QRect(margin, margin, middle, middle));
        const bool isKept = size.width() <= page.width() && size.height() <= page.height();
        (isKept ? fits : tooLarge) = middle;
    }
    return fits;
}

} // namespace

DiscRoom discRoom(const TreeJob &job, const ShownTree &tree, const TreePaint &paint,
                  const QString &size, int margin)
{
    const QSize page(Graph::truncated(job.request.width), Graph::truncated(job.request.height));
    const KeyHead head = {titleWithWeight(job, tree), meaningWords(job, size)};
    ChartKey beside(ChartKey::Right, head, paint.entries(), page.width() / 3);
    ChartKey below(ChartKey::Bottom, head, paint.entries(), page.width());
    const int besideDiameter = largestDisc(beside, page, margin);
    const int belowDiameter = largestDisc(below, page, margin);
    const int side = std::min(page.width(), page.height());
    if (std::max(besideDiameter, belowDiameter) < side / 3) {
        beside.leaveOut();
        const int diameter = largestDisc(beside, page, margin);
        return {std::move(beside), diameter, {u"the page has no room for the legend"_s}};
    }
    if (besideDiameter >= belowDiameter)
        return {std::move(beside), besideDiameter};
    return {std::move(below), belowDiameter};
}

} // namespace ORR::Companion
