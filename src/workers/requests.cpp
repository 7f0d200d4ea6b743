#include "workers/requests.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ORR::Workers {

bool Requests::areThere()
{
    struct stat state = {};
    return ::fstat(STDIN_FILENO, &state) == 0 && S_ISSOCK(state.st_mode);
}

Requests::Requests() : socket(::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1))
{
    const int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    ::dup2(nothing, STDIN_FILENO);
    ::close(nothing);
}

Requests::~Requests()
{
    ::close(socket);
}

std::optional<Message> Requests::next()
{
    for (;;) {
        if (std::optional<Message> request = reader.next())
            return request;
        if (reader.receive(socket, 0) == MessageReader::Ended)
            return std::nullopt;
    }
}

bool Requests::answer(const MessageView &message)
{
    return OutgoingMessage(message).send(socket, 0) == OutgoingMessage::Sent;
}

} // namespace ORR::Workers
