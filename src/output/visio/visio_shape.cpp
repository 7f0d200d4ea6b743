#include "output/visio/visio_shape.h"

#include "device/text_image.h"
#include "output/visio/visio_cells.h"
#include "output/visio/visio_geometry_section.h"
#include "output/xml_text.h"

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

constexpr int cellDepth = VisioShape::depth + 1;

// The formulas that keep a connector between its ends.
struct EdgeFormulas
{
    QByteArray pinX = "(BeginX+EndX)/2";
    QByteArray pinY = "(BeginY+EndY)/2";
    QByteArray width = "SQRT((EndX-BeginX)^2+(EndY-BeginY)^2)";
    QByteArray angle = "ATAN2(EndY-BeginY,EndX-BeginX)";
};

// Italic shows as bold does, and both together as one.
int characterStyle(int fontStyle)
{
    return fontStyle & Device::Font::Italic ? 1 : fontStyle & Device::Font::Bold;
}

QByteArray formulaOf(const char *base, double share)
{
    return base + visioShort(share);
}

QByteArray relationshipsCell(int depth, const QByteArray &entries)
{
    VisioMarkup cell(depth);
    if (!entries.isEmpty())
        numberCell(cell, "Relationships", 0.0, "SUM(" + entries + ")");
    return cell.markup();
}

} // namespace

VisioShape::VisioShape(int id, bool isEdge) : sheet(id), element(cellDepth)
{
    geometry.isEdge = isEdge;
}

void VisioShape::addPen(const Device::Pen *pen)
{
    if (hasLine || !pen)
        return;
    hasLine = true;
    numberCell(element.body, "LineWeight", pen->width());
    colorCell(element.body, "LineColor", "LineColorTrans", pen->color());
    plainCell(element.body, "LinePattern", pen->style() + 1);
}

void VisioShape::addFill(const Device::Color *fill)
{
    if (hasFill || !fill || geometry.isEdge)
        return;
    hasFill = true;
    colorCell(element.body, "FillForegnd", "FillForegndTrans", fill);
}

void VisioShape::addText(QPoint topLeft, const Device::Text *text)
{
    const Device::Font *font = text->font();
    VisioMarkup &body = element.body;
    if (!hasCharacter) {
        hasCharacter = true;
        body.open("Section", {{"N", "Character"}});
        body.open("Row", {{"IX", "0"}});
        // The value is the family itself; the formula looks up its number in the document.
        body.empty("Cell",
                   {{"N", "Font"},
                    {"V", xmlEscaped(font->family(), XmlForm::DocumentAttribute)},
                    {"F",
                     xmlEscaped(u"FONTOID(\""_s + visioQuoted(font->family()) + u"\")"_s,
                                XmlForm::DocumentAttribute)}});
        colorCell(body, "Color", "ColorTrans", text->color());
        numberCell(body, "Size", font->size() - 1);
        plainCell(body, "Style", characterStyle(font->style()));
        body.close("Row");
        body.close("Section");
    }
    const QSize size = TextImage::textSize(text, false);
    const VisioRow from = VisioRow::of(topLeft, VisioRow::MoveTo);
    const VisioRow to =
        VisioRow::of({double(topLeft.x()) + size.width(), double(topLeft.y()) + size.height()},
                     VisioRow::MoveTo);
    if (texts.isEmpty()) {
        textTopLeft = from;
        textBottomRight = to;
    } else {
        textTopLeft.x = qMin(textTopLeft.x, from.x);
        textTopLeft.y = qMin(textTopLeft.y, from.y);
        textBottomRight.x = qMax(textBottomRight.x, to.x);
        textBottomRight.y = qMax(textBottomRight.y, to.y);
    }
    texts.append(text->text());
    touch();
}

void VisioShape::finish(int pageHeight)
{
    // A text that stands for itself is as large as its box.
    if (geometry.isEmpty() && !texts.isEmpty())
        geometry.add(frameRows());
    const VisioFrame &place = frame(pageHeight);
    writeTransform(place);
    if (!texts.isEmpty())
        writeText(place);
    writeGeometry(place);
    element.body.squeeze();
    finished = true;
}

int VisioShape::connectionIndex(QPointF devicePoint, int pageHeight)
{
    const std::pair<double, double> key(devicePoint.x() + 0.0, devicePoint.y() + 0.0);
    if (const auto known = connectionPoints.constFind(key); known != connectionPoints.constEnd())
        return *known;
    const int index = static_cast<int>(connectionPoints.size());
    connectionPoints.insert(key, index);

    VisioElement::LatePart &section = element.connections;
    if (section.at < 0) {
        element.settle(section);
        VisioMarkup rows(cellDepth);
        rows.open("Section", {{"N", "Connection"}});
        section.head = rows.markup();
        section.tail = QByteArray(cellDepth, ' ') + "</Section>\n";
    }
    const VisioFrame &place = frame(pageHeight);
    const QPointF position = place.position(devicePoint);
    VisioMarkup row(cellDepth + 1);
    row.open("Row", {{"T", "Connection"}, {"IX", QByteArray::number(index)}});
    numberCell(row, "X", position.x(), formulaOf("Width*", place.xShare(position.x())));
    numberCell(row, "Y", position.y(), formulaOf("Height*", place.yShare(position.y())));
    row.close("Row");
    section.content.append(row.markup());
    return index;
}

