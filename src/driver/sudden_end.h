#pragma once

namespace ORR::Driver {

// From now on a process that is ended before its time leaves no unfinished file behind where that
// can be helped: by SIGINT, SIGTERM or SIGHUP, or because memory ran out in code that can't pass
// that on. The latter ends with the message "Out of memory\n" and the status of a failure. To be
// called before the toolkit starts.
void prepareForSuddenEnd();

} // namespace ORR::Driver
