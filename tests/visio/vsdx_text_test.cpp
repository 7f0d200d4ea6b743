#include "visio_reading.h"

#include "support/golden.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QStringList namesOf(const QDomElement &element)
{
    QStringList names;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        names += child.attribute(u"N"_s, child.tagName());
    }
    return names;
}

double number(const QDomElement &element, const QString &cell)
{
    return valueOf(element, cell).toDouble();
}

} // namespace

TEST(VisioVsdxText, a_font_of_12_gives_a_size_of_11)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    device.drawText(
        {0, 0},
        device.text(u"x"_s, device.font(u"Times \"New\""_s, 12, 0), device.color(u"red"_s)));
    const QDomElement row =
        rowsOf(sectionOf(shapeById(drawing.page(), 1), u"Character"_s)).value(0);
    EXPECT_EQ(row.attribute(u"IX"_s), u"0"_s);
    EXPECT_FALSE(row.hasAttribute(u"T"_s));
    EXPECT_EQ(number(row, u"Size"_s), 11 / 72.0);
    EXPECT_EQ(valueOf(row, u"Color"_s), u"#ff0000"_s);
    EXPECT_EQ(valueOf(row, u"Font"_s), u"Times \"New\""_s);
    EXPECT_EQ(formulaOf(row, u"Font"_s), u"FONTOID(\"Times \"\"New\"\"\")"_s);
}

TEST(VisioVsdxText, bold_italic_and_both_give_style_1)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    for (int style = 0; style < 4; ++style)
        device.drawText({0, 0}, device.text(u"x"_s, device.font(u"Arial"_s, 12, style), nullptr));
    const QDomDocument page = drawing.page();
    QStringList styles;
    for (int id = 1; id <= 4; ++id) {
        styles +=
            valueOf(rowsOf(sectionOf(shapeById(page, id), u"Character"_s)).value(0), u"Style"_s);
    }
    EXPECT_EQ(styles.join(u' '), u"0 1 1 1"_s);
}

TEST(VisioVsdxText, only_the_first_text_of_a_shape_gives_its_characters)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    SmallGraph graph;
    device.beginNode(graph.a);
    device.drawText({0, 0}, device.text(u"one"_s, device.font(u"Arial"_s, 12, 0), nullptr));
    device.drawText({0, 20}, device.text(u"two"_s, device.font(u"Arial"_s, 20, 0), nullptr));
    device.endNode();
    const QDomElement shape = shapeById(drawing.page(), 1);
    EXPECT_EQ(namesOf(shape).count(u"Character"_s), 1);
    EXPECT_EQ(rowsOf(sectionOf(shape, u"Character"_s)).size(), 1);
    EXPECT_EQ(shape.firstChildElement(u"Text"_s).text(), u"one\ntwo"_s);
}

TEST(VisioVsdxText, the_text_box_is_placed_by_parts_of_the_frame)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    SmallGraph graph;
    Device::Text *text = device.text(u"label"_s, nullptr, nullptr);
    const QSize size = TextImage::textSize(text, false);
    device.beginNode(graph.a);
    device.drawRect({0, 0}, {200, 100}, 0, nullptr, nullptr);
    device.drawText({10, 20}, text);
    device.endNode();
    const QDomElement shape = shapeById(drawing.page(), 1);
    const double x = 10 + size.width() / 2.0;
    const double y = 100 - (20 + size.height() / 2.0);
    EXPECT_DOUBLE_EQ(number(shape, u"TxtPinX"_s), x / 72.0);
    EXPECT_EQ(formulaOf(shape, u"TxtPinX"_s), u"Width*"_s + QString::number(x / 200, 'g', 6));
    EXPECT_DOUBLE_EQ(number(shape, u"TxtPinY"_s), y / 72.0);
    EXPECT_EQ(formulaOf(shape, u"TxtPinY"_s), u"Height*"_s + QString::number(y / 100, 'g', 6));
    EXPECT_DOUBLE_EQ(number(shape, u"TxtWidth"_s), size.width() / 72.0);
    EXPECT_EQ(formulaOf(shape, u"TxtWidth"_s),
              u"Width*"_s + QString::number(size.width() / 200.0, 'g', 6));
    EXPECT_EQ(formulaOf(shape, u"TxtHeight"_s),
              u"Height*"_s + QString::number(size.height() / 100.0, 'g', 6));
    EXPECT_EQ(formulaOf(shape, u"TxtLocPinX"_s), u"TxtWidth*0.5"_s);
    EXPECT_EQ(formulaOf(shape, u"TxtLocPinY"_s), u"TxtHeight*0.5"_s);
    EXPECT_EQ(formulaOf(shape, u"TxtAngle"_s), u"-Angle"_s);
}

TEST(VisioVsdxText, a_text_on_an_edge_is_turned_back_upright)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    SmallGraph graph;
    device.beginEdge(graph.ab);
    device.drawPolyline({{72, 360}, {72, 288}}, device.pen(device.color(u"red"_s), 0, 1));
    device.drawText({80, 300}, device.text(u"label"_s, nullptr, nullptr));
    device.endEdge();
    const QDomElement shape = shapeById(drawing.page(), 1);
    EXPECT_EQ(number(shape, u"TxtAngle"_s), -number(shape, u"Angle"_s));
    EXPECT_EQ(formulaOf(shape, u"TxtHeight"_s), u"Height*0"_s); // a straight edge has no height
}

TEST(VisioVsdxText, a_text_without_any_rows_has_its_box_for_an_outline)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    Device::Text *text = device.text(u"label"_s, nullptr, nullptr);
    const QSize size = TextImage::textSize(text, false);
    device.drawText({100, 200}, text);
    const QDomElement shape = shapeById(drawing.page(), 1);
    EXPECT_DOUBLE_EQ(number(shape, u"Width"_s), size.width() / 72.0);
    EXPECT_DOUBLE_EQ(number(shape, u"Height"_s), size.height() / 72.0);
    EXPECT_EQ(rowsOf(sectionOf(shape, u"Geometry"_s)).size(), 5);
    EXPECT_TRUE(cellOf(shape, u"LinePattern"_s).isNull());
}

TEST(VisioVsdxText, rich_text_is_drawn_as_its_plain_text)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    device.drawRichText({0, 0}, device.text(u"<b>bold</b> and not"_s, nullptr, nullptr));
    EXPECT_EQ(shapeById(drawing.page(), 1).firstChildElement(u"Text"_s).text(), u"bold and not"_s);
}
