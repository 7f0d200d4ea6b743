#include "support/breaking_texts.h"

#include <QRegularExpression>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

// What stands in front of an attribute list says whose it is. The lists of defaults are nobody's.
std::optional<GraphElement> elementOf(const QByteArray &head, int depth)
{
    if (head == "node" || head == "edge")
        return {};
    if (head == "graph")
        return depth == 1 ? GraphElement::Root : GraphElement::Cluster;
    return head.contains("->") ? GraphElement::Edge : GraphElement::Node;
}

} // namespace

const QByteArrayList &breakingTexts()
{
    static const QByteArrayList texts{
        "x\"/><script>alert(1)</script><g onload=\"e()\" a=\"",
        "x'/onload='e()'/><svg/onload=e()>&quot;/onload=&#34;e()",
        "x]]>--><!DOCTYPE a[<!ENTITY b 'c'>]><?d?>&amp;&#60;e&#62;&b;&f<![CDATA[",
        "x\"=RUNADDON(\"y\")&GUARD(\"\")\")+RUN(1)&\"=1+1",
        "x\x1b[31m\x07\x01\x7f\xc2\x9b[2Jy\xc2\x85",
        "x\xff\xfe\"/><g\xc3>\xed\xa0\x80\xf8\x88\x80&lt\xe2\x28;/>",
        "x\xe2\x80\xae\xe2\x81\xa6>\"=/<\xe2\x80\x8f\xef\xbb\xbf\xef\xbf\xbf\xe2\x80\xa8y",
    };
    return texts;
}

QByteArray harmlessText(const QByteArray &hostile)
{
    static const QRegularExpression special(
        u"[<>&\"'#=()\\[\\]!?/+\\-\\x00-\\x1f\\x7f-\\x9f\\x{200f}-\\x{2069}\\x{fe00}-\\x{ffff}]"_s);
    return QString::fromUtf8(hostile).replace(special, u"x"_s).toUtf8();
}

QByteArray quotedInGraph(const QByteArray &value)
{
    QByteArray escaped = value;
    return '"' + escaped.replace('"', "\\\"") + '"';
}

QString asXmlHasIt(const QByteArray &text)
{
    static const QRegularExpression forbidden(
        u"[\\x00-\\x08\\x0b\\x0c\\x0e-\\x1f\\x{fffe}\\x{ffff}]"_s);
    return QString::fromUtf8(text).remove(forbidden);
}

QByteArray withAttribute(const QByteArray &graph, GraphElement element, const QByteArray &name,
                         const QByteArray &value)
{
    const QByteArray setting = ' ' + name + '=' + quotedInGraph(value);
    QByteArray result;
    QByteArray head;
    std::optional<GraphElement> owner;
    int depth = 0;
    bool isQuoted = false;
    char before = '\0';
    for (const char c : graph) {
        if (c == '"' && before != '\\')
            isQuoted = !isQuoted;
        before = c;
        if (!isQuoted && c == ']' && owner == element)
            result += setting;
        if (!isQuoted && c == '[')
            owner = elementOf(head.trimmed(), depth);
        if (!isQuoted && c == '{')
            ++depth;
        if (!isQuoted && c == '}' && --depth == 0 && element == GraphElement::Root)
            result += " graph [" + setting + "]; ";
        const bool isSeparator = c == '{' || c == '}' || c == ';' || c == ']';
        head = !isQuoted && isSeparator ? QByteArray() : head + c;
        result += c;
    }
    return result;
}
