#pragma once

#include <string>

namespace ORR::Companion {

// Adds the line to a script without blanks beside signs, line ends and commas that say nothing;
// "let" stands for "const", which says the same where nothing is assigned to. Texts and regular
// expressions stay. A line is not empty, has no blanks around it and no text that goes on in the
// next one; each statement of the script has its semicolon, and none is empty. What stands behind
// `)` and `]` divides.
void addScriptLine(const std::string &line, std::string *script);

// The name that nearly all modules use, "objects", as one letter. Texts have the word as well, with
// a blank or quotes behind it, which no name has.
std::string withShortName(const std::string &script);

// The same for a style sheet that has one selector, brace or declaration a line.
void addThemeLine(const std::string &line, std::string *theme);

} // namespace ORR::Companion
