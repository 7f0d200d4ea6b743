#include "support/corpus.h"

#include "support/golden.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <iterator>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

// The rows of a table by their positions.
template <typename Index, typename Table>
std::vector<Index> indicesOf(const Table &table)
{
    std::vector<Index> indices;
    for (std::size_t i = 0; i < table.size(); ++i)
        indices.push_back(static_cast<Index>(i));
    return indices;
}

std::vector<CorpusInput> inputsIn(const QDir &root)
{
    std::vector<CorpusInput> inputs;
    for (const Drawing::LayoutIndex layout : allLayouts()) {
        const QDir folder(root.filePath(Drawing::layoutRow(layout).name));
        for (const QString &file : folder.entryList({u"*.dot"_s}, QDir::Files, QDir::Name))
            inputs.push_back({layout, folder.filePath(file)});
    }
    return inputs;
}

} // namespace

std::vector<Drawing::LayoutIndex> allLayouts()
{
    return indicesOf<Drawing::LayoutIndex>(Drawing::layoutTable());
}

std::vector<Drawing::Format> allFormats()
{
    return indicesOf<Drawing::Format>(Drawing::formatTable());
}

std::vector<Drawing::Format> formatsOfBothTables()
{
    std::vector<Drawing::Format> formats = allFormats();
    for (std::size_t i = 0; i < Drawing::furtherFormatTable().size(); ++i)
        formats.push_back(static_cast<Drawing::Format>(formats.size()));
    return formats;
}

bool isPicture(Drawing::Format format)
{
    return format == Drawing::Format::Jpg || format == Drawing::Format::Png;
}

QString CorpusInput::engine() const
{
    return Drawing::layoutRow(layout).name;
}

QString CorpusInput::name() const
{
    return QFileInfo(file).completeBaseName();
}

QString CorpusInput::besideIt(const QString &suffix) const
{
    return QFileInfo(file).dir().filePath(name() + u'.' + suffix);
}

QByteArray CorpusInput::text() const
{
    return readTestFile(file);
}

std::vector<CorpusInput> drawingInputs()
{
    return inputsIn(drawingsFolder());
}

std::vector<CorpusInput> exampleInputs()
{
    return inputsIn(examplesFolder());
}

std::vector<CorpusInput> corpusInputs()
{
    std::vector<CorpusInput> inputs = drawingInputs();
    std::ranges::copy(exampleInputs(), std::back_inserter(inputs));
    return inputs;
}

std::vector<CorpusInput> inputsOf(Drawing::LayoutIndex layout,
                                  const std::vector<CorpusInput> &inputs)
{
    std::vector<CorpusInput> found;
    std::ranges::copy_if(inputs, std::back_inserter(found),
                         [&](const CorpusInput &input) { return input.layout == layout; });
    return found;
}

QString drawingsFolder()
{
    return QStringLiteral(ORR_PROJECT_FOLDER "/tests/drawings");
}

QString examplesFolder()
{
    return QStringLiteral(ORR_PROJECT_FOLDER "/examples");
}

QString goldenSuffix(Drawing::Format format)
{
    switch (format) {
    case Drawing::Format::XDot:
        return u"xdot"_s;
    case Drawing::Format::Jpg:
    case Drawing::Format::Png:
        return u"png"_s;
    case Drawing::Format::Svg:
        return u"svg"_s;
    case Drawing::Format::Vsdx:
        return u"vsdx.page1.xml"_s;
    case Drawing::Format::Vdx:
        return u"vdx"_s;
    case Drawing::Format::Pdf:
        return u"pdf"_s;
    }
    return {};
}

void PrintTo(const CorpusInput &input, std::ostream *out)
{
    *out << input.file.toStdString();
}

std::string nameOfInput(const testing::TestParamInfo<CorpusInput> &test)
{
    const CorpusInput &input = test.param;
    const bool isExample = input.file.startsWith(examplesFolder());
    const QString name = input.engine() + u'_' + input.name();
    return (isExample ? u"example_"_s + name : name).toStdString();
}

std::string nameOfLayout(const testing::TestParamInfo<Drawing::LayoutIndex> &test)
{
    return Drawing::layoutRow(test.param).name.data();
}
