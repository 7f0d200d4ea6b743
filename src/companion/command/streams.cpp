#include "companion/command/streams.h"

#include "companion/findings/terminal_text.h"
#include "driver/standard_streams.h"
#include "graph/limits.h"
#include "output/files/descriptor.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace ORR::Companion {

void tell(const std::string &message)
{
    QByteArray shown;
    size_t start = 0;
    while (start < message.size()) {
        const size_t end = std::min(message.find('\n', start), message.size());
        shown +=
            terminalText(QByteArrayView(message).sliced(qsizetype(start), qsizetype(end - start)));
        if (end < message.size())
            shown += '\n';
        start = end + 1;
    }
    Graph::writeToEnd(STDERR_FILENO, shown);
}

bool print(const CommandCall &call, const QByteArray &text)
{
    if (call.hasOutput && Driver::writeToEnd(STDOUT_FILENO, text))
        return true;
    const std::string fault = call.hasOutput ? std::strerror(errno) : "it is closed";
    tell(call.name + ": standard output can't be written: " + fault + '\n');
    return false;
}

bool printsToTerminal()
{
    return ::isatty(STDOUT_FILENO) == 1;
}

bool printsColors()
{
    const char *const refused = std::getenv("NO_COLOR");
    const char *const terminal = std::getenv("TERM");
    return printsToTerminal() && !(refused && *refused) && terminal
        && std::strcmp(terminal, "dumb") != 0;
}

ReadInput readInput(const CommandCall &call, const std::string &name)
{
    const bool isStandardInput = name == "-";
    if (isStandardInput && !call.hasInput)
        return {std::nullopt, "it is closed"};
    Graph::Descriptor file;
    if (!isStandardInput) {
        file = Graph::Descriptor(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
        if (!file)
            return {std::nullopt, std::strerror(errno)};
    }
    const std::optional<QByteArray> bytes = Driver::readToEnd(
        isStandardInput ? STDIN_FILENO : file.number(), Graph::Limits::longestInput);
    return {bytes, bytes ? std::string() : std::strerror(errno)};
}

} // namespace ORR::Companion
