#pragma once

#include "graph/dot_graph.h"

#include <QFont>
#include <QFontMetrics>
#include <QHash>
#include <QList>
#include <QMultiHash>
#include <QPoint>
#include <QPointF>
#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace ORR::Graph {

class TextWidths;

// The one drawing surface: layout engines and the replay talk to it and to nothing else; the output
// formats derive from it.
//
// Coordinates are whole points of 1/72 inch with the origin at the top left and y downward. Angles
// are degrees, counter-clockwise as seen on the page. Only `Path` works in doubles.
//
// The order of calls: text measuring and the factories of paint values at any time; `begin` once,
// when the size of the drawing is known; primitives in painter's order, wrapped in the object
// protocol; `end` once. A device that could not open its output stays alive, draws nothing and says
// so from `end`. Paint values belong to the device and die with it.
class Device
{
public:
    class Color;
    class Font;
    class Pen;
    class Text;
    class Path;
    class Node;
    class Edge;
    class Cluster;

    // ownsObjects: whether the device deletes what `createNode` and its like returned.
    explicit Device(bool ownsObjects = true);
    virtual ~Device();
    Device(const Device &) = delete;
    Device &operator=(const Device &) = delete;

    // Starts the drawing with the size of the page.
    virtual void begin(int width, int height) = 0;

    // Finishes the drawing and writes it out. Empty on success, otherwise a message for the user
    // that ends in a line feed.
    virtual QString end() = 0;

    // The primitives. A null fill means none; a pen is always given. What comes later lies on top.

    // A chain of cubic curves: point 0 is the start, each further three are two control points and
    // an end. The base flattens each curve to ten straight pieces and draws those, as a polygon if
    // there is a fill and as a polyline otherwise; points that make no complete three are dropped.
    virtual void drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill);
    virtual void drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill) = 0;
    virtual void drawPolyline(const QList<QPoint> &points, Pen *pen) = 0;
    virtual void drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill) = 0;
    // Width and height are the differences of the corners; `radius` is that of the corners, 0 for
    // square ones.
    virtual void drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen,
                          Color *fill) = 0;
    // `topLeft` is the corner of the text's box. The text may hold line feeds; rich text is HTML.
    virtual void drawText(QPoint topLeft, Text *text) = 0;
    virtual void drawRichText(QPoint topLeft, Text *text) = 0;
    // A new empty path, owned by the caller until it is given to `drawPath`.
    virtual Path *createPath() = 0;
    // Draws the path and deletes it. A path of another class of device is deleted and not drawn.
    virtual void drawPath(Path *path, Pen *pen, Color *fill) = 0;

    virtual Font *defaultFont();

    // True for a device that wants the expander glyphs of the node drawing.
    virtual bool supportsExpanders() const;

    // The object protocol: which primitive belongs to which graph object. The `end` operations may
    // be called on every device; the `begin` operations and `connect` do something only where
    // `supportsObjects` is true. Objects nest. `connect` comes after both nodes were begun, before
    // or after `endEdge`.
    virtual void endCluster();
    virtual void endEdge();
    virtual void endNode();
    virtual bool supportsObjects() const;
    virtual Cluster *createCluster(DotSubgraph *subgraph);
    virtual Edge *createEdge(DotEdge *edge);
    virtual Node *createNode(DotNode *node);
    // Records that the edge's object runs between the two nodes' objects, each of which may be
    // null.
    virtual void connectEdge(Edge *edge, Node *tail, Node *head);

    // withMembers: whether the object is told the subgraph's nodes and children.
    void beginCluster(DotSubgraph *subgraph, bool withMembers);
    void beginEdge(DotEdge *edge);
    void beginNode(DotNode *node);
    void connect(DotEdge *edge, DotNode *tail, DotNode *head);

    // The objects begun so far for a cluster's child subgraphs and for its nodes, in their order;
    // those without one are left out. Empty for null.
    QList<Cluster *> clusterObjects(const Cluster *cluster) const;
    QList<Node *> nodeObjects(const Cluster *cluster) const;

    // The factories of paint values. Equal arguments give the same object, so that values may be
    // asked for per element and compared by pointer.

    // A solid colour, by its colour string as it stands; an empty one is black.
    Color *color(const QString &name);
    // Of the stops of a gradient only so many are kept as limits.h allows.
    Color *linearGradient(QPointF start, QPointF stop, const QStringList &names,
                          const QList<double> &offsets);
    Color *radialGradient(QPointF focus, double focalRadius, QPointF centre, double radius,
                          const QStringList &names, const QList<double> &offsets);
    // An empty family, a negative size and a negative style each mean that of the default font. The
    // size is rounded to whole points.
    Font *font(const QString &family, double size, int style);
    // style: 0 solid, 1 dashed, 2 dotted.
    Pen *pen(Color *color, int style, int width);
    // A null font means the default one.
    Text *text(const QString &text, Font *font, Color *color);

