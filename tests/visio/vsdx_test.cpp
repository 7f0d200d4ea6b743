#include "visio_reading.h"

#include "support/golden.h"

#include <cmath>

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

TEST(VisioVsdx, begin_sets_the_size_of_the_page_in_inches)
{
    PackageDrawing drawing;
    drawing.device.begin(720, 360);
    const QDomDocument pages = parsed(drawing.parts().value(u"visio/pages/pages.xml"_s));
    QStringList sizes;
    for (const QDomElement &cell : elementsWithin(pages.documentElement(), u"Cell"_s)) {
        if (cell.attribute(u"N"_s).startsWith(u"Page") && cell.attribute(u"N"_s) != u"PageScale")
            sizes += cell.attribute(u"N"_s) + u'=' + cell.attribute(u"V"_s);
    }
    EXPECT_EQ(sizes.join(u' '), u"PageWidth=10 PageHeight=5"_s);
}

TEST(VisioVsdx, begin_appends_the_shapes_to_the_root_of_the_page)
{
    PackageDrawing drawing;
    drawing.device.begin(720, 360);
    const QDomElement root = drawing.page().documentElement();
    EXPECT_EQ(root.firstChildElement().tagName(), u"Shapes"_s);
}

TEST(VisioVsdx, a_polygon_outside_of_any_node_is_a_shape_of_its_own)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    Device::Pen *pen = device.pen(device.color(u"red"_s), 0, 1);
    device.drawPolygon({{0, 0}, {72, 0}, {0, 72}, {0, 0}}, pen, nullptr);
    device.drawPolygon({{72, 0}, {144, 0}, {72, 72}, {72, 0}}, pen, nullptr);
    const QDomDocument page = drawing.page();
    ASSERT_EQ(shapesOf(page).size(), 2);
    EXPECT_EQ(shapesOf(page).at(0).attribute(u"ID"_s), u"1"_s);
    EXPECT_EQ(shapesOf(page).at(1).attribute(u"ID"_s), u"2"_s);
    EXPECT_EQ(shapesOf(page).at(0).attribute(u"Type"_s), u"Shape"_s);
}

TEST(VisioVsdx, a_shape_takes_style_0_so_that_readers_show_its_fill)
{
    PackageDrawing drawing;
    drawing.device.begin(72, 72);
    drawing.device.drawRect({0, 0}, {9, 9}, 0, nullptr, drawing.device.color(u"red"_s));
    const QDomElement shape = shapeById(drawing.page(), 1);
    for (const QString &style : {u"LineStyle"_s, u"FillStyle"_s, u"TextStyle"_s})
        EXPECT_EQ(shape.attribute(style), u"0"_s);
}

TEST(VisioVsdx, a_node_with_an_ellipse_and_a_text_is_one_shape)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    SmallGraph graph;
    device.begin(720, 360);
    device.beginNode(graph.a);
    device.drawEllipse({100, 100}, 50, 20, device.pen(device.color(u"red"_s), 0, 1), nullptr);
    device.drawText({80, 90}, device.text(u"label"_s, nullptr, device.color(u"blue"_s)));
    device.endNode();
    const QDomDocument page = drawing.page();
    ASSERT_EQ(shapesOf(page).size(), 1);
    const QDomElement shape = shapeById(page, 1);
    EXPECT_FALSE(sectionOf(shape, u"Geometry"_s).isNull());
    EXPECT_FALSE(sectionOf(shape, u"Character"_s).isNull());
    EXPECT_EQ(shape.firstChildElement(u"Text"_s).text(), u"label"_s);
}

TEST(VisioVsdx, cells_stand_in_their_order)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    SmallGraph graph;
    device.beginNode(graph.a);
    device.drawRect({0, 0}, {72, 72}, 0, device.pen(device.color(u"red"_s), 0, 1),
                    device.color(u"blue"_s));
    device.drawText({8, 9}, device.text(u"label"_s, nullptr, nullptr));
    device.endNode();
    EXPECT_EQ(namesOf(shapeById(drawing.page(), 1)).join(u' '),
              u"LineWeight LineColor LinePattern FillForegnd Character PinX PinY Width Height "
              "LocPinX LocPinY Angle FlipX FlipY ResizeMode TxtPinX TxtPinY TxtWidth TxtHeight "
              "TxtLocPinX TxtLocPinY TxtAngle Text Geometry"_s);
}

