#include "drawing/sudden_end.h"

#include "drawing/held_standard_error.h"
#include "output/files/descriptor.h"
#include "output/files/unfinished_file.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <new>

#include <sys/mman.h>

namespace ORR::Drawing {

namespace {

// What the start of the toolkit and the search for fonts take, with room to spare. The libraries
// behind them crash where they get none, or go on with less than they should have.
constexpr size_t memoryOfStart = size_t(16) * 1024 * 1024;

alignas(16) constinit std::array<char, 65536> handlerStack{};

bool isMemoryLeft()
{
    void *const room =
        ::mmap(nullptr, memoryOfStart, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return room != MAP_FAILED && ::munmap(room, memoryOfStart) == 0;
}

void endWithoutMemory()
{
    Graph::removeUnfinishedFiles();
    Graph::writeToEnd(HeldStandardError::messages(), "Out of memory\n");
    std::_Exit(EXIT_FAILURE);
}

std::terminate_handler tellThrow = nullptr; // the one that stood before

// Something was thrown that nobody catches. What is not about memory is a mistake of ours, and ends
// as such.
void endAfterThrow()
{
    try {
        if (std::current_exception())
            throw;
    } catch (const std::bad_alloc &) {
        endWithoutMemory();
    } catch (...) { // NOLINT(bugprone-empty-catch)
    }
    tellThrow();
}

// A crash where hardly any memory is left comes from a library that did not look at what it got.
// Any other is one, and ends as such.
void endAfterCrash(int signal)
{
    if (!isMemoryLeft())
        endWithoutMemory();
    Graph::removeUnfinishedFiles();
    std::signal(signal, SIG_DFL);
    ::raise(signal);
}

// A handler that stands already, that of a sanitizer for one, knows better what to do.
void watchForCrash(int signal)
{
    struct sigaction action = {};
    if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler != SIG_DFL)
        return;
    action.sa_handler = endAfterCrash;
    action.sa_flags = SA_ONSTACK;
    ::sigaction(signal, &action, nullptr);
}

} // namespace

void prepareForSuddenEnd()
{
    Graph::removeUnfinishedFilesOnSignals();
    tellThrow = std::set_terminate(endAfterThrow);
    // A crash may be one of the stack.
    stack_t stack = {};
    stack.ss_sp = handlerStack.data();
    stack.ss_size = handlerStack.size();
    if (::sigaltstack(&stack, nullptr) == 0) {
        for (const int signal : {SIGSEGV, SIGBUS, SIGABRT})
            watchForCrash(signal);
    }
    if (!isMemoryLeft())
        endWithoutMemory();
}

} // namespace ORR::Drawing