private:
    struct PenKey
    {
        Color *color;
        int style;
        int width;
        friend bool operator==(const PenKey &, const PenKey &) = default;
        friend size_t qHash(const PenKey &key, size_t seed)
        {
            return qHashMulti(seed, key.color, key.style, key.width);
        }
    };
    struct FontKey
    {
        QString family;
        int size;
        int style;
        friend bool operator==(const FontKey &, const FontKey &) = default;
        friend size_t qHash(const FontKey &key, size_t seed)
        {
            return qHashMulti(seed, key.family, key.size, key.style);
        }
    };
    class TextTable;
    struct Pools; // holds the values; the hashes find them

    std::unique_ptr<Pools> pools;
    QHash<QString, Color *> colors;
    QHash<FontKey, Font *> fonts;
    QHash<PenKey, Pen *> pens;
    // An object that is begun a second time hides the first one, which is still to be deleted.
    QMultiHash<const DotEdge *, Edge *> edges;
    QMultiHash<const DotNode *, Node *> nodes;
    QMultiHash<const DotSubgraph *, Cluster *> clusters;
    bool ownsObjects;
};

// A solid colour or a gradient. Immutable.
class Device::Color
{
public:
    enum Type { Solid = 0, Linear = 1, Radial = 2 };

    explicit Color(const QString &name); // solid
    Color(QPointF start, QPointF stop, const QStringList &names, const QList<double> &offsets);
    Color(QPointF focus, double focalRadius, QPointF centre, double radius,
          const QStringList &names, const QList<double> &offsets);
    virtual ~Color() = default;

    Type type() const { return gradientType; }
    // The colour string of a stop; a solid colour has one, with index 0. Empty beyond the list.
    QString name(int index) const;
    // The offset of a stop, 0 to 1. 0.0 beyond the list.
    double offset(int index) const;
    // Number of stops; 0 for a solid colour.
    int stopCount() const;
    // Linear: the first point. Radial: the focal point.
    QPointF start() const { return startPoint; }
    // Linear: the last point. Radial: the centre.
    QPointF stop() const { return stopPoint; }
    double focalRadius() const { return focus; } // radial only, otherwise 0
    double radius() const { return extent; } // radial only, otherwise 0

private:
    Type gradientType;
    QStringList names;
    QList<double> offsets;
    QPointF startPoint;
    QPointF stopPoint;
    double focus = 0.0;
    double extent = 0.0;
};

// A font, and its one conversion to the toolkit's: what layout measures with is what devices draw
// with.
class Device::Font
{
public:
    enum Style { Bold = 1, Italic = 2 }; // bits

    Font(const QString &family, int size, int style);
    virtual ~Font();

    QString family() const { return familyName; }
    int size() const { return pointSize; }
    int style() const { return styleBits; }

    // Both are made on first use and kept.
    const QFont &qFont() const;
    const QFontMetrics &metrics() const;

    // The size of a plain text as the metrics have it, in points.
    QSize sizeOf(const QString &text) const;

private:
    QString familyName;
    int pointSize;
    int styleBits;
    mutable std::optional<QFont> toolkitFont;
    mutable std::optional<QFontMetrics> toolkitMetrics;
    mutable std::unique_ptr<TextWidths> widths;
};

class Device::Pen
{
public:
    enum Style { Solid = 0, Dashed = 1, Dotted = 2 };

    Pen(Color *color, int style, int width) : penColor(color), penStyle(style), penWidth(width) { }
    virtual ~Pen() = default;

    Color *color() const { return penColor; } // may be null where a replayed text never set one
    int style() const { return penStyle; }
    int width() const { return penWidth; } // in points

private:
    Color *penColor;
    int penStyle;
    int penWidth;
};

class Device::Text
{
public:
    Text(const QString &text, Font *font, Color *color)
        : string(text), textFont(font), textColor(color)
    {
    }
    virtual ~Text() = default;

    QString text() const { return string; }
    Font *font() const { return textFont; }
    Color *color() const { return textColor; } // may be null where a replayed text never set one

private:
    friend class TextImage;
    friend class TextTable;

    QString string;
    Font *textFont;
    Color *textColor;
    mutable std::optional<QSize> plainSize; // measured once
};

// The builder of a free outline.
class Device::Path
{
public:
    virtual ~Path() = default;
    virtual void moveTo(const QPointF &point) = 0;
    virtual void lineTo(const QPointF &point) = 0;
    virtual void closeSubpath() = 0;
    virtual void cubicTo(const QPointF &c1, const QPointF &c2, const QPointF &end) = 0;
    virtual void quadTo(const QPointF &c, const QPointF &end) = 0;
    // The part of the ellipse inscribed in the rectangle of the two corners that runs from
    // startAngle through sweepAngle degrees.
    virtual void arcTo(const QPointF &topLeft, const QPointF &bottomRight, double startAngle,
                       double sweepAngle) = 0;
};

// What a structured device keeps for a graph object.
class Device::Node
{
public:
    virtual ~Node() = default;
};

class Device::Edge
{
public:
    virtual ~Edge() = default;
};

class Device::Cluster
{
public:
    virtual ~Cluster() = default;

    // Filled by `beginCluster` if it is asked to.
    QList<DotNode *> members;
    QList<DotSubgraph *> subclusters;
};

} // namespace ORR::Graph
