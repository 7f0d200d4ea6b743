#include "output/visio/visio_element.h"

#include <algorithm>
#include <array>

namespace ORR::Graph {

void VisioElement::settle(LatePart &part)
{
    if (part.at < 0)
        part.at = body.size();
}

qsizetype VisioElement::size() const
{
    qsizetype sum = body.size();
    for (const LatePart *part : {&connections, &ends, &container})
        sum += part->head.size() + part->content.size() + part->tail.size();
    return sum;
}

void VisioElement::appendTo(QByteArray &document) const
{
    std::array late{&connections, &ends, &container};
    std::stable_sort(late.begin(), late.end(),
                     [](const LatePart *a, const LatePart *b) { return a->at < b->at; });
    const QByteArrayView written = body.markup();
    qsizetype done = 0;
    for (const LatePart *part : late) {
        if (part->at < 0)
            continue;
        document.append(written.sliced(done, part->at - done));
        done = part->at;
        document.append(part->head);
        document.append(part->content);
        document.append(part->tail);
    }
    document.append(written.sliced(done));
}

} // namespace ORR::Graph
