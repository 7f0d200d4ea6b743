#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

namespace ORR::Graph {

// The objects of a finished PDF file, to be looked at, changed and written as a file again (ISO
// 32000-1, 7.5). Made for what the toolkit writes: one table of cross references, no object in a
// stream, all of generation 0.
class PdfObjects
{
public:
    // Nothing if the file is made in another way.
    static std::optional<PdfObjects> read(const QByteArray &file);

    // The objects that the others hang from; 0 for none.
    int root() const { return rootNumber; }
    int info() const { return infoNumber; }

    // What stands between "obj" and "endobj", without blanks around it. Empty for no object.
    QByteArray content(int number) const;
    void setContent(int number, const QByteArray &content);
    // Gives the number.
    int add(const QByteArray &content);

    // The number in the first reference behind `key` in an object, in a list or not; 0 for none.
    int reference(int number, QByteArrayView key) const;

    // The file. What identifies it is a hash of its bytes, so that equal objects give equal files.
    QByteArray written() const;

private:
    QByteArray header;
    QList<QByteArray> contents; // by number; that of 0 and those that are free are empty
    int rootNumber = 0;
    int infoNumber = 0;
};

} // namespace ORR::Graph
