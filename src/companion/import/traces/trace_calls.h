#pragma once

#include "companion/import/traces/trace_tree.h"
#include "companion/produce/picture.h"
#include "companion/produce/sequence.h"

namespace ORR::Companion {

// Spans as calls between services in the order of time. The same call several times in a row is
// drawn once, with how often; of more calls than fit, the deepest ones are left out and counted.
class TraceCalls : public Picture
{
public:
    explicit TraceCalls(TraceTree spans);

    WrittenGraph write(const PictureRequest &request) const override;

    // At most so many calls, one at least.
    Sequence sequence(int most, QStringList *notes) const;

private:
    TraceTree tree;
};

// "340 ms", "1.25 s", "85 µs".
QString durationText(qint64 nanoseconds);

} // namespace ORR::Companion
