#include "visio_reading.h"

#include "support/golden.h"

#include <cmath>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QStringList childrenOf(const QDomElement &element)
{
    QStringList names;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        names += child.tagName();
    }
    return names;
}

QList<QDomElement> rowsOfGeom(const QDomElement &shape)
{
    QList<QDomElement> rows;
    for (QDomElement row = childAt(shape, u"Geom"_s).firstChildElement(); !row.isNull();
         row = row.nextSiblingElement()) {
        if (row.hasAttribute(u"IX"_s))
            rows.append(row);
    }
    return rows;
}

Device::Pen *redPen(Device &device)
{
    return device.pen(device.color(u"red"_s), 0, 1);
}

} // namespace

TEST(VisioVdx, the_skeleton_holds_the_page)
{
    XmlDrawing drawing;
    drawing.device.begin(720, 360);
    const QDomElement root = drawing.document().documentElement();
    EXPECT_EQ(root.tagName(), u"VisioDocument"_s);
    EXPECT_EQ(root.attribute(u"xmlns"_s), u"http://schemas.microsoft.com/visio/2003/core"_s);
    EXPECT_EQ(childrenOf(root).join(u' '), u"StyleSheets Masters Pages"_s);
    const QDomElement page = childAt(root, u"Pages/Page"_s);
    EXPECT_EQ(page.attribute(u"ID"_s), u"0"_s);
    EXPECT_EQ(childrenOf(page).join(u' '), u"PageSheet Shapes Connects"_s);
}

TEST(VisioVdx, a_page_of_720_by_360_points_is_10_by_5_inches)
{
    XmlDrawing drawing;
    drawing.device.begin(720, 360);
    const QDomElement props =
        childAt(drawing.document().documentElement(), u"Pages/Page/PageSheet/PageProps"_s);
    EXPECT_EQ(textAt(props, u"PageWidth"_s), u"10"_s);
    EXPECT_EQ(textAt(props, u"PageHeight"_s), u"5"_s);
}

TEST(VisioVdx, empty_elements_keep_a_start_and_an_end_tag)
{
    XmlDrawing drawing;
    drawing.device.begin(720, 360);
    drawing.device.drawRect({0, 0}, {9, 9}, 0, nullptr, nullptr);
    const QByteArray bytes = drawing.bytes();
    EXPECT_TRUE(bytes.contains("<StyleSheets></StyleSheets>"));
    EXPECT_TRUE(bytes.contains("<Masters></Masters>"));
    EXPECT_FALSE(bytes.contains("/>"));
}

TEST(VisioVdx, the_cells_of_a_node_stand_in_their_order)
{
    XmlDrawing drawing;
    drawing.device.begin(720, 360);
    drawing.device.drawRect({0, 0}, {9, 9}, 0, redPen(drawing.device), nullptr);
    const QDomElement shape = shapeById(drawing.document(), 1);
    EXPECT_EQ(childrenOf(shape).join(u' '), u"XForm TextXForm Fill Line Char Geom Text"_s);
    EXPECT_EQ(childrenOf(childAt(shape, u"XForm"_s)).join(u' '),
              u"PinX PinY Width Height LocPinX LocPinY"_s);
}

TEST(VisioVdx, the_cells_of_an_edge_have_no_fill_and_its_angle_and_arrows)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    device.beginEdge(graph.ab);
    device.drawPolyline({{0, 0}, {72, 0}}, redPen(device));
    device.drawPolygon({{72, 0}, {66, -3}, {66, 3}, {72, 0}}, redPen(device), nullptr);
    device.drawEllipse({0, 0}, 3, 3, redPen(device), device.color(u"red"_s));
    device.endEdge();
    const QDomElement shape = shapeById(drawing.document(), 1);
    EXPECT_EQ(childrenOf(shape).join(u' '), u"XForm TextXForm Line Char Geom Text XForm1D"_s);
    EXPECT_EQ(childrenOf(childAt(shape, u"XForm"_s)).join(u' '),
              u"PinX PinY Width Height LocPinX LocPinY Angle"_s);
    EXPECT_EQ(childrenOf(childAt(shape, u"Line"_s)).join(u' '),
              u"LineWeight LineColor LinePattern BeginArrow EndArrow"_s);
    EXPECT_EQ(textAt(shape, u"Line/EndArrow"_s), u"14"_s);
    EXPECT_EQ(textAt(shape, u"Line/BeginArrow"_s), u"10"_s);
}

