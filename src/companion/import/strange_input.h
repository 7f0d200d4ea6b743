#pragma once

#include "companion/import/import_format.h"

#include <QList>
#include <QString>

#include <string>
#include <vector>

namespace ORR::Companion {

// An input that looks like something else than the format that was asked for.
struct StrangeInput
{
    std::string source = {}; // its name
    const ImportFormat *likely = nullptr; // the format that it looks like; null if it is of none
    QString kind = {}; // then what it is: "a PNG picture", "XML with <coverage>"
    bool isSure = false; // so much that it is not worth to be read

    // "csv", "a PNG picture"
    QString looks() const { return likely ? QString::fromLatin1(likely->name) : kind; }
};

// Those of the inputs. Nothing of them is taken.
QList<StrangeInput> strangeInputs(std::vector<ImportSource> &sources, const ImportFormat &format);

} // namespace ORR::Companion
