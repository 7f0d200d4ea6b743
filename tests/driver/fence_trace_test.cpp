// The fence once more, from below: every call of the system that names a file, opens something or
// speaks to a network is written down by strace, for hostile texts and for harmless ones. What an
// input says must not make a difference.
#include "drawing/format_table.h"
#include "driver/hostile_texts.h"
#include "driver/program_run.h"
#include "support/golden.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

// What a text may name: a file that is there and one that is not, a device, a port nobody listens
// at.
const QStringList names{u"%1/bait.png"_s, u"%1/bait-that-is-not-there"_s, u"/dev/bait"_s,
                        u"/dev/zero"_s, u"http://127.0.0.1:9/bait.png"_s};

// Everything that names a file, opens one in another way, or speaks to a network.
const QString tracedCalls = u"%file,%network,?open_by_handle_at,?memfd_create,?io_uring_setup,"
                            "?pidfd_getfd,?fsopen,?bpf,?process_vm_readv"_s;

class FenceTrace : public ProgramTest
{
protected:
    void SetUp() override
    {
        writeFile(u"bait.png"_s, "x");
        const ProgramRun tried = traced({u"/bin/true"_s}, {});
        if (tried.status != 0)
            GTEST_SKIP() << "no process can be traced here, with status " << tried.status << ": "
                         << tried.errors.toStdString();
    }

    // The command, called by strace, which writes into "trace".
    ProgramRun traced(const QStringList &command, const QByteArray &input,
                      const QList<QPair<QString, QString>> &environment = {}) const
    {
        const QStringList options{u"-f"_s,
                                  u"-s"_s,
                                  u"4096"_s,
                                  u"-e"_s,
                                  u"signal=none"_s,
                                  u"-e"_s,
                                  u"trace="_s + tracedCalls,
                                  u"-o"_s,
                                  path(u"trace"_s)};
        // The leak checker of the sanitizers can't work in a process that is traced.
        return run({.arguments = options + command,
                    .input = input,
                    .environment = environment
                        + QList<QPair<QString, QString>>{{u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s}},
                    .command = u"strace"_s});
    }

    // The calls of drawing this, each once, without what differs from run to run: the number of
    // the process, addresses, times and the name of the temporary file.
    QSet<QByteArray> callsOf(const QStringList &arguments, const QByteArray &input,
                             const QList<QPair<QString, QString>> &environment = {}) const
    {
        QFile::remove(path(arguments.constLast()));
        const ProgramRun drawn =
            traced(QStringList(QStringLiteral(ORR_PROGRAM)) + arguments, input, environment);
        EXPECT_EQ(drawn.status, 0) << drawn.errors.toStdString();
        static const QRegularExpression varying(
            u"^[0-9]+ +|\\b0x[0-9a-f]+\\b|st_[a-z]+=[^,}]*|/proc/[0-9]+|= [0-9]+$|"
            "(?<=\\.orrlayout-)[0-9a-z]+"_s);
        QSet<QByteArray> calls;
        const QByteArrayList lines = fileContent(u"trace"_s).split('\n');
        for (const QByteArray &line : lines)
            calls.insert(QString::fromUtf8(line).remove(varying).toUtf8());
        return calls;
    }

    QStringList everyText() const
    {
        QStringList texts;
        for (const QString &name : names) {
            for (const QString &text : hostileTexts)
                texts += QString(text).replace(u"%1"_s, QString(name).replace(u"%1"_s, path({})));
        }
        return texts;
    }

    // Rich, in the one font that the hostile texts need.
    static QStringList harmlessTexts()
    {
        return {u"a<ul><li>b</ul><table border=1><tr><td>c</table>"_s,
                u"<img src='data:image/png;base64,AAAA'>"_s};
    }
};

// But for what the C library asks of its cache of the machine's users in every run.
bool isOfNetwork(const QByteArray &call)
{
    if (call.startsWith("socket(AF_UNIX,") || call.contains("\"/var/run/nscd/socket\""))
        return false;
    for (const char *name : {"socket", "connect", "bind(", "send", "recv", "accept", "listen("}) {
        if (call.startsWith(name))
            return true;
    }
    return false;
}