TEST(VisioVdx, a_node_stands_by_the_middle_of_its_box_from_the_bottom_of_the_page)
{
    XmlDrawing drawing;
    drawing.device.begin(720, 360);
    drawing.device.drawRect({72, 36}, {216, 108}, 0, nullptr, nullptr);
    const QDomElement shape = shapeById(drawing.document(), 1);
    EXPECT_EQ(textAt(shape, u"XForm/PinX"_s), u"2"_s);
    EXPECT_EQ(textAt(shape, u"XForm/PinY"_s), u"4"_s);
    EXPECT_EQ(textAt(shape, u"XForm/Width"_s), u"2"_s);
    EXPECT_EQ(textAt(shape, u"XForm/Height"_s), u"1"_s);
    EXPECT_EQ(formulaAt(shape, u"XForm/LocPinX"_s), u"Width*0.5"_s);
    EXPECT_EQ(textAt(shape, u"XForm/LocPinX"_s), u"1"_s);
    EXPECT_EQ(formulaAt(shape, u"XForm/LocPinY"_s), u"Height*0.5"_s);
    EXPECT_EQ(textAt(shape, u"XForm/LocPinY"_s), u"0.5"_s);
}

TEST(VisioVdx, an_edge_is_tied_to_its_ends_by_formulas)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    device.beginEdge(graph.ab);
    // Up the page by 72, with a bend 36 to its left and one 18 to its right.
    device.drawPolyline({{72, 360}, {36, 342}, {90, 324}, {72, 288}}, redPen(device));
    device.endEdge();
    const QDomElement shape = shapeById(drawing.document(), 1);
    EXPECT_EQ(formulaAt(shape, u"XForm/PinX"_s), u"(BeginX+EndX)/2"_s);
    EXPECT_EQ(formulaAt(shape, u"XForm/PinY"_s), u"(BeginY+EndY)/2"_s);
    EXPECT_EQ(formulaAt(shape, u"XForm/Width"_s), u"SQRT((EndX-BeginX)^2+(EndY-BeginY)^2)"_s);
    EXPECT_EQ(textAt(shape, u"XForm/Height"_s), u"0.75"_s);
    EXPECT_EQ(formulaAt(shape, u"XForm/Height"_s), QString());
    EXPECT_EQ(formulaAt(shape, u"XForm/LocPinX"_s), u"Width*0.5"_s);
    EXPECT_EQ(formulaAt(shape, u"XForm/LocPinY"_s), u"Height*0.333333"_s);
    EXPECT_EQ(formulaAt(shape, u"XForm/Angle"_s), u"ATAN2(EndY-BeginY,EndX-BeginX)"_s);
    EXPECT_EQ(textAt(shape, u"XForm/Angle"_s), u"1.5708"_s);
}

TEST(VisioVdx, the_places_of_an_edge_are_formulas_alone)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    device.beginEdge(graph.ab);
    device.drawPolyline({{72, 360}, {36, 342}, {90, 324}, {72, 288}}, redPen(device));
    device.endEdge();
    const QDomElement shape = shapeById(drawing.document(), 1);
    EXPECT_EQ(textAt(shape, u"Geom/NoFill"_s), u"1"_s);
    QStringList places;
    for (const QDomElement &row : rowsOfGeom(shape)) {
        EXPECT_EQ(textAt(row, u"X"_s), QString());
        EXPECT_EQ(textAt(row, u"Y"_s), QString());
        places += formulaAt(row, u"X"_s) + u' ' + formulaAt(row, u"Y"_s);
    }
    // Heights are counted from the lowest row, as the pin's is.
    EXPECT_EQ(places.join(u", "),
              u"Width*0 Height*0.333333, Width*0.25 Height*1, Width*0.5 Height*0, "
              "Width*1 Height*0.333333"_s);
}

