#include "companion/produce/sequence_causes.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

QString inWords(qint64 count)
{
    return QLocale::c().toString(count);
}

bool isBar(const SequenceStep &step)
{
    return step.type == SequenceStep::Activate || step.type == SequenceStep::Deactivate;
}

bool isFragment(const SequenceStep &step)
{
    return step.type == SequenceStep::BeginFragment || step.type == SequenceStep::NextSection
        || step.type == SequenceStep::EndFragment;
}

bool isNote(const SequenceStep &step)
{
    return step.type == SequenceStep::Note || step.type == SequenceStep::Reference
        || step.type == SequenceStep::Divider || step.type == SequenceStep::Delay;
}

bool isMessage(const SequenceStep &step)
{
    return step.type == SequenceStep::Message;
}

// Whether a step takes a line of its own.
bool takesLine(const SequenceStep &step)
{
    return step.type != SequenceStep::EndFragment && step.type != SequenceStep::Deactivate;
}

int deepestBars(const Sequence &sequence)
{
    QList<int> bars(sequence.participants.size(), 0);
    int deepest = 0;
    for (const SequenceStep &step : sequence.steps) {
        if (!isBar(step) || step.to < 0 || step.to >= bars.size())
            continue;
        int &depth = bars[step.to];
        depth = std::max(0, depth + (step.type == SequenceStep::Activate ? 1 : -1));
        deepest = std::max(deepest, depth);
    }
    return deepest;
}

int deepestFragments(const Sequence &sequence)
{
    int depth = 0;
    int deepest = 0;
    for (const SequenceStep &step : sequence.steps) {
        if (step.type == SequenceStep::BeginFragment)
            deepest = std::max(deepest, ++depth);
        else if (step.type == SequenceStep::EndFragment)
            depth = std::max(0, depth - 1);
    }
    return deepest;
}

QString barWords(const Sequence &sequence)
{
    return u"calls lie %1 deep on each other"_s.arg(inWords(deepestBars(sequence)));
}

QString fragmentWords(const Sequence &sequence)
{
    return u"fragments lie %1 deep in each other"_s.arg(inWords(deepestFragments(sequence)));
}

QString noteWords(const Sequence &)
{
    return u"notes need it"_s;
}

QString messageWords(const Sequence &)
{
    return u"texts of messages need it"_s;
}

QString participantWords(const Sequence &sequence)
{
    const qsizetype count = sequence.participants.size();
    return count == 1 ? u"the name of its participant needs it"_s
                      : u"%1 participants stand side by side"_s.arg(inWords(count));
}

// What may widen a drawing besides the participants.
struct WideCause
{
    bool (*isIts)(const SequenceStep &step);
    QString (*words)(const Sequence &sequence);
};
constexpr WideCause wideCauses[] = {
    {isNote, noteWords},
    {isBar, barWords},
    {isFragment, fragmentWords},
    {isMessage, messageWords},
};

Sequence without(const Sequence &sequence, bool (*isLeftOut)(const SequenceStep &step))
{
    Sequence rest = sequence;
    rest.steps.removeIf(isLeftOut);
    return rest;
}

Sequence onlyHeads(const Sequence &sequence)
{
    Sequence heads = sequence;
    heads.title.clear();
    heads.steps.clear();
    return heads;
}

// The participants, if they alone are too wide; else that without which the drawing is narrowest.
QString wideWords(const Sequence &sequence, double width, double page,
                  const std::function<QSizeF(const Sequence &)> &measured)
{
    if (measured(onlyHeads(sequence)).width() > page)
        return participantWords(sequence);
    QString words = participantWords(sequence);
    double narrowest = width;
    for (const WideCause &cause : wideCauses) {
        if (std::none_of(sequence.steps.begin(), sequence.steps.end(), cause.isIts))
            continue;
        const double left = measured(without(sequence, cause.isIts)).width();
        if (left < narrowest) {
            narrowest = left;
            words = cause.words(sequence);
        }
    }
    Sequence untitled = sequence;
    untitled.title.clear();
    if (!sequence.title.isEmpty() && measured(untitled).width() < narrowest)
        words = u"its title needs it"_s;
    return words;
}

QString highWords(const Sequence &sequence)
{
    const qint64 steps = std::count_if(sequence.steps.begin(), sequence.steps.end(), takesLine);
    return steps == 1 ? u"its step has lines of its own"_s
                      : u"each of %1 steps has a line of its own"_s.arg(inWords(steps));
}

} // namespace

QString sequenceSizeNote(const Sequence &sequence, QSizeF size, QSizeF page,
                         const std::function<QSizeF(const Sequence &)> &measured)
{
    QStringList reasons;
    if (size.width() > page.width())
        reasons += u"%1 points wide and not %2, as %3"_s.arg(
            inWords(qRound64(size.width())), inWords(qRound64(page.width())),
            wideWords(sequence, size.width(), page.width(), measured));
    if (size.height() > page.height())
        reasons += u"%1 points high and not %2, as %3"_s.arg(inWords(qRound64(size.height())),
                                                             inWords(qRound64(page.height())),
                                                             highWords(sequence));
    return reasons.isEmpty() ? QString() : u"the drawing is "_s + reasons.join(u", and "_s);
}

} // namespace ORR::Companion
