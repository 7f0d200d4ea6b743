#include "companion/produce/sequence_writer.h"

#include "companion/produce/wrapped_text.h"

#include <QColor>
#include <QFont>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr int titleRow = 0;
constexpr int boxRow = 1;
constexpr int boxTitleRow = 2;
constexpr int headRow = 3;
constexpr double titleWidth = 360;

constexpr QStringView fontFamily = u"Arial";
constexpr QStringView lineColor = u"#34506E";
constexpr QStringView noteFill = u"#FFF6D5";
constexpr QStringView dividerFill = u"#E1E6EC";

// Black or white letters, whichever are easier to read upon a fill.
QString lettersUpon(const QString &fill)
{
    return qGray(QColor(fill).rgb()) < 128 ? u"#FFFFFF"_s : u"#1E2A38"_s;
}

QString kindName(SequenceParticipant::Kind kind)
{
    static const char *const names[] = {"",       "actor",    "boundary",    "control",
                                        "entity", "database", "collections", "queue"};
    return QString::fromLatin1(names[kind]);
}

// What it is called, below what it is: the engine has one shape for all.
QString headText(const SequenceParticipant &participant, const QString &name)
{
    QString text;
    for (const QString &word : {kindName(participant.kind), participant.stereotype}) {
        if (!word.isEmpty())
            text += u'\u00ab' + word + u"\u00bb\n"_s;
    }
    return text + name;
}

} // namespace

SequenceWriter::SequenceWriter(const Sequence &sequence, const SequenceTextSizes &textSizes)
    : steps(sequence), sizes(textSizes), metrics(QFont(fontFamily.toString(), textSizes.font)),
      columns(sequence), lines(&graph, columns, sequence.participants.size()),
      isTaken(sequence.steps.size(), false), isAwaited(sequence.participants.size(), false)
{
    for (const SequenceStep &step : sequence.steps) {
        if (step.type == SequenceStep::Create)
            isAwaited[step.to] = true;
    }
}

QByteArray SequenceWriter::written(const QString &title, int boxesEnd)
{
    writeDefaults();
    if (boxesEnd > 0)
        writeBoxes(boxesEnd);
    writeTop(title);
    for (qsizetype i = 0; i < steps.steps.size(); ++i) {
        if (!isTaken[i])
            writeStep(i);
    }
    writeBottom();
    return graph.finished();
}

void SequenceWriter::writeDefaults()
{
    graph.graph(Attributes()
                    .text("fontname", fontFamily)
                    .number("fontsize", sizes.font)
                    .text("fontcolor", u"#3A4A5E")
                    .text("color", u"#8796A8")
                    .text("fillcolor", u"#F7FAFD"));
    graph.nodeDefaults(Attributes()
                           .text("fontname", fontFamily)
                           .number("fontsize", sizes.font)
                           .text("fontcolor", u"#1E3A5F")
                           .text("color", u"#5B7FA8")
                           .text("fillcolor", u"#EAF1F8"));
    graph.edgeDefaults(Attributes()
                           .text("fontname", fontFamily)
                           .number("fontsize", sizes.font)
                           .text("fontcolor", u"#22303F")
                           .text("color", lineColor));
}

// A box is a frame without a tag around two spots; what it is called stands in its middle, as a tag
// would make room at its left.
void SequenceWriter::writeBoxes(int end)
{
    for (int box = 0; box < steps.boxes.size(); ++box) {
        SequenceSpan span;
        for (int i = 0; i < steps.participants.size(); ++i) {
            if (steps.participants[i].box == box)
                span.add(i);
        }
        if (span.isEmpty())
            continue;
        const SequenceBox &frame = steps.boxes[box];
        const QString fill = frame.fill.isEmpty() ? u"#F1F3F6"_s : frame.fill;
        const int left = columns.of(span.first, SequenceColumns::BoxLeft);
        graph.beginGroup(Attributes()
                             .text("uml", u"combinedfragment")
                             .number("row", boxRow)
                             .number("col", left)
                             .label(u"")
                             .text("color", u"none")
                             .text("fillcolor", u"none"));
        graph.beginGroup(Attributes()
                             .text("uml", u"section")
                             .number("row", boxRow)
                             .label(u"")
                             .text("color", u"#C3CBD5")
                             .text("fillcolor", fill));
        spacer(boxTitleRow, left, 16);
        spacer(end, columns.of(span.last, SequenceColumns::BoxRight), 30);
        if (!frame.title.isEmpty()) {
            graph.node(Attributes()
                           .text("uml", u"object")
                           .number("row", boxTitleRow)
                           .number("col", middle(span))
                           .label(wrapped(frame.title, sizes.name))
                           .text("color", u"none")
                           .text("fillcolor", u"none")
                           .text("fontcolor", lettersUpon(fill)));
        }
        graph.endGroup();
        graph.endGroup();
    }
}

