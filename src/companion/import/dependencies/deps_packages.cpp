#include "companion/import/dependencies/deps_packages.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr QByteArrayView modules = "node_modules/";
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

// By whom it was asked for to begin with.
QByteArray cargoGroup(const JsonValue &package)
{
    return package["source"].isString() ? QByteArray("dependencies/") : QByteArray("workspace/");
}

} // namespace

void readNpmLock(const JsonDocument &document, DepsReading *reading)
{
    const JsonValue all = document.root()["packages"];
    if (!all.isObject()) {
        reading->fault = document.faultAt(
            document.root(),
            u"this lock file has no 'packages'; npm writes them from lockfileVersion 2 on"_s);
        return;
    }
    PackageHash packages;
    NamedPackages named(&reading->dependencies);
    for (JsonValue package = all.first(); !package.isMissing(); package = package.next()) {
        packages.insert(package.name(), package);
        if (package["link"].kind() != JsonValue::True)
            named.add(package.name(), npmName(package.name(), package), package["version"].bytes());
    }
    qsizetype missing = 0;
    for (JsonValue package = all.first(); !package.isMissing(); package = package.next()) {
        for (const QByteArrayView list :
             {QByteArrayView("dependencies"), QByteArrayView("devDependencies"),
              QByteArrayView("optionalDependencies"), QByteArrayView("peerDependencies")}) {
            const JsonValue needed = package[list];
            if (!needed.isObject())
                continue;
            for (JsonValue one = needed.first(); !one.isMissing(); one = one.next()) {
                const QByteArray place = installedPlace(packages, package.name(), one.name());
                if (place.isEmpty())
                    missing += list == "dependencies" ? 1 : 0;
                else
                    named.need(package.name(), place);
            }
        }
    }
    if (missing > 0)
        reading->notes.append(document.faultAt(
            all, u"%1 dependencies are not among the packages and are left out"_s.arg(missing)));
    reading->meaning.name = document.root()["name"].text();
    reading->meaning.things = u"packages"_s;
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
    NamedPackages named(&reading->dependencies);
    const JsonValue packages = document.root()["packages"];
    for (JsonValue one = packages.first(); !one.isMissing(); one = one.next())
        named.add(one["id"].bytes(), cargoGroup(one) + one["name"].bytes(), one["version"].bytes());
    for (JsonValue node = nodes.first(); !node.isMissing(); node = node.next()) {
        const JsonValue needed = node["dependencies"];
        for (JsonValue id = needed.first(); !id.isMissing(); id = id.next())
            named.need(node["id"].bytes(), id.bytes());
    }
    reading->meaning.things = u"packages"_s;
}

} // namespace ORR::Companion
