// The statements of PlantUML's sequence diagrams.
#include "companion/import/sequences/plantuml_reader.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// A name, in quotes if it is more than a word.
QString namePattern()
{
    return uR"((?:"[^"]*"|[\w.@]+))"_s;
}

QRegularExpression linePattern(const QString &text)
{
    return QRegularExpression(u'^' + text + u'$',
                              QRegularExpression::CaseInsensitiveOption
                                  | QRegularExpression::UseUnicodePropertiesOption);
}

} // namespace

// "#red", "#FFAA00", "#red/blue" (the first of two); empty if it is none.
QString PlantumlReader::fill(const QString &word)
{
    static const QRegularExpression first(u"^#?(\\w+)"_s);
    const QString plain = first.match(word).captured(1);
    const QString named = plainColor(plain);
    const QString color = named.isEmpty() ? plainColor(u'#' + plain) : named;
    if (!word.isEmpty() && color.isEmpty())
        builder.tell(u"'%1' is no colour that is known"_s.arg(word));
    return color;
}

bool PlantumlReader::readParticipant(const QString &line)
{
    static const QRegularExpression declaration = linePattern(
        uR"((create\s+)?(?:(participant|actor|boundary|control|entity|database|collections|queue)\s+)?)"
        u"("_s
        + namePattern() + uR"()(?:\s+as\s+()"_s + namePattern()
        + uR"())?\s*((?:<<.*?>>|\s|order\s+-?\d+|#[\w/|\\-]+)*)(\[)?)"_s);
    const QRegularExpressionMatch match = declaration.match(line);
    const bool isCreated = match.capturedLength(1) > 0;
    if (!match.hasMatch() || (!isCreated && match.capturedLength(2) == 0))
        return false;
    const QString first = match.captured(3);
    const QString second = match.captured(4);
    // Either of the two may be the long one: "Long name" as L, L as "Long name".
    const bool isLongFirst = !second.isEmpty() && !second.startsWith(u'"');
    const QString id = plantumlName(second.isEmpty() || !isLongFirst ? first : second);
    const QString title = plantumlName(second.isEmpty() || isLongFirst ? first : second);
    declare(id, title, match.captured(2), match.captured(5));
    if (isCreated)
        builder.add({.type = SequenceStep::Create, .to = builder.participant(id)});
    if (match.capturedLength(6) > 0) {
        block = {.kind = Block::Participant, .end = u"]"_s};
        pendingRest = id;
    }
    return true;
}

void PlantumlReader::declare(const QString &id, const QString &title, const QString &kind,
                             const QString &rest)
{
    const int made = builder.participant(id);
    SequenceParticipant &participant = builder.at(made);
    participant.name = plainPlantumlText(title);
    if (!kind.isEmpty())
        participant.kind = sequenceKind(kind);
    if (isInBox)
        participant.box = int(builder.sequence.boxes.size() - 1);
    static const QRegularExpression stereotype(u"<<(.*?)>>"_s);
    static const QRegularExpression order(u"\\border\\s+(-?\\d+)"_s);
    static const QRegularExpression color(u"#[\\w]+"_s);
    const QString without = QString(rest).remove(stereotype);
    // "(C,#ADD1B2) Testable": a spot before the word.
    static const QRegularExpression spot(u"^\\s*\\([^)]*\\)\\s*"_s);
    participant.stereotype = stereotype.match(rest).captured(1).remove(spot).trimmed();
    participant.fill = fill(color.match(without).captured());
    const QRegularExpressionMatch place = order.match(without);
    if (place.hasMatch()) {
        orders.resize(std::max<qsizetype>(orders.size(), made + 1), 0);
        orders[made] = place.captured(1).toDouble();
    }
}