void SequenceWriter::writeTop(const QString &title)
{
    if (!title.isEmpty() && !steps.participants.isEmpty()) {
        const int larger = sizes.font + 4;
        bareText(
            titleRow, middle(columns.everybody()),
            wrappedText(title, QFontMetricsF(QFont(fontFamily.toString(), larger)), titleWidth),
            larger);
    }
    row = headRow;
    for (int i = 0; i < steps.participants.size(); ++i) {
        if (!isAwaited[i])
            lines.begin(i, object(i, headRow), headRow);
    }
}

void SequenceWriter::writeBottom()
{
    for (int i = 0; i < steps.participants.size(); ++i) {
        if (isAwaited[i])
            standUp(i);
    }
    ++row;
    for (int i = 0; i < steps.participants.size(); ++i) {
        while (lines.bars(i) > 0)
            lines.closeBar(i, row);
    }
    row += 2;
    for (int i = 0; i < steps.participants.size(); ++i) {
        if (!lines.isEnded(i))
            lines.end(i, spacer(row, columns.of(i, SequenceColumns::Life), 1), row);
    }
}

void SequenceWriter::writeStep(qsizetype i)
{
    const SequenceStep &step = steps.steps[i];
    if (step.type != SequenceStep::Message && step.type != SequenceStep::Create) {
        for (const int end : {step.from, step.to}) {
            if (end >= 0)
                standUp(end);
        }
    }
    switch (step.type) {
    case SequenceStep::Message:
        writeMessage(i);
        break;
    case SequenceStep::Activate:
        lines.openBar(step.to, ++row, step.color);
        break;
    case SequenceStep::Deactivate:
        if (lines.bars(step.to) == 0)
            break;
        if (lines.barRow(step.to) == row)
            ++row;
        lines.closeBar(step.to, row);
        break;
    case SequenceStep::Create:
        if (lines.isEnded(step.to))
            isAwaited[step.to] = true;
        break;
    case SequenceStep::Destroy:
        if (lines.isEnded(step.to))
            break;
        ++row;
        while (lines.bars(step.to) > 0)
            lines.closeBar(step.to, row - 1);
        lines.end(step.to, cross(step.to), row);
        break;
    case SequenceStep::Note:
        writeNote(step);
        break;
    case SequenceStep::Reference:
        writeBand({std::min(step.from, step.to), std::max(step.from, step.to)}, step);
        break;
    case SequenceStep::Divider:
        writeBand(columns.everybody(), step);
        break;
    case SequenceStep::Delay:
        writeDelay(step);
        break;
    case SequenceStep::Space:
        row += 4;
        break;
    case SequenceStep::BeginFragment:
        beginFragment(i);
        break;
    case SequenceStep::NextSection:
        if (open.isEmpty())
            break;
        graph.endGroup();
        row = std::max(row, open.constLast().row) + 2;
        beginSection(step.text, step.color.isEmpty() ? open.constLast().fill : step.color,
                     open.constLast().isFramed);
        break;
    case SequenceStep::EndFragment:
        if (open.isEmpty())
            break;
        row = std::max(row, open.takeLast().row);
        graph.endGroup();
        graph.endGroup();
        ++row; // that of its lower side
        break;
    }
}

