#pragma once

#include "api/worker_process.h"
#include "orrlayout/orrlayout.h"

#include <string>
#include <vector>

namespace ORR::Api {

// What came of a request: the worker's answer, or why there is none.
struct Reply
{
    orrlayout_status status = ORRLAYOUT_OK;
    std::vector<std::string> fields = {}; // of a failure a message
};

// Has a worker that is free, or a new one, answer a request, and waits for it. As many requests as
// there are processors are answered side by side. Throws std::bad_alloc.
Reply ask(const Workers::MessageView &request, const Deadline &deadline);

} // namespace ORR::Api
