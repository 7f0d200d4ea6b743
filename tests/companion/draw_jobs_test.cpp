// `orr draw --jobs`: lines of JSON in, lines of JSON out.
#include "companion/draw_run.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

class DrawJobsTest : public DrawTest
{
protected:
    ProgramRun jobs(const QByteArray &lines, const QStringList &arguments = {}) const
    {
        return drawMany(QStringList{u"--jobs"_s, u"-"_s, u"-K"_s, u"treemap"_s} + arguments, lines);
    }

    // The answers by their lines.
    static QMap<int, QJsonObject> answers(const ProgramRun &run)
    {
        QMap<int, QJsonObject> byLine;
        for (const QJsonObject &answer : jsonLines(run.output))
            byLine[answer[u"line"_s].toInt()] = answer;
        return byLine;
    }
};

} // namespace

TEST_F(DrawJobsTest, answers_each)
{
    const ProgramRun run = jobs("{\"in\":\"good.dot\",\"out\":\"x.svg\",\"id\":[7]}\n"
                                "\n"
                                "{\"in\":\"good.dot\",\"engine\":\"bar\",\"formats\":[\"png\","
                                "\"svg\"],\"out\":[\"y.png\",\"y.svg\"]}\n"
                                "{\"in\":\"faulty.dot\",\"formats\":\"vdx\"}");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "orr draw: 3 drawn, 1 failed\n");
    const QMap<int, QJsonObject> all = answers(run);
    ASSERT_EQ(all.keys(), QList<int>({1, 3, 4}));
    EXPECT_EQ(all[1][u"in"_s], u"good.dot"_s);
    EXPECT_EQ(all[1][u"id"_s], QJsonArray({7}));
    EXPECT_EQ(all[1][u"status"_s], u"drawn"_s);
    EXPECT_EQ(all[1][u"drawings"_s][0][u"output"_s], u"x.svg"_s);
    EXPECT_EQ(all[3][u"drawings"_s].toArray().size(), 2);
    EXPECT_FALSE(all[3].contains(u"id"_s));
    EXPECT_EQ(all[4][u"status"_s], u"failed"_s);
    EXPECT_EQ(all[4][u"drawings"_s][0][u"message"_s], u"Unable to parse dot input"_s);
    EXPECT_EQ(fileContent(u"x.svg"_s), drawnAlone(u"good.dot"_s, u"treemap"_s, u"svg"_s));
    EXPECT_EQ(fileContent(u"y.png"_s), drawnAlone(u"good.dot"_s, u"bar"_s, u"png"_s));
    EXPECT_EQ(newFiles(), QStringList({u"x.svg"_s, u"y.png"_s, u"y.svg"_s}));
}

TEST_F(DrawJobsTest, goes_on_after_a_line_that_is_no_job)
{
    const QByteArray tooLong(3 << 20, 'x');
    const ProgramRun run = jobs("nonsense\n[]\n{\"in\":7}\n{\"in\":\"good.dot\",\"ot\":\"x\"}\n"
                                "{\"in\":\"good.dot\",\"engine\":\"tremap\"}\n"
                                "{\"in\":\"good.dot\",\"formats\":[\"svq\"]}\n"
                                "{\"in\":\"good.dot\",\"out\":[\"a\",\"b\"]}\n"
                                + tooLong + "\n{\"in\":\"good.dot\",\"id\":\"last\"}\n");
    EXPECT_EQ(run.status, 1);
    const QMap<int, QJsonObject> all = answers(run);
    const auto message = [&](int line) { return all[line][u"message"_s].toString(); };
    EXPECT_TRUE(message(1).startsWith(u"no JSON: "_s)) << message(1).toStdString();
    EXPECT_EQ(message(2), u"no object of JSON"_s);
    EXPECT_EQ(message(3), u"'in' is missing, or no name of a file"_s);
    EXPECT_EQ(message(4), u"there is no member 'ot'; did you mean 'out'?"_s);
    EXPECT_EQ(message(5), u"there is no engine 'tremap'; did you mean 'treemap'?"_s);
    EXPECT_EQ(message(6), u"there is no format 'svq'; did you mean 'svg'?"_s);
    EXPECT_EQ(message(7), u"'out' names 2 files for 1 formats"_s);
    EXPECT_EQ(message(8), u"the line is too long"_s);
    EXPECT_EQ(all[9][u"status"_s], u"drawn"_s);
    EXPECT_EQ(all[9][u"id"_s], u"last"_s);
    EXPECT_EQ(newFiles(), QStringList(u"good.svg"_s));
}

TEST_F(DrawJobsTest, keep_off_the_standard_streams)
{
    const ProgramRun run = jobs("{\"in\":\"-\"}\n{\"in\":\"/dev/stdin\",\"out\":\"x.svg\"}\n"
                                "{\"in\":\"good.dot\",\"out\":\"-\"}\n"
                                "{\"in\":\"good.dot\",\"out\":\"/dev/stdout\"}\n"
                                "{\"in\":\"good.dot\",\"out\":\"/proc/thread-self/fd/1\"}\n");
    const QMap<int, QJsonObject> all = answers(run);
    EXPECT_EQ(all.size(), 5);
    EXPECT_EQ(all[1][u"message"_s], u"'in' is missing, or no name of a file"_s);
    EXPECT_EQ(all[2][u"message"_s], u"'in' is missing, or no name of a file"_s);
    EXPECT_EQ(all[3][u"message"_s], u"'out' is no name of a file"_s);
    EXPECT_EQ(all[4][u"message"_s], u"'out' is no name of a file"_s);
}

