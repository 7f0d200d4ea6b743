// Makes C++ of inputs that the program holds. Part of the build.
//
//   join_examples LIST FOLDER OUTPUT FUNCTION
//
// The function of examples.h gives them.
// A line of the list is an engine, a file below the folder and a title.
#include "companion/page/text_constant.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace {

std::string contentOf(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    if (!file)
        throw std::runtime_error(path.string() + " can't be read");
    return content.str();
}

void write(const std::filesystem::path &list, const std::filesystem::path &folder,
           const std::filesystem::path &output, const std::string &function)
{
    std::string constants;
    std::string rows;
    std::istringstream lines(contentOf(list));
    for (std::string engine, name, title; lines >> engine >> name >> std::ws;) {
        std::getline(lines, title);
        constants += ORR::Companion::textConstant(engine + "Example", contentOf(folder / name));
        rows += "        {\"" + engine + "\", \"" + title + "\", " + engine + "Example},\n";
    }
    std::ofstream file(output, std::ios::binary | std::ios::trunc);
    file << "#include \"companion/examples/examples.h\"\n\nnamespace ORR::Companion {\n\n"
         << "namespace {\n\n"
         << constants << "} // namespace\n\nstd::span<const Example> " << function << "()\n{\n"
         << "    static const Example table[] = {\n"
         << rows << "    };\n    return table;\n}\n\n} // namespace ORR::Companion\n";
    file.close();
    if (!file)
        throw std::runtime_error(output.string() + " can't be written");
}

} // namespace

int main(int argc, char **argv)
try {
    if (argc != 5)
        throw std::runtime_error("a list, a folder, an output and a function are needed");
    write(argv[1], argv[2], argv[3], argv[4]);
    return 0;
} catch (const std::exception &fault) {
    std::fprintf(stderr, "join_examples: %s\n", fault.what());
    return 1;
}
