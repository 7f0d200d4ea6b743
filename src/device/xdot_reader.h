#pragma once

#include <QByteArrayView>
#include <QString>

namespace ORR::Graph::Graphviz {

// Reads the fields of xdot ops, one behind the other. Nothing fails: what is no number, or is
// missing, is 0.
class XDotReader
{
public:
    explicit XDotReader(QByteArrayView bytes) : text(bytes) { }

    // Whether nothing but blanks is left.
    bool atEnd();

    // The next character that is no blank; NUL at the end.
    char nextOp();

    // Whether a word that is not empty comes next.
    bool hasWord();
    // Up to a blank, a comma or the end, which is not stepped over; blanks ahead are.
    QByteArrayView word();
    double real();
    // Rounded if it is written with a point.
    int integer();
    // A length, a `-`, and that many bytes, or fewer if the text ends before. What stands between
    // the length and the `-` is stepped over.
    QByteArrayView countedBytes();
    QString countedString() { return QString::fromUtf8(countedBytes()); }

private:
    void skipBlanks();

    QByteArrayView text;
    qsizetype position = 0;
};

} // namespace ORR::Graph::Graphviz
