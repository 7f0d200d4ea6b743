#include "companion/import/graphs/ctags_import.h"

#include "companion/import/reading/json_value.h"
#include "companion/produce/declarations_picture.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr std::array typeKinds{"class",     "struct",         "union",    "enum",
                               "interface", "trait",          "protocol", "record",
                               "type",      "implementation", "object",   "annotation"};
constexpr std::array functionKinds{"function",  "prototype",  "method",      "func",
                                   "procedure", "subroutine", "constructor", "singletonMethod"};
constexpr std::array valueKinds{"member",   "field",    "enumerator", "property", "attribute",
                                "constant", "variable", "accessor",   "signal",   "slot"};

template <size_t N>
bool isOneOf(const std::array<const char *, N> &kinds, const QByteArray &kind)
{
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

Declarations::Access accessOf(const QByteArray &access)
{
    static const QHash<QByteArray, Declarations::Access> known{
        {"public", Declarations::Public},
        {"protected", Declarations::Protected},
        {"private", Declarations::Private}};
    return known.value(access, Declarations::Unsaid);
}

// Unnamed namespaces and types are numbered, which tells nobody anything.
QString namedScope(const QString &scope)
{
    static const QRegularExpression numbered(u"__anon[0-9a-f]+(::|\\.|$)"_s);
    QString named = scope;
    named.remove(numbered);
    while (named.endsWith(u':'))
        named.chop(1);
    return named;
}

// Of a type in another, however the language writes it.
QString qualified(const QString &scope, const QString &name, const QByteArray &language)
{
    const bool hasColons = language == "C++" || language == "C" || language == "Rust"
        || language == "PHP" || scope.contains(u"::");
    return scope.isEmpty() ? name : scope + (hasColons ? u"::"_s : u"."_s) + name;
}

// "(int a=1,char b)" without values, so that a prototype and its definition are one.
QString signatureText(const QString &signature)
{
    QString text;
    int depth = 0;
    bool isValue = false;
    for (const QChar c : signature) {
        depth += c == u'(' || c == u'<' || c == u'{' ? 1
            : c == u')' || c == u'>' || c == u'}'    ? -1
                                                     : 0;
        if (c == u'=')
            isValue = true;
        else if ((c == u',' && depth <= 1) || (c == u')' && depth <= 0))
            isValue = false;
        if (isValue)
            continue;
        text += c;
        if (c == u',')
            text += u' ';
    }
    return text.replace(u" *"_s, u"*"_s).replace(u" &"_s, u"&"_s);
}

// "typename:int" is ": int".
QString typeText(const QString &typeref)
{
    const qsizetype colon = typeref.indexOf(u':');
    const QString type = colon < 0 ? typeref : typeref.sliced(colon + 1);
    return type.isEmpty() ? QString() : u": "_s + type;
}

// Takes tags in any order; what refers to types is joined in the end.
class TagReader
{
public:
    void add(const JsonValue &tag);
    Declarations declared();

private:
    struct Pending
    {
        QString scope;
        QString file;
        Declarations::Member member;
        bool isFunction;
    };
    struct Bases
    {
        int declaration;
        QString scope;
        QString names;
    };

    int baseOf(const Bases &bases, const QString &name);

    Declarations declarations;
    QList<Pending> members;
    QList<Bases> inherited;
};

void TagReader::add(const JsonValue &tag)
{
    const QByteArray kind = tag["kind"].bytes();
    const QString name = tag["name"].text();
    const QString scope = namedScope(tag["scope"].text());
    if (name.isEmpty() || name.startsWith(u"__anon"))
        return;
    if (isOneOf(typeKinds, kind)) {
        const int made = declarations.declare(qualified(scope, name, tag["language"].bytes()),
                                              QString::fromUtf8(kind));
        if (const QString bases = tag["inherits"].text(); !bases.isEmpty())
            inherited.append({made, scope, bases});
        return;
    }
    const bool isFunction = isOneOf(functionKinds, kind);
    if (!isFunction && (!isOneOf(valueKinds, kind) || scope.isEmpty()))
        return;
    const QString text = name + (isFunction ? signatureText(tag["signature"].text()) : QString())
        + typeText(tag["typeref"].text());
    members.append(
        {scope,
         tag["path"].text(),
         {text, accessOf(tag["access"].bytes()), qint64(std::min(tag["line"].number(), 1e15))},
         isFunction});
}

// As the compiler looks for a name: in the scope, then in those around it. A name that is not known
// is a type of elsewhere.
int TagReader::baseOf(const Bases &bases, const QString &name)
{
    QString around = bases.scope;
    for (;;) {
        const int found = declarations.find(around.isEmpty() ? name : around + u"::"_s + name);
        const int other = found >= 0 ? found : declarations.find(around + u'.' + name);
        if (other >= 0)
            return other;
        if (around.isEmpty())
            return declarations.declare(name, u"elsewhere"_s);
        const qsizetype end = std::max(around.lastIndexOf(u"::"), around.lastIndexOf(u'.'));
        around.truncate(std::max<qsizetype>(0, end));
    }
}

Declarations TagReader::declared()
{
    for (const Pending &pending : std::as_const(members)) {
        const int scope = pending.scope.isEmpty() ? -1 : declarations.find(pending.scope);
        if (scope >= 0)
            declarations.addMember(scope, pending.member);
        else if (pending.isFunction)
            declarations.addMember(declarations.declare(pending.file, u"file"_s), pending.member);
    }
    for (const Bases &bases : std::as_const(inherited)) {
        for (const QStringView name : QStringView(bases.names).split(u',')) {
            if (!name.trimmed().isEmpty())
                declarations.inherit(bases.declaration, baseOf(bases, name.trimmed().toString()));
        }
    }
    return declarations;
}

// "!_TAG_FILE_FORMAT", or "main<tab>main.c<tab>/^int main()$/;"<tab>f".
bool isClassicTags(QByteArrayView beginning)
{
    if (beginning.startsWith("!_TAG_"))
        return true;
    const qsizetype end = beginning.indexOf('\n');
    const QByteArrayView line = end < 0 ? beginning : beginning.first(end);
    return line.count('\t') >= 2 && line.contains(";\"");
}

} // namespace

