#pragma once

#include "workers/message.h"

namespace ORR::Workers {

// The worker's end of the socket, by which it is asked, and answers.
class Requests
{
public:
    // Whether standard input is a socket, as it is in a process that `startWorker` started.
    static bool areThere();

    // Takes the socket, and leaves nothing behind standard input: nobody comes upon it by the name
    // of a standard stream, which an input or an output may have.
    Requests();
    ~Requests();
    Requests(const Requests &) = delete;
    Requests &operator=(const Requests &) = delete;

    // The socket; -1 if it could not be taken.
    int descriptor() const { return socket; }

    // Waits for the next one. Nothing: there will be no more.
    std::optional<Message> next();
    // Answers it, or greets before the first. False if nobody is there any more.
    bool answer(const MessageView &message);

private:
    int socket = -1;
    MessageReader reader;
};

} // namespace ORR::Workers
