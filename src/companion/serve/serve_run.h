#pragma once

#include "companion/command/subcommand.h"
#include "companion/serve/serve_session.h"

#include <optional>

namespace ORR::Companion {

// How it is served.
struct ServeUse
{
    ServeRequest request = {};
    std::optional<quint16> port = {}; // 0 for any that is free
    bool opens = false; // whether a browser is started
};

// The work of `orr serve`: listens, prints its address, and answers until a signal ends it. Gives
// the status of wrong use, which has been told; otherwise ends by a signal, once its workers are
// gone.
int serve(const CommandCall &call, const ServeUse &use);

} // namespace ORR::Companion