// Whoever was to be created by a message and does something before it comes.
void SequenceWriter::standUp(int participant)
{
    if (!isAwaited[participant])
        return;
    isAwaited[participant] = false;
    ++row;
    lines.begin(participant, object(participant, row), row);
}

GraphText::Id SequenceWriter::object(int participant, int atRow)
{
    const SequenceParticipant &one = steps.participants[participant];
    Attributes attributes;
    attributes.text("uml", u"object")
        .number("row", atRow)
        .number("col", columns.of(participant, SequenceColumns::Life))
        .label(headText(one, wrapped(one.name, sizes.name)));
    if (!one.fill.isEmpty())
        attributes.text("fillcolor", one.fill).text("fontcolor", lettersUpon(one.fill));
    return graph.node(attributes);
}

// The engine adds 3 points on each side of a label.
double SequenceWriter::objectWidth(int participant) const
{
    const SequenceParticipant &one = steps.participants[participant];
    double widest = 0;
    for (const QString &line : headText(one, wrapped(one.name, sizes.name)).split(u'\n'))
        widest = std::max(widest, metrics.horizontalAdvance(line));
    return widest + 6;
}

GraphText::Id SequenceWriter::spacer(int atRow, int column, int width)
{
    return graph.node(Attributes()
                          .text("uml", u"spacer")
                          .number("row", atRow)
                          .number("col", column)
                          .number("width", width));
}

// A text on the lines that stand behind it, without a frame.
GraphText::Id SequenceWriter::bareText(int atRow, int column, QStringView text, int font)
{
    return graph.node(Attributes()
                          .text("uml", u"object")
                          .number("row", atRow)
                          .number("col", column)
                          .label(text)
                          .text("fontname", fontFamily)
                          .number("fontsize", font)
                          .text("color", u"none")
                          .text("fillcolor", u"none"));
}

int SequenceWriter::middle(const SequenceSpan &span) const
{
    return columns.of((span.first + span.last) / 2, SequenceColumns::Life);
}

QString SequenceWriter::wrapped(const QString &text, double width) const
{
    return wrappedText(text, metrics, width);
}

void SequenceWriter::writeNote(const SequenceStep &step)
{
    const SequenceSpan span = sequenceSpan(step);
    if (step.side == SequenceStep::Over && span.first != span.last) {
        writeBand(span, step);
        return;
    }
    const bool isOver = step.side == SequenceStep::Over;
    const SequenceColumns::Slot slot = isOver ? SequenceColumns::Life
        : step.side == SequenceStep::Left     ? SequenceColumns::NoteLeft
                                              : SequenceColumns::NoteRight;
    if (isOver)
        lines.interrupt(step.from, ++row);
    const QString fill = step.color.isEmpty() ? noteFill.toString() : step.color;
    const GraphText::Id note = graph.node(Attributes()
                                              .text("uml", u"object")
                                              .number("row", ++row)
                                              .number("col", columns.of(step.from, slot))
                                              .label(wrapped(step.text, sizes.note))
                                              .text("color", u"#C2A24A")
                                              .text("fillcolor", fill)
                                              .text("fontcolor", lettersUpon(fill)));
    if (isOver) {
        lines.through(step.from, note, row);
        lines.resume(step.from, ++row);
    }
}

