#include "companion/command/drawn_output.h"

#include "companion/command/streams.h"
#include "drawing/environment.h"
#include "drawing/toolkit.h"
#include "output/files/file_name.h"
#include "output/output.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

namespace Files = std::filesystem;

// Why a file can't be written, as far as the system tells.
std::string writingFault(const std::string &file)
{
    std::error_code ignored;
    if (Files::is_directory(file, ignored))
        return std::strerror(EISDIR);
    const Files::path folder = Files::path(file).parent_path();
    if (::access(folder.empty() ? "." : folder.c_str(), W_OK) != 0)
        return std::strerror(errno);
    return "not all of it arrived";
}

} // namespace

bool startDrawing(const CommandCall &call)
{
    Drawing::startToolkit("orr");
    Drawing::startApplication(u"orrlayout"_s);
    const QString fault = Drawing::fontFault();
    if (!fault.isEmpty())
        tell(call.name + ": " + fault.trimmed().toStdString() + '\n');
    return fault.isEmpty();
}

int writeDrawn(const CommandCall &call, const std::string &output, const QByteArray &bytes)
{
    if (output == "-")
        return print(call, bytes) ? AllWell : WrongUse;
    const QString name = Graph::fileNameText(QByteArray::fromStdString(output));
    if (Graph::writeOutput(name, bytes))
        return AllWell;
    tell(call.name + ": '" + output + "' can't be written: " + writingFault(output) + '\n');
    return WrongUse;
}

} // namespace ORR::Companion
