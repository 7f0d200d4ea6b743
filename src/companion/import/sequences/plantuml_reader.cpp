#include "companion/import/sequences/plantuml_reader.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

QString shortLine(const QString &line)
{
    return line.size() <= 60 ? line : line.first(60) + u"..."_s;
}

bool beginsWithWord(const QString &line, QStringView word)
{
    return line.startsWith(word, Qt::CaseInsensitive)
        && (line.size() == word.size() || !line[word.size()].isLetterOrNumber());
}

// What has no effect since drawings are that way: time runs downward, and nobody's head stands
// again at the foot.
bool isAsDrawn(const QString &line)
{
    return beginsWithWord(line, u"top to bottom direction")
        || QString(line).remove(u' ').compare(u"hidefootbox", Qt::CaseInsensitive) == 0;
}

} // namespace

ImportResult PlantumlReader::read(ImportSource *source)
{
    QByteArrayView bytes;
    builder.setPlace(source->place());
    while (!isEnded && !builder.hasFailed() && source->nextLine(&bytes)) {
        const QString line = continued + QString::fromUtf8(bytes).trimmed();
        continued.clear();
        builder.setPlace(source->place());
        if (block.kind == Block::None && line.endsWith(u'\\') && !line.endsWith(u"\\\\"))
            continued = line.chopped(1);
        else
            readLine(line);
    }
    while (isEnded && source->nextLine(&bytes)) {
        builder.setPlace(source->place());
        if (bytes.trimmed().startsWith("@startuml"))
            builder.tell(u"only the first diagram is drawn"_s);
    }
    if (!isBegun)
        builder.fail(u"there is no '@startuml'"_s);
    if (block.kind != Block::None)
        builder.fail(u"what is to end with '%1' does not end"_s.arg(block.end));
    if (isInBox)
        builder.fail(u"the last 'box' is not closed by an 'end box'"_s);
    sortByOrder();
    return builder.result(*source);
}

void PlantumlReader::readLine(const QString &line)
{
    if (readInBlock(line) || readFrame(line) || !isBegun)
        return;
    if (line.startsWith(u"/'")) {
        if (!line.contains(u"'/"))
            block = {.kind = Block::Comment, .end = u"'/"_s};
        return;
    }
    if (!line.isEmpty() && !line.startsWith(u'\''))
        readStatement(line);
}

// The lines around a diagram. What comes before the first one is passed over.
bool PlantumlReader::readFrame(const QString &line)
{
    if (line.startsWith(u"@startuml")) {
        isBegun = true;
        return true;
    }
    if (line.startsWith(u"@start") && !isBegun) {
        builder.fail(u"'%1' begins no diagram of UML"_s.arg(shortLine(line)));
        return true;
    }
    isEnded = isBegun && line.startsWith(u"@enduml");
    return isEnded;
}

bool PlantumlReader::readInBlock(const QString &line)
{
    if (block.kind == Block::None)
        return false;
    const bool isLast = block.kind == Block::Comment
        ? line.contains(block.end)
        : QString(line).remove(u' ').compare(QString(block.end).remove(u' '), Qt::CaseInsensitive)
            == 0;
    if (isLast)
        finishBlock();
    else
        block.lines += line;
    return true;
}

void PlantumlReader::finishBlock()
{
    const Block finished = std::exchange(block, {});
    const QString text = plainPlantumlText(finished.lines.join(u'\n'));
    switch (finished.kind) {
    case Block::Note:
    case Block::Reference:
        pending.text = text;
        builder.add(pending);
        break;
    case Block::Title:
        builder.sequence.title = text;
        break;
    case Block::Participant: {
        QString name = text;
        name.remove(QRegularExpression(u"^=+\\s*|^-{4,}$"_s, QRegularExpression::MultilineOption));
        builder.at(builder.participant(pendingRest)).name =
            name.replace(QRegularExpression(u"\\n+"_s), u"\n"_s).trimmed();
        break;
    }
    default:
        break;
    }
}

void PlantumlReader::skipUntil(const QString &end, const QString &what)
{
    builder.tell(what);
    block = {.kind = Block::Skipped, .end = end};
}

void PlantumlReader::readStatement(const QString &line)
{
    if (readSetting(line) || readParticipant(line) || readBox(line) || readBars(line)
        || readFragment(line) || readNote(line) || readReference(line) || readPause(line)
        || readMessage(line))
        return;
    builder.fail(u"'%1' is no statement of a sequence diagram"_s.arg(shortLine(line)));
}

