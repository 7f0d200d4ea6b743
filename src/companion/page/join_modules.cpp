// Makes C++ of what a page is put together from: the template, the theme and the modules behind
// each other as one script. Part of the build.
//
//   join_modules FOLDER OUTPUT HEADER PREFIX PLACE...
//
// The header declares the constants PREFIXTemplate, PREFIXTheme and PREFIXCode; the places are
// those that the template must have, as {{PLACE}}.
//
// The modules stand in the order of order.txt, each behind those that it imports. Import lines go,
// and so do the word "export", blanks that say nothing and comments: those that begin a line, and
// `/** */` anywhere. What would not work joined is a fault: see `Module`.
#include "companion/page/compact_lines.h"
#include "companion/page/text_constant.h"

#include <cctype>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Names = std::set<std::string>;

[[noreturn]] void refuse(const std::string &file, const std::string &why)
{
    throw std::runtime_error(file + ": " + why);
}

std::string contentOf(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    if (!file)
        refuse(path.string(), "can't be read");
    return content.str();
}

std::vector<std::string> linesOf(const std::string &text)
{
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::string trimmed(const std::string &text)
{
    constexpr char blanks[] = " \t\r";
    const size_t first = text.find_first_not_of(blanks);
    return first == std::string::npos
        ? std::string()
        : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Lines without their comments and without blanks at their ends; empty lines are left out. No text
// of a module holds what begins a comment.
class CommentStripper
{
public:
    explicit CommentStripper(bool isScript) : strips(isScript) { }

    std::string stripped(const std::string &given)
    {
        std::string line = trimmed(given);
        for (;;) {
            if (isInside && !leave(&line))
                return {};
            const size_t start = startIn(line);
            if (start == std::string::npos)
                return line;
            const std::string before = line.substr(0, start);
            line.erase(0, start + 2);
            isInside = true;
            const bool isClosed = leave(&line);
            line = isClosed ? before + line : trimmed(before);
            if (!isClosed)
                return line;
        }
    }

private:
    // Steps behind the end of the comment, if it is in the line, and behind a blank.
    bool leave(std::string *line)
    {
        const size_t end = line->find("*/");
        if (end == std::string::npos)
            return false;
        isInside = false;
        line->erase(0, end + 2);
        if (line->starts_with(' '))
            line->erase(0, 1);
        return true;
    }

    size_t startIn(std::string &line) const
    {
        if (strips && line.starts_with("//"))
            line.clear();
        if (line.starts_with("/*"))
            return 0;
        return strips ? line.find("/**") : std::string::npos;
    }

    bool strips;
    bool isInside = false;
};

std::string wordAt(const std::string &text, size_t start)
{
    size_t end = start;
    while (end < text.size()
           && (std::isalnum(static_cast<unsigned char>(text[end])) || text[end] == '_'
               || text[end] == '$'))
        ++end;
    return text.substr(start, end - start);
}

// The name that a line without blanks before it declares, empty for none.
std::string declaredIn(const std::string &line)
{
    static constexpr std::string_view words[] = {"async function ", "function ", "class ",
                                                 "const ",          "let ",      "var "};
    for (const std::string_view word : words) {
        if (line.starts_with(word))
            return wordAt(line, word.size());
    }
    return {};
}

// One module as it is joined.
class Module
{
public:
    explicit Module(const std::filesystem::path &path) : file(path.filename().string())
    {
        CommentStripper stripper(true);
        for (const std::string &line : linesOf(contentOf(path))) {
            const std::string code = stripper.stripped(line);
            if (!code.empty())
                add(code, line.starts_with(code.substr(0, 1)));
        }
    }

    const std::string &code() const { return text; }
    const Names &declared() const { return declaredNames; }

    // Whether all that it imports was exported by modules before it.
    void checkImports(const std::map<std::string, Names> &exportsBefore) const
    {
        for (const auto &[from, name] : imports) {
            const auto found = exportsBefore.find(from);
            if (found == exportsBefore.end())
                refuse(file, "imports from " + from + ", which does not stand before it");
            if (!found->second.contains(name))
                refuse(file, "imports " + name + ", which " + from + " does not export");
        }
    }
    const Names &exported() const { return exportedNames; }

private:
    void add(std::string line, bool isTopLevel)
    {
        if (line.starts_with("import"))
            return addImport(line);
        const bool isExport = line.starts_with("export ");
        if (isExport)
            line.erase(0, std::string_view("export ").size());
        const std::string name = isTopLevel ? declaredIn(line) : std::string();
        if (isExport && name.empty())
            refuse(file, "exports something that is no declaration with a name: " + line);
        if (isExport)
            exportedNames.insert(name);
        if (!name.empty() && !declaredNames.insert(name).second)
            refuse(file, "declares " + name + " twice");
        const bool isPattern = line.starts_with("const {") || line.starts_with("const [");
        if (isTopLevel && isPattern)
            refuse(file, "declares several names at once: " + line);
        // Declarations in a row are made at once.
        const bool isDeclaration = line.starts_with("const ") || line.starts_with("let ");
        const bool isWhole = line.ends_with(';');
        if (isDeclaration && endsWithDeclaration) {
            text.pop_back();
            line.erase(0, line.find(' '));
            line.front() = ',';
        }
        endsWithDeclaration = isDeclaration && isWhole;
        ORR::Companion::addScriptLine(line, &text);
    }

    // import { a, b } from './x.js';
    void addImport(const std::string &line)
    {
        const size_t open = line.find('{');
        const size_t close = line.find("} from './");
        if (!line.starts_with("import {") || close == std::string::npos || !line.ends_with("';"))
            refuse(file, "imports in a way that can't be joined: " + line);
        const size_t place = close + std::string_view("} from './").size();
        const std::string from = line.substr(place, line.size() - 2 - place);
        std::istringstream names(line.substr(open + 1, close - open - 1));
        for (std::string name; std::getline(names, name, ',');) {
            name = trimmed(name);
            if (name.find(' ') != std::string::npos)
                refuse(file, "imports under another name: " + line);
            imports.emplace_back(from, name);
        }
    }

    std::string file;
    std::string text;
    bool endsWithDeclaration = false; // all of which stands in one line
    Names declaredNames;
    Names exportedNames;
    std::vector<std::pair<std::string, std::string>> imports; // file and name
};

std::string joined(const std::filesystem::path &folder)
{
    Names unlisted;
    for (const auto &entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".js")
            unlisted.insert(entry.path().filename().string());
    }
    std::string code = "(() => {\n'use strict';\n";
    std::map<std::string, Names> exports;
    Names declared;
    for (const std::string &line : linesOf(contentOf(folder / "order.txt"))) {
        const std::string name = trimmed(line);
        if (name.empty())
            continue;
        const Module module(folder / name);
        module.checkImports(exports);
        for (const std::string &one : module.declared()) {
            if (!declared.insert(one).second)
                refuse(name, "declares " + one + ", as a module before it does");
        }
        exports[name] = module.exported();
        code += module.code() + '\n';
        unlisted.erase(name);
    }
    if (!unlisted.empty())
        refuse("order.txt", "misses " + *unlisted.begin());
    return ORR::Companion::withShortName(code + "})();\n");
}

std::string themeOf(const std::filesystem::path &path)
{
    CommentStripper stripper(false);
    std::string theme;
    for (const std::string &line : linesOf(contentOf(path))) {
        const std::string kept = stripper.stripped(line);
        if (!kept.empty())
            ORR::Companion::addThemeLine(kept, &theme);
    }
    return theme;
}

// What stands within an element of the page must not end it.
const std::string &checked(const std::string &text, const std::string &what)
{
    for (const char *const word : {"</script", "</style", "<!--"}) {
        if (text.find(word) != std::string::npos)
            refuse(what, std::string("holds ") + word);
    }
    return text;
}

// What is asked for.
struct Call
{
    std::filesystem::path folder;
    std::filesystem::path output;
    std::string header;
    std::string prefix;
    std::vector<std::string> places;
};

// Without line ends between elements, each of which would be a node.
std::string templateOf(const std::filesystem::path &path)
{
    std::string text = contentOf(path);
    size_t at = 0;
    while ((at = text.find(">\n<", at)) != std::string::npos)
        text.erase(at + 1, 1);
    return text;
}

const std::string &checkedTemplate(const std::string &text, const std::vector<std::string> &places)
{
    for (const std::string &place : places) {
        if (text.find("{{" + place + "}}") == std::string::npos)
            refuse("page.html", "has no place {{" + place + "}}");
    }
    return text;
}

void write(const Call &call)
{
    using ORR::Companion::textConstant;
    const std::string page = templateOf(call.folder / "page.html");
    std::ofstream file(call.output, std::ios::binary | std::ios::trunc);
    file << "#include \"" << call.header << "\"\n\nnamespace ORR::Companion {\n\n"
         << textConstant(call.prefix + "Template", checkedTemplate(page, call.places))
         << textConstant(call.prefix + "Theme",
                         checked(themeOf(call.folder / "theme.css"), "theme.css"))
         << textConstant(call.prefix + "Code", checked(joined(call.folder), "the joined modules"))
         << "} // namespace ORR::Companion\n";
    file.close();
    if (!file)
        refuse(call.output.string(), "can't be written");
}

} // namespace

int main(int argc, char **argv)
try {
    if (argc < 5)
        throw std::runtime_error("a folder, an output, a header and a prefix are needed");
    write({argv[1], argv[2], argv[3], argv[4], {argv + 5, argv + argc}});
    return 0;
} catch (const std::exception &fault) {
    std::fprintf(stderr, "join_modules: %s\n", fault.what());
    return 1;
}
