#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// What of a manual page no table says, as it is kept beside this: a little of Markdown. Paragraphs,
// items behind "- ", which are terms where they begin with "`term`: ", and code between "```".
namespace ORR::Docs {

struct ProseBlock
{
    enum Kind { Paragraph, Bullet, Term, Code };
    Kind kind = Paragraph;
    QString text; // in one line; of a term what is said of it
    QString term = {};
    QStringList code = {};
};

struct ProseSection
{
    QString heading; // empty for what stands above the first "# HEADING"
    QList<ProseBlock> blocks;
};

QList<ProseSection> readProse(const QString &text);

} // namespace ORR::Docs
