#include "output/svg_fragment.h"

#include "device/rich_text.h"
#include "output/xml_text.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <array>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// What draws, and what holds it together: nothing that runs, links or brings in other documents.
constexpr std::array elements{
    "circle"_L1,   "clipPath"_L1,       "defs"_L1, "ellipse"_L1, "g"_L1,       "image"_L1,
    "line"_L1,     "linearGradient"_L1, "mask"_L1, "path"_L1,    "pattern"_L1, "polygon"_L1,
    "polyline"_L1, "radialGradient"_L1, "rect"_L1, "stop"_L1,    "text"_L1,    "tspan"_L1,
    "use"_L1,
};

constexpr std::array attributes{
    "clip-path"_L1,
    "cx"_L1,
    "cy"_L1,
    "d"_L1,
    "fill"_L1,
    "fill-opacity"_L1,
    "fill-rule"_L1,
    "font-family"_L1,
    "font-size"_L1,
    "font-style"_L1,
    "font-weight"_L1,
    "fx"_L1,
    "fy"_L1,
    "gradientTransform"_L1,
    "gradientUnits"_L1,
    "height"_L1,
    "id"_L1,
    "image-rendering"_L1,
    "mask"_L1,
    "maskUnits"_L1,
    "offset"_L1,
    "opacity"_L1,
    "patternTransform"_L1,
    "patternUnits"_L1,
    "points"_L1,
    "preserveAspectRatio"_L1,
    "r"_L1,
    "rx"_L1,
    "ry"_L1,
    "spreadMethod"_L1,
    "stop-color"_L1,
    "stop-opacity"_L1,
    "stroke"_L1,
    "stroke-dasharray"_L1,
    "stroke-dashoffset"_L1,
    "stroke-linecap"_L1,
    "stroke-linejoin"_L1,
    "stroke-miterlimit"_L1,
    "stroke-opacity"_L1,
    "stroke-width"_L1,
    "transform"_L1,
    "vector-effect"_L1,
    "width"_L1,
    "x"_L1,
    "x1"_L1,
    "x2"_L1,
    "xlink:href"_L1,
    "xml:id"_L1,
    "xml:space"_L1,
    "y"_L1,
    "y1"_L1,
    "y2"_L1,
};

template <size_t count>
bool isOneOf(const std::array<QLatin1StringView, count> &names, QStringView name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isLink(QStringView attribute)
{
    return attribute == "xlink:href"_L1;
}

// A picture that lies in the link itself, or another element of the fragment.
bool isAllowedLink(QStringView address)
{
    return address.startsWith("data:image/png;base64,"_L1)
        || address.startsWith("data:image/jpeg;base64,"_L1) || address.startsWith(u'#');
}

bool isId(QStringView attribute)
{
    return attribute == "id"_L1 || attribute == "xml:id"_L1;
}

// How values refer to an element of the fragment: as a link and as paint.
constexpr auto linkToId = "#"_L1;
constexpr auto paintById = "url(#"_L1;

bool isAllowed(const QXmlStreamAttribute &attribute)
{
    const QStringView name = attribute.qualifiedName();
    const QStringView value = attribute.value();
    if (isLink(name))
        return isAllowedLink(value);
    return isOneOf(attributes, name)
        && (!value.contains("url("_L1, Qt::CaseInsensitive) || value.startsWith("url(#"_L1)
            || name == "font-family"_L1);
}

class FragmentCopy
{
public:
    FragmentCopy(const QString &svg, const QString &idPrefix) : reader(svg), prefix(idPrefix)
    {
        reader.setNamespaceProcessing(false);
        fragment.reserve(svg.size());
    }

    QByteArray take();

private:
    static constexpr int unset = -1;
    static constexpr int childDepth = 2; // of the root's own children

    void copyToken();
    void startElement();
    void endElement();
    void append(const QXmlStreamAttribute &attribute);
    void closeTag();
    bool isCopying() const { return skipDepth == unset && depth >= childDepth; }

    QXmlStreamReader reader;
    QString prefix; // of the ids and of what refers to them
    QByteArray fragment;
    QList<QByteArray> open; // the names of the elements that are copied
    bool isTagOpen = false; // its end is not written yet
    int depth = 0;
    int skipDepth = unset;
};

QByteArray FragmentCopy::take()
{
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.hasError())
            break;
        copyToken();
    }
    while (!open.isEmpty()) {
        depth = childDepth;
        skipDepth = unset;
        endElement();
    }
    return fragment;
}

void FragmentCopy::copyToken()
{
    switch (reader.tokenType()) {
    case QXmlStreamReader::StartElement:
        startElement();
        break;
    case QXmlStreamReader::EndElement:
        endElement();
        break;
    case QXmlStreamReader::Characters:
        if (isCopying()) {
            closeTag();
            fragment.append(xmlEscaped(reader.text().toString(), XmlForm::Text));
        }
        break;
    default:
        break;
    }
}

void FragmentCopy::startElement()
{
    ++depth;
    if (skipDepth == unset && depth >= childDepth && !isOneOf(elements, reader.qualifiedName()))
        skipDepth = depth;
    if (!isCopying())
        return;
    closeTag();
    open.append(reader.qualifiedName().toLatin1());
    fragment.append('<').append(open.constLast());
    bool usesLinks = false;
    for (const QXmlStreamAttribute &attribute : reader.attributes()) {
        if (!isAllowed(attribute))
            continue;
        append(attribute);
        usesLinks = usesLinks || isLink(attribute.qualifiedName());
    }
    // The declaration stood on the root, which is gone.
    if (usesLinks)
        fragment.append(" xmlns:xlink=\"http://www.w3.org/1999/xlink\"");
    isTagOpen = true;
}

void FragmentCopy::endElement()
{
    if (isCopying()) {
        const QByteArray name = open.takeLast();
        if (isTagOpen)
            fragment.append("/>");
        else
            fragment.append("</").append(name).append('>');
        isTagOpen = false;
    } else if (depth == skipDepth) {
        skipDepth = unset;
    }
    --depth;
}

void FragmentCopy::append(const QXmlStreamAttribute &attribute)
{
    const QStringView name = attribute.qualifiedName();
    fragment.append(' ').append(name.toLatin1()).append("=\"");
    QString value = attribute.value().toString();
    if (name == "font-family"_L1)
        value = familyFromFenced(value);
    else if (isId(name))
        value.prepend(prefix);
    else if (isLink(name) && value.startsWith(linkToId))
        value.insert(linkToId.size(), prefix);
    else if (value.startsWith(paintById))
        value.insert(paintById.size(), prefix);
    fragment.append(xmlEscaped(value, XmlForm::Attribute)).append('"');
}

void FragmentCopy::closeTag()
{
    if (isTagOpen)
        fragment.append('>');
    isTagOpen = false;
}

} // namespace

QByteArray svgFragment(const QByteArray &svg, const QString &idPrefix)
{
    return FragmentCopy(withoutForbiddenXml(QString::fromUtf8(svg)), idPrefix).take();
}

} // namespace ORR::Graph
