#pragma once

#include "tools/manual/prose.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace ORR::Docs {

// The head of a manual page.
struct PageTitle
{
    QString name; // "orr-check"
    int section = 1;
    QString date; // 2026-11-22
    QString source; // the program and its version
};

// Texts within a page, in the language of man(7). All else makes lines of these.
QString plain(const QString &text);
QString bold(const QString &text); // to be typed as it stands
QString italic(const QString &text); // to be replaced
// A text with `words to be typed` and *words to be replaced*.
QString marked(const QString &text);

// A manual page, written from its beginning to its end. What is handed over are the texts above,
// but for headings and examples, which are as a reader sees them.
class RoffPage
{
public:
    explicit RoffPage(const PageTitle &title);

    void heading(const QString &text);
    void subheading(const QString &text);
    // What the page is about, for lists of pages.
    void summary(const QString &name, const QString &text);
    void paragraph(const QString &text);
    // A term, and what is said of it beside or below.
    void term(const QString &head, const QString &text);
    // A further line of a term.
    void further(const QString &text);
    void bullet(const QString &text);
    // Terms until `endList` belong to the text of the one before.
    void beginList();
    void endList();
    void example(const QStringList &lines);
    // A way to call it, as its options follow the name, and are kept together.
    void synopsis(const QString &name, const QStringList &parts);
    void prose(const QList<ProseBlock> &blocks);

    QByteArray text() const { return written.toUtf8(); }

private:
    void line(const QString &text);
    void beginParagraph();
    void wrapped(const QString &text);

    QString written;
};

} // namespace ORR::Docs
