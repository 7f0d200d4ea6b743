#include "output/visio/visio_xml_shape.h"

#include "device/color_value.h"
#include "device/text_image.h"
#include "output/xml_text.h"

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// The level of the shapes of the page: document, pages, page, shapes.
constexpr int pageShapeDepth = 4;

// Less of a turn leaves a text as it is.
constexpr double upright = 0.1;

constexpr char extensionNamespace[] = "http://schemas.microsoft.com/office/visio/2010/extension";

void valueCell(VisioMarkup &markup, const char *name, const QByteArray &value)
{
    markup.text(name, {}, value);
}

// Readers that work out no formula need the value, and some drop a shape with a cell that has none.
void formulaCell(VisioMarkup &markup, const char *name, const QByteArray &formula,
                 const QByteArray &value)
{
    markup.text(name, {{"F", formula}}, value);
}

// With its transparency, if it has any.
void colorCell(VisioMarkup &markup, const char *name, const char *transparencyName,
               const Device::Color *color)
{
    constexpr int opaque = 255;
    const ColorValue value = ColorValue::of(color, 0);
    const QString formula =
        u"RGB(%1,%2,%3)"_s.arg(value.red()).arg(value.green()).arg(value.blue());
    formulaCell(markup, name, formula.toLatin1(), value.toString().toLatin1());
    if (value.alpha() != opaque)
        valueCell(markup, transparencyName, visioText(1.0 - value.alpha() / double(opaque)));
}

} // namespace

VisioXMLShape::VisioXMLShape(int id, Kind kind, VisioXMLShape *parent)
    : sheet(id), shapeKind(kind), outer(parent), nesting(parent ? parent->level() + 1 : 1),
      element(cellDepth())
{
    geometry.isEdge = isEdge();
    if (parent)
        parent->inner.append(this);
}

void VisioXMLShape::setPaint(const Device::Pen *newPen, const Device::Color *newBrush)
{
    if (newPen)
        pen = newPen;
    if (newBrush)
        brush = newBrush;
}

void VisioXMLShape::addText(QPoint topLeft, const Device::Text *text)
{
    const QRectF box(topLeft, QSizeF(TextImage::textSize(text, false)));
    if (texts.isEmpty()) {
        textBox = box;
    } else {
        textBox = QRectF(
            QPointF(qMin(textBox.left(), box.left()), qMin(textBox.top(), box.top())),
            QPointF(qMax(textBox.right(), box.right()), qMax(textBox.bottom(), box.bottom())));
    }
    texts.append(text->text());
    font = text->font();
    fontColor = text->color();
}

void VisioXMLShape::finish(int pageHeight)
{
    // A text that stands for itself is as large as its box.
    if (geometry.isEmpty() && !texts.isEmpty())
        geometry.add(frameRows());
    const VisioXMLFrame place = frame(pageHeight);
    writeTransform(place);
    writeTextTransform(place);
    if (!isEdge())
        writeFill();
    writeLine();
    writeCharacter();
    place.writeGeometry(element.body, geometry.allRows());
    element.body.text("Text", {}, xmlEscaped(texts.join(u'\n'), XmlForm::DocumentText));
    if (shapeKind == Cluster)
        writeUser();
    knownFrame = place;
    geometry.keepEnds();
    element.body.squeeze();
    finished = true;
}

int VisioXMLShape::addConnection(QPointF devicePoint, int pageHeight)
{
    const VisioXMLFrame place = frame(pageHeight);
    const QPointF at = place.position(devicePoint);
    const int index = connectionCount++;
    VisioMarkup row(cellDepth());
    row.open("Connection", {{"IX", QByteArray::number(index)}});
    formulaCell(row, "X", "Width*" + visioText(place.xShare(at.x())), visioInches(at.x()));
    formulaCell(row, "Y", "Height*" + visioText(place.yShare(at.y())), visioInches(at.y()));
    row.close("Connection");
    element.settle(element.connections);
    element.connections.content.append(row.markup());
    return index;
}

void VisioXMLShape::glue(End end, const QByteArray &formula)
{
    element.settle(element.ends);
    glued[end] = formula;
}

// An end that nothing holds stays where it was drawn; the formulas of the transform ask for it.
void VisioXMLShape::writeEnds(int pageHeight)
{
    element.settle(element.ends);
    const QPointF nowhere(0.0, pageHeight);
    const QPointF begin = geometry.isEmpty() ? nowhere : geometry.firstRow().point();
    const QPointF end = geometry.isEmpty() ? nowhere : geometry.lastRow().point();
    VisioMarkup cells(cellDepth());
    const auto cell = [&](const char *name, End which, double value) {
        if (glued[which].isEmpty())
            valueCell(cells, name, visioInches(value));
        else
            formulaCell(cells, name, glued[which], visioInches(value));
    };
    cells.open("XForm1D");
    cell("BeginX", Begin, begin.x());
    cell("BeginY", Begin, pageHeight - begin.y());
    cell("EndX", Finish, end.x());
    cell("EndY", Finish, pageHeight - end.y());
    cells.close("XForm1D");
    element.ends.content = cells.markup();
}

void VisioXMLShape::setRelationships(const QByteArray &entries)
{
    if (entries.isEmpty())
        return;
    element.settle(element.container);
    VisioMarkup cells(cellDepth());
    cells.open("v14:Layout", {{"xmlns:v14", extensionNamespace}});
    formulaCell(cells, "v14:Relationships", "SUM(" + entries + ")", "0");
    cells.close("v14:Layout");
    element.container.content = cells.markup();
}

