#include "output/xml_text.h"

#include <algorithm>
#include <array>

namespace ORR::Graph {

namespace {

bool isForbiddenUnit(QChar c)
{
    const char16_t u = c.unicode();
    return (u < 0x20 && u != u'\t' && u != u'\n' && u != u'\r') || u >= 0xFFFE;
}

// The references of each form, in the order of `XmlForm`; an empty one leaves the character.
struct References
{
    char character;
    std::array<QByteArrayView, 4> byForm;
};

constexpr std::array<References, 7> referenceTable{{
    {'&', {{"&amp;", "&amp;", "&amp;", "&amp;"}}},
    {'<', {{"&lt;", "&lt;", "&lt;", "&lt;"}}},
    {'>', {{"&gt;", "&gt;", "&gt;", "&gt;"}}},
    {'"', {{"&quot;", "&quot;", {}, "&quot;"}}},
    {'\t', {{{}, "&#9;", {}, "&#x9;"}}},
    {'\n', {{{}, "&#10;", {}, "&#xa;"}}},
    {'\r', {{{}, "&#13;", "&#xd;", "&#xd;"}}},
}};

// The reference that stands for the last character; empty if that stays.
QByteArrayView reference(QByteArrayView textUpTo, XmlForm form)
{
    const char last = textUpTo.back();
    if (last > '>')
        return {};
    const bool byDocument = form == XmlForm::DocumentText || form == XmlForm::DocumentAttribute;
    if (last == '>' && byDocument && !textUpTo.endsWith("]]>"))
        return {};
    for (const References &row : referenceTable) {
        if (row.character == last)
            return row.byForm.at(static_cast<size_t>(form));
    }
    return {};
}

} // namespace

QString withoutForbiddenXml(const QString &text)
{
    const bool clean = std::none_of(text.cbegin(), text.cend(),
                                    [](QChar c) { return isForbiddenUnit(c) || c.isSurrogate(); });
    if (clean)
        return text;
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            result.append(c);
            result.append(text.at(++i));
        } else if (!c.isSurrogate() && !isForbiddenUnit(c)) {
            result.append(c);
        }
    }
    return result;
}

QByteArray xmlEscaped(const QString &text, XmlForm form)
{
    const QByteArray bytes = withoutForbiddenXml(text).toUtf8();
    const QByteArrayView view(bytes);
    QByteArray escaped;
    escaped.reserve(bytes.size());
    qsizetype copied = 0;
    for (qsizetype i = 0; i < view.size(); ++i) {
        const QByteArrayView instead = reference(view.first(i + 1), form);
        if (instead.isEmpty())
            continue;
        escaped.append(view.sliced(copied, i - copied)).append(instead);
        copied = i + 1;
    }
    return escaped.append(view.sliced(copied));
}

} // namespace ORR::Graph
