// Draws the graph on standard input, or says where it is wrong:
// draw_cpp ENGINE FORMAT < graph.dot > drawing
#include <orrlayout/orrlayout.hpp>

#include <cstdlib>
#include <iostream>
#include <iterator>

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::cerr << "draw_cpp ENGINE FORMAT < graph.dot > drawing\n";
        return 2;
    }
    const std::string dot(std::istreambuf_iterator<char>(std::cin), {});
    const orrlayout::Options options{.engine = argv[1], .format = argv[2]};
    try {
        std::cout << orrlayout::draw(dot, options) << std::flush;
        return std::cout ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const orrlayout::Error &error) {
        std::cerr << error.what() << '\n';
        if (error.status() != ORRLAYOUT_BAD_INPUT)
            return EXIT_FAILURE;
    }
    for (const orrlayout::Finding &finding : orrlayout::check(dot, options)) {
        std::cerr << finding.line << ':' << finding.column << ": " << finding.sentence << '\n';
    }
    return EXIT_FAILURE;
}
