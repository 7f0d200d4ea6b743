#include "support/recording_device.h"

#include "graph/numbers.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

struct RecordedNode : Device::Node
{
    explicit RecordedNode(const QString &nodeId) : id(nodeId) { }
    QString id;
};

struct RecordedEdge : Device::Edge
{
    explicit RecordedEdge(const QString &edgeName) : name(edgeName) { }
    QString name;
};

class RecordedPath : public Device::Path
{
public:
    QStringList steps;

    void moveTo(const QPointF &p) override { steps += u"M "_s + show(p); }
    void lineTo(const QPointF &p) override { steps += u"L "_s + show(p); }
    void closeSubpath() override { steps += u"Z"_s; }
    void cubicTo(const QPointF &c1, const QPointF &c2, const QPointF &end) override
    {
        steps += u"C %1 %2 %3"_s.arg(show(c1), show(c2), show(end));
    }
    void quadTo(const QPointF &c, const QPointF &end) override
    {
        steps += u"Q %1 %2"_s.arg(show(c), show(end));
    }
    void arcTo(const QPointF &topLeft, const QPointF &bottomRight, double start,
               double sweep) override
    {
        steps += u"A %1 %2 %3 %4"_s.arg(show(topLeft), show(bottomRight), numberText(start),
                                        numberText(sweep));
    }

private:
    static QString show(const QPointF &p) { return numberText(p.x()) + u',' + numberText(p.y()); }
};

QString show(QPoint p)
{
    return u"%1,%2"_s.arg(p.x()).arg(p.y());
}

QString show(const QList<QPoint> &points)
{
    QStringList list;
    for (const QPoint p : points)
        list += show(p);
    return list.join(u' ');
}

QString show(const Device::Color *color)
{
    if (!color)
        return u"none"_s;
    if (color->type() == Device::Color::Solid)
        return color->name(0);
    QString stops;
    for (int i = 0; i < color->stopCount(); ++i)
        stops += u" %1@%2"_s.arg(color->name(i), numberText(color->offset(i)));
    const bool linear = color->type() == Device::Color::Linear;
    return u"%1(%2,%3 %4,%5%6)"_s.arg(linear ? u"linear"_s : u"radial"_s,
                                      numberText(color->start().x()),
                                      numberText(color->start().y()), numberText(color->stop().x()),
                                      numberText(color->stop().y()), stops);
}

QString show(const Device::Pen *pen)
{
    if (!pen)
        return u"none"_s;
    static const QStringList styles{u"solid"_s, u"dashed"_s, u"dotted"_s};
    return u"%1 %2 %3"_s.arg(show(pen->color()), styles.value(pen->style())).arg(pen->width());
}

QString paint(const Device::Pen *pen, const Device::Color *fill)
{
    return u" pen %1 fill %2"_s.arg(show(pen), show(fill));
}

QString nameOf(const Device::Node *node)
{
    const auto *recorded = dynamic_cast<const RecordedNode *>(node);
    return recorded ? recorded->id : u"(none)"_s;
}

} // namespace

RecordingDevice::RecordingDevice(bool withObjects, bool withExpanders)
    : objects(withObjects), expanders(withExpanders)
{
}

QStringList RecordingDevice::callsOf(const QString &word) const
{
    QStringList found;
    for (const QString &line : lines) {
        if (line == word || line.startsWith(word + u' '))
            found += line;
    }
    return found;
}

void RecordingDevice::begin(int width, int height)
{
    lines += u"begin %1 %2"_s.arg(width).arg(height);
}

QString RecordingDevice::end()
{
    lines += u"end"_s;
    return result;
}

void RecordingDevice::drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    lines += u"bezier "_s + show(points) + paint(pen, fill);
}

void RecordingDevice::drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill)
{
    lines += u"ellipse %1 radii %2,%3"_s.arg(show(centre)).arg(rx).arg(ry) + paint(pen, fill);
}

void RecordingDevice::drawPolyline(const QList<QPoint> &points, Pen *pen)
{
    lines += u"polyline %1 pen %2"_s.arg(show(points), show(pen));
}

void RecordingDevice::drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    lines += u"polygon "_s + show(points) + paint(pen, fill);
}

void RecordingDevice::drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen,
                               Color *fill)
{
    lines += u"rect %1 %2 radius %3"_s.arg(show(topLeft), show(bottomRight)).arg(radius)
        + paint(pen, fill);
}

void RecordingDevice::recordText(const QString &word, QPoint topLeft, const Text *drawn)
{
    const QString style =
        drawn->font()->style() ? u" style %1"_s.arg(drawn->font()->style()) : u""_s;
    lines += u"%1 %2 \"%3\" %4 %5%6 %7"_s.arg(
        word, show(topLeft), drawn->text(), drawn->font()->family(),
        QString::number(drawn->font()->size()), style, show(drawn->color()));
}

void RecordingDevice::drawText(QPoint topLeft, Text *drawn)
{
    recordText(u"text"_s, topLeft, drawn);
}

void RecordingDevice::drawRichText(QPoint topLeft, Text *drawn)
{
    recordText(u"richtext"_s, topLeft, drawn);
}

Device::Path *RecordingDevice::createPath()
{
    return new RecordedPath;
}

void RecordingDevice::drawPath(Path *path, Pen *pen, Color *fill)
{
    if (const auto *recorded = dynamic_cast<const RecordedPath *>(path))
        lines += u"path "_s + recorded->steps.join(u' ') + paint(pen, fill);
    delete path;
}

void RecordingDevice::endCluster()
{
    lines += u"endCluster"_s;
}

void RecordingDevice::endEdge()
{
    lines += u"endEdge"_s;
}

void RecordingDevice::endNode()
{
    lines += u"endNode"_s;
}

Device::Cluster *RecordingDevice::createCluster(DotSubgraph *subgraph)
{
    lines += u"beginCluster "_s + subgraph->id;
    return new Cluster;
}

Device::Edge *RecordingDevice::createEdge(DotEdge *edge)
{
    const QString name = edge->tail->id + u"->"_s + edge->head->id;
    lines += u"beginEdge "_s + name;
    return new RecordedEdge(name);
}

Device::Node *RecordingDevice::createNode(DotNode *node)
{
    lines += u"beginNode "_s + (node ? node->id : u"(none)"_s);
    return new RecordedNode(node ? node->id : u"(none)"_s);
}

void RecordingDevice::connectEdge(Edge *edge, Node *tail, Node *head)
{
    const auto *recorded = dynamic_cast<const RecordedEdge *>(edge);
    lines += u"connect %1 %2 %3"_s.arg(recorded ? recorded->name : u"(none)"_s, nameOf(tail),
                                       nameOf(head));
}
