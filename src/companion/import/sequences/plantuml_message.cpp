#include "companion/import/sequences/plantuml_message.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

using Head = SequenceStep::Head;

// Names are words, or any texts in quotes, maybe with their other name behind "as".
const QRegularExpression &messagePattern()
{
    static const QRegularExpression pattern(
        uR"(^(?:(?:\{[^}]*\}|&)\s*)*)" // an anchor; beside the message before
        uR"((?<from>"[^"]*"(?:\s+as\s+[\w.@]+)?|[\w.@]+(?:\s+as\s+"[^"]*")?|\[|\?)?)"
        uR"((?<fromEnd>\s*[ox](?=[-<\\/]))?\s*)"
        uR"((?:\((?<early>\d+)\)(?=[<\\/]))?)"
        uR"((?<tail><<|<|\\\\|\\|//|/)?)"
        uR"((?<line>-+)(?:\[(?<style>[^\]]*)\](?<more>-*))?)"
        uR"((?<head>>>|>|\\\\|\\|//|/)?)"
        uR"((?:\((?<delay>\d+)\))?)"
        uR"((?<toEnd>[ox](?=[\s\]]))?\s*)"
        uR"((?<to>"[^"]*"(?:\s+as\s+[\w.@]+)?|[\w.@]+(?:\s+as\s+"[^"]*")?|\]|\?)?)"
        uR"(\s*(?<marks>(?:(?:\+\+|--|\*\*|!!)\s*)*))"
        uR"((?<bar>#\w+)?\s*)"
        uR"((?::\s*(?<text>.*))?$)"_s,
        QRegularExpression::UseUnicodePropertiesOption);
    return pattern;
}

Head headOf(QStringView sign, QStringView end, bool *isHalf)
{
    const QStringView mark = end.trimmed();
    if (mark == u"x")
        return Head::Cross;
    if (mark == u"o")
        return Head::Circle;
    *isHalf = *isHalf || sign.contains(u'/') || sign.contains(u'\\');
    if (sign.isEmpty())
        return Head::NoHead;
    return sign.size() == 2 ? Head::Open : Head::Filled;
}

PlantumlMessage::End endFrom(const QString &word)
{
    PlantumlMessage::End end;
    if (word.isEmpty() || word == u"[" || word == u"]" || word == u"?") {
        end.isNear = word == u"?";
        return end;
    }
    static const QRegularExpression both(u"^(.*?)\\s+as\\s+(.*)$"_s);
    const QRegularExpressionMatch match = both.match(word);
    if (!match.hasMatch()) {
        end.name = plantumlName(word);
        return end;
    }
    const bool isTitleFirst = word.startsWith(u'"');
    end.name = plantumlName(match.captured(isTitleFirst ? 2 : 1));
    end.title = plainPlantumlText(plantumlName(match.captured(isTitleFirst ? 1 : 2)));
    return end;
}

// "#red,dashed;bold"
void readStyle(const QString &style, PlantumlMessage *message)
{
    static const QRegularExpression parting(u"[,;]"_s);
    for (const QString &part : style.split(parting, Qt::SkipEmptyParts)) {
        const QString word = part.trimmed();
        if (word == u"dashed" || word == u"dotted")
            message->isDashed = true;
        else if (word == u"hidden")
            message->isHidden = true;
        else if (word.startsWith(u'#'))
            message->color = word.sliced(1);
    }
}

// Pairs of marks around a text: bold, struck, underlined, waved, of one width, slanted.
void dropPairs(QString *text)
{
    static const QRegularExpression pairs[] = {
        QRegularExpression(u"\\*\\*(.+?)\\*\\*"_s),
        QRegularExpression(u"(?<![-<])--(?![->])(.+?)(?<![-<])--(?![->])"_s),
        QRegularExpression(u"__(.+?)__"_s),
        QRegularExpression(u"~~(.+?)~~"_s),
        QRegularExpression(u"\"\"(.+?)\"\""_s),
        QRegularExpression(u"(?<!:)//(.+?)(?<!:)//"_s),
    };
    for (const QRegularExpression &pair : pairs)
        text->replace(pair, u"\\1"_s);
}

} // namespace

QString plantumlName(const QString &word)
{
    const QString trimmed = word.trimmed();
    const bool isQuoted = trimmed.size() > 1 && trimmed.startsWith(u'"') && trimmed.endsWith(u'"');
    return isQuoted ? trimmed.sliced(1).chopped(1) : trimmed;
}

QString plainPlantumlText(const QString &text)
{
    static const QRegularExpression tag(
        u"</?(?:b|i|u|s|w|back|color|size|font|plain|sub|sup|img|code|del|strike)\\b[^>]*>|<[&:$][^>]*>"_s,
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression lineBreak(u"\\\\[nrl]|%newline\\(\\)|%n\\(\\)|<br\\s*/?>"_s);
    static const QRegularExpression link(u"\\[\\[\\S+?(?:\\s+([^\\]]+))?\\]\\]"_s);
    static const QRegularExpression code(u"<U\\+([0-9A-Fa-f]{1,6})>|&#(\\d{1,7});"_s);
    QString plain;
    qsizetype done = 0;
    for (const QRegularExpressionMatch &match : code.globalMatch(text)) {
        const bool isHexadecimal = match.capturedLength(1) > 0;
        const char32_t character =
            isHexadecimal ? match.captured(1).toUInt(nullptr, 16) : match.captured(2).toUInt();
        plain += QStringView(text).sliced(done, match.capturedStart() - done);
        if (character > 0 && character <= 0x10FFFF && (character < 0xD800 || character >= 0xE000))
            plain += QString::fromUcs4(&character, 1);
        done = match.capturedEnd();
    }
    plain += QStringView(text).sliced(done);
    plain.replace(link, u"\\1"_s);
    plain.replace(lineBreak, u"\n"_s);
    plain.replace(u"\\t"_s, u" "_s);
    plain.remove(tag);
    dropPairs(&plain);
    return plain.trimmed();
}

std::optional<PlantumlMessage> plantumlMessage(const QString &line)
{
    const QRegularExpressionMatch match = messagePattern().match(line);
    if (!match.hasMatch())
        return std::nullopt;
    PlantumlMessage message{.left = endFrom(match.captured(u"from")),
                            .right = endFrom(match.captured(u"to"))};
    message.isDashed = match.capturedLength(u"line") + match.capturedLength(u"more") > 1;
    readStyle(match.captured(u"style"), &message);
    message.isSlanted = match.capturedLength(u"delay") > 0 || match.capturedLength(u"early") > 0;
    message.left.head =
        headOf(match.capturedView(u"tail"), match.capturedView(u"fromEnd"), &message.isHalf);
    message.right.head =
        headOf(match.capturedView(u"head"), match.capturedView(u"toEnd"), &message.isHalf);
    message.marks = match.captured(u"marks").remove(u' ');
    message.barColor = match.captured(u"bar");
    message.text = plainPlantumlText(match.captured(u"text"));
    return message;
}

} // namespace ORR::Companion
