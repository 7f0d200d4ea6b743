#include "output/visio/visio_package_cells.h"

#include "output/visio/visio_geometry_section.h"
#include "output/xml_text.h"

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// Italic shows as bold does, and both together as one.
int characterStyle(int fontStyle)
{
    return fontStyle & Device::Font::Italic ? 1 : fontStyle & Device::Font::Bold;
}

} // namespace

int VisioPackageCells::shapeDepth() const
{
    return 2; // page, shapes
}

int VisioPackageCells::connectDepth() const
{
    return 2; // page, connects
}

bool VisioPackageCells::nests() const
{
    return false;
}

bool VisioPackageCells::sharesConnectionPoints() const
{
    return true;
}

VisioFrame::Measure VisioPackageCells::measure() const
{
    return VisioFrame::Exact;
}

void VisioPackageCells::takePaint(VisioContent &content, const Device::Pen *pen,
                                  const Device::Color *fill, VisioMarkup &body) const
{
    if (pen && !content.pen) {
        content.pen = pen;
        linePaint(body, pen);
    }
    if (fill && !content.fill && !content.isEdge()) {
        content.fill = fill;
        color(body, "FillForegnd", "FillForegndTrans", fill);
    }
}

void VisioPackageCells::takeFont(VisioContent &content, const Device::Text *text,
                                 VisioMarkup &body) const
{
    if (!content.texts.isEmpty())
        return;
    const Device::Font *font = text->font();
    const QString formula = u"FONTOID(\""_s + visioQuoted(font->family()) + u"\")"_s;
    body.open("Section", {{"N", "Character"}});
    body.open("Row", {{"IX", "0"}});
    // The value is the family itself; the formula looks up its number in the document.
    cell(body, "Font", xmlEscaped(font->family(), XmlForm::DocumentAttribute),
         xmlEscaped(formula, XmlForm::DocumentAttribute));
    color(body, "Color", "ColorTrans", text->color());
    length(body, "Size", font->size() - 1);
    whole(body, "Style", characterStyle(font->style()));
    body.close("Row");
    body.close("Section");
}

// Without the three style attributes readers apply no style: fills don't show, and texts get a box.
void VisioPackageCells::startShape(VisioMarkup &markup, const QByteArray &sheet,
                                   bool /*hasInner*/) const
{
    markup.open("Shape",
                {{"ID", sheet},
                 {"Type", "Shape"},
                 {"LineStyle", "0"},
                 {"FillStyle", "0"},
                 {"TextStyle", "0"}});
}

void VisioPackageCells::writeShape(const VisioContent &content, const VisioFrame &frame,
                                   VisioMarkup &body) const
{
    placement(body, frame, content.isEdge());
    ratio(body, "Angle", frame.angle(), content.isEdge() ? angleFormula() : QByteArray());
    whole(body, "FlipX", 0);
    whole(body, "FlipY", 0);
    whole(body, "ResizeMode", 0);
    if (content.isEdge())
        arrows(body, content.geometry);
    if (!content.texts.isEmpty())
        writeText(content, frame, body);
    writeGeometry(content, frame, body);
}

void VisioPackageCells::startConnections(VisioMarkup &markup) const
{
    markup.open("Section", {{"N", "Connection"}});
}

void VisioPackageCells::endConnections(VisioMarkup &markup) const
{
    markup.close("Section");
}

int VisioPackageCells::connectionDepth() const
{
    return 1;
}

void VisioPackageCells::writeEnds(VisioMarkup &markup, QPointF begin, QPointF end,
                                  const std::array<QByteArray, 2> &formulas) const
{
    endCells(markup, begin, end, formulas);
}

void VisioPackageCells::writeContainer(VisioMarkup &markup, const QByteArray &entries,
                                       bool isContainer) const
{
    if (isContainer) {
        markup.open("Section", {{"N", "User"}});
        markup.open("Row", {{"N", "msvStructureType"}});
        markup.empty("Cell", {{"N", "Value"}, {"V", "Container"}, {"U", "STR"}});
        markup.close("Row");
        markup.close("Section");
    }
    if (!entries.isEmpty())
        cell(markup, "Relationships", "0", "SUM(" + entries + ")");
}

