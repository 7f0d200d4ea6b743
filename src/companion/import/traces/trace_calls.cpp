#include "companion/import/traces/trace_calls.h"

#include "companion/produce/sequence_picture.h"

#include <QHash>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// A call, its bar and the answer.
constexpr int stepsOfCall = 3;

constexpr QStringView failedColor = u"#B3261E";

// The engine has no legends: what the only colour means stands below the title.
QString withLegend(const QString &title)
{
    return (title.isEmpty() ? u"Calls"_s : title) + u"\nred: failed"_s;
}

class CallWriter
{
public:
    CallWriter(const TraceTree &spans, int deepest) : tree(spans), depthLimit(deepest) { }

    Sequence written();
    int calls() const { return callCount; }

private:
    // Several spans that are alike, from one to before another among their siblings.
    struct Run
    {
        int span;
        int caller; // a participant
        int depth;
        int times;
        qint64 time; // of all
        bool isEnd;
        bool isLoop;
    };

    void open(const Run &run);
    void close(const Run &run);
    void push(const QList<int> &siblings, int caller, int depth);
    int participant(const QString &service);
    bool isWithin(const Run &run) const;
    qsizetype hiddenBelow(int span) const;
    void startTrace(int root);

    const TraceTree &tree;
    int depthLimit;
    int callCount = 0;
    Sequence sequence;
    QHash<QString, int> numbers;
    QList<Run> waiting; // the next one last
};

int CallWriter::participant(const QString &service)
{
    const auto known = numbers.constFind(service);
    if (known != numbers.constEnd())
        return *known;
    const int made = int(sequence.participants.size());
    sequence.participants.append(SequenceParticipant{.name = service});
    numbers.insert(service, made);
    return made;
}

void CallWriter::push(const QList<int> &siblings, int caller, int depth)
{
    QList<Run> runs;
    for (const int span : siblings) {
        if (!runs.isEmpty() && tree.likeness(runs.constLast().span) == tree.likeness(span)) {
            ++runs.last().times;
            runs.last().time += tree.spans()[span].duration;
            continue;
        }
        runs.append(Run{.span = span,
                        .caller = caller,
                        .depth = depth,
                        .times = 1,
                        .time = tree.spans()[span].duration,
                        .isEnd = false,
                        .isLoop = false});
    }
    std::reverse(runs.begin(), runs.end());
    waiting += runs;
}

// Work of a service for itself.
bool CallWriter::isWithin(const Run &run) const
{
    return run.caller >= 0
        && sequence.participants[run.caller].name == tree.spans()[run.span].service;
}

qsizetype CallWriter::hiddenBelow(int span) const
{
    qsizetype count = 0;
    QList<int> open = tree.children(span);
    while (!open.isEmpty()) {
        const int next = open.takeLast();
        ++count;
        open += tree.children(next);
    }
    return count;
}

void CallWriter::open(const Run &run)
{
    // What was asked of another service is told by that one.
    if (tree.isCallSide(run.span) && run.times == 1) {
        push(tree.children(run.span), run.caller, run.depth);
        return;
    }
    const TraceSpan &span = tree.spans()[run.span];
    const bool isHidden = run.depth >= depthLimit && !tree.children(run.span).isEmpty();
    const bool hasBelow = !isHidden && !tree.children(run.span).isEmpty();
    const bool isLoop = run.times > 1 && hasBelow;
    Run end = run;
    end.isEnd = true;
    end.isLoop = isLoop;
    if (isLoop) {
        sequence.steps.append(
            SequenceStep{.type = SequenceStep::BeginFragment,
                         .text = u"%1 times, %2"_s.arg(run.times).arg(durationText(run.time)),
                         .keyword = u"loop"_s});
    }
    if (tree.isCallSide(run.span)) {
        waiting.append(end);
        push(tree.children(run.span), run.caller, run.depth);
        return;
    }
    const int callee = participant(span.service);
    const bool isWork = isWithin(run);
    SequenceStep call{.from = run.caller, .to = callee, .text = span.name};
    if (span.kind == TraceSpan::Consumer && !isWork)
        call.head = SequenceStep::Open;
    if (run.times > 1 && !isLoop)
        call.text += u" \u00d7%1"_s.arg(run.times);
    if (isHidden)
        call.text += u" (%1 calls below)"_s.arg(hiddenBelow(run.span));
    if (isWork) {
        call.text += u", "_s + durationText(isLoop ? span.duration : run.time);
        call.text += span.hasFailed ? u", failed"_s : QString();
        call.color = span.hasFailed ? failedColor.toString() : QString();
    }
    sequence.steps.append(call);
    ++callCount;
    if (!isWork || hasBelow)
        sequence.steps.append(SequenceStep{.type = SequenceStep::Activate, .to = callee});
    waiting.append(end);
    if (hasBelow)
        push(tree.children(run.span), callee, run.depth + 1);
}

