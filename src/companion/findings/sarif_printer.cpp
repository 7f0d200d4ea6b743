#include "companion/findings/sarif_printer.h"

#include "companion/findings/text_printer.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr auto schema = "https://json.schemastore.org/sarif-2.1.0-rtm.5.json"_L1;

QString fromTable(std::string_view text)
{
    return QString::fromLatin1(text.data(), qsizetype(text.size()));
}

// A text that is shown as it stands, which is most.
QJsonObject description(const QString &text)
{
    return {{u"text"_s, text}};
}

// The message of a result, in which braces would hold places for arguments.
QJsonObject message(QString text)
{
    return description(text.replace(u'{', "{{"_L1).replace(u'}', "}}"_L1));
}

QString uriOf(const QByteArray &file)
{
    const QByteArray name = file.isEmpty() ? "<stdin>" : file;
    const QString uri = QString::fromLatin1(name.toPercentEncoding("/"));
    return name.startsWith('/') ? "file://"_L1 + uri : uri;
}

QJsonObject ruleObject(const Rule &rule)
{
    return {
        {u"id"_s, fromTable(rule.id)},
        {u"shortDescription"_s, description(fromTable(rule.sentence))},
        {u"help"_s, description(fromTable(rule.help))},
        {u"defaultConfiguration"_s, QJsonObject{{u"level"_s, severityName(rule.severity)}}},
    };
}

QJsonObject region(const Finding &finding)
{
    QJsonObject object{
        {u"startLine"_s, qint64(finding.line)},
        {u"startColumn"_s, qint64(finding.column)},
    };
    if (finding.endLine > 0) {
        object.insert(u"endLine"_s, qint64(finding.endLine));
        object.insert(u"endColumn"_s, qint64(finding.endColumn));
    }
    return object;
}

QJsonObject artifactPlace(const QString &uri, qsizetype artifact)
{
    return {
        {u"artifactLocation"_s, QJsonObject{{u"uri"_s, uri}, {u"index"_s, qint64(artifact)}}},
    };
}

QJsonObject location(const Finding &finding, const QString &uri, qsizetype artifact)
{
    QJsonObject place = artifactPlace(uri, artifact);
    if (finding.line > 0)
        place.insert(u"region"_s, region(finding));
    return {{u"physicalLocation"_s, place}};
}

QJsonObject result(const Finding &finding, const QJsonObject &where, const SarifTool &tool)
{
    const auto rule = std::find(tool.rules.begin(), tool.rules.end(), finding.rule);
    QJsonObject object{
        {u"ruleId"_s, fromTable(finding.rule->id)},
        {u"level"_s, severityName(finding.rule->severity)},
        {u"message"_s, message(messageOf(finding))},
        {u"locations"_s, QJsonArray{where}},
    };
    if (rule != tool.rules.end())
        object.insert(u"ruleIndex"_s, qint64(rule - tool.rules.begin()));
    return object;
}

QJsonObject notification(const QString &fault, const QString &uri, qsizetype artifact)
{
    const QJsonObject where{{u"physicalLocation"_s, artifactPlace(uri, artifact)}};
    return {
        {u"level"_s, u"error"_s},
        {u"message"_s, message("the input can't be read: "_L1 + fault)},
        {u"locations"_s, QJsonArray{where}},
    };
}

QJsonObject invocation(const QJsonArray &notifications)
{
    QJsonObject object{{u"executionSuccessful"_s, notifications.isEmpty()}};
    if (!notifications.isEmpty())
        object.insert(u"toolExecutionNotifications"_s, notifications);
    return object;
}

QJsonObject driver(const SarifTool &tool)
{
    QJsonArray rules;
    for (const Rule *rule : tool.rules)
        rules.append(ruleObject(*rule));
    return {{u"name"_s, tool.name}, {u"version"_s, tool.version}, {u"rules"_s, rules}};
}

} // namespace

QByteArray findingsAsSarif(const QList<FileFindings> &files, const SarifTool &tool)
{
    QJsonArray artifacts;
    QJsonArray results;
    QJsonArray notifications;
    QHash<QString, qsizetype> known; // an artifact is listed once, whatever is read twice
    for (const FileFindings &file : files) {
        const QString uri = uriOf(file.file);
        if (!known.contains(uri)) {
            known.insert(uri, artifacts.size());
            artifacts.append(QJsonObject{{u"location"_s, QJsonObject{{u"uri"_s, uri}}}});
        }
        const qsizetype artifact = known.value(uri);
        if (!file.fault.isEmpty())
            notifications.append(notification(file.fault, uri, artifact));
        for (const Finding &finding : file.findings)
            results.append(result(finding, location(finding, uri, artifact), tool));
    }
    const QJsonObject run{
        {u"tool"_s, QJsonObject{{u"driver"_s, driver(tool)}}},
        {u"invocations"_s, QJsonArray{invocation(notifications)}},
        {u"columnKind"_s, u"unicodeCodePoints"_s},
        {u"artifacts"_s, artifacts},
        {u"results"_s, results},
    };
    const QJsonObject log{
        {u"$schema"_s, QString(schema)},
        {u"version"_s, u"2.1.0"_s},
        {u"runs"_s, QJsonArray{run}},
    };
    return QJsonDocument(log).toJson();
}

} // namespace ORR::Companion
