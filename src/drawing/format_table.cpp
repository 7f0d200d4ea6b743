#include "drawing/format_table.h"

#include "drawing/home_directory.h"
#include "output/file.h"
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
        {"jpg"_L1, 5, make<Graph::File>},
        {"png"_L1, 4, make<Graph::File>},
        {"svg"_L1, 1, make<Graph::SvgRichText>},
        {"vsdx"_L1, 2, makeVsdx},
        {"vdx"_L1, 3, make<Graph::VisioXML>},
    }};
    return table;
}

const FormatRow &formatRow(Format format)
{
    return formatTable().at(static_cast<size_t>(format));
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

} // namespace ORR::Drawing