void CallWriter::close(const Run &run)
{
    const TraceSpan &span = tree.spans()[run.span];
    const bool isAsked = span.kind == TraceSpan::Consumer;
    const bool isWork = isWithin(run);
    if (!tree.isCallSide(run.span)) {
        const int callee = participant(span.service);
        if (!isWork && !isAsked) {
            sequence.steps.append(
                SequenceStep{.from = callee,
                             .to = run.caller,
                             .text = durationText(run.isLoop ? span.duration : run.time)
                                 + (span.hasFailed ? u", failed"_s : QString()),
                             .head = SequenceStep::Open,
                             .isDashed = true,
                             .color = span.hasFailed ? failedColor.toString() : QString()});
        }
        const bool hasBar =
            !isWork || (!tree.children(run.span).isEmpty() && run.depth < depthLimit);
        if (hasBar)
            sequence.steps.append(SequenceStep{.type = SequenceStep::Deactivate, .to = callee});
    }
    if (run.isLoop)
        sequence.steps.append(SequenceStep{.type = SequenceStep::EndFragment});
}

void CallWriter::startTrace(int root)
{
    const TraceSpan &span = tree.spans()[root];
    const QString text = span.name + u", "_s + durationText(span.duration);
    if (tree.roots().size() == 1)
        sequence.title = text;
    else
        sequence.steps.append(SequenceStep{.type = SequenceStep::Divider, .text = text});
}

Sequence CallWriter::written()
{
    for (const int root : tree.roots()) {
        startTrace(root);
        push({root}, SequenceStep::leftOutside, 1);
        while (!waiting.isEmpty()) {
            const Run run = waiting.takeLast();
            if (run.isEnd)
                close(run);
            else
                open(run);
        }
    }
    return std::move(sequence);
}

QString threeDigits(double number)
{
    return QString::number(number, 'g', number < 999.5 ? 3 : 6);
}

} // namespace

QString durationText(qint64 nanoseconds)
{
    const double seconds = double(nanoseconds) * 1e-9;
    if (seconds >= 0.9995)
        return threeDigits(seconds) + u" s"_s;
    if (seconds >= 0.0009995)
        return threeDigits(seconds * 1e3) + u" ms"_s;
    return threeDigits(seconds * 1e6) + u" \u00b5s"_s;
}

TraceCalls::TraceCalls(TraceTree spans) : tree(std::move(spans)) { }

Sequence TraceCalls::sequence(int most, QStringList *notes) const
{
    constexpr int deepest = 1 << 20;
    CallWriter whole(tree, deepest);
    Sequence drawn = whole.written();
    if (whole.calls() <= most)
        return drawn;
    int depth = 1;
    drawn = CallWriter(tree, depth).written();
    while (true) {
        CallWriter deeper(tree, depth + 1);
        Sequence next = deeper.written();
        if (deeper.calls() > most)
            break;
        drawn = std::move(next);
        ++depth;
    }
    notes->append(
        u"calls below level %1 are left out, to draw at most %2, each of up to %3 things"_s
            .arg(depth)
            .arg(most)
            .arg(stepsOfCall));
    return drawn;
}

WrittenGraph TraceCalls::write(const PictureRequest &request) const
{
    QStringList notes;
    const Sequence drawn = sequence(std::max(1, request.most / stepsOfCall), &notes);
    PictureRequest titled = request;
    if (std::any_of(drawn.steps.begin(), drawn.steps.end(),
                    [](const SequenceStep &step) { return step.color == failedColor; }))
        titled.title = withLegend(request.title.isEmpty() ? drawn.title : request.title);
    WrittenGraph graph = SequencePicture(drawn).write(titled);
    graph.notes = notes + graph.notes;
    return graph;
}

} // namespace ORR::Companion
