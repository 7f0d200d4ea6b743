#include "companion/import/reading/json_value.h"

#include "companion/import/reading/json_bytes.h"
#include "graph/decimal.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// Of a longer path the middle is left out.
constexpr qsizetype shownPathEnds = 8;

} // namespace

// Takes the events of the library's reader, which keeps no stack of its own calls.
class JsonBuilder
{
public:
    using number_integer_t = nlohmann::json::number_integer_t;
    using number_unsigned_t = nlohmann::json::number_unsigned_t;
    using number_float_t = nlohmann::json::number_float_t;
    using string_t = nlohmann::json::string_t;
    using binary_t = nlohmann::json::binary_t;

    JsonBuilder(JsonDocument *made, const char *first, const JsonProgress *seen)
        : document(made), begin(first), progress(seen), told(first)
    {
    }

    bool null() { return add(JsonValue::Null); }
    bool boolean(bool value) { return add(value ? JsonValue::True : JsonValue::False); }
    bool number_integer(number_integer_t value)
    {
        return add(JsonValue::Number, QByteArray::number(qint64(value)));
    }
    bool number_unsigned(number_unsigned_t value)
    {
        return add(JsonValue::Number, QByteArray::number(quint64(value)));
    }
    bool number_float(number_float_t /*value*/, const string_t &written)
    {
        return add(JsonValue::Number, QByteArray::fromStdString(written));
    }
    bool string(const string_t &value)
    {
        return add(JsonValue::String, QByteArray::fromStdString(value));
    }
    bool binary(const binary_t & /*value*/) { return false; } // not of a text
    bool start_object(size_t /*count*/) { return open(JsonValue::Object); }
    bool start_array(size_t /*count*/) { return open(JsonValue::Array); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }
    bool key(const string_t &name)
    {
        pendingName = QByteArray::fromStdString(name);
        told = progress->byte;
        return true;
    }
    bool parse_error(size_t position, const std::string & /*token*/,
                     const nlohmann::detail::exception &error)
    {
        faultOffset = qint64(position) - progress->added;
        faultWords = QString::fromUtf8(error.what());
        return false;
    }

    ImportFault fault() const;

private:
    bool add(JsonValue::Kind kind, const QByteArray &bytes = {});
    bool open(JsonValue::Kind kind);
    bool close();
    qint64 nextStart() const;
    QString nextPath() const;

    JsonDocument *document;
    const char *begin;
    const JsonProgress *progress;
    const char *told; // how far the reader was at the event before
    qint32 current = -1; // the array or object that is open
    QByteArray pendingName;
    qint64 faultOffset = -1;
    QString faultWords;
};

// Where the value begins that is told now. The reader is behind it, and behind a number by one
// more.
qint64 JsonBuilder::nextStart() const
{
    const char *start = told;
    while (start < progress->byte && QByteArrayView(" \t\r\n,:").contains(*start))
        ++start;
    return start - begin;
}

bool JsonBuilder::add(JsonValue::Kind kind, const QByteArray &bytes)
{
    const qint32 made = qint32(document->nodes.size());
    document->nodes.append({.kind = kind,
                            .parent = current,
                            .offset = nextStart(),
                            .name = std::exchange(pendingName, {}),
                            .bytes = bytes});
    if (current >= 0) {
        JsonDocument::Node &above = document->nodes[current];
        (above.lastChild < 0 ? above.firstChild : document->nodes[above.lastChild].next) = made;
        above.lastChild = made;
        ++above.count;
    }
    told = progress->byte;
    return true;
}

bool JsonBuilder::open(JsonValue::Kind kind)
{
    add(kind);
    current = qint32(document->nodes.size() - 1);
    return true;
}

bool JsonBuilder::close()
{
    current = document->nodes[current].parent;
    told = progress->byte;
    return true;
}

// Of the value that would be added next.
QString JsonBuilder::nextPath() const
{
    const JsonValue around(document, current);
    if (around.isArray())
        return around.path() + u'[' + QString::number(around.count()) + u']';
    return around.isObject() ? around.path() + u'.' + QString::fromUtf8(pendingName)
                             : around.path();
}

