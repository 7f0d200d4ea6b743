#pragma once

#include "companion/syntax/check_syntax.h"
#include "graph/source_text.h"

#include <QString>
#include <QStringList>

// The findings of a text, a line each: "1:5 rule message (suggestion)".
inline QStringList toldOf(const QByteArray &text)
{
    QStringList told;
    ORR::Graph::SourceText source(text);
    const ORR::Companion::SyntaxFindings findings = ORR::Companion::checkSyntax(text);
    for (const ORR::Companion::SyntaxFinding &finding : findings.kept()) {
        const ORR::Graph::SourcePlace place = source.placeOf(finding.offset);
        told += QString::number(place.line) + u':' + QString::number(place.column) + u' '
            + QString::fromLatin1(finding.rule->id.data(), qsizetype(finding.rule->id.size()))
            + u' ' + finding.message
            + (finding.suggestion.isEmpty() ? QString()
                                            : QStringLiteral(" (") + finding.suggestion + u')');
    }
    return told;
}
