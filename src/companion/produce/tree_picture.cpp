#include "companion/produce/tree_picture.h"

#include "companion/produce/tree_texts.h"

#include <utility>

namespace ORR::Companion {

TreePicture::TreePicture(WeightTree tree, TreeMeaning meaning)
    : weights(std::move(tree)), numbers(std::move(meaning))
{
}

WrittenGraph TreePicture::write(const PictureRequest &request) const
{
    const TreeJob job = {weights, numbers, request};
    return treemapText(job);
}

} // namespace ORR::Companion
