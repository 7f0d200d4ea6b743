#include "companion/import/sequences/mermaid_reader.h"

#include <QHash>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

MermaidWords mermaidWords(const QString &line)
{
    qsizetype end = 0;
    while (end < line.size() && (line[end].isLetter() || line[end] == u'_'))
        ++end;
    return {line.first(end).toLower(), line.sliced(end).trimmed()};
}

ImportResult MermaidReader::read(ImportSource *source)
{
    sourceName = source->name();
    builder.setPlace(source->place());
    QByteArrayView bytes;
    while (!builder.hasFailed() && source->nextLine(&bytes)) {
        builder.setPlace(source->place());
        readLine(QString::fromUtf8(bytes).trimmed());
    }
    if (!isBegun)
        builder.fail(u"there is no 'sequenceDiagram'"_s);
    if (isInBox)
        builder.fail(u"the last 'box' is not closed by an 'end'"_s);
    for (auto one = doomed.cbegin(); !builder.hasFailed() && one != doomed.cend(); ++one)
        builder.tell(*one, u"no message destroys '%1'"_s.arg(builder.nameOf(one.key())));
    return builder.result(*source);
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
        builder.tell(u"directives ('%%{') change nothing in the drawing"_s);
        return true;
    }
    return line.isEmpty() || line.startsWith(u"%%") || line.startsWith(u"```");
}

void MermaidReader::readLine(const QString &line)
{
    if (passOver(line))
        return;
    if (!isBegun) {
        if (mermaidWords(line).first != u"sequencediagram") {
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
    const MermaidWords words = mermaidWords(statement);
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

bool MermaidReader::readTitle(const QString &statement, const MermaidWords &words)
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
bool MermaidReader::readHead(const MermaidWords &words)
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

bool MermaidReader::readPeople(const MermaidWords &words)
{
    if (words.first == u"create") {
        const MermaidWords created = mermaidWords(words.rest);
        const bool isKind = created.first == u"participant" || created.first == u"actor";
        declare(isKind ? created.first : u"participant"_s, isKind ? created.rest : words.rest,
                true);
    } else if (words.first == u"destroy") {
        doomed.insert(builder.participant(words.rest), builder.place());
    } else if (words.first == u"activate") {
        builder.add({.type = SequenceStep::Activate, .to = builder.participant(words.rest)});
    } else if (words.first == u"deactivate") {
        builder.endBar(builder.participant(words.rest));
    } else if (words.first == u"note") {
        readNote(words.rest);
    } else {
        return false;
    }
    return true;
}

void MermaidReader::beginSection(const MermaidWords &words)
{
    static const QHash<QString, QStringList> fragments{{u"else"_s, {u"alt"_s}},
                                                       {u"and"_s, {u"par"_s, u"par_over"_s}},
                                                       {u"option"_s, {u"critical"_s}}};
    const QString around = builder.openKeyword();
    if (!around.isEmpty() && !fragments.value(words.first).contains(around))
        builder.fail(u"'%1' stands in '%2', but belongs into '%3'"_s.arg(
            words.first, around, fragments.value(words.first).constFirst()));
    else
        builder.nextSection(words.first, plainMermaidText(words.rest));
}

bool MermaidReader::readFragment(const MermaidWords &words)
{
    static const QStringList begins{u"loop"_s,     u"alt"_s,      u"opt"_s,  u"par"_s,
                                    u"par_over"_s, u"critical"_s, u"break"_s};
    static const QStringList goesOn{u"else"_s, u"and"_s, u"option"_s};
    const QString text = plainMermaidText(words.rest);
    if (begins.contains(words.first)) {
        builder.beginFragment(words.first, text, {},
                              words.first == u"par_over" ? u"par"_s : QString());
    } else if (goesOn.contains(words.first)) {
        beginSection(words);
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

} // namespace ORR::Companion
