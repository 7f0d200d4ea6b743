// unloading_host LIBRARY: loads the library by its name, goes elsewhere, draws, unloads it, three
// times. Fails if anything of it is left: a descriptor, a child, the library itself.
#include "orrlayout/orrlayout.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::ptrdiff_t openDescriptors()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

bool isLoaded()
{
    std::ifstream maps("/proc/self/maps");
    const std::string text(std::istreambuf_iterator<char>(maps), {});
    return text.find("liborrlayout") != std::string::npos;
}

template <typename Function>
Function *function(void *library, const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(library, name));
}

bool fail(const char *what)
{
    std::fprintf(stderr, "%s\n", what);
    return false;
}

bool drawOnce(const char *name)
{
    void *const library = ::dlopen(name, RTLD_NOW | RTLD_LOCAL);
    if (!library)
        return fail(::dlerror());
    const std::filesystem::path former = std::filesystem::current_path();
    std::filesystem::current_path("/");
    orrlayout_options options = ORRLAYOUT_OPTIONS;
    options.engine = "treemap";
    options.format = "vsdx";
    static constexpr char dot[] = "digraph { a [area=1]; }";
    char *drawing = nullptr;
    char *message = nullptr;
    size_t size = 0;
    const orrlayout_status status = function<decltype(orrlayout_draw)>(library, "orrlayout_draw")(
        dot, std::strlen(dot), &options, &drawing, &size, &message);
    if (status != ORRLAYOUT_OK)
        fail(message);
    function<decltype(orrlayout_free)>(library, "orrlayout_free")(drawing);
    function<decltype(orrlayout_free)>(library, "orrlayout_free")(message);
    std::filesystem::current_path(former);
    return ::dlclose(library) == 0 && status == ORRLAYOUT_OK;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    const std::ptrdiff_t descriptors = openDescriptors();
    for (int i = 0; i < 3; ++i) {
        if (!drawOnce(argv[1]))
            return 1;
        if (isLoaded())
            return !fail("the library is still there");
        if (openDescriptors() != descriptors)
            return !fail("a descriptor is left");
        if (::waitpid(-1, nullptr, WNOHANG) != -1 || errno != ECHILD)
            return !fail("a child is left");
        const pid_t child = ::fork(); // nothing of the library is called
        if (child == 0)
            std::_Exit(0);
        if (::waitpid(child, nullptr, 0) != child)
            return !fail("no fork");
    }
    return 0;
}
