#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// A file of the project, and what it holds.
QString projectPath(const QString &name);
QString projectText(const QString &name);

// A block of code in a page of the documents.
struct DocBlock
{
    QString language;
    QString text;
    QString section; // all text around it from one heading to the next
    QString picture; // that comes right behind it, a file of the project; empty if there is none
};

// README.md and all pages in docs, as files of the project.
QStringList docPages();

// The blocks of a page in their order.
QList<DocBlock> docBlocks(const QString &page);

// The engine that draws a block of DOT: that of the page, or else the first one that its section
// names behind -K, or else gftree.
QString sampleEngine(const QString &page, const DocBlock &block, const QStringList &engines);
