// The C header alone in C++, under strict warnings: compiled, not run. The C++ header has a test.
#include <orrlayout/orrlayout.h>

bool hasDefaults();

bool hasDefaults()
{
    const orrlayout_options options = ORRLAYOUT_OPTIONS;
    return options.size == sizeof(orrlayout_options) && !options.engine && !options.format
        && !options.home && options.html_labels == 0 && options.timeout_ms == 0;
}
