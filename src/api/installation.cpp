#include "api/installation.h"

#include <cstdlib>
#include <memory>
#include <new>

#include <dlfcn.h>

namespace ORR::Api {

namespace {

struct FreeText
{
    void operator()(char *text) const { std::free(text); } // NOLINT(*-no-malloc)
};
using Text = std::unique_ptr<char, FreeText>;

// The path of the library, with all links resolved.
Text libraryFile()
{
    Dl_info info = {};
    static const char inTheLibrary = 0;
    if (::dladdr(&inTheLibrary, &info) == 0)
        return nullptr;
    return Text(::realpath(info.dli_fname, nullptr));
}

// Found when the library is loaded: the path by which that was done may be a relative one, and the
// working directory another one later.
const Text file = libraryFile();

std::string fromLibrary(const char *path)
{
    const std::string library = file ? file.get() : "";
    return library.substr(0, library.rfind('/') + 1) + path;
}

} // namespace

std::string workerProgram()
{
    return fromLibrary(ORR_WORKER_FROM_LIBRARY);
}

std::string homeDirectory()
{
    return fromLibrary(ORR_HOME_FROM_LIBRARY);
}

} // namespace ORR::Api
