#pragma once

#include "device/device.h"
#include "output/output.h"

#include <QLatin1StringView>
#include <QString>
#include <QStringList>

#include <array>
#include <memory>
#include <optional>

namespace ORR::Drawing {

// The output formats by their position in the table.
enum class Format { XDot, Jpg, Png, Svg, Vsdx, Vdx };

// What a device is made from.
struct DeviceRequest
{
    Graph::OutputTarget target; // where it writes
    QString homeDirectory; // the root of the installation, for a device that needs its templates
};

// One output format.
struct FormatRow
{
    QLatin1StringView
        name; // the value of -T, the suffix of an output file and of the temporary one
    int placeInHelp; // the formats that people ask for most come first there
    std::unique_ptr<Graph::Device> (*create)(const DeviceRequest &request); // makes the device
};

// All formats, each at its position.
const std::array<FormatRow, 6> &formatTable();
const FormatRow &formatRow(Format format);

// The names in the order of the table, and in the order of the help text.
QStringList formatNames();
QStringList formatNamesForHelp();

// Further suffixes of output files. The position of a suffix is the format that it stands for.
QStringList formatSuffixAliases();

// The format to write, or nothing: a name (the value of -T, in any case) that is a format decides;
// else the suffix of the file name, in any case, does, where an alias counts too.
std::optional<Format> chooseFormat(const QString &name, const QString &fileName);

} // namespace ORR::Drawing
