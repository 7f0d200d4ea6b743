#pragma once

#include "companion/import/reading/import_source.h"
#include "companion/produce/weight_tree.h"

#include <QByteArray>

#include <optional>

namespace ORR::Companion {

// What a linker put where, as GNU ld of binutils 2.40 tells it by -Map=FILE ("Command-line Options"
// in its manual, https://sourceware.org/binutils/docs/ld/; the form of the file is that of its
// English messages): the pieces of a program's sections, each from an object, which may be in an
// archive.
class LinkerMap
{
public:
    enum class Order { SectionFirst, ObjectFirst };

    // `flat`: nothing has anything below it.
    LinkerMap(Order above, bool flat) : order(above), isFlat(flat) { }

    static bool looksLike(QByteArrayView beginning);

    // Adds all pieces of a map, of the kinds of sections.
    std::optional<ImportFault> read(ImportSource *source);

    const WeightTree &tree() const { return weights; }

private:
    struct Piece
    {
        QByteArray name = {}; // of the section in its object
        QByteArray object = {};
        double address = 0;
        double size = 0;
        QByteArray symbol = {}; // that it is all of
        bool hasSeveral = false;
    };

    // What is wrong with a line; empty if nothing is.
    QString readLine(QByteArrayView line);
    void beginSection(QByteArrayView line);
    QString readPiece(const QByteArray &name, QByteArrayView numbers);
    void readSymbol(QByteArrayView line);
    void endPiece();
    WeightTree::Item objectItem(WeightTree::Item above, const QByteArray &object);

    Order order;
    bool isFlat;
    WeightTree weights;
    bool isWithin = false; // the part that tells of memory
    QByteArray section; // that is written; empty if it is none
    QByteArray pendingName; // of a piece whose numbers are in the next line
    Piece piece; // the last one, whose symbols follow
};

} // namespace ORR::Companion