void expectNoBait(const QSet<QByteArray> &calls)
{
    EXPECT_GT(calls.size(), 100) << "a start alone takes as many";
    for (const QByteArray &call : calls) {
        EXPECT_FALSE(call.contains("bait")) << call.toStdString();
        EXPECT_FALSE(call.contains("/dev/zero")) << call.toStdString();
        EXPECT_FALSE(isOfNetwork(call)) << call.toStdString();
    }
}

void expectSame(const QSet<QByteArray> &hostile, const QSet<QByteArray> &harmless)
{
    for (const QByteArray &call : hostile - harmless)
        ADD_FAILURE() << "only with hostile texts: " << call.toStdString();
    for (const QByteArray &call : harmless - hostile)
        ADD_FAILURE() << "only with harmless texts: " << call.toStdString();
}

} // namespace

TEST_F(FenceTrace, sees_what_is_opened)
{
    writeFile(u"bait.dot"_s, smallGraph());
    const QSet<QByteArray> calls =
        callsOf({u"-K"_s, u"treemap"_s, path(u"bait.dot"_s), u"-o"_s, u"out.svg"_s}, {});
    QByteArray opened;
    for (const QByteArray &call : calls) {
        if (call.contains("bait.dot"))
            opened += call;
    }
    EXPECT_TRUE(opened.contains("openat(AT_FDCWD, \"" + path(u"bait.dot"_s).toUtf8()))
        << opened.toStdString();
}

TEST_F(FenceTrace, sees_what_speaks_to_a_network)
{
    const QString script = u": < /dev/tcp/127.0.0.1/9"_s;
    traced({u"/bin/bash"_s, u"-c"_s, script}, {});
    EXPECT_TRUE(fileContent(u"trace"_s).contains(" connect("))
        << fileContent(u"trace"_s).toStdString();
}

TEST_F(FenceTrace, rich_texts_make_no_difference_in_any_format)
{
    for (const QString &format : ORR::Drawing::formatNames()) {
        SCOPED_TRACE(format.toStdString());
        const QStringList arguments{u"-T"_s, format, u"-o"_s, u"out."_s + format};
        const QSet<QByteArray> hostile = callsOf(arguments, drawingOf(everyText(), "H"));
        expectNoBait(hostile);
        expectSame(hostile, callsOf(arguments, drawingOf(harmlessTexts(), "H")));
    }
}

TEST_F(FenceTrace, texts_that_are_read_as_html_make_no_difference_in_any_format)
{
    const QList<QPair<QString, QString>> html{{u"ORR_GVLAYOUT_USE_HTML"_s, u"1"_s}};
    for (const QString &format : ORR::Drawing::formatNames()) {
        SCOPED_TRACE(format.toStdString());
        const QStringList arguments{u"-T"_s, format, u"-o"_s, u"out."_s + format};
        const QSet<QByteArray> hostile = callsOf(arguments, drawingOf(everyText(), "T"), html);
        expectNoBait(hostile);
        expectSame(hostile, callsOf(arguments, drawingOf(harmlessTexts(), "T"), html));
    }
}

// The boxes that expand a node: an engine makes HTML of the value.
TEST_F(FenceTrace, the_html_of_an_engine_makes_no_difference_in_any_format)
{
    const auto tree = [](const QString &color) {
        const QByteArray value = QString(color).replace(u'"', u"\\\""_s).toUtf8();
        return "digraph { graph [expandcolor=\"" + value
            + "\"]; a [label=a shape=rectangle expander=true]; a -> b []; }";
    };
    const QString hostile = u"red'\"><img src='%1'><link rel=stylesheet href='%1'>"
                            "<table background='%1'><tr><td>x</table>"_s;
    for (const QString &format : ORR::Drawing::formatNames()) {
        SCOPED_TRACE(format.toStdString());
        const QStringList arguments{u"-K"_s, u"gftree"_s, u"-T"_s,
                                    format,  u"-o"_s,     u"out."_s + format};
        const QSet<QByteArray> harmless = callsOf(arguments, tree(u"red"_s));
        for (const QString &name : names) {
            const QString file = QString(name).replace(u"%1"_s, path({}));
            const QSet<QByteArray> calls =
                callsOf(arguments, tree(QString(hostile).replace(u"%1"_s, file)));
            expectNoBait(calls);
            expectSame(calls, harmless);
        }
    }
}
