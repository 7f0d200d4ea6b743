#pragma once

#include <string>

namespace ORR::Companion {

// The line of a script without blanks beside signs, where none counts, and with its end where the
// next line needs one. Texts stay; from a regular expression on the line is left as it is. The line
// has no blanks around it, and no text that goes on in the next one.
std::string compactScriptLine(const std::string &line);

// The same of a line of a style sheet that has one rule or declaration a line.
std::string compactThemeLine(std::string line);

} // namespace ORR::Companion
