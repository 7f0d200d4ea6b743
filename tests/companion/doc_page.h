#pragma once

#include <QString>
#include <QStringList>

// The parts of the pages in docs.

// A whole page, by the name of its file.
QString docPage(const QString &file);
QString checkPage();

// The text behind the heading, up to the next heading of its level or above.
QString sectionOf(const QString &page, const QString &heading);

// What stands in the blocks of code of a language, in their order.
QStringList codeBlocks(const QString &text, const QString &language);
