// The parts of `orr watch`, each by itself.
#include "companion/watch/check_process.h"
#include "companion/watch/file_watcher.h"
#include "companion/watch/watch_messages.h"
#include "companion/watch/whole_file.h"
#include "support/golden.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

constexpr int longest = 20'000; // milliseconds

class WatchPartsTest : public testing::Test
{
protected:
    QByteArray name(const QString &file) const { return folder.filePath(file).toUtf8(); }

    void write(const QString &file, const QByteArray &bytes) const
    {
        QFile written(folder.filePath(file));
        ASSERT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(bytes);
    }

    QTemporaryDir folder;
};

class FileWatcherTest : public WatchPartsTest
{
protected:
    // Waits for an event of the file; the last of those that came.
    FileEvent nextEvent(qsizetype file)
    {
        for (;;) {
            std::vector<pollfd> polled;
            auto deadline = FileWatcher::Clock::now() + std::chrono::milliseconds(longest);
            watcher.watch(&polled, &deadline);
            if (::poll(polled.data(), polled.size(), longest) <= 0) {
                ADD_FAILURE() << "nothing happened";
                return {};
            }
            const QList<FileEvent> events = watcher.take();
            for (auto event = events.crbegin(); event != events.crend(); ++event) {
                if (event->file == file)
                    return *event;
            }
        }
    }

    FileWatcher watcher{false};
};

PlannedDrawing drawingTo(const QByteArray &output)
{
    return {.task = {.output = output}, .input = "a.dot"};
}

void finish(CheckProcess *check)
{
    while (!check->isAtEnd()) {
        pollfd polled{check->descriptor(), POLLIN, 0};
        ASSERT_EQ(::poll(&polled, 1, longest), 1);
        check->advance();
    }
}

} // namespace

TEST_F(WatchPartsTest, reads_whole_regular_files_only)
{
    write(u"a"_s, "some bytes");
    EXPECT_EQ(readWholeFile(name(u"a"_s)).bytes, "some bytes");
    EXPECT_TRUE(readWholeFile(name(u"a"_s)).isSteady);
    ASSERT_EQ(::mkfifo(name(u"pipe"_s).constData(), 0600), 0);
    EXPECT_EQ(readWholeFile(name(u"pipe"_s)).fault, "it is no regular file");
    EXPECT_EQ(readWholeFile(name(u"."_s)).fault, "Is a directory");
    EXPECT_EQ(readWholeFile(name(u"none"_s)).fault, "No such file or directory");
    EXPECT_FALSE(readWholeFile(name(u"none"_s)).bytes);
}

TEST_F(WatchPartsTest, tells_files_apart_by_a_look)
{
    write(u"a"_s, "1");
    write(u"b"_s, "1");
    const FileLook look = lookAt(name(u"a"_s));
    EXPECT_TRUE(look.isThere);
    EXPECT_EQ(lookAt(name(u"a"_s)), look);
    EXPECT_FALSE(lookAt(name(u"b"_s)) == look);
    EXPECT_EQ(lookAt(name(u"none"_s)), FileLook());
    write(u"a"_s, "12");
    EXPECT_FALSE(lookAt(name(u"a"_s)) == look);
}

TEST_F(FileWatcherTest, tells_a_file_that_is_whole_from_one_that_is_not)
{
    write(u"a"_s, "1");
    watcher.follow(0, name(u"a"_s));
    QFile file(folder.filePath(u"a"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    file.write("2");
    EXPECT_FALSE(nextEvent(0).isWhole);
    file.close();
    EXPECT_TRUE(nextEvent(0).isWhole);
    ASSERT_TRUE(file.remove());
    EXPECT_FALSE(nextEvent(0).isWhole);
    write(u"b"_s, "3");
    ASSERT_TRUE(QFile::rename(folder.filePath(u"b"_s), folder.filePath(u"a"_s)));
    EXPECT_TRUE(nextEvent(0).isWhole);
}

TEST_F(FileWatcherTest, tells_files_apart_in_one_folder)
{
    watcher.follow(0, name(u"a"_s));
    watcher.follow(1, name(u"b"_s));
    write(u"c"_s, "1");
    write(u"b"_s, "1");
    write(u"a"_s, "1");
    std::vector<pollfd> polled;
    auto deadline = FileWatcher::Clock::time_point::max();
    watcher.watch(&polled, &deadline);
    ASSERT_EQ(::poll(polled.data(), polled.size(), longest), 1);
    QList<qsizetype> files;
    for (const FileEvent &event : watcher.take()) {
        if (event.isWhole)
            files += event.file;
    }
    EXPECT_EQ(files, QList<qsizetype>({1, 0}));
}

TEST_F(FileWatcherTest, follows_another_way_once_it_is_asked_again)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"x"_s));
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"y"_s));
    ASSERT_EQ(::symlink("x/../x/a", name(u"link"_s).constData()), 0);
    watcher.follow(0, name(u"link"_s));
    write(u"x/a"_s, "1");
    EXPECT_TRUE(nextEvent(0).isWhole);
    ASSERT_EQ(::unlink(name(u"link"_s).constData()), 0);
    ASSERT_EQ(::symlink("y/a", name(u"link"_s).constData()), 0);
    nextEvent(0);
    watcher.follow(0, name(u"link"_s));
    write(u"x/a"_s, "2");
    EXPECT_TRUE(watcher.take().isEmpty());
    write(u"y/a"_s, "2");
    EXPECT_TRUE(nextEvent(0).isWhole);
}

