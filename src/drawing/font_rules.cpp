#include "drawing/font_rules.h"

#include <fontconfig/fontconfig.h>

namespace ORR::Drawing {

namespace {

// The last rule holds, so that these go before those of the configuration. How letters are hinted
// is settled with each font.
constexpr char rules[] = R"(<?xml version="1.0"?>
<fontconfig>
    <match target="pattern">
        <edit name="antialias" mode="assign"><bool>true</bool></edit>
    </match>
    <match target="font">
        <edit name="antialias" mode="assign"><bool>true</bool></edit>
    </match>
</fontconfig>
)";

} // namespace

void settleFontRules()
{
    FcConfigParseAndLoadFromMemory(FcConfigGetCurrent(), reinterpret_cast<const FcChar8 *>(rules),
                                   FcFalse);
}

} // namespace ORR::Drawing
