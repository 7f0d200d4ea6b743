#include "companion/check/replay_rules.h"

#include "companion/check/attribute_values.h"
#include "companion/check/rules.h"
#include "companion/findings/nearest_word.h"
#include "companion/findings/quoted_text.h"
#include "companion/syntax/rejections.h"
#include "companion/syntax/syntax_rules.h"
#include "device/color_value.h"
#include "device/xdot_render.h"
#include "graph/dot_tokenizer.h"

#include <algorithm>
#include <array>

namespace ORR::Companion {

using namespace Qt::StringLiterals;
using Graph::Graphviz::OpFault;
using Graph::Graphviz::OpPlace;
using Graph::Graphviz::OpWord;
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

    // How far the pass has come.
    qsizetype passedBytes() const { return passed; }

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

bool isOfNumber(char byte)
{
    return (byte >= '0' && byte <= '9') || byte == '-' || byte == '.';
}

// What a style op may say: what the replay knows, and what holds for every shape and pen anyway.
const QStringList &styleWords()
{
    static const QStringList words{u"bold"_s, u"dashed"_s, u"dotted"_s, u"filled"_s, u"solid"_s};
    return words;
}

// The width of a line that others write as a style has no effect; one of a point or less holds
// anyway.
bool isThinLine(const QString &style)
{
    constexpr auto start = "setlinewidth("_L1;
    bool isNumber = false;
    if (!style.startsWith(start) || !style.endsWith(u')'))
        return false;
    const QStringView inner = QStringView(style).sliced(start.size()).chopped(1);
    const double width = inner.toDouble(&isNumber);
    return isNumber && width >= 0.0 && width <= 1.0;
}

bool isMeant(const OpWord &word)
{
    const QString text = QString::fromUtf8(word.text);
    if (word.kind == OpWord::Kind::Color)
        return Graph::ColorValue(text).isValid();
    return styleWords().contains(text) || isThinLine(text);
}

class ReplayFindings : public Graph::Graphviz::ReplayListener
{
public:
    ReplayFindings(const QByteArray &replayed, FindingList *found) : findings(found), text(replayed)
    {
    }

    bool hasPage = false; // also one that is no page
    bool isWhole = true;

    void attributeReplayed(QByteArrayView attribute, qsizetype place) override;
    void opFaultFound(const OpFault &fault) override;
    void wordRead(const OpWord &word) override;
    void pageRead(qsizetype fields, bool numbers) override;
    void replayRejected(const Graph::DotFault &fault) override
    {
        isWhole = false;
        findings->add(explainedReplay(fault, text));
    }

private:
    bool isConsequence(const OpFault &fault);
    bool putsOutOfStep(const OpFault &fault);
    qsizetype placeOf(qsizetype offset, const OpPlace &op);
    QString inOp(const OpPlace &op) const;
    void add(const Rule &rule, const OpFault &fault, const QString &sentence,
             const QString &suggestion = {});
    void addUnknownOp(const OpFault &fault);

