// The process around the library: its application object, its state, its threads and children.
#include "library_calls.h"

#include <QApplication>
#include <QFont>
#include <QLocale>
#include <QPalette>
#include <QProcess>
#include <QStyleFactory>

#include <atomic>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <fstream>
#include <iterator>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const std::string lettered = "digraph { a [area=3 label=\"<p>Alpha<b> 1.5</b></p>\" htmllabels=on "
                             "fontname=\"Nothing of that name\"]; b [area=1]; }";

std::string environmentText()
{
    std::string text;
    for (char **entry = environ; *entry; ++entry)
        text += *entry + std::string("\n");
    return text;
}

// What the system says of a process in a line of its status.
std::string statusLine(pid_t process, const std::string &name)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name + ':'))
            return line.substr(name.size() + 1);
    }
    ADD_FAILURE() << name;
    return {};
}

// A set of signals of a process: "SigBlk" those blocked, "SigIgn" ignored, "SigCgt" handled.
unsigned long long signalsOf(pid_t process, const std::string &set)
{
    return std::stoull("0" + statusLine(process, set).substr(1), nullptr, 16);
}

// What would show if the library took something over.
std::string processState()
{
    std::string text;
    for (const char *const name : {"Threads", "SigBlk", "SigIgn", "SigCgt"})
        text += statusLine(::getpid(), name);
    return text;
}

int drawsInChild()
{
    return drawn(smallGraph, "treemap").status;
}

} // namespace

TEST(Host, with_an_application_of_its_own_keeps_it_and_gets_the_same_drawing)
{
    ASSERT_TRUE(qobject_cast<QApplication *>(QCoreApplication::instance()));
    const std::string before = drawn(lettered, "treemap", "png").drawing;
    ASSERT_FALSE(before.empty());

    const QFont formerFont = QApplication::font();
    const QPalette formerPalette = QApplication::palette();
    QApplication::setFont(QFont(u"DejaVu Serif"_s, 31, QFont::Bold));
    QApplication::setPalette(QPalette(Qt::yellow, Qt::black));
    QApplication::setStyle(QStyleFactory::create(u"Windows"_s));
    QApplication::setLayoutDirection(Qt::RightToLeft);
    QLocale::setDefault(QLocale(QLocale::Arabic));
    qputenv("QT_SCALE_FACTOR", "3"); // meets the next worker
    qputenv("QT_FONT_DPI", "300");
    qputenv("QT_HASH_SEED", "1");
    killWorkers();
    EXPECT_TRUE(drawn(lettered, "treemap", "png").drawing == before);

    EXPECT_EQ(QApplication::font().pointSize(), 31);
    EXPECT_EQ(QLocale().language(), QLocale::Arabic);
    EXPECT_EQ(qgetenv("QT_FONT_DPI"), "300");
    qunsetenv("QT_SCALE_FACTOR");
    qputenv("QT_FONT_DPI", "72");
    qunsetenv("QT_HASH_SEED");
    QLocale::setDefault(QLocale::c());
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QApplication::setPalette(formerPalette);
    QApplication::setFont(formerFont);
}

TEST(Host, keeps_its_environment_locale_signals_threads_and_has_no_child)
{
    const std::string environmentBefore = environmentText();
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    const std::string state = processState();
    ASSERT_EQ(drawn(smallGraph, "treemap").status, ORRLAYOUT_OK);
    EXPECT_EQ(environmentText(), environmentBefore);
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), locale);
    EXPECT_EQ(processState(), state);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST(Host, hears_nothing_of_the_library_on_its_streams)
{
    const QByteArray damaged = "digraph { a [area=1 htmllabels=on label=\"<img "
                               "src='data:image/png;base64,iVBORw0KGgoAAAANSUhEUg=='>\"]; }";
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const Drawn result = drawn(damaged.toStdString(), "treemap");
    drawn("digraph {", "treemap");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(result.message, "");
}

TEST(Host, that_forks_draws_in_parent_and_child)
{
    ASSERT_EQ(drawn(smallGraph, "treemap").status, ORRLAYOUT_OK);
    EXPECT_EQ(inChild(drawsInChild), ORRLAYOUT_OK);
    EXPECT_EQ(inChild([] { return inChild(drawsInChild); }), ORRLAYOUT_OK);
    EXPECT_EQ(drawn(smallGraph, "treemap").status, ORRLAYOUT_OK);
}

TEST(Host, that_forks_while_others_draw_draws_in_parent_and_child)
{
    std::atomic<bool> isOver = false;
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            while (!isOver)
                failures += drawn(smallGraph, "treemap").status != ORRLAYOUT_OK;
        });
    }
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(inChild(drawsInChild), ORRLAYOUT_OK);
    isOver = true;
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
}

TEST(Host, that_ends_takes_its_workers_along)
{
    killWorkers();
    EXPECT_EQ(inChild([] {
                  drawsInChild();
                  return static_cast<int>(workers().size());
              }),
              1);
    EXPECT_EQ(workersOnce(0).size(), 0U);
}

