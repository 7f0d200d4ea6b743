#include "output/files/unfinished_file.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <climits>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace ORR::Graph {

namespace {

// A signal handler finds only what has a fixed place, and may not wait for anybody.
struct Slot
{
    enum class State { Free, Filling, Known };

    std::atomic<State> state = State::Free;
    int folder = AT_FDCWD;
    std::array<char, PATH_MAX> name = {};
};

static_assert(std::atomic<Slot::State>::is_always_lock_free);

constexpr std::array endingSignals{SIGINT, SIGTERM, SIGHUP};

std::array<Slot, 8> &slots()
{
    static constinit std::array<Slot, 8> all;
    return all;
}

void removeAndEnd(int signal)
{
    removeUnfinishedFiles();
    // It is held back until this function returns, and then finds no handler any more.
    ::raise(signal);
}

} // namespace

UnfinishedFile::UnfinishedFile(int folder, const QByteArray &name)
{
    for (size_t i = 0; i < slots().size() && name.size() < PATH_MAX; ++i) {
        Slot &free = slots().at(i);
        Slot::State expected = Slot::State::Free;
        if (!free.state.compare_exchange_strong(expected, Slot::State::Filling))
            continue;
        free.folder = folder;
        std::fill(std::copy(name.cbegin(), name.cend(), free.name.begin()), free.name.end(), '\0');
        free.state = Slot::State::Known;
        slot = static_cast<int>(i);
        return;
    }
}

UnfinishedFile::UnfinishedFile(UnfinishedFile &&other) noexcept
    : slot(std::exchange(other.slot, -1))
{
}

UnfinishedFile &UnfinishedFile::operator=(UnfinishedFile &&other) noexcept
{
    std::swap(slot, other.slot);
    return *this;
}

void UnfinishedFile::forget()
{
    if (slot != -1)
        slots().at(static_cast<size_t>(std::exchange(slot, -1))).state = Slot::State::Free;
}

void removeUnfinishedFiles()
{
    for (const Slot &slot : slots()) {
        if (slot.state == Slot::State::Known)
            ::unlinkat(slot.folder, slot.name.data(), 0);
    }
}

void removeUnfinishedFilesOnSignals()
{
    for (const int signal : endingSignals) {
        struct sigaction action = {};
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
            continue;
        action = {};
        action.sa_handler = removeAndEnd;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        ::sigaction(signal, &action, nullptr);
    }
}

HeldSignals::HeldSignals()
{
    sigset_t held;
    ::sigemptyset(&held);
    for (const int signal : endingSignals)
        ::sigaddset(&held, signal);
    ::pthread_sigmask(SIG_BLOCK, &held, &former);
}

HeldSignals::~HeldSignals()
{
    ::pthread_sigmask(SIG_SETMASK, &former, nullptr);
}

} // namespace ORR::Graph
