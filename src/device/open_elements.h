#pragma once

#include <QList>
#include <QString>

#include <initializer_list>

namespace ORR::Graph {

// The elements of a rich text that are open at a place, and the grids of the open tables among
// them, by the rules of the toolkit's reader for what an element closes that did not close itself.
class OpenElements
{
public:
    // A tag of that name, in lower case. The spans are those of a cell, 1 without.
    void open(const QString &name, qint64 columnSpan, qint64 rowSpan);
    void close(const QString &name);
    // An element that has no content, which `open` has just opened.
    void closeLast() { closeDownTo(elements.size() - 1); }

    qsizetype depth() const { return elements.size(); }
    qsizetype tableDepth() const { return tables.size(); }
    // How many times the content of this place is laid out.
    qint64 passes() const;
    // The places in the grids of all tables so far, each as many times as it is laid out.
    qint64 gridPlaces() const;

    static bool isEmptyElement(const QString &name);

private:
    // A cell that reaches into later rows takes their columns.
    struct Overhang
    {
        qint64 rows;
        qint64 columns;
    };

    struct Table
    {
        qint64 rows = 0;
        qint64 columns = 0;
        qint64 columnsOfRow = 0;
        QList<Overhang> overhangs;
    };

    void push(const QString &name);
    qint64 placesOf(qsizetype table) const;
    void openCell(qint64 columnSpan, qint64 rowSpan);
    void openRow();
    void closeDownTo(qsizetype count);
    void closeUpTo(std::initializer_list<QLatin1StringView> parents);
    void closeParagraph();
    bool isOpen(QLatin1StringView name) const;

    QList<QString> elements;
    QList<Table> tables;
    qint64 closedPlaces = 0;
};

} // namespace ORR::Graph