TEST(VisioVdx, a_straight_edge_divides_by_no_height)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    device.beginEdge(graph.ab);
    device.drawPolyline({{0, 0}, {72, 0}}, redPen(device));
    device.endEdge();
    const QDomElement shape = shapeById(drawing.document(), 1);
    EXPECT_EQ(textAt(shape, u"XForm/Height"_s), u"0"_s);
    EXPECT_EQ(formulaAt(shape, u"XForm/LocPinY"_s), u"Height*0"_s);
    EXPECT_EQ(formulaAt(rowsOfGeom(shape).at(1), u"Y"_s), u"Height*0"_s);
}

TEST(VisioVdx, a_shape_without_text_still_has_a_place_for_one)
{
    XmlDrawing drawing;
    drawing.device.begin(720, 360);
    drawing.device.drawRect({0, 0}, {72, 72}, 0, nullptr, nullptr);
    const QDomElement shape = shapeById(drawing.document(), 1);
    EXPECT_EQ(childrenOf(childAt(shape, u"TextXForm"_s)).join(u' '),
              u"TxtPinX TxtPinY TxtWidth TxtHeight TxtLocPinX TxtLocPinY"_s);
    EXPECT_EQ(formulaAt(shape, u"TextXForm/TxtPinX"_s), u"Width*0.5"_s);
    EXPECT_EQ(formulaAt(shape, u"TextXForm/TxtPinY"_s), u"Height*0.5"_s);
    EXPECT_EQ(formulaAt(shape, u"TextXForm/TxtWidth"_s), u"Width*0.85"_s);
    EXPECT_EQ(formulaAt(shape, u"TextXForm/TxtHeight"_s), u"Height*0.75"_s);
    EXPECT_EQ(formulaAt(shape, u"TextXForm/TxtLocPinX"_s), u"0.5*TxtWidth"_s);
    EXPECT_EQ(formulaAt(shape, u"TextXForm/TxtLocPinY"_s), u"0.5*TxtHeight"_s);
    EXPECT_EQ(textAt(shape, u"TextXForm/TxtWidth"_s), u"0.85"_s);
    EXPECT_FALSE(childAt(shape, u"Text"_s).isNull());
    EXPECT_EQ(textAt(shape, u"Text"_s), QString());
}

TEST(VisioVdx, only_an_edge_that_turns_has_a_text_angle)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    const QList<QList<QPoint>> lines{{{0, 0}, {72, 0}}, {{0, 72}, {72, 0}}, {{0, 0}, {72, 72}}};
    for (const QList<QPoint> &line : lines) {
        device.beginEdge(graph.ab);
        device.drawPolyline(line, redPen(device));
        device.endEdge();
    }
    const QDomDocument document = drawing.document();
    EXPECT_TRUE(childAt(shapeById(document, 1), u"TextXForm/TxtAngle"_s).isNull());
    EXPECT_EQ(formulaAt(shapeById(document, 2), u"TextXForm/TxtAngle"_s), u"-Angle"_s);
    EXPECT_EQ(textAt(shapeById(document, 2), u"TextXForm/TxtAngle"_s), u"-0.785398"_s);
    EXPECT_TRUE(childAt(shapeById(document, 3), u"TextXForm/TxtAngle"_s).isNull()); // downward
}

TEST(VisioVdx, fill_and_line_have_formula_value_and_pattern)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    device.drawRect({0, 0}, {72, 72}, 0, device.pen(device.color(u"#102030"_s), 2, 36),
                    device.color(u"lime"_s));
    device.drawRect({0, 0}, {72, 72}, 0, nullptr, nullptr);
    const QDomDocument document = drawing.document();
    const QDomElement painted = shapeById(document, 1);
    EXPECT_EQ(formulaAt(painted, u"Fill/FillForegnd"_s), u"RGB(0,255,0)"_s);
    EXPECT_EQ(textAt(painted, u"Fill/FillForegnd"_s), u"#00ff00"_s);
    EXPECT_EQ(textAt(painted, u"Fill/FillPattern"_s), u"1"_s);
    EXPECT_EQ(textAt(painted, u"Line/LineWeight"_s), u"0.5"_s);
    EXPECT_EQ(formulaAt(painted, u"Line/LineColor"_s), u"RGB(16,32,48)"_s);
    EXPECT_EQ(textAt(painted, u"Line/LinePattern"_s), u"3"_s);
    const QDomElement bare = shapeById(document, 2);
    EXPECT_TRUE(childAt(bare, u"Fill/FillForegnd"_s).isNull());
    EXPECT_EQ(textAt(bare, u"Fill/FillPattern"_s), u"0"_s);
    EXPECT_EQ(textAt(bare, u"Line/LinePattern"_s), u"0"_s);
}

