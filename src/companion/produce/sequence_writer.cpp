#include "companion/produce/sequence_writer.h"

#include "companion/produce/wrapped_text.h"

#include <QFont>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr int titleRow = 0;
constexpr int headRow = 3; // below the two of boxes
constexpr double titleWidth = 360;

constexpr QStringView fontFamily = u"Arial";
constexpr QStringView lineColor = u"#34506E";

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
        attributes.text("fillcolor", one.fill).text("fontcolor", sequenceLetters(one.fill));
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

} // namespace ORR::Companion
