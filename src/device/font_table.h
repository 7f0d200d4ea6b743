#pragma once

#include <QByteArray>
#include <QtEndian>

namespace ORR::Graph {

// The numbers of one table of a font file, which stand with their highest byte first. Those beyond
// the end of the table are 0, and make it a broken one.
class FontTable
{
public:
    explicit FontTable(const QByteArray &table) : bytes(table) { }

    bool isMissing() const { return bytes.isEmpty(); }
    bool isBroken() const { return broken; }
    // Also for what can't be understood.
    void setBroken() { broken = true; }

    int shortAt(qint64 position) { return number<quint16>(position); }
    qint64 longAt(qint64 position) { return number<quint32>(position); }

private:
    template <typename Number>
    Number number(qint64 position)
    {
        if (position < 0 || position > bytes.size() - qint64(sizeof(Number))) {
            broken = true;
            return 0;
        }
        return qFromBigEndian<Number>(bytes.constData() + position);
    }

    QByteArray bytes;
    bool broken = false;
};

} // namespace ORR::Graph
