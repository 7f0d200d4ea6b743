#include "companion/page/dark_classes.h"

#include "companion/page/dark_colors.h"
#include "companion/page/fills_below.h"
#include "companion/page/svg_tags.h"

#include <QHash>

#include <algorithm>

namespace ORR::Companion {

namespace {

// The contrast that WCAG 2 asks for, of lines a part of it, and as much as there is with both a
// dark page and white.
constexpr double leastOfTexts = 4.5;
constexpr double leastOfLines = 3;
constexpr double contrastBetween = 4.2;
constexpr double whiteInBlack = 0.9;
constexpr double hidingOpacity = 0.5; // one of as much or less lets see what is below

enum class Place { OnPage, OnFill, OnBoth };

// What the elements within a group have from it.
struct Group
{
    QTransform plane;
    QByteArrayView fill, fillOpacity, stroke;
    bool isEdge = false;
    bool isRich = false; // of a rich text, the parts of which have planes and paints of their own
    bool isDrawn = true; // and no definition
};

QTransform planeOf(const SvgTag &tag)
{
    const QByteArrayView text = tag.attribute("transform");
    const qsizetype open = text.indexOf('(');
    if (open < 0)
        return {};
    QByteArray list = text.sliced(open + 1).toByteArray().replace(',', ' ').replace(')', ' ');
    std::vector<double> n;
    for (const QByteArray &number : list.simplified().split(' '))
        n.push_back(number.toDouble());
    if (text.startsWith("matrix") && n.size() == 6)
        return {n[0], n[1], n[2], n[3], n[4], n[5]};
    if (text.startsWith("translate"))
        return QTransform::fromTranslate(n[0], n.size() > 1 ? n[1] : 0);
    return {};
}

class DarkClasses
{
public:
    DarkClasses(const QByteArray &svg, const std::vector<QPoint> &textMiddles, bool edgesHaveFills)
        : drawing(svg), middles(textMiddles), edgesFill(edgesHaveFills), fills(sizeOf(svg))
    {
    }

    QByteArray withClasses()
    {
        QByteArray result;
        result.reserve(drawing.size() + drawing.size() / 16);
        qsizetype at = 0;
        for (SvgTag tag = nextTag(drawing, 0); !tag.text.isEmpty(); tag = nextTag(drawing, at)) {
            const qsizetype end = tag.text.data() + tag.text.size() - drawing.constData();
            const qsizetype close = end - (tag.isWhole ? 2 : 1);
            result += QByteArrayView(drawing).sliced(at, close - at);
            if (const QByteArray declarations = read(tag); !declarations.isEmpty())
                result += " class=\"" + classOf(declarations) + '"';
            result += QByteArrayView(drawing).sliced(close, end - close);
            at = end;
        }
        result += QByteArrayView(drawing).sliced(at);
        return result;
    }

    QByteArray rules() const
    {
        return ruleTexts.isEmpty() ? QByteArray() : "@media screen{" + ruleTexts + "}\n";
    }

private:
    static QSizeF sizeOf(const QByteArray &svg)
    {
        const SvgTag root = nextTag(svg, 0);
        return {root.number("width"), root.number("height")};
    }

    // Steps into and out of groups, and gives what a text or shape turns to, empty for nothing.
    QByteArray read(const SvgTag &tag)
    {
        if (tag.isEnd) {
            if (tag.name == "g" || tag.name == "defs" || tag.name == "clipPath")
                groups.pop_back();
            return {};
        }
        if (tag.name == "g" || tag.name == "defs" || tag.name == "clipPath") {
            if (!tag.isWhole)
                enter(tag);
            return {};
        }
        if (!groups.back().isDrawn)
            return {};
        if (tag.name == "text")
            return lookAtText(tag);
        return isShape(tag) ? lookAtShape(tag) : QByteArray();
    }

    void enter(const SvgTag &tag)
    {
        Group group = groups.back();
        const QByteArrayView kind = tag.attribute("data-kind");
        if (!kind.isNull()) {
            group = {};
            group.isEdge = kind == "edge";
        } else {
            group.isRich = true;
            group.isDrawn = group.isDrawn && tag.name == "g";
            group.plane = planeOf(tag) * group.plane;
            group.fill = paintOf(tag, "fill", group.fill);
            group.fillOpacity = paintOf(tag, "fill-opacity", group.fillOpacity);
            group.stroke = paintOf(tag, "stroke", group.stroke);
        }
        groups.push_back(group);
    }

