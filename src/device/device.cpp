#include "device/device.h"

#include "device/text_table.h"
#include "graph/limits.h"
#include "graph/numbers.h"

#include <algorithm>
#include <deque>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

constexpr int piecesPerCurve = 10;
constexpr int pointsPerCurve = 3; // two control points and the end

QPointF between(QPointF a, QPointF b, double t)
{
    return a + (b - a) * t;
}

// The point at `t` of the cubic from `p[0]` to `p[3]`, by de Casteljau's repeated interpolation.
QPointF pointOnCubic(const QPoint *p, double t)
{
    const QPointF a = between(p[0], p[1], t);
    const QPointF b = between(p[1], p[2], t);
    const QPointF c = between(p[2], p[3], t);
    return between(between(a, b, t), between(b, c, t), t);
}

QString gradientKey(const QString &type, std::initializer_list<double> geometry,
                    const QStringList &names, const QList<double> &offsets)
{
    QStringList key{type};
    for (const double value : geometry)
        key.append(numberText(value));
    key.append(names);
    for (const double offset : offsets)
        key.append(numberText(offset));
    return key.join(u' ');
}

template <typename List>
List keptStops(const List &stops)
{
    return stops.first(std::min(stops.size(), Limits::mostGradientStops));
}

// The value stored under `key`, made from the arguments in the pool when there is none.
template <typename Value, typename Key, typename... Arguments>
Value *interned(QHash<Key, Value *> &values, std::deque<Value> &pool, const Key &key,
                const Arguments &...arguments)
{
    Value *&value = values[key];
    if (!value)
        value = &pool.emplace_back(arguments...);
    return value;
}

} // namespace

struct Device::Pools
{
    std::deque<Color> colors;
    std::deque<Font> fonts;
    std::deque<Pen> pens;
    TextTable texts;
};

Device::Device(bool owns) : pools(std::make_unique<Pools>()), ownsObjects(owns) { }

Device::~Device()
{
    if (!ownsObjects)
        return;
    qDeleteAll(edges);
    qDeleteAll(nodes);
    qDeleteAll(clusters);
}

void Device::drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    if (points.isEmpty())
        return;
    QList<QPoint> line;
    line.reserve((points.size() * 10 - 10) / 3 + 1);
    line.append(points.constFirst());
    for (qsizetype i = pointsPerCurve; i < points.size(); i += pointsPerCurve) {
        const QPoint *curve = points.constData() + i - pointsPerCurve;
        for (int k = 1; k <= piecesPerCurve; ++k) {
            const QPointF p = pointOnCubic(curve, k / 10.0);
            line.append(QPoint(rounded(p.x()), rounded(p.y())));
        }
    }
    if (fill)
        drawPolygon(line, pen, fill);
    else
        drawPolyline(line, pen);
}

Device::Font *Device::defaultFont()
{
    return font(u"Arial"_s, 12.0, 0);
}

bool Device::supportsExpanders() const
{
    return false;
}

void Device::endCluster() { }

void Device::endEdge() { }

void Device::endNode() { }

bool Device::supportsObjects() const
{
    return false;
}

Device::Cluster *Device::createCluster(DotSubgraph *)
{
    return nullptr;
}

Device::Edge *Device::createEdge(DotEdge *)
{
    return nullptr;
}

Device::Node *Device::createNode(DotNode *)
{
    return nullptr;
}

void Device::connectEdge(Edge *, Node *, Node *) { }

void Device::beginCluster(DotSubgraph *subgraph, bool withMembers)
{
    if (!supportsObjects())
        return;
    Cluster *cluster = createCluster(subgraph);
    if (!cluster)
        return;
    if (withMembers) {
        cluster->members = subgraph->nodes;
        cluster->subclusters = subgraph->subgraphs;
    }
    clusters.insert(subgraph, cluster);
}

void Device::beginEdge(DotEdge *edge)
{
    if (!supportsObjects())
        return;
    if (Edge *object = createEdge(edge))
        edges.insert(edge, object);
}