TEST(VisioVdx, the_last_pen_and_the_last_fill_count)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    device.beginNode(graph.a);
    device.drawRect({0, 0}, {72, 72}, 0, redPen(device), device.color(u"red"_s));
    device.drawRect({0, 0}, {72, 72}, 0, device.pen(device.color(u"blue"_s), 1, 2),
                    device.color(u"lime"_s));
    device.drawPolyline({{0, 0}, {72, 72}}, nullptr);
    device.endNode();
    const QDomElement shape = shapeById(drawing.document(), 1);
    EXPECT_EQ(textAt(shape, u"Fill/FillForegnd"_s), u"#00ff00"_s);
    EXPECT_EQ(textAt(shape, u"Line/LineColor"_s), u"#0000ff"_s);
}

TEST(VisioVdx, characters_come_from_the_last_font_and_lines_of_text_are_joined)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    device.beginNode(graph.a);
    device.drawText({0, 0}, device.text(u"one"_s, device.font(u"Times"_s, 10, 0), nullptr));
    device.drawText(
        {0, 20}, device.text(u"two <&>"_s, device.font(u"Arial"_s, 18, 3), device.color(u"red"_s)));
    device.endNode();
    const QDomElement shape = shapeById(drawing.document(), 1);
    EXPECT_EQ(childAt(shape, u"Char"_s).attribute(u"IX"_s), u"0"_s);
    EXPECT_EQ(childrenOf(childAt(shape, u"Char"_s)).join(u' '), u"Font Color Style Size"_s);
    EXPECT_EQ(formulaAt(shape, u"Char/Font"_s), u"FONTTOID(\"Arial\")"_s);
    EXPECT_EQ(textAt(shape, u"Char/Font"_s), u"Arial"_s);
    EXPECT_EQ(formulaAt(shape, u"Char/Color"_s), u"RGB(255,0,0)"_s);
    EXPECT_EQ(textAt(shape, u"Char/Style"_s), u"3"_s);
    EXPECT_EQ(textAt(shape, u"Char/Size"_s), u"0.25"_s);
    EXPECT_EQ(textAt(shape, u"Text"_s), u"one\ntwo <&>"_s);
}

TEST(VisioVdx, a_text_alone_has_its_box_for_an_outline)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    Device::Text *text = device.text(u"label"_s, nullptr, nullptr);
    const QSize size = TextImage::textSize(text, false);
    device.drawText({72, 36}, text);
    const QDomElement shape = shapeById(drawing.document(), 1);
    EXPECT_EQ(textAt(shape, u"XForm/Width"_s), QString::number(size.width() / 72.0, 'g', 6));
    EXPECT_EQ(textAt(shape, u"XForm/PinX"_s),
              QString::number((72 + size.width() / 2.0) / 72.0, 'g', 6));
    EXPECT_EQ(rowsOfGeom(shape).size(), 5);
}

TEST(VisioVdx, rows_are_numbered_from_1_and_hold_share_and_value)
{
    XmlDrawing drawing;
    drawing.device.begin(720, 360);
    drawing.device.drawPolyline({{0, 0}, {36, 72}, {72, 144}}, nullptr);
    const QList<QDomElement> rows = rowsOfGeom(shapeById(drawing.document(), 1));
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows.at(0).tagName(), u"MoveTo"_s);
    EXPECT_EQ(rows.at(0).attribute(u"IX"_s), u"1"_s);
    EXPECT_EQ(rows.at(1).tagName(), u"LineTo"_s);
    EXPECT_EQ(rows.at(1).attribute(u"IX"_s), u"2"_s);
    EXPECT_EQ(formulaAt(rows.at(0), u"Y"_s), u"Height*1"_s);
    EXPECT_EQ(textAt(rows.at(0), u"Y"_s), u"2"_s);
    EXPECT_EQ(formulaAt(rows.at(1), u"X"_s), u"Width*0.5"_s);
    EXPECT_EQ(textAt(rows.at(1), u"X"_s), u"0.5"_s);
    EXPECT_EQ(formulaAt(rows.at(2), u"X"_s), u"Width*1"_s);
}

