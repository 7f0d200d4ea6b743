#pragma once

#include "companion/import/reading/import_fault.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace ORR::Companion {

// A graph of the whole DOT language, as Graphviz's own library reads it (libcgraph 2.42;
// https://graphviz.org/doc/info/lang.html): with defaults that are applied, edges of chains and of
// sets one by one, and statements on the same thing joined.
struct ForeignGraph
{
    // Names and values in UTF-8; those that are empty are left out.
    class Values
    {
    public:
        QByteArray operator[](QByteArrayView name) const;
        void add(const QByteArray &name, const QByteArray &value) { all.append({name, value}); }
        bool isHtml(QByteArrayView name) const { return htmlNames.contains(name); }
        void setHtml(const QByteArray &name) { htmlNames.append(name); }

    private:
        struct Value
        {
            QByteArray name;
            QByteArray value;
        };
        QList<Value> all;
        QList<QByteArray> htmlNames;
    };
    struct Node
    {
        QByteArray name;
        int cluster; // the innermost one that it is in; -1 for none
        Values values;
    };
    struct Edge
    {
        int tail; // of the nodes
        int head;
        Values values;
    };
    // Those subgraphs that are drawn: their names begin with "cluster".
    struct Cluster
    {
        QByteArray name;
        int parent; // stands ahead of it; -1 for none
        Values values;
    };

    QByteArray name;
    bool isDirected = true;
    Values values;
    QList<Node> nodes;
    QList<Edge> edges;
    QList<Cluster> clusters;
    qint64 restLine = 0; // on which more than a comment stands behind the graph; 0 if there is none
};

// The first graph of a text, or what is wrong with it. `wanted` are the names of the attributes
// that are taken. What would make the library run out of its stack or of memory is a fault of its
// own: subgraphs and HTML nested too deep, and sets of edges without bounds. The library keeps
// state of its own: one thread at a time, and none after a graph that took too much memory.
std::optional<ForeignGraph> readForeignGraph(const QByteArray &text, const std::string &source,
                                             const QList<QByteArray> &wanted,
                                             std::optional<ImportFault> *fault);

} // namespace ORR::Companion
