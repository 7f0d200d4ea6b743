#pragma once

#include <QByteArray>

#include <csignal>

namespace ORR::Graph {

// As long as it lives, a file that is not finished yet is known to the process, so that a signal
// that ends the process removes it. Only a few can be known at a time; one more is not.
class UnfinishedFile
{
public:
    UnfinishedFile() = default;
    // name: in the folder behind the descriptor, which has to stay open; a whole path needs no
    // folder. The file need not be there yet.
    UnfinishedFile(int folder, const QByteArray &name);
    ~UnfinishedFile() { forget(); }
    UnfinishedFile(UnfinishedFile &&other) noexcept;
    UnfinishedFile &operator=(UnfinishedFile &&other) noexcept;

    // It is finished, or gone.
    void forget();

private:
    int slot = -1; // none
};

// Removes all files that are known. Can be called from a signal handler.
void removeUnfinishedFiles();

// From now on SIGINT, SIGTERM, SIGHUP and SIGXCPU remove those files before they end the process as
// ever. A signal that is ignored stays so.
void removeUnfinishedFilesOnSignals();

// As long as it lives those signals wait, for a file whose name is known only once it is there.
class HeldSignals
{
public:
    HeldSignals();
    ~HeldSignals();
    HeldSignals(const HeldSignals &) = delete;
    HeldSignals &operator=(const HeldSignals &) = delete;

private:
    sigset_t former = {};
};

} // namespace ORR::Graph