TEST(VisioVsdx, an_edge_has_its_arrows_behind_the_transform)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    SmallGraph graph;
    device.beginEdge(graph.ab);
    device.drawPolyline({{0, 0}, {72, 0}}, device.pen(device.color(u"red"_s), 0, 1));
    device.endEdge();
    EXPECT_EQ(
        namesOf(shapeById(drawing.page(), 1)).join(u' '),
        u"LineWeight LineColor LinePattern PinX PinY Width Height LocPinX LocPinY Angle FlipX "
        "FlipY ResizeMode BeginArrow EndArrow Geometry BeginX BeginY EndX EndY"_s);
}

TEST(VisioVsdx, line_cells_come_from_the_first_pen_and_once)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    SmallGraph graph;
    device.beginNode(graph.a);
    device.drawRect({0, 0}, {9, 9}, 0, device.pen(device.color(u"red"_s), 1, 3), nullptr);
    device.drawRect({9, 9}, {20, 20}, 0, device.pen(device.color(u"lime"_s), 2, 5), nullptr);
    device.endNode();
    const QDomElement shape = shapeById(drawing.page(), 1);
    EXPECT_EQ(namesOf(shape).count(u"LineWeight"_s), 1);
    EXPECT_EQ(number(shape, u"LineWeight"_s), 3 / 72.0);
    EXPECT_EQ(valueOf(shape, u"LineColor"_s), u"#ff0000"_s);
    EXPECT_EQ(valueOf(shape, u"LinePattern"_s), u"2"_s);
}

TEST(VisioVsdx, line_patterns_are_1_for_solid_2_for_dashed_and_3_for_dotted)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    for (int style = 0; style < 3; ++style)
        device.drawPolyline({{0, 0}, {9, 9}}, device.pen(device.color(u"red"_s), style, 1));
    const QDomDocument page = drawing.page();
    for (int style = 0; style < 3; ++style) {
        EXPECT_EQ(valueOf(shapeById(page, style + 1), u"LinePattern"_s),
                  QString::number(style + 1));
    }
}

TEST(VisioVsdx, the_fill_cell_comes_from_the_first_fill_and_once)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    SmallGraph graph;
    device.beginNode(graph.a);
    device.drawRect({0, 0}, {9, 9}, 0, nullptr, nullptr);
    device.drawRect({0, 0}, {8, 8}, 0, nullptr, device.color(u"yellow"_s));
    device.drawRect({0, 0}, {7, 7}, 0, nullptr, device.color(u"red"_s));
    device.endNode();
    const QDomElement shape = shapeById(drawing.page(), 1);
    EXPECT_EQ(namesOf(shape).count(u"FillForegnd"_s), 1);
    EXPECT_EQ(valueOf(shape, u"FillForegnd"_s), u"#ffff00"_s);
    EXPECT_EQ(valueOf(sectionOf(shape, u"Geometry"_s), u"NoFill"_s), u"0"_s);
}

TEST(VisioVsdx, a_gradient_gives_its_first_colour)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    device.drawRect({0, 0}, {9, 9}, 0, nullptr,
                    device.linearGradient({0, 0}, {9, 0}, {u"blue"_s, u"red"_s}, {0.0, 1.0}));
    EXPECT_EQ(valueOf(shapeById(drawing.page(), 1), u"FillForegnd"_s), u"#0000ff"_s);
}

TEST(VisioVsdx, a_colour_that_lets_through_says_how_much)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    device.drawRect({0, 0}, {9, 9}, 0, device.pen(device.color(u"#11223300"_s), 0, 1),
                    device.color(u"none"_s));
    const QDomElement shape = shapeById(drawing.page(), 1);
    EXPECT_EQ(valueOf(shape, u"FillForegnd"_s), u"#000000"_s);
    EXPECT_EQ(valueOf(shape, u"FillForegndTrans"_s), u"1"_s);
    EXPECT_EQ(valueOf(shape, u"LineColor"_s), u"#112233"_s);
    EXPECT_EQ(valueOf(shape, u"LineColorTrans"_s), u"1"_s);
}

