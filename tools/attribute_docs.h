#pragma once

#include "attributes/attribute_row.h"

#include <QString>

// The tables of attributes as they stand in the pages of docs/, between two lines
//
//   <!-- attributes: treemap -->
//   <!-- end of attributes -->
//
// of which the first names the table. The colours of `colors` stand there likewise.
namespace ORR::Docs {

// A table in Markdown: a line for each attribute, then the words of its choices and what the engine
// itself writes, where there are any.
QString attributeText(const Graph::AttributeTable &table);

// The names of colours in Markdown.
QString colorText();

// A page with what stands between its markers written anew.
struct RenewedPage
{
    QString text;
    QString failure; // of a marker that names nothing known, or that has no end; otherwise empty
};

RenewedPage renewedPage(const QString &page);

} // namespace ORR::Docs