void VisioShape::setEnds(int pageHeight, const QByteArray &tailFormula,
                         const QByteArray &headFormula)
{
    element.settle(element.ends);
    const QPointF nowhere(0.0, pageHeight);
    const QPointF begin = geometry.isEmpty() ? nowhere : geometry.firstRow().point();
    const QPointF end = geometry.isEmpty() ? nowhere : geometry.lastRow().point();
    VisioMarkup cells(cellDepth);
    numberCell(cells, "BeginX", begin.x(), tailFormula);
    numberCell(cells, "BeginY", pageHeight - begin.y(), tailFormula);
    numberCell(cells, "EndX", end.x(), headFormula);
    numberCell(cells, "EndY", pageHeight - end.y(), headFormula);
    element.ends.content = cells.markup();
}

void VisioShape::setRelationships(const QByteArray &entries)
{
    element.settle(element.container);
    element.container.content = relationshipsCell(cellDepth, entries);
}

void VisioShape::setContainer(const QByteArray &entries)
{
    element.settle(element.container);
    VisioMarkup section(cellDepth);
    section.open("Section", {{"N", "User"}});
    section.open("Row", {{"N", "msvStructureType"}});
    section.empty("Cell", {{"N", "Value"}, {"V", "Container"}, {"U", "STR"}});
    section.close("Row");
    section.close("Section");
    section.append(relationshipsCell(cellDepth, entries));
    element.container.content = section.markup();
}

// Without the three style attributes readers apply no style: fills don't show, and texts get a box.
QByteArray VisioShape::takeMarkup()
{
    VisioMarkup shape(depth);
    shape.open("Shape",
               {{"ID", idText()},
                {"Type", "Shape"},
                {"LineStyle", "0"},
                {"FillStyle", "0"},
                {"TextStyle", "0"}});
    constexpr qsizetype endTag = 16;
    QByteArray markup;
    markup.reserve(shape.size() + element.size() + endTag);
    markup.append(shape.markup());
    element.appendTo(markup);
    markup.append(QByteArray(depth, ' ') + "</Shape>\n");
    element = VisioElement(cellDepth);
    return markup;
}

const VisioFrame &VisioShape::frame(int pageHeight)
{
    if (!knownFrame)
        knownFrame = VisioFrame(frameRows(), geometry.isEdge, pageHeight);
    return *knownFrame;
}

QList<VisioRow> VisioShape::frameRows() const
{
    if (!geometry.isEmpty() || texts.isEmpty())
        return geometry.allRows();
    return VisioGeometry::rectangleRows(textTopLeft.point(), textBottomRight.point());
}

void VisioShape::writeTransform(const VisioFrame &place)
{
    static const EdgeFormulas edgeFormulas;
    static const EdgeFormulas noFormulas{QByteArray(), QByteArray(), QByteArray(), QByteArray()};
    const EdgeFormulas &formulas = geometry.isEdge ? edgeFormulas : noFormulas;
    VisioMarkup &body = element.body;
    numberCell(body, "PinX", place.pin().x(), formulas.pinX);
    numberCell(body, "PinY", place.pin().y(), formulas.pinY);
    numberCell(body, "Width", place.width(), formulas.width);
    numberCell(body, "Height", place.height());
    numberCell(body, "LocPinX", place.width() * 0.5, "Width*0.5");
    numberCell(body, "LocPinY", place.height() * place.pinShare(),
               formulaOf("Height*", place.pinShare()));
    rawCell(body, "Angle", place.angle(), formulas.angle);
    plainCell(body, "FlipX", 0);
    plainCell(body, "FlipY", 0);
    plainCell(body, "ResizeMode", 0);
    if (geometry.isEdge) {
        plainCell(body, "BeginArrow", geometry.beginArrow);
        plainCell(body, "EndArrow", geometry.endArrow);
    }
}

// The text keeps upright whatever way a connector runs.
void VisioShape::writeText(const VisioFrame &place)
{
    VisioMarkup &body = element.body;
    const QPointF centre = place.position((textTopLeft.point() + textBottomRight.point()) * 0.5);
    const double width = textBottomRight.x - textTopLeft.x;
    const double height = textBottomRight.y - textTopLeft.y;
    numberCell(body, "TxtPinX", centre.x(), formulaOf("Width*", place.xShare(centre.x())));
    numberCell(body, "TxtPinY", centre.y(), formulaOf("Height*", place.yShare(centre.y())));
    numberCell(body, "TxtWidth", width, formulaOf("Width*", place.xShare(width)));
    numberCell(body, "TxtHeight", height, formulaOf("Height*", place.yShare(height)));
    numberCell(body, "TxtLocPinX", width * 0.5, "TxtWidth*0.5");
    numberCell(body, "TxtLocPinY", height * 0.5, "TxtHeight*0.5");
    rawCell(body, "TxtAngle", -place.angle(), "-Angle");
    body.text("Text", {}, xmlEscaped(texts.join(u'\n'), XmlForm::DocumentText));
}

void VisioShape::writeGeometry(const VisioFrame &place)
{
    VisioMarkup &body = element.body;
    body.open("Section", {{"N", "Geometry"}, {"IX", "0"}});
    plainCell(body, "NoFill", !geometry.isEdge && hasFill ? 0 : 1);
    plainCell(body, "NoLine", 0);
    plainCell(body, "NoShow", 0);
    plainCell(body, "NoSnap", 0);
    plainCell(body, "NoQuickDrag", 0);
    constexpr int cells = 5;
    writeGeometryRows(body, cells, geometry.allRows(), place);
    body.close("Section");
    geometry.keepEnds();
}

} // namespace ORR::Graph
