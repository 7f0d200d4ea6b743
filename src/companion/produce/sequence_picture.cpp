#include "companion/produce/sequence_picture.h"

#include "companion/produce/drawn_size.h"
#include "companion/produce/sequence_causes.h"
#include "companion/produce/sequence_writer.h"

#include <QLocale>

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// From the ones that are good to read to the narrowest.
constexpr SequenceTextSizes textSizes[] = {
    {.font = 11, .name = 150, .message = 260, .note = 190, .guard = 150},
    {.font = 11, .name = 110, .message = 160, .note = 130, .guard = 110},
    {.font = 10, .name = 80, .message = 110, .note = 90, .guard = 80},
    {.font = 9, .name = 60, .message = 75, .note = 70, .guard = 60},
};

QString counted(qsizetype count)
{
    return QLocale::c().toString(qlonglong(count));
}

bool concerns(const SequenceStep &step, int participant)
{
    return step.from >= participant || step.to >= participant;
}

// Whether a step takes room of its own.
bool isThing(const SequenceStep &step)
{
    return step.type != SequenceStep::EndFragment && step.type != SequenceStep::Deactivate;
}

// The first participants and steps, with all fragments closed.
Sequence shortened(const Sequence &whole, int most, QStringList *notes)
{
    Sequence first = whole;
    if (first.participants.size() > most) {
        notes->append(u"only the first %1 of %2 participants are drawn, and what they do among "
                      "themselves"_s.arg(counted(most), counted(whole.participants.size())));
        first.participants.resize(most);
        first.steps.removeIf([most](const SequenceStep &step) { return concerns(step, most); });
    }
    const qsizetype steps = first.steps.size();
    qsizetype kept = 0;
    qsizetype things = 0;
    qsizetype open = 0;
    for (; kept < steps; ++kept) {
        const SequenceStep &step = first.steps[kept];
        things += isThing(step) ? 1 : 0;
        if (things > most)
            break;
        if (step.type == SequenceStep::BeginFragment)
            ++open;
        if (step.type == SequenceStep::EndFragment && open > 0)
            --open;
    }
    if (kept < steps) {
        notes->append(
            u"only the first %1 of %2 steps are drawn"_s.arg(counted(kept), counted(steps)));
        first.steps.resize(kept);
    }
    for (; open > 0; --open)
        first.steps.emplaceBack(SequenceStep{.type = SequenceStep::EndFragment});
    return first;
}

QByteArray textOf(const Sequence &sequence, const SequenceTextSizes &sizes)
{
    if (sequence.boxes.isEmpty())
        return SequenceWriter(sequence, sizes).written(sequence.title);
    SequenceWriter first(sequence, sizes);
    first.written(sequence.title);
    return SequenceWriter(sequence, sizes).written(sequence.title, first.lastRow());
}

} // namespace

SequencePicture::SequencePicture(Sequence sequence) : drawn(std::move(sequence)) { }

WrittenGraph SequencePicture::write(const PictureRequest &request) const
{
    WrittenGraph graph;
    Sequence sequence = shortened(drawn, std::max(1, request.most), &graph.notes);
    if (!request.title.isEmpty())
        sequence.title = request.title;
    QSizeF size;
    for (const SequenceTextSizes &sizes : textSizes) {
        graph.text = textOf(sequence, sizes);
        size = drawnSize(graph.text, u"umlseq"_s);
        if (size.width() <= request.width)
            break;
    }
    const auto measured = [](const Sequence &part) {
        return drawnSize(textOf(part, *std::rbegin(textSizes)), u"umlseq"_s);
    };
    const QString note =
        sequenceSizeNote(sequence, size, {request.width, request.height}, measured);
    if (!note.isEmpty())
        graph.notes.append(note);
    return graph;
}

} // namespace ORR::Companion
