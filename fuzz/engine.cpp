// One engine, that of ORR_ENGINE, for any graph: it tells what it can't draw or draws, twice the
// same.
#include "drawing/layout_table.h"
#include "drawing_checks.h"
#include "fuzz_target.h"

using namespace ORR;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const auto engine = Drawing::chooseLayout(QStringLiteral(ORR_ENGINE));
    require(engine && Drawing::layoutNames().size() == ORR_ENGINE_COUNT,
            "a target for each engine");
    checkCalls(inputText(data, size), [](Graph::DotGraph *graph, Graph::Device *device) {
        return Drawing::layoutRow(*engine).run({graph, device});
    });
    return 0;
}
