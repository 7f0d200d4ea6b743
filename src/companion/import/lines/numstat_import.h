#pragma once

#include "companion/import/import_format.h"

namespace ORR::Companion {

// `git log --numstat`, newest commits first, as git 2 prints it (git-log and git-diff manuals,
// "Other diff formats"), with -z, and with other heads of commits, too. A file's size is what the
// log adds to it minus what it deletes; its former names are the same file. `--by author` and
// `--by month`, which bars have anyhow, read the lines "Author:" and "Date:" of the usual heads.
int likenessOfNumstat(QByteArrayView beginning);
ImportResult readNumstat(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
