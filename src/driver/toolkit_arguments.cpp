#include "driver/toolkit_arguments.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Driver {

namespace {

// As the toolkit's documentation lists them for an application with widgets. Each has one dash or
// two.
constexpr QLatin1StringView namesAlone[] = {"qdebug"_L1, "qdevel"_L1, "reverse"_L1,
                                            "testability"_L1, "widgetcount"_L1};
constexpr QLatin1StringView namesBeforeValue[] = {
    "platform"_L1,    "platformpluginpath"_L1, "platformtheme"_L1,
    "plugin"_L1,      "qmljsdebugger"_L1,      "qwindowgeometry"_L1,
    "qwindowicon"_L1, "qwindowtitle"_L1,       "session"_L1,
    "style"_L1,       "stylesheet"_L1,
};
constexpr QLatin1StringView namesWithValue[] = {"qmljsdebugger="_L1, "style="_L1, "stylesheet="_L1};

// How many arguments the toolkit takes away where this one stands.
qsizetype takenAt(QStringView argument)
{
    if (!argument.startsWith(u'-'))
        return 0;
    const QStringView name = argument.sliced(argument.startsWith("--"_L1) ? 2 : 1);
    const auto is = [&](QLatin1StringView known) { return name == known; };
    const auto beginsWith = [&](QLatin1StringView known) { return name.startsWith(known); };
    if (std::ranges::any_of(namesBeforeValue, is))
        return 2;
    return std::ranges::any_of(namesAlone, is) || std::ranges::any_of(namesWithValue, beginsWith);
}

} // namespace

QStringList withoutToolkitArguments(const QStringList &arguments)
{
    QStringList kept = arguments.mid(0, 1);
    qsizetype i = 1;
    while (i < arguments.size()) {
        const qsizetype taken = takenAt(arguments.at(i));
        if (taken == 0 || i + taken > arguments.size())
            kept.append(arguments.at(i++));
        else
            i += taken;
    }
    return kept;
}

} // namespace ORR::Driver
