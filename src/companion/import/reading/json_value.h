#pragma once

#include "companion/import/reading/import_fault.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <optional>

namespace ORR::Companion {

// A value of JSON (RFC 8259) that knows where it stands. A light handle into the document that made
// it, to be used no longer than that. Asking a value for what it is not is no fault: a member of
// what is no object is missing, the text of a number is empty.
class JsonDocument;
class JsonValue
{
public:
    enum Kind { Missing, Null, False, True, Number, String, Array, Object };

    JsonValue() = default;

    Kind kind() const;
    bool isMissing() const { return kind() == Missing; }
    bool isObject() const { return kind() == Object; }
    bool isArray() const { return kind() == Array; }
    bool isString() const { return kind() == String; }
    bool isNumber() const { return kind() == Number; }

    // The bytes of a string, in UTF-8, where those that are none are taken for Latin-1; empty for
    // anything else.
    QByteArray bytes() const;
    QString text() const { return QString::fromUtf8(bytes()); }
    // A number, also one that a string holds, as some tools write large ones; else `other`. Beyond
    // double it is infinite.
    double number(double other = 0) const;

    // Of an object: the member of that name, the last of several.
    JsonValue operator[](QByteArrayView name) const;
    // Of an array or an object: its values, in their order; names are empty for an array.
    qsizetype count() const;
    JsonValue first() const; // missing if there is none
    JsonValue next() const; // the one behind this one in the same array or object
    QByteArray name() const; // of a member

    // For a fault at this value.
    qint64 offset() const;
    QString path() const;

private:
    friend class JsonDocument;
    friend class JsonBuilder;
    JsonValue(const JsonDocument *whole, qint32 place) : document(whole), index(place) { }

    const JsonDocument *document = nullptr;
    qint32 index = -1;
};

// A whole text of JSON, nested as deep as it may be.
class JsonDocument
{
public:
    // The values, or what is wrong: byte, path, and what was found.
    static std::optional<JsonDocument> read(const QByteArray &text, const std::string &source,
                                            std::optional<ImportFault> *fault);

    JsonValue root() const { return {this, nodes.isEmpty() ? -1 : 0}; }

    // A fault at a value of this document: its place and the sentence.
    ImportFault faultAt(const JsonValue &value, const QString &sentence) const;

private:
    friend class JsonValue;
    friend class JsonBuilder;

    struct Node
    {
        JsonValue::Kind kind = JsonValue::Missing;
        qint32 parent = -1;
        qint32 firstChild = -1;
        qint32 lastChild = -1;
        qint32 next = -1;
        qint32 count = 0; // of children; of a child its place is counted when a path is asked for
        qint64 offset = 0;
        QByteArray name = {};
        QByteArray bytes = {}; // of a string; of a number as it is written
    };

    QList<Node> nodes;
    std::string source;
};

} // namespace ORR::Companion
