// The parts of `orr serve` that need no server.
#include "companion/examples/examples.h"
#include "companion/serve/refusals.h"
#include "companion/serve/routes.h"
#include "companion/serve/serve_limits.h"
#include "companion/serve/shell_document.h"
#include "companion/watch/settling.h"
#include "drawing/layout_table.h"
#include "graph/dot_parser.h"
#include "support/golden.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

namespace {

constexpr char token[] = "0123456789abcdef0123456789abcdef";

// The status of the refusal of a head with these lines, 0 for none.
int refused(const QByteArray &lines, const QByteArray &target = '/' + QByteArray(token) + "/state")
{
    const auto head = requestHead("POST " + target + " HTTP/1.1\r\n" + lines + "\r\n");
    EXPECT_TRUE(head);
    const std::optional<Answer> refusal = refusalOf(head.value_or(RequestHead()), {8737, token});
    return refusal ? refusal->status : 0;
}

int statusOf(const QByteArray &fields)
{
    return refused("Host: 127.0.0.1:8737\r\n" + fields);
}

} // namespace

TEST(RequestHead, has_what_stands_there)
{
    const auto head = requestHead("GET /a?b HTTP/1.1\r\nHost:  x \r\nX-Y: 1\r\nhOST:z\r\n\r\n");
    ASSERT_TRUE(head);
    EXPECT_EQ(head->method, "GET");
    EXPECT_EQ(head->target, "/a?b");
    EXPECT_EQ(head->values("host"), QByteArrayList({"x", "z"}));
    EXPECT_EQ(head->values("x"), QByteArrayList());
}

TEST(RequestHead, is_nothing_else)
{
    for (const QByteArray &bytes :
         {QByteArray(""), QByteArray("\r\n\r\n"), QByteArray("GET /\r\n\r\n"),
          QByteArray("GET / HTTP/2.0\r\n\r\n"), QByteArray("GET  / HTTP/1.1\r\n\r\n"),
          QByteArray("GET a HTTP/1.1\r\n\r\n"), QByteArray("G T / HTTP/1.1\r\n\r\n"),
          QByteArray("GET /\x80 HTTP/1.1\r\n\r\n"), QByteArray("GET / HTTP/1.1\r\n"),
          QByteArray("GET / HTTP/1.1\r\nA\r\n\r\n"), QByteArray("GET / HTTP/1.1\r\n: b\r\n\r\n"),
          QByteArray("GET / HTTP/1.1\r\nA : b\r\n\r\n"),
          QByteArray("GET / HTTP/1.1\r\nA: b\r\n c\r\n\r\n"),
          QByteArray("GET / HTTP/1.1\r\nA: b\nC: d\r\n\r\n"),
          QByteArray("GET / HTTP/1.1\r\n\r\nA: b\r\n\r\n")})
        EXPECT_FALSE(requestHead(bytes)) << bytes.toStdString();
}

TEST(Refusals, let_the_own_pages_in)
{
    EXPECT_EQ(statusOf(""), 0);
    EXPECT_EQ(refused("Host: LocalHost:8737\r\n"), 0);
    EXPECT_EQ(statusOf("Origin: http://127.0.0.1:8737\r\nSec-Fetch-Site: same-origin\r\n"), 0);
    EXPECT_EQ(statusOf("Sec-Fetch-Site: none\r\nConnection: keep-alive\r\n"), 0);
    EXPECT_EQ(statusOf("Content-Length: 16777216\r\n"), 0);
}

TEST(Refusals, know_hosts_by_their_names)
{
    for (const char *const host :
         {"evil.example", "evil.example:8737", "127.0.0.1", "127.0.0.1:80", "127.0.0.1.evil:8737",
          "[::1]:8737", "127.0.0.2:8737", "localhost:87370", ""})
        EXPECT_EQ(refused("Host: " + QByteArray(host) + "\r\n"), 403) << host;
    EXPECT_EQ(refused(""), 403);
    EXPECT_EQ(statusOf("Host: 127.0.0.1:8737\r\n"), 403);
}

TEST(Refusals, know_where_a_request_comes_from)
{
    for (const char *const origin : {"http://evil.example", "null", "https://127.0.0.1:8737",
                                     "http://localhost:8737", "http://127.0.0.1:8738", ""})
        EXPECT_EQ(statusOf("Origin: " + QByteArray(origin) + "\r\n"), 403) << origin;
    EXPECT_EQ(statusOf("Sec-Fetch-Site: cross-site\r\n"), 403);
    EXPECT_EQ(statusOf("Sec-Fetch-Site: same-site\r\n"), 403);
}

