// What `orr serve` makes of its file, and of others who write it.
#include "companion/serve_run.h"
#include "support/golden.h"

#include <QDir>
#include <QFile>

#include <csignal>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class ServeFilesTest : public ServeTest
{
protected:
    void startWith(const QByteArray &text)
    {
        writeFile(u"a.dot"_s, text);
        start({u"-K"_s, u"treemap"_s, u"a.dot"_s});
    }

    QJsonObject waitForText(const QByteArray &text) const
    {
        return waitFor([&](const QJsonObject &) { return get("text").body == text; });
    }
    QJsonObject waitForPage(const QByteArray &label) const
    {
        return waitFor(
            [&](const QJsonObject &now) { return page(now).contains('>' + label + '<'); });
    }

    // The answer of `save`, with its status.
    QJsonObject save(const QByteArray &query, int status) const
    {
        const HttpAnswer answer = post("save?" + query);
        EXPECT_EQ(answer.status, status);
        return answer.json();
    }

    // A run that ends with this.
    testing::AssertionResult fails(const QStringList &arguments, const QByteArray &message) const
    {
        const ProgramRun call = run({.arguments = QStringList{u"serve"_s} + arguments});
        if (call.status == 2 && call.output.isEmpty() && call.errors == message)
            return testing::AssertionSuccess();
        return testing::AssertionFailure()
            << "status " << call.status << ", \"" << call.errors.toStdString() << '"';
    }
};

} // namespace

TEST_F(ServeFilesTest, are_drawn_again_when_they_change)
{
    startWith(labelled("v1"));
    waitForPage("v1");
    writeFile(u"a.dot"_s, labelled("v2"));
    const QJsonObject now = waitForPage("v2");
    EXPECT_EQ(get("text").body, labelled("v2"));
    EXPECT_EQ(now[u"text"_s][u"saved"_s], true);
    EXPECT_EQ(now[u"text"_s][u"version"_s], 1);
}

TEST_F(ServeFilesTest, may_be_removed_and_made_again)
{
    startWith(labelled("v1"));
    waitForPage("v1");
    QFile::remove(path(u"a.dot"_s));
    waitFor([](const QJsonObject &now) { return !now[u"text"_s][u"saved"_s].toBool(); });
    EXPECT_EQ(get("text").body, labelled("v1"));
    writeFile(u"a.dot"_s, labelled("v2"));
    const QJsonObject now = waitForPage("v2");
    EXPECT_EQ(now[u"text"_s][u"saved"_s], true);
    EXPECT_EQ(now[u"text"_s][u"conflict"_s], false);
}

TEST_F(ServeFilesTest, are_saved_when_it_is_asked_for)
{
    startWith(labelled("v1"));
    ASSERT_EQ(::chmod(path(u"a.dot"_s).toUtf8().constData(), 0640), 0);
    const QByteArray version = QByteArray::number(edit(labelled("v2")));
    EXPECT_EQ(state()[u"text"_s][u"saved"_s], false);
    EXPECT_EQ(fileContent(u"a.dot"_s), labelled("v1"));
    EXPECT_EQ(save("base=" + version, 200), QJsonObject({{u"saved"_s, true}}));
    EXPECT_EQ(fileContent(u"a.dot"_s), labelled("v2"));
    EXPECT_EQ(state()[u"text"_s][u"saved"_s], true);
    struct stat status = {};
    ::stat(path(u"a.dot"_s).toUtf8().constData(), &status);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
    EXPECT_EQ(allFiles(), QStringList{u"a.dot"_s});
}

TEST_F(ServeFilesTest, are_not_saved_by_who_has_another_text)
{
    startWith(labelled("v1"));
    edit(labelled("v2"));
    EXPECT_FALSE(save("base=0", 409)[u"fault"_s].toString().isEmpty());
    EXPECT_EQ(fileContent(u"a.dot"_s), labelled("v1"));
}

