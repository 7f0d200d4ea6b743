#include "companion/produce/drawn_size.h"

#include "drawing/job.h"
#include "graph/decimal.h"

namespace ORR::Companion {

namespace {

// The value of an attribute of the first element.
double valueIn(QByteArrayView head, QByteArrayView name)
{
    const qsizetype start = head.indexOf(name) + name.size();
    return Graph::numberFrom(head.sliced(start, head.indexOf('"', start) - start));
}

} // namespace

QSizeF drawnSize(const QByteArray &text, const QString &engine)
{
    QByteArray drawing;
    const Drawing::Job job = {.input = text, .engine = engine, .format = Drawing::Format::Svg};
    const Drawing::Outcome outcome =
        Drawing::draw(job, Drawing::inMemory(&drawing, Drawing::Format::Svg));
    if (outcome.fault != Drawing::Outcome::None)
        return {};
    const qsizetype start = drawing.indexOf("<svg");
    if (start < 0)
        return {};
    const QByteArrayView head = QByteArrayView(drawing).sliced(start);
    return {valueIn(head, "width=\""), valueIn(head, "height=\"")};
}

} // namespace ORR::Companion
