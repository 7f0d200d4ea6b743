#include "driver/program_run.h"

#include "support/golden.h"

#include <QDir>
#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

constexpr int timeLimit = 120'000; // milliseconds; far more than any run takes

testing::AssertionResult unlike(const ProgramRun &run, const QByteArray &expected)
{
    return testing::AssertionFailure()
        << "status " << run.status << ", " << run.output.size() << " bytes written\n  expected: \""
        << expected.toStdString() << "\"\n  on standard error: \"" << run.errors.toStdString()
        << '"';
}

} // namespace

ProgramRun ProgramTest::run(const ProgramCall &call) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"FONTCONFIG_FILE"_s, QStringLiteral(ORR_TEST_FONTS));
    environment.insert(u"TMPDIR"_s, folder.path());
    for (const auto &[name, value] : call.environment) {
        if (value.isNull())
            environment.remove(name);
        else
            environment.insert(name, value);
    }
    QProcess program;
    program.setProcessEnvironment(environment);
    program.setWorkingDirectory(folder.path());
    if (call.before)
        program.setChildProcessModifier(call.before);
    program.start(call.command.isEmpty() ? QStringLiteral(ORR_PROGRAM) : call.command,
                  call.arguments);
    program.write(call.input);
    program.closeWriteChannel();

    ProgramRun result;
    if (program.waitForFinished(timeLimit) && program.exitStatus() == QProcess::NormalExit)
        result.status = program.exitCode();
    result.output = program.readAllStandardOutput();
    result.errors = program.readAllStandardError();
    return result;
}

ProgramRun ProgramTest::draw(const QByteArray &graph, const QString &format,
                             const QString &engine) const
{
    return run({.arguments = {u"-K"_s, engine, u"-T"_s, format}, .input = graph});
}

void ProgramTest::writeFile(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray ProgramTest::fileContent(const QString &name) const
{
    return readTestFile(path(name));
}

QStringList ProgramTest::files() const
{
    return QDir(folder.path()).entryList(QDir::Files | QDir::System, QDir::Name);
}

QByteArray ProgramTest::helpText() const
{
    return run({.arguments = {u"-h"_s}}).output;
}

testing::AssertionResult succeeded(const ProgramRun &run)
{
    return run.status == 0 && run.errors.isEmpty() ? testing::AssertionSuccess() : unlike(run, {});
}

testing::AssertionResult failedWith(const ProgramRun &run, const QByteArray &message)
{
    return run.status == 1 && run.errors == message && run.output.isEmpty()
        ? testing::AssertionSuccess()
        : unlike(run, message);
}

QByteArray smallGraph()
{
    return "digraph { a [label=\"Alpha\" area=3]; b [label=\"Beta\" area=1]; a -> b; }";
}
