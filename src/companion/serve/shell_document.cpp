#include "companion/serve/shell_document.h"

#include "companion/page/filled_template.h"
#include "companion/serve/shell_parts.h"
#include "output/xml_text.h"

namespace ORR::Companion {

namespace {

QByteArray bytesOf(std::string_view text)
{
    return {text.data(), qsizetype(text.size())};
}

} // namespace

QByteArray shellDocument(const QString &title)
{
    QByteArray document;
    const auto contentOf = [&](std::string_view place) {
        if (place == "title")
            return Graph::xmlEscaped(title, Graph::XmlForm::Text);
        if (place == "policy")
            return shellPolicy();
        return bytesOf(place == "theme" ? shellTheme : shellCode);
    };
    fillTemplate(shellTemplate, contentOf, &document);
    return document;
}

QByteArray shellPolicy()
{
    return "default-src 'none'; script-src " + sourceByHash(shellCode) + "; style-src "
        + sourceByHash(shellTheme)
        + "; connect-src 'self'; frame-src 'self'; img-src data:; base-uri 'none'; "
          "form-action 'none'";
}

} // namespace ORR::Companion
