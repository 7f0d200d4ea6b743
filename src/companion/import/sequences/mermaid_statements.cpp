// The statements of Mermaid's sequence diagrams that have parts of their own.
#include "companion/import/reading/json_value.h"
#include "companion/import/sequences/mermaid_reader.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

// "id as its name", "id@{ ... } as its name".
void MermaidReader::declare(const QString &word, const QString &rest, bool isCreated)
{
    const qsizetype brace = std::max<qsizetype>(rest.lastIndexOf(u'}'), 0);
    const qsizetype as = rest.indexOf(u" as "_s, brace);
    const QString alias = as < 0 ? QString() : unquotedMermaidText(rest.sliced(as + 4));
    QString id = (as < 0 ? rest : rest.first(as)).trimmed();
    QString attributes;
    const qsizetype at = id.indexOf(u"@{"_s);
    if (at >= 0) {
        attributes = id.sliced(at + 1);
        id = id.first(at).trimmed();
    }
    if (id.isEmpty()) {
        builder.fail(u"'%1' is followed by no name"_s.arg(word));
        return;
    }
    const bool isNew = !builder.isKnown(id);
    const int made = builder.participant(id);
    SequenceParticipant &participant = builder.at(made);
    if (isNew)
        participant.kind = sequenceKind(word);
    if (isInBox)
        participant.box = int(builder.sequence.boxes.size() - 1);
    if (!attributes.isEmpty())
        readAttributes(attributes, &participant);
    if (!alias.isEmpty())
        participant.name = alias;
    if (isCreated)
        builder.add({.type = SequenceStep::Create, .to = made});
}

void MermaidReader::readAttributes(const QString &json, SequenceParticipant *participant)
{
    std::optional<ImportFault> fault;
    const std::optional<JsonDocument> document =
        JsonDocument::read(json.toUtf8(), sourceName, &fault);
    if (!document) {
        builder.fail(u"behind '@' %1"_s.arg(fault->sentence));
        return;
    }
    const QString type = document->root()["type"].text();
    if (!type.isEmpty())
        participant->kind = sequenceKind(type);
    const QString alias = document->root()["alias"].text();
    if (!alias.isEmpty())
        participant->name = plainMermaidText(alias);
}

// "colour title", either of which may be left out.
void MermaidReader::beginBox(const QString &rest)
{
    const qsizetype bracket = rest.indexOf(u'(');
    const qsizetype blank = rest.indexOf(u' ');
    const bool isFunction = bracket > 0 && (blank < 0 || bracket < blank);
    const qsizetype end = isFunction ? rest.indexOf(u')') + 1 : (blank < 0 ? rest.size() : blank);
    const QString word = rest.first(std::max<qsizetype>(end, 0));
    const bool isTransparent = word.compare(u"transparent", Qt::CaseInsensitive) == 0;
    const QString color = isTransparent ? u"#FFFFFF"_s : plainColor(word);
    builder.sequence.boxes.append(
        SequenceBox{.title = plainMermaidText(color.isEmpty() ? rest : rest.sliced(word.size())),
                    .fill = color});
    isInBox = true;
}

// "right of A: text", "over A,B: text".
void MermaidReader::readNote(const QString &rest)
{
    const qsizetype colon = rest.indexOf(u':');
    const MermaidWords place = mermaidWords(rest.first(std::max<qsizetype>(colon, 0)));
    SequenceStep note{.type = SequenceStep::Note};
    QString who = place.rest;
    if (place.first == u"left" || place.first == u"right") {
        note.side = place.first == u"left" ? SequenceStep::Left : SequenceStep::Right;
        const MermaidWords of = mermaidWords(who);
        if (of.first == u"of")
            who = of.rest;
    } else if (place.first != u"over") {
        builder.fail(u"a note is 'left of', 'right of' or 'over' somebody, with a colon and its "
                     "text behind"_s);
        return;
    }
    const QStringList names = who.split(u',');
    note.from = builder.participant(names.constFirst().trimmed());
    note.to = builder.participant(names.constLast().trimmed());
    note.text = plainMermaidText(rest.sliced(colon + 1));
    builder.add(note);
}

void MermaidReader::readNumbers(const QString &rest)
{
    if (rest == u"off") {
        counts = false;
        return;
    }
    const QStringList parts = rest.split(u' ', Qt::SkipEmptyParts);
    number = parts.isEmpty() ? 1 : plainNumber(parts[0]);
    step = parts.size() < 2 ? 1 : plainNumber(parts[1]);
    counts = true;
    if (number < 0 || step < 0)
        builder.fail(u"'autonumber' is followed by a number, the distance to the next, or 'off'"_s);
}

void MermaidReader::readMessage(const QString &statement)
{
    const MermaidMessage message = mermaidMessage(statement);
    if (message.from.isEmpty() || message.to.isEmpty()) {
        builder.fail(u"the message '%1' has no %2"_s.arg(
            statement.first(std::min<qsizetype>(statement.size(), 60)),
            message.from.isEmpty() ? u"sender"_s : u"receiver"_s));
        return;
    }
    if (message.isHalf)
        builder.tell(u"a half of an arrow head is drawn as a whole one"_s);
    if (message.head == SequenceStep::NoHead && message.tail == SequenceStep::NoHead)
        builder.tell(u"a line without a head is drawn with an open one"_s);
    addMessage(message);
}

void MermaidReader::addMessage(const MermaidMessage &message)
{
    SequenceStep arrow{.type = SequenceStep::Message,
                       .from = builder.participant(message.from),
                       .to = builder.participant(message.to),
                       .text = message.text,
                       .head = message.head,
                       .tail = message.tail,
                       .isDashed = message.isDashed};
    if (counts) {
        arrow.text =
            QString::number(number) + (arrow.text.isEmpty() ? u""_s : u". "_s) + arrow.text;
        number += step;
    }
    builder.add(arrow);
    if (message.activates)
        builder.add({.type = SequenceStep::Activate, .to = arrow.to});
    if (message.deactivates)
        builder.endBar(arrow.from);
    for (const int end : {arrow.from, arrow.to}) {
        if (doomed.remove(end) > 0)
            builder.add({.type = SequenceStep::Destroy, .to = end});
    }
}

} // namespace ORR::Companion
