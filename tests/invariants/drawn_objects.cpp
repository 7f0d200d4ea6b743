#include "invariants/drawn_objects.h"

#include <QPainterPath>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

// A saturated coordinate is one that the layout could not say.
bool isCoordinate(double value)
{
    return std::isfinite(value) && std::abs(value) < std::numeric_limits<int>::max();
}

// Reads the calls one after the other.
class Reader
{
public:
    explicit Reader(const QHash<qsizetype, QSize> &sizes) : textSizes(sizes) { }

    Drawn read(const QStringList &calls);

private:
    void readCall(const QString &call, QSize textSize);
    void beginPage(const QStringList &words);
    void endPage();
    void beginObject(const QString &kind, const QString &id);
    void endObject(const QString &kind);
    void addShape(const QStringList &words, QSize textSize);
    QRectF pathBox(const QStringList &steps, QList<DrawnArc> *arcs);
    QPointF point(const QString &word);
    double number(const QString &word);
    void fault(const QString &what) { drawn.faults += what + u": "_s + current; }

    const QHash<qsizetype, QSize> &textSizes;
    Drawn drawn;
    qsizetype open = -1; // the innermost object; none before the page and after it
    QString current; // the call that is read
};

Drawn Reader::read(const QStringList &calls)
{
    drawn.objects += DrawnObject();
    for (qsizetype i = 0; i < calls.size(); ++i)
        readCall(calls.at(i), textSizes.value(i));
    current = u"the last call"_s;
    if (open >= 0 || !drawn.page.isValid())
        fault(u"no end"_s);
    return drawn;
}

void Reader::readCall(const QString &call, QSize textSize)
{
    current = call;
    const QString word = call.section(u' ', 0, 0);
    if (word == "begin"_L1)
        return beginPage(call.split(u' '));
    if (open < 0)
        return fault(u"outside the page"_s);
    if (word == "end"_L1)
        return endPage();
    if (word == "connect"_L1)
        return;
    if (word.startsWith("begin"_L1))
        return beginObject(word.sliced(5), call.section(u' ', 1));
    if (word.startsWith("end"_L1))
        return endObject(word.sliced(3));
    // The texts of paints and labels begin behind the coordinates.
    addShape(call.section(u" pen "_s, 0, 0).split(u' '), textSize);
}

void Reader::beginPage(const QStringList &words)
{
    if (drawn.page.isValid())
        fault(u"a second page"_s);
    drawn.page = QSize(int(number(words.value(1))), int(number(words.value(2))));
    if (drawn.page.isEmpty())
        fault(u"an empty page"_s);
    open = 0;
}

void Reader::endPage()
{
    if (open != 0)
        fault(u"within an object"_s);
    open = -1;
}

void Reader::beginObject(const QString &kind, const QString &id)
{
    if (open != 0 && drawn.objects.at(open).kind != "Cluster"_L1)
        fault(u"within a node or an edge"_s);
    drawn.objects += DrawnObject{kind, id, open, {}};
    open = drawn.objects.size() - 1;
}

void Reader::endObject(const QString &kind)
{
    if (open == 0 || drawn.objects.at(open).kind != kind)
        return fault(u"ends what was not begun"_s);
    open = drawn.objects.at(open).parent;
}

void Reader::addShape(const QStringList &words, QSize textSize)
{
    DrawnShape shape{words.first(), {}, {}};
    if (shape.word == "ellipse"_L1) {
        const QPointF radii = point(words.value(3));
        const QPointF centre = point(words.value(1));
        shape.box = QRectF(centre - radii, centre + radii);
    } else if (shape.word == "rect"_L1) {
        shape.box = QRectF(point(words.value(1)), point(words.value(2)));
        number(words.value(4));
    } else if (shape.word.endsWith("text"_L1)) {
        shape.box = QRectF(point(words.value(1)), textSize);
    } else if (shape.word == "path"_L1) {
        shape.box = pathBox(words.sliced(1), &shape.arcs);
    } else {
        QPolygonF points;
        for (const QString &word : words.sliced(1))
            points += point(word);
        shape.box = points.boundingRect();
    }
    if (shape.box.width() < 0 || shape.box.height() < 0)
        fault(u"turned inside out"_s);
    drawn.objects[open].shapes += shape;
}

QRectF Reader::pathBox(const QStringList &steps, QList<DrawnArc> *arcs)
{
    QPainterPath path;
    for (qsizetype i = 0; i < steps.size(); ++i) {
        const QString step = steps.at(i);
        const auto next = [&] { return point(steps.value(++i)); };
        if (step == "M"_L1) {
            path.moveTo(next());
        } else if (step == "L"_L1) {
            path.lineTo(next());
        } else if (step == "Q"_L1) {
            const QPointF control = next();
            path.quadTo(control, next());
        } else if (step == "C"_L1) {
            const QPointF first = next();
            const QPointF second = next();
            path.cubicTo(first, second, next());
        } else if (step == "A"_L1) {
            const QPointF topLeft = next();
            const QRectF ellipse(topLeft, next());
            const double start = number(steps.value(++i));
            *arcs += DrawnArc{ellipse, start, number(steps.value(++i))};
            path.arcTo(ellipse, start, arcs->constLast().sweep);
        } else if (step != "Z"_L1) {
            fault(u"no step of a path"_s);
        }
    }
    return path.boundingRect();
}

QPointF Reader::point(const QString &word)
{
    return {number(word.section(u',', 0, 0)), number(word.section(u',', 1, 1))};
}

double Reader::number(const QString &word)
{
    bool isNumber = false;
    const double value = word.toDouble(&isNumber);
    if (!isNumber || !isCoordinate(value))
        fault(u"no coordinate"_s);
    return value;
}

} // namespace

void nestAsInGraph(Drawn *drawn, const ORR::Graph::DotGraph &graph)
{
    QHash<const ORR::Graph::DotSubgraph *, qsizetype> groups;
    for (qsizetype i = 0; i < drawn->objects.size(); ++i) {
        if (drawn->objects.at(i).kind == "Cluster"_L1)
            groups.insert(graph.findSubgraph(drawn->objects.at(i).id), i);
    }
    for (DrawnObject &object : drawn->objects) {
        const ORR::Graph::DotSubgraph *around = nullptr;
        if (object.kind == "Cluster"_L1 && graph.findSubgraph(object.id))
            around = graph.findSubgraph(object.id)->parent;
        else if (object.kind == "Node"_L1 && graph.findNode(object.id))
            around = graph.findNode(object.id)->owner;
        if (object.parent == 0 && around)
            object.parent = groups.value(around, 0);
    }
}

void MeasuringDevice::drawText(QPoint topLeft, Text *text)
{
    textSizes.insert(calls().size(), textSize(text, false));
    RecordingDevice::drawText(topLeft, text);
}

void MeasuringDevice::drawRichText(QPoint topLeft, Text *text)
{
    textSizes.insert(calls().size(), textSize(text, true));
    RecordingDevice::drawRichText(topLeft, text);
}

Drawn MeasuringDevice::drawn() const
{
    return Reader(textSizes).read(calls());
}
