#include "companion/page/page_document.h"

#include "companion/page/filled_template.h"
#include "companion/page/page_parts.h"
#include "output/xml_text.h"

namespace ORR::Companion {

namespace {

QByteArray styleOf(const PageContent &content)
{
    return QByteArray(pageTheme.data(), qsizetype(pageTheme.size())) + content.rules;
}

QByteArray policyOf(const PageContent &content)
{
    const QByteArray style = styleOf(content);
    return "default-src 'none'; script-src " + sourceByHash(pageCode) + "; style-src "
        + sourceByHash(std::string_view(style))
        + "; img-src data:; base-uri 'none'; form-action 'none'";
}

// What a place of the template is for.
QByteArray contentOf(std::string_view place, const PageContent &content)
{
    if (place == "title")
        return Graph::xmlEscaped(content.title, Graph::XmlForm::Text);
    if (place == "policy")
        return policyOf(content);
    if (place == "theme")
        return styleOf(content);
    if (place == "code")
        return QByteArray(pageCode.data(), qsizetype(pageCode.size()));
    return place == "data" ? content.data : content.drawing;
}

} // namespace

QByteArray pageDocument(const PageContent &content)
{
    QByteArray page;
    page.reserve(content.drawing.size() + content.data.size()
                 + qsizetype(pageTemplate.size() + pageTheme.size() + pageCode.size() + 1024));
    fillTemplate(
        pageTemplate, [&](std::string_view place) { return contentOf(place, content); }, &page);
    return page;
}

} // namespace ORR::Companion
