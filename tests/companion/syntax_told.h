#pragma once

#include "companion/check/check_text.h"
#include "companion/syntax/syntax_rules.h"

#include <QString>
#include <QStringList>

#include <algorithm>

// What is found by the rules of the syntax.
inline QList<ORR::Companion::Finding> syntaxFindings(const QByteArray &text)
{
    using namespace ORR::Companion;
    QList<Finding> findings = checkText(text, {});
    findings.removeIf([](const Finding &finding) {
        const auto misreadings = misreadingRules();
        return !isRejection(*finding.rule)
            && std::ranges::find(misreadings, finding.rule) == misreadings.end();
    });
    return findings;
}

// The same, a line each: "1:5 rule sentence (suggestion)".
inline QStringList toldOf(const QByteArray &text)
{
    QStringList told;
    for (const ORR::Companion::Finding &finding : syntaxFindings(text))
        told += QString::number(finding.line) + u':' + QString::number(finding.column) + u' '
            + QString::fromLatin1(finding.rule->id.data(), qsizetype(finding.rule->id.size()))
            + u' ' + finding.sentence
            + (finding.suggestion.isEmpty() ? QString()
                                            : QStringLiteral(" (") + finding.suggestion + u')');
    return told;
}

// The same with place and rule only.
inline QStringList placesAndRules(const QByteArray &text)
{
    QStringList places;
    for (const QString &line : toldOf(text))
        places += line.section(u' ', 0, 1);
    return places;
}
