// `orr serve`, the real program: what it answers at each path.
#include "companion/read_page.h"
#include "companion/serve_run.h"
#include "support/golden.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <csignal>

#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

TEST_F(ServeTest, shows_a_page_that_asks_for_the_rest)
{
    start({});
    const HttpAnswer shell = get("");
    EXPECT_EQ(shell.status, 200);
    EXPECT_EQ(shell.field("Content-Type"), "text/html; charset=utf-8");
    EXPECT_TRUE(shell.body.startsWith("<!DOCTYPE html>"));
    const QByteArray policy = shell.field("Content-Security-Policy");
    EXPECT_TRUE(policy.startsWith("default-src 'none'; script-src 'sha256-"));
    EXPECT_TRUE(policy.endsWith("; frame-ancestors 'none'"));
    EXPECT_FALSE(policy.contains("unsafe"));
}

TEST_F(ServeTest, draws_and_checks_a_file)
{
    writeFile(u"a.dot"_s, "digraph {\n  a [area=1 lable=x];\n}\n");
    start({u"-K"_s, u"TreeMap"_s, u"a.dot"_s});
    EXPECT_EQ(get("text").body, fileContent(u"a.dot"_s));
    EXPECT_EQ(get("text").field("Content-Type"), "text/plain; charset=utf-8");
    const QJsonObject state = waitFor([](const QJsonObject &now) {
        return !now[u"page"_s].isNull() && !now[u"findings"_s].toArray().isEmpty();
    });
    EXPECT_EQ(state[u"file"_s], u"a.dot"_s);
    EXPECT_EQ(state[u"engine"_s], u"treemap"_s);
    EXPECT_EQ(state[u"engines"_s].toArray().size(), 8);
    EXPECT_EQ(state[u"text"_s].toObject(),
              QJsonObject({{u"version"_s, 0},
                           {u"editable"_s, true},
                           {u"saved"_s, true},
                           {u"conflict"_s, false}}));
    EXPECT_EQ(state[u"page"_s][u"text"_s], 0);
    EXPECT_EQ(state[u"page"_s][u"engine"_s], u"treemap"_s);
    EXPECT_EQ(state[u"fault"_s], u""_s);
    EXPECT_EQ(state[u"findingsFault"_s], u""_s);
    const QJsonObject finding = state[u"findings"_s][0].toObject();
    EXPECT_EQ(finding[u"rule"_s], u"unknown-attribute"_s);
    EXPECT_EQ(finding[u"severity"_s], u"warning"_s);
    EXPECT_EQ(finding[u"line"_s], 2);
    EXPECT_EQ(finding[u"column"_s], 13);
    EXPECT_EQ(finding[u"suggestion"_s], u"did you mean 'label'?"_s);
    const QJsonObject read = readPage(page(state));
    EXPECT_EQ(read[u"title"_s], u"a"_s);
    EXPECT_EQ(read[u"data"_s][u"engine"_s], u"treemap"_s);
    EXPECT_EQ(get("page/1").field("Content-Security-Policy"), "frame-ancestors 'self'");
}

TEST_F(ServeTest, shows_the_page_that_orr_page_writes)
{
    writeFile(u"a.dot"_s, smallGraph());
    start({u"-K"_s, u"sunburst"_s, u"a.dot"_s});
    const QByteArray shown = page(settled());
    EXPECT_TRUE(succeeded(run({.arguments = {u"page"_s, u"-K"_s, u"sunburst"_s, u"a.dot"_s}})));
    EXPECT_EQ(shown, fileContent(u"a.html"_s));
}

