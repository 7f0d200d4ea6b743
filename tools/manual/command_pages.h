#pragma once

#include "tools/commands/commands.h"
#include "tools/manual/roff_page.h"

namespace ORR::Docs {

// One page of a manual.
struct ManualPage
{
    QString name; // "orr-check"
    int section = 1;
    QByteArray text;

    QString fileName() const { return name + u'.' + QString::number(section); }
};

// What all pages have in common.
struct ManualSetting
{
    QString date;
    QString source;
    QString prose; // the folder with a file for each page, "orr-check.md"
};

// "orr-check", the page of "orr check".
QString pageName(const QString &command);

// The page of a command: what its help has, and its prose. `all` are the commands that it may point
// to. The text is empty if there is no prose, which is a mistake.
ManualPage commandPage(const Command &command, const QList<Command> &all,
                       const ManualSetting &setting);

// The prose of a page; empty if there is none.
QList<ProseSection> proseOf(const QString &page, const ManualSetting &setting);

} // namespace ORR::Docs
