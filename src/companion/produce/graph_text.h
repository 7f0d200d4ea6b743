#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// Writes graphs in the dialect, for whoever produces them. Nothing that is passed in can become
// anything else than the text of a value: producers need not know how the dialect quotes.
namespace ORR::Companion {

// The attributes of one element, in the order in which they were added. Names are the caller's own
// and plain words; values may be of any characters.
class Attributes
{
public:
    Attributes &text(const char *name, QStringView value);
    // Six significant digits, as drawings have them.
    Attributes &number(const char *name, double value);
    // A text that is drawn: line feeds part its lines, and nothing else in it is an escape.
    Attributes &label(QStringView text);
    // What the author of the data calls so, and no engine knows: blanks and whatever is no letter
    // or digit become "_" in the name.
    Attributes &fact(QStringView name, QStringView value);

    bool isEmpty() const { return written.isEmpty(); }
    // As it stands between the brackets.
    const QByteArray &bytes() const { return written; }

private:
    void add(QByteArrayView name, QByteArrayView value);

    QByteArray written;
};

// A text as a value between quotes, which reads back as it was but for what the dialect can't hold:
// a backslash becomes a slash, as it would begin an escape, and control characters become blanks.
QByteArray quotedValue(QStringView text);

// One graph, from its beginning to its end. Ids are counted, so that they are unique, and
// engines that order by the numbers in ids keep the order of the calls.
class GraphText
{
public:
    using Id = QByteArray;

    // The name behind `digraph`; any text.
    explicit GraphText(QStringView name = {});

    // Attributes of the innermost group that is open, of the root if none is; before its members.
    void graph(const Attributes &attributes);
    void nodeDefaults(const Attributes &attributes);
    void edgeDefaults(const Attributes &attributes);

    // Groups nest. Every one that is opened is to be closed.
    Id beginGroup(const Attributes &attributes);
    void endGroup();

    Id node(const Attributes &attributes);
    void edge(const Id &tail, const Id &head, const Attributes &attributes = {});

    // The whole text; nothing can be added to it any more.
    QByteArray finished();

private:
    void indent();
    void statement(QByteArrayView word, const Attributes &attributes);

    QByteArray written;
    int depth = 1;
    int count = 0;
};

} // namespace ORR::Companion