TEST_F(ServeTest, draws_what_is_typed)
{
    start({});
    EXPECT_TRUE(state()[u"page"_s].isNull());
    EXPECT_FALSE(state()[u"busy"_s].toBool());
    EXPECT_EQ(edit(labelled("one")), 1);
    QJsonObject now = settled();
    EXPECT_TRUE(page(now).contains(">one<"));
    EXPECT_EQ(now[u"page"_s][u"text"_s], 1);
    EXPECT_EQ(edit("digraph {"), 2);
    now = settled();
    EXPECT_EQ(now[u"fault"_s], u"Unable to parse dot input"_s);
    EXPECT_EQ(now[u"page"_s][u"text"_s], 1);
    EXPECT_TRUE(page(now).contains(">one<"));
    now = waitFor([](const QJsonObject &one) { return !one[u"findings"_s].toArray().isEmpty(); });
    EXPECT_EQ(now[u"findings"_s][0][u"severity"_s], u"error"_s);
    EXPECT_EQ(edit(labelled("two"), "bar"), 3);
    now = settled();
    EXPECT_TRUE(page(now).contains(">two<"));
    EXPECT_EQ(now[u"page"_s][u"engine"_s], u"bar"_s);
    EXPECT_EQ(now[u"fault"_s], u""_s);
}

TEST_F(ServeTest, draws_with_another_engine)
{
    writeFile(u"a.dot"_s, "digraph { graph [layout=treemap]; a [area=1]; }");
    start({u"a.dot"_s});
    EXPECT_EQ(readPage(page(settled()))[u"data"_s][u"engine"_s], u"treemap"_s);
    const HttpAnswer answer = post("engine?engine=bar");
    EXPECT_EQ(answer.status, 200);
    EXPECT_GT(answer.json()[u"version"_s].toInteger(), 0);
    const QJsonObject now =
        waitFor([](const QJsonObject &one) { return one[u"page"_s][u"engine"_s] == u"bar"_s; });
    EXPECT_EQ(readPage(page(now))[u"data"_s][u"engine"_s], u"bar"_s);
    EXPECT_EQ(now[u"text"_s][u"version"_s], 0);
    EXPECT_EQ(post("engine?engine=nonsense").status, 400);
}

TEST_F(ServeTest, keeps_the_last_pages)
{
    start({});
    for (const char *const label : {"v1", "v2", "v3", "v4"}) {
        edit(labelled(label));
        EXPECT_TRUE(page(settled()).contains('>' + QByteArray(label) + '<'));
    }
    EXPECT_EQ(get("page/1").status, 404);
    EXPECT_TRUE(get("page/2").body.contains(">v2<"));
    EXPECT_EQ(get("page/5").status, 404);
    EXPECT_EQ(get("page/x").status, 404);
}

TEST_F(ServeTest, takes_no_text_that_is_none)
{
    writeFile(u"a.dot"_s, "digraph { a [label=\"\xff\" area=1]; }");
    start({u"-K"_s, u"bar"_s, u"a.dot"_s});
    const QJsonObject now = settled();
    EXPECT_EQ(now[u"fault"_s], u""_s);
    EXPECT_EQ(now[u"text"_s][u"editable"_s], false);
    EXPECT_EQ(post("text?engine=bar", "digraph {}").status, 409);
    EXPECT_EQ(get("text").body, fileContent(u"a.dot"_s));
    EXPECT_EQ(post("text?engine=bar", "\xff").status, 400);
    EXPECT_EQ(post("text?engine=nonsense", "digraph {}").status, 400);
}

