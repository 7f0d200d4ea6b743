#include "driver/sudden_end.h"

#include "driver/standard_streams.h"
#include "output/files/descriptor.h"
#include "output/files/unfinished_file.h"

#include <cstdlib>
#include <exception>
#include <new>

namespace ORR::Driver {

namespace {

// Whatever else was thrown is a mistake of ours, and ends as such.
bool isLackOfMemory()
{
    try {
        if (std::current_exception())
            throw;
    } catch (const std::bad_alloc &) {
        return true;
    } catch (...) {
        return false;
    }
    return false;
}

void endWithoutMemory()
{
    Graph::removeUnfinishedFiles();
    if (!isLackOfMemory())
        std::abort();
    Graph::writeToEnd(QuietStandardError::messages(), "Out of memory\n");
    std::_Exit(EXIT_FAILURE);
}

} // namespace

void prepareForSuddenEnd()
{
    Graph::removeUnfinishedFilesOnSignals();
    std::set_terminate(endWithoutMemory);
}

} // namespace ORR::Driver
