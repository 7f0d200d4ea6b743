#pragma once

#include "companion/produce/picture.h"

#include <QByteArray>
#include <QString>

#include <string>

namespace ORR::Companion {

// What is written, by the suffix of its file.
enum class ImportTarget {
    Text, // the graph: standard output, ".dot", ".gv"
    Page, // ".html", ".htm"
    Drawing, // a format of orrlayout, or of `orr draw`
    Unknown,
};
ImportTarget importTarget(const std::string &output);

// All suffixes that stand for something, with commas between.
std::string importSuffixes();

// The bytes for an output, or what went wrong.
struct ImportedBytes
{
    QByteArray bytes;
    QString fault; // a sentence without an end; may hold characters of the input
};

// The graph as its output wants it. The toolkit has to be started.
ImportedBytes importedBytes(const WrittenGraph &graph, const PictureRequest &request,
                            const std::string &output);

} // namespace ORR::Companion