TEST(VisioVdx, splines_and_arcs_have_their_own_cells)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    device.drawBezier({{0, 0}, {1, 9}, {2, 9}, {3, 0}, {4, 9}, {5, 9}, {6, 0}}, nullptr, nullptr);
    device.drawEllipse({144, 72}, 72, 36, nullptr, nullptr);
    const QDomDocument document = drawing.document();
    const QList<QDomElement> spline = rowsOfGeom(shapeById(document, 1));
    EXPECT_EQ(childrenOf(spline.at(1)).join(u' '), u"X Y A B C D"_s);
    EXPECT_EQ(spline.at(1).tagName(), u"SplineStart"_s);
    EXPECT_EQ(textAt(spline.at(1), u"A"_s), u"0"_s);
    EXPECT_EQ(textAt(spline.at(1), u"C"_s), u"2"_s);
    EXPECT_EQ(textAt(spline.at(1), u"D"_s), u"3"_s);
    EXPECT_EQ(childrenOf(spline.at(4)).join(u' '), u"X Y A"_s);
    EXPECT_EQ(spline.at(4).tagName(), u"SplineKnot"_s);
    EXPECT_EQ(textAt(spline.at(4), u"A"_s), u"1"_s);
    const QDomElement arc = rowsOfGeom(shapeById(document, 2)).at(1);
    EXPECT_EQ(arc.tagName(), u"EllipticalArcTo"_s);
    EXPECT_EQ(childrenOf(arc).join(u' '), u"X Y A B C D"_s);
    EXPECT_EQ(formulaAt(arc, u"A"_s), u"Width*0.5"_s);
    EXPECT_EQ(textAt(arc, u"A"_s), u"1"_s);
    EXPECT_EQ(formulaAt(arc, u"B"_s), u"Height*1"_s);
    EXPECT_EQ(formulaAt(arc, u"D"_s), u"Width/Height"_s);
    EXPECT_EQ(textAt(arc, u"D"_s), u"2"_s);
}

// The shared point takes the place of the arc's end, and its control row has no row to be in.
TEST(VisioVdx, an_arc_that_opens_a_joined_path_leaves_no_row)
{
    XmlDrawing drawing;
    SmallGraph graph;
    Device &device = drawing.device;
    device.begin(108, 208);
    device.beginNode(graph.a);
    device.drawPolyline({{4, 204}, {34, 194}}, nullptr);
    Device::Path *path = device.createPath();
    path->arcTo({14, 194}, {54, 174}, 0, 90); // ends at 34,194
    path->lineTo({60, 190});
    device.drawPath(path, nullptr, nullptr);
    device.endNode();
    const QList<QDomElement> rows = rowsOfGeom(shapeById(drawing.document(), 1));
    QStringList written;
    for (const QDomElement &row : rows)
        written += row.attribute(u"IX"_s) + u' ' + row.tagName();
    EXPECT_EQ(written.join(u", "_s), u"1 MoveTo, 2 LineTo, 3 LineTo"_s);
}

TEST(VisioVdx, shapes_begun_within_an_object_stand_inside_its_shape)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    device.beginCluster(graph.cluster, true);
    device.beginNode(graph.a);
    device.drawRect({0, 0}, {9, 9}, 0, redPen(device), nullptr);
    device.endNode();
    device.drawRect({0, 0}, {90, 90}, 0, redPen(device), nullptr);
    device.endCluster();
    device.drawRect({0, 0}, {90, 90}, 0, redPen(device), nullptr);
    const QDomDocument document = drawing.document();
    EXPECT_EQ(shapeById(document, 2).parentNode().toElement(), shapeById(document, 1));
    EXPECT_EQ(shapeById(document, 3).parentNode().toElement().tagName(), u"Shapes"_s);
    EXPECT_EQ(textAt(shapeById(document, 1), u"XForm/Width"_s), u"1.25"_s);
}

TEST(VisioVdx, a_colour_that_lets_through_says_how_much)
{
    XmlDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    device.drawRect({0, 0}, {9, 9}, 0, nullptr, device.color(u"none"_s));
    EXPECT_EQ(textAt(shapeById(drawing.document(), 1), u"Fill/FillForegndTrans"_s), u"1"_s);
}
