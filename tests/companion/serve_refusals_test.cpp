// Whom `orr serve` does not answer, and what it costs it.
#include "companion/serve_run.h"
#include "support/golden.h"

#include <QElapsedTimer>

#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class ServeRefusalsTest : public ServeTest
{
protected:
    void SetUp() override
    {
        ServeTest::SetUp();
        start({u"-K"_s, u"treemap"_s});
    }

    QByteArray host() const { return "Host: 127.0.0.1:" + QByteArray::number(port()) + "\r\n"; }

    // Its peak once it has answered, and so has all that it needs for that.
    qint64 memoryOfFirst() const
    {
        EXPECT_EQ(say("hello\r\n\r\n").status, 400);
        EXPECT_EQ(get("state").status, 200);
        return peakMemory();
    }

    // Whether the server still does its work.
    testing::AssertionResult isWell() const
    {
        const HttpAnswer answer = get("state");
        if (answer.status == 200)
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "status " << answer.status;
    }
};

} // namespace

TEST_F(ServeRefusalsTest, are_for_those_who_do_not_know_the_token)
{
    for (const QByteArray &path :
         {QByteArray("/"), QByteArray("/state"), '/' + token(),
          '/' + token().chopped(1) + "x/state", QByteArray("/../") + token() + "/state",
          QByteArray("/favicon.ico")}) {
        const HttpAnswer answer = ask({.path = path});
        EXPECT_EQ(answer.status, 404) << path.toStdString();
        EXPECT_EQ(answer.body, "There is nothing here.\n");
    }
    EXPECT_EQ(get("nothing").status, 404);
    EXPECT_EQ(get("state/").status, 404);
    EXPECT_EQ(get("..%2fstate").status, 404);
}

TEST_F(ServeRefusalsTest, are_for_other_hosts_and_origins)
{
    EXPECT_EQ(ask({.path = target("state"), .host = "evil.example"}).status, 403);
    const QByteArray other = "evil.example:" + QByteArray::number(port());
    EXPECT_EQ(ask({.path = target("state"), .host = other}).status, 403);
    const QByteArray local = "localhost:" + QByteArray::number(port());
    EXPECT_EQ(ask({.path = target("state"), .host = local}).status, 200);
    EXPECT_EQ(ask({.path = target("state"), .fields = {"Origin: http://evil.example"}}).status,
              403);
    EXPECT_EQ(ask({.path = target("state"), .fields = {"Sec-Fetch-Site: cross-site"}}).status, 403);
    const HttpRequest edit{.method = "POST",
                           .path = target("text?engine=bar"),
                           .fields = {"Origin: null"},
                           .body = "digraph {}"};
    EXPECT_EQ(ask(edit).status, 403);
    EXPECT_EQ(get("text").body, "");
}

TEST_F(ServeRefusalsTest, are_for_methods_of_no_route)
{
    const HttpAnswer answer = ask({.method = "DELETE", .path = target("text")});
    EXPECT_EQ(answer.status, 405);
    EXPECT_EQ(answer.field("Allow"), "GET, POST");
    EXPECT_EQ(ask({.method = "HEAD", .path = target("")}).status, 405);
    EXPECT_EQ(ask({.method = "ODD", .path = target("state")}).status, 405);
    EXPECT_EQ(ask({.method = "POST", .path = target("page/1")}).field("Allow"), "GET");
    EXPECT_EQ(ask({.path = target("save")}).field("Allow"), "POST");
    EXPECT_EQ(ask({.method = "OPTIONS", .path = target("text")}).status, 405);
}

TEST_F(ServeRefusalsTest, are_for_texts_that_are_too_long)
{
    const qint64 before = memoryOfFirst();
    for (int i = 0; i < 4; ++i) {
        const HttpAnswer answer = post("text?engine=bar", QByteArray(17 << 20, 'x'));
        EXPECT_TRUE(answer.status == 413 || answer.status == 0) << answer.status;
    }
    // Announced as short, and sent on all the same.
    say("POST " + target("text?engine=bar") + " HTTP/1.1\r\n" + host()
        + "Content-Length: 10\r\n\r\ndigraph {}" + QByteArray(17 << 20, 'y'));
    EXPECT_EQ(get("text").body, "digraph {}");
    EXPECT_LT(peakMemory() - before, 1 << 10);
    EXPECT_TRUE(isWell());
    EXPECT_EQ(post("text?engine=bar", QByteArray(16 << 20, ' ')).status, 200);
    EXPECT_EQ(get("text").body.size(), 16 << 20);
}

