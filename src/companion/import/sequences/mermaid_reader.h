#pragma once

#include "companion/import/reading/import_source.h"
#include "companion/import/sequences/mermaid_message.h"
#include "companion/import/sequences/sequence_builder.h"

#include <QMap>
#include <QString>

#include <string>

namespace ORR::Companion {

// The words of a line: the first one in small letters, and what follows it.
struct MermaidWords
{
    QString first;
    QString rest;
};

MermaidWords mermaidWords(const QString &line);

// Reads one diagram, line by line.
class MermaidReader
{
public:
    ImportResult read(ImportSource *source);

private:
    void readLine(const QString &line);
    bool passOver(const QString &line);
    void readStatement(const QString &statement);
    bool readHead(const MermaidWords &words);
    bool readPeople(const MermaidWords &words);
    bool readFragment(const MermaidWords &words);
    void beginSection(const MermaidWords &words);
    bool readTitle(const QString &statement, const MermaidWords &words);

    void declare(const QString &word, const QString &rest, bool isCreated);
    void readAttributes(const QString &json, SequenceParticipant *participant);
    void beginBox(const QString &rest);
    void readNote(const QString &rest);
    void readNumbers(const QString &rest);
    void readMessage(const QString &statement);
    void addMessage(const MermaidMessage &message);

    SequenceBuilder builder;
    std::string sourceName;
    bool isBegun = false; // behind the word that begins the diagram
    bool isInFrontMatter = false;
    bool isInDescription = false;
    bool isInDirective = false;
    bool isInBox = false;
    QMap<int, ImportPlace> doomed; // whom the next message with them destroys, and where it says so
    double number = 0; // of the next message; none while `counts` is false
    double step = 1;
    bool counts = false;
};

} // namespace ORR::Companion
