#pragma once

#include <QByteArray>

namespace ORR::Companion {

// Makes a drawing smaller and quicker for browsers, and the same to look at: an element of PageSvg.
//
// Blanks between elements and around the letters of paths go. What nearly all have stands at the
// root, from which they inherit it: the font that most texts have, the colour of texts, and the
// lines of shapes where these are more than texts. A drawing with rich texts keeps its own, since
// they bring groups with other defaults. One with many texts tells so by the class "many" and its
// largest size in `data-largest`.
void compactDrawing(QByteArray *drawing);

} // namespace ORR::Companion
