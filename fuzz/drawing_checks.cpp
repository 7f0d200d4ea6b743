#include "drawing_checks.h"

#include "device/xdot_render.h"
#include "fuzz_target.h"
#include "graph/dot_parser.h"
#include "output/file.h"
#include "package_parts.h"
#include "plain_input.h"
#include "support/recording_device.h"

#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QXmlStreamReader>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

QSet<QString> wordsOf(const QString &list)
{
    const QStringList words = list.split(u' ');
    return {words.begin(), words.end()};
}

// The names that a drawing may hold. They stand here once more, and apart from the devices, so that
// one that comes in there by way of an input is seen.
const QSet<QString> svgElements =
    wordsOf(u"svg g defs path rect ellipse circle line polyline polygon text tspan image use "
            "linearGradient radialGradient stop clipPath mask pattern"_s);

const QSet<QString> svgAttributes = wordsOf(
    u"clip-path cx cy d fill fill-opacity fill-rule font-family font-size font-style font-weight "
    "fx fy gradientTransform gradientUnits height id image-rendering mask maskUnits offset opacity "
    "patternTransform patternUnits points preserveAspectRatio r rx ry spreadMethod stop-color "
    "stop-opacity stroke stroke-dasharray stroke-dashoffset stroke-linecap stroke-linejoin "
    "stroke-miterlimit stroke-opacity stroke-width transform vector-effect version width x x1 x2 "
    "xlink:href xml:id xml:space y y1 y2"_s);

const QSet<QString> vdxElements = wordsOf(
    u"VisioDocument StyleSheets Masters Pages Page PageSheet PageProps PageWidth PageHeight Shapes "
    "Shape XForm PinX PinY Width Height LocPinX LocPinY Angle XForm1D BeginX BeginY EndX EndY "
    "TextXForm TxtPinX TxtPinY TxtWidth TxtHeight TxtLocPinX TxtLocPinY TxtAngle Fill FillForegnd "
    "FillForegndTrans FillPattern Line LineWeight LineColor LineColorTrans LinePattern BeginArrow "
    "EndArrow Char Font Color ColorTrans Style Size Text Geom NoFill NoLine MoveTo LineTo "
    "SplineStart SplineKnot EllipticalArcTo X Y A B C D User Value Layout ShapeSplit Connection "
    "Connects Connect v14:Layout v14:Relationships"_s);

const QSet<QString> vsdxElements = wordsOf(
    u"Types Default Override Relationships Relationship VisioDocument DocumentSettings "
    "DocumentSheet StyleSheets StyleSheet Windows Window Pages Page PageSheet Rel PageContents "
    "Shapes Shape Section Row Cell Text Connects Connect"_s);

constexpr qsizetype partCount = 8;

constexpr qint64 mostPixels = qint64(400) * 400; // larger pictures only cost time

// The raster device, for which a page is too large earlier.
class SmallPicture : public Graph::File
{
public:
    using File::File;

    void begin(int width, int height) override
    {
        if (qint64(width) * height <= mostPixels)
            File::begin(width, height);
    }
};

std::unique_ptr<Graph::Device> makeDevice(Drawing::Format format, const QString &fileName)
{
    if (format == Drawing::Format::Png || format == Drawing::Format::Jpg)
        return std::make_unique<SmallPicture>(fileName);
    return Drawing::formatRow(format).create({fileName, QStringLiteral(ORR_HOME)});
}

// Takes the file away once it is read, so that no run sees one of an earlier run.
QByteArray takeFile(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    file.remove();
    return bytes;
}

struct Outcome
{
    QString message;
    QByteArray drawing;
    friend bool operator==(const Outcome &, const Outcome &) = default;
};

Outcome drawFile(Graph::DotGraph *graph, const Run &run, Drawing::Format format)
{
    static const QTemporaryDir folder;
    // A picture takes its format from the suffix.
    const QString fileName = folder.filePath("drawing."_L1 + Drawing::formatRow(format).name);
    std::unique_ptr<Graph::Device> device = makeDevice(format, fileName);
    const QString message = run(graph, device.get());
    device.reset(); // it may still hold the file
    return {message, takeFile(fileName)};
}

// Parses anew for each run, since engines keep their results in the graph.
Outcome drawTwice(const QByteArray &text, const std::function<Outcome(Graph::DotGraph *)> &draw)
{
    const Outcome once = draw(Graph::parseDot(text).get());
    require(!once.message.isEmpty() || !once.drawing.isEmpty(), "a message or a drawing");
    const Outcome twice = draw(Graph::parseDot(text).get());
    require(twice == once, "the same from the same input");
    return once;
}

void requireWord(const QSet<QString> &words, QStringView word)
{
    if (!words.contains(word.toString()))
        require(false, ("no such name in a drawing: " + word.toUtf8()).constData());
}

