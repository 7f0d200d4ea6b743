// The messages of PlantUML's sequence diagrams, with the bars that they open and close.
#include "companion/import/sequences/plantuml_reader.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

int PlantumlReader::endOf(const PlantumlMessage::End &end, bool isLeft)
{
    if (end.name.isEmpty())
        return isLeft ? SequenceStep::leftOutside : SequenceStep::rightOutside;
    const int who = builder.participant(end.name);
    if (!end.title.isEmpty())
        builder.at(who).name = end.title;
    return who;
}

bool PlantumlReader::readMessage(const QString &line)
{
    const std::optional<PlantumlMessage> message = plantumlMessage(line);
    if (!message || (message->left.name.isEmpty() && message->right.name.isEmpty()))
        return false;
    if (line.startsWith(u'&') || line.startsWith(u'{'))
        builder.tell(u"what happens at the same time, or between anchors, is drawn one after the "
                     "other"_s);
    if (message->isSlanted)
        builder.tell(u"messages that take time are drawn level"_s);
    if (message->isHidden) {
        builder.tell(u"a hidden message is left out"_s);
        return true;
    }
    if (message->isHalf)
        builder.tell(u"a half of an arrow head is drawn as a whole one"_s);
    addMessage(*message);
    return true;
}

// An arrow that points to its left end is a message of its right one.
void PlantumlReader::addMessage(const PlantumlMessage &message)
{
    const int left = endOf(message.left, true);
    const int right = endOf(message.right, false);
    const bool isPlain =
        message.left.head == SequenceStep::NoHead && message.right.head == SequenceStep::NoHead;
    const auto points = [](SequenceStep::Head head) {
        return head == SequenceStep::Filled || head == SequenceStep::Open;
    };
    const bool isLeftward = points(message.left.head) && !points(message.right.head);
    const bool crossesLeft = !points(message.left.head) && !points(message.right.head)
        && message.left.head != SequenceStep::NoHead && message.right.head == SequenceStep::NoHead;
    const bool isBack = isLeftward || crossesLeft;
    if (isPlain)
        builder.tell(u"a line without a head is drawn with an open one"_s);
    SequenceStep step{.type = SequenceStep::Message,
                      .from = isBack ? right : left,
                      .to = isBack ? left : right,
                      .text = message.text,
                      .head = isBack ? message.left.head : message.right.head,
                      .tail = isBack ? message.right.head : message.left.head,
                      .isDashed = message.isDashed,
                      .color = message.color.isEmpty() ? QString() : fill(u'#' + message.color)};
    if (numbers.isOn())
        step.text = numbers.next() + (step.text.isEmpty() ? u""_s : u" "_s) + step.text;
    if (message.marks.contains(u"**") && step.to >= 0)
        builder.add({.type = SequenceStep::Create, .to = step.to});
    builder.add(step);
    lastFrom = step.from;
    lastTo = step.to;
    hasMessage = true;
    addBars(message, step.from, step.to);
}

void PlantumlReader::addBars(const PlantumlMessage &message, int from, int to)
{
    const bool isAnswer = activatesAll && message.isDashed;
    const bool opens = message.marks.contains(u"++") || (activatesAll && !message.isDashed);
    const bool closes = message.marks.contains(u"--") || isAnswer;
    if (opens && to >= 0) {
        builder.add({.type = SequenceStep::Activate, .to = to, .color = fill(message.barColor)});
        calls.append({from, to});
    }
    if (closes && from >= 0) {
        // That an answer has no bar to end is no wonder: any dashed arrow is one.
        if (message.marks.contains(u"--"))
            builder.endBar(from);
        else
            builder.add({.type = SequenceStep::Deactivate, .to = from});
        // The one that the message itself has opened is not meant.
        for (qsizetype i = calls.size() - (opens ? 2 : 1); i >= 0; --i) {
            if (calls[i].to == from) {
                calls.removeAt(i);
                break;
            }
        }
    }
    if (message.marks.contains(u"!!") && to >= 0)
        builder.add({.type = SequenceStep::Destroy, .to = to});
}

void PlantumlReader::addReturn(const QString &text)
{
    if (calls.isEmpty()) {
        builder.fail(u"'return' answers nothing: nobody is active"_s);
        return;
    }
    const Call call = calls.takeLast();
    SequenceStep step{.type = SequenceStep::Message,
                      .from = call.to,
                      .to = call.from,
                      .text = text,
                      .isDashed = true};
    if (numbers.isOn())
        step.text = numbers.next() + (text.isEmpty() ? u""_s : u" "_s) + text;
    builder.add(step);
    builder.add({.type = SequenceStep::Deactivate, .to = call.to});
}

} // namespace ORR::Companion
