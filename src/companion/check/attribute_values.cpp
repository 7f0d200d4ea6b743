#include "companion/check/attribute_values.h"

namespace ORR::Companion {

using namespace Graph;

bool isMeant(const AttributeRow &row, const QString &value)
{
    switch (row.type) {
    case AttributeType::Number:
    case AttributeType::Inches:
    case AttributeType::Integer:
    case AttributeType::NumberPair:
    case AttributeType::InchPair:
        return isNumberMeant(row, value);
    case AttributeType::Color:
        return isColorMeant(row, value);
    case AttributeType::Choice:
    case AttributeType::Words:
        return isWordMeant(row, value);
    case AttributeType::Text:
        return true;
    }
    return true;
}

Finding valueFinding(const AttributeRow &row, const QString &value)
{
    switch (row.type) {
    case AttributeType::Number:
    case AttributeType::Inches:
    case AttributeType::Integer:
    case AttributeType::NumberPair:
    case AttributeType::InchPair:
        return numberFinding(row, value);
    case AttributeType::Color:
        return colorFinding(row, value);
    default:
        return wordFinding(row, value);
    }
}

} // namespace ORR::Companion
