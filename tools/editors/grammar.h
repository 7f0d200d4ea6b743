#pragma once

#include <QString>

namespace ORR::Docs {

// The grammar that editors colour by, with the names of all attributes written anew: those in the
// pattern of its rule "attribute". Empty if there is no such rule.
QString renewedGrammar(const QString &grammar);

} // namespace ORR::Docs
