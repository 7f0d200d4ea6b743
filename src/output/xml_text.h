#pragma once

#include <QByteArray>
#include <QString>

// Texts of the input as XML documents hold them. Who builds HTML for the toolkit escapes by its own
// `toHtmlEscaped`: an engine with a mark of its own to draw (layout/graflib/expander.cpp) knows no
// format, and so nothing of this folder.
namespace ORR::Graph {

// The text without the characters that XML 1.0 forbids in a document: most control characters,
// unpaired surrogates, U+FFFE and U+FFFF.
QString withoutForbiddenXml(const QString &text);

// What a writer turns into references. The two writers differ only in their spelling of the same
// text, which readers don't see; each keeps its own, so that drawings stay the same.
enum class XmlForm {
    Text, // `&` `<` `>` `"`: the content of an element, or an attribute value in double quotes
    Attribute, // besides, tab, line feed and return, which a reader would make blanks of
    DocumentText, // as the toolkit's document writer has the content of an element
    DocumentAttribute, // the same for an attribute value
};

// The text in this form, as UTF-8 and without what is forbidden.
QByteArray xmlEscaped(const QString &text, XmlForm form);

} // namespace ORR::Graph