TEST(Refusals, ask_for_the_token)
{
    const QByteArray host = "Host: 127.0.0.1:8737\r\n";
    EXPECT_EQ(refused(host, "/"), 404);
    EXPECT_EQ(refused(host, "/state"), 404);
    EXPECT_EQ(refused(host, '/' + QByteArray(token)), 404);
    EXPECT_EQ(refused(host, "//" + QByteArray(token) + '/'), 404);
    EXPECT_EQ(refused(host, '/' + QByteArray(token).toUpper() + '/'), 404);
    EXPECT_EQ(refused(host, '/' + QByteArray(token).chopped(1) + "0/"), 404);
}

TEST(Refusals, know_the_length_ahead)
{
    EXPECT_EQ(statusOf("Content-Length: 16777217\r\n"), 413);
    EXPECT_EQ(statusOf("Content-Length: 99999999999999999999999\r\n"), 413);
    EXPECT_EQ(statusOf("Content-Length: 1\r\nContent-Length: 2\r\n"), 400);
    EXPECT_EQ(statusOf("Content-Length: -1\r\n"), 400);
    EXPECT_EQ(statusOf("Content-Length: 0x10\r\n"), 400);
    EXPECT_EQ(statusOf("Content-Length:\r\n"), 400);
    EXPECT_EQ(statusOf("Transfer-Encoding: chunked\r\n"), 411);
    EXPECT_EQ(statusOf("Connection: keep-alive, Upgrade\r\n"), 400);
    EXPECT_EQ(statusOf("Upgrade: websocket\r\n"), 400);
}

TEST(NewToken, is_another_each_time)
{
    const QByteArray one = newToken();
    EXPECT_EQ(one.size(), 32);
    EXPECT_EQ(QByteArray::fromHex(one).toHex(), one);
    EXPECT_NE(newToken(), one);
}

TEST(Answer, says_what_holds_for_all)
{
    const QByteArray head = headOf(faultAnswer(404, "No."));
    EXPECT_TRUE(head.startsWith("HTTP/1.1 404 Not Found\r\n"));
    EXPECT_TRUE(head.endsWith("\r\n\r\n"));
    for (const char *const line :
         {"Content-Length: 4", "Content-Type: text/plain; charset=utf-8",
          "Content-Security-Policy: default-src 'none'; frame-ancestors 'none'",
          "X-Content-Type-Options: nosniff", "Referrer-Policy: no-referrer",
          "Cross-Origin-Resource-Policy: same-origin", "Cross-Origin-Opener-Policy: same-origin",
          "Cache-Control: no-store", "Connection: close"})
        EXPECT_EQ(head.count("\r\n" + QByteArray(line) + "\r\n"), 1) << line;
}

TEST(Disposition, holds_any_name)
{
    EXPECT_EQ(dispositionOf("a b.svg"),
              "attachment; filename=\"a b.svg\"; filename*=UTF-8''a%20b.svg");
    EXPECT_EQ(dispositionOf("\"\r\nX: \\%\xc3\xa4"),
              "attachment; filename=\"___X: ____\"; filename*=UTF-8''%22%0D%0AX%3A%20%5C%25%C3%A4");
    EXPECT_TRUE(dispositionOf("\xff").endsWith("''%EF%BF%BD"));
}

