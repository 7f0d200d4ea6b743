// How much a small input can make the program write: docs/security.md has the figures.
#include "driver/program_run.h"
#include "support/corpus.h"
#include "support/golden.h"

#include <algorithm>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

// An input of some 10 kB that makes much of little.
struct Hostile
{
    QString name;
    QString engine; // empty for a finished drawing
    QByteArray graph;
};

// What the largest output of a format is at most, as a multiple of the input.
double boundOf(Drawing::Format format)
{
    switch (format) {
    case Drawing::Format::XDot:
        return 200;
    case Drawing::Format::Jpg:
        return 100;
    case Drawing::Format::Png:
        return 30;
    case Drawing::Format::Svg:
        return 300;
    case Drawing::Format::Vsdx:
        return 8;
    case Drawing::Format::Vdx:
        return 400;
    case Drawing::Format::Pdf: // of `orr draw` alone, to which this program's options mean nothing
        break;
    }
    return 0;
}

Hostile finished(const QString &name, const QByteArray &ops, const QByteArray &box = "0,0,300,300")
{
    return {name,
            {},
            "digraph { graph [bb=\"" + box + "\" xdotversion=\"1.2\"];\na [_ldraw_=\"c 3 -red "
                + ops + "\"]; }"};
}

QByteArray counted(const QByteArray &text)
{
    return QByteArray::number(text.size()) + " -" + text;
}

Hostile laidOut(const QString &engine)
{
    QByteArray nodes;
    for (int i = 0; i < 2200; ++i)
        nodes += QByteArray::number(i) + ';';
    return {engine, engine, "digraph {" + nodes + '}'};
}

QList<Hostile> hostileInputs()
{
    const QByteArray gradient = "[0 0 9 9 64 " + QByteArray("0 1 -r ").repeated(64) + ']';
    const QByteArray family(5000, 'x');
    QList<Hostile> inputs{
        finished(u"many uses of a gradient"_s,
                 "C " + counted(gradient) + ' ' + QByteArray("E 9 9 9 9 ").repeated(900)),
        finished(u"many texts in a long family"_s,
                 "F 9 " + counted(family) + ' ' + QByteArray("T 1 1 0 1 1 -a ").repeated(330)),
        finished(u"many pieces of a rich text"_s,
                 "F 9 5 -Arial H 1 1 0 1 " + counted(QByteArray("a<b>b</b>").repeated(1100))),
        finished(u"many lines of a rich text"_s,
                 "F 9 5 -Arial H 1 1 0 1 " + counted(QByteArray("a<br>").repeated(1980))),
        finished(u"many shapes"_s, QByteArray("E 9 9 9 9 ").repeated(1000)),
        finished(u"a large page"_s, QByteArray("E 9 9 9 9 ").repeated(990), "0,0,7000,7000"),
    };
    for (const QString &engine : Drawing::layoutNames())
        inputs += laidOut(engine);
    return inputs;
}

class Amplification : public ProgramTest
{
protected:
    // The largest output of the table in a format, as a multiple of its input.
    double largestFactor(const QString &format) const
    {
        double largest = 0.0;
        for (const auto &[name, engine, graph] : hostileInputs()) {
            QStringList arguments{u"-T"_s, format};
            if (!engine.isEmpty())
                arguments += {u"-K"_s, engine};
            const ProgramRun drawn = run({.arguments = arguments, .input = graph});
            // What can't be drawn writes nothing.
            EXPECT_TRUE(drawn.status == 0 || drawn.output.isEmpty()) << name.toStdString();
            const double factor = double(drawn.output.size()) / double(graph.size());
            largest = std::max(largest, factor);
        }
        return largest;
    }
};

} // namespace

// Not less than half of it either, so that the figures mean something.
TEST_F(Amplification, stays_within_a_factor_in_each_format)
{
    for (const Drawing::Format index : allFormats()) {
        const QString format = Drawing::formatRow(index).name;
        const double most = boundOf(index);
        const double largest = largestFactor(format);
        EXPECT_LT(largest, most) << format.toStdString();
        EXPECT_GT(largest, most / 2) << format.toStdString();
    }
}
