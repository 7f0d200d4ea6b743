#pragma once

#include "api/protocol.h"

namespace ORR::Api {

// Draws or checks what a request asks for. Whatever stands in it, there is an answer; throws
// std::bad_alloc.
Message answered(const Message &request);

} // namespace ORR::Api
