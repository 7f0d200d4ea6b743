// One rich text, measured and drawn by the devices that differ in what they make of one.
#include "device/text_image.h"
#include "drawing_checks.h"
#include "fuzz_target.h"

using namespace ORR;
using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString html = QString::fromUtf8(inputText(data, size));
    const auto run = [&](Graph::DotGraph *, Graph::Device *device) {
        Graph::Device::Text *text =
            device->text(html, device->font({}, 12, 0), device->color(u"black"_s));
        const QSize room = Graph::TextImage::textSize(text, true);
        require(room.isValid(), "a size of each text");
        device->begin(100, 80);
        device->drawRichText({10, 10}, text);
        return device->end();
    };
    // One of the two, since laying out takes all the time.
    const auto format = size % 2 == 0 ? Drawing::Format::Svg : Drawing::Format::Png;
    checkFile("digraph {}", run, format);
    return 0;
}
