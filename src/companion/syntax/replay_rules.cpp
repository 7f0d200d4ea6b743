#include "companion/syntax/replay_rules.h"

#include "companion/findings/quoted_text.h"
#include "companion/syntax/rejections.h"
#include "companion/syntax/silent_device.h"
#include "companion/syntax/syntax_rules.h"
#include "device/xdot_render.h"
#include "graph/dot_tokenizer.h"

#include <algorithm>

namespace ORR::Companion {

using namespace Qt::StringLiterals;
using Graph::Graphviz::OpFault;
using Cause = OpFault::Cause;

namespace {

// Finds the bytes of a value in the text: those of a quoted one stand further along for each
// backslash that vanished. Places that are asked for in ascending order take one pass over the
// value.
class ValueBytes
{
public:
    ValueBytes() = default;
    ValueBytes(QByteArrayView source, qsizetype value)
        : text(source), start(value), quoted(text.at(value) == '"'), at(value + (quoted ? 1 : 0))
    {
    }

    qsizetype placeOf(qsizetype position)
    {
        if (position < passed)
            *this = ValueBytes(text, start);
        for (; passed < position && at < text.size(); ++passed) {
            skipVanished();
            ++at;
        }
        skipVanished();
        return std::min(at, text.size());
    }

private:
    void skipVanished()
    {
        while (quoted && at + 1 < text.size() && text.at(at) == '\\') {
            if (text.at(at + 1) == '\n')
                at += 2;
            else if (text.at(at + 1) == '"')
                ++at;
            else
                return;
            if (text.at(at) == '"')
                return;
        }
    }

    QByteArrayView text;
    qsizetype start = 0;
    bool quoted = false;
    qsizetype at = 0;
    qsizetype passed = 0;
};

// The position of an edge is a curve, which may begin with the point of an arrow: "e,30,20 ...".
bool beginsCurve(QByteArrayView position)
{
    return position.startsWith("e,") || position.startsWith("s,");
}

class ReplayFindings : public Graph::Graphviz::ReplayListener
{
public:
    ReplayFindings(const QByteArray &replayed, FindingList *found) : findings(found), text(replayed)
    {
    }

    bool hasPage = false; // also one that is no page
    bool isWhole = true;

    void attributeReplayed(QByteArrayView attribute, qsizetype place) override
    {
        name = QString::fromUtf8(attribute);
        value = place;
        bytes = ValueBytes(text, place);
        isCurve = attribute == "pos" && beginsCurve(QByteArrayView(text).sliced(bytes.placeOf(0)));
        pointsMissing = false;
        unknownEnd = -1;
    }
    void opFaultFound(const OpFault &fault) override;
    void pageRead(qsizetype fields, bool numbers) override;
    void replayRejected(const Graph::DotFault &fault) override
    {
        isWhole = false;
        findings->add(explainedReplay(fault, text));
    }

private:
    void add(const Rule &rule, const OpFault &fault, const QString &sentence,
             const QString &suggestion = {});
    void addUnknownOp(const OpFault &fault);

    FindingList *findings;
    QByteArray text;
    QString name; // of the attribute that is read
    qsizetype value = 0; // its value's place
    ValueBytes bytes;
    bool isCurve = false; // the attribute is a position that nothing is read from
    bool pointsMissing = false; // has been told of the attribute
    qsizetype unknownEnd = -1; // behind the last character that no op begins with
};

void ReplayFindings::add(const Rule &rule, const OpFault &fault, const QString &sentence,
                         const QString &suggestion)
{
    const qsizetype place = bytes.placeOf(fault.offset);
    findings->add({&rule, sentence + u" in "_s + name, suggestion, place, place + 1});
}

// A word that no op begins with, like a number too many, is told once.
void ReplayFindings::addUnknownOp(const OpFault &fault)
{
    const bool goesOn = fault.offset == unknownEnd;
    unknownEnd = fault.end;
    if (goesOn)
        return;
    const qsizetype place = bytes.placeOf(fault.offset);
    const char op = text.at(place);
    const bool isNumber = (op >= '0' && op <= '9') || op == '-' || op == '.';
    if (isNumber)
        add(SyntaxRules::unknownOp, fault, u"a number that no op takes"_s,
            u"see whether the count ahead of it is too low"_s);
    else
        add(SyntaxRules::unknownOp, fault,
            u"unknown op "_s + quotedText(QByteArrayView(text).sliced(place, 1)));
}

void ReplayFindings::opFaultFound(const OpFault &fault)
{
    if (isCurve)
        return;
    const auto count = [](qint64 number) { return QString::number(number); };
    switch (fault.cause) {
    case Cause::UnknownOp:
        addUnknownOp(fault);
        break;
    case Cause::MissingNumber:
        if (!pointsMissing)
            add(SyntaxRules::opNumber, fault, u"a number is missing"_s);
        break;
    case Cause::NotANumber:
        add(SyntaxRules::opNumber, fault, u"this is no number"_s);
        break;
    case Cause::MissingPoints:
        pointsMissing = true;
        add(SyntaxRules::opCount, fault,
            u"%1 are announced and %2 are there"_s.arg(count(fault.stated), count(fault.there)));
        break;
    case Cause::NegativeCount:
        add(SyntaxRules::opCount, fault, u"the count is below 0"_s);
        break;
    case Cause::MissingDash:
        add(SyntaxRules::opCount, fault, u"'-' and a text are missing behind the length"_s);
        break;
    case Cause::ShortText:
        add(SyntaxRules::opCount, fault,
            u"%1 bytes are announced and %2 are there"_s.arg(count(fault.stated),
                                                             count(fault.there)));
        break;
    case Cause::LongText:
        add(SyntaxRules::opCount, fault,
            u"%1 bytes are announced and the text is longer"_s.arg(fault.stated));
        break;
    }
}

void ReplayFindings::pageRead(qsizetype fields, bool numbers)
{
    hasPage = true;
    if (fields == 4 && numbers)
        return;
    isWhole = false;
    findings->add({&SyntaxRules::missingPage, u"bb is not four numbers"_s,
                   u"write left,bottom,right,top"_s, value, value + 1});
}

} // namespace

bool checkReplay(const QByteArray &text, Graph::DotGraph *graph, qsizetype root,
                 FindingList *findings)
{
    SilentDevice device;
    ReplayFindings heard(text, findings);
    (void)Graph::Graphviz::XDotRender(&device, graph).render(text, heard);
    if (heard.hasPage || !heard.isWhole)
        return heard.isWhole;
    findings->add({&SyntaxRules::missingPage, u"the drawing has no bb"_s,
                   u"write graph [bb=\"left,bottom,right,top\"]"_s, root,
                   root + Graph::unquotedAt(text, root).size()});
    return false;
}

} // namespace ORR::Companion