TEST(VisioVsdx, a_filled_head_on_an_edge_is_end_arrow_4_and_never_a_fill)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    SmallGraph graph;
    for (Device::Color *fill : {device.color(u"red"_s), static_cast<Device::Color *>(nullptr)}) {
        device.beginEdge(graph.ab);
        device.drawPolyline({{0, 0}, {72, 0}}, device.pen(device.color(u"blue"_s), 0, 1));
        device.drawPolygon({{72, 0}, {66, -3}, {66, 3}, {72, 0}},
                           device.pen(device.color(u"red"_s), 0, 1), fill);
        device.endEdge();
    }
    const QDomDocument page = drawing.page();
    EXPECT_EQ(valueOf(shapeById(page, 1), u"EndArrow"_s), u"4"_s);
    EXPECT_EQ(valueOf(shapeById(page, 2), u"EndArrow"_s), u"14"_s);
    EXPECT_EQ(valueOf(shapeById(page, 1), u"BeginArrow"_s), u"0"_s);
    EXPECT_EQ(valueOf(shapeById(page, 1), u"LineColor"_s), u"#0000ff"_s);
    EXPECT_TRUE(cellOf(shapeById(page, 1), u"FillForegnd"_s).isNull());
    EXPECT_EQ(valueOf(sectionOf(shapeById(page, 1), u"Geometry"_s), u"NoFill"_s), u"1"_s);
}

TEST(VisioVsdx, a_shape_stands_by_the_box_of_its_rows)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    device.drawRect({72, 36}, {216, 108}, 0, nullptr, nullptr);
    const QDomElement shape = shapeById(drawing.page(), 1);
    EXPECT_EQ(number(shape, u"PinX"_s), 2.0);
    EXPECT_EQ(number(shape, u"PinY"_s), 4.0); // 72 points below the top of 360
    EXPECT_EQ(number(shape, u"Width"_s), 2.0);
    EXPECT_EQ(number(shape, u"Height"_s), 1.0);
    EXPECT_EQ(number(shape, u"LocPinX"_s), 1.0);
    EXPECT_EQ(formulaOf(shape, u"LocPinX"_s), u"Width*0.5"_s);
    EXPECT_EQ(number(shape, u"LocPinY"_s), 0.5);
    EXPECT_EQ(formulaOf(shape, u"LocPinY"_s), u"Height*0.5"_s);
    EXPECT_EQ(valueOf(shape, u"Angle"_s), u"0"_s);
    for (const QString &name : {u"PinX"_s, u"PinY"_s, u"Width"_s, u"Height"_s, u"Angle"_s})
        EXPECT_TRUE(formulaOf(shape, name).isEmpty());
    for (const QString &name : {u"FlipX"_s, u"FlipY"_s, u"ResizeMode"_s})
        EXPECT_EQ(valueOf(shape, name), u"0"_s);
    EXPECT_EQ(outlineOf(shape).join(u' '),
              u"MoveTo 0,72 LineTo 144,72 LineTo 144,0 LineTo 0,0 LineTo 0,72"_s);
}

TEST(VisioVsdx, an_edge_stands_by_its_axis)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    SmallGraph graph;
    device.beginEdge(graph.ab);
    // Up the page by 72, with a bend 36 to its left and one 18 to its right.
    device.drawPolyline({{72, 360}, {36, 342}, {90, 324}, {72, 288}},
                        device.pen(device.color(u"red"_s), 0, 1));
    device.endEdge();
    const QDomElement shape = shapeById(drawing.page(), 1);
    EXPECT_EQ(number(shape, u"PinX"_s), 1.0);
    EXPECT_EQ(formulaOf(shape, u"PinX"_s), u"(BeginX+EndX)/2"_s);
    EXPECT_EQ(number(shape, u"PinY"_s), 0.5);
    EXPECT_EQ(formulaOf(shape, u"PinY"_s), u"(BeginY+EndY)/2"_s);
    EXPECT_EQ(number(shape, u"Width"_s), 1.0);
    EXPECT_EQ(formulaOf(shape, u"Width"_s), u"SQRT((EndX-BeginX)^2+(EndY-BeginY)^2)"_s);
    EXPECT_EQ(number(shape, u"Height"_s), 0.75);
    EXPECT_TRUE(formulaOf(shape, u"Height"_s).isEmpty());
    EXPECT_EQ(number(shape, u"LocPinY"_s), 0.25);
    EXPECT_EQ(formulaOf(shape, u"LocPinY"_s), u"Height*0.333333"_s);
    EXPECT_DOUBLE_EQ(number(shape, u"Angle"_s), std::atan2(1.0, 0.0));
    EXPECT_EQ(formulaOf(shape, u"Angle"_s), u"ATAN2(EndY-BeginY,EndX-BeginX)"_s);
    EXPECT_EQ(outlineOf(shape).join(u' '), u"MoveTo 0,18 LineTo 18,54 LineTo 36,0 LineTo 72,18"_s);
}

