#include "import/sequence_read.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

QString whoIn(const Sequence &sequence, int participant)
{
    if (participant == SequenceStep::leftOutside)
        return u"["_s;
    if (participant == SequenceStep::rightOutside)
        return u"]"_s;
    return sequence.participants[participant].name;
}

// The line with the marks at its ends: "<->", "-->>", "x--".
QString arrowOf(const SequenceStep &step)
{
    static constexpr const char *heads[] = {"", ">", ">>", "x", "o"};
    static constexpr const char *tails[] = {"", "<", "<<", "x", "o"};
    return QLatin1StringView(tails[step.tail]) + (step.isDashed ? "--"_L1 : "-"_L1)
        + QLatin1StringView(heads[step.head]);
}

QString stepText(const Sequence &sequence, const SequenceStep &step)
{
    const QString text = QString(step.text).replace(u'\n', u'|');
    const QString from = whoIn(sequence, step.from);
    const QString to = whoIn(sequence, step.to);
    static constexpr const char *sides[] = {"over", "left of", "right of"};
    switch (step.type) {
    case SequenceStep::Message:
        return from + u' ' + arrowOf(step) + u' ' + to + u": "_s + text;
    case SequenceStep::Activate:
        return u'+' + to;
    case SequenceStep::Deactivate:
        return u'-' + to;
    case SequenceStep::Create:
        return u"create "_s + to;
    case SequenceStep::Destroy:
        return u"destroy "_s + to;
    case SequenceStep::Note:
        return u"note "_s + QLatin1StringView(sides[step.side]) + u' ' + from + u',' + to + u": "_s
            + text;
    case SequenceStep::Reference:
        return u"ref "_s + from + u',' + to + u": "_s + text;
    case SequenceStep::Divider:
        return u"== "_s + text;
    case SequenceStep::Delay:
        return u"... "_s + text;
    case SequenceStep::Space:
        return u"|||"_s;
    case SequenceStep::BeginFragment:
        return step.keyword + u" ["_s + text + u']';
    case SequenceStep::NextSection:
        return u"else ["_s + text + u']';
    case SequenceStep::EndFragment:
        return u"end"_s;
    }
    return {};
}

} // namespace

std::string stepsOf(const Sequence &sequence)
{
    QString lines;
    for (const SequenceStep &step : sequence.steps)
        lines += stepText(sequence, step) + u'\n';
    return lines.toStdString();
}

std::string stepsOf(const ImportResult &result)
{
    return result.picture ? stepsOf(sequenceIn(result)) : "no picture: " + sequenceFault(result);
}

} // namespace ORR::Companion
