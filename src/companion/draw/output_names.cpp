#include "companion/draw/output_names.h"

#include "companion/draw/quoted_name.h"

#include <algorithm>
#include <climits>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

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

// What a symbolic link holds; empty for anything else.
QByteArray linkAt(const QByteArray &place)
{
    char target[PATH_MAX];
    const ssize_t length = ::readlink(place.constData(), target, sizeof target);
    return length > 0 ? QByteArray(target, length) : QByteArray();
}

// Whether there is something that takes whatever is written to it, by whomever.
bool isDevice(const QByteArray &name)
{
    struct stat status = {};
    return ::stat(name.constData(), &status) == 0 && !S_ISREG(status.st_mode)
        && !S_ISDIR(status.st_mode);
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
    workingFolder = nameOf(std::filesystem::current_path(ignored));
}

QByteArray OutputClaims::take(const QByteArray &file, const QByteArray &use)
{
    const QByteArray name = file == "-" ? QByteArray("/proc/self/fd/0") : file;
    if (isDevice(name))
        return {};
    const QByteArray place = placeOf(name);
    const auto claim = claims.constFind(place);
    const QByteArray other =
        claim == claims.cend() ? uses.value(place) : "the output of " + quotedName(claim->input);
    if (other.isEmpty())
        uses.insert(place, use);
    return other.isEmpty() ? QByteArray() : quotedName(file) + " is both " + other + " and " + use;
}

QByteArray OutputClaims::claim(const QByteArray &output, const QByteArray &input, qint64 line)
{
    const QByteArray place = placeOf(output);
    const QByteArray use = place == placeOf(input) ? QByteArray("an input") : uses.value(place);
    if (!use.isEmpty())
        return quotedName(output) + " is " + use + " and would be written over";
    const auto found = claims.find(place);
    if (found == claims.end()) {
        claims.insert(place, {input, line});
        return {};
    }
    if (found->isHeld || found->input != input) {
        const QByteArray where =
            found->line < 0 ? QByteArray() : " (line " + QByteArray::number(found->line) + ')';
        return quotedName(output) + " is the output of both " + quotedName(found->input) + where
            + " and " + quotedName(input);
    }
    found->line = line;
    found->isHeld = true;
    return {};
}

void OutputClaims::release(const QByteArray &output)
{
    const auto found = claims.find(placeOf(output));
    if (found != claims.end())
        found->isHeld = false;
}

// The file that a name leads to, whether it is there or not.
QByteArray OutputClaims::placeOf(const QByteArray &name)
{
    constexpr int mostLinks = 40; // as the system has it
    QByteArray place = placeInFolder(name);
    for (int i = 0; i < mostLinks; ++i) {
        const QByteArray target = linkAt(place);
        if (target.isEmpty())
            break;
        const QByteArray folder = place.first(place.lastIndexOf('/') + 1);
        place = placeInFolder(target.startsWith('/') ? target : folder + target);
    }
    return place;
}

QByteArray OutputClaims::placeInFolder(const QByteArray &name)
{
    const qsizetype slash = name.lastIndexOf('/');
    const QByteArray last = name.sliced(slash + 1);
    if (last.isEmpty() || last == "." || last == "..")
        return folderAt(name);
    return folderAt(name.first(slash + 1)) + '/' + last;
}

// Without a slash at its end.
QByteArray OutputClaims::folderAt(const QByteArray &name)
{
    const auto known = folders.constFind(name);
    if (known != folders.cend())
        return *known;
    const Path path = pathOf(workingFolder) / pathOf(name);
    std::error_code fault;
    const Path real = std::filesystem::weakly_canonical(path, fault);
    QByteArray folder = nameOf(fault ? path.lexically_normal() : real);
    while (folder.endsWith('/'))
        folder.chop(1);
    folders.insert(name, folder);
    return folder;
}

} // namespace ORR::Companion
