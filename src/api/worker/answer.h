#pragma once

#include "workers/message.h"

namespace ORR::Api {

// Draws or checks what a request asks for. Whatever stands in it, there is an answer; throws
// std::bad_alloc.
Workers::Message answered(const Workers::Message &request);

} // namespace ORR::Api
