#include "companion/import/sequences/mermaid_import.h"

#include "companion/import/sequences/mermaid_reader.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

int likenessOfMermaid(QByteArrayView beginning)
{
    const QByteArray text = beginning.toByteArray();
    for (qsizetype at = text.indexOf("sequenceDiagram"); at >= 0;
         at = text.indexOf("sequenceDiagram", at + 1)) {
        const QByteArrayView before = QByteArrayView(text).first(at);
        const qsizetype line = before.lastIndexOf('\n') + 1;
        // A style of another language may be called so, too.
        const QByteArrayView behind = QByteArrayView(text).sliced(at + 15).trimmed();
        if (before.sliced(line).trimmed().isEmpty() && !behind.startsWith('{'))
            return before.trimmed().isEmpty() ? 100 : 90;
    }
    return 0;
}

ImportResult readMermaid(std::vector<ImportSource> &sources, const ImportOptions & /*options*/)
{
    if (sources.size() > 1)
        return {.fault = ImportFault{{.source = sources[1].name()},
                                     u"a drawing has one diagram: give one file"_s}};
    return MermaidReader().read(&sources.front());
}

} // namespace ORR::Companion