bool PlantumlReader::readBox(const QString &line)
{
    static const QRegularExpression begin =
        linePattern(uR"(box(?:\s+("[^"]*"|[^#"\s][^#]*))?\s*(#\w+)?\s*)"_s);
    if (line.compare(u"end box", Qt::CaseInsensitive) == 0
        || line.compare(u"endbox", Qt::CaseInsensitive) == 0) {
        isInBox = false;
        return true;
    }
    const QRegularExpressionMatch match = begin.match(line);
    if (!match.hasMatch() || plantumlMessage(line))
        return false;
    builder.sequence.boxes.append(
        SequenceBox{.title = plainPlantumlText(plantumlName(match.captured(1))),
                    .fill = fill(match.captured(2))});
    isInBox = true;
    return true;
}

bool PlantumlReader::readBars(const QString &line)
{
    static const QRegularExpression bars = linePattern(
        u"(activate|deactivate|destroy)\\s+("_s + namePattern() + uR"()\s*(#\w+)?(?:\s+#\w+)?)"_s);
    static const QRegularExpression answer = linePattern(u"return(?:\\s+(.*))?"_s);
    const QRegularExpressionMatch returned = answer.match(line);
    if (returned.hasMatch() && !plantumlMessage(line)) {
        addReturn(plainPlantumlText(returned.captured(1)));
        return true;
    }
    const QRegularExpressionMatch match = bars.match(line);
    if (!match.hasMatch())
        return false;
    const QString word = match.captured(1).toLower();
    const int who = builder.participant(plantumlName(match.captured(2)));
    const auto isHis = [who](const Call &call) { return call.to == who; };
    const auto last = std::find_if(calls.rbegin(), calls.rend(), isHis);
    if (word == u"activate") {
        builder.add({.type = SequenceStep::Activate, .to = who, .color = fill(match.captured(3))});
        calls.append({hasMessage && lastTo == who ? lastFrom : who, who});
        return true;
    }
    if (last != calls.rend())
        calls.erase(std::next(last).base());
    if (word == u"destroy")
        builder.add({.type = SequenceStep::Destroy, .to = who});
    else
        builder.endBar(who);
    return true;
}

bool PlantumlReader::readFragment(const QString &line)
{
    static const QRegularExpression words = linePattern(
        uR"((alt|opt|loop|par2?|break|critical|group|else|also|end)\b\s*((?:#\w+\s+|#\w+$)*)(.*))"_s);
    const QRegularExpressionMatch match = words.match(line);
    if (!match.hasMatch() || plantumlMessage(line))
        return false;
    const QString word = match.captured(1).toLower();
    const QStringList colors = match.captured(2).split(u' ', Qt::SkipEmptyParts);
    const QString color = colors.isEmpty() ? QString() : fill(colors.constLast());
    const QString text = plainPlantumlText(match.captured(3));
    if (word == u"end") {
        const bool isPlain = text.isEmpty() || text == builder.openKeyword();
        if (!isPlain)
            return false;
        builder.endFragment();
    } else if (word == u"else" || word == u"also") {
        builder.nextSection(word, text, color);
    } else if (word == u"group") {
        static const QRegularExpression second(u"^(.*?)\\s*\\[(.*)\\]$"_s);
        const QRegularExpressionMatch both = second.match(text);
        const QString tag = both.hasMatch() ? both.captured(1) : text;
        builder.beginFragment(word, both.captured(2), color, tag.isEmpty() ? word : tag);
    } else {
        builder.beginFragment(word == u"par2" ? u"par"_s : word, text, color);
    }
    return true;
}

// "note right of A #color: text", "note over A, B", "note left" beside the last message.
bool PlantumlReader::readNote(const QString &line)
{
    static const QRegularExpression words = linePattern(
        uR"(/?\s*([hr]?note)\s+(left|right|over|across)(?:\s+of)?\s*((?:)"_s + namePattern()
        + uR"((?:\s*,\s*)"_s + namePattern() + uR"()*)?)\s*(#[\w/|\\-]+)?\s*(?::\s*(.*))?)"_s);
    const QRegularExpressionMatch match = words.match(line);
    if (!match.hasMatch())
        return false;
    const QString place = match.captured(2).toLower();
    QStringList who;
    for (const QString &one : match.captured(3).split(u',', Qt::SkipEmptyParts))
        who += plantumlName(one);
    pending = {.type = SequenceStep::Note, .color = fill(match.captured(4))};
    if (place == u"across") {
        pending.type = SequenceStep::Divider;
        if (pending.color.isEmpty())
            pending.color = u"#FFF6D5"_s;
    } else if (who.isEmpty() && !hasMessage) {
        builder.fail(u"a note beside a message stands behind none"_s);
        return true;
    } else if (who.isEmpty()) {
        const int ends[] = {std::min(lastFrom, lastTo), std::max(lastFrom, lastTo)};
        pending.from = place == u"left" && ends[0] >= 0 ? ends[0] : ends[1];
        pending.to = pending.from;
    } else {
        pending.from = builder.participant(who.constFirst());
        pending.to = builder.participant(who.constLast());
    }
    if (place == u"left" || place == u"right")
        pending.side = place == u"left" ? SequenceStep::Left : SequenceStep::Right;
    if (match.hasCaptured(5)) {
        pending.text = plainPlantumlText(match.captured(5));
        builder.add(pending);
    } else {
        block = {.kind = Block::Note, .end = u"end "_s + match.captured(1).toLower()};
    }
    return true;
}

bool PlantumlReader::readReference(const QString &line)
{
    static const QRegularExpression words =
        linePattern(u"ref(?:\\s*#\\w+)*\\s+over\\s+("_s + namePattern() + uR"((?:\s*,\s*)"_s
                    + namePattern() + uR"()*)\s*(#\w+)?\s*(?::\s*(.*))?)"_s);
    const QRegularExpressionMatch match = words.match(line);
    if (!match.hasMatch())
        return false;
    pending = {.type = SequenceStep::Reference, .color = fill(match.captured(2))};
    bool isFirst = true;
    for (const QString &one : match.captured(1).split(u',')) {
        const int who = builder.participant(plantumlName(one));
        pending.from = isFirst ? who : std::min(pending.from, who);
        pending.to = isFirst ? who : std::max(pending.to, who);
        isFirst = false;
    }
    if (match.hasCaptured(3)) {
        pending.text = plainPlantumlText(match.captured(3));
        builder.add(pending);
    } else {
        block = {.kind = Block::Reference, .end = u"end ref"_s};
    }
    return true;
}

// Dividers, delays, room, and the beginning of another page.
bool PlantumlReader::readPause(const QString &line)
{
    static const QRegularExpression divider = linePattern(u"==+\\s*(.*?)\\s*==+"_s);
    static const QRegularExpression delay =
        linePattern(uR"((?:\.\.\.|…)\s*(?:(.*?)\s*(?:\.\.\.|…))?)"_s);
    static const QRegularExpression space = linePattern(uR"(\|\|(?:\||\d+\|\|))"_s);
    static const QRegularExpression page = linePattern(u"newpage(?:\\s+(.*))?"_s);
    if (const auto match = divider.match(line); match.hasMatch()) {
        builder.add({.type = SequenceStep::Divider, .text = plainPlantumlText(match.captured(1))});
    } else if (const auto waited = delay.match(line); waited.hasMatch()) {
        builder.add({.type = SequenceStep::Delay, .text = plainPlantumlText(waited.captured(1))});
    } else if (space.match(line).hasMatch()) {
        builder.add({.type = SequenceStep::Space});
    } else if (const auto next = page.match(line); next.hasMatch()) {
        builder.tell(u"a new page begins with a line across the drawing"_s);
        builder.add({.type = SequenceStep::Divider, .text = plainPlantumlText(next.captured(1))});
    } else {
        return false;
    }
    return true;
}

} // namespace ORR::Companion
