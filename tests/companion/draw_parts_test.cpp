// The parts of `orr draw` that need no process.
#include "companion/draw/change_notes.h"
#include "companion/draw/job_source.h"
#include "companion/draw/output_names.h"
#include "companion/draw/planned_drawing.h"
#include "companion/draw/progress.h"
#include "companion/jobs/value_bytes.h"
#include "companion/jobs/worker_pool.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <unistd.h>

using namespace ORR::Companion;

TEST(OutputNames, take_the_place_of_the_suffix)
{
    EXPECT_EQ(outputBeside("a.dot", "svg"), "a.svg");
    EXPECT_EQ(outputBeside("a", "svg"), "a.svg");
    EXPECT_EQ(outputBeside("x.y/a", "svg"), "x.y/a.svg");
    EXPECT_EQ(outputBeside("a.b.dot", "xdot1.2"), "a.b.xdot1.2");
    EXPECT_EQ(outputBeside(".dot", "svg"), ".dot.svg");
    EXPECT_EQ(outputBeside("\xff.dot", "svg"), "\xff.svg");
}

TEST(OutputNames, keep_the_place_below_a_folder)
{
    EXPECT_EQ(outputBelow("out", "a/b.dot", "svg"), "out/a/b.svg");
    EXPECT_EQ(outputBelow("out", "./a//../b.dot", "svg"), "out/b.svg");
    EXPECT_EQ(outputBelow("out/", "/a/b.dot", "svg"), "out/a/b.svg");
    EXPECT_EQ(outputBelow("out", "../b.dot", "svg"), std::nullopt);
    EXPECT_EQ(outputBelow("out", "a/../../b.dot", "svg"), std::nullopt);
}

TEST(OutputClaims, let_one_drawing_have_a_file)
{
    OutputClaims claims;
    EXPECT_EQ(claims.claim("a.svg", "a.dot"), "");
    EXPECT_EQ(claims.claim("./x/../a.svg", "b.dot"),
              "'./x/../a.svg' is the output of both 'a.dot' and 'b.dot'");
    EXPECT_FALSE(claims.claim("a.svg", "a.dot").isEmpty());
    claims.release("a.svg");
    EXPECT_FALSE(claims.claim("a.svg", "b.dot").isEmpty());
    EXPECT_EQ(claims.claim("a.svg", "a.dot"), "");
}

TEST(OutputClaims, know_a_file_by_each_of_its_names)
{
    const QByteArray folder = QByteArray::fromStdString(std::filesystem::current_path().native());
    for (const QByteArray &name : {QByteArray("./a"), QByteArray("b/../a"), QByteArray(".//a"),
                                   QByteArray("b//../a"), folder + "/a"}) {
        OutputClaims claims;
        EXPECT_EQ(claims.claim("a", "1"), "");
        EXPECT_NE(claims.claim(name, "2"), "") << name.toStdString();
        EXPECT_EQ(claims.claim("b/a", "3"), "");
    }
}

TEST(OutputClaims, follow_links_as_writing_does)
{
    namespace fs = std::filesystem;
    const fs::path folder = fs::path(ORR_TEST_SCRATCH) / "claims";
    fs::remove_all(folder);
    fs::create_directories(folder / "f");
    fs::create_directory_symlink("f", folder / "link");
    fs::create_symlink("link/new.svg", folder / "to-nothing");
    fs::create_symlink("b.dot", folder / "to-input");
    fs::create_symlink("loop", folder / "loop");
    const auto name = [&](const char *file) {
        return QByteArray::fromStdString((folder / file).native());
    };
    OutputClaims claims;
    claims.addInput(name("b.dot"));
    EXPECT_EQ(claims.claim(name("f/z.svg"), "1"), "");
    EXPECT_NE(claims.claim(name("link/z.svg"), "2"), "");
    EXPECT_NE(claims.claim(name("f/../link/./z.svg"), "2"), "");
    EXPECT_EQ(claims.claim(name("to-nothing"), "3"), "");
    EXPECT_NE(claims.claim(name("f/new.svg"), "4"), "");
    EXPECT_EQ(claims.claim(name("to-input"), "5"),
              '\'' + name("to-input") + "' is an input and would be written over");
    EXPECT_EQ(claims.claim(name("loop"), "6"), "");
    // It is released from where it was claimed, although it is there now.
    std::fclose(std::fopen(name("f/new.svg").constData(), "w"));
    claims.release(name("to-nothing"));
    EXPECT_EQ(claims.claim(name("to-nothing"), "3"), "");
    fs::remove_all(folder);
}

TEST(OutputClaims, keep_other_files_apart_too)
{
    OutputClaims claims;
    claims.addInput("a.dot");
    EXPECT_EQ(claims.take("jobs", "the file of jobs"), "");
    EXPECT_EQ(claims.claim("./jobs", "a.dot"),
              "'./jobs' is the file of jobs and would be written over");
    EXPECT_EQ(claims.claim("a.svg", "a.dot", 3), "");
    EXPECT_EQ(claims.take("./a.svg", "the report"),
              "'./a.svg' is both the output of 'a.dot' and the report");
    EXPECT_EQ(claims.take("./a.dot", "the report"), "'./a.dot' is both an input and the report");
    EXPECT_EQ(claims.take("/dev/null", "the report"), "");
    EXPECT_EQ(claims.take("/dev/null", "the file of jobs"), "");
    EXPECT_EQ(claims.claim("a.svg", "b\n.dot", 4),
              "'a.svg' is the output of both 'a.dot' (line 3) and 'b\\x0a.dot'");
    claims.forgetOutputs();
    EXPECT_EQ(claims.claim("a.svg", "b.dot"), "");
    EXPECT_NE(claims.claim("jobs", "b.dot"), "");
}

