#include "drawing/surroundings.h"

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

namespace ORR::Drawing {

namespace {

// A name that ends in '*' stands for all that begin so. Without a value the variable is taken away.
struct Variable
{
    std::string_view name;
    const char *value = nullptr;
};

// From top to bottom: what is set below has been taken away above.
constexpr Variable variables[] = {
    // The toolkit's own: platform, theme, style and their plugins, scales and resolutions, the
    // direction of writing, caches of glyphs, logging, warnings that end the process. There are a
    // hundred, and a later version has others.
    {.name = "QT_*"},
    // The servers of a desktop; a theme or a platform would ask them.
    {.name = "DISPLAY"},
    {.name = "WAYLAND_DISPLAY"},
    // Inside of a snap, and with a certain file in the folder of the session, the toolkit asks the
    // desktop for its theme. Where the folder is not there, it is made.
    {.name = "SNAP"},
    {.name = "XDG_RUNTIME_DIR"},
    // How letters are put together to words, and how their outlines are hinted.
    {.name = "HB_*"},
    {.name = "FREETYPE_PROPERTIES"},
    // The search for fonts: what it does goes to standard output, into the drawing; its language
    // goes before the locale's.
    {.name = "FC_*"},

    {.name = "QT_QPA_PLATFORM", .value = "offscreen"},
    // The resolution of every drawing: text is measured for it whatever stands here, but margins
    // in rich text are scaled by it.
    {.name = "QT_FONT_DPI", .value = "72"},
    // A loop of events that asks no other library, and that fails with a message.
    {.name = "QT_NO_GLIB", .value = "1"},
    // The language of a locale decides between forms of a letter and between fonts.
    {.name = "LC_ALL", .value = "C.UTF-8"},
};

bool matches(std::string_view pattern, std::string_view name)
{
    if (!pattern.ends_with('*'))
        return name == pattern;
    pattern.remove_suffix(1);
    return name.starts_with(pattern);
}

std::vector<std::string> namesInEnvironment()
{
    std::vector<std::string> names;
    for (char **entry = environ; entry && *entry; ++entry) {
        const std::string_view text(*entry);
        names.emplace_back(text.substr(0, text.find('=')));
    }
    return names;
}

} // namespace

void shutOutSurroundings()
{
    const std::vector<std::string> names = namesInEnvironment();
    for (const Variable &variable : variables) {
        if (variable.value) {
            ::setenv(std::string(variable.name).c_str(), variable.value, 1);
            continue;
        }
        for (const std::string &name : names) {
            if (matches(variable.name, name))
                ::unsetenv(name.c_str());
        }
    }
}

} // namespace ORR::Drawing
