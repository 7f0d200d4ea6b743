#pragma once

#include "companion/import/reading/import_source.h"
#include "companion/produce/weight_tree.h"

#include <QList>
#include <QStringList>

#include <optional>
#include <utility>

namespace ORR::Companion {

struct TraceEvent;

// What compilations spent their time on, as -ftime-trace of clang 9 and later tells it (tried with
// 14; in the Trace Event Format, see trace_events.h): a tree of events within
// each other with the seconds of each beside those within it, or those of each kind of event.
class CompileTrace
{
public:
    explicit CompileTrace(bool isByKind) : byKind(isByKind) { }

    static bool looksLike(QByteArrayView beginning);

    // Adds all events of a trace, below a thing of that name if it has one.
    std::optional<ImportFault> read(ImportSource *source, const QByteArray &below);

    WeightTree takeTree() { return std::exchange(tree, {}); }

private:
    WeightTree::Item itemOf(const TraceEvent &event, WeightTree::Item parent, int kind);
    void addEvents(const QList<TraceEvent> &events, WeightTree::Item top);

    bool byKind;
    WeightTree tree;
};

// The kinds of the things in its tree, by their numbers.
QStringList compileKinds();

} // namespace ORR::Companion
