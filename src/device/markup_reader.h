#pragma once

#include <QList>
#include <QString>
#include <QStringView>

#include <utility>

namespace ORR::Graph {

// A part of a rich text: a run of text, or one tag.
struct MarkupPiece
{
    enum Kind { Text, Open, Close, Declaration };

    Kind kind = Text;
    QStringView text; // of a text, as it stands: its entities are not resolved
    QString name; // of a tag, in lower case
    QList<std::pair<QString, QString>> attributes; // of an opening tag, names in lower case
    bool isClosed = false; // an opening tag that closes itself
};

// Takes a rich text apart in the way of the toolkit's reader, which takes anything: blanks before a
// name, names in quotes and with entities, tags that end nowhere. Who counts tags must see those
// that the toolkit will see. One pass, nothing is kept; the text must outlive the reader.
class MarkupReader
{
public:
    explicit MarkupReader(QStringView html) : text(html) { }

    // The next piece; false at the end.
    bool next();
    const MarkupPiece &piece() const { return current; }

private:
    bool has(char16_t c, qsizetype ahead = 0) const;
    void skipSpace();
    void skipPast(char16_t c);
    void readTag();
    void readDeclaration();
    void readAttributes();
    QString word();
    QString quotedWord();
    QString entity();

    QStringView text;
    qsizetype pos = 0;
    MarkupPiece current;
};

// The text with its entities resolved: the numbered ones and those that stand for a character of
// markup. All others stay.
QString withResolvedEntities(QStringView text);

} // namespace ORR::Graph
