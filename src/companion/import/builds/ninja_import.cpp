#include "companion/import/builds/ninja_import.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/builds/build_log.h"
#include "companion/import/builds/compile_trace.h"
#include "companion/import/builds/object_path.h"
#include "companion/import/trees/tree_result.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// What bars are of: the folder of an output, or the output itself.
QByteArray barOf(const QByteArray &output, bool isByOutput)
{
    const qsizetype slash = output.lastIndexOf('/');
    return isByOutput ? output : slash < 0 ? QByteArray(".") : output.first(slash);
}

WeightTree treeOf(const BuildLog &log, const ImportOptions &options)
{
    WeightTree tree;
    const bool isFlat = options.engine == "bar"_L1;
    log.visitSteps([&](const QByteArray &output, double milliseconds) {
        const QByteArray path = readableOutput(output);
        const WeightTree::Item item = isFlat
            ? tree.child(WeightTree::root, barOf(path, options.by == "output"))
            : tree.at(path);
        tree.addWeight(item, milliseconds / 1000);
    });
    return tree;
}

ImportResult readLogs(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    if (!options.by.empty() && options.by != "folder" && options.by != "output") {
        return {.fault = sources.front().faultHere(u"--by can be folder or output for a log, not "_s
                                                   + quotedText(QByteArrayView(options.by)))};
    }
    BuildLog log;
    QList<ImportFault> notes;
    for (ImportSource &source : sources) {
        if (std::optional<ImportFault> fault = log.read(&source, &notes))
            return {.fault = fault};
    }
    TreeMeaning meaning{.weight = u"build time"_s, .unit = TreeMeaning::Unit::Seconds};
    meaning.color = u"folder"_s;
    meaning.ownName = u"(linking)"_s; // of a program with the name of the folder of its objects
    ImportResult result =
        treeResult(treeOf(log, options), meaning, sources, u"no step in it took a time"_s);
    result.notes = notes;
    return result;
}

ImportResult readTraces(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    if (!options.by.empty())
        return {.fault = sources.front().faultHere(u"--by is for logs, and this is a trace"_s)};
    CompileTrace trace(options.engine == "bar"_L1);
    const bool areSeveral = sources.size() > 1;
    for (ImportSource &source : sources) {
        const QByteArray below = areSeveral ? QByteArray::fromStdString(source.name()) : "";
        if (std::optional<ImportFault> fault = trace.read(&source, below))
            return {.fault = fault};
    }
    TreeMeaning meaning{.weight = u"time"_s, .unit = TreeMeaning::Unit::Seconds};
    meaning.coloring = TreeMeaning::Coloring::ByKind;
    meaning.color = u"step of the compiler"_s;
    meaning.kinds = compileKinds();
    meaning.pathsAreFiles = false;
    meaning.rootName = areSeveral ? u"compilations"_s : u"compilation"_s;
    return treeResult(trace.takeTree(), meaning, sources, u"no event in it took a time"_s);
}

} // namespace

int likenessOfNinja(QByteArrayView beginning)
{
    return BuildLog::looksLike(beginning) || CompileTrace::looksLike(beginning) ? 100 : 0;
}

ImportResult readNinja(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    return CompileTrace::looksLike(sources.front().beginning()) ? readTraces(sources, options)
                                                                : readLogs(sources, options);
}

} // namespace ORR::Companion
