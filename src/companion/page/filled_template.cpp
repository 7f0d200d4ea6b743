#include "companion/page/filled_template.h"

#include <QCryptographicHash>

namespace ORR::Companion {

namespace {

QByteArrayView bytesOf(std::string_view text)
{
    return {text.data(), qsizetype(text.size())};
}

} // namespace

// In one pass, so that nothing is filled in twice.
void fillTemplate(std::string_view text,
                  const std::function<QByteArray(std::string_view place)> &contentOf,
                  QByteArray *page)
{
    for (size_t open = text.find("{{"); open != std::string_view::npos; open = text.find("{{")) {
        const size_t close = text.find("}}", open);
        page->append(bytesOf(text.substr(0, open)));
        page->append(contentOf(text.substr(open + 2, close - open - 2)));
        text.remove_prefix(close + 2);
    }
    page->append(bytesOf(text));
}

QByteArray sourceByHash(std::string_view text)
{
    const QByteArray hash = QCryptographicHash::hash(bytesOf(text), QCryptographicHash::Sha256);
    return "'sha256-" + hash.toBase64() + '\'';
}

} // namespace ORR::Companion
