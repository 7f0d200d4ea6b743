#pragma once

#include "companion/import/reading/json_value.h"

#include <optional>

namespace ORR::Companion {

// Takes values of JSON for what they should be, and keeps the first that is something else as a
// fault: "an array is expected here, and this is a number". What is missing or null is missing,
// which is no fault.
class JsonKinds
{
public:
    // The document is to outlive it.
    explicit JsonKinds(const JsonDocument *read) : document(read) { }

    // The value, or a missing one if it is of another kind.
    JsonValue array(const JsonValue &value) { return ofKind(value, JsonValue::Array); }
    JsonValue object(const JsonValue &value) { return ofKind(value, JsonValue::Object); }
    JsonValue string(const JsonValue &value) { return ofKind(value, JsonValue::String); }
    // A number, also one that is written as a string.
    JsonValue number(const JsonValue &value);

    // Of the first value that was of another kind.
    const std::optional<ImportFault> &fault() const { return firstFault; }

private:
    JsonValue ofKind(const JsonValue &value, JsonValue::Kind kind);
    JsonValue refused(const JsonValue &value, JsonValue::Kind kind);

    const JsonDocument *document;
    std::optional<ImportFault> firstFault;
};

} // namespace ORR::Companion
