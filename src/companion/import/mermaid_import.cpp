#include "companion/import/mermaid_import.h"

#include "companion/import/json_value.h"
#include "companion/import/mermaid_message.h"
#include "companion/import/sequence_builder.h"

#include <QStringList>

#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// The words of a line: the first one in small letters, and what follows it.
struct Words
{
    QString first;
    QString rest;
};

Words wordsOf(const QString &line)
{
    qsizetype end = 0;
    while (end < line.size() && (line[end].isLetter() || line[end] == u'_'))
        ++end;
    return {line.first(end).toLower(), line.sliced(end).trimmed()};
}

class MermaidReader
{
public:
    ImportResult read(ImportSource *source);

private:
    void readLine(const QString &line);
    bool passOver(const QString &line);
    void readStatement(const QString &statement);
    bool readHead(const Words &words);
    bool readPeople(const Words &words);
    bool readFragment(const Words &words);
    bool readTitle(const QString &statement, const Words &words);

    void declare(const QString &word, const QString &rest, bool isCreated);
    void readAttributes(const QString &json, SequenceParticipant *participant);
    void beginBox(const QString &rest);
    void readNote(const QString &rest);
    void readNumbers(const QString &rest);
    void readMessage(const QString &statement);
    void addMessage(const MermaidMessage &message);

    SequenceBuilder builder;
    std::string sourceName;
    bool isBegun = false; // behind the word that begins the diagram
    bool isInFrontMatter = false;
    bool isInDescription = false;
    bool isInDirective = false;
    bool isInBox = false;
    QList<int> doomed; // whom the next message with them destroys
    double number = 0; // of the next message; none while `counts` is false
    double step = 1;
    bool counts = false;
};

ImportResult MermaidReader::read(ImportSource *source)
{
    sourceName = source->name();
    QByteArrayView bytes;
    while (!builder.hasFailed() && source->nextLine(&bytes)) {
        builder.setPlace(source->place());
        readLine(QString::fromUtf8(bytes).trimmed());
    }
    if (!isBegun)
        builder.fail(u"there is no 'sequenceDiagram'"_s);
    if (isInBox)
        builder.fail(u"the last 'box' is not closed by an 'end'"_s);
    return builder.result();
}

// Of what stands around the statements only the title counts.
bool MermaidReader::passOver(const QString &line)
{
    if (line == u"---" && !isBegun) {
        isInFrontMatter = !isInFrontMatter;
        return true;
    }
    if (isInFrontMatter) {
        if (line.startsWith(u"title:"))
            builder.sequence.title = unquotedMermaidText(line.sliced(6));
        return true;
    }
    if (isInDescription || isInDirective) {
        isInDescription = isInDescription && !line.endsWith(u'}');
        isInDirective = isInDirective && !line.endsWith(u"}%%");
        return true;
    }
    if (line.startsWith(u"%%{")) {
        isInDirective = !line.endsWith(u"}%%");
        return true;
    }
    return line.isEmpty() || line.startsWith(u"%%") || line.startsWith(u"```");
}

void MermaidReader::readLine(const QString &line)
{
    if (passOver(line))
        return;
    if (!isBegun) {
        if (wordsOf(line).first != u"sequencediagram") {
            builder.fail(u"'%1' is no sequence diagram, which begins with 'sequenceDiagram'"_s.arg(
                line.first(std::min<qsizetype>(line.size(), 40))));
            return;
        }
        isBegun = true;
        readLine(line.sliced(QStringView(u"sequenceDiagram").size()).trimmed());
        return;
    }
    for (const QString &statement : mermaidStatements(line)) {
        if (!builder.hasFailed() && !statement.isEmpty())
            readStatement(statement);
    }
}

void MermaidReader::readStatement(const QString &statement)
{
    const Words words = wordsOf(statement);
    // A name may be a word of the language: "loop->>A".
    const bool isName = !words.rest.isEmpty() && isMermaidMessage(u'.' + words.rest)
        && !words.rest[0].isLetterOrNumber();
    if (!isName
        && (readTitle(statement, words) || readHead(words) || readPeople(words)
            || readFragment(words)))
        return;
    if (isMermaidMessage(statement)) {
        readMessage(statement);
        return;
    }
    builder.fail(u"'%1' is no statement of a sequence diagram"_s.arg(
        statement.first(std::min<qsizetype>(statement.size(), 60))));
}

