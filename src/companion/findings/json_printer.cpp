#include "companion/findings/json_printer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

QJsonObject findingObject(const Finding &finding)
{
    const std::string_view id = finding.rule->id;
    QJsonObject object{
        {u"severity"_s, severityName(finding.rule->severity)},
        {u"rule"_s, QString::fromLatin1(id.data(), qsizetype(id.size()))},
        {u"message"_s, finding.sentence},
    };
    if (!finding.suggestion.isEmpty())
        object.insert(u"suggestion"_s, finding.suggestion);
    if (finding.more > 0)
        object.insert(u"more"_s, finding.more);
    if (finding.line > 0) {
        object.insert(u"line"_s, qint64(finding.line));
        object.insert(u"column"_s, qint64(finding.column));
    }
    if (finding.endLine > 0) {
        object.insert(u"endLine"_s, qint64(finding.endLine));
        object.insert(u"endColumn"_s, qint64(finding.endColumn));
    }
    return object;
}

QJsonObject fileObject(const FileFindings &file)
{
    QJsonArray findings;
    for (const Finding &finding : file.findings)
        findings.append(findingObject(finding));
    const QJsonValue name = file.file.isEmpty() ? QJsonValue(QJsonValue::Null)
                                                : QJsonValue(QString::fromUtf8(file.file));
    QJsonObject object{{u"file"_s, name}, {u"findings"_s, findings}};
    if (!file.fault.isEmpty())
        object.insert(u"fault"_s, file.fault);
    return object;
}

qint64 countOf(Severity severity, const QList<FileFindings> &files)
{
    qint64 count = 0;
    for (const FileFindings &file : files) {
        for (const Finding &finding : file.findings) {
            if (finding.rule->severity == severity)
                count += std::max<qint64>(1, finding.more);
        }
    }
    return count;
}

} // namespace

QByteArray findingsAsJson(const QList<FileFindings> &files)
{
    QJsonArray objects;
    for (const FileFindings &file : files)
        objects.append(fileObject(file));
    const QJsonObject document{
        {u"errors"_s, countOf(Severity::Error, files)},
        {u"warnings"_s, countOf(Severity::Warning, files)},
        {u"files"_s, objects},
    };
    return QJsonDocument(document).toJson();
}

} // namespace ORR::Companion
