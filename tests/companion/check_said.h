#pragma once

#include "companion/check/check_text.h"
#include "companion/check/rules.h"
#include "companion/drawing_findings.h"

#include <gtest/gtest.h>

#include <QStringList>

// What `orr check` says of a text, a line each, as "1:12 rule: sentence; suggestion". What it says
// of the drawing is left out: the texts of the tests are hardly ever whole ones.
inline QStringList saidOf(const QByteArray &text, const QString &engine = {})
{
    QStringList lines;
    for (const ORR::Companion::Finding &finding : ORR::Companion::checkText(text, {engine})) {
        if (isOfDrawing(finding))
            continue;
        const std::string_view id = finding.rule->id;
        QString line = QString::number(finding.line) + u':' + QString::number(finding.column) + u' '
            + QLatin1StringView(id.data(), qsizetype(id.size())) + QLatin1StringView(": ")
            + finding.sentence;
        if (!finding.suggestion.isEmpty())
            line += QLatin1StringView("; ") + finding.suggestion;
        lines += line;
    }
    return lines;
}

// The same of one graph's body, which starts in column 11.
inline std::string saidOfBody(const char *body, const char *engine = "")
{
    return saidOf(QByteArray("digraph { ") + body + " }", QString::fromLatin1(engine))
        .join(u'\n')
        .toStdString();
}
