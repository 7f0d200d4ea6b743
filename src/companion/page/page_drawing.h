#pragma once

#include <QByteArray>
#include <QString>

namespace ORR::Companion {

// A page to be made.
struct PageRequest
{
    QByteArray input; // one graph as DOT; with `xdotversion` at its root it is replayed
    QString engine = {}; // by its name in any case; empty for that of the root's attribute `layout`
    QString title = {}; // empty for the root's label, else the graph's name, else `fallbackTitle`
    QString fallbackTitle = {};
    bool htmlLabels = false; // whether all labels are HTML, whatever the input says
};

// A page, or why there is none.
struct MadePage
{
    QByteArray document; // empty if there is none
    QString fault; // a sentence without an end; may hold characters of the input
};

// Makes the page, once: the process has prepared and started the toolkit (drawing/job.h).
MadePage makePage(const PageRequest &request);

} // namespace ORR::Companion
