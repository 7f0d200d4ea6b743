#include "output/pdf/pdf_completion.h"

#include "output/pdf/pdf_objects.h"

#include <optional>

namespace ORR::Graph {

namespace {

// As a string of hexadecimal digits, in which nothing can end it.
QByteArray stringOf(const QByteArray &bytes)
{
    return '<' + bytes.toHex() + '>';
}

QByteArray stringOf(const QString &text)
{
    QByteArray bytes("\xfe\xff", 2);
    for (const QChar c : text) {
        bytes += static_cast<char>(c.unicode() >> 8);
        bytes += static_cast<char>(c.unicode() & 0xff);
    }
    return stringOf(bytes);
}

QByteArray numberOf(double value)
{
    return QByteArray::number(value, 'f', 2);
}

// The points that a unit of the page is: more than one on a page that has too many points.
double unitOf(const QByteArray &page)
{
    constexpr QByteArrayView key = "/UserUnit ";
    const qsizetype place = page.indexOf(key);
    if (place < 0)
        return 1.0;
    const qsizetype start = place + key.size();
    return page.sliced(start, page.indexOf('\n', start) - start).toDouble();
}

// The page has its units from the lower left corner on.
QByteArray annotationOf(const PdfLink &link, int height, double unit)
{
    const QRectF &area = link.area;
    return "<<\n/Type /Annot\n/Subtype /Link\n/Rect [" + numberOf(area.left() / unit) + ' '
        + numberOf((height - area.bottom()) / unit) + ' ' + numberOf(area.right() / unit) + ' '
        + numberOf((height - area.top()) / unit) + "]\n/Border [0 0 0]\n/A <</S /URI /URI "
        + stringOf(link.address) + ">>\n>>";
}

QByteArray informationOf(const QString &title)
{
    const QByteArray titleEntry =
        title.isEmpty() ? QByteArray() : "/Title " + stringOf(title) + '\n';
    return "<<\n" + titleEntry + "/Creator (orrlayout)\n/Producer (Qt " QT_VERSION_STR ")\n>>";
}

} // namespace

QByteArray completedPdf(const QByteArray &file, const PdfCompletion &completion)
{
    std::optional<PdfObjects> objects = PdfObjects::read(file);
    if (!objects)
        return {};
    const int page = objects->reference(objects->reference(objects->root(), "/Pages"), "/Kids");
    const int list = objects->reference(page, "/Annots");
    const double unit = unitOf(objects->content(page));
    if (page == 0 || list == 0 || !(unit >= 1.0))
        return {};
    QByteArray annotations = "[";
    for (const PdfLink &link : completion.links) {
        const int number = objects->add(annotationOf(link, completion.height, unit));
        annotations += QByteArray::number(number) + " 0 R\n";
    }
    objects->setContent(list, annotations + ']');
    objects->setContent(objects->info(), informationOf(completion.title));
    return objects->written();
}

} // namespace ORR::Graph