TEST(OutputClaims, guard_the_inputs)
{
    OutputClaims claims;
    claims.addInput("b.svg");
    EXPECT_EQ(claims.claim("./b.svg", "a.dot"), "'./b.svg' is an input and would be written over");
    EXPECT_FALSE(claims.claim("a.svg", "a.svg").isEmpty());
}

TEST(Shard, takes_each_name_once_and_shares_evenly)
{
    int counts[3] = {};
    for (int i = 0; i < 3000; ++i) {
        const QByteArray name = "n" + QByteArray::number(i) + ".dot";
        int owners = 0;
        for (quint64 index = 1; index <= 3; ++index) {
            const bool isMine = isInShard(name, {index, 3});
            owners += isMine;
            counts[index - 1] += isMine;
        }
        EXPECT_EQ(owners, 1);
    }
    for (const int count : counts)
        EXPECT_NEAR(count, 1000, 100);
}

// Other machines and later versions have to agree.
TEST(Shard, is_what_it_has_always_been)
{
    QByteArray shares;
    for (const QByteArray name : {"a.dot", "b.dot", "c.dot", "dir/d.dot", "\xff", ""}) {
        quint64 index = 1;
        while (!isInShard(name, {index, 7}))
            ++index;
        shares += QByteArray::number(index);
    }
    EXPECT_EQ(shares, "427157");
}

TEST(Progress, tells_how_far_how_fast_and_how_long)
{
    EXPECT_EQ(progressLine({}, 10, 0), "0 of 10 done, 0 failed");
    EXPECT_EQ(progressLine({.drawn = 4, .failed = 1}, 10, 0.5),
              "5 of 10 done, 1 failed, 10 per second, 1 s left");
    EXPECT_EQ(progressLine({.drawn = 1, .unchanged = 4}, std::nullopt, 2),
              "5 done, 0 failed, 3 per second");
    EXPECT_EQ(progressLine({.drawn = 1}, 601, 1),
              "1 of 601 done, 0 failed, 1 per second, 10 min left");
    EXPECT_EQ(progressLine({.drawn = 1}, 7201, 1),
              "1 of 7201 done, 0 failed, 1 per second, 2 h left");
}

TEST(DrawingTask, travels_as_bytes)
{
    const DrawingTask task{.input = QByteArray(1000, 'x'), .output = "y", .options = {.format = 3}};
    const auto read = valueOf<DrawingTask>(bytesOf(task));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->input, task.input);
    EXPECT_EQ(read->output, "y");
    EXPECT_EQ(read->options.format, 3);
    EXPECT_FALSE(valueOf<DrawingTask>("rubbish"));
}

TEST(WorkerTask, travels_by_its_kind)
{
    const PageTask page{.input = "x", .engine = "bar", .fallbackTitle = "t", .mostBytes = 7};
    const FindingsTask check{.input = "y", .engine = "matrix"};
    for (const WorkerTask &task :
         {WorkerTask(DrawingTask{.input = "z"}), WorkerTask(page), WorkerTask(check)}) {
        const auto read = taskOf(task.index(), bytesOfTask(task));
        ASSERT_TRUE(read);
        EXPECT_EQ(read->index(), task.index());
        EXPECT_EQ(bytesOfTask(*read), bytesOfTask(task));
    }
    const auto read = taskOf(1, bytesOfTask(page));
    ASSERT_TRUE(read && std::holds_alternative<PageTask>(*read));
    EXPECT_EQ(std::get<PageTask>(*read).engine, "bar");
    EXPECT_EQ(std::get<PageTask>(*read).mostBytes, 7);
    EXPECT_FALSE(taskOf(1, "rubbish"));
    EXPECT_FALSE(taskOf(3, bytesOfTask(page)));
}

TEST(ChangeNotes, know_any_name)
{
    const QByteArray file = QByteArray(ORR_TEST_SCRATCH) + "/notes";
    ::unlink(file.constData());
    const QByteArray output = QByteArray(ORR_TEST_SCRATCH) + "/a b\n%\xff";
    std::fclose(std::fopen(output.constData(), "w"));
    const QByteArray stamp = stampOf("digraph {}", {.engine = "bar"});
    EXPECT_NE(stampOf("digraph {}", {.engine = "bar", .htmlLabels = true}), stamp);
    EXPECT_EQ(stampOf("digraph {}", {.engine = "BAR"}), stamp);
    ChangeNotes notes(file, "here");
    EXPECT_FALSE(notes.holds(output, stamp));
    notes.note(output, stamp);
    ASSERT_TRUE(notes.save());
    EXPECT_TRUE(ChangeNotes(file, "here").holds(output, stamp));
    EXPECT_FALSE(ChangeNotes(file, "here").holds(output, "other"));
    EXPECT_FALSE(ChangeNotes(file, "elsewhere").holds(output, stamp));
    ::unlink(output.constData());
    EXPECT_FALSE(ChangeNotes(file, "here").holds(output, stamp));
}
