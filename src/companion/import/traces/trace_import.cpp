#include "companion/import/traces/trace_import.h"

#include "companion/import/traces/trace_calls.h"
#include "companion/produce/tree_picture.h"

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// The time that each service spent in its spans, or in each of them, and not waiting for others.
std::unique_ptr<Picture> timesByService(const TraceTree &tree, bool bySpan)
{
    WeightTree times;
    for (const int span : tree.inOrder()) {
        const TraceSpan &one = tree.spans()[span];
        const WeightTree::Item service = times.child(WeightTree::root, one.service.toUtf8());
        const WeightTree::Item item = bySpan ? times.child(service, one.name.toUtf8()) : service;
        times.addWeight(item, double(tree.ownTime(span)) * 1e-9);
    }
    const TreeMeaning meaning{.weight = u"own time"_s,
                              .unit = TreeMeaning::Unit::Seconds,
                              .color = u"service"_s,
                              .rootName = u"all services"_s};
    return std::make_unique<TreePicture>(std::move(times), meaning);
}

} // namespace

int likenessOfTrace(QByteArrayView beginning)
{
    const QByteArray text = beginning.toByteArray();
    if (!text.trimmed().startsWith('{') && !text.trimmed().startsWith('['))
        return 0;
    if (text.contains("\"resourceSpans\"") || text.contains("\"resource_spans\""))
        return 100;
    const bool isTempo = text.contains("\"batches\"") && text.contains("\"spans\"");
    if (isTempo)
        return 95;
    const bool isJaeger = text.contains("\"spanID\"") && text.contains("\"traceID\"");
    return isJaeger ? 95 : 0;
}

ImportResult readTrace(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    ImportResult result;
    QList<TraceSpan> spans;
    for (ImportSource &source : sources) {
        if (!readTraceSpans(&source, &spans, &result.notes, &result.fault))
            return result;
    }
    const ImportPlace place{.source = sources.front().name()};
    if (spans.isEmpty()) {
        result.fault = ImportFault{place, u"there are no spans"_s};
        return result;
    }
    TraceTree tree(std::move(spans));
    const qsizetype circling = tree.spans().size() - tree.inOrder().size();
    if (circling > 0) {
        result.notes.append({place,
                             u"%1 spans have each other as parents, in a circle, and are "
                             "left out"_s.arg(circling)});
    }
    if (tree.roots().isEmpty()) {
        result.fault = ImportFault{place, u"no span is the first one: all have parents"_s};
        return result;
    }
    if (options.engine == u"umlseq")
        result.picture = std::make_unique<TraceCalls>(std::move(tree));
    else
        result.picture = timesByService(tree, options.engine != u"bar");
    return result;
}

} // namespace ORR::Companion
