#include "mutation/drawing_folder.h"

#include <QFile>

using namespace ORR;
using namespace Qt::StringLiterals;

QByteArray DrawingFolder::drawnFile(Drawing::Format format,
                                    const std::function<void(Graph::Device *)> &draw) const
{
    const Drawing::FormatRow &row = Drawing::formatRow(format);
    // A picture takes its format from the suffix.
    QFile file(folder.filePath("drawing."_L1 + row.name));
    const auto device = row.create({file.fileName(), QStringLiteral(ORR_HOME)});
    draw(device.get());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    file.remove();
    return bytes;
}
