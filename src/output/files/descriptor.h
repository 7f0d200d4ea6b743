#pragma once

#include <QByteArrayView>

#include <utility>

namespace ORR::Graph {

// A file that the process holds open; it is closed with the object. Copies are not possible.
class Descriptor
{
public:
    Descriptor() = default;
    // Takes what the system's `open` gave, also -1 for a failure.
    explicit Descriptor(int opened) : descriptor(opened) { }
    ~Descriptor() { close(); }
    Descriptor(Descriptor &&other) noexcept : descriptor(std::exchange(other.descriptor, -1)) { }
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(descriptor, other.descriptor);
        return *this;
    }

    explicit operator bool() const { return descriptor != -1; }
    int number() const { return descriptor; } // -1 if nothing is open

    // False if the system tells only now that bytes have not arrived.
    bool close();

private:
    int descriptor = -1;
};

// Whether the call that has just failed is to be made again. Waits for the event (as `poll` names
// it) if the descriptor is one that does not block.
bool isWorthAnotherTry(int descriptor, short event);

// Writes all bytes to a descriptor, also a non-blocking one. False if not all of them arrived.
bool writeToEnd(int descriptor, QByteArrayView bytes);

} // namespace ORR::Graph
