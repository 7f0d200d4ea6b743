// Calls on the device of every format in any order, with paint that is missing, texts of nothing
// and lists of no points: each comes to its end, twice the same. What no engine and no replay calls
// shows here.
#include "mutation/drawing_folder.h"
#include "mutation/mutator.h"

#include "graph/dot_graph.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

using Graph::Device;

constexpr int rounds = 40;
constexpr int callsOfDrawing = 60;

class Caller
{
public:
    Caller(Device *drawingDevice, int seed);

    // A whole drawing. One in five begins late or never.
    void draw();

private:
    // What a call may take, chosen in this order ahead of it: the order of arguments is not fixed.
    struct Choice
    {
        QList<QPoint> points;
        QPoint a;
        QPoint b;
        QPoint c;
        int width;
        int height;
        Device::Pen *pen;
        Device::Color *fill;
        Device::Text *text;
        Graph::DotNode *tail;
        Graph::DotNode *head;
        Graph::DotEdge *edge;
    };

    Choice choice();
    bool oneIn(int times) { return random.below(times) == 0; }
    int number() { return static_cast<int>(random.below(130)) - 15; }
    QPoint point() { return {number(), number()}; }
    QList<QPoint> points();
    Device::Color *fill();
    Device::Color *gradient();
    Device::Pen *pen();
    Device::Text *text();

    void drawSomething(const Choice &with);
    void drawPath(const Choice &with);
    void addToPath(Device::Path *path, const Choice &with);
    void markObject(const Choice &with);

    Device *device;
    Mutator random;
    Graph::DotGraph graph;
    Graph::DotSubgraph *cluster = graph.createCluster(graph.root(), {}, u"cluster"_s);
    QList<Graph::DotNode *> nodes;
    QList<Graph::DotEdge *> edges;
};

Caller::Caller(Device *drawingDevice, int seed)
    : device(drawingDevice),
      random(static_cast<quint64>(seed)), nodes{graph.createNode(cluster, {}, u"a"_s),
                                                graph.createNode(cluster, {}, u"b"_s),
                                                graph.createNode(graph.root(), {}, u"c"_s)},
      edges{graph.createEdge(nodes[0], nodes[1], {}), graph.createEdge(nodes[1], nodes[2], {})}
{
}

void Caller::draw()
{
    if (!oneIn(5))
        device->begin(100, 80);
    for (int i = 0; i < callsOfDrawing; ++i) {
        const Choice with = choice();
        if (oneIn(100))
            device->begin(with.width, with.height);
        else if (oneIn(3))
            markObject(with);
        else
            drawSomething(with);
    }
    device->end();
}

Caller::Choice Caller::choice()
{
    return {points(),
            point(),
            point(),
            point(),
            number(),
            number(),
            pen(),
            fill(),
            text(),
            nodes[random.below(nodes.size())],
            oneIn(5) ? nullptr : nodes[random.below(nodes.size())],
            edges[random.below(edges.size())]};
}

QList<QPoint> Caller::points()
{
    QList<QPoint> list(random.below(8));
    for (QPoint &one : list)
        one = point();
    return list;
}

Device::Color *Caller::fill()
{
    static const QStringList names{u"red"_s, u"#12345678"_s, u""_s, u"no colour"_s, u"#"_s};
    switch (random.below(4)) {
    case 0:
        return nullptr;
    case 1:
        return gradient();
    default:
        return device->color(names[random.below(names.size())]);
    }
}

Device::Color *Caller::gradient()
{
    QStringList names;
    QList<double> offsets;
    for (qsizetype left = random.below(4); left > 0; --left) {
        names.append(oneIn(3) ? u""_s : u"blue"_s);
        offsets.append(number() / 50.0);
    }
    const QPoint from = point();
    const QPoint to = point();
    const int radius = number();
    if (oneIn(2))
        return device->linearGradient(from, to, names, offsets);
    return device->radialGradient(from, 2.0, to, radius, names, offsets);
}

Device::Pen *Caller::pen()
{
    if (oneIn(4))
        return nullptr;
    Device::Color *color = oneIn(3) ? nullptr : device->color(u"green"_s);
    const int style = static_cast<int>(random.below(4));
    return device->pen(color, style, static_cast<int>(random.below(5)));
}

Device::Text *Caller::text()
{
    static const QStringList strings{u""_s, u"a"_s, u"a\n\nb"_s, u"<b>a</b>"_s, u"\n"_s, u" "_s};
    if (oneIn(6))
        return nullptr;
    const double size = number() / 4.0;
    Device::Font *font = oneIn(3) ? nullptr : device->font({}, size, 3);
    Device::Color *color = oneIn(3) ? nullptr : device->color(u"green"_s);
    return device->text(strings[random.below(strings.size())], font, color);
}

void Caller::drawSomething(const Choice &with)
{
    switch (random.below(8)) {
    case 0:
        device->drawBezier(with.points, with.pen, with.fill);
        break;
    case 1:
        device->drawEllipse(with.a, with.width, with.height, with.pen, with.fill);
        break;
    case 2:
        device->drawPolyline(with.points, with.pen);
        break;
    case 3:
        device->drawPolygon(with.points, with.pen, with.fill);
        break;
    case 4:
        device->drawRect(with.a, with.b, with.width, with.pen, with.fill);
        break;
    case 5:
        device->drawText(with.a, with.text);
        break;
    case 6:
        device->drawRichText(with.a, with.text);
        break;
    default:
        drawPath(with);
        break;
    }
}

void Caller::drawPath(const Choice &with)
{
    Device::Path *path = oneIn(9) ? nullptr : device->createPath();
    for (qsizetype left = random.below(6); path && left > 0; --left)
        addToPath(path, choice());
    device->drawPath(path, with.pen, with.fill);
}

void Caller::addToPath(Device::Path *path, const Choice &with)
{
    switch (random.below(6)) {
    case 0:
        path->moveTo(with.a);
        break;
    case 1:
        path->lineTo(with.a);
        break;
    case 2:
        path->closeSubpath();
        break;
    case 3:
        path->cubicTo(with.a, with.b, with.c);
        break;
    case 4:
        path->quadTo(with.a, with.b);
        break;
    default:
        path->arcTo(with.a, with.b, 3.0 * with.width, 3.0 * with.height);
        break;
    }
}

void Caller::markObject(const Choice &with)
{
    switch (random.below(7)) {
    case 0:
        device->beginNode(with.tail);
        break;
    case 1:
        device->beginEdge(with.edge);
        break;
    case 2:
        device->beginCluster(cluster, oneIn(2));
        break;
    case 3:
        device->endNode();
        break;
    case 4:
        device->endEdge();
        break;
    case 5:
        device->endCluster();
        break;
    default:
        device->connect(with.edge, with.tail, with.head);
        break;
    }
}

} // namespace

TEST(Calls, of_any_kind_and_order_are_drawn_and_twice_the_same)
{
    const DrawingFolder folder;
    for (const QString &name : Drawing::formatNames()) {
        const Drawing::Format format = *Drawing::chooseFormat(name, {});
        int drawn = 0;
        for (int seed = 1; seed <= rounds; ++seed) {
            SCOPED_TRACE(name.toStdString() + ", seed " + std::to_string(seed));
            const auto draw = [&](Device *device) { Caller(device, seed).draw(); };
            const QByteArray file = folder.drawnFile(format, draw);
            EXPECT_EQ(folder.drawnFile(format, draw), file);
            drawn += file.isEmpty() ? 0 : 1;
        }
        EXPECT_GE(drawn, rounds / 2) << name.toStdString();
    }
}