TEST_F(FileWatcherTest, follows_no_ring_of_links)
{
    ASSERT_EQ(::symlink("b", name(u"a"_s).constData()), 0);
    ASSERT_EQ(::symlink("a", name(u"b"_s).constData()), 0);
    watcher.follow(0, name(u"a"_s));
    ASSERT_EQ(::unlink(name(u"b"_s).constData()), 0);
    write(u"b"_s, "1");
    nextEvent(0);
    watcher.follow(0, name(u"a"_s));
    write(u"b"_s, "2");
    EXPECT_TRUE(nextEvent(0).isWhole);
    EXPECT_EQ(watcher.fault(), "");
}

TEST_F(WatchPartsTest, looks_at_files_where_it_is_to)
{
    write(u"a"_s, "1");
    FileWatcher watcher(true);
    watcher.follow(0, name(u"a"_s));
    write(u"a"_s, "22");
    std::vector<pollfd> polled;
    auto deadline = FileWatcher::Clock::time_point::max();
    watcher.watch(&polled, &deadline);
    EXPECT_TRUE(polled.empty());
    EXPECT_EQ(watcher.fault(), "");
    while (FileWatcher::Clock::now() < deadline)
        ::usleep(1000);
    const QList<FileEvent> events = watcher.take();
    ASSERT_EQ(events.size(), 1);
    EXPECT_TRUE(events.first().isWhole);
    EXPECT_TRUE(watcher.take().isEmpty());
}

TEST(CheckProcessTest, gives_the_findings_as_lines)
{
    CheckProcess check({"digraph { a [lable=x area=1]; }", "a.dot", u"treemap"_s, {}});
    finish(&check);
    EXPECT_EQ(check.fault(), "");
    EXPECT_EQ(check.findings(),
              "a.dot:1:14: warning: unknown attribute 'lable' of a node in treemap; did you mean "
              "'label'? [unknown-attribute]\n");
}

TEST(CheckProcessTest, is_silent_of_a_good_text)
{
    CheckProcess check({"digraph { a [area=1]; }", "a.dot", u"treemap"_s, {}});
    finish(&check);
    EXPECT_EQ(check.fault(), "");
    EXPECT_EQ(check.findings(), "");
}

TEST(WatchMessages, have_one_line_for_all_that_was_drawn)
{
    const QList<PlannedDrawing> drawings{drawingTo("a.svg"), drawingTo("a\n.png")};
    const DrawingAnswer drawn{.isDrawn = true, .microseconds = 1200};
    EXPECT_EQ(drawingMessages("orr", "a.dot", drawings, {drawn, drawn}),
              "orr: 'a.dot': 'a.svg', 'a\\x0a.png' drawn in 2.4 ms\n");
}

TEST(WatchMessages, name_the_outputs_unless_all_have_failed_alike)
{
    const QList<PlannedDrawing> drawings{drawingTo("a.svg"), drawingTo("a.png"),
                                         drawingTo("a.vdx")};
    const DrawingAnswer full{.message = "full"};
    const DrawingAnswer drawn{.isDrawn = true};
    EXPECT_EQ(drawingMessages("orr", "a.dot", drawings, {full, full, full}),
              "orr: 'a.dot': full\n");
    EXPECT_EQ(drawingMessages("orr", "a.dot", drawings, {full, drawn, full}),
              "orr: 'a.dot': 'a.png' drawn in 0.0 ms\norr: 'a.dot': 'a.svg', 'a.vdx': full\n");
}
