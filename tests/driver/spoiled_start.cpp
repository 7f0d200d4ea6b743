// Stands in for a library that ends the process while the toolkit starts. The toolkit calls this
// function once, for the pipe of its loop of events.
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

extern "C" int eventfd(unsigned int count, int flags);

extern "C" int eventfd(unsigned int /*count*/, int /*flags*/)
{
    const char *const value = std::getenv("SPOILED_START");
    const std::string_view way(value ? value : "");
    if (way == "exit") {
        std::fputs("\n(spoiled): no display,\n\tno word\n", stderr);
        std::exit(0);
    }
    if (way == "exit with controls") {
        std::fputs("\x1b]0;title\a\xC2\x9B"
                   "31m \xC3\xA9\n",
                   stderr);
        std::exit(0);
    }
    if (way == "silent exit")
        std::exit(7);
    if (way == "long exit") {
        for (int i = 0; i < 5000; ++i)
            std::fputs("ab ", stderr);
        std::exit(1);
    }
    if (way == "abort") {
        std::fputs("assertion\n", stderr);
        std::abort();
    }
    throw std::runtime_error("thrown");
}
