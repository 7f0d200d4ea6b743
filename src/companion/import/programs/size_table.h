#pragma once

#include "companion/import/reading/import_source.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace ORR::Companion {

// A section of a file.
struct SizedSection
{
    QByteArray file; // of a member of an archive "archive/member"
    QByteArray section;
    double size; // in bytes
};

bool isSizeTable(QByteArrayView beginning);

// Adds all sections of a table that size(1) wrote: of each file its own table of sections, or one
// table with a file in each line. Sums are passed over.
std::optional<ImportFault> readSizeTable(ImportSource *source, QList<SizedSection> *sections);

} // namespace ORR::Companion
