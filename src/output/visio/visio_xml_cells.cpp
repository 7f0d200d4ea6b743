#include "output/visio/visio_xml_cells.h"

#include "output/visio/visio_geometry_section.h"
#include "output/xml_text.h"

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// Less of a turn leaves a text as it is.
constexpr double upright = 0.1;

constexpr char extensionNamespace[] = "http://schemas.microsoft.com/office/visio/2010/extension";

} // namespace

int VisioXMLCells::shapeDepth() const
{
    return 4; // document, pages, page, shapes
}

int VisioXMLCells::connectDepth() const
{
    return 4; // document, pages, page, connects
}

bool VisioXMLCells::nests() const
{
    return true;
}

bool VisioXMLCells::sharesConnectionPoints() const
{
    return false;
}

VisioFrame::Measure VisioXMLCells::measure() const
{
    return VisioFrame::Whole;
}

void VisioXMLCells::takePaint(VisioContent &content, const Device::Pen *pen,
                              const Device::Color *fill, VisioMarkup & /*body*/) const
{
    if (pen)
        content.pen = pen;
    if (fill)
        content.fill = fill;
}

void VisioXMLCells::takeFont(VisioContent &content, const Device::Text *text,
                             VisioMarkup & /*body*/) const
{
    content.font = text->font();
    content.fontColor = text->color();
}

void VisioXMLCells::startShape(VisioMarkup &markup, const QByteArray &sheet, bool hasInner) const
{
    markup.open("Shape", {{"ID", sheet}, {"Type", hasInner ? "Group" : "Shape"}});
}

// There is no style sheet behind the pattern cells: without them a fill is not shown, and a shape
// without a pen gets one.
void VisioXMLCells::writeShape(const VisioContent &content, const VisioFrame &frame,
                               VisioMarkup &body) const
{
    body.open("XForm");
    placement(body, frame, content.isEdge());
    if (content.isEdge())
        ratio(body, "Angle", frame.angle(), angleFormula());
    body.close("XForm");
    writeTextTransform(frame, body);
    if (!content.isEdge()) {
        body.open("Fill");
        if (content.fill)
            color(body, "FillForegnd", "FillForegndTrans", content.fill);
        whole(body, "FillPattern", content.fill ? 1 : 0);
        body.close("Fill");
    }
    writeLine(content, body);
    writeCharacter(content, body);
    writeGeometry(content, frame, body);
    body.text("Text", {}, xmlEscaped(content.texts.join(u'\n'), XmlForm::DocumentText));
    if (content.kind != VisioKind::Cluster)
        return;
    body.open("User", {{"ID", "0"}, {"NameU", "msvStructureType"}});
    body.text("Value", {{"Unit", "STR"}}, "Container");
    body.close("User");
    body.open("Layout");
    whole(body, "ShapeSplit", 0);
    body.close("Layout");
}

void VisioXMLCells::startConnections(VisioMarkup & /*markup*/) const { }

void VisioXMLCells::endConnections(VisioMarkup & /*markup*/) const { }

int VisioXMLCells::connectionDepth() const
{
    return 0;
}

void VisioXMLCells::writeEnds(VisioMarkup &markup, QPointF begin, QPointF end,
                              const std::array<QByteArray, 2> &formulas) const
{
    markup.open("XForm1D");
    endCells(markup, begin, end, formulas);
    markup.close("XForm1D");
}

void VisioXMLCells::writeContainer(VisioMarkup &markup, const QByteArray &entries,
                                   bool /*isContainer*/) const
{
    if (entries.isEmpty())
        return;
    markup.open("v14:Layout", {{"xmlns:v14", extensionNamespace}});
    cell(markup, "v14:Relationships", "0", "SUM(" + entries + ")");
    markup.close("v14:Layout");
}

void VisioXMLCells::writeConnect(VisioMarkup &markup, const QByteArray &edge, VisioEnd end,
                                 const QByteArray &node, int index) const
{
    markup.empty("Connect",
                 {{"ToPart", connectionPart(index)},
                  {"ToSheet", node},
                  {"FromPart", partOf(end)},
                  {"FromSheet", edge},
                  {"FromCell", cellOf(end)},
                  {"ToCell", connectionCell(index)}});
}

