// The functions of the public header.
#include "orrlayout/orrlayout.h"

#include "api/installation.h"
#include "api/names.h"
#include "api/protocol.h"
#include "api/worker_pool.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include <pthread.h>

struct orrlayout_findings
{
    std::vector<std::string> texts; // three for each finding, which points to them
    std::vector<orrlayout_finding> findings;
};

namespace {

using namespace ORR::Api;

constexpr std::size_t longestInput = 0x7fffffff; // bytes; the worker's reader takes no more
constexpr std::size_t firstOptionsSize = 40; // bytes; no version has less
static_assert(sizeof(orrlayout_options) == firstOptionsSize,
              "on this platform and in this version");

// As long as it lives the thread can't be cancelled: an object that is half used would be left.
class NoCancelling
{
public:
    NoCancelling() { ::pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &former); }
    ~NoCancelling() { ::pthread_setcancelstate(former, nullptr); }
    NoCancelling(const NoCancelling &) = delete;
    NoCancelling &operator=(const NoCancelling &) = delete;

private:
    int former = 0;
};

// The text with a NUL behind it, to be freed by the caller; null if memory runs out.
char *copied(std::string_view text)
{
    char *const copy = static_cast<char *>(std::malloc(text.size() + 1)); // NOLINT(*-no-malloc)
    if (!copy)
        return nullptr;
    std::copy(text.begin(), text.end(), copy);
    copy[text.size()] = '\0';
    return copy;
}

// Whether the options are of this version or an older one, or of a later one with nothing set that
// is not known here. Then they are read into ours.
bool readOptions(const orrlayout_options *given, orrlayout_options *options)
{
    *options = ORRLAYOUT_OPTIONS;
    if (!given)
        return true;
    if (given->size < firstOptionsSize || given->size > 4096)
        return false;
    const char *const bytes = reinterpret_cast<const char *>(given);
    const std::size_t known = std::min(given->size, sizeof *options);
    std::memcpy(options, bytes, known);
    return std::all_of(bytes + known, bytes + given->size, [](char byte) { return byte == 0; });
}

std::string_view textOf(const char *text, std::string_view otherwise)
{
    return text && *text ? std::string_view(text) : otherwise;
}

Reply badArgument(const char *message)
{
    return {ORRLAYOUT_BAD_ARGUMENT, {message}};
}

Reply request(Request kind, const char *dot, std::size_t size, const orrlayout_options *given)
{
    const Clock::time_point start = Clock::now();
    if (!dot && size > 0)
        return badArgument("there is no input");
    orrlayout_options options = ORRLAYOUT_OPTIONS;
    if (!readOptions(given, &options))
        return badArgument("the options are of another version than the library");
    if (size > longestInput)
        return {ORRLAYOUT_TOO_LARGE, {"the input has more than 2147483647 bytes"}};

    const std::string home = homeDirectory();
    Deadline deadline;
    if (options.timeout_ms > 0)
        deadline = start + std::chrono::milliseconds(options.timeout_ms);
    return ask({static_cast<std::uint32_t>(kind),
                {{dot, size},
                 textOf(options.engine, ""),
                 textOf(options.format, "svg"),
                 textOf(options.home, home),
                 options.html_labels ? "1" : ""}},
               deadline);
}

// Answers a request, in a way that nothing is thrown by.
Reply safeRequest(Request kind, const char *dot, std::size_t size,
                  const orrlayout_options *options) noexcept
try {
    const NoCancelling noCancelling;
    return request(kind, dot, size, options);
} catch (const std::bad_alloc &) {
    return {ORRLAYOUT_OUT_OF_MEMORY};
} catch (const std::exception &) { // a text longer than there can be
    return {ORRLAYOUT_OUT_OF_MEMORY};
}

orrlayout_status fail(const Reply &reply, char **message)
{
    if (message)
        *message = reply.fields.empty() ? nullptr : copied(reply.fields.front());
    return reply.status;
}

