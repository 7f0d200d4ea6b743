#include "companion/import/dependencies/deps_packages.h"

#include "companion/import/reading/json_kinds.h"

#include <QHash>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr QByteArrayView modules = "node_modules/";
// Places grow with the depth; npm itself gets nowhere near.
constexpr int deepestNesting = 50;
using PackageHash = QHash<QByteArray, JsonValue>;

// "node_modules/a/node_modules/@b/c" is "@b/c"; a folder of the workspace is itself.
QByteArray npmName(const QByteArray &place, const JsonValue &package)
{
    const qsizetype last = place.lastIndexOf(modules);
    if (last >= 0)
        return place.sliced(last + modules.size());
    const QByteArray name = package["name"].bytes();
    return name.isEmpty() ? (place.isEmpty() ? QByteArray("(this package)") : place) : name;
}

// The folder in which the one of a package stands; false at the top.
bool goUp(QByteArray *place)
{
    if (place->isEmpty())
        return false;
    const qsizetype above = place->lastIndexOf('/' + modules.toByteArray());
    const qsizetype slash = place->lastIndexOf('/');
    *place = above > 0               ? place->first(above)
        : place->startsWith(modules) ? QByteArray()
        : slash > 0                  ? place->first(slash)
                                     : QByteArray();
    return true;
}

// Where the package lies that another one gets by a name; null if it is not installed.
QByteArray installedPlace(const PackageHash &packages, QByteArray around, const QByteArray &name)
{
    do {
        const QByteArray place =
            (around.isEmpty() ? QByteArray() : around + '/') + modules.toByteArray() + name;
        const auto found = packages.constFind(place);
        if (found == packages.cend())
            continue;
        const QByteArray target = (*found)["resolved"].bytes();
        const bool isLink = (*found)["link"].kind() == JsonValue::True;
        return isLink && packages.contains(target) ? target : place;
    } while (goUp(&around));
    return {};
}

// Things by their names; where several have one, all but the first with what tells them apart.
class NamedPackages
{
public:
    explicit NamedPackages(Dependencies *all) : dependencies(all) { }

    void add(const QByteArray &key, QByteArray name, const QByteArray &version)
    {
        if (name.isEmpty())
            name = "(no name)";
        if (keyOf.contains(name))
            name += " " + version;
        const QByteArray first = name;
        for (int copy = 2; keyOf.contains(name); ++copy)
            name = first + " #" + QByteArray::number(copy);
        keyOf.insert(name, key);
        const Dependencies::Item item = dependencies->thing(name);
        if (item != WeightTree::root)
            items.insert(key, item);
    }
    void need(const QByteArray &tail, const QByteArray &head)
    {
        if (items.contains(tail) && items.contains(head))
            dependencies->need(items.value(tail), items.value(head));
    }

private:
    Dependencies *dependencies;
    QHash<QByteArray, QByteArray> keyOf;
    QHash<QByteArray, Dependencies::Item> items;
};

void tellOfMissing(const ImportPlace &place, qsizetype missing, DepsReading *reading)
{
    if (missing > 0)
        reading->notes.append(
            {place, u"%1 dependencies are not among the packages and are left out"_s.arg(missing)});
}

// One of the first version of lock files, in which they lie within each other as their folders do.
struct NestedPackage
{
    QByteArray place; // of its folder
    JsonValue package;
    int depth = 0;
};

// All of them, the root first; none if they are nested too deep.
QList<NestedPackage> nestedPackages(const JsonValue &root, JsonKinds *kinds)
{
    QList<NestedPackage> found{{.place = {}, .package = root}};
    for (qsizetype i = 0; i < found.size(); ++i) {
        const NestedPackage around = found[i]; // the list moves as it grows
        if (around.depth > deepestNesting)
            return {};
        const QByteArray folder = around.place.isEmpty() ? QByteArray() : around.place + '/';
        const JsonValue within = kinds->object(around.package["dependencies"]);
        for (JsonValue one = within.first(); !one.isMissing(); one = one.next())
            found.append({.place = folder + modules.toByteArray() + one.name(),
                          .package = kinds->object(one),
                          .depth = around.depth + 1});
    }
    return found;
}

