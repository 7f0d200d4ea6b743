#pragma once

#include "companion/findings/text_printer.h"
#include "output/files/descriptor.h"

#include <QByteArray>
#include <QString>

#include <sys/types.h>

namespace ORR::Companion {

// What is to be checked, and how the findings are to look.
struct CheckTask
{
    QByteArray bytes;
    QByteArray file; // the name of the input
    QString engine; // empty for the one that the text names, if it does
    TextForm form;
};

// The check of one text by a process of its own, since an input may keep it busy for ever, or make
// it crash. The process is a copy of this one, which therefore must have one thread, and must not
// have started the toolkit.
class CheckProcess
{
public:
    explicit CheckProcess(const CheckTask &task);
    // Ends the process at once if it is still there.
    ~CheckProcess();
    CheckProcess(const CheckProcess &) = delete;
    CheckProcess &operator=(const CheckProcess &) = delete;

    // To be waited for; -1 at the end.
    int descriptor() const { return answers.number(); }
    // Takes what has come, without waiting.
    void advance();

    bool isAtEnd() const { return !answers; }
    // At the end: the lines of the findings, as `findingsAsText` has them, or why there are none.
    const QByteArray &findings() const { return text; }
    const QByteArray &fault() const { return endFault; }

private:
    void bury();

    pid_t pid = -1;
    Graph::Descriptor answers;
    QByteArray text;
    QByteArray endFault;
};

} // namespace ORR::Companion