void Device::beginNode(DotNode *node)
{
    if (!supportsObjects())
        return;
    if (Node *object = createNode(node))
        nodes.insert(node, object);
}

void Device::connect(DotEdge *edge, DotNode *tail, DotNode *head)
{
    if (!supportsObjects())
        return;
    connectEdge(edges.value(edge), nodes.value(tail), nodes.value(head));
}

QList<Device::Cluster *> Device::clusterObjects(const Cluster *cluster) const
{
    QList<Cluster *> objects;
    if (!cluster)
        return objects;
    for (const DotSubgraph *subgraph : cluster->subclusters) {
        if (Cluster *object = clusters.value(subgraph))
            objects.append(object);
    }
    return objects;
}

QList<Device::Node *> Device::nodeObjects(const Cluster *cluster) const
{
    QList<Node *> objects;
    if (!cluster)
        return objects;
    for (const DotNode *node : cluster->members) {
        if (Node *object = nodes.value(node))
            objects.append(object);
    }
    return objects;
}

Device::Color *Device::color(const QString &name)
{
    const QString key = name.isEmpty() ? u"black"_s : name;
    return interned(colors, pools->colors, key, key);
}

Device::Color *Device::linearGradient(QPointF start, QPointF stop, const QStringList &allNames,
                                      const QList<double> &allOffsets)
{
    const QStringList names = keptStops(allNames);
    const QList<double> offsets = keptStops(allOffsets);
    const QString key =
        gradientKey(u"linear"_s, {start.x(), start.y(), stop.x(), stop.y()}, names, offsets);
    return interned(colors, pools->colors, key, start, stop, names, offsets);
}

Device::Color *Device::radialGradient(QPointF focus, double focalRadius, QPointF centre,
                                      double radius, const QStringList &allNames,
                                      const QList<double> &allOffsets)
{
    const QStringList names = keptStops(allNames);
    const QList<double> offsets = keptStops(allOffsets);
    const QString key = gradientKey(
        u"radial"_s, {focus.x(), focus.y(), focalRadius, centre.x(), centre.y(), radius}, names,
        offsets);
    return interned(colors, pools->colors, key, focus, focalRadius, centre, radius, names, offsets);
}

Device::Font *Device::font(const QString &family, double size, int style)
{
    FontKey key{family, rounded(size), style};
    if (family.isEmpty() || size < 0 || style < 0) {
        const Font *standard = defaultFont();
        if (family.isEmpty())
            key.family = standard->family();
        if (size < 0)
            key.size = standard->size();
        if (style < 0)
            key.style = standard->style();
    }
    return interned(fonts, pools->fonts, key, key.family, key.size, key.style);
}

Device::Pen *Device::pen(Color *color, int style, int width)
{
    return interned(pens, pools->pens, PenKey{color, style, width}, color, style, width);
}

Device::Text *Device::text(const QString &string, Font *font, Color *color)
{
    return pools->texts.text(string, font ? font : defaultFont(), color);
}

Device::Color::Color(const QString &name) : gradientType(Solid), names{name} { }

Device::Color::Color(QPointF start, QPointF stop, const QStringList &stopNames,
                     const QList<double> &stopOffsets)
    : gradientType(Linear), names(stopNames), offsets(stopOffsets), startPoint(start),
      stopPoint(stop)
{
}

Device::Color::Color(QPointF focusPoint, double focalRadius, QPointF centre, double radius,
                     const QStringList &stopNames, const QList<double> &stopOffsets)
    : gradientType(Radial), names(stopNames), offsets(stopOffsets), startPoint(focusPoint),
      stopPoint(centre), focus(focalRadius), extent(radius)
{
}

QString Device::Color::name(int index) const
{
    return index >= 0 && index < names.size() ? names.at(index) : QString();
}

double Device::Color::offset(int index) const
{
    return index >= 0 && index < offsets.size() ? offsets.at(index) : 0.0;
}

int Device::Color::stopCount() const
{
    return gradientType == Solid ? 0 : static_cast<int>(names.size());
}

} // namespace ORR::Graph
