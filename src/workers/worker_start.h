#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace ORR::Workers {

// A program that is to be a worker.
struct WorkerCall
{
    std::string program; // its file
    std::vector<std::string> arguments; // the first is the name by which it is called
    // Whether it gets nothing from this process but what it is told: it has a session of its own,
    // so that nothing that is typed at the terminal is for it, and none of the descriptors that
    // this process leaves to programs.
    bool isApart = false;
};

// What is had of a worker: the socket, and its standard error, a file in memory that keeps its last
// words. Both lie behind the standard streams and are closed when a program is called. Not owned.
struct WorkerDescriptors
{
    int socket = -1;
    int lastWords = -1;
};

void closeDescriptors(WorkerDescriptors *descriptors);

// Starts a worker: with the socket as its standard input, with nothing behind its standard output,
// and with signals as a program has them at its start, whatever this process does with its own.
// Gives 0, or the number of the system's error; then nothing is open.
int startWorker(const WorkerCall &call, WorkerDescriptors *descriptors, pid_t *process);

// The last line that a worker wrote to its standard error; printable.
std::string lastWords(int descriptor);

} // namespace ORR::Workers
