#pragma once

#include "companion/produce/sequence.h"

#include <QString>
#include <QStringList>

namespace ORR::Companion {

// A message of Mermaid: who, the arrow, whom, and the text behind the colon.
struct MermaidMessage
{
    QString from = {};
    QString to = {};
    QString text = {};
    SequenceStep::Head head = SequenceStep::NoHead;
    SequenceStep::Head tail = SequenceStep::NoHead;
    bool isDashed = false;
    bool isHalf = false; // of its head there is one side
    bool activates = false; // the receiver
    bool deactivates = false; // the sender
};

// Whether a statement has an arrow before its text.
bool isMermaidMessage(const QString &statement);

// The parts of a statement that has one.
MermaidMessage mermaidMessage(const QString &statement);

// The statements of a line, which semicolons part but for those that end the code of a character.
QStringList mermaidStatements(const QString &line);

// A text as it is meant to be read: breaks of lines are line feeds, codes are their characters.
QString plainMermaidText(const QString &text);
// The same without the quotes around it.
QString unquotedMermaidText(const QString &text);

} // namespace ORR::Companion
