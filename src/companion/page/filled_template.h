#pragma once

#include <QByteArray>

#include <functional>
#include <string_view>

namespace ORR::Companion {

// Adds a template to the page, with its places such as {{title}} filled by what `contentOf` gives
// for their names. What looks like a place in a content is none.
void fillTemplate(std::string_view text,
                  const std::function<QByteArray(std::string_view place)> &contentOf,
                  QByteArray *page);

// The source of a Content-Security-Policy that allows this script or style alone, by its SHA-256.
QByteArray sourceByHash(std::string_view text);

} // namespace ORR::Companion
