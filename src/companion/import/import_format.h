#pragma once

#include "companion/import/reading/import_fault.h"
#include "companion/import/reading/import_source.h"
#include "companion/produce/picture.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace ORR::Companion {

// What the options of the command say beyond what is drawn of all pictures. Each belongs to the
// formats whose rows name it; empty if it was not given.
struct ImportOptions
{
    QString engine = {}; // that the picture will be drawn by, in small letters; never empty
    std::string layout = {}; // --layout
    std::string by = {}; // --by: what becomes the bars, the cells, the rows
    std::string path = {}, area = {}, color = {}; // --path, --area, --color: names of columns
    std::string separator = {}; // --separator of columns
};

// What came of the inputs.
struct ImportResult
{
    std::unique_ptr<Picture> picture = {}; // null if there is a fault
    std::optional<ImportFault> fault = {}; // why nothing can be drawn
    QList<ImportFault> notes = {}; // what was passed over, with its place
};

// A format that can be read.
struct ImportFormat
{
    const char *name;
    const char *origin; // what writes it, for the list of formats
    const char *engines; // with blanks between; the first is chosen if none is asked for
    const char *area; // what the sizes are; empty if nothing has a size
    const char *color; // what the colours tell
    const char *options; // of ImportOptions, as they are written: "--layout --by"; may be empty
    // Whether a beginning (up to 64 KB, maybe of a longer input) looks like it: 0 not at all, 100
    // without doubt.
    int (*likeness)(QByteArrayView beginning);
    ImportResult (*read)(std::vector<ImportSource> &sources, const ImportOptions &options);
};

// All of them, in the order of the documents.
std::span<const ImportFormat> importFormats();

// The row of a name; null if there is none.
const ImportFormat *importFormat(QStringView name);

// What an input looks like: the row of the greatest likeness, if that is above 50; else null.
const ImportFormat *likelyFormat(QByteArrayView beginning);

} // namespace ORR::Companion
