#pragma once

#include <cstdio>
#include <sstream>
#include <string>

// For the programs of the build that put files into the program.
namespace ORR::Companion {

// A constant of C++ that holds the text, a literal for each line. Every line of the text ends in a
// line feed then, the last one too.
inline std::string textConstant(const std::string &name, const std::string &text)
{
    std::string result = "const std::string_view " + name + "(";
    size_t length = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        result += "\n    \"";
        for (const char c : line + '\n') {
            char written[8];
            const bool isPlain =
                c >= ' ' && c <= '~' && c != '"' && c != '\\' && c != '?'; // no trigraphs
            std::snprintf(written, sizeof written, isPlain ? "%c" : "\\%03o",
                          static_cast<unsigned char>(c));
            result += written;
        }
        result += '"';
        length += line.size() + 1;
    }
    return result + ",\n    " + std::to_string(length) + ");\n\n";
}

} // namespace ORR::Companion