int likenessOfCtags(QByteArrayView beginning)
{
    // The classic form is told what to do.
    return beginning.startsWith("{\"_type\": \"") ? 95 : isClassicTags(beginning) ? 90 : 0;
}

ImportResult readCtags(std::vector<ImportSource> &sources, const ImportOptions & /*options*/)
{
    ImportResult result;
    TagReader tags;
    for (ImportSource &source : sources) {
        if (isClassicTags(source.beginning())) {
            result.fault = ImportFault{
                {.source = source.name(), .line = 1},
                u"this is the classic form of tags; 'ctags --output-format=json' writes JSON"_s};
            return result;
        }
        QByteArrayView line;
        while (source.nextLine(&line)) {
            if (line.trimmed().isEmpty())
                continue;
            const auto tag = JsonDocument::read(line.toByteArray(), source.name(), &result.fault);
            if (tag && tag->root()["_type"].isMissing())
                result.fault = tag->faultAt(tag->root(), u"this is no tag: it has no '_type'"_s);
            if (result.fault) {
                result.fault->place.line = source.lineNumber();
                return result;
            }
            if (tag->root()["_type"].bytes() == "tag")
                tags.add(tag->root());
        }
    }
    Declarations declarations = tags.declared();
    if (declarations.all().isEmpty()) {
        result.fault = ImportFault{{.source = sources.front().name()},
                                   u"there are neither types nor functions among the tags"_s};
        return result;
    }
    result.picture = std::make_unique<DeclarationsPicture>(std::move(declarations));
    return result;
}

} // namespace ORR::Companion
