#include "companion/import/dependencies/deps_builds.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStringList>

#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr QLatin1StringView systemFolders[] = {"/usr/"_L1, "/opt/"_L1, "/lib/"_L1, "/nix/"_L1,
                                               "/Library/"_L1};

// Empty for what is of the system.
QByteArray projectPath(const QByteArray &name, const QString &folder)
{
    const QString given = QString::fromUtf8(name);
    const QString path = QDir::cleanPath(
        QDir::isAbsolutePath(given) || folder.isEmpty() ? given : folder + u'/' + given);
    for (const QLatin1StringView system : systemFolders) {
        if (path.startsWith(system))
            return {};
    }
    return path.toUtf8();
}

// One file and what it includes.
void addIncludes(const QList<QByteArray> &files, const QString &folder, DepsReading *reading)
{
    if (files.isEmpty())
        return;
    Dependencies &dependencies = reading->dependencies;
    const QByteArray source = projectPath(files.first(), folder);
    const Dependencies::Item tail =
        source.isEmpty() ? WeightTree::root : dependencies.thing(source);
    if (tail == WeightTree::root)
        return;
    for (const QByteArray &file : files.sliced(1)) {
        const QByteArray header = projectPath(file, folder);
        if (header.isEmpty() || header == source)
            continue;
        if (const Dependencies::Item head = dependencies.thing(header); head != WeightTree::root)
            dependencies.need(tail, head);
    }
}

void sayIncludes(DepsReading *reading)
{
    reading->meaning = {.needs = u"the row includes the column"_s,
                        .inCycle = u"both include each other, in a cycle"_s,
                        .within = u"itself, or within a folder"_s,
                        .things = u"files"_s};
}

// The words of a rule: blanks part them, "\ " is a blank, "$$" a dollar, "\#" a number sign, and a
// backslash at the end of a line goes on in the next.
class MakeWords
{
public:
    explicit MakeWords(QByteArrayView text) : bytes(text) { }

    // False at the end of the line.
    bool next(QByteArray *word);
    bool atEnd() const { return place >= bytes.size(); }
    void skipLineEnd() { ++place; }

private:
    char at(qsizetype i) const { return i < bytes.size() ? bytes[i] : '\n'; }

    QByteArrayView bytes;
    qsizetype place = 0;
};

bool MakeWords::next(QByteArray *word)
{
    word->clear();
    for (; at(place) != '\n'; ++place) {
        const char c = bytes[place];
        const bool isContinued = c == '\\'
            && (at(place + 1) == '\n' || (at(place + 1) == '\r' && at(place + 2) == '\n'));
        if (isContinued || c == ' ' || c == '\t' || c == '\r') {
            place += isContinued ? (at(place + 1) == '\r' ? 2 : 1) : 0;
            if (place >= bytes.size())
                break;
            if (word->isEmpty())
                continue;
            ++place;
            return true;
        }
        if ((c == '\\' && (at(place + 1) == ' ' || at(place + 1) == '#'))
            || (c == '$' && at(place + 1) == '$'))
            ++place;
        word->append(bytes[place]);
    }
    return !word->isEmpty();
}

QStringList argumentsOf(const JsonValue &command)
{
    QStringList arguments;
    const JsonValue list = command["arguments"];
    for (JsonValue one = list.first(); !one.isMissing(); one = one.next())
        arguments.append(one.text());
    return list.isArray() ? arguments : QProcess::splitCommand(command["command"].text());
}

QString behind(const QStringList &arguments, const QString &option)
{
    const qsizetype place = arguments.indexOf(option);
    return place >= 0 && place + 1 < arguments.size() ? arguments[place + 1] : QString();
}

// Where the rules of a command may be.
QStringList rulesFiles(const JsonValue &command)
{
    const QStringList arguments = argumentsOf(command);
    const QString named = behind(arguments, u"-MF"_s);
    if (!named.isEmpty())
        return {named};
    QString object = command["output"].text();
    if (object.isEmpty())
        object = behind(arguments, u"-o"_s);
    if (object.isEmpty())
        object = QFileInfo(command["file"].text()).completeBaseName() + u".o"_s;
    QString beside = object;
    beside.truncate(beside.lastIndexOf(u'.'));
    return {object + u".d"_s, beside + u".d"_s};
}

// False if there is no such file.
bool readRulesFile(const JsonValue &command, const QString &around, DepsReading *reading)
{
    const QString folder = QDir(around).filePath(command["directory"].text());
    for (const QString &name : rulesFiles(command)) {
        QFile file(QDir(folder).filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        readMakeRules(file.readAll(), folder, reading);
        return true;
    }
    return false;
}

} // namespace

void readMakeRules(const QByteArray &text, const QString &folder, DepsReading *reading)
{
    sayIncludes(reading);
    MakeWords words(text);
    for (; !words.atEnd(); words.skipLineEnd()) {
        QList<QByteArray> files;
        bool isBehindColon = false;
        QByteArray word;
        while (words.next(&word)) {
            if (isBehindColon)
                files.append(word);
            else
                isBehindColon = word.endsWith(':');
        }
        addIncludes(files, folder, reading);
    }
}

void readNinjaDeps(ImportSource &source, DepsReading *reading)
{
    sayIncludes(reading);
    QList<QByteArray> files;
    QByteArrayView line;
    while (source.nextLine(&line)) {
        if (line.startsWith(' ')) {
            files.append(line.trimmed().toByteArray());
            continue;
        }
        addIncludes(std::exchange(files, {}), {}, reading);
        if (!line.isEmpty() && !line.contains(": #deps ")) {
            reading->fault = source.faultHere(u"'%1' is no object with its number of files"_s.arg(
                QString::fromUtf8(line.first(std::min<qsizetype>(80, line.size())))));
            return;
        }
    }
    addIncludes(files, {}, reading);
}

void readCompileCommands(const JsonDocument &document, const QString &folder, DepsReading *reading)
{
    sayIncludes(reading);
    const JsonValue commands = document.root();
    qsizetype found = 0;
    JsonValue missing;
    for (JsonValue command = commands.first(); !command.isMissing(); command = command.next()) {
        if (!command["file"].isString() || !command["directory"].isString()) {
            reading->fault =
                document.faultAt(command, u"a command has no 'file' or no 'directory'"_s);
            return;
        }
        if (readRulesFile(command, folder, reading))
            ++found;
        else if (missing.isMissing())
            missing = command;
    }
    if (missing.isMissing())
        return;
    const QString sentence =
        u"of %1 commands %2 have no file of rules (-MD) beside their objects, this one the first; "
        "of a build by ninja, which keeps them to itself, give what 'ninja -t deps' writes"_s
            .arg(commands.count())
            .arg(commands.count() - found);
    if (found == 0)
        reading->fault = document.faultAt(missing, sentence);
    else
        reading->notes.append(document.faultAt(missing, sentence));
}

} // namespace ORR::Companion
