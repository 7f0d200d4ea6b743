#pragma once

#include <QByteArray>
#include <QString>

namespace ORR::Docs {

// What an editor needs to know of the engines, formats, colours and attributes, as JSON. Its form
// is that of editors/attributes.schema.json.
QByteArray attributeJson(const QString &version);

} // namespace ORR::Docs
