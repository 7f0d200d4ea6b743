#include "companion/import/import_output.h"

#include "companion/page/page_drawing.h"
#include "drawing/home_directory.h"
#include "drawing/job.h"

#include <cerrno>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

const QStringList textSuffixes{u"dot"_s, u"gv"_s};
const QStringList pageSuffixes{u"html"_s, u"htm"_s};

QString suffixOf(const std::string &output)
{
    const std::string suffix = std::filesystem::path(output).extension().native();
    return QString::fromStdString(suffix).mid(1).toLower();
}

std::optional<Drawing::Format> formatOf(const std::string &output)
{
    if (suffixOf(output) == u"xdot"_s) // for orrlayout that is ".dot", which is the graph here
        return Drawing::Format::XDot;
    return Drawing::chooseFromAllFormats({}, QString::fromStdString(output));
}

ImportedBytes drawn(const WrittenGraph &graph, const PictureRequest &request,
                    Drawing::Format format)
{
    Drawing::Job job = {.input = graph.text, .engine = request.engine, .format = format};
    job.homeDirectory =
        Drawing::findHome(Drawing::homeClues(QString::fromLocal8Bit(program_invocation_name)))
            .directory;
    ImportedBytes result;
    const Drawing::Outcome outcome = Drawing::draw(job, Drawing::inMemory(&result.bytes, format));
    if (outcome.fault == Drawing::Outcome::None)
        return result;
    return {{}, outcome.message.trimmed()};
}

} // namespace

ImportTarget importTarget(const std::string &output)
{
    const QString suffix = suffixOf(output);
    if (output == "-" || textSuffixes.contains(suffix))
        return ImportTarget::Text;
    if (pageSuffixes.contains(suffix))
        return ImportTarget::Page;
    return formatOf(output) ? ImportTarget::Drawing : ImportTarget::Unknown;
}

std::string importSuffixes()
{
    QStringList all = Drawing::allFormatNames();
    all.first() = u"xdot"_s;
    all += pageSuffixes.first();
    all += textSuffixes.first();
    return '.' + all.join(u", ."_s).toLower().toStdString();
}

ImportedBytes importedBytes(const WrittenGraph &graph, const PictureRequest &request,
                            const std::string &output)
{
    switch (importTarget(output)) {
    case ImportTarget::Text:
        return {graph.text, {}};
    case ImportTarget::Page: {
        const MadePage page = makePage({.input = graph.text,
                                        .engine = request.engine,
                                        .title = request.title,
                                        .fallbackTitle = u"Drawing"_s});
        return {page.document, page.fault};
    }
    case ImportTarget::Drawing:
        return drawn(graph, request, *formatOf(output));
    case ImportTarget::Unknown:
        break;
    }
    return {{}, u"nothing is written by that suffix"_s};
}

} // namespace ORR::Companion
