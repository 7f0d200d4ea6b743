#pragma once

#include <string>

namespace ORR::Companion {

// Adds the line to a script without blanks beside signs and line ends that say nothing. Texts stay;
// from a regular expression on the line is left as it is. A line is not empty, has no blanks around
// it and no text that goes on in the next one; each statement of the script has its semicolon.
void addScriptLine(const std::string &line, std::string *script);

// The same for a style sheet that has one selector, brace or declaration a line.
void addThemeLine(std::string line, std::string *theme);

} // namespace ORR::Companion
