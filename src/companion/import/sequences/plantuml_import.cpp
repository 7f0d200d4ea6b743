#include "companion/import/sequences/plantuml_import.h"

#include "companion/import/sequences/plantuml_reader.h"

namespace ORR::Companion {

int likenessOfPlantuml(QByteArrayView beginning)
{
    const QByteArray text = beginning.toByteArray();
    const qsizetype start = text.indexOf("@startuml");
    if (start < 0)
        return 0;
    const QByteArrayView before = QByteArrayView(text).first(start);
    const bool isOwnLine = before.sliced(before.lastIndexOf('\n') + 1).trimmed().isEmpty();
    if (!isOwnLine)
        return 0;
    return before.trimmed().isEmpty() ? 100 : 90;
}

ImportResult readPlantuml(std::vector<ImportSource> &sources, const ImportOptions & /*options*/)
{
    if (sources.size() > 1)
        return {.fault = ImportFault{{.source = sources[1].name()},
                                     QStringLiteral("a drawing has one diagram: give one file")}};
    return PlantumlReader().read(&sources.front());
}

} // namespace ORR::Companion
