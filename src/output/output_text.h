#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QFile>
#include <QString>

#include <memory>

namespace ORR::Graph {

// The text of an output file, written piece by piece and handed on in large blocks, so that a
// drawing of any size takes no memory to speak of. Everything is UTF-8. After a write that failed
// the rest is dropped.
class OutputText
{
public:
    // To a file, in place of what stood there.
    explicit OutputText(const QString &fileName);
    // To memory, in place of what stood there. The buffer is not owned and is complete after
    // `flush`.
    explicit OutputText(QByteArray *buffer);
    // Hands on what is still held.
    ~OutputText();
    OutputText(const OutputText &) = delete;
    OutputText &operator=(const OutputText &) = delete;

    // Whether there is anything to write to. If not, what is written is dropped.
    bool isOpen() const { return file || buffer; }

    OutputText &operator<<(QByteArrayView text);
    OutputText &operator<<(int value);
    OutputText &operator<<(double value); // as `numberText`

    // Hands on everything written so far. False if any of it has not arrived.
    bool flush();

private:
    void handOnIfLarge();

    std::unique_ptr<QFile> file;
    QByteArray *buffer = nullptr;
    QByteArray pending;
    bool failed = false;
};

} // namespace ORR::Graph
