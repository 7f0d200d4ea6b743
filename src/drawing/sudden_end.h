#pragma once

namespace ORR::Drawing {

// From now on a process that is ended before its time leaves no unfinished file behind where that
// can be helped: by SIGINT, SIGTERM, SIGHUP or SIGXCPU, by a crash, or because memory ran out in
// code that can't pass that on. The latter ends with the message "Out of memory\n" and the status
// of a failure, and so does a process that has too little memory to start with, at once. To be
// called before the toolkit starts.
void prepareForSuddenEnd();

} // namespace ORR::Drawing