// Links lead to what lies in the drawing itself.
void checkSvgAttribute(const QXmlStreamAttribute &attribute)
{
    const QStringView name = attribute.qualifiedName();
    const QStringView value = attribute.value();
    requireWord(svgAttributes, name);
    if (name == "xlink:href"_L1) {
        require(value.startsWith(u'#') || value.startsWith("data:image/png;base64,"_L1)
                    || value.startsWith("data:image/jpeg;base64,"_L1),
                "links to nothing outside");
    } else if (name != "font-family"_L1 && value.contains("url("_L1, Qt::CaseInsensitive)) {
        require(value.startsWith("url(#"_L1), "paint from nothing outside");
    }
}

// A family of fonts is all that a formula takes from an input, and it stays a string there.
void checkVisioAttribute(const QXmlStreamAttribute &attribute)
{
    static const QRegularExpression call(u"\\AFONTT?OID\\(\"(?:[^\"]|\"\")*\"\\)\\z"_s,
                                         QRegularExpression::DotMatchesEverythingOption);
    if (attribute.name() == "F"_L1 && attribute.value().contains(u'"'))
        require(call.match(attribute.value()).hasMatch(), "no strings but families in formulas");
}

void checkXml(const QByteArray &xml, const QSet<QString> &elements,
              void (*checkAttribute)(const QXmlStreamAttribute &attribute))
{
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        require(token != QXmlStreamReader::DTD && token != QXmlStreamReader::EntityReference
                    && token != QXmlStreamReader::ProcessingInstruction,
                "nothing but elements and text");
        if (token != QXmlStreamReader::StartElement)
            continue;
        requireWord(elements, reader.qualifiedName());
        for (const QXmlStreamAttribute &attribute : reader.attributes())
            checkAttribute(attribute);
    }
    require(!reader.hasError(), "well-formed XML");
}

// The page of a replay begins where the text has its `bb`, be it behind some drawing or nowhere.
// What is drawn is held to the same all the same.
QByteArray withPageInFront(QByteArray svg)
{
    static const QByteArray lastOfHead = "version=\"1.1\">\n";
    const qsizetype head = svg.indexOf("<?xml ");
    if (head == 0)
        return svg;
    if (head > 0)
        svg.remove(head, svg.indexOf(lastOfHead, head) + lastOfHead.size() - head);
    return "<svg>" + svg;
}

void checkPackage(const QByteArray &package)
{
    const QMap<QString, QByteArray> parts = packageParts(package);
    require(parts.size() == partCount && parts.contains(u"visio/pages/page1.xml"_s),
            "all parts of a package");
    for (const QByteArray &part : parts)
        checkXml(part, vsdxElements, checkVisioAttribute);
}

void checkReplay(const QByteArray &xdot, const QByteArray &input)
{
    if (!isPlain(input, *Graph::parseDot(input)))
        return;
    const std::unique_ptr<Graph::DotGraph> graph = Graph::parseDot(xdot);
    require(graph != nullptr, "xdot that is a graph");
    RecordingDevice device;
    const QString message = Graph::Graphviz::XDotRender(&device, graph.get()).render(xdot);
    require(message.isEmpty(), "xdot that is replayed");
}

// Judges what was written. A run that ends in a message may leave none.
void checkDrawing(Drawing::Format format, const QByteArray &drawing, const QByteArray &input)
{
    if (drawing.isEmpty())
        return;
    switch (format) {
    case Drawing::Format::XDot:
        return checkReplay(drawing, input);
    case Drawing::Format::Jpg:
    case Drawing::Format::Png:
        return require(!QImage::fromData(drawing).isNull(), "a picture that can be read");
    case Drawing::Format::Svg:
        return checkXml(withPageInFront(drawing), svgElements, checkSvgAttribute);
    case Drawing::Format::Vsdx:
        return checkPackage(drawing);
    case Drawing::Format::Vdx:
        return checkXml(drawing, vdxElements, checkVisioAttribute);
    case Drawing::Format::Pdf:
        return require(drawing.startsWith("%PDF-") && drawing.endsWith("%%EOF\n"),
                       "a whole PDF file");
    }
}

} // namespace

void checkCalls(const QByteArray &text, const Run &run)
{
    const std::unique_ptr<Graph::DotGraph> graph = Graph::parseDot(text);
    if (!graph)
        return;
    drawTwice(text, [&](Graph::DotGraph *parsed) -> Outcome {
        RecordingDevice device;
        const QString message = run(parsed, &device);
        if (device.callsOf(u"end"_s).isEmpty())
            return {message, {}};
        return {message, device.log().toUtf8()};
    });
    // One of the two formats that are written fast.
    const auto format = text.size() % 2 == 0 ? Drawing::Format::Svg : Drawing::Format::XDot;
    checkDrawing(format, drawFile(graph.get(), run, format).drawing, text);
}

void checkFile(const QByteArray &text, const Run &run, Drawing::Format format)
{
    if (!Graph::parseDot(text))
        return;
    const auto draw = [&](Graph::DotGraph *graph) { return drawFile(graph, run, format); };
    checkDrawing(format, drawTwice(text, draw).drawing, text);
}
