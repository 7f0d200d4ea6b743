#include "api/worker/answer.h"

#include "api/protocol.h"
#include "companion/check/check_text.h"
#include "drawing/held_standard_error.h"
#include "drawing/home_directory.h"
#include "drawing/job.h"
#include "graph/message_text.h"

#include <QDir>
#include <QFileInfo>

#include <optional>

using namespace Qt::StringLiterals;

namespace ORR::Api {

using Workers::Message;

namespace {

QByteArray bytesOf(const std::string &field)
{
    return QByteArray::fromRawData(field.data(), static_cast<qsizetype>(field.size()));
}

// One line, without its line feed and with nothing in it that a terminal would obey.
Message failure(orrlayout_status status, const QString &message)
{
    return {static_cast<std::uint32_t>(status),
            {Graph::printableMessage(message.trimmed().replace(u'\n', u' ')).toStdString()}};
}

orrlayout_status statusOf(Drawing::Outcome::Fault fault)
{
    switch (fault) {
    case Drawing::Outcome::None:
        return ORRLAYOUT_OK;
    case Drawing::Outcome::Input:
        return ORRLAYOUT_BAD_INPUT;
    case Drawing::Outcome::Engine:
        return ORRLAYOUT_UNKNOWN_ENGINE;
    case Drawing::Outcome::Drawing:
        return ORRLAYOUT_NO_DRAWING;
    case Drawing::Outcome::Memory:
        return ORRLAYOUT_OUT_OF_MEMORY;
    }
    return ORRLAYOUT_NO_DRAWING;
}

// The program would draw a VSDX without pages.
bool lacksTemplates(const Drawing::Job &job)
{
    return job.format == Drawing::Format::Vsdx
        && !QFileInfo(Drawing::visioTemplateDirectory(job.homeDirectory)).isDir();
}

Drawing::Outcome drawQuietly(const Drawing::Job &job, QByteArray *drawing)
{
#ifndef __SANITIZE_ADDRESS__
    // The libraries of pictures complain about those that an input holds.
    const Drawing::HeldStandardError held;
#endif
    return Drawing::draw(job, Drawing::inMemory(drawing, job.format));
}

Message drawn(const std::vector<std::string> &fields)
{
    const QString formatName = QString::fromStdString(fields[RequestField::Format]);
    const std::optional<Drawing::Format> format = Drawing::chooseFormat(formatName, QString());
    if (!format)
        return failure(ORRLAYOUT_UNKNOWN_FORMAT, "there is no format "_L1 + formatName);
    const Drawing::Job job{.input = bytesOf(fields[RequestField::Input]),
                           .engine = QString::fromStdString(fields[RequestField::Engine]),
                           .format = *format,
                           .htmlLabels = !fields[RequestField::HtmlLabels].empty(),
                           .homeDirectory = QFile::decodeName(bytesOf(fields[RequestField::Home]))};
    if (lacksTemplates(job)) {
        return failure(ORRLAYOUT_BAD_ARGUMENT,
                       "there are no templates of VSDX in "_L1 + job.homeDirectory);
    }

    QByteArray drawing;
    const Drawing::Outcome outcome = drawQuietly(job, &drawing);
    if (outcome.fault != Drawing::Outcome::None)
        return failure(statusOf(outcome.fault), outcome.message);
    return {ORRLAYOUT_OK, {drawing.toStdString()}};
}

FindingNumbers numbersOf(const Companion::Finding &finding)
{
    const bool isError = finding.rule->severity == Companion::Severity::Error;
    return {isError ? ORRLAYOUT_ERROR : ORRLAYOUT_WARNING,
            finding.line,
            finding.column,
            finding.endLine,
            finding.endColumn,
            finding.more};
}

Message checked(const std::vector<std::string> &fields)
{
    const Companion::CheckOptions options{QString::fromStdString(fields[RequestField::Engine])};
    Message answer{ORRLAYOUT_OK};
    for (const Companion::Finding &finding :
         Companion::checkText(bytesOf(fields[RequestField::Input]), options)) {
        const FindingNumbers numbers = numbersOf(finding);
        answer.fields.emplace_back(finding.rule->id);
        answer.fields.push_back(finding.sentence.toStdString());
        answer.fields.push_back(finding.suggestion.toStdString());
        answer.fields.emplace_back(reinterpret_cast<const char *>(&numbers), sizeof numbers);
    }
    return answer;
}

} // namespace

Message answered(const Message &request)
{
    if (request.fields.size() != RequestField::Count)
        return failure(ORRLAYOUT_BAD_ARGUMENT, u"no request"_s);
    const bool isCheck = request.kind == static_cast<std::uint32_t>(Request::Check);
    return isCheck ? checked(request.fields) : drawn(request.fields);
}

} // namespace ORR::Api