TEST_F(DrawJobsTest, on_a_pipe_fails_the_second_with_one_output)
{
    writeFile(u"b.dot"_s, smallGraph());
    const ProgramRun run = jobs("{\"in\":\"good.dot\",\"out\":\"x.svg\"}\n"
                                "{\"in\":\"b.dot\",\"out\":\"./x.svg\"}\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(answers(run)[1][u"status"_s], u"drawn"_s);
    EXPECT_EQ(answers(run)[2][u"message"_s],
              u"'./x.svg' is the output of both 'good.dot' (line 1) and 'b.dot'"_s);
}

TEST_F(DrawJobsTest, on_a_pipe_keep_off_the_inputs_so_far)
{
    writeFile(u"b.dot"_s, smallGraph());
    const ProgramRun run = jobs("{\"in\":\"good.dot\",\"out\":\"x.svg\"}\n"
                                "{\"in\":\"b.dot\",\"out\":\"./good.dot\"}\n"
                                "{\"in\":\"b.dot\",\"out\":\"r.jsonl\"}\n",
                                {u"--report"_s, u"r.jsonl"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(answers(run)[1][u"status"_s], u"drawn"_s);
    EXPECT_EQ(answers(run)[2][u"message"_s],
              u"'./good.dot' is an input and would be written over"_s);
    EXPECT_EQ(answers(run)[3][u"message"_s],
              u"'r.jsonl' is the report and would be written over"_s);
    EXPECT_EQ(fileContent(u"good.dot"_s), smallGraph());
}

// Whatever the order: it is known before anything is drawn.
TEST_F(DrawJobsTest, in_a_file_keep_off_all_inputs_and_the_file)
{
    writeFile(u"b.dot"_s, smallGraph());
    const QByteArray last = "{\"in\":\"good.dot\",\"out\":\"x.svg\"}\n";
    const auto errors = [&](const QByteArray &line, const QString &command) {
        writeFile(u"jobs"_s, line + last);
        const ProgramRun run = shell(u"exec \"$0\" draw -K bar --jobs "_s + command);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(fileContent(u"jobs"_s), line + last);
        return run.errors.first(run.errors.indexOf('\n'));
    };
    EXPECT_EQ(errors("{\"in\":\"b.dot\",\"out\":\"good.dot\"}\n", u"jobs"_s),
              "orr draw: line 1: 'good.dot' is an input and would be written over");
    for (const QString &command : {u"jobs"_s, u"- <jobs"_s})
        EXPECT_EQ(errors("{\"in\":\"b.dot\",\"out\":\"./jobs\"}\n", command),
                  "orr draw: line 1: './jobs' is the file of jobs and would be written over");
    EXPECT_EQ(errors({}, u"jobs --report jobs"_s),
              "orr draw: 'jobs' is both the file of jobs and the report");
    EXPECT_EQ(errors({}, u"jobs --report x.svg"_s),
              "orr draw: 'x.svg' is both the output of 'good.dot' and the report");
    EXPECT_EQ(errors({}, u"jobs --report good.dot"_s),
              "orr draw: 'good.dot' is both an input and the report");
    EXPECT_EQ(newFiles(), QStringList({u"b.dot"_s, u"jobs"_s}));
}

TEST_F(DrawJobsTest, in_a_file_refuses_two_with_one_output)
{
    writeFile(u"jobs"_s,
              "{\"in\":\"good.dot\",\"out\":\"x.svg\"}\n{\"in\":\"b.dot\",\"out\":\"x.svg\"}\n");
    const ProgramRun run = drawMany({u"-K"_s, u"bar"_s, u"--jobs"_s, u"jobs"_s});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors,
              "orr draw: line 2: 'x.svg' is the output of both 'good.dot' (line 1) and "
              "'b.dot'\n"
              "Try 'orr draw --help'.\n");
    EXPECT_EQ(newFiles(), QStringList(u"jobs"_s));
}

TEST_F(DrawJobsTest, serves_whoever_keeps_it_running)
{
    const auto server = start({u"--jobs"_s, u"-"_s, u"-K"_s, u"treemap"_s});
    for (int i = 0; i < 3; ++i) {
        server->write("{\"in\":\"good.dot\",\"out\":\"x.svg\",\"id\":" + QByteArray::number(i)
                      + "}\n");
        while (!server->canReadLine())
            ASSERT_TRUE(server->waitForReadyRead(20'000));
        const QJsonObject answer = jsonLines(server->readLine()).first();
        EXPECT_EQ(answer[u"id"_s], i);
        EXPECT_EQ(answer[u"status"_s], u"drawn"_s);
    }
    server->closeWriteChannel();
    ASSERT_TRUE(server->waitForFinished());
    EXPECT_EQ(server->exitCode(), 0);
    EXPECT_EQ(server->readAllStandardError(), "orr draw: 3 drawn, 0 failed\n");
}

TEST_F(DrawJobsTest, carries_names_that_are_no_utf_8)
{
    const ProgramRun made = shell(u"cp good.dot \"$(printf 'n\\377.dot')\""_s);
    ASSERT_EQ(made.status, 0);
    const ProgramRun run = jobs("{\"in\":\"n\\udcff.dot\"}\n");
    EXPECT_EQ(run.status, 0) << run.output.toStdString();
    EXPECT_TRUE(run.output.contains("\"n\\udcff.svg\"")) << run.output.toStdString();
    EXPECT_EQ(shell(u"cat \"$(printf 'n\\377.svg')\"; rm -f n*"_s).output,
              drawnAlone(u"good.dot"_s, u"treemap"_s, u"svg"_s));
}
