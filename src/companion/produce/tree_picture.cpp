#include "companion/produce/tree_picture.h"

#include "companion/produce/drawn_size.h"
#include "companion/produce/tree_texts.h"

#include <utility>

using namespace Qt::StringLiterals;

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

// Bars are as long as their captions need them, which is not known before.
WrittenGraph sized(WrittenGraph written, const PictureRequest &request)
{
    if (request.engine != u"bar" || !written.notes.isEmpty())
        return written;
    const QSizeF size = drawnSize(written.text, request.engine);
    if (size.width() > request.width || size.height() > request.height)
        written.notes.append(
            u"The drawing is %1 x %2 points and not %3 x %4: its captions need it."_s
                .arg(size.width())
                .arg(size.height())
                .arg(request.width)
                .arg(request.height));
    return written;
}

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
            return sized(text(job), request);
    }
    return treemapText(job);
}

} // namespace ORR::Companion
