#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <string_view>

namespace ORR::Companion {

enum class Severity : quint8 {
    Warning, // the drawing is made, and something about it is hardly meant
    Error, // there is no drawing, or it is not what the text says
};

// What is looked for. Rules are constants and live as long as the program; findings point to them.
struct Rule
{
    std::string_view id; // words of small letters with dashes between; never changed once known
    Severity severity;
    std::string_view sentence; // what is found, for a list of rules
    std::string_view help; // why it matters and how to write it; a few sentences
};

// A piece of the line in which a finding is, as the input has it, with its beginning and its end
// cut off where the line is long.
struct SourceExcerpt
{
    QByteArray bytes;
    qsizetype place = 0; // the byte of the finding's place, which may be behind the last one
    bool cutBefore = false;
    bool cutBehind = false;
};

// One thing that is wrong with one input.
//
// Whoever finds it says the rule, the sentence and the offset. `located` (locate.h) fills in the
// rest, once for all findings of a text.
struct Finding
{
    const Rule *rule = nullptr; // never null in a list
    QString sentence; // what is wrong, without a full stop; texts of the input as they are
    QString suggestion = {}; // what to do, as a question or an order ("did you mean 'x'?"); may be
                             // empty
    // The first byte of the offending token and the one behind its last, in the text with its line
    // ends normalised; -1 for none. Without an offset the finding is about the text as a whole.
    qsizetype offset = -1;
    qsizetype end = -1;
    // Stands for so many more findings of the rule, which are not told; 0 for a finding of its own.
    qint64 more = 0;

    // From 1, columns in characters (Unicode code points); 0 for none.
    qsizetype line = 0;
    qsizetype column = 0;
    qsizetype endLine = 0;
    qsizetype endColumn = 0; // behind the last character
    SourceExcerpt excerpt = {};
};

// The findings of one input, in the order in which they are told.
struct FileFindings
{
    QByteArray file; // its name as the system has it; empty for standard input
    QList<Finding> findings = {};
    QString fault = {}; // why it can't be read, as the system words it; empty if it was
};

// Whether any finding has the severity.
bool holdsSeverity(const FileFindings &file, Severity severity);

// "error" or "warning"
QString severityName(Severity severity);

} // namespace ORR::Companion
