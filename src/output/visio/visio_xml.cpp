#include "output/visio/visio_xml.h"

#include "graph/numbers.h"
#include "output/visio/visio_xml_cells.h"

#include <utility>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

constexpr char documentNamespace[] = "http://schemas.microsoft.com/visio/2003/core";

// Elements without content keep a start and an end tag: some readers take a closed tag for a start.
void addEmpty(VisioMarkup &markup, const char *name)
{
    markup.text(name, {}, QByteArray());
}

QByteArray inches(int points)
{
    return visioShort(double(points) / pointsPerInch);
}

const VisioXMLCells xmlCells;

} // namespace

VisioXML::VisioXML(const OutputTarget &outputTarget) : VisioDevice(outputTarget, xmlCells) { }

void VisioXML::begin(int width, int height)
{
    if (pageId < 0)
        pageId = takeId();
    pageWidth = width;
    pageHeight = height;
}

QString VisioXML::end()
{
    finishShapes();
    if (pageId < 0) {
        // There was never a page to draw on.
        forgetShapes();
        begin(0, 0);
    }
    return writeOutput(target, takeDocument()) ? QString() : u"Unable to write to file\n"_s;
}

void VisioXML::appendConnects(const VisioMarkup &tail, const VisioMarkup &head)
{
    connects.append(head.markup());
    connects.append(tail.markup());
}

QByteArray VisioXML::takeDocument()
{
    VisioMarkup head(0);
    head.open("VisioDocument", {{"xmlns", documentNamespace}});
    addEmpty(head, "StyleSheets");
    addEmpty(head, "Masters");
    head.open("Pages");
    head.open("Page", {{"ID", QByteArray::number(pageId)}, {"NameU", "Page-1"}});
    head.open("PageSheet");
    head.open("PageProps");
    head.text("PageWidth", {}, inches(pageWidth));
    head.text("PageHeight", {}, inches(pageHeight));
    head.close("PageProps");
    head.close("PageSheet");
    head.open("Shapes");

    VisioMarkup tail(cells.connectDepth());
    tail.close("Shapes");
    tail.open("Connects");
    tail.append(std::exchange(connects, VisioMarkup(cells.connectDepth())).markup());
    tail.close("Connects");
    tail.close("Page");
    tail.close("Pages");
    tail.close("VisioDocument");

    qsizetype size = head.size() + tail.size();
    for (const PageShape &entry : pageShapes)
        size += sizeOf(entry);
    QByteArray document;
    document.reserve(size);
    document.append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    document.append(head.markup());
    for (PageShape &entry : pageShapes)
        appendShape(entry, document);
    document.append(tail.markup());
    return document;
}

} // namespace ORR::Graph
