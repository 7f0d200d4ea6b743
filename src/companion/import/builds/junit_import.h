#pragma once

#include "companion/import/import_format.h"

namespace ORR::Companion {

// Reports of tests in the XML of JUnit, as the schema of Apache Ant's task has it
// (https://github.com/windyroad/JUnit-Schema) and as others write it: suites within each other,
// results of ctest and GoogleTest, times with commas.
//
// Suites, classes by the parts of their names, and cases; a case that stands twice has the sum of
// the times and the worse result. Texts, properties and entities of other files are passed over.
int likenessOfJunit(QByteArrayView beginning);

ImportResult readJunit(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
