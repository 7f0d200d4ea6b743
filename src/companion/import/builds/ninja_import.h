#pragma once

#include "companion/import/import_format.h"

namespace ORR::Companion {

// Times of builds: the log that ninja keeps in .ninja_log, versions 5 to 7 ("The Ninja log" in
// ninja's manual, https://ninja-build.org/manual.html), and the JSON of clang's -ftime-trace
// (events of the published Trace Event Format of Chromium).
//
// Of a log the newest entry of an output counts, and a step with several outputs once, at the first
// of them. Of a trace each event has the time that it took beside the events within it; of several
// traces each is below the name of its input.
int likenessOfNinja(QByteArrayView beginning);

ImportResult readNinja(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
