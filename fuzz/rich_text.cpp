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
        require(room == Graph::TextImage::textSize(html, text->font(), true), "one size of a text");
        device->begin(100, 80);
        device->drawRichText({10, 10}, text);
        return device->end();
    };
    checkFile("digraph {}", run, Driver::DriverFormat::Svg);
    checkFile("digraph {}", run, Driver::DriverFormat::Png);
    return 0;
}
