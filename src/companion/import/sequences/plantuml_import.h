#pragma once

#include "companion/import/import_format.h"

// Sequence diagrams of PlantUML, as of its language reference guide of 2023
// (https://plantuml.com/sequence-diagram): participants of all kinds with aliases, order and
// colours, boxes, messages of all kinds of arrows, also from and to outside, activations with their
// short forms, returns, created and destroyed ones, notes, references, dividers, delays, fragments,
// numbers and titles. What a preprocessor would do is not done.
namespace ORR::Companion {

int likenessOfPlantuml(QByteArrayView beginning);
ImportResult readPlantuml(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
