#pragma once

#include "companion/produce/picture.h"

#include <QByteArray>
#include <QSizeF>

#include <functional>

namespace ORR::Companion {

// A graph that was made for a page.
struct PageFit
{
    QByteArray text;
    int most = 1; // things that it was made of at the most
    QSizeF size = {};
    bool fits = false; // else it is the smallest that there is
};

// The graph of the most things, `most` or fewer, that stays on the page that is asked for, found in
// a dozen tries, or fewer. `write` makes the text of a drawing of at most so many things, from 1;
// more things make it no smaller.
PageFit fitToPage(const PictureRequest &request, int most,
                  const std::function<QByteArray(int most)> &write, int tries = 12);

// What is to be told of a drawing that is larger than the page; empty if it is not.
QStringList pageNotes(const PageFit &fit, const PictureRequest &request, const QString &why);

} // namespace ORR::Companion
