#pragma once

#include <QString>

namespace ORR::Drawing {

// The family that texts of this one are drawn in, if it is another one for want of a font. Empty if
// the family is there, if the configuration of the fonts has another one stand for it by
// intention (Liberation Sans for Arial, whose letters are as wide), or if what is asked for is
// no family but a kind, as "sans-serif". The toolkit has been started.
QString replacingFamily(const QString &family);

} // namespace ORR::Drawing
