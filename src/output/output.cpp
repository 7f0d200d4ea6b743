#include "output/output.h"

#include <utility>

namespace ORR::Graph {

Output::Output(const OutputTarget &target) : memory(target.memory)
{
    if (memory)
        memory->clear();
    else if (!target.isMemory)
        file.emplace(target.outputName);
}

Output::~Output()
{
    if (memory)
        memory->clear();
}

bool Output::write(QByteArrayView bytes)
{
    if (!memory)
        return file && file->write(bytes);
    memory->append(bytes);
    return true;
}

bool Output::commit()
{
    return std::exchange(memory, nullptr) || (file && file->commit());
}

bool writeOutput(const OutputTarget &target, QByteArrayView bytes)
{
    Output output(target);
    return output.write(bytes) && output.commit();
}

} // namespace ORR::Graph
