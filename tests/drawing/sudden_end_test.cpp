#include "drawing/sudden_end.h"

#include "output/output_file.h"
#include "support/golden.h"

#include <QDir>
#include <QTemporaryDir>

#include <csignal>
#include <cstdlib>
#include <new>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

// Ends the process in some way while a file is written.
template <typename End>
void endWithFile(const QTemporaryDir &folder, End end)
{
    Drawing::prepareForSuddenEnd();
    Graph::OutputFile file(folder.filePath(u"a"_s));
    if (!file.write("half"))
        std::_Exit(99);
    end();
    std::_Exit(98);
}

template <typename Thrown>
void throwAway(Thrown thrown)
{
    throw thrown;
}

QStringList files(const QTemporaryDir &folder)
{
    return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden);
}

} // namespace

TEST(SuddenEndDeathTest, memory_that_nobody_catches_is_told)
{
    const QTemporaryDir folder;
    EXPECT_EXIT(endWithFile(folder, []() noexcept { throwAway(std::bad_alloc()); }),
                testing::ExitedWithCode(EXIT_FAILURE), "^Out of memory\n$");
    EXPECT_EQ(files(folder), QStringList());
}

TEST(SuddenEndDeathTest, anything_else_that_nobody_catches_is_a_crash)
{
    const QTemporaryDir folder;
    EXPECT_EXIT(endWithFile(folder, []() noexcept { throwAway(1); }),
                testing::KilledBySignal(SIGABRT), "throwing an instance of 'int'");
    EXPECT_EQ(files(folder), QStringList());
}

TEST(SuddenEndDeathTest, crash_stays_one_and_leaves_no_file)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer has its own way to tell";
#endif
    for (const int signal : {SIGSEGV, SIGBUS, SIGABRT}) {
        const QTemporaryDir folder;
        EXPECT_EXIT(endWithFile(folder, [=] { std::raise(signal); }),
                    testing::KilledBySignal(signal), "^$");
        EXPECT_EQ(files(folder), QStringList()) << signal;
    }
}

TEST(SuddenEndDeathTest, signals_end_the_process_and_leave_no_file)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGXCPU}) {
        const QTemporaryDir folder;
        EXPECT_EXIT(endWithFile(folder, [=] { std::raise(signal); }),
                    testing::KilledBySignal(signal), "^$");
        EXPECT_EQ(files(folder), QStringList()) << signal;
    }
}