TEST_F(ServeFilesTest, of_others_are_not_written_over)
{
    startWith(labelled("v1"));
    const QByteArray version = QByteArray::number(edit(labelled("mine")));
    writeFile(u"a.dot"_s, labelled("theirs"));
    const QJsonObject refused = save("base=" + version, 409);
    EXPECT_EQ(refused[u"conflict"_s], true);
    EXPECT_EQ(refused[u"fault"_s], u"the file has changed meanwhile"_s);
    EXPECT_EQ(fileContent(u"a.dot"_s), labelled("theirs"));
    EXPECT_EQ(state()[u"text"_s][u"conflict"_s], true);
    EXPECT_EQ(post("take").status, 200);
    EXPECT_EQ(get("text").body, labelled("theirs"));
    EXPECT_EQ(state()[u"text"_s][u"conflict"_s], false);
    waitForPage("theirs");

    const QByteArray next = QByteArray::number(edit(labelled("mine")));
    writeFile(u"a.dot"_s, labelled("theirs again"));
    waitFor([](const QJsonObject &now) { return now[u"text"_s][u"conflict"_s].toBool(); });
    EXPECT_EQ(get("text").body, labelled("mine"));
    EXPECT_EQ(save("force=1&base=" + next, 200), QJsonObject({{u"saved"_s, true}}));
    EXPECT_EQ(fileContent(u"a.dot"_s), labelled("mine"));
    EXPECT_EQ(state()[u"text"_s][u"conflict"_s], false);
}

TEST_F(ServeFilesTest, need_not_be_there_yet)
{
    start({u"-K"_s, u"treemap"_s, u"a.dot"_s});
    EXPECT_EQ(state()[u"text"_s][u"saved"_s], false);
    EXPECT_EQ(state()[u"fault"_s], u""_s);
    edit(labelled("v1"));
    EXPECT_TRUE(page(settled()).contains(">v1<"));
    EXPECT_EQ(allFiles(), QStringList());
    save("", 200);
    EXPECT_EQ(fileContent(u"a.dot"_s), labelled("v1"));
}

TEST_F(ServeFilesTest, need_not_be_named)
{
    start({});
    EXPECT_EQ(state()[u"file"_s], u""_s);
    edit(labelled("v1"));
    EXPECT_FALSE(save("", 409)[u"fault"_s].toString().isEmpty());
    EXPECT_EQ(post("take").status, 409);
}

TEST_F(ServeFilesTest, stay_as_they_were_where_they_can_not_be_written)
{
    writeFile(u"a.dot"_s, labelled("v1"));
    start({u"-K"_s, u"treemap"_s, u"a.dot"_s}, u"ulimit -f 1; exec \"$0\" \"$@\""_s);
    edit(labelled("v2") + QByteArray(10'000, ' '));
    EXPECT_EQ(save("", 409)[u"fault"_s], u"File too large"_s);
    EXPECT_EQ(fileContent(u"a.dot"_s), labelled("v1"));
    EXPECT_EQ(allFiles(), QStringList{u"a.dot"_s});
    EXPECT_EQ(state()[u"text"_s][u"saved"_s], false);
}

TEST_F(ServeFilesTest, can_not_be_written_where_there_is_no_folder)
{
    QDir(path(u"."_s)).mkdir(u"b"_s);
    start({u"-K"_s, u"treemap"_s, u"b/a.dot"_s});
    edit(labelled("v1"));
    QDir(path(u"."_s)).rmdir(u"b"_s);
    EXPECT_EQ(save("", 409)[u"fault"_s], u"No such file or directory"_s);
}

TEST_F(ServeFilesTest, are_files)
{
    EXPECT_TRUE(fails({u"."_s}, "orr serve: '.' can't be read: Is a directory\n"));
    EXPECT_TRUE(
        fails({u"/dev/null"_s}, "orr serve: '/dev/null' can't be read: it is no regular file\n"));
    EXPECT_TRUE(fails({u"-"_s},
                      "orr serve: standard input can't be edited; name a file, or none\n"
                      "Try 'orr serve --help'.\n"));
    EXPECT_TRUE(fails({u"-K"_s, u"tremap"_s},
                      "orr serve: there is no engine 'tremap'; did you mean 'treemap'?\n"
                      "Try 'orr serve --help'.\n"));
}
