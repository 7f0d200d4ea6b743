#include "import/imported.h"

#include "companion/produce/drawn_size.h"

#include <QFile>

#include <algorithm>
#include <random>

using namespace ORR::Companion;

std::string importData(const char *name)
{
    return std::string(ORR_TEST_FOLDER "/data/") + name;
}

QByteArray importDataBytes(const char *name)
{
    QFile file(QString::fromStdString(importData(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

ImportResult importedFile(const char *format, const char *name, const ImportOptions &options)
{
    std::vector<ImportSource> sources;
    sources.emplace_back(importData(name));
    return importFormat(QString::fromLatin1(format))->read(sources, options);
}

ImportResult importedBytes(const char *format, const QByteArray &bytes,
                           const ImportOptions &options)
{
    std::vector<ImportSource> sources;
    sources.emplace_back("in", bytes);
    return importFormat(QString::fromLatin1(format))->read(sources, options);
}

QByteArray faultOf(const ImportResult &result)
{
    return result.fault ? result.fault->sentence.toUtf8() : QByteArray();
}

DrawnImport drawnImport(const Picture &picture, const char *engine, double width, double height)
{
    const PictureRequest request{.engine = QString::fromLatin1(engine),
                                 .width = width,
                                 .height = height,
                                 .title = QStringLiteral("The title")};
    const WrittenGraph graph = picture.write(request);
    return {graph.text, graph.notes, drawnSize(graph.text, request.engine)};
}

int readBrokenImports(const char *format, const char *engine, const QByteArray &whole)
{
    QByteArrayList inputs;
    for (qsizetype end = 0; end < whole.size(); end += 7)
        inputs.append(whole.first(end));
    std::mt19937 random(17);
    for (int i = 0; i < 50; ++i) {
        QByteArray bytes(400, '\0');
        std::generate(bytes.begin(), bytes.end(), [&] { return char(random()); });
        inputs.append(bytes);
        QByteArray changed = whole;
        changed[qsizetype(random() % size_t(whole.size()))] = char(random());
        inputs.append(changed);
    }
    for (const char *number : {"-1", "1e999", "-1e999", "NaN", "99999999999999999999"}) {
        QByteArray changed = whole;
        for (qsizetype i = changed.size() - 1; i >= 0; --i) {
            if (changed[i] >= '0' && changed[i] <= '9')
                changed.replace(i, 1, number);
        }
        inputs.append(changed);
    }
    int faults = 0;
    int pictures = 0;
    for (const QByteArray &input : std::as_const(inputs)) {
        const ImportResult result = importedBytes(format, input);
        faults += result.fault ? 1 : 0;
        // Drawing takes its time: some of them.
        if (result.picture && ++pictures % 40 == 1)
            drawnImport(*result.picture, engine);
    }
    return faults;
}
