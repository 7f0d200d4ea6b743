#include "companion/serve/routes.h"

#include "companion/examples/examples.h"
#include "companion/serve/shell_document.h"
#include "drawing/format_table.h"
#include "drawing/layout_table.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// What a route is called with.
struct Asked
{
    ServeSession *session;
    const RouteCall &call;
    QByteArray rest; // of the path, behind the route's own
    const Reply &reply;
};

struct Route
{
    QByteArrayView method;
    QByteArrayView path; // with a slash at its end, more is to follow
    void (*run)(const Asked &asked);
};

Answer json(const QJsonObject &object, int status = 200)
{
    return jsonAnswer(QJsonDocument(object).toJson(QJsonDocument::Compact), status);
}

Answer nothingThere()
{
    return faultAnswer(404, "There is nothing here.");
}

// A number of the query, -1 for none.
qint64 numberOf(const Asked &asked, const QString &name)
{
    bool isNumber = false;
    const qint64 number = asked.call.query.queryItemValue(name).toLongLong(&isNumber);
    return isNumber ? number : -1;
}

// The engine that the query names, empty for the one of the text; nothing if there is none such.
std::optional<QByteArray> engineOf(const Asked &asked)
{
    const QString name = asked.call.query.queryItemValue(u"engine"_s, QUrl::FullyDecoded).toLower();
    const bool isThere = name.isEmpty() || Drawing::chooseLayout(name);
    return isThere ? std::optional(name.toUtf8()) : std::nullopt;
}

void showShell(const Asked &asked)
{
    const QString title = QString::fromUtf8(asked.session->stem());
    asked.reply({.type = "text/html; charset=utf-8",
                 .body = shellDocument(title),
                 .policy = shellPolicy() + "; frame-ancestors 'none'"});
}

// The policy of its own stands in the page.
void showPage(const Asked &asked)
{
    const QByteArray document = asked.session->page(asked.rest.toLongLong());
    if (document.isEmpty())
        return asked.reply(nothingThere());
    asked.reply(
        {.type = "text/html; charset=utf-8", .body = document, .policy = "frame-ancestors 'self'"});
}

void tellState(const Asked &asked)
{
    const auto tell = [session = asked.session, reply = asked.reply] {
        reply(jsonAnswer(session->stateJson()));
    };
    asked.session->whenChanged(numberOf(asked, u"after"_s), tell);
}

void showText(const Asked &asked)
{
    asked.reply({.body = asked.session->text()->bytes()});
}

void takeText(const Asked &asked)
{
    const std::optional<QByteArray> engine = engineOf(asked);
    if (!engine)
        return asked.reply(faultAnswer(400, "There is no such engine."));
    if (!asked.call.body.isValidUtf8())
        return asked.reply(faultAnswer(400, "The text is not UTF-8."));
    ServedText *const text = asked.session->text();
    if (!text->isEditable())
        return asked.reply(
            faultAnswer(409, "The text of the file is not UTF-8, and stays as it is."));
    text->edit(asked.call.body, numberOf(asked, u"base"_s));
    asked.session->drawAgain(*engine);
    asked.reply(json({{u"version"_s, text->version()}}));
}

void takeEngine(const Asked &asked)
{
    const std::optional<QByteArray> engine = engineOf(asked);
    if (!engine)
        return asked.reply(faultAnswer(400, "There is no such engine."));
    asked.session->drawAgain(*engine);
    asked.reply(json({{u"version"_s, asked.session->version()}}));
}

void saveText(const Asked &asked)
{
    ServedText *const text = asked.session->text();
    const qint64 base = numberOf(asked, u"base"_s);
    const qint64 before = text->version();
    QByteArray fault = "the text has changed meanwhile";
    if (base < 0 || base == before)
        fault = text->save(numberOf(asked, u"force"_s) == 1);
    if (text->version() == before)
        asked.session->noteChange();
    else
        asked.session->drawAgain(asked.session->engine());
    if (fault.isEmpty())
        return asked.reply(json({{u"saved"_s, true}}));
    asked.reply(
        json({{u"fault"_s, QString::fromUtf8(fault)}, {u"conflict"_s, text->isConflict()}}, 409));
}