    FindingList *findings;
    QByteArray text;
    QByteArrayView name; // of the attribute that is read
    qsizetype value = 0; // its value's place
    bool isCurve = false; // the attribute is a position that nothing is read from
    // Ops and faults each come in ascending order, but for the fault of a count.
    ValueBytes opBytes;
    ValueBytes bytes;
    // Of the op whose fault has put the reading out of step, nothing behind it is told until an op
    // stands by itself.
    bool isOutOfStep = false;
    qsizetype faultyOp = -1;
    qsizetype unknownEnd = -1; // behind the last character that no op begins with
    std::array<QByteArray, 64> meantColors; // those that were read last, by their hashes
};

void ReplayFindings::attributeReplayed(QByteArrayView attribute, qsizetype place)
{
    name = attribute;
    value = place;
    opBytes = bytes = ValueBytes(text, place);
    isCurve = attribute == "pos" && beginsCurve(QByteArrayView(text).sliced(bytes.placeOf(0)));
    isOutOfStep = false;
    unknownEnd = -1;
}

qsizetype ReplayFindings::placeOf(qsizetype offset, const OpPlace &op)
{
    if (op.letter != '\0')
        opBytes.placeOf(op.offset);
    if (offset < bytes.passedBytes())
        bytes = opBytes;
    return bytes.placeOf(offset);
}

QString ReplayFindings::inOp(const OpPlace &op) const
{
    if (op.letter == '\0')
        return u" in "_s + QString::fromUtf8(name);
    return u" in op '%1' at offset %2 of %3"_s.arg(
        QString(QLatin1Char(op.letter)), QString::number(op.offset), QString::fromUtf8(name));
}

void ReplayFindings::add(const Rule &rule, const OpFault &fault, const QString &sentence,
                         const QString &suggestion)
{
    const qsizetype place = placeOf(fault.offset, fault.op);
    findings->add({&rule, sentence + inOp(fault.op), suggestion, place, place + 1});
}

// What is read behind a count that is not true, or behind an op that does not exist, is read as
// something else than it is.
bool ReplayFindings::isConsequence(const OpFault &fault)
{
    if (!isOutOfStep)
        return false;
    const bool isUnknown = fault.cause == Cause::UnknownOp;
    if (fault.op.offset != faultyOp) {
        isOutOfStep = !fault.op.followsBlank;
        faultyOp = fault.op.offset;
        return isOutOfStep;
    }
    return !isUnknown || !fault.followsBlank
        || isOfNumber(text.at(placeOf(fault.offset, fault.op)));
}

// A wrong number does not, but for one that is the next op.
bool ReplayFindings::putsOutOfStep(const OpFault &fault)
{
    if (fault.cause != Cause::NotANumber)
        return fault.cause != Cause::MissingNumber;
    return fault.end - fault.offset == 1 && fault.op.letter != '\0'
        && !isOfNumber(text.at(placeOf(fault.offset, fault.op)));
}

// A word that no op begins with is told once.
void ReplayFindings::addUnknownOp(const OpFault &fault)
{
    const bool goesOn = fault.offset == unknownEnd;
    unknownEnd = fault.end;
    if (goesOn)
        return;
    const qsizetype place = placeOf(fault.offset, fault.op);
    const QString where =
        u" at offset %1 of %2"_s.arg(QString::number(fault.offset), QString::fromUtf8(name));
    if (isOfNumber(text.at(place)))
        findings->add({&SyntaxRules::unknownOp, u"a number that no op takes"_s + where,
                       u"see whether the count ahead of it is too low"_s, place, place + 1});
    else
        findings->add({&SyntaxRules::unknownOp,
                       u"unknown op "_s + quotedText(QByteArrayView(text).sliced(place, 1)) + where,
                       QString(), place, place + 1});
}

void ReplayFindings::opFaultFound(const OpFault &fault)
{
    if (isCurve || isConsequence(fault))
        return;
    const auto count = [](qint64 number) { return QString::number(number); };
    isOutOfStep = putsOutOfStep(fault);
    faultyOp = fault.op.offset;
    switch (fault.cause) {
    case Cause::UnknownOp:
        addUnknownOp(fault);
        break;
    case Cause::MissingNumber:
        add(SyntaxRules::opNumber, fault, u"a number is missing"_s);
        break;
    case Cause::NotANumber:
        add(SyntaxRules::opNumber, fault, u"this is no number"_s);
        break;
    case Cause::MissingPoints:
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

// What a count cuts off, or an op out of step has read, is no word of the text.
void ReplayFindings::wordRead(const OpWord &word)
{
    if (word.text.isEmpty() || (isOutOfStep && word.op.offset == faultyOp))
        return;
    QByteArray &meant = meantColors.at(qHash(word.text) % meantColors.size());
    if (word.kind == OpWord::Kind::Color && meant == word.text)
        return;
    if (isMeant(word)) {
        if (word.kind == OpWord::Kind::Color)
            meant = word.text.toByteArray();
        return;
    }
    const QString said = QString::fromUtf8(word.text);
    Finding finding = word.kind == OpWord::Kind::Color
        ? unknownColor(said, inOp(word.op))
        : Finding{&Rules::unknownWord,
                  u"unknown word "_s + quotedText(said) + inOp(word.op) + u" has no effect"_s,
                  wordSuggestion(said, styleWords())};
    finding.offset = placeOf(word.offset, word.op);
    finding.end = placeOf(word.offset + word.text.size() - 1, word.op) + 1;
    findings->add(finding);
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
                 Graph::Device *device, FindingList *findings)
{
    ReplayFindings heard(text, findings);
    (void)Graph::Graphviz::XDotRender(device, graph).render(text, heard);
    if (heard.hasPage || !heard.isWhole)
        return heard.isWhole;
    findings->add({&SyntaxRules::missingPage, u"the drawing has no bb"_s,
                   u"write graph [bb=\"left,bottom,right,top\"]"_s, root,
                   root + Graph::unquotedAt(text, root).size()});
    return false;
}

} // namespace ORR::Companion
