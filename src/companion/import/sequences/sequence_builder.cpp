#include "companion/import/sequences/sequence_builder.h"

#include "companion/produce/sequence_picture.h"

#include <QColor>
#include <QStringList>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// Notes of one diagram.
constexpr qsizetype mostTold = 20;

QColor uponWhite(const QColor &color)
{
    const auto mixed = [&](int part) { return 255 - (255 - part) * color.alpha() / 255; };
    return {mixed(color.red()), mixed(color.green()), mixed(color.blue())};
}

// One of three parts: "50%" or "128" of 255.
double partOf(const QString &word, double whole)
{
    const bool isPercent = word.endsWith(u'%');
    const double number = (isPercent ? word.chopped(1) : word).toDouble();
    return std::clamp(isPercent ? number / 100 : number / whole, 0.0, 1.0);
}

// "rgb(1, 2, 3)" and its like; invalid if it is none.
QColor colorOfFunction(const QString &word)
{
    const qsizetype bracket = word.indexOf(u'(');
    if (bracket < 0 || !word.endsWith(u')'))
        return {};
    const QString function = word.first(bracket).trimmed().toLower();
    QStringList parts;
    for (const QString &part : word.sliced(bracket + 1).chopped(1).split(u','))
        parts += part.trimmed();
    if (parts.size() < 3)
        return {};
    QColor color;
    if (function == u"rgb" || function == u"rgba")
        color.setRgbF(float(partOf(parts[0], 255)), float(partOf(parts[1], 255)),
                      float(partOf(parts[2], 255)));
    else if (function == u"hsl" || function == u"hsla")
        color.setHslF(float(partOf(parts[0], 360)), float(partOf(parts[1], 1)),
                      float(partOf(parts[2], 1)));
    else
        return {};
    if (parts.size() > 3)
        color.setAlphaF(float(partOf(parts[3], 1)));
    return color;
}

bool isPlainWord(const QString &word)
{
    return std::all_of(word.begin(), word.end(),
                       [](QChar c) { return c.unicode() < 0x80 && c.isLetter(); });
}

} // namespace

SequenceParticipant::Kind sequenceKind(const QString &word)
{
    static const QStringList kinds{u"participant"_s, u"actor"_s,    u"boundary"_s,    u"control"_s,
                                   u"entity"_s,      u"database"_s, u"collections"_s, u"queue"_s};
    return SequenceParticipant::Kind(std::max<qsizetype>(0, kinds.indexOf(word.toLower())));
}

QString plainColor(const QString &word)
{
    const QString trimmed = word.trimmed();
    QColor color = colorOfFunction(trimmed);
    if (!color.isValid() && (trimmed.startsWith(u'#') || isPlainWord(trimmed))
        && QColor::isValidColor(trimmed))
        color = QColor(trimmed);
    return color.isValid() ? uponWhite(color).name().toUpper() : QString();
}

double plainNumber(const QString &word)
{
    const bool isPlain = std::all_of(word.begin(), word.end(),
                                     [](QChar c) { return (c >= u'0' && c <= u'9') || c == u'.'; });
    bool isNumber = false;
    const double number = word.toDouble(&isNumber);
    return isPlain && isNumber ? number : -1;
}

int SequenceBuilder::participant(const QString &id)
{
    const auto known = numbers.constFind(id);
    if (known != numbers.constEnd())
        return *known;
    const int made = int(sequence.participants.size());
    numbers.insert(id, made);
    sequence.participants.append(SequenceParticipant{.name = id});
    return made;
}

QString SequenceBuilder::nameOf(int participant) const
{
    return sequence.participants[participant].name.simplified();
}

void SequenceBuilder::follow(const SequenceStep &message)
{
    if (unborn.contains(message.from))
        tell(u"'%1' sends a message before one creates it"_s.arg(nameOf(message.from)));
    unborn.remove(message.from);
    unborn.remove(message.to);
}

void SequenceBuilder::add(const SequenceStep &step)
{
    switch (step.type) {
    case SequenceStep::Message:
        follow(step);
        break;
    case SequenceStep::Create:
        unborn.insert(step.to, here);
        break;
    case SequenceStep::Activate:
        ++bars[step.to];
        break;
    case SequenceStep::Deactivate:
        bars[step.to] = std::max(0, bars[step.to] - 1);
        break;
    case SequenceStep::Destroy:
        bars.remove(step.to);
        break;
    default:
        break;
    }
    sequence.steps.append(step);
}

void SequenceBuilder::endBar(int participant)
{
    if (bars.value(participant) == 0)
        tell(u"'%1' is not active, so no bar ends here"_s.arg(nameOf(participant)));
    add({.type = SequenceStep::Deactivate, .to = participant});
}

void SequenceBuilder::beginFragment(const QString &keyword, const QString &guard,
                                    const QString &color, const QString &tag)
{
    open.append(Fragment{.keyword = keyword, .place = here});
    add({.type = SequenceStep::BeginFragment,
         .text = guard,
         .keyword = tag.isNull() ? keyword : tag,
         .color = color});
}

void SequenceBuilder::nextSection(const QString &keyword, const QString &guard,
                                  const QString &color)
{
    if (open.isEmpty())
        fail(u"'%1' stands in no fragment"_s.arg(keyword));
    else
        add({.type = SequenceStep::NextSection, .text = guard, .color = color});
}

void SequenceBuilder::endFragment()
{
    if (open.isEmpty()) {
        fail(u"'end' closes nothing"_s);
        return;
    }
    open.removeLast();
    add({.type = SequenceStep::EndFragment});
}

void SequenceBuilder::fail(const QString &sentence)
{
    if (!fault)
        fault = ImportFault{here, sentence};
}

void SequenceBuilder::tell(const ImportPlace &place, const QString &sentence)
{
    const bool isTold = std::any_of(notes.crbegin(), notes.crend(), [&](const ImportFault &note) {
        return note.place.line == place.line && note.sentence == sentence;
    });
    if (isTold)
        return;
    if (notes.size() < mostTold)
        notes.append(ImportFault{place, sentence});
    else
        untold.add(place);
}

ImportResult SequenceBuilder::result(const ImportSource &source)
{
    if (!source.fault().empty()) {
        const ImportPlace place{.source = source.name()};
        return {.fault = ImportFault{place, QString::fromStdString(source.fault())}};
    }
    if (!fault && !open.isEmpty()) {
        here = open.constLast().place;
        fail(u"'%1' is not closed by an 'end'"_s.arg(open.constLast().keyword));
    }
    for (auto one = unborn.cbegin(); !fault && one != unborn.cend(); ++one)
        tell(*one, u"no message creates '%1'"_s.arg(nameOf(one.key())));
    untold.tell(u"from here on there is more that can't be drawn as it is written"_s, &notes);
    if (fault)
        return {.fault = fault, .notes = notes};
    if (sequence.participants.isEmpty()) {
        here.line = 0;
        fail(u"there is nobody in this diagram"_s);
        return {.fault = fault, .notes = notes};
    }
    return {.picture = std::make_unique<SequencePicture>(std::move(sequence)), .notes = notes};
}

} // namespace ORR::Companion