TEST(VisioVsdx, a_row_behind_the_begin_of_an_edge_counts_forward)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    SmallGraph graph;
    device.beginEdge(graph.ab);
    device.drawPolyline({{72, 0}, {36, 0}, {144, 0}}, device.pen(device.color(u"red"_s), 0, 1));
    device.endEdge();
    EXPECT_EQ(outlineOf(shapeById(drawing.page(), 1)).join(u' '),
              u"MoveTo 0,0 LineTo 36,0 LineTo 72,0"_s);
}

TEST(VisioVsdx, an_edge_that_nothing_holds_keeps_its_ends)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    SmallGraph graph;
    device.beginEdge(graph.ab);
    device.drawPolyline({{72, 0}, {144, 72}}, device.pen(device.color(u"red"_s), 0, 1));
    device.endEdge();
    const QDomElement shape = shapeById(drawing.page(), 1);
    EXPECT_EQ(number(shape, u"BeginX"_s), 1.0);
    EXPECT_EQ(number(shape, u"BeginY"_s), 5.0);
    EXPECT_EQ(number(shape, u"EndX"_s), 2.0);
    EXPECT_EQ(number(shape, u"EndY"_s), 4.0);
    EXPECT_TRUE(formulaOf(shape, u"BeginX"_s).isEmpty());
}

TEST(VisioVsdx, the_geometry_section_has_its_flags_ahead_of_the_rows)
{
    PackageDrawing drawing;
    drawing.device.begin(720, 360);
    drawing.device.drawPolyline({{0, 0}, {72, 36}}, nullptr);
    const QDomElement section = sectionOf(shapeById(drawing.page(), 1), u"Geometry"_s);
    EXPECT_EQ(section.attribute(u"IX"_s), u"0"_s);
    EXPECT_EQ(valueOf(section, u"NoFill"_s), u"1"_s);
    for (const QString &name : {u"NoLine"_s, u"NoShow"_s, u"NoSnap"_s, u"NoQuickDrag"_s})
        EXPECT_EQ(valueOf(section, name), u"0"_s);
    QStringList numbers;
    for (const QDomElement &row : rowsOf(section))
        numbers += row.attribute(u"T"_s) + row.attribute(u"IX"_s);
    EXPECT_EQ(numbers.join(u' '), u"MoveTo5 LineTo6"_s); // counted behind the five flags
    EXPECT_EQ(formulaOf(rowsOf(section).at(1), u"X"_s), u"Width*1"_s);
    EXPECT_EQ(formulaOf(rowsOf(section).at(1), u"Y"_s), u"Height*0"_s);
}

TEST(VisioVsdx, a_spline_counts_its_knots_by_its_degree)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    SmallGraph graph;
    device.beginNode(graph.a);
    device.drawBezier({{0, 0}, {1, 9}, {2, 9}, {3, 0}, {4, 9}, {5, 9}, {6, 0}}, nullptr, nullptr);
    device.drawPolyline({{6, 0}, {9, 0}}, nullptr);
    device.endNode();
    const QList<QDomElement> rows = rowsOf(sectionOf(shapeById(drawing.page(), 1), u"Geometry"_s));
    QStringList knots;
    for (const QDomElement &row : rows)
        knots += row.attribute(u"T"_s).left(8) + u':' + valueOf(row, u"A"_s);
    EXPECT_EQ(
        knots.join(u' '),
        u"MoveTo: SplineSt:0 SplineKn:0 SplineKn:0 SplineKn:1 SplineKn:1 SplineKn:1 LineTo:"_s);
    EXPECT_EQ(valueOf(rows.at(1), u"D"_s), u"3"_s);
    EXPECT_EQ(valueOf(rows.at(1), u"C"_s), u"2"_s);
}