// A frame across the lines of several, which end above it and go on below.
void SequenceWriter::writeBand(const SequenceSpan &span, const SequenceStep &step)
{
    const bool isReference = step.type == SequenceStep::Reference;
    const bool isNote = step.type == SequenceStep::Note;
    const int top = row + (isReference ? 2 : 1);
    const int bottom = top + 2;
    for (int i = span.first; i <= span.last; ++i) {
        if (isAwaited[i] || lines.isEnded(i))
            continue;
        lines.interrupt(i, row + 1);
        lines.leaveOut(i, row + 1, bottom, false);
    }
    const int left =
        columns.of(span.first, isReference ? SequenceColumns::FrameLeft : SequenceColumns::Life);
    const int right =
        columns.of(span.last, isReference ? SequenceColumns::FrameRight : SequenceColumns::Life);
    const QStringView usual = isNote ? noteFill
        : isReference                ? QStringView(u"#FFFFFF")
                                     : dividerFill;
    const QString fill = step.color.isEmpty() ? usual.toString() : step.color;
    Attributes frame;
    frame.text("uml", u"combinedfragment").number("row", top).number("col", left);
    if (isReference)
        frame.label(u"ref").text("fillcolor", u"#DCE6F1");
    else
        frame.label(u"").text("color", u"none").text("fillcolor", u"none");
    graph.beginGroup(frame);
    graph.beginGroup(Attributes()
                         .text("uml", u"section")
                         .number("row", top)
                         .label(u"")
                         .text("color", isNote ? u"#C2A24A" : u"#8796A8")
                         .text("fillcolor", fill));
    spacer(top, left, 1);
    spacer(top, right, 1);
    const bool isBetween = (span.last - span.first) % 2 == 1;
    const int column = isBetween
        ? columns.of((span.first + span.last) / 2, SequenceColumns::NoteRight)
        : middle(span);
    bareText(top + 1, column, wrapped(step.text, 2 * sizes.note), sizes.font);
    graph.endGroup();
    graph.endGroup();
    row = bottom;
    for (int i = span.first; i <= span.last; ++i) {
        if (!isAwaited[i] && !lines.isEnded(i))
            lines.resume(i, bottom);
    }
}

// The text stands on a line, which it would hide; so that line is left out and the others dotted.
void SequenceWriter::writeDelay(const SequenceStep &step)
{
    const int top = row + 1;
    row = top + 4;
    const int hidden = step.text.isEmpty() ? -1 : int(steps.participants.size() - 1) / 2;
    for (int i = 0; i < steps.participants.size(); ++i) {
        if (isAwaited[i] || lines.isEnded(i))
            continue;
        lines.interrupt(i, top);
        lines.leaveOut(i, top, row, i != hidden);
        lines.resume(i, row);
    }
    if (hidden >= 0) {
        bareText(top + 2, columns.of(hidden, SequenceColumns::Life),
                 wrapped(step.text, 2 * sizes.note), sizes.font);
    }
}

void SequenceWriter::beginFragment(qsizetype i)
{
    const SequenceStep &step = steps.steps[i];
    const SequenceSpan span = columns.spanOf(i);
    const bool isFramed = !step.keyword.isEmpty();
    const QString fill = step.color.isEmpty() ? u"#F7FAFD"_s : step.color;
    row += isFramed ? 2 : 1;
    Attributes attributes;
    attributes.text("uml", u"combinedfragment")
        .number("row", row)
        .number("col",
                span.isEmpty() ? columns.leftEdge()
                               : columns.of(span.first, SequenceColumns::FrameLeft))
        .label(wrapped(step.keyword, sizes.guard));
    if (isFramed)
        attributes.text("fillcolor", u"#DCE6F1");
    else
        attributes.text("color", u"none").text("fillcolor", u"none");
    graph.beginGroup(attributes);
    open.append({.row = row, .isFramed = isFramed, .fill = fill});
    beginSection(step.text, fill, isFramed);
    if (!span.isEmpty())
        spacer(row, columns.of(span.last, SequenceColumns::FrameRight), 1);
    // Its tag hangs at the left of all that is in it, so that the first step may stand beside it.
    // Frames would hide it.
    const SequenceStep::Type next =
        i + 1 < steps.steps.size() ? steps.steps[i + 1].type : SequenceStep::EndFragment;
    if (isFramed
        && (next == SequenceStep::Message || next == SequenceStep::Create
            || next == SequenceStep::Note))
        --row;
}

void SequenceWriter::beginSection(const QString &guard, const QString &fill, bool isFramed)
{
    graph.beginGroup(
        Attributes()
            .text("uml", u"section")
            .number("row", row)
            .label(guard.isEmpty() ? QString() : wrapped(u'[' + guard + u']', sizes.guard))
            .text("color", isFramed ? u"#8796A8" : u"none")
            .text("fillcolor", fill));
}

} // namespace ORR::Companion
