#pragma once

#include "companion/import/reading/import_fault.h"
#include "companion/produce/dependencies.h"
#include "companion/produce/dependency_picture.h"

#include <QList>

#include <optional>

namespace ORR::Companion {

// What was read so far of all inputs, whichever of the forms each has.
struct DepsReading
{
    Dependencies dependencies = {};
    DependencyMeaning meaning = {};
    std::optional<ImportFault> fault = {}; // nothing is read any more
    QList<ImportFault> notes = {};
};

// The fault if the weights of all together are beyond double.
std::optional<ImportFault> weightFault(const Dependencies &dependencies, const std::string &source);

} // namespace ORR::Companion