TEST_F(ServeTest, has_drawings_in_all_formats)
{
    writeFile(u"a b.dot"_s, smallGraph());
    start({u"-K"_s, u"treemap"_s, u"a b.dot"_s});
    const QList<QPair<QByteArray, QByteArray>> types{
        {"svg", "image/svg+xml"},
        {"png", "image/png"},
        {"jpg", "image/jpeg"},
        {"xdot1.2", "text/vnd.graphviz; charset=utf-8"},
        {"vsdx", "application/vnd.ms-visio.drawing"},
        {"vdx", "application/octet-stream"}};
    for (const auto &[format, type] : types) {
        const HttpAnswer answer = get("download/" + format);
        EXPECT_EQ(answer.status, 200);
        EXPECT_EQ(answer.field("Content-Type"), type);
        EXPECT_EQ(answer.field("Content-Disposition"),
                  "attachment; filename=\"a b." + format + "\"; filename*=UTF-8''a%20b." + format);
        const ProgramRun drawn = run(
            {.arguments = {u"-K"_s, u"treemap"_s, u"-T"_s, QString::fromUtf8(format), u"a b.dot"_s},
             .command = QStringLiteral(ORR_LAYOUT_PROGRAM)});
        EXPECT_EQ(answer.body, drawn.output) << format.toStdString();
    }
    EXPECT_EQ(get("download/gif").status, 404);
    edit("digraph {");
    const HttpAnswer fault = get("download/svg");
    EXPECT_EQ(fault.status, 422);
    EXPECT_EQ(fault.body, "Unable to parse dot input\n");
}

TEST_F(ServeTest, has_an_example_for_each_engine)
{
    start({});
    const QJsonArray list = QJsonDocument::fromJson(get("examples").body).array();
    ASSERT_EQ(list.size(), 8);
    EXPECT_EQ(list[7].toObject(),
              QJsonObject({{u"engine"_s, u"bar"_s},
                           {u"name"_s, u"bar"_s},
                           {u"title"_s, u"Lines of each module"_s}}));
    for (const QJsonValue &example : list) {
        const QByteArray engine = example[u"engine"_s].toString().toUtf8();
        const HttpAnswer text = get("examples/" + engine);
        EXPECT_EQ(text.status, 200);
        edit(text.body, engine);
        EXPECT_EQ(settled()[u"fault"_s], u""_s) << engine.toStdString();
    }
    QFile file(QStringLiteral(ORR_PROJECT_FOLDER "/examples/umlseq/login.dot"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(get("examples/umlseq").body, file.readAll());
    EXPECT_EQ(get("examples/gif").status, 404);
}

TEST_F(ServeTest, tells_of_a_change_when_it_comes)
{
    start({});
    edit(labelled("one"));
    settled();
    const qint64 before =
        waitFor([](const QJsonObject &now) { return !now[u"busy"_s].toBool(); })[u"version"_s]
            .toInteger();
    const HttpAnswer atOnce = get("state?after=" + QByteArray::number(before - 1));
    EXPECT_GE(atOnce.json()[u"version"_s].toInteger(), before);
    const ORR::Graph::Descriptor waiting = connection();
    const qint64 now = state()[u"version"_s].toInteger();
    ORR::Graph::writeToEnd(waiting.number(),
                           "GET " + target("state?after=" + QByteArray::number(now))
                               + " HTTP/1.1\r\nHost: localhost:" + QByteArray::number(port())
                               + "\r\n\r\n");
    edit(labelled("two"));
    char said[12] = {};
    EXPECT_EQ(::recv(waiting.number(), said, sizeof said, MSG_WAITALL), 12);
    EXPECT_EQ(QByteArray(said, 12), "HTTP/1.1 200");
}

TEST_F(ServeTest, opens_a_browser_without_a_shell)
{
    writeFile(u"xdg-open"_s,
              "#!/bin/sh\nprintf '%s\\n' \"$DISPLAY\" \"$@\" >opened~ && mv opened~ opened\n");
    QFile::setPermissions(path(u"xdg-open"_s), QFile::ReadOwner | QFile::ExeOwner);
    start({u"--open"_s, u"$(touch a).dot"_s}, u"DISPLAY=:7 PATH=$PWD:$PATH exec \"$0\" \"$@\""_s);
    for (int i = 0; i < 20'000 && !files().contains(u"opened"_s); ++i)
        ::usleep(1000);
    EXPECT_EQ(fileContent(u"opened"_s),
              ":7\nhttp://127.0.0.1:" + QByteArray::number(port()) + target("") + '\n');
    EXPECT_EQ(files(), QStringList({u"opened"_s, u"xdg-open"_s}));
}