TEST(VisioVsdx, a_quadratic_curve_has_degree_2_and_a_spline_without_knots_no_last_one)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    Device::Path *path = device.createPath();
    path->moveTo({0, 0});
    path->quadTo({5, 9}, {9, 0});
    device.drawPath(path, nullptr, nullptr);
    device.drawBezier({{0, 0}, {9, 9}}, nullptr, nullptr);
    const QDomDocument page = drawing.page();
    const QDomElement start = rowsOf(sectionOf(shapeById(page, 1), u"Geometry"_s)).at(1);
    EXPECT_EQ(valueOf(start, u"D"_s), u"2"_s);
    EXPECT_EQ(valueOf(start, u"C"_s), u"1"_s);
    const QDomElement alone = rowsOf(sectionOf(shapeById(page, 2), u"Geometry"_s)).at(1);
    EXPECT_EQ(valueOf(alone, u"D"_s), u"3"_s);
    EXPECT_TRUE(cellOf(alone, u"C"_s).isNull());
}

TEST(VisioVsdx, an_arc_row_has_its_control_point_and_ratio)
{
    PackageDrawing drawing;
    Device &device = drawing.device;
    device.begin(720, 360);
    device.drawEllipse({144, 72}, 72, 36, nullptr, nullptr);
    Device::Path *path = device.createPath();
    path->moveTo({60, 30});
    path->arcTo({0, 0}, {60, 60}, 0, 90);
    device.drawPath(path, nullptr, nullptr);
    const QDomDocument page = drawing.page();
    const QDomElement whole = rowsOf(sectionOf(shapeById(page, 1), u"Geometry"_s)).at(1);
    EXPECT_EQ(whole.attribute(u"T"_s), u"EllipticalArcTo"_s);
    EXPECT_EQ(number(whole, u"A"_s), 1.0);
    EXPECT_EQ(formulaOf(whole, u"A"_s), u"Width*0.5"_s);
    EXPECT_EQ(number(whole, u"B"_s), 1.0);
    EXPECT_EQ(formulaOf(whole, u"B"_s), u"Height*1"_s);
    EXPECT_EQ(number(whole, u"D"_s), 2.0);
    EXPECT_EQ(formulaOf(whole, u"D"_s), u"Width/Height"_s);
    const QDomElement part = rowsOf(sectionOf(shapeById(page, 2), u"Geometry"_s)).at(1);
    EXPECT_EQ(number(part, u"D"_s), 1.0);
    EXPECT_TRUE(formulaOf(part, u"D"_s).isEmpty());
}

// The shared point takes the place of the arc's end, and its control row has no row to be in.
TEST(VisioVsdx, an_arc_that_opens_a_joined_path_leaves_no_row)
{
    PackageDrawing drawing;
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
    const QDomElement shape = shapeById(drawing.page(), 1);
    EXPECT_EQ(outlineOf(shape).join(u", "_s), u"MoveTo 0,0, LineTo 30,10, LineTo 56,14"_s);
    const QList<QDomElement> rows = rowsOf(sectionOf(shape, u"Geometry"_s));
    EXPECT_EQ(rows.constLast().attribute(u"IX"_s).toInt(),
              rows.constFirst().attribute(u"IX"_s).toInt() + 2);
}

TEST(VisioVsdx, a_foreign_path_is_deleted_and_not_drawn)
{
    struct ForeignPath : Device::Path
    {
        explicit ForeignPath(bool *flag) : deleted(flag) { }
        ~ForeignPath() override { *deleted = true; }
        void moveTo(const QPointF &) override { }
        void lineTo(const QPointF &) override { }
        void closeSubpath() override { }
        void cubicTo(const QPointF &, const QPointF &, const QPointF &) override { }
        void quadTo(const QPointF &, const QPointF &) override { }
        void arcTo(const QPointF &, const QPointF &, double, double) override { }
        bool *deleted;
    };
    PackageDrawing package;
    XmlDrawing xml;
    for (Device *device :
         {static_cast<Device *>(&package.device), static_cast<Device *>(&xml.device)}) {
        bool deleted = false;
        device->begin(72, 72);
        device->drawPath(new ForeignPath(&deleted), nullptr, nullptr);
        device->drawPath(nullptr, nullptr, nullptr);
        EXPECT_TRUE(deleted);
    }
    EXPECT_TRUE(shapesOf(package.page()).isEmpty());
    EXPECT_TRUE(shapesOf(xml.document()).isEmpty());
}