void readNestedLock(const JsonDocument &document, DepsReading *reading)
{
    const JsonValue root = document.root();
    if (!root["dependencies"].isObject()) {
        reading->fault = document.faultAt(
            root, u"this lock file has neither 'packages' nor, as of version 1, 'dependencies'"_s);
        return;
    }
    JsonKinds kinds(&document);
    const QList<NestedPackage> all = nestedPackages(root, &kinds);
    if (all.isEmpty()) {
        reading->fault = document.faultAt(
            root, u"its packages are nested deeper than %1 levels"_s.arg(deepestNesting));
        return;
    }
    PackageHash packages;
    NamedPackages named(&reading->dependencies);
    for (const auto &[place, package, depth] : all) {
        packages.insert(place, package);
        named.add(place, npmName(place, package), kinds.string(package["version"]).bytes());
    }
    QSet<QByteArray> needed;
    qsizetype missing = 0;
    for (const auto &[place, package, depth] : all) {
        // Of the root a word.
        const JsonValue names = place.isEmpty() ? JsonValue() : kinds.object(package["requires"]);
        for (JsonValue one = names.first(); !one.isMissing(); one = one.next()) {
            const QByteArray found = installedPlace(packages, place, one.name());
            named.need(place, found);
            needed.insert(found);
            missing += found.isEmpty() ? 1 : 0;
        }
    }
    for (const auto &[place, package, depth] : all) {
        if (!place.isEmpty() && !needed.contains(place))
            named.need({}, place);
    }
    tellOfMissing(document.faultAt(root["dependencies"], {}).place, missing, reading);
    reading->fault = kinds.fault();
}

// By whom it was asked for to begin with.
QByteArray cargoGroup(const JsonValue &package)
{
    return package["source"].isString() ? QByteArray("dependencies/") : QByteArray("workspace/");
}

} // namespace

void readNpmLock(const JsonDocument &document, DepsReading *reading)
{
    reading->meaning.name = document.root()["name"].text();
    reading->meaning.things = u"packages"_s;
    JsonKinds kinds(&document);
    const JsonValue all = kinds.object(document.root()["packages"]);
    if (!all.isObject()) {
        if (!(reading->fault = kinds.fault()))
            readNestedLock(document, reading);
        return;
    }
    PackageHash packages;
    NamedPackages named(&reading->dependencies);
    for (JsonValue package = all.first(); !package.isMissing(); package = package.next()) {
        kinds.object(package);
        packages.insert(package.name(), package);
        if (package["link"].kind() != JsonValue::True)
            named.add(package.name(), npmName(package.name(), package),
                      kinds.string(package["version"]).bytes());
    }
    qsizetype missing = 0;
    for (JsonValue package = all.first(); !package.isMissing(); package = package.next()) {
        for (const QByteArrayView list :
             {QByteArrayView("dependencies"), QByteArrayView("devDependencies"),
              QByteArrayView("optionalDependencies"), QByteArrayView("peerDependencies")}) {
            const JsonValue needed = kinds.object(package[list]);
            for (JsonValue one = needed.first(); !one.isMissing(); one = one.next()) {
                const QByteArray place = installedPlace(packages, package.name(), one.name());
                if (place.isEmpty())
                    missing += list == "dependencies" ? 1 : 0;
                else
                    named.need(package.name(), place);
            }
        }
    }
    tellOfMissing(document.faultAt(all, {}).place, missing, reading);
    reading->fault = kinds.fault();
}

void readCargoMetadata(const JsonDocument &document, DepsReading *reading)
{
    const JsonValue nodes = document.root()["resolve"]["nodes"];
    if (!nodes.isArray()) {
        reading->fault = document.faultAt(
            document.root(),
            u"nothing is resolved here; leave out --no-deps where it is written"_s);
        return;
    }
    JsonKinds kinds(&document);
    NamedPackages named(&reading->dependencies);
    const JsonValue packages = kinds.array(document.root()["packages"]);
    for (JsonValue one = packages.first(); !one.isMissing(); one = one.next()) {
        const JsonValue package = kinds.object(one);
        named.add(kinds.string(package["id"]).bytes(),
                  cargoGroup(package) + kinds.string(package["name"]).bytes(),
                  kinds.string(package["version"]).bytes());
    }
    for (JsonValue one = nodes.first(); !one.isMissing(); one = one.next()) {
        const JsonValue node = kinds.object(one);
        const QByteArray tail = kinds.string(node["id"]).bytes();
        const JsonValue needed = kinds.array(node["dependencies"]);
        for (JsonValue id = needed.first(); !id.isMissing(); id = id.next())
            named.need(tail, kinds.string(id).bytes());
    }
    reading->fault = kinds.fault();
    reading->meaning.things = u"packages"_s;
}

} // namespace ORR::Companion
