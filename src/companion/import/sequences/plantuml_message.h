#pragma once

#include "companion/produce/sequence.h"

#include <QString>

#include <optional>

namespace ORR::Companion {

// A message of PlantUML as it is written: whoever is at its left, the arrow, whoever is at its
// right, short forms of activation, and the text behind the colon.
struct PlantumlMessage
{
    struct End
    {
        QString name = {}; // empty for somebody outside
        QString title = {}; // where one is said along with it: "Long name" as L
        SequenceStep::Head head = SequenceStep::NoHead;
        bool isNear = false; // of those outside, "?" and not "["
    };

    End left;
    End right;
    bool isDashed = false;
    bool isHalf = false; // a head has one side only
    bool isHidden = false;
    bool isSlanted = false; // it takes time to arrive
    QString color = {}; // as it is written, without "#"
    QString marks = {}; // "++", "--", "**", "!!" in the order of the text
    QString barColor = {};
    QString text = {};
};

// Nothing if the line is no message.
std::optional<PlantumlMessage> plantumlMessage(const QString &line);

// A text as it is meant to be read: escapes and codes are their characters, marks for fonts and
// colours are left out.
QString plainPlantumlText(const QString &text);

// A name with or without its quotes.
QString plantumlName(const QString &word);

} // namespace ORR::Companion