bool MermaidReader::readTitle(const QString &statement, const Words &words)
{
    if (words.first == u"title") {
        const bool hasColon = words.rest.startsWith(u':');
        builder.sequence.title = plainMermaidText(hasColon ? words.rest.sliced(1) : words.rest);
        return true;
    }
    if (words.first == u"acctitle") {
        if (builder.sequence.title.isEmpty())
            builder.sequence.title = plainMermaidText(words.rest.mid(1));
        return true;
    }
    if (words.first != u"accdescr")
        return false;
    isInDescription = words.rest.startsWith(u'{') && !statement.endsWith(u'}');
    return true;
}

// What is said of the diagram and of those in it, beyond what happens.
bool MermaidReader::readHead(const Words &words)
{
    if (words.first == u"participant" || words.first == u"actor") {
        declare(words.first, words.rest, false);
    } else if (words.first == u"box") {
        beginBox(words.rest);
    } else if (words.first == u"autonumber") {
        readNumbers(words.rest);
    } else if (words.first == u"link" || words.first == u"links" || words.first == u"properties"
               || words.first == u"details") {
        builder.tell(u"menus of participants ('%1') are not drawn"_s.arg(words.first));
    } else {
        return false;
    }
    return true;
}

bool MermaidReader::readPeople(const Words &words)
{
    if (words.first == u"create") {
        const Words created = wordsOf(words.rest);
        const bool isKind = created.first == u"participant" || created.first == u"actor";
        declare(isKind ? created.first : u"participant"_s, isKind ? created.rest : words.rest,
                true);
    } else if (words.first == u"destroy") {
        doomed.append(builder.participant(words.rest));
    } else if (words.first == u"activate") {
        builder.add({.type = SequenceStep::Activate, .to = builder.participant(words.rest)});
    } else if (words.first == u"deactivate") {
        builder.add({.type = SequenceStep::Deactivate, .to = builder.participant(words.rest)});
    } else if (words.first == u"note") {
        readNote(words.rest);
    } else {
        return false;
    }
    return true;
}

bool MermaidReader::readFragment(const Words &words)
{
    static const QStringList begins{u"loop"_s,     u"alt"_s,      u"opt"_s,  u"par"_s,
                                    u"par_over"_s, u"critical"_s, u"break"_s};
    static const QStringList goesOn{u"else"_s, u"and"_s, u"option"_s};
    const QString text = plainMermaidText(words.rest);
    if (begins.contains(words.first)) {
        builder.beginFragment(words.first, text, {},
                              words.first == u"par_over" ? u"par"_s : QString());
    } else if (goesOn.contains(words.first)) {
        builder.nextSection(words.first, text);
    } else if (words.first == u"rect") {
        const QString color = plainColor(words.rest);
        if (color.isEmpty())
            builder.tell(u"'%1' is no colour that is known"_s.arg(words.rest));
        builder.beginFragment(words.first, {}, color.isEmpty() ? u"#EDEDED"_s : color, u""_s);
    } else if (words.first == u"end" && words.rest.isEmpty()) {
        if (isInBox)
            isInBox = false;
        else
            builder.endFragment();
    } else {
        return false;
    }
    return true;
}

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
    const Words place = wordsOf(rest.first(std::max<qsizetype>(colon, 0)));
    SequenceStep note{.type = SequenceStep::Note};
    QString who = place.rest;
    if (place.first == u"left" || place.first == u"right") {
        note.side = place.first == u"left" ? SequenceStep::Left : SequenceStep::Right;
        const Words of = wordsOf(who);
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
        builder.add({.type = SequenceStep::Deactivate, .to = arrow.from});
    for (const int end : {arrow.from, arrow.to}) {
        if (doomed.removeAll(end) > 0)
            builder.add({.type = SequenceStep::Destroy, .to = end});
    }
}

} // namespace

int likenessOfMermaid(QByteArrayView beginning)
{
    const QByteArray text = beginning.toByteArray();
    for (qsizetype at = text.indexOf("sequenceDiagram"); at >= 0;
         at = text.indexOf("sequenceDiagram", at + 1)) {
        const QByteArrayView before = QByteArrayView(text).first(at);
        const qsizetype line = before.lastIndexOf('\n') + 1;
        // A style of another language may be called so, too.
        const QByteArrayView behind = QByteArrayView(text).sliced(at + 15).trimmed();
        if (before.sliced(line).trimmed().isEmpty() && !behind.startsWith('{'))
            return before.trimmed().isEmpty() ? 100 : 90;
    }
    return 0;
}

ImportResult readMermaid(std::vector<ImportSource> &sources, const ImportOptions & /*options*/)
{
    if (sources.size() > 1)
        return {.fault = ImportFault{{.source = sources[1].name()},
                                     u"a drawing has one diagram: give one file"_s}};
    return MermaidReader().read(&sources.front());
}

} // namespace ORR::Companion