void VisioPackageCells::writeConnect(VisioMarkup &markup, const QByteArray &edge, VisioEnd end,
                                     const QByteArray &node, int index) const
{
    markup.empty("Connect",
                 {{"FromSheet", edge},
                  {"FromCell", cellOf(end)},
                  {"FromPart", partOf(end)},
                  {"ToSheet", node},
                  {"ToCell", connectionCell(index)},
                  {"ToPart", connectionPart(index)}});
}

void VisioPackageCells::openRow(VisioMarkup &markup, const char *type, int index) const
{
    markup.open("Row", {{"T", type}, {"IX", QByteArray::number(index)}});
}

void VisioPackageCells::closeRow(VisioMarkup &markup, const char * /*type*/) const
{
    markup.close("Row");
}

void VisioPackageCells::writeSplineStart(VisioMarkup &markup, const VisioSpline &spline,
                                         const VisioSpline &wholeSpline) const
{
    whole(markup, "D", spline.degree());
    whole(markup, "A", spline.knot());
    whole(markup, "B", 0);
    if (wholeSpline.isOpen())
        whole(markup, "C", wholeSpline.lastKnot());
}

void VisioPackageCells::writeArcRatio(VisioMarkup &markup, double own, double ofShape) const
{
    if (own != 0.0)
        ratio(markup, "D", own);
    else
        ratio(markup, "D", ofShape, "Width/Height");
}

void VisioPackageCells::cell(VisioMarkup &markup, const char *name, const QByteArray &value,
                             const QByteArray &formula) const
{
    if (formula.isEmpty())
        markup.empty("Cell", {{"N", name}, {"V", value}});
    else
        markup.empty("Cell", {{"N", name}, {"V", value}, {"F", formula}});
}

QByteArray VisioPackageCells::number(double value) const
{
    return visioNumber(value);
}

QByteArray VisioPackageCells::colorFormula(const ColorValue & /*color*/) const
{
    return {};
}

// The text keeps upright whatever way a connector runs.
void VisioPackageCells::writeText(const VisioContent &content, const VisioFrame &frame,
                                  VisioMarkup &body) const
{
    const QRectF &box = content.textBox;
    const QPointF centre = frame.position((box.topLeft() + box.bottomRight()) * 0.5);
    const auto ofWidth = [&](double x) { return "Width*" + visioShort(frame.xShare(x)); };
    const auto ofHeight = [&](double y) { return "Height*" + visioShort(frame.yShare(y)); };
    length(body, "TxtPinX", centre.x(), ofWidth(centre.x()));
    length(body, "TxtPinY", centre.y(), ofHeight(centre.y()));
    length(body, "TxtWidth", box.width(), ofWidth(box.width()));
    length(body, "TxtHeight", box.height(), ofHeight(box.height()));
    length(body, "TxtLocPinX", box.width() * 0.5, "TxtWidth*0.5");
    length(body, "TxtLocPinY", box.height() * 0.5, "TxtHeight*0.5");
    ratio(body, "TxtAngle", -frame.angle(), "-Angle");
    body.text("Text", {}, xmlEscaped(content.texts.join(u'\n'), XmlForm::DocumentText));
}

// Rows are numbered by what stands ahead of them in the section, which has five cells of its own.
void VisioPackageCells::writeGeometry(const VisioContent &content, const VisioFrame &frame,
                                      VisioMarkup &body) const
{
    constexpr int cellsAhead = 5;
    body.open("Section", {{"N", "Geometry"}, {"IX", "0"}});
    whole(body, "NoFill", content.fill ? 0 : 1);
    whole(body, "NoLine", 0);
    whole(body, "NoShow", 0);
    whole(body, "NoSnap", 0);
    whole(body, "NoQuickDrag", 0);
    writeGeometryRows(body, *this, cellsAhead, content, frame);
    body.close("Section");
}

} // namespace ORR::Graph
