#pragma once

#include "orrlayout/orrlayout.h"

#include <cstdint>

// What the messages of the library and its workers hold: the library asks, the worker answers. The
// worker speaks first: it greets with its version once it can draw. The kind of a request is a
// `Request`, that of an answer an `orrlayout_status`.
namespace ORR::Api {

enum class Request : std::uint32_t { Draw, Check };

// The fields of a request, in this order.
struct RequestField
{
    enum { Input, Engine, Format, Home, HtmlLabels, Count };
};

// The fields of an answer: of a drawing its bytes, of a failure its message, of a check these for
// each finding.
struct FindingField
{
    enum { Rule, Sentence, Suggestion, Numbers, Count };
};

// As bytes in their field.
struct FindingNumbers
{
    std::int64_t severity;
    std::int64_t line;
    std::int64_t column;
    std::int64_t endLine;
    std::int64_t endColumn;
    std::int64_t more;
};

} // namespace ORR::Api
