#include "companion/draw/output_names.h"

#include <algorithm>
#include <filesystem>

namespace ORR::Companion {

namespace {

using Path = std::filesystem::path;

Path pathOf(const QByteArray &name)
{
    return name.toStdString();
}

QByteArray nameOf(const Path &path)
{
    return QByteArray::fromStdString(path.native());
}

QByteArray quoted(const QByteArray &name)
{
    return '\'' + name + '\'';
}

} // namespace

bool isStandardStream(const QByteArray &name)
{
    static constexpr const char *names[] = {"/dev/stdin", "/dev/stdout",     "/dev/fd/0",
                                            "/dev/fd/1",  "/proc/self/fd/0", "/proc/self/fd/1"};
    return std::ranges::any_of(names, [&](const char *stream) { return name == stream; });
}

QByteArray outputBeside(const QByteArray &input, const QByteArray &suffix)
{
    return nameOf(pathOf(input).replace_extension(suffix.toStdString()));
}

std::optional<QByteArray> outputBelow(const QByteArray &folder, const QByteArray &input,
                                      const QByteArray &suffix)
{
    const Path place = pathOf(input).lexically_normal().relative_path();
    if (place.empty() || *place.begin() == "..")
        return std::nullopt;
    return outputBeside(nameOf(pathOf(folder) / place), suffix);
}

void makeFoldersOf(const QByteArray &output)
{
    std::error_code ignored;
    std::filesystem::create_directories(pathOf(output).parent_path(), ignored);
}

OutputClaims::OutputClaims()
{
    std::error_code ignored;
    workingFolder = std::filesystem::current_path(ignored).native();
}

void OutputClaims::addInput(const QByteArray &input)
{
    inputs.insert(placeOf(input));
}

QByteArray OutputClaims::claim(const QByteArray &output, const QByteArray &input)
{
    const QByteArray place = placeOf(output);
    if (inputs.contains(place) || place == placeOf(input))
        return quoted(output) + " is an input and would be written over";
    const auto found = claims.find(place);
    if (found == claims.end()) {
        claims.insert(place, {input});
        return {};
    }
    if (found->isHeld || found->input != input)
        return quoted(output) + " is the output of both " + quoted(found->input) + " and "
            + quoted(input);
    found->isHeld = true;
    return {};
}

void OutputClaims::release(const QByteArray &output)
{
    const auto found = claims.find(placeOf(output));
    if (found != claims.end())
        found->isHeld = false;
}

QByteArray OutputClaims::placeOf(const QByteArray &name) const
{
    // Nearly all names are plain ones, for which taking paths apart would be most of the work.
    const bool isPlain = !name.startsWith('/') && !name.startsWith('.') && !name.contains("//")
        && !name.contains("/.");
    if (isPlain)
        return QByteArray::fromStdString(workingFolder) + '/' + name;
    return nameOf((Path(workingFolder) / pathOf(name)).lexically_normal());
}

} // namespace ORR::Companion