orrlayout_findings *listOf(Reply &&reply)
{
    auto *const list = new orrlayout_findings{std::move(reply.fields), {}};
    const std::vector<std::string> &texts = list->texts;
    for (std::size_t i = 0; i + FindingField::Count <= texts.size(); i += FindingField::Count) {
        FindingNumbers numbers = {};
        std::memcpy(&numbers, texts[i + FindingField::Numbers].data(),
                    std::min(sizeof numbers, texts[i + FindingField::Numbers].size()));
        const auto size = [](std::int64_t number) { return static_cast<std::size_t>(number); };
        list->findings.push_back(
            {static_cast<orrlayout_severity>(numbers.severity),
             texts[i + FindingField::Rule].c_str(), texts[i + FindingField::Sentence].c_str(),
             texts[i + FindingField::Suggestion].c_str(), size(numbers.line), size(numbers.column),
             size(numbers.endLine), size(numbers.endColumn), size(numbers.more)});
    }
    return list;
}

} // namespace

orrlayout_status orrlayout_draw(const char *dot, size_t size, const orrlayout_options *options,
                                char **drawing, size_t *drawing_size, char **message)
{
    if (drawing)
        *drawing = nullptr;
    if (drawing_size)
        *drawing_size = 0;
    if (message)
        *message = nullptr;
    if (!drawing || !drawing_size)
        return fail(badArgument("there is no place for the drawing"), message);
    const Reply reply = safeRequest(Request::Draw, dot, size, options);
    if (reply.status != ORRLAYOUT_OK)
        return fail(reply, message);
    *drawing = copied(reply.fields.front());
    if (!*drawing)
        return ORRLAYOUT_OUT_OF_MEMORY;
    *drawing_size = reply.fields.front().size();
    return ORRLAYOUT_OK;
}

void orrlayout_free(void *memory)
{
    std::free(memory); // NOLINT(*-no-malloc)
}

orrlayout_status orrlayout_check(const char *dot, size_t size, const orrlayout_options *options,
                                 orrlayout_findings **findings, char **message)
try {
    if (findings)
        *findings = nullptr;
    if (message)
        *message = nullptr;
    if (!findings)
        return fail(badArgument("there is no place for the findings"), message);
    Reply reply = safeRequest(Request::Check, dot, size, options);
    if (reply.status != ORRLAYOUT_OK)
        return fail(reply, message);
    *findings = listOf(std::move(reply));
    return ORRLAYOUT_OK;
} catch (const std::bad_alloc &) {
    return ORRLAYOUT_OUT_OF_MEMORY;
}

size_t orrlayout_findings_count(const orrlayout_findings *findings)
{
    return findings ? findings->findings.size() : 0;
}

const orrlayout_finding *orrlayout_findings_at(const orrlayout_findings *findings, size_t index)
{
    return index < orrlayout_findings_count(findings) ? &findings->findings[index] : nullptr;
}

void orrlayout_findings_free(orrlayout_findings *findings)
{
    delete findings;
}

const char *orrlayout_engine_name(size_t index)
{
    return index < engineCount ? engineNames[index] : nullptr;
}

const char *orrlayout_format_name(size_t index)
{
    return index < formatCount ? formatNames[index] : nullptr;
}

const char *orrlayout_status_text(orrlayout_status status)
{
    switch (status) {
    case ORRLAYOUT_OK:
        return "success";
    case ORRLAYOUT_BAD_ARGUMENT:
        return "an argument that can't be";
    case ORRLAYOUT_UNKNOWN_ENGINE:
        return "no engine of that name";
    case ORRLAYOUT_UNKNOWN_FORMAT:
        return "no format of that name";
    case ORRLAYOUT_BAD_INPUT:
        return "the input is no graph";
    case ORRLAYOUT_NO_DRAWING:
        return "the graph can't be drawn";
    case ORRLAYOUT_TOO_LARGE:
        return "the input is too large";
    case ORRLAYOUT_OUT_OF_MEMORY:
        return "out of memory";
    case ORRLAYOUT_TIMED_OUT:
        return "not ready in time";
    case ORRLAYOUT_CRASHED:
        return "the worker ended";
    case ORRLAYOUT_NOT_STARTED:
        return "the worker did not start";
    }
    return "an unknown status";
}

const char *orrlayout_version()
{
    return ORR_VERSION;
}
