#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <initializer_list>

namespace ORR::Graph {

// Builds the markup of a run of elements as UTF-8, one element a line, indented by one blank a
// level: the form of the toolkit's document writer. Drawings get large, and a document in memory
// takes some forty times the bytes of its text. Attributes stand in the order given.
class VisioMarkup
{
public:
    struct Attribute
    {
        QByteArrayView name;
        QByteArrayView value; // escaped
    };
    using Attributes = std::initializer_list<Attribute>;

    // outermost: the level of the outermost elements.
    explicit VisioMarkup(int outermost) : depth(outermost) { }

    void open(QByteArrayView name, Attributes attributes = {});
    void close(QByteArrayView name);
    void empty(QByteArrayView name, Attributes attributes);
    // With a start and an end tag also if the text, which is escaped, is empty.
    void text(QByteArrayView name, Attributes attributes, const QByteArray &content);
    // What another markup built for this place.
    void append(const QByteArray &markup) { bytes.append(markup); }

    const QByteArray &markup() const { return bytes; }
    qsizetype size() const { return bytes.size(); }
    // Gives back memory that was taken ahead.
    void squeeze() { bytes.squeeze(); }

private:
    void start(QByteArrayView name, Attributes attributes, QByteArrayView end);
    void end(QByteArrayView name);
    char *appended(qsizetype length);

    QByteArray bytes;
    int depth;
};

// A text within a formula: its quotes doubled.
QString visioQuoted(const QString &text);

} // namespace ORR::Graph
