#include "companion/companion.h"
#include "driver/standard_streams.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <new>

using namespace ORR::Companion;

int main(int argc, char **argv)
try {
    const ORR::Driver::StandardStreams streams = ORR::Driver::reserveStandardStreams();
    ORR::Driver::ignoreSignalsOfWriting();
    return runCompanion(
        {"orr", {argv + std::min(argc, 1), argv + argc}, streams.input, streams.output});
} catch (const std::bad_alloc &) {
    std::fputs("orr: out of memory\n", stderr);
    return Failed;
} catch (const std::exception &fault) {
    std::fprintf(stderr, "orr: %s\n", fault.what());
    return Failed;
}
