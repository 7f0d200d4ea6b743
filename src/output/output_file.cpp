#include "output/output_file.h"

#include <QFile>

namespace ORR::Graph {

bool writeOutputFile(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    if (fileName.isEmpty() || !file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    return file.write(bytes) == bytes.size() && file.flush();
}

} // namespace ORR::Graph
