#pragma once

#include "companion/check/checked_text.h"
#include "companion/findings/finding_list.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace ORR::Companion {

// Makes drawings upon a device that only watches, and tells what can be known only from them: that
// one fails, that nothing of it can be seen, that it is too large, what is left out. Without any
// font (drawing_toolkit.h) nothing of that is told.
//
// `bytes` is the text with its line ends normalised. `lastWords` is asked for what standard output
// gets if the start of what draws ends the process. The graph is to be looked at by no rule
// afterwards: the engine writes its places on it.
class DrawingRules
{
public:
    DrawingRules(const CheckedText &checkedText, const QByteArray &textBytes,
                 Graph::DotGraph *readGraph, FindingList *list,
                 const std::function<QByteArray()> &whatIsLast)
        : text(checkedText), bytes(textBytes), graph(readGraph), findings(list),
          lastWords(whatIsLast)
    {
    }

    // By an engine; nothing is told if there is none of the name.
    void checkLayout(const QString &engine) const;
    // Of a text that has its layout; also what is wrong with its ops (replay_rules.h).
    void checkReplayed() const;

private:
    const CheckedText &text;
    const QByteArray &bytes;
    Graph::DotGraph *graph;
    FindingList *findings;
    const std::function<QByteArray()> &lastWords;
};

} // namespace ORR::Companion
