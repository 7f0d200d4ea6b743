#include "companion/draw/job_line.h"

#include "companion/draw/suggestion.h"
#include "drawing/format_table.h"
#include "drawing/layout_table.h"
#include "output/files/file_name.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// The texts of a member that may be one or a list of them; nothing if it is neither.
std::optional<QStringList> textsOf(const QJsonValue &value)
{
    if (value.isString())
        return QStringList{value.toString()};
    if (!value.isArray())
        return std::nullopt;
    QStringList texts;
    for (const QJsonValue text : value.toArray()) {
        if (!text.isString())
            return std::nullopt;
        texts += text.toString();
    }
    return texts;
}

QString unknownMember(const QJsonObject &object)
{
    static const QStringList known{u"in"_s, u"engine"_s, u"formats"_s,    u"out"_s,
                                   u"id"_s, u"scale"_s,  u"background"_s, u"embed"_s};
    for (const QString &name : object.keys()) {
        if (!known.contains(name))
            return u"there is no member '"_s + name + u'\'' + suggested(name, known);
    }
    return {};
}

// The engine and the formats. Gives what is wrong.
QString readKinds(const QJsonObject &object, LineOfJob *job)
{
    const QJsonValue engine = object[u"engine"_s];
    if (!engine.isUndefined()) {
        if (!engine.isString())
            return u"'engine' is no text"_s;
        if (const QString fault = engineFault(engine.toString()); !fault.isEmpty())
            return fault;
        for (DrawingOptions &kind : job->kinds)
            kind.engine = engine.toString().toUtf8();
    }
    const QJsonValue formats = object[u"formats"_s];
    if (formats.isUndefined())
        return {};
    const std::optional<QStringList> names = textsOf(formats);
    if (!names || names->isEmpty())
        return u"'formats' is no list of formats"_s;
    const auto read = readFormats(*names);
    if (const auto *const fault = std::get_if<QString>(&read))
        return *fault;
    const DrawingOptions first = job->kinds.first();
    job->kinds.clear();
    for (const qint32 format : std::get<QList<qint32>>(read)) {
        job->kinds.append(first);
        job->kinds.last().format = format;
    }
    return {};
}

// Gives what is wrong.
QString readExtras(const QJsonObject &object, const AskedExtras &usual, LineOfJob *job)
{
    AskedExtras extras;
    if (const QJsonValue scale = object[u"scale"_s]; !scale.isUndefined()) {
        const QString fault = scaleFault(scale.toDouble());
        if (!fault.isEmpty())
            return u"'scale' "_s + fault;
        extras.scale = scale.toDouble();
    }
    if (const QJsonValue background = object[u"background"_s]; !background.isUndefined()) {
        if (!background.isString())
            return u"'background' is no text"_s;
        if (const QString fault = backgroundFault(background.toString()); !fault.isEmpty())
            return fault;
        extras.background = background.toString().toUtf8();
    }
    if (const QJsonValue embedded = object[u"embed"_s]; !embedded.isUndefined()) {
        if (!embedded.isBool())
            return u"'embed' is neither true nor false"_s;
        extras.embedded = embedded.toBool();
    }
    if (const QString unused = unusedExtra(extras, job->kinds); !unused.isEmpty())
        return unused;
    applyExtras(extras.orElse(usual), &job->kinds);
    return {};
}

// Standard streams carry the jobs and their answers.
bool isFileName(const QByteArray &name)
{
    return !name.isEmpty() && !name.contains('\0') && name != "-" && !isStandardStream(name);
}

QString readNames(const QJsonObject &object, LineOfJob *job)
{
    job->input = Graph::fileNameBytes(object[u"in"_s].toString());
    if (!isFileName(job->input))
        return u"'in' is missing, or no name of a file"_s;
    const QJsonValue out = object[u"out"_s];
    if (out.isUndefined())
        return {};
    const std::optional<QStringList> names = textsOf(out);
    if (!names)
        return u"'out' is no name of a file"_s;
    if (names->size() != job->kinds.size())
        return u"'out' names %1 files for %2 formats"_s.arg(names->size()).arg(job->kinds.size());
    for (const QString &name : *names) {
        const QByteArray bytes = Graph::fileNameBytes(name);
        if (!isFileName(bytes))
            return u"'out' is no name of a file"_s;
        job->outputs.append(bytes);
    }
    return {};
}

} // namespace

std::variant<QList<qint32>, QString> readFormats(const QStringList &names)
{
    QList<qint32> formats;
    for (const QString &name : names) {
        const auto format = Drawing::chooseFromAllFormats(name, QString());
        if (!format)
            return u"there is no format '"_s + name + u'\''
                + suggested(name, Drawing::allFormatNames());
        if (formats.contains(qint32(*format)))
            return u"the format '"_s + name + u"' is named twice"_s;
        formats.append(qint32(*format));
    }
    return formats;
}

QString engineFault(const QString &name)
{
    if (Drawing::chooseLayout(name))
        return {};
    return u"there is no engine '"_s + name + u'\'' + suggested(name, Drawing::layoutNames());
}

std::variant<LineOfJob, QString> readJobLine(const QByteArray &line, const DrawRequest &request)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(line, &error);
    if (error.error != QJsonParseError::NoError)
        return u"no JSON: %1, at byte %2"_s.arg(error.errorString()).arg(error.offset);
    if (!document.isObject())
        return u"no object of JSON"_s;
    const QJsonObject object = document.object();
    LineOfJob job{object.value(u"id"_s), {}, request.kinds, {}};
    QString fault = unknownMember(object);
    if (fault.isEmpty())
        fault = readKinds(object, &job);
    if (fault.isEmpty())
        fault = readExtras(object, request.extras, &job);
    if (fault.isEmpty())
        fault = readNames(object, &job);
    if (!fault.isEmpty())
        return fault;
    return job;
}

} // namespace ORR::Companion
