#include "companion/page/compact_lines.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace ORR::Companion {

namespace {

constexpr std::string_view quotes = "'\"`";
constexpr std::string_view signs = "=>?:,;{}()[]&|*'\"`+-<!/%";
// Behind these, and these words, a stroke begins a regular expression; it divides behind all
// others.
constexpr std::string_view beforeExpressions = "(=,:[!&|?{};>+-*%~<\n";
constexpr std::string_view wordsBeforeExpressions[] = {"return", "typeof", "case", "in",   "of",
                                                       "void",   "delete", "else", "await"};

bool isAmong(std::string_view set, char c)
{
    return set.find(c) != std::string_view::npos;
}

bool isOfWord(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '$';
}

// The word that a text ends with, empty for none; what stands behind a dot is the name of a member.
std::string_view lastWord(std::string_view text)
{
    size_t start = text.size();
    while (start > 0 && isOfWord(text[start - 1]))
        --start;
    return start > 0 && text[start - 1] == '.' ? std::string_view() : text.substr(start);
}

bool beginsExpression(std::string_view before)
{
    if (before.ends_with("++") || before.ends_with("--"))
        return false;
    if (before.empty() || isAmong(beforeExpressions, before.back()))
        return true;
    return std::ranges::find(wordsBeforeExpressions, lastWord(before))
        != std::end(wordsBeforeExpressions);
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
        else if (isCode ? isAmong(quotes, c) || c == '{'
                        : open.back() == '`' && c == '{' && line[i - 1] == '$')
            open += isCode && c != '{' ? c : '}';
    }
    return std::min(i, line.size());
}

// Behind the regular expression that begins there; its flags are a word as others.
size_t endOfExpression(const std::string &line, size_t start)
{
    bool isInClass = false;
    size_t i = start + 1;
    for (; i < line.size() && (isInClass || line[i] != '/'); ++i) {
        if (line[i] == '\\')
            ++i;
        else if (isAmong("[]", line[i]))
            isInClass = line[i] == '[';
    }
    return std::min(i + 1, line.size());
}

// Behind the text, the expression, the word or the single sign that begins there.
size_t endOfToken(const std::string &line, size_t start, std::string_view before)
{
    if (isAmong(quotes, line[start]))
        return endOfText(line, start);
    if (line[start] == '/' && beginsExpression(before))
        return endOfExpression(line, start);
    size_t end = start + 1;
    while (isOfWord(line[start]) && end < line.size() && isOfWord(line[end]))
        ++end;
    return end;
}

// Between what is kept and what comes: "a - -b" and "a + ++b" are not "a--b" and "a+++b".
bool needsBlank(char before, char after)
{
    if (before == after && isAmong("+-/", before))
        return true;
    return !isAmong(signs, before) && !isAmong(signs, after);
}

// The end of a block ends its last statement, that of a list its last entry.
void dropNeedlessSign(char next, std::string *script)
{
    const bool isStatement = next == '}' && script->ends_with(';');
    const bool isEntry = isAmong("}])", next) && script->ends_with(',') && !script->ends_with("[,")
        && !script->ends_with(",,"); // holes
    if (isStatement || isEntry)
        script->pop_back();
}

} // namespace

void addScriptLine(const std::string &line, std::string *script)
{
    dropNeedlessSign(line.front(), script);
    const char last = script->empty() ? '\n' : script->back();
    if (last != '\n' && needsBlank(last, line.front()))
        *script += '\n';
    bool isBehindExpression = false; // where a word would be its flags
    for (size_t i = 0; i < line.size();) {
        if (line[i] == ' ') {
            ++i;
            if (i < line.size()
                && ((isBehindExpression && isOfWord(line[i]))
                    || needsBlank(script->back(), line[i])))
                *script += ' ';
            continue;
        }
        const size_t end = endOfToken(line, i, *script);
        const std::string token = line.substr(i, end - i);
        const bool isConstant =
            token == "const" && !script->ends_with('.') && line.find(' ', end) == end;
        isBehindExpression = token.size() > 1 && token.front() == '/';
        *script += isConstant ? "let" : token;
        i = end;
    }
}

std::string withShortName(const std::string &script)
{
    constexpr std::string_view name = "objects";
    std::string shorter;
    size_t kept = 0; // what is ahead is in `shorter` already
    for (size_t at = script.find(name); at != std::string::npos; at = script.find(name, kept)) {
        const size_t end = at + name.size();
        const bool isWord = (at == 0 || !isOfWord(script[at - 1])) && !isOfWord(script[end]);
        const bool isName = isWord && !isAmong(" '\"`", script[end]);
        shorter += script.substr(kept, at - kept) + (isName ? "O" : std::string(name));
        kept = end;
    }
    return shorter + script.substr(kept);
}

void addThemeLine(const std::string &line, std::string *theme)
{
    if (line == "}" && theme->ends_with(';'))
        theme->pop_back();
    const bool isDeclaration = line.ends_with(';');
    const std::string_view aloneBehind = isDeclaration ? ":,/" : ":,>+~(";
    const std::string_view aloneBefore = isDeclaration ? "/!" : "{>+~)";
    for (size_t i = 0; i < line.size();) {
        const size_t end = isAmong(quotes, line[i]) ? endOfText(line, i) : i + 1;
        const bool goes = line[i] == ' ' && i > 0 && end < line.size()
            && (isAmong(aloneBehind, line[i - 1]) || isAmong(aloneBefore, line[end]));
        if (!goes)
            *theme += line.substr(i, end - i);
        i = end;
    }
}

} // namespace ORR::Companion