TEST_F(ServeRefusalsTest, are_for_heads_without_an_end)
{
    const qint64 before = memoryOfFirst();
    EXPECT_EQ(
        say("GET " + target("state") + " HTTP/1.1\r\n" + host() + "X: " + QByteArray(64 << 10, 'x'))
            .status,
        431);
    EXPECT_EQ(say("GET /" + QByteArray(64 << 10, 'x')).status, 431);
    EXPECT_EQ(say(QByteArray(20 << 20, 'x')).status, 431);
    EXPECT_EQ(say(QByteArray("A: b\r\n").repeated(100'000)).status, 431);
    EXPECT_LT(peakMemory() - before, 1 << 10);
    EXPECT_TRUE(isWell());
}

TEST_F(ServeRefusalsTest, are_for_what_is_no_request)
{
    const QByteArray begin = "GET " + target("state") + " HTTP/1.1\r\n" + host();
    for (const QByteArray &bytes :
         {QByteArray("\r\n\r\n"), QByteArray("hello\r\n\r\n"), QByteArray("GET\r\n\r\n"),
          QByteArray("\x16\x03\x01\x02\r\n\r\n"), QByteArray(1000, '\0') + "\r\n\r\n",
          begin + "no colon\r\n\r\n", begin + ": none\r\n\r\n", begin + "A : b\r\n\r\n",
          begin + "Content-Length: 1\r\nContent-Length: 1\r\n\r\n",
          begin + "Content-Length: -1\r\n\r\n", begin + "Upgrade: websocket\r\n\r\n",
          "GET http://evil.example/ HTTP/1.1\r\n" + host() + "\r\n",
          "GET " + target("state") + " HTTP/1.1\n" + host() + "\r\n\r\n"})
        EXPECT_EQ(say(bytes).status, 400) << bytes.toStdString();
    EXPECT_EQ(say(begin + "Transfer-Encoding: chunked\r\n\r\n0\r\n\r\n").status, 411);
    EXPECT_EQ(say("GET " + target("state") + " HTTP/1.1\r\n\r\n").status, 403);
    EXPECT_TRUE(isWell());
}

TEST_F(ServeRefusalsTest, leave_one_answer_to_a_connection)
{
    const QByteArray request = "GET " + target("text") + " HTTP/1.1\r\n" + host() + "\r\n";
    const HttpAnswer answer = say(request + request + "POST " + target("engine?engine=bar")
                                  + " HTTP/1.1\r\n" + host() + "\r\n");
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.body, "");
    EXPECT_EQ(state()[u"engine"_s], u"treemap"_s);
}

// A head may come in any pieces.
TEST_F(ServeRefusalsTest, are_not_for_the_slow)
{
    const QByteArray request = "POST " + target("text?engine=bar") + " HTTP/1.1\r\n" + host()
        + "Content-Length: 10\r\n\r\ndigraph {}";
    const ORR::Graph::Descriptor to = connection();
    for (qsizetype i = 0; i < request.size(); i += 7) {
        ORR::Graph::writeToEnd(to.number(),
                               request.sliced(i, std::min<qsizetype>(7, request.size() - i)));
        ::usleep(1000);
    }
    char said[12] = {};
    EXPECT_EQ(::recv(to.number(), said, sizeof said, MSG_WAITALL), 12);
    EXPECT_EQ(QByteArray(said, 12), "HTTP/1.1 200");
    EXPECT_EQ(get("text").body, "digraph {}");
}

TEST_F(ServeRefusalsTest, are_for_those_who_come_in_crowds)
{
    std::vector<ORR::Graph::Descriptor> crowd;
    for (int i = 0; i < 64; ++i)
        crowd.push_back(connection());
    EXPECT_EQ(get("state").status, 0);
    crowd.clear();
    QElapsedTimer timer;
    timer.start();
    while (get("state").status == 0 && timer.elapsed() < 10'000)
        ::usleep(1000);
    EXPECT_TRUE(isWell());
}
