#include "companion/findings/text_printer.h"

#include "companion/findings/terminal_text.h"

namespace ORR::Companion {

namespace {

// Sequences of ECMA-48 ("select graphic rendition").
constexpr char bold[] = "\x1b[1m";
constexpr char boldRed[] = "\x1b[1;31m";
constexpr char boldMagenta[] = "\x1b[1;35m";
constexpr char boldGreen[] = "\x1b[1;32m";
constexpr char plain[] = "\x1b[0m";

QByteArray colored(const char *color, const QByteArray &text, const TextForm &form)
{
    return form.colors ? color + text + plain : text;
}

QByteArray placeText(const QByteArray &file, const Finding &finding)
{
    QByteArray text = shownFileName(file) + ':';
    if (finding.line > 0)
        text += QByteArray::number(finding.line) + ':' + QByteArray::number(finding.column) + ':';
    return text;
}

QByteArray severityText(const Finding &finding, const TextForm &form)
{
    const Severity severity = finding.rule->severity;
    const char *const color = severity == Severity::Error ? boldRed : boldMagenta;
    return colored(color, severityName(severity).toUtf8() + ':', form);
}

QByteArray excerptText(const SourceExcerpt &excerpt, const TextForm &form)
{
    const QByteArray ahead = excerpt.cutBefore ? "..." : "";
    const QByteArrayView before = QByteArrayView(excerpt.bytes).first(excerpt.place);
    return "  " + ahead + terminalLine(excerpt.bytes) + (excerpt.cutBehind ? "..." : "") + "\n  "
        + blanksFor(ahead) + blanksFor(before) + colored(boldGreen, "^", form) + '\n';
}

} // namespace

QByteArray shownFileName(const QByteArray &file)
{
    return file.isEmpty() ? QByteArray("<stdin>") : terminalText(file);
}

QString messageOf(const Finding &finding)
{
    return finding.suggestion.isEmpty()
        ? finding.sentence
        : finding.sentence + QStringLiteral("; ") + finding.suggestion;
}

QByteArray findingsAsText(const FileFindings &file, const TextForm &form)
{
    QByteArray text;
    for (const Finding &finding : file.findings) {
        const std::string_view id = finding.rule->id;
        text += colored(bold, placeText(file.file, finding), form) + ' '
            + severityText(finding, form) + ' ' + terminalText(messageOf(finding).toUtf8()) + " ["
            + QByteArray(id.data(), qsizetype(id.size())) + "]\n";
        if (form.excerpts && finding.line > 0)
            text += excerptText(finding.excerpt, form);
    }
    return text;
}

} // namespace ORR::Companion