TEST(Host, whose_worker_is_killed_gets_another_one)
{
    ASSERT_EQ(drawn(smallGraph, "treemap").status, ORRLAYOUT_OK);
    killWorkers();
    EXPECT_EQ(drawn(smallGraph, "treemap").status, ORRLAYOUT_OK);
}

TEST(Host, is_told_when_the_worker_is_killed_while_it_draws)
{
    std::string large = "digraph {";
    for (int i = 0; i < 400000; ++i)
        large += "n" + std::to_string(i) + " [area=1];";
    large += "}";
    std::atomic<bool> isOver = false;
    std::thread killer([&] {
        while (!isOver) {
            for (const pid_t worker : workers())
                ::kill(worker, SIGKILL);
        }
    });
    const Drawn result = drawn(large, "treemap");
    isOver = true;
    killer.join();
    EXPECT_TRUE(result.status == ORRLAYOUT_CRASHED || result.status == ORRLAYOUT_NOT_STARTED)
        << result.status << result.message;
    EXPECT_EQ(drawn(smallGraph, "treemap").status, ORRLAYOUT_OK);
}

TEST(Host, without_standard_streams_draws)
{
    EXPECT_EQ(inChild([] {
                  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
                      ::close(stream);
                  const int status = drawsInChild();
                  // Nor has the library put anything there.
                  return ::fcntl(STDERR_FILENO, F_GETFD) == -1 ? status : 100;
              }),
              ORRLAYOUT_OK);
}

TEST(Host, that_ignores_and_blocks_signals_has_workers_that_do_not)
{
    killWorkers();
    EXPECT_EQ(inChild([] {
                  sigset_t all;
                  ::sigfillset(&all);
                  ::sigprocmask(SIG_BLOCK, &all, nullptr);
                  for (const int signal : {SIGCHLD, SIGPIPE, SIGTERM, SIGINT, SIGUSR1})
                      std::signal(signal, SIG_IGN);
                  if (drawsInChild() != ORRLAYOUT_OK || workers().size() != 1)
                      return 1;
                  const pid_t worker = workers().front();
                  const bool isLikeAtStart = signalsOf(worker, "SigBlk") == 0
                      && (signalsOf(worker, "SigIgn") & (1U << (SIGUSR1 - 1))) == 0;
                  const bool isAsBefore = signalsOf(::getpid(), "SigBlk") != 0
                      && (signalsOf(::getpid(), "SigIgn") & (1U << (SIGUSR1 - 1))) != 0;
                  return isLikeAtStart && isAsBefore ? 0 : 2;
              }),
              0);
}

TEST(Host, has_no_descriptor_open_in_a_worker)
{
    EXPECT_EQ(inChild([] {
                  int ends[2];
                  if (::pipe(ends) != 0 || drawsInChild() != ORRLAYOUT_OK)
                      return 1;
                  ::close(ends[1]);
                  pollfd state = {ends[0], POLLIN, 0}; // hears when the last writer is gone
                  return ::poll(&state, 1, 0) == 1 && (state.revents & POLLHUP) ? 0 : 2;
              }),
              0);
}

TEST(Host, without_descriptors_is_told)
{
    EXPECT_EQ(inChild([] {
                  const rlimit none = {3, 3};
                  ::setrlimit(RLIMIT_NOFILE, &none);
                  return drawsInChild();
              }),
              ORRLAYOUT_NOT_STARTED);
}

TEST(Host, whose_fonts_can_not_be_found_is_told_why)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP()
        << "a worker that ends at its start has leaks, and what is said of them comes last";
#endif
    EXPECT_EQ(inChild([] {
                  ::setenv("FONTCONFIG_FILE", "/nowhere", 1);
                  const Drawn result = drawn(smallGraph, "treemap");
                  const bool isTold = result.message
                      == "the worker did not start: Unable to read the configuration of the fonts";
                  return isTold ? static_cast<int>(result.status) : 100;
              }),
              ORRLAYOUT_NOT_STARTED);
}

#ifndef __SANITIZE_ADDRESS__
TEST(Host, of_little_memory_is_told)
{
    EXPECT_EQ(inChild([] {
                  std::string large = "digraph {";
                  for (int i = 0; i < 1000000; ++i)
                      large += "n" + std::to_string(i) + " [area=1];";
                  large += "}";
                  const rlim_t room = rlim_t(400) * 1024 * 1024;
                  const rlimit limit = {room, room};
                  ::setrlimit(RLIMIT_AS, &limit);
                  return static_cast<int>(drawn(large, "treemap").status);
              }),
              ORRLAYOUT_OUT_OF_MEMORY);
}
#endif

TEST(Host, can_unload_the_library)
{
    killWorkers();
    QProcess host;
    host.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    host.setWorkingDirectory(QStringLiteral(ORR_LIBRARY).section(u'/', 0, -2));
    host.start(QStringLiteral(ORR_UNLOADING_HOST),
               {"./"_L1 + QStringLiteral(ORR_LIBRARY).section(u'/', -1)});
    ASSERT_TRUE(host.waitForFinished(60000));
    EXPECT_EQ(host.exitCode(), 0);
    EXPECT_EQ(workersOnce(0).size(), 0U);
}
