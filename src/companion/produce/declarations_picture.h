#pragma once

#include "companion/produce/declarations.h"
#include "companion/produce/picture.h"

namespace ORR::Companion {

// Declarations as boxes in columns, with the members by their access, and lines to what is
// inherited. Where the page is too small, members are left out and, if that does not do, those
// declarations with the fewest of them; both are told. Engine: gfdecl.
class DeclarationsPicture : public Picture
{
public:
    explicit DeclarationsPicture(Declarations declarations) : all(std::move(declarations)) { }

    WrittenGraph write(const PictureRequest &request) const override;

    const Declarations &declarations() const { return all; }

private:
    Declarations all;
};

} // namespace ORR::Companion