void takeFile(const Asked &asked)
{
    if (!asked.session->text()->take())
        return asked.reply(json({{u"fault"_s, u"the file can't be read"_s}}, 409));
    asked.session->drawAgain(asked.session->engine());
    asked.reply(json({{u"version"_s, asked.session->text()->version()}}));
}

QByteArray typeOf(Drawing::Format format)
{
    switch (format) {
    case Drawing::Format::Svg:
        return "image/svg+xml";
    case Drawing::Format::Png:
        return "image/png";
    case Drawing::Format::Jpg:
        return "image/jpeg";
    case Drawing::Format::XDot:
        return "text/vnd.graphviz; charset=utf-8";
    case Drawing::Format::Vsdx:
        return "application/vnd.ms-visio.drawing";
    default:
        return "application/octet-stream";
    }
}

void download(const Asked &asked)
{
    const qsizetype position = Drawing::formatNames().indexOf(QString::fromUtf8(asked.rest));
    if (position < 0)
        return asked.reply(nothingThere());
    const auto name = asked.session->stem() + '.' + asked.rest;
    const auto send = [=, reply = asked.reply](const DrawingAnswer &drawn) {
        if (!drawn.isDrawn)
            return reply(faultAnswer(422, drawn.message));
        reply({.type = typeOf(static_cast<Drawing::Format>(position)),
               .body = drawn.drawing,
               .disposition = dispositionOf(name)});
    };
    asked.session->download(qint32(position), send);
}

QString textOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

void listExamples(const Asked &asked)
{
    QJsonArray list;
    for (const Example &example : examples())
        list.append(QJsonObject{{u"engine"_s, textOf(example.engine)},
                                {u"name"_s, textOf(example.engine)},
                                {u"title"_s, textOf(example.title)}});
    asked.reply(jsonAnswer(QJsonDocument(list).toJson(QJsonDocument::Compact)));
}

void showExample(const Asked &asked)
{
    const auto all = examples();
    const auto found = std::ranges::find(all, std::string_view(asked.rest), &Example::engine);
    if (found == all.end())
        return asked.reply(nothingThere());
    asked.reply({.body = QByteArray(found->text.data(), qsizetype(found->text.size()))});
}

constexpr Route routes[] = {
    {"GET", "", showShell},
    {"GET", "page/", showPage},
    {"GET", "state", tellState},
    {"GET", "text", showText},
    {"POST", "text", takeText},
    {"POST", "engine", takeEngine},
    {"POST", "save", saveText},
    {"POST", "take", takeFile},
    {"GET", "download/", download},
    {"GET", "examples", listExamples},
    {"GET", "examples/", showExample},
};

bool isAt(const Route &route, const QByteArray &path)
{
    return route.path.endsWith('/') ? path.startsWith(route.path) : path == route.path;
}

} // namespace

void answerCall(ServeSession *session, const RouteCall &call, const Reply &reply)
{
    QByteArray allowed;
    for (const Route &route : routes) {
        if (!isAt(route, call.path))
            continue;
        if (route.method == call.method)
            return route.run({session, call, call.path.sliced(route.path.size()), reply});
        allowed += (allowed.isEmpty() ? "" : ", ") + route.method.toByteArray();
    }
    Answer answer =
        allowed.isEmpty() ? nothingThere() : faultAnswer(405, "This path takes another method.");
    answer.allowed = allowed;
    reply(answer);
}

QByteArray dispositionOf(const QByteArray &name)
{
    QByteArray plain = name;
    std::ranges::replace_if(
        plain, [](char c) { return c < ' ' || c > '~' || c == '"' || c == '\\' || c == '%'; }, '_');
    const QByteArray text = QString::fromUtf8(name).toUtf8(); // what is no UTF-8 is told as such
    return "attachment; filename=\"" + plain + "\"; filename*=UTF-8''" + text.toPercentEncoding();
}

} // namespace ORR::Companion
