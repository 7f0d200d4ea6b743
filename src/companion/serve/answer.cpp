#include "companion/serve/answer.h"

#include <algorithm>
#include <iterator>

namespace ORR::Companion {

namespace {

struct Reason
{
    int status;
    const char *text;
};

// Of RFC 9110.
constexpr Reason reasons[] = {
    {200, "OK"},
    {400, "Bad Request"},
    {403, "Forbidden"},
    {404, "Not Found"},
    {405, "Method Not Allowed"},
    {409, "Conflict"},
    {411, "Length Required"},
    {413, "Content Too Large"},
    {422, "Unprocessable Content"},
    {431, "Request Header Fields Too Large"},
};

QByteArray reasonOf(int status)
{
    const auto *const found = std::find_if(std::begin(reasons), std::end(reasons),
                                           [=](const Reason &one) { return one.status == status; });
    return found == std::end(reasons) ? QByteArray() : QByteArray(found->text);
}

QByteArray line(const char *name, const QByteArray &value)
{
    return value.isEmpty() ? QByteArray() : QByteArray(name) + ": " + value + "\r\n";
}

} // namespace

Answer faultAnswer(int status, const QByteArray &sentence)
{
    return {.status = status, .body = sentence + '\n'};
}

Answer jsonAnswer(const QByteArray &document, int status)
{
    return {.status = status, .type = "application/json", .body = document};
}

QByteArray headOf(const Answer &answer)
{
    return "HTTP/1.1 " + QByteArray::number(answer.status) + ' ' + reasonOf(answer.status) + "\r\n"
        + line("Content-Type", answer.type)
        + line("Content-Length", QByteArray::number(answer.body.size()))
        + line("Content-Disposition", answer.disposition) + line("Allow", answer.allowed)
        + line("Content-Security-Policy", answer.policy)
        + "X-Content-Type-Options: nosniff\r\n"
          "Referrer-Policy: no-referrer\r\n"
          "Cross-Origin-Resource-Policy: same-origin\r\n"
          "Cross-Origin-Opener-Policy: same-origin\r\n"
          "Cache-Control: no-store\r\n"
          "Connection: close\r\n\r\n";
}

} // namespace ORR::Companion
