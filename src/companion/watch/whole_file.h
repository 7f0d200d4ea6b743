#pragma once

#include <QByteArray>

#include <optional>
#include <string>

#include <sys/stat.h>

namespace ORR::Companion {

// How a file was found: what tells whether it is still the same one, with the same content.
struct FileLook
{
    bool isThere = false;
    dev_t device = 0;
    ino_t number = 0;
    off_t size = 0;
    timespec modified = {};
    timespec changed = {};

    bool operator==(const FileLook &other) const;
};

// Follows links.
FileLook lookAt(const QByteArray &name);

// A regular file, read as a whole.
struct WholeFile
{
    std::optional<QByteArray> bytes; // or nothing, and why
    std::string fault;
    bool isSteady = true; // it did not change while it was read
};

// Never waits for a pipe or a device. Of a file that is longer than what the reader of graphs
// takes, at least the beginning that shows this.
WholeFile readWholeFile(const QByteArray &name);

} // namespace ORR::Companion
