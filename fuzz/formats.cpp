// Files of every format of both tables, judged. The first byte of the input chooses the format, the
// second what draws: an engine by its place in the table, or behind the last the replay. Letters
// "a", "b", "c" ... choose the first, the second, the third ...; the rest is the text.
#include "device/xdot_render.h"
#include "drawing/layout_table.h"
#include "drawing_checks.h"
#include "fuzz_target.h"

using namespace ORR;

namespace {

std::size_t chosen(std::uint8_t byte, std::size_t choices)
{
    return static_cast<std::uint8_t>(byte - 'a') % choices;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 2)
        return 0;
    const std::size_t formats =
        Drawing::formatTable().size() + Drawing::furtherFormatTable().size();
    const std::size_t format = chosen(data[0], formats);
    const std::size_t engine = chosen(data[1], Drawing::layoutTable().size() + 1);
    const QByteArray text = inputText(data + 2, size - 2);
    const auto run = [&](Graph::DotGraph *graph, Graph::Device *device) {
        if (engine == Drawing::layoutTable().size())
            return Graph::Graphviz::XDotRender(device, graph).render(text);
        return Drawing::layoutTable().at(engine).run({graph, device});
    };
    checkFile(text, run, static_cast<Drawing::Format>(format));
    return 0;
}