TEST(Examples, are_one_for_each_engine)
{
    QStringList engines;
    size_t size = 0;
    for (const Example &example : examples()) {
        engines += QString::fromUtf8(example.engine.data(), qsizetype(example.engine.size()));
        size += example.text.size();
        EXPECT_FALSE(example.title.empty());
        const QByteArray text(example.text.data(), qsizetype(example.text.size()));
        EXPECT_TRUE(ORR::Graph::parseDot(text)) << example.engine;
    }
    EXPECT_EQ(engines, ORR::Drawing::layoutNames());
    EXPECT_LT(size, 200'000U);
}

TEST(Settling, waits_for_the_end_of_a_save)
{
    const Settling::Clock::time_point start{milliseconds(1000)};
    Settling settling;
    EXPECT_FALSE(settling.takeIfOver(start));
    settling.note(true, start);
    EXPECT_FALSE(settling.takeIfOver(start + milliseconds(39)));
    settling.note(false, start + milliseconds(30));
    EXPECT_FALSE(settling.takeIfOver(start + milliseconds(529)));
    EXPECT_TRUE(settling.takeIfOver(start + milliseconds(530)));
    EXPECT_FALSE(settling.takeIfOver(start + milliseconds(530)));
    for (int i = 0; i <= 1000; i += 20)
        settling.note(true, start + milliseconds(i));
    EXPECT_TRUE(settling.takeIfOver(start + milliseconds(1000)));
}

TEST(Shell, allows_what_it_has_alone)
{
    const QByteArray shell = shellDocument(u"<a>"_s);
    EXPECT_TRUE(shell.contains("&lt;a&gt;"));
    EXPECT_TRUE(shell.contains("content=\"" + shellPolicy() + '"'));
    EXPECT_TRUE(shellPolicy().startsWith("default-src 'none'; script-src 'sha256-"));
    EXPECT_FALSE(shellPolicy().contains("unsafe"));
    EXPECT_FALSE(shell.contains("{{"));
}

namespace {

class ServedTextTest : public testing::Test
{
protected:
    void write(const QByteArray &bytes) const
    {
        QFile written(name());
        ASSERT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(bytes);
    }
    QByteArray read() const
    {
        QFile there(name());
        return there.open(QIODevice::ReadOnly) ? there.readAll() : QByteArray();
    }
    QString name() const { return folder.filePath(u"a.dot"_s); }

    QTemporaryDir folder;
    ServedFile file{name().toUtf8(), false};
};

} // namespace

TEST_F(ServedTextTest, follows_a_file_that_is_not_edited)
{
    write("one");
    ServedText text(&file);
    EXPECT_EQ(text.bytes(), "one");
    EXPECT_TRUE(text.isSaved());
    write("two");
    text.follow();
    EXPECT_EQ(text.bytes(), "two");
    EXPECT_EQ(text.version(), 1);
    text.follow();
    EXPECT_EQ(text.version(), 1);
    QFile::remove(name());
    text.follow();
    EXPECT_EQ(text.bytes(), "two");
    EXPECT_FALSE(text.isSaved());
    write("three");
    text.follow();
    EXPECT_EQ(text.bytes(), "three");
    EXPECT_TRUE(text.isSaved());
    EXPECT_FALSE(text.isConflict());
}

TEST_F(ServedTextTest, does_not_lose_what_was_edited_on_either_side)
{
    write("one");
    ServedText text(&file);
    text.edit("mine", 0);
    EXPECT_FALSE(text.isSaved());
    write("theirs");
    text.follow();
    EXPECT_EQ(text.bytes(), "mine");
    EXPECT_TRUE(text.isConflict());
    EXPECT_NE(text.save(false), "");
    EXPECT_EQ(read(), "theirs");
    EXPECT_EQ(text.save(true), "");
    EXPECT_EQ(read(), "mine");
    EXPECT_TRUE(text.isSaved());
    EXPECT_FALSE(text.isConflict());
}

TEST_F(ServedTextTest, sees_what_has_changed_just_before_it_is_saved)
{
    write("one");
    ServedText text(&file);
    text.edit("mine", 0);
    write("theirs");
    EXPECT_NE(text.save(false), "");
    EXPECT_TRUE(text.isConflict());
    EXPECT_TRUE(text.take());
    EXPECT_EQ(text.bytes(), "theirs");
    EXPECT_FALSE(text.isConflict());
    text.edit("more", text.version());
    EXPECT_EQ(text.save(false), "");
    EXPECT_EQ(read(), "more");
}

TEST_F(ServedTextTest, sees_an_edit_of_what_the_file_was_before)
{
    write("one");
    ServedText text(&file);
    write("two");
    text.follow();
    text.edit("one and more", 0);
    EXPECT_TRUE(text.isConflict());
    text.edit("two", text.version());
    EXPECT_FALSE(text.isConflict());
}

TEST_F(ServedTextTest, keeps_what_no_editor_can_show)
{
    write("\xff");
    ServedText text(&file);
    EXPECT_FALSE(text.isEditable());
    EXPECT_TRUE(text.isSaved());
}

TEST_F(ServedTextTest, takes_no_file_that_is_too_long)
{
    write("one");
    ServedText text(&file);
    QFile::resize(name(), ServeLimits::longestText + 1);
    text.follow();
    EXPECT_EQ(file.fault(), "it is longer than 16 MB");
    EXPECT_EQ(text.bytes(), "one");
    EXPECT_FALSE(text.isSaved());
    QFile::resize(name(), ServeLimits::longestText);
    text.follow();
    EXPECT_EQ(text.bytes().size(), ServeLimits::longestText);
}

TEST_F(ServedTextTest, needs_no_file)
{
    ServedText text(nullptr);
    EXPECT_EQ(text.bytes(), "");
    text.edit("one", 0);
    EXPECT_FALSE(text.isSaved());
    EXPECT_FALSE(text.take());
    EXPECT_NE(text.save(true), "");
}
