#include "companion/import/reading/json_kinds.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/reading/written_number.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

QString kindWords(JsonValue::Kind kind)
{
    switch (kind) {
    case JsonValue::Missing:
        return u"nothing"_s;
    case JsonValue::Null:
        return u"null"_s;
    case JsonValue::False:
        return u"false"_s;
    case JsonValue::True:
        return u"true"_s;
    case JsonValue::Number:
        return u"a number"_s;
    case JsonValue::String:
        return u"a string"_s;
    case JsonValue::Array:
        return u"an array"_s;
    case JsonValue::Object:
        return u"an object"_s;
    }
    return {};
}

} // namespace

JsonValue JsonKinds::refused(const JsonValue &value, JsonValue::Kind kind)
{
    const QString found =
        value.isString() ? quotedText(QByteArrayView(value.bytes())) : kindWords(value.kind());
    if (!firstFault)
        firstFault = document->faultAt(
            value, u"%1 is expected here, and this is %2"_s.arg(kindWords(kind), found));
    return {};
}

JsonValue JsonKinds::ofKind(const JsonValue &value, JsonValue::Kind kind)
{
    if (value.isMissing() || value.kind() == JsonValue::Null)
        return {};
    return value.kind() == kind ? value : refused(value, kind);
}

JsonValue JsonKinds::number(const JsonValue &value)
{
    if (value.isString() && writtenNumber(value.bytes()))
        return value;
    return ofKind(value, JsonValue::Number);
}

} // namespace ORR::Companion