ImportFault JsonBuilder::fault() const
{
    ImportPlace place{.source = document->source, .offset = faultOffset, .path = {}};
    // The reader of the library gives up on it.
    if (faultWords.startsWith("[json.exception.out_of_range"_L1)) {
        place.offset = nextStart();
        place.path = nextPath();
        return {place, u"a number is beyond what can be held"_s};
    }
    place.path = JsonValue(document, current).path();
    // "[json.exception.parse_error.101] parse error at line 1, column 2: what; last read: ..."
    qsizetype start = faultWords.indexOf(u": "_s);
    const QString words = start < 0 ? faultWords : faultWords.sliced(start + 2);
    return {place, u"this is no JSON: "_s + words};
}

std::optional<JsonDocument> JsonDocument::read(const QByteArray &text, const std::string &source,
                                               std::optional<ImportFault> *fault)
{
    JsonDocument document;
    document.source = source;
    const char *const begin = text.constData();
    const char *const end = begin + text.size();
    JsonProgress progress{.byte = begin};
    JsonBuilder builder(&document, begin, &progress);
    const bool isRead = nlohmann::json::sax_parse(JsonBytes(begin, end, &progress),
                                                  JsonBytes(end, end, &progress), &builder);
    if (isRead)
        return document;
    *fault = builder.fault();
    return std::nullopt;
}

ImportFault JsonDocument::faultAt(const JsonValue &value, const QString &sentence) const
{
    return {{.source = source, .offset = value.offset(), .path = value.path()}, sentence};
}

JsonValue::Kind JsonValue::kind() const
{
    return index < 0 ? Missing : document->nodes[index].kind;
}

QByteArray JsonValue::bytes() const
{
    return isString() ? document->nodes[index].bytes : QByteArray();
}

double JsonValue::number(double other) const
{
    if (!isNumber() && !isString())
        return other;
    const QByteArray &written = document->nodes[index].bytes;
    if (written.isEmpty() || !(written[0] == '-' || (written[0] >= '0' && written[0] <= '9')))
        return other;
    return Graph::numberFrom(QByteArrayView(written));
}

JsonValue JsonValue::operator[](QByteArrayView wanted) const
{
    if (!isObject())
        return {};
    JsonValue found;
    for (JsonValue member = first(); !member.isMissing(); member = member.next()) {
        if (document->nodes[member.index].name == wanted)
            found = member;
    }
    return found;
}

qsizetype JsonValue::count() const
{
    return index < 0 ? 0 : document->nodes[index].count;
}

JsonValue JsonValue::first() const
{
    return index < 0 ? JsonValue() : JsonValue(document, document->nodes[index].firstChild);
}

JsonValue JsonValue::next() const
{
    return index < 0 ? JsonValue() : JsonValue(document, document->nodes[index].next);
}

QByteArray JsonValue::name() const
{
    return index < 0 ? QByteArray() : document->nodes[index].name;
}

qint64 JsonValue::offset() const
{
    return index < 0 ? -1 : document->nodes[index].offset;
}

QString JsonValue::path() const
{
    QStringList parts; // the innermost first
    for (qint32 i = index; i >= 0 && document->nodes[i].parent >= 0;
         i = document->nodes[i].parent) {
        const JsonDocument::Node &above = document->nodes[document->nodes[i].parent];
        if (above.kind == Object) {
            parts.append(u'.' + QString::fromUtf8(document->nodes[i].name));
            continue;
        }
        qint64 place = 0;
        for (qint32 other = above.firstChild; other != i; other = document->nodes[other].next)
            ++place;
        parts.append(u'[' + QString::number(place) + u']');
    }
    const bool isLong = parts.size() > 2 * shownPathEnds;
    if (isLong)
        parts = parts.first(shownPathEnds) << u"..."_s << parts.last(shownPathEnds);
    std::reverse(parts.begin(), parts.end());
    return u'$' + parts.join(QString());
}

} // namespace ORR::Companion
