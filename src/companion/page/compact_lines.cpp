#include "companion/page/compact_lines.h"

#include <string_view>

namespace ORR::Companion {

namespace {

constexpr std::string_view quotes = "'\"`";
constexpr std::string_view signs = "=>?:,;{}()[]&|*'\"`+-<!/%";
// Behind these a stroke begins a regular expression; it divides behind all others.
constexpr std::string_view beforeExpressions = "(=,:[!&|?{};>";
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

void addScriptLine(const std::string &line, std::string *script)
{
    // The end of a block ends its last statement.
    if (line.front() == '}' && script->ends_with(';'))
        script->pop_back();
    const char last = script->empty() ? '\n' : script->back();
    std::string kept = last != '\n' && needsBlank(last, line.front()) ? "\n" : "";
    for (size_t i = 0; i < line.size();) {
        const char c = line[i];
        if (c == '/' && (kept.empty() || isAmong(beforeExpressions, kept.back()))) {
            *script += kept + line.substr(i);
            return;
        }
        const size_t end = isAmong(quotes, c) ? endOfText(line, i) : i + 1;
        const bool goes = c == ' ' && end < line.size() && !needsBlank(kept.back(), line[end]);
        if (!goes)
            kept += line.substr(i, end - i);
        i = end;
    }
    if (kept.ends_with(' ')) // of a comment that went
        kept.pop_back();
    *script += kept;
}

void addThemeLine(std::string line, std::string *theme)
{
    for (const std::string_view pair : {": ", ", ", " {"}) {
        const bool isDeclaration = line.ends_with(';');
        if (pair == ": " && !isDeclaration)
            continue;
        for (size_t at = line.find(pair); at != std::string::npos; at = line.find(pair))
            line.erase(line[at] == ' ' ? at : at + 1, 1);
    }
    if (line == "}" && theme->ends_with(';'))
        theme->pop_back();
    *theme += line;
}

} // namespace ORR::Companion
