#include "output/pdf/pdf_link_areas.h"

#include <algorithm>

namespace ORR::Graph {

void PdfLinkAreas::begin(const QByteArray &address, bool isEdge)
{
    open.append(address.isEmpty() ? none : linked.size());
    if (!address.isEmpty())
        linked.append({address, isEdge});
}

void PdfLinkAreas::end()
{
    if (!open.isEmpty())
        open.removeLast();
}

void PdfLinkAreas::add(Mark mark, const QRectF &box)
{
    if (open.isEmpty() || open.constLast() == none)
        return;
    Linked &object = linked[open.constLast()];
    unite(mark == TextMark        ? &object.texts
              : mark == ShapeMark ? &object.shapes
                                  : &object.lines,
          box);
}

QList<PdfLinkAreas::Area> PdfLinkAreas::areas() const
{
    QList<Area> areas;
    for (const Linked &object : linked) {
        if (const Box box = boxOf(object))
            areas.append({*box, object.address});
    }
    return areas;
}

// A line has a box without a width, which the toolkit's own operation takes for nothing.
void PdfLinkAreas::unite(Box *box, const Box &other)
{
    if (!*box || !other) {
        *box = *box ? *box : other;
        return;
    }
    (*box)->setCoords(
        std::min((*box)->left(), other->left()), std::min((*box)->top(), other->top()),
        std::max((*box)->right(), other->right()), std::max((*box)->bottom(), other->bottom()));
}

PdfLinkAreas::Box PdfLinkAreas::boxOf(const Linked &object)
{
    Box box = object.texts;
    if (!object.isEdge)
        unite(&box, object.shapes);
    if (box)
        return box;
    unite(&box, object.shapes);
    unite(&box, object.lines);
    return box;
}

} // namespace ORR::Graph
