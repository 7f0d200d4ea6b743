#pragma once

#include <QImage>

namespace ORR::Graph {

// Turns premultiplied colours into plain ones, as PNG wants them: each channel times 255 over
// alpha, rounded, halves up. All in integers. The toolkit's own conversion multiplies with the
// processor's approximate reciprocal, which each maker builds differently, so that exact halves
// fall now up and now down; this one is the same on every machine and at most 1 of 255 away from
// that.
//
// The image is of the format ARGB32_Premultiplied and becomes ARGB32, in its own memory; size and
// resolution stay. A null image stays null.
void makeColorsPlain(QImage *image);

} // namespace ORR::Graph
