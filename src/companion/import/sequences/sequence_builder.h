#pragma once

#include "companion/import/import_format.h"
#include "companion/import/reading/import_source.h"
#include "companion/produce/sequence.h"

#include <QHash>
#include <QMap>
#include <QString>

#include <optional>

namespace ORR::Companion {

// Puts a sequence together line by line, for readers of languages for diagrams: participants by the
// names that they have in the text, fragments that have to be closed, notes and the first fault.
class SequenceBuilder
{
public:
    Sequence sequence;

    // The number of a participant, which is made if it is not known.
    int participant(const QString &id);
    bool isKnown(const QString &id) const { return numbers.contains(id); }
    // As it is told: in one line.
    QString nameOf(int participant) const;
    SequenceParticipant &at(int participant) { return sequence.participants[participant]; }

    // Where the line stands that is read now.
    void setPlace(const ImportPlace &place) { here = place; }
    const ImportPlace &place() const { return here; }
    // Messages of those whom none has created yet are told, and so is at the end whom none creates.
    void add(const SequenceStep &step);
    // Ends the innermost bar of a participant; that there is none is told.
    void endBar(int participant);

    // A fragment is told by its word when it is not closed.
    void beginFragment(const QString &keyword, const QString &guard, const QString &color = {},
                       const QString &tag = {});
    void nextSection(const QString &keyword, const QString &guard, const QString &color = {});
    void endFragment();
    bool hasOpenFragment() const { return !open.isEmpty(); }
    // That of the innermost open fragment, empty if there is none.
    QString openKeyword() const { return open.isEmpty() ? QString() : open.constLast().keyword; }

    // The first one counts.
    void fail(const QString &sentence);
    bool hasFailed() const { return fault.has_value(); }
    // What can't be drawn as it is written, told for each line that has it; of very many only the
    // first ones, with how many there are more.
    void tell(const QString &sentence) { tell(here, sentence); }
    // The same of a line that was read before.
    void tell(const ImportPlace &place, const QString &sentence);

    // The picture, or the fault, of what was read from a source; to be called once, at the end.
    ImportResult result(const ImportSource &source);

private:
    struct Fragment
    {
        QString keyword;
        ImportPlace place;
    };

    void follow(const SequenceStep &message);

    QHash<QString, int> numbers;
    QHash<int, int> bars; // how many of a participant are open
    QMap<int, ImportPlace> unborn; // whom no message has created, and where one is to
    QList<Fragment> open;
    ImportPlace here;
    std::optional<ImportFault> fault;
    QList<ImportFault> notes;
    CountedNote untold;
};

// The kind of a word: "actor". Any other is a plain one.
SequenceParticipant::Kind sequenceKind(const QString &word);

// "#RRGGBB" of a colour that has a name of SVG or is written as "#rgb", "#rrggbb", "rgb(r, g, b)",
// "rgba(...)", "hsl(...)" or "hsla(...)", upon white if it can be seen through; empty for any
// other.
QString plainColor(const QString &word);

// A number as the formats count with: "12" and "12.5" and no exponent. -1 if it is none.
double plainNumber(const QString &word);

} // namespace ORR::Companion
