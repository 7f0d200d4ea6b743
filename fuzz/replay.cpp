// The replay of any text that is a graph, be it of xdot or not.
#include "device/xdot_render.h"
#include "drawing_checks.h"
#include "fuzz_target.h"

using namespace ORR;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray text = inputText(data, size);
    checkCalls(text, [&](Graph::DotGraph *graph, Graph::Device *device) {
        return Graph::Graphviz::XDotRender(device, graph).render(text);
    });
    return 0;
}
