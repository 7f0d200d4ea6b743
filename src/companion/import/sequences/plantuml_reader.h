#pragma once

#include "companion/import/reading/import_source.h"
#include "companion/import/sequences/plantuml_message.h"
#include "companion/import/sequences/sequence_builder.h"

#include <QList>
#include <QString>

namespace ORR::Companion {

// How messages are numbered.
class PlantumlNumbers
{
public:
    // What follows "autonumber"; false if it makes no sense.
    bool read(const QString &words);
    bool isOn() const { return counts; }
    // That of the next message.
    QString next();

private:
    bool raise(const QString &letter);
    bool counts = false;
    QList<int> parts; // "1.2.3"; the last one is counted
    QString parting = {}; // between them
    int step = 1;
    QString format = {}; // with digits as "0" or "#"; empty for the plain number
};

// Reads one diagram, line by line.
class PlantumlReader
{
public:
    ImportResult read(ImportSource *source);

private:
    // A text of several lines that is open.
    struct Block
    {
        enum Kind { None, Comment, Note, Reference, Title, Participant, Skipped };
        Kind kind = None;
        QString end = {}; // the line that closes it
        QStringList lines = {};
    };

    void readLine(const QString &line);
    bool readFrame(const QString &line);
    bool readInBlock(const QString &line);
    void finishBlock();
    void readStatement(const QString &line);

    bool readSetting(const QString &line);
    bool readParticipant(const QString &line);
    bool readBox(const QString &line);
    bool readBars(const QString &line);
    bool readFragment(const QString &line);
    bool readNote(const QString &line);
    bool readReference(const QString &line);
    bool readPause(const QString &line);
    bool readMessage(const QString &line);

    void skipUntil(const QString &end, const QString &what);
    void declare(const QString &id, const QString &name, const QString &kind, const QString &rest);
    void addMessage(const PlantumlMessage &message);
    void addBars(const PlantumlMessage &message, int from, int to);
    void addReturn(const QString &text);
    int endOf(const PlantumlMessage::End &end, bool isLeft);
    QString fill(const QString &word);
    void sortByOrder();

    SequenceBuilder builder;
    PlantumlNumbers numbers;
    Block block;
    SequenceStep pending; // the note or reference whose text is read
    QString pendingRest; // of the participant whose name is read
    bool isBegun = false;
    bool isEnded = false;
    bool isInBox = false;
    bool activatesAll = false; // every call, until its answer
    QList<double> orders; // by participant, where one was given
    struct Call
    {
        int from;
        int to;
    };
    QList<Call> calls; // whose bars are open
    int lastFrom = 0; // of the last message, where notes stand
    int lastTo = 0;
    bool hasMessage = false;
    QString continued; // lines that go on in the next one
};

} // namespace ORR::Companion
