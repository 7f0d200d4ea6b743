#include "companion/import/dependencies/deps_builds.h"

#include "companion/import/reading/json_kinds.h"

#include <QDir>
#include <QFile>
#include <QHash>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// A file of replies; none, with its fault, if it can't be read.
std::optional<JsonDocument> readReply(const QString &path, DepsReading *reading)
{
    QFile file(path);
    const std::string name = path.toStdString();
    if (!file.open(QIODevice::ReadOnly)) {
        reading->fault = {{.source = name},
                          u"this reply of CMake can't be read: "_s + file.errorString()};
        return std::nullopt;
    }
    return JsonDocument::read(file.readAll(), name, &reading->fault);
}

// The name of a reply, which lies beside the others: no way out of the folder.
QString replyPath(const QString &folder, const JsonValue &name)
{
    return folder + u'/' + QFileInfo(name.text()).fileName();
}

JsonValue codemodelOf(const JsonValue &index)
{
    const JsonValue objects = index["objects"];
    for (JsonValue object = objects.first(); !object.isMissing(); object = object.next()) {
        if (object["kind"].bytes() == "codemodel")
            return object["jsonFile"];
    }
    return {};
}

// The targets of one configuration.
class TargetReader
{
public:
    TargetReader(const QString &replies, DepsReading *all) : folder(replies), reading(all) { }

    void read(const JsonValue &targets);

private:
    void add(const JsonDocument &target);

    struct Need
    {
        QByteArray tail;
        QByteArray head;
    };

    QString folder;
    DepsReading *reading;
    QHash<QByteArray, Dependencies::Item> items; // by the ids of targets
    QList<Need> needs;
    int passedOver = 0;
};

// What only runs commands is nothing that is linked.
void TargetReader::add(const JsonDocument &target)
{
    const JsonValue root = target.root();
    if (root["type"].bytes() == "UTILITY") {
        ++passedOver;
        return;
    }
    Dependencies &dependencies = reading->dependencies;
    const QByteArray id = root["id"].bytes();
    const QByteArray name = root["name"].bytes();
    if (name.isEmpty()) {
        reading->fault = target.faultAt(root, u"a target has no name"_s);
        return;
    }
    items.insert(id,
                 dependencies.thingIn(dependencies.group(root["paths"]["source"].bytes()), name));
    JsonKinds kinds(&target);
    const JsonValue list = kinds.array(root["dependencies"]);
    for (JsonValue one = list.first(); !one.isMissing(); one = one.next())
        needs.append({id, kinds.string(kinds.object(one)["id"]).bytes()});
    reading->fault = kinds.fault();
}

void TargetReader::read(const JsonValue &targets)
{
    for (JsonValue one = targets.first(); !one.isMissing(); one = one.next()) {
        const auto target = readReply(replyPath(folder, one["jsonFile"]), reading);
        if (target)
            add(*target);
        if (reading->fault)
            return;
    }
    for (const Need &need : std::as_const(needs)) {
        if (items.contains(need.tail) && items.contains(need.head))
            reading->dependencies.need(items.value(need.tail), items.value(need.head));
    }
    if (passedOver > 0)
        reading->notes.append(
            {{.source = folder.toStdString()},
             u"%1 targets that only run commands are left out"_s.arg(passedOver)});
}

} // namespace

void readCMakeReplies(const QString &folder, DepsReading *reading)
{
    // The last by name is the newest.
    const QStringList indexes =
        QDir(folder).entryList({u"index-*.json"_s}, QDir::Files, QDir::Name);
    if (indexes.isEmpty()) {
        reading->fault = {{.source = folder.toStdString()},
                          u"there is no reply of CMake's file API here (index-*.json)"_s};
        return;
    }
    const auto index = readReply(folder + u'/' + indexes.last(), reading);
    if (!index)
        return;
    const JsonValue name = codemodelOf(index->root());
    if (!name.isString()) {
        reading->fault = index->faultAt(index->root()["objects"],
                                        u"no codemodel was asked for; CMake writes one for the "
                                        "query codemodel-v2"_s);
        return;
    }
    const auto model = readReply(replyPath(folder, name), reading);
    if (!model)
        return;
    const JsonValue configuration = model->root()["configurations"].first();
    const JsonValue targets = configuration["targets"];
    if (!targets.isArray()) {
        reading->fault = model->faultAt(model->root(), u"there are no targets in this codemodel"_s);
        return;
    }
    TargetReader(folder, reading).read(targets);
    reading->meaning.needs = u"the row depends on the column"_s;
    reading->meaning.inCycle = u"both depend on each other, in a cycle"_s;
    reading->meaning.things = u"targets"_s;
}

} // namespace ORR::Companion
