#include "companion/produce/tree_picture.h"

#include "companion/produce/tree_texts.h"

#include <utility>

namespace ORR::Companion {

namespace {

struct TextOfEngine
{
    const char *engine;
    WrittenGraph (*text)(const TreeJob &job);
};

constexpr TextOfEngine texts[] = {
    {"treemap", treemapText}, {"sunburst", sunburstText}, {"flatbubble", bubbleText},
    {"bar", barText},         {"gftree", callTreeText},
};

} // namespace

TreePicture::TreePicture(WeightTree tree, TreeMeaning meaning)
    : weights(std::move(tree)), numbers(std::move(meaning))
{
}

WrittenGraph TreePicture::write(const PictureRequest &request) const
{
    const TreeJob job = {weights, numbers, request};
    for (const auto &[engine, text] : texts) {
        if (request.engine == QLatin1StringView(engine))
            return text(job);
    }
    return treemapText(job);
}

} // namespace ORR::Companion
