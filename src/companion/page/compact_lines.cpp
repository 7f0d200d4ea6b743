#include "companion/page/compact_lines.h"

#include <string_view>

namespace ORR::Companion {

namespace {

constexpr std::string_view quotes = "'\"`";
constexpr std::string_view signs = "=>?:,;{}()[]&|*'\"`+-<!/%";
// Behind these a stroke begins a regular expression; it divides behind all others.
constexpr std::string_view beforeExpressions = "(=,:[!&|?{};>";
// What a line ends with that goes on, or that ends a statement.
constexpr std::string_view needNoEnd = ";{(,[";

bool isAmong(std::string_view set, char c)
{
    return set.find(c) != std::string_view::npos;
}

// Behind the text that begins there; `${}` may hold further ones.
size_t endOfText(const std::string &line, size_t start)
{
    std::string open(1, line[start]); // quotes and braces that wait for their end, innermost last
    size_t i = start + 1;
    for (; i < line.size() && !open.empty(); ++i) {
        const char c = line[i];
        const bool isCode = open.back() == '}';
        if (!isCode && c == '\\')
            ++i;
        else if (c == open.back())
            open.pop_back();
        else if (isCode ? isAmong(quotes, c) : open.back() == '`' && c == '{' && line[i - 1] == '$')
            open += isCode ? c : '}';
    }
    return i;
}

// Between what is kept and what comes: "a - -b" and "a + ++b" are not "a--b" and "a+++b".
bool needsBlank(char before, char after)
{
    if (before == after && isAmong("+-/", before))
        return true;
    return !isAmong(signs, before) && !isAmong(signs, after);
}

} // namespace

std::string compactScriptLine(const std::string &line)
{
    std::string kept;
    for (size_t i = 0; i < line.size();) {
        const char c = line[i];
        if (c == '/' && (kept.empty() || isAmong(beforeExpressions, kept.back())))
            return kept + line.substr(i) + '\n';
        const size_t end = isAmong(quotes, c) ? endOfText(line, i) : i + 1;
        const bool goes =
            c == ' ' && !kept.empty() && end < line.size() && !needsBlank(kept.back(), line[end]);
        if (!goes)
            kept += line.substr(i, end - i);
        i = end;
    }
    if (kept.ends_with(' ')) // of a comment that went
        kept.pop_back();
    return isAmong(needNoEnd, kept.back()) ? kept : kept + '\n';
}

std::string compactThemeLine(std::string line)
{
    if (line.ends_with(" {"))
        return line.erase(line.size() - 2, 1);
    if (line.ends_with('}') || line.ends_with(','))
        return line;
    if (!line.ends_with(';'))
        return line + '\n';
    if (const size_t colon = line.find(": "); colon != std::string::npos)
        line.erase(colon + 1, 1);
    return line;
}

} // namespace ORR::Companion
