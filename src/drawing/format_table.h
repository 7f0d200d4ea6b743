#pragma once

#include "device/device.h"
#include "output/drawing_extras.h"
#include "output/output.h"

#include <QLatin1StringView>
#include <QString>
#include <QStringList>

#include <array>
#include <memory>
#include <optional>

namespace ORR::Drawing {

// The output formats by their position in the table, and behind them those of the other one.
enum class Format { XDot, Jpg, Png, Svg, Vsdx, Vdx, Pdf };

// What a device is made from.
struct DeviceRequest
{
    Graph::OutputTarget target; // where it writes
    QString homeDirectory; // the root of the installation, for a device that needs its templates
    Graph::DrawingExtras extras = {}; // of which it takes what its row says
    const Graph::DotGraph *graph = nullptr; // that is to be drawn; may be null, lives as long
};

// Which of the extras a format takes, in bits; the others change nothing.
enum FormatExtra { TakesScale = 1, TakesBackground = 2, TakesEmbedding = 4 };

// One output format.
struct FormatRow
{
    QLatin1StringView
        name; // the value of -T, the suffix of an output file and of the temporary one
    int placeInHelp; // the formats that people ask for most come first there
    std::unique_ptr<Graph::Device> (*create)(const DeviceRequest &request); // makes the device
    int extras = 0; // of `FormatExtra`
};

// All formats that `orrlayout` has, each at its position.
const std::array<FormatRow, 6> &formatTable();
// Formats that only its companions have.
const std::array<FormatRow, 1> &furtherFormatTable();
// The row of a format out of either.
const FormatRow &formatRow(Format format);

// The names in the order of the table, and in the order of the help text.
QStringList formatNames();
QStringList formatNamesForHelp();

// Further suffixes of output files. The position of a suffix is the format that it stands for.
QStringList formatSuffixAliases();

// The format to write, or nothing: a name (the value of -T, in any case) that is a format decides;
// else the suffix of the file name, in any case, does, where an alias counts too.
std::optional<Format> chooseFormat(const QString &name, const QString &fileName);

// The same for both tables.
QStringList allFormatNames();
std::optional<Format> chooseFromAllFormats(const QString &name, const QString &fileName);

} // namespace ORR::Drawing