// What is said of the diagram as a whole.
bool PlantumlReader::readSetting(const QString &line)
{
    if (line.startsWith(u'!')) {
        const qsizetype end = std::min(line.indexOf(u' '), line.size());
        builder.tell(u"the preprocessor is not run: '%1' is passed over"_s.arg(
            end < 0 ? line : line.first(end)));
        return true;
    }
    static const QStringList looks{u"skinparam"_s,
                                   u"hide"_s,
                                   u"show"_s,
                                   u"scale"_s,
                                   u"left to right direction"_s,
                                   u"top to bottom direction"_s};
    for (const QString &word : looks) {
        if (beginsWithWord(line, word) && !plantumlMessage(line)) {
            if (!isAsDrawn(line))
                builder.tell(u"'%1' changes nothing in the drawing"_s.arg(word));
            if (line.endsWith(u'{'))
                block = {.kind = Block::Skipped, .end = u"}"_s};
            return true;
        }
    }
    static const QRegularExpression duration(u"^\\{[^}]*\\}\\s*<->\\s*\\{[^}]*\\}"_s);
    if (duration.match(line).hasMatch()) {
        builder.tell(u"a time between two anchors has no place in the drawing"_s);
        return true;
    }
    if (beginsWithWord(line, u"url") && !plantumlMessage(line)) {
        builder.tell(u"links of participants are left out"_s);
        return true;
    }
    if (beginsWithWord(line, u"<style>")) {
        skipUntil(u"</style>"_s, u"styles are passed over"_s);
        return true;
    }
    if (beginsWithWord(line, u"title") || beginsWithWord(line, u"mainframe")) {
        const QString title = line.section(u' ', 1).trimmed();
        if (title.isEmpty())
            block = {.kind = Block::Title, .end = u"end title"_s};
        else
            builder.sequence.title = plainPlantumlText(title);
        return true;
    }
    for (const QString &word : {u"header"_s, u"footer"_s, u"caption"_s, u"legend"_s,
                                u"center footer"_s, u"center header"_s, u"left header"_s,
                                u"right header"_s, u"left footer"_s, u"right footer"_s}) {
        if (!beginsWithWord(line, word) || plantumlMessage(line))
            continue;
        const QString kind = word.section(u' ', -1);
        const QString what = u"a %1 has no place in the drawing"_s.arg(kind);
        if (kind == u"legend" || line.size() == word.size())
            skipUntil(u"end "_s + kind, what);
        else
            builder.tell(what);
        return true;
    }
    if (beginsWithWord(line, u"autoactivate")) {
        activatesAll = line.endsWith(u"on");
        return true;
    }
    if (!beginsWithWord(line, u"autonumber") || plantumlMessage(line))
        return false;
    if (!numbers.read(line.sliced(10).trimmed()))
        builder.fail(u"'%1' does not say where the numbers begin"_s.arg(shortLine(line)));
    return true;
}

bool PlantumlNumbers::read(const QString &words)
{
    static const QRegularExpression quoted(u"\"([^\"]*)\""_s);
    const QRegularExpressionMatch match = quoted.match(words);
    const QString pattern = match.hasMatch() ? match.captured(1) : QString();
    const QStringList rest = QString(words).remove(quoted).split(u' ', Qt::SkipEmptyParts);
    const QString first = rest.isEmpty() ? QString() : rest[0];
    if (first == u"stop") {
        counts = false;
        return true;
    }
    counts = true;
    if (!pattern.isEmpty())
        format = plainPlantumlText(pattern);
    if (first == u"inc")
        return raise(rest.value(1));
    const bool resumes = first == u"resume";
    const QString stepWord = rest.value(1);
    if (!stepWord.isEmpty()) {
        step = int(std::min(plainNumber(stepWord), 1e6));
        if (step < 0)
            return false;
    }
    if (resumes)
        return !parts.isEmpty();
    if (pattern.isEmpty())
        format.clear();
    if (stepWord.isEmpty())
        step = 1;
    static const QRegularExpression sign(u"[^0-9]"_s);
    parts.clear();
    const QRegularExpressionMatch separator = sign.match(first);
    parting = separator.hasMatch() ? separator.captured() : QString();
    for (const QString &part : (first.isEmpty() ? u"1"_s : first).split(sign)) {
        const double number = plainNumber(part);
        if (number < 0 || number > 1e6)
            return false;
        parts += int(number);
    }
    return true;
}

// "A" is the first part, which lets the parts behind it begin anew; none is the last one.
bool PlantumlNumbers::raise(const QString &letter)
{
    const qsizetype last = parts.size() - 1;
    const qsizetype part = letter.isEmpty() ? last : letter[0].toUpper().unicode() - u'A';
    if (part < 0 || part > last || letter.size() > 1)
        return false;
    ++parts[part];
    std::fill(parts.begin() + part + 1, parts.end(), 1);
    return true;
}

QString PlantumlNumbers::next()
{
    QStringList words;
    for (const int part : parts)
        words += QString::number(part);
    QString number = words.join(parting);
    parts.last() += step;
    static const QRegularExpression digits(u"[0#]+"_s);
    const QRegularExpressionMatch match = digits.match(format);
    if (format.isEmpty())
        return number + u"."_s;
    if (!match.hasMatch())
        return format + number;
    if (match.captured().startsWith(u'0'))
        number = number.rightJustified(match.capturedLength(), u'0');
    return QString(format).replace(match.capturedStart(), match.capturedLength(), number);
}

// Participants that say their place stand where it tells, the others where they are named.
void PlantumlReader::sortByOrder()
{
    QList<int> by;
    for (int i = 0; i < builder.sequence.participants.size(); ++i)
        by += i;
    orders.resize(by.size(), 0);
    std::stable_sort(by.begin(), by.end(), [&](int a, int b) { return orders[a] < orders[b]; });
    QList<SequenceParticipant> sorted;
    QList<int> places(by.size());
    for (const int i : std::as_const(by)) {
        places[i] = int(sorted.size());
        sorted += builder.sequence.participants[i];
    }
    builder.sequence.participants = sorted;
    for (SequenceStep &step : builder.sequence.steps) {
        for (int *const end : {&step.from, &step.to}) {
            if (*end >= 0)
                *end = places[*end];
        }
    }
}

} // namespace ORR::Companion