    static QByteArrayView paintOf(const SvgTag &tag, QByteArrayView name, QByteArrayView inherited)
    {
        const QByteArrayView own = tag.attribute(name);
        return own.isNull() ? inherited : own;
    }

    QPointF middleOf(const SvgTag &text)
    {
        const Group &group = groups.back();
        if (!group.isRich && nextMiddle < middles.size())
            return middles[nextMiddle++];
        // The first letter of a rich text: it lies where its box begins, which has its fill.
        const double size = text.number("font-size");
        return group.plane.map(QPointF(text.number("x") + size / 4, text.number("y") - size / 3));
    }

    QByteArray lookAtText(const SvgTag &text)
    {
        const FillsBelow::Fill *const below = fills.at(middleOf(text));
        return declarations(text, [&](const DarkColor &color) -> std::optional<DarkColor> {
            if (!below)
                return turned(color, leastOfTexts);
            if (!below->luminance
                || contrastOf(*below->luminance, color.luminance()) >= leastOfTexts)
                return std::nullopt;
            return readableOn(*below->luminance, color, leastOfTexts);
        });
    }

    QByteArray lookAtShape(const SvgTag &tag)
    {
        const Group &group = groups.back();
        const SvgShape shape = shapeOf(tag, group.plane);
        const QByteArrayView fill = paintOf(tag, "fill", group.fill);
        const QByteArrayView opacity = paintOf(tag, "fill-opacity", group.fillOpacity);
        const bool hides = !fill.isNull() && fill != "none"
            && (opacity.isNull() || opacity.toDouble() > hidingOpacity);
        if (hides && (!group.isEdge || edgesFill)) {
            const auto color = DarkColor::of(fill);
            fills.add(shape, color ? std::optional(color->luminance()) : std::nullopt);
            return {};
        }
        // Most lines are light enough, and need no look at their places.
        std::optional<Place> place;
        return declarations(tag, [&](const DarkColor &color) -> std::optional<DarkColor> {
            if (contrastOf(color.luminance(), darkPageLuminance) >= leastOfLines)
                return std::nullopt;
            if (!place)
                place = placeOf(shape.box);
            if (*place == Place::OnFill)
                return std::nullopt;
            return *place == Place::OnBoth ? lightened(color, 0, contrastBetween)
                                           : turned(color, leastOfLines);
        });
    }

    Place placeOf(const QRectF &box) const
    {
        if (fills.holds(box))
            return Place::OnFill;
        return fills.touches(box) ? Place::OnBoth : Place::OnPage;
    }

    // On the page; none for what is light enough.
    static std::optional<DarkColor> turned(const DarkColor &color, double least)
    {
        if (contrastOf(color.luminance(), darkPageLuminance) >= least)
            return std::nullopt;
        const double white = whiteInBlack * (1 - std::max({color.red, color.green, color.blue}));
        return lightened(color, white, least);
    }

    // The fill of a shape stays, but for heads of lines.
    template <typename Look>
    QByteArray declarations(const SvgTag &tag, Look look) const
    {
        const Group &group = groups.back();
        QByteArray result;
        for (const char *const name : {"fill", "stroke"}) {
            const bool isFill = *name == 'f';
            if (isFill && tag.name != "text" && !group.isEdge)
                continue;
            const auto color =
                DarkColor::of(paintOf(tag, name, isFill ? group.fill : group.stroke));
            const auto other = color ? look(*color) : std::nullopt;
            if (other)
                result += (result.isEmpty() ? "" : ";") + QByteArray(name) + ':' + other->text();
        }
        return result;
    }

    QByteArray classOf(const QByteArray &declarations)
    {
        const auto known = classes.constFind(declarations);
        if (known != classes.cend())
            return *known;
        const QByteArray name = "d" + QByteArray::number(classes.size());
        ruleTexts += "[data-theme=dark] ." + name + '{' + declarations + '}';
        return *classes.insert(declarations, name);
    }

    const QByteArray &drawing;
    const std::vector<QPoint> &middles;
    size_t nextMiddle = 0;
    bool edgesFill;
    FillsBelow fills;
    std::vector<Group> groups{{}}; // open ones, innermost last
    QHash<QByteArray, QByteArray> classes; // by their declarations
    QByteArray ruleTexts;
};

} // namespace

QByteArray addDarkClasses(QByteArray *drawing, const std::vector<QPoint> &textMiddles,
                          bool edgesHaveFills)
{
    DarkClasses classes(*drawing, textMiddles, edgesHaveFills);
    QByteArray result = classes.withClasses();
    QByteArray rules = classes.rules();
    *drawing = std::move(result);
    return rules;
}

} // namespace ORR::Companion
