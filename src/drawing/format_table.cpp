#include "drawing/format_table.h"

#include "drawing/home_directory.h"
#include "output/embedded_svg.h"
#include "output/file.h"
#include "output/pdf/pdf_device.h"
#include "output/svg_rich_text.h"
#include "output/visio/visio_vsdx.h"
#include "output/visio/visio_xml.h"
#include "output/xdot.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Drawing {

namespace {

// A device that is made from nothing but its target.
template <typename Maker>
std::unique_ptr<Graph::Device> make(const DeviceRequest &request)
{
    return std::make_unique<Maker>(request.target);
}

std::unique_ptr<Graph::Device> makeRaster(const DeviceRequest &request)
{
    constexpr int usualQuality = -1;
    return std::make_unique<Graph::File>(request.target, usualQuality, request.extras);
}

std::unique_ptr<Graph::Device> makeSvg(const DeviceRequest &request)
{
    if (request.extras.embedded)
        return std::make_unique<Graph::EmbeddedSvg>(request.target, request.extras, request.graph);
    return std::make_unique<Graph::SvgRichText>(request.target, request.extras);
}

std::unique_ptr<Graph::Device> makePdf(const DeviceRequest &request)
{
    return std::make_unique<Graph::Pdf>(request.target, request.extras, request.graph);
}

std::unique_ptr<Graph::Device> makeVsdx(const DeviceRequest &request)
{
    return std::make_unique<Graph::VisioVSDX>(request.target,
                                              visioTemplateDirectory(request.homeDirectory));
}

std::optional<Format> formatAt(qsizetype position)
{
    return position < 0 ? std::nullopt : std::optional(static_cast<Format>(position));
}

} // namespace

const std::array<FormatRow, 6> &formatTable()
{
    static constexpr std::array<FormatRow, 6> table{{
        {"xdot1.2"_L1, 0, make<Graph::XDot>},
        {"jpg"_L1, 5, makeRaster, TakesScale | TakesBackground},
        {"png"_L1, 4, makeRaster, TakesScale | TakesBackground},
        {"svg"_L1, 1, makeSvg, TakesBackground | TakesEmbedding},
        {"vsdx"_L1, 2, makeVsdx},
        {"vdx"_L1, 3, make<Graph::VisioXML>},
    }};
    return table;
}

const std::array<FormatRow, 1> &furtherFormatTable()
{
    static constexpr std::array<FormatRow, 1> table{{
        {"pdf"_L1, 6, makePdf, TakesBackground},
    }};
    return table;
}

const FormatRow &formatRow(Format format)
{
    const auto position = static_cast<size_t>(format);
    return position < formatTable().size()
        ? formatTable().at(position)
        : furtherFormatTable().at(position - formatTable().size());
}

QStringList formatNames()
{
    QStringList names;
    for (const FormatRow &row : formatTable())
        names += row.name;
    return names;
}

QStringList formatNamesForHelp()
{
    std::array<FormatRow, 6> rows = formatTable();
    std::sort(rows.begin(), rows.end(),
              [](const FormatRow &a, const FormatRow &b) { return a.placeInHelp < b.placeInHelp; });
    QStringList names;
    for (const FormatRow &row : rows)
        names += row.name;
    return names;
}

QStringList formatSuffixAliases()
{
    return {u"dot"_s, u"jpeg"_s};
}

std::optional<Format> chooseFormat(const QString &name, const QString &fileName)
{
    const auto named = formatAt(formatNames().indexOf(name.toLower()));
    if (named || fileName.isEmpty())
        return named;
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    const auto ofSuffix = formatAt(formatNames().indexOf(suffix));
    return ofSuffix ? ofSuffix : formatAt(formatSuffixAliases().indexOf(suffix));
}

QStringList allFormatNames()
{
    QStringList names = formatNames();
    for (const FormatRow &row : furtherFormatTable())
        names += row.name;
    return names;
}

std::optional<Format> chooseFromAllFormats(const QString &name, const QString &fileName)
{
    const auto named = formatAt(allFormatNames().indexOf(name.toLower()));
    if (named || fileName.isEmpty())
        return named;
    const auto ofSuffix =
        formatAt(allFormatNames().indexOf(QFileInfo(fileName).suffix().toLower()));
    return ofSuffix ? ofSuffix : chooseFormat(name, fileName);
}

} // namespace ORR::Drawing
