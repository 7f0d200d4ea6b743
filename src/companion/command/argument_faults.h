#pragma once

#include <QString>

#include <string>
#include <vector>

namespace CLI {
class App;
}

// What is wrong with the options of a command line, in sentences of our own.
namespace ORR::Companion {

// What the arguments say that no option takes: an option that there is not, a value that is missing
// or one too many, an option that is given twice.
struct ArgumentFaults
{
    QString first; // a sentence without a full stop; empty if all is well
    bool asksForHelp = false; // which is given all the same
};
ArgumentFaults argumentFaults(const CLI::App &app, const std::vector<std::string> &arguments);

} // namespace ORR::Companion