void VisioXMLCells::openRow(VisioMarkup &markup, const char *type, int index) const
{
    markup.open(type, {{"IX", QByteArray::number(index)}});
}

void VisioXMLCells::closeRow(VisioMarkup &markup, const char *type) const
{
    markup.close(type);
}

// A connector's places are formulas alone, which the application works out when it opens the file.
void VisioXMLCells::writeRowPlace(VisioMarkup &markup, const VisioRow &row, const VisioFrame &frame,
                                  bool isEdge) const
{
    if (!isEdge) {
        writePlace(markup, "X", "Y", row, frame);
        return;
    }
    const QPointF position = frame.position(row.point());
    cell(markup, "X", {}, "Width*" + visioShort(frame.xShare(position.x())));
    cell(markup, "Y", {}, "Height*" + visioShort(frame.yShare(position.y())));
}

void VisioXMLCells::writeSplineStart(VisioMarkup &markup, const VisioSpline &spline,
                                     const VisioSpline &wholeSpline) const
{
    whole(markup, "A", spline.knot());
    whole(markup, "B", 0);
    whole(markup, "C", wholeSpline.lastKnot());
    whole(markup, "D", spline.degree());
}

// The value is that of the arc itself where it differs from the shape's.
void VisioXMLCells::writeArcRatio(VisioMarkup &markup, double own, double ofShape) const
{
    ratio(markup, "D", own != 0.0 ? own : ofShape, "Width/Height");
}

void VisioXMLCells::cell(VisioMarkup &markup, const char *name, const QByteArray &value,
                         const QByteArray &formula) const
{
    if (formula.isEmpty())
        markup.text(name, {}, value);
    else
        markup.text(name, {{"F", formula}}, value);
}

QByteArray VisioXMLCells::number(double value) const
{
    return visioShort(value);
}

QByteArray VisioXMLCells::colorFormula(const ColorValue &color) const
{
    return u"RGB(%1,%2,%3)"_s.arg(color.red()).arg(color.green()).arg(color.blue()).toLatin1();
}

void VisioXMLCells::writeTextTransform(const VisioFrame &frame, VisioMarkup &body) const
{
    const double width = frame.width() * 0.85;
    const double height = frame.height() * 0.75;
    body.open("TextXForm");
    length(body, "TxtPinX", frame.width() * 0.5, "Width*0.5");
    length(body, "TxtPinY", frame.height() * 0.5, "Height*0.5");
    length(body, "TxtWidth", width, "Width*0.85");
    length(body, "TxtHeight", height, "Height*0.75");
    length(body, "TxtLocPinX", 0.5 * width, "0.5*TxtWidth");
    length(body, "TxtLocPinY", 0.5 * height, "0.5*TxtHeight");
    if (frame.angle() > upright)
        ratio(body, "TxtAngle", -frame.angle(), "-Angle");
    body.close("TextXForm");
}

void VisioXMLCells::writeLine(const VisioContent &content, VisioMarkup &body) const
{
    body.open("Line");
    if (content.pen)
        linePaint(body, content.pen);
    else
        whole(body, "LinePattern", 0);
    if (content.isEdge())
        arrows(body, content.geometry);
    body.close("Line");
}

void VisioXMLCells::writeCharacter(const VisioContent &content, VisioMarkup &body) const
{
    body.open("Char", {{"IX", "0"}});
    if (const Device::Font *font = content.font) {
        const QString formula = u"FONTTOID(\""_s + visioQuoted(font->family()) + u"\")"_s;
        cell(body, "Font", xmlEscaped(font->family(), XmlForm::DocumentText),
             xmlEscaped(formula, XmlForm::DocumentAttribute));
        color(body, "Color", "ColorTrans", content.fontColor);
        whole(body, "Style", font->style());
        length(body, "Size", font->size());
    }
    body.close("Char");
}

void VisioXMLCells::writeGeometry(const VisioContent &content, const VisioFrame &frame,
                                  VisioMarkup &body) const
{
    body.open("Geom", {{"IX", "0"}});
    if (content.isEdge())
        whole(body, "NoFill", 1);
    writeGeometryRows(body, *this, 1, content, frame);
    body.close("Geom");
}

} // namespace ORR::Graph
