#pragma once

#include "companion/import/import_format.h"

// Sequence diagrams of Mermaid, as of version 11
// (https://mermaid.js.org/syntax/sequenceDiagram.html): participants and actors with their types
// and aliases, created and destroyed ones, boxes, messages of all kinds of arrows, activations,
// notes, fragments, coloured backgrounds, numbers and titles.
namespace ORR::Companion {

int likenessOfMermaid(QByteArrayView beginning);
ImportResult readMermaid(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
