#include "device/markup_reader.h"

#include <array>
#include <utility>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestEntity = 9; // with its semicolon

// The named entities that can be part of a tag, or of a plain text without a table of all others.
constexpr std::array<std::pair<QLatin1StringView, char16_t>, 6> namedEntities{{
    {"amp"_L1, u'&'},
    {"lt"_L1, u'<'},
    {"gt"_L1, u'>'},
    {"quot"_L1, u'"'},
    {"apos"_L1, u'\''},
    {"nbsp"_L1, u'\u00a0'},
}};

// What an entity stands for; empty if it is not known.
QString resolved(QStringView name)
{
    for (const auto &[known, character] : namedEntities) {
        if (name == known)
            return QChar(character);
    }
    if (name.size() < 2 || name.front() != u'#')
        return {};
    const bool isHexadecimal = name.at(1) == u'x' || name.at(1) == u'X';
    bool isNumber = false;
    const uint code = name.sliced(isHexadecimal ? 2 : 1).toUInt(&isNumber, isHexadecimal ? 16 : 10);
    // A NUL would end the text for whoever reads it as bytes.
    if (!isNumber || code == 0 || code > QChar::LastValidCodePoint)
        return {};
    return QStringView(QChar::fromUcs4(code)).toString();
}

// The entity behind an ampersand at `pos`, which moves behind it. Without one the ampersand is a
// character like others, and the position stays.
QString entityAt(QStringView text, qsizetype *pos)
{
    const QStringView rest = text.sliced(*pos);
    for (qsizetype i = 0; i < rest.size() && i < longestEntity; ++i) {
        if (rest.at(i).isSpace())
            break;
        if (rest.at(i) != u';')
            continue;
        const QString character = resolved(rest.first(i));
        if (character.isEmpty())
            break;
        *pos += i + 1;
        return character;
    }
    return u"&"_s;
}

} // namespace

bool MarkupReader::next()
{
    if (pos >= text.size())
        return false;
    current = {};
    if (text.at(pos) == u'<') {
        ++pos;
        readTag();
        return true;
    }
    const qsizetype end = text.indexOf(u'<', pos);
    current.text = text.sliced(pos, (end < 0 ? text.size() : end) - pos);
    pos += current.text.size();
    return true;
}

bool MarkupReader::has(char16_t c, qsizetype ahead) const
{
    return pos + ahead < text.size() && text.at(pos + ahead) == c;
}

void MarkupReader::skipSpace()
{
    while (pos < text.size() && text.at(pos).isSpace() && text.at(pos) != QChar::ParagraphSeparator)
        ++pos;
}

void MarkupReader::skipPast(char16_t c)
{
    const qsizetype at = text.indexOf(c, pos);
    pos = at < 0 ? text.size() : at + 1;
}

void MarkupReader::readTag()
{
    skipSpace();
    if (has(u'!')) {
        readDeclaration();
        return;
    }
    if (has(u'/')) {
        ++pos;
        current.kind = MarkupPiece::Close;
        current.name = word().toLower().trimmed();
        skipPast(u'>');
        return;
    }
    current.kind = MarkupPiece::Open;
    current.name = word().toLower();
    if (pos < text.size() && text.at(pos).isSpace())
        readAttributes();
    const qsizetype rest = pos;
    skipPast(u'>');
    current.isClosed = text.sliced(rest, pos - rest).contains(u'/');
}

void MarkupReader::readDeclaration()
{
    ++pos;
    current.kind = MarkupPiece::Declaration;
    if (!has(u'-') || !has(u'-', 1)) {
        skipPast(u'>');
        return;
    }
    const QLatin1StringView commentEnd = "-->"_L1;
    const qsizetype end = text.indexOf(commentEnd, pos + 2);
    pos = end < 0 ? text.size() : end + commentEnd.size();
}

void MarkupReader::readAttributes()
{
    while (pos < text.size()) {
        skipSpace();
        if (has(u'>') || has(u'/'))
            return;
        const QString name = word().toLower();
        if (name.isEmpty())
            return;
        QString value = u"1"_s;
        skipSpace();
        if (has(u'=')) {
            ++pos;
            skipSpace();
            value = word();
        }
        if (!value.isEmpty())
            current.attributes.append({name, value});
    }
}

QString MarkupReader::word()
{
    if (has(u'"') || has(u'\''))
        return quotedWord();
    QString result;
    while (pos < text.size()) {
        const QChar c = text.at(pos);
        if (c == u'>' || c == u'<' || c == u'=' || c.isSpace() || (c == u'/' && has(u'>', 1)))
            break;
        ++pos;
        result += c == u'&' ? entity() : QString(c);
    }
    return result;
}

// Within single quotes there are no entities, and a backslash keeps a quote from ending the word.
QString MarkupReader::quotedWord()
{
    const QChar quote = text.at(pos++);
    const bool isSingle = quote == u'\'';
    QString result;
    while (pos < text.size()) {
        const QChar c = text.at(pos++);
        if (c == quote && !(isSingle && text.at(pos - 2) == u'\\'))
            break;
        result += c == u'&' && !isSingle ? entity() : QString(c);
    }
    return result;
}

QString MarkupReader::entity()
{
    return entityAt(text, &pos);
}

QString withResolvedEntities(QStringView text)
{
    QString result;
    result.reserve(text.size());
    for (qsizetype pos = 0; pos < text.size();) {
        const QChar c = text.at(pos++);
        if (c == u'&')
            result += entityAt(text, &pos);
        else
            result += c;
    }
    return result;
}

} // namespace ORR::Graph
