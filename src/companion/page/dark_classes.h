#pragma once

#include <QByteArray>
#include <QPoint>

#include <vector>

namespace ORR::Companion {

// What a dark page would swallow of a drawing gets a class, and each class its colour there: lines
// and texts keep their hue and get lighter, the more so the darker they are. What lies on the fill
// of a node or a group stays with it, and so does the line around a fill; a text whose fill leaves
// it too little contrast gets more. Decided while the page is written, so that no browser has to
// look.
//
// A text is taken for lying where its middle does; a line goes by its box, and gets no lighter than
// page and fill both allow where it runs over both.
//
// drawing: of PageSvg. Gets the classes.
// textMiddles: those of its plain texts, see PageSvg.
// edgesHaveFills: whether what edges have filled is no head of a line.
// Returns the rules of a style sheet, empty for none.
QByteArray addDarkClasses(QByteArray *drawing, const std::vector<QPoint> &textMiddles,
                          bool edgesHaveFills);

} // namespace ORR::Companion
