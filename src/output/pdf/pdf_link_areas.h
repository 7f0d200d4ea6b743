#pragma once

#include <QByteArray>
#include <QList>
#include <QRectF>

#include <optional>

namespace ORR::Graph {

// Where on the page the objects lie that link to something. Objects nest; what is drawn belongs to
// the innermost one that is open.
class PdfLinkAreas
{
public:
    // What is drawn. A line or a free outline may lie in a box that is full of other things.
    enum Mark { TextMark, ShapeMark, LineMark };

    struct Area
    {
        QRectF box;
        QByteArray address;
    };

    // An object begins or ends. Without an address it links to nothing, not even to what the
    // objects around it do. An end without a beginning is none.
    void begin(const QByteArray &address, bool isEdge);
    void end();

    // Something is drawn within that box.
    void add(Mark mark, const QRectF &box);

    // Those of all objects that have drawn something, in the order of their beginnings, so that
    // what lies within others comes after them. A node or a cluster is as large as its texts and
    // shapes, or else its lines; an edge as its texts, or else all of it.
    QList<Area> areas() const;

private:
    using Box = std::optional<QRectF>;
    struct Linked
    {
        QByteArray address;
        bool isEdge = false;
        Box texts = {};
        Box shapes = {};
        Box lines = {};
    };

    static void unite(Box *box, const Box &other);
    static Box boxOf(const Linked &object);

    static constexpr qsizetype none = -1;
    QList<Linked> linked;
    QList<qsizetype> open; // by their places in `linked`
};

} // namespace ORR::Graph
