#include "companion/page/page_document.h"

#include "companion/page/page_parts.h"
#include "output/xml_text.h"

#include <QCryptographicHash>

namespace ORR::Companion {

namespace {

QByteArrayView bytesOf(std::string_view text)
{
    return {text.data(), qsizetype(text.size())};
}

QByteArray sourceByHash(std::string_view text)
{
    const QByteArray hash = QCryptographicHash::hash(bytesOf(text), QCryptographicHash::Sha256);
    return "'sha256-" + hash.toBase64() + '\'';
}

QByteArray policy()
{
    return "default-src 'none'; script-src " + sourceByHash(pageCode) + "; style-src "
        + sourceByHash(pageTheme) + "; img-src data:; base-uri 'none'; form-action 'none'";
}

// What a place of the template is for.
QByteArray contentOf(std::string_view place, const PageContent &content)
{
    if (place == "title")
        return Graph::xmlEscaped(content.title, Graph::XmlForm::Text);
    if (place == "policy")
        return policy();
    if (place == "theme")
        return bytesOf(pageTheme).toByteArray();
    if (place == "code")
        return bytesOf(pageCode).toByteArray();
    return place == "data" ? content.data : content.drawing;
}

} // namespace

// In one pass, so that what looks like a place in a content is none.
QByteArray pageDocument(const PageContent &content)
{
    QByteArray page;
    page.reserve(content.drawing.size() + content.data.size()
                 + qsizetype(pageTemplate.size() + pageTheme.size() + pageCode.size() + 1024));
    std::string_view rest = pageTemplate;
    for (size_t open = rest.find("{{"); open != std::string_view::npos; open = rest.find("{{")) {
        const size_t close = rest.find("}}", open);
        page += bytesOf(rest.substr(0, open));
        page += contentOf(rest.substr(open + 2, close - open - 2), content);
        rest.remove_prefix(close + 2);
    }
    return page + bytesOf(rest).toByteArray();
}

} // namespace ORR::Companion
