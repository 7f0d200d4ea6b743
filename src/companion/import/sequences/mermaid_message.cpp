#include "companion/import/sequences/mermaid_message.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

using Head = SequenceStep::Head;

struct MermaidArrow
{
    const char *sign;
    Head head;
    Head tail = Head::NoHead;
    bool isHalf = false;
};

// Of two that begin at the same place the longer one is meant. A second dash makes the line dashed.
constexpr MermaidArrow mermaidArrows[] = {
    {"<<-->>", Head::Filled, Head::Filled},
    {"<<->>", Head::Filled, Head::Filled},
    {"-->>", Head::Filled},
    {"--|\\", Head::Filled, Head::NoHead, true},
    {"--|/", Head::Filled, Head::NoHead, true},
    {"--\\\\", Head::Open, Head::NoHead, true},
    {"--//", Head::Open, Head::NoHead, true},
    {"/|--", Head::NoHead, Head::Filled, true},
    {"\\|--", Head::NoHead, Head::Filled, true},
    {"//--", Head::NoHead, Head::Open, true},
    {"\\\\--", Head::NoHead, Head::Open, true},
    {"->>", Head::Filled},
    {"-|\\", Head::Filled, Head::NoHead, true},
    {"-|/", Head::Filled, Head::NoHead, true},
    {"-\\\\", Head::Open, Head::NoHead, true},
    {"-//", Head::Open, Head::NoHead, true},
    {"/|-", Head::NoHead, Head::Filled, true},
    {"\\|-", Head::NoHead, Head::Filled, true},
    {"//-", Head::NoHead, Head::Open, true},
    {"\\\\-", Head::NoHead, Head::Open, true},
    {"-->", Head::NoHead},
    {"->", Head::NoHead},
};

// These look like parts of names, so they count where there is none of the others.
constexpr MermaidArrow wordLikeArrows[] = {
    {"--x", Head::Cross}, {"--X", Head::Cross}, {"-x", Head::Cross},
    {"-X", Head::Cross},  {"--)", Head::Open},  {"-)", Head::Open},
};

struct FoundArrow
{
    const MermaidArrow *arrow = nullptr;
    qsizetype place = 0;
};

template <size_t count>
FoundArrow firstOf(const MermaidArrow (&table)[count], QStringView text)
{
    FoundArrow found;
    for (const MermaidArrow &arrow : table) {
        const qsizetype place = text.indexOf(QLatin1StringView(arrow.sign));
        if (place > 0 && (!found.arrow || place < found.place))
            found = {&arrow, place};
    }
    return found;
}

FoundArrow arrowIn(const QString &statement)
{
    const qsizetype colon = statement.indexOf(u':');
    const QStringView before = QStringView(statement).first(colon < 0 ? statement.size() : colon);
    const FoundArrow found = firstOf(mermaidArrows, before);
    return found.arrow ? found : firstOf(wordLikeArrows, before);
}

// The name at an end of an arrow, at which there may be a dot.
QString withoutDot(QString name, bool *hasDot)
{
    name = name.trimmed();
    *hasDot = name.startsWith(u"()") || name.endsWith(u"()");
    if (name.startsWith(u"()"))
        name = name.sliced(2);
    else if (name.endsWith(u"()"))
        name.chop(2);
    return name.trimmed();
}

// The character of a code: a number, or a name of HTML that texts of diagrams need.
QString characterOf(QStringView code)
{
    bool isNumber = false;
    const uint number = code.toUInt(&isNumber);
    if (isNumber)
        return number == 0 || number > 0x10FFFF || (number >= 0xD800 && number < 0xE000)
            ? QString()
            : QString::fromUcs4(reinterpret_cast<const char32_t *>(&number), 1);
    static constexpr struct
    {
        const char *name;
        char16_t character;
    } names[] = {{"quot", u'"'},       {"amp", u'&'},       {"lt", u'<'},
                 {"gt", u'>'},         {"apos", u'\''},     {"nbsp", u' '},
                 {"colon", u':'},      {"semi", u';'},      {"euro", u'\u20ac'},
                 {"infin", u'\u221e'}, {"rarr", u'\u2192'}, {"larr", u'\u2190'}};
    for (const auto &one : names) {
        if (code == QLatin1StringView(one.name))
            return QString(QChar(one.character));
    }
    return {};
}

bool isOfCode(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

// With characters in place of their codes: "#9829;".
QString withCharactersOfCodes(const QString &text)
{
    static const QRegularExpression code(u"#(\\w{1,10});"_s);
    QString result;
    qsizetype done = 0;
    for (const QRegularExpressionMatch &match : code.globalMatch(text)) {
        const QString character = characterOf(match.capturedView(1));
        result += QStringView(text).sliced(done, match.capturedStart() - done);
        result += character.isEmpty() ? match.captured() : character;
        done = match.capturedEnd();
    }
    return result + text.sliced(done);
}

} // namespace

bool isMermaidMessage(const QString &statement)
{
    return arrowIn(statement).arrow != nullptr;
}

MermaidMessage mermaidMessage(const QString &statement)
{
    const FoundArrow found = arrowIn(statement);
    const QLatin1StringView sign(found.arrow->sign);
    const QString behind = statement.sliced(found.place + sign.size()).trimmed();
    const qsizetype colon = behind.indexOf(u':');
    MermaidMessage message;
    message.head = found.arrow->head;
    message.tail = found.arrow->tail;
    message.isDashed = sign.contains("--"_L1);
    message.isHalf = found.arrow->isHalf;
    bool hasDot = false;
    message.from = withoutDot(statement.first(found.place), &hasDot);
    if (hasDot)
        message.tail = Head::Circle;
    QString to = behind.first(colon < 0 ? behind.size() : colon).trimmed();
    message.activates = to.startsWith(u'+');
    message.deactivates = to.startsWith(u'-');
    if (message.activates || message.deactivates)
        to = to.sliced(1);
    message.to = withoutDot(to, &hasDot);
    if (hasDot)
        message.head = Head::Circle;
    if (colon >= 0)
        message.text = plainMermaidText(behind.sliced(colon + 1));
    // A head at the left end alone is that of a message of the right one.
    if (message.head == Head::NoHead && message.tail != Head::NoHead) {
        std::swap(message.from, message.to);
        std::swap(message.head, message.tail);
    }
    return message;
}

QStringList mermaidStatements(const QString &line)
{
    QStringList statements;
    qsizetype start = 0;
    for (qsizetype end = line.indexOf(u';'); end >= 0; end = line.indexOf(u';', end + 1)) {
        qsizetype code = end;
        while (code > start && isOfCode(line[code - 1]))
            --code;
        if (code < end && code > start && line[code - 1] == u'#')
            continue;
        statements += line.sliced(start, end - start).trimmed();
        start = end + 1;
    }
    return statements << line.sliced(start).trimmed();
}

QString plainMermaidText(const QString &text)
{
    static const QRegularExpression lineBreak(u"<br\\s*/?>"_s,
                                              QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression wrapping(u"^\\s*(no)?wrap:\\s*"_s);
    QString plain = text;
    plain.remove(wrapping);
    plain.replace(lineBreak, u"\n"_s);
    plain.replace(u"\\n"_s, u"\n"_s);
    plain = withCharactersOfCodes(plain);
    return plain.trimmed();
}

QString unquotedMermaidText(const QString &text)
{
    const QString plain = plainMermaidText(text);
    const bool isQuoted = plain.size() > 1 && plain.startsWith(u'"') && plain.endsWith(u'"');
    return isQuoted ? plain.sliced(1).chopped(1) : plain;
}

} // namespace ORR::Companion
