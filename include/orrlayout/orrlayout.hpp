// The library for C++20. See orrlayout.h for threads, fork, and what the library leaves alone.
//
// What fails throws: C++20 has no type of its own for a value or an error, and one of ours would be
// one more for every host. Hosts without exceptions take the functions of orrlayout.h, which these
// are made from. Everything here is in the header; nothing of C++ crosses the library's border.
#pragma once

#include <orrlayout/orrlayout.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orrlayout {

// How to draw. The texts are UTF-8 and end at their first NUL.
struct Options
{
    std::string engine = {}; // by its name, in any case; empty for an input that brings its layout
    std::string format = "svg"; // by its name, in any case
    std::string home = {}; // the folder that holds "conf"; empty for that of the installation
    bool htmlLabels = false; // whether all labels are HTML, whatever the input says
    std::chrono::milliseconds timeout{0}; // for the whole call; 0 is any time
};

// What is thrown for every failure but one of memory, which throws std::bad_alloc. `what` is a line
// for a user.
class Error : public std::runtime_error
{
public:
    Error(orrlayout_status status, const std::string &message)
        : std::runtime_error(message), reason(status)
    {
    }
    orrlayout_status status() const noexcept { return reason; }

private:
    orrlayout_status reason;
};

// One thing that is wrong with an input; the fields are those of orrlayout_finding.
struct Finding
{
    orrlayout_severity severity = ORRLAYOUT_ERROR;
    std::string rule;
    std::string sentence;
    std::string suggestion;
    std::size_t line = 0;
    std::size_t column = 0;
    std::size_t endLine = 0;
    std::size_t endColumn = 0;
    std::size_t more = 0;
};

namespace detail {

struct Free
{
    void operator()(char *memory) const noexcept { orrlayout_free(memory); }
    void operator()(orrlayout_findings *list) const noexcept { orrlayout_findings_free(list); }
};

inline orrlayout_options optionsForC(const Options &options)
{
    constexpr std::int64_t longest = UINT32_MAX;
    const std::int64_t timeout = options.timeout.count();
    if (timeout < 0 || timeout > longest)
        throw Error(ORRLAYOUT_BAD_ARGUMENT, "a time of less than nothing or more than 49 days");
    orrlayout_options forC = ORRLAYOUT_OPTIONS;
    forC.engine = options.engine.c_str();
    forC.format = options.format.c_str();
    forC.home = options.home.c_str();
    forC.html_labels = options.htmlLabels;
    forC.timeout_ms = static_cast<std::uint32_t>(timeout);
    return forC;
}

inline void throwFailure(orrlayout_status status, const char *message)
{
    if (status == ORRLAYOUT_OK)
        return;
    if (status == ORRLAYOUT_OUT_OF_MEMORY)
        throw std::bad_alloc();
    throw Error(status, message ? message : orrlayout_status_text(status));
}

inline std::vector<std::string_view> names(const char *(*nameAt)(std::size_t))
{
    std::vector<std::string_view> all;
    for (std::size_t i = 0; const char *name = nameAt(i); ++i)
        all.emplace_back(name);
    return all;
}

} // namespace detail

// Draws one graph in DOT and gives the bytes of the drawing.
inline std::string draw(std::string_view dot, const Options &options = {})
{
    const orrlayout_options forC = detail::optionsForC(options);
    char *drawing = nullptr;
    char *message = nullptr;
    std::size_t size = 0;
    const orrlayout_status status =
        orrlayout_draw(dot.data(), dot.size(), &forC, &drawing, &size, &message);
    const std::unique_ptr<char, detail::Free> freesDrawing(drawing);
    const std::unique_ptr<char, detail::Free> freesMessage(message);
    detail::throwFailure(status, message);
    return {drawing, size};
}

// Says what is wrong with a text that the engine is to draw, in the order of the places in it. Of
// the options the engine and the time count.
inline std::vector<Finding> check(std::string_view dot, const Options &options = {})
{
    const orrlayout_options forC = detail::optionsForC(options);
    orrlayout_findings *list = nullptr;
    char *message = nullptr;
    const orrlayout_status status = orrlayout_check(dot.data(), dot.size(), &forC, &list, &message);
    const std::unique_ptr<orrlayout_findings, detail::Free> freesList(list);
    const std::unique_ptr<char, detail::Free> freesMessage(message);
    detail::throwFailure(status, message);

    std::vector<Finding> findings;
    for (std::size_t i = 0; const orrlayout_finding *each = orrlayout_findings_at(list, i); ++i) {
        findings.push_back({each->severity, each->rule, each->sentence, each->suggestion,
                            each->line, each->column, each->end_line, each->end_column,
                            each->more});
    }
    return findings;
}

// The names of all engines and of all formats; never gone.
inline std::vector<std::string_view> engines()
{
    return detail::names(orrlayout_engine_name);
}

inline std::vector<std::string_view> formats()
{
    return detail::names(orrlayout_format_name);
}

// The version of the library that runs.
inline std::string_view version()
{
    return orrlayout_version();
}

} // namespace orrlayout
