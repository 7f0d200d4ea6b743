#pragma once

#include "companion/produce/picture.h"
#include "companion/produce/sequence.h"

namespace ORR::Companion {

// A sequence as a diagram of the engine umlseq. Long texts are wrapped, the more the narrower the
// page is; if it is too narrow all the same, a note says why. Of more steps than are asked for the
// first ones are drawn.
class SequencePicture : public Picture
{
public:
    explicit SequencePicture(Sequence sequence);

    WrittenGraph write(const PictureRequest &request) const override;

    // What is drawn, for tests.
    const Sequence &sequence() const { return drawn; }

private:
    Sequence drawn;
};

} // namespace ORR::Companion
