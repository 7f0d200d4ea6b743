#pragma once

#include "output/files/descriptor.h"

#include <QByteArray>

#include <deque>
#include <string>
#include <utility>

namespace ORR::Companion {

// The lines of a file of jobs, which may be a pipe that never ends.
class JobSource
{
public:
    // A line. One that is too long to be read has no text.
    struct Line
    {
        qint64 number = 0; // from 1
        QByteArray text;
    };
    static constexpr qsizetype longestLine = 1 << 20; // bytes

    // Opens the file; "-" is standard input. `fault` tells if that failed.
    explicit JobSource(const std::string &file);

    const std::string &fault() const { return openFault; }
    bool isRegularFile() const;
    int descriptor() const;
    bool isAtEnd() const { return hasEnded && lines.empty(); }
    bool hasLines() const { return !lines.empty(); }

    // Whether there is more to be read than what has been.
    bool wantsMore() const { return !hasEnded; }
    // Reads once, and waits for that.
    void read();
    // The next line; one must be there.
    Line next();
    // Puts lines back, all that were taken.
    void giveBack(std::deque<Line> taken) { lines = std::move(taken); }

private:
    void cutLines();
    void addLine(const QByteArray &text);

    Graph::Descriptor file;
    bool isStandardInput;
    std::string openFault;
    QByteArray bytes; // of a line that is not whole yet
    bool isTooLong = false; // that line is
    bool hasEnded = false;
    std::deque<Line> lines;
    qint64 count = 0;
};

} // namespace ORR::Companion