void VisioXMLShape::appendStart(QByteArray &document) const
{
    VisioMarkup start(depth());
    start.open("Shape", {{"ID", idText()}, {"Type", inner.isEmpty() ? "Shape" : "Group"}});
    document.append(start.markup());
}

void VisioXMLShape::appendCells(QByteArray &document) const
{
    element.appendTo(document);
}

void VisioXMLShape::appendEnd(QByteArray &document) const
{
    document.append(QByteArray(depth(), ' ') + "</Shape>\n");
}

int VisioXMLShape::depth() const
{
    return pageShapeDepth + nesting - 1;
}

const VisioXMLFrame &VisioXMLShape::frame(int pageHeight)
{
    if (!finished)
        knownFrame = VisioXMLFrame(frameRows(), isEdge(), pageHeight);
    return *knownFrame;
}

QList<VisioRow> VisioXMLShape::frameRows() const
{
    if (!geometry.isEmpty() || texts.isEmpty())
        return geometry.allRows();
    return VisioGeometry::rectangleRows(textBox.topLeft(), textBox.bottomRight());
}

void VisioXMLShape::writeTransform(const VisioXMLFrame &place)
{
    VisioMarkup &body = element.body;
    const QByteArray pinX = visioInches(place.pin().x());
    const QByteArray pinY = visioInches(place.pin().y());
    const QByteArray width = visioInches(place.width());
    body.open("XForm");
    if (isEdge()) {
        formulaCell(body, "PinX", "(BeginX+EndX)/2", pinX);
        formulaCell(body, "PinY", "(BeginY+EndY)/2", pinY);
        formulaCell(body, "Width", "SQRT((EndX-BeginX)^2+(EndY-BeginY)^2)", width);
    } else {
        valueCell(body, "PinX", pinX);
        valueCell(body, "PinY", pinY);
        valueCell(body, "Width", width);
    }
    valueCell(body, "Height", visioInches(place.height()));
    formulaCell(body, "LocPinX", "Width*0.5", visioInches(place.width() * 0.5));
    formulaCell(body, "LocPinY", "Height*" + visioText(place.pinShare()),
                visioInches(place.height() * place.pinShare()));
    if (isEdge())
        formulaCell(body, "Angle", "ATAN2(EndY-BeginY,EndX-BeginX)", visioText(place.angle()));
    body.close("XForm");
}

void VisioXMLShape::writeTextTransform(const VisioXMLFrame &place)
{
    VisioMarkup &body = element.body;
    const double width = place.width() * 0.85;
    const double height = place.height() * 0.75;
    body.open("TextXForm");
    formulaCell(body, "TxtPinX", "Width*0.5", visioInches(place.width() * 0.5));
    formulaCell(body, "TxtPinY", "Height*0.5", visioInches(place.height() * 0.5));
    formulaCell(body, "TxtWidth", "Width*0.85", visioInches(width));
    formulaCell(body, "TxtHeight", "Height*0.75", visioInches(height));
    formulaCell(body, "TxtLocPinX", "0.5*TxtWidth", visioInches(0.5 * width));
    formulaCell(body, "TxtLocPinY", "0.5*TxtHeight", visioInches(0.5 * height));
    if (place.angle() > upright)
        formulaCell(body, "TxtAngle", "-Angle", visioText(-place.angle()));
    body.close("TextXForm");
}

// There is no style sheet behind the pattern cells: without them a fill is not shown, and a shape
// without a pen gets one.
void VisioXMLShape::writeFill()
{
    VisioMarkup &body = element.body;
    body.open("Fill");
    if (brush)
        colorCell(body, "FillForegnd", "FillForegndTrans", brush);
    valueCell(body, "FillPattern", brush ? "1" : "0");
    body.close("Fill");
}

void VisioXMLShape::writeLine()
{
    VisioMarkup &body = element.body;
    body.open("Line");
    if (pen) {
        valueCell(body, "LineWeight", visioInches(pen->width()));
        colorCell(body, "LineColor", "LineColorTrans", pen->color());
    }
    valueCell(body, "LinePattern", QByteArray::number(pen ? pen->style() + 1 : 0));
    if (isEdge()) {
        valueCell(body, "BeginArrow", QByteArray::number(geometry.beginArrow));
        valueCell(body, "EndArrow", QByteArray::number(geometry.endArrow));
    }
    body.close("Line");
}

void VisioXMLShape::writeCharacter()
{
    VisioMarkup &body = element.body;
    body.open("Char", {{"IX", "0"}});
    if (font) {
        const QString formula = u"FONTTOID(\""_s + visioQuoted(font->family()) + u"\")"_s;
        formulaCell(body, "Font", xmlEscaped(formula, XmlForm::DocumentAttribute),
                    xmlEscaped(font->family(), XmlForm::DocumentText));
        colorCell(body, "Color", "ColorTrans", fontColor);
        valueCell(body, "Style", QByteArray::number(font->style()));
        valueCell(body, "Size", visioInches(font->size()));
    }
    body.close("Char");
}

void VisioXMLShape::writeUser()
{
    VisioMarkup &body = element.body;
    body.open("User", {{"ID", "0"}, {"NameU", "msvStructureType"}});
    body.text("Value", {{"Unit", "STR"}}, "Container");
    body.close("User");
    body.open("Layout");
    body.text("ShapeSplit", {}, "0");
    body.close("Layout");
}

} // namespace ORR::Graph
