#include "companion/import/lines/numstat_lines.h"

#include "companion/import/reading/written_number.h"

#include <QList>

#include <array>
#include <chrono>
#include <cmath>

namespace ORR::Companion {

namespace {

constexpr QByteArrayView renameArrow = " => ";

bool isCountDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isOctalDigit(char c)
{
    return c >= '0' && c <= '7';
}

std::optional<double> lineCount(QByteArrayView written)
{
    if (written == "-")
        return 0;
    for (const char c : written) {
        if (!isCountDigit(c))
            return std::nullopt;
    }
    const std::optional<double> count = writtenNumber(written);
    return count && std::isfinite(*count) ? count : std::nullopt;
}

// What a letter behind a backslash stands for; 0 for none.
char escapedLetter(char letter)
{
    constexpr std::array<std::pair<char, char>, 9> letters = {{{'a', '\a'},
                                                               {'b', '\b'},
                                                               {'t', '\t'},
                                                               {'n', '\n'},
                                                               {'v', '\v'},
                                                               {'f', '\f'},
                                                               {'r', '\r'},
                                                               {'"', '"'},
                                                               {'\\', '\\'}}};
    for (const auto &[written, meant] : letters) {
        if (written == letter)
            return meant;
    }
    return 0;
}

// A path in quotes, as C writes strings (core.quotePath), or as it stands.
QByteArray unquotedPath(QByteArrayView path)
{
    if (path.size() < 2 || !path.startsWith('"') || !path.endsWith('"'))
        return path.toByteArray();
    const QByteArrayView inner = path.sliced(1, path.size() - 2);
    QByteArray bytes;
    for (qsizetype i = 0; i < inner.size(); ++i) {
        if (inner[i] != '\\' || i + 1 == inner.size()) {
            bytes += inner[i];
            continue;
        }
        ++i;
        if (i + 2 < inner.size() && isOctalDigit(inner[i]) && isOctalDigit(inner[i + 1])
            && isOctalDigit(inner[i + 2])) {
            bytes +=
                char(quint8(64 * (inner[i] - '0') + 8 * (inner[i + 1] - '0') + inner[i + 2] - '0'));
            i += 2;
        } else if (const char letter = escapedLetter(inner[i])) {
            bytes += letter;
        } else {
            bytes += inner[i];
        }
    }
    return bytes;
}

// "a/{ => b}/c" has nothing where the folder was added.
QByteArray joinedPath(QByteArrayView before, QByteArrayView middle, QByteArrayView behind)
{
    QByteArray path = before.toByteArray();
    path += middle;
    path += middle.isEmpty() && before.endsWith('/') && behind.startsWith('/') ? behind.sliced(1)
                                                                               : behind;
    return path.startsWith('/') ? path.sliced(1) : path;
}

QList<QByteArrayView> datePieces(QByteArrayView date)
{
    QList<QByteArrayView> pieces;
    qsizetype start = 0;
    for (qsizetype i = 0; i <= date.size(); ++i) {
        if (i < date.size() && date[i] != ' ' && date[i] != ',')
            continue;
        if (i > start)
            pieces.append(date.sliced(start, i - start));
        start = i + 1;
    }
    return pieces;
}

bool areCountDigits(QByteArrayView text)
{
    for (const char c : text) {
        if (!isCountDigit(c))
            return false;
    }
    return !text.isEmpty();
}

// "+0530" in seconds; 0 for anything else.
int zoneSeconds(QByteArrayView zone)
{
    if (zone.size() != 5 || (zone[0] != '+' && zone[0] != '-') || !areCountDigits(zone.sliced(1)))
        return 0;
    const int seconds = 3600 * zone.sliced(1, 2).toInt() + 60 * zone.sliced(3, 2).toInt();
    return zone[0] == '-' ? -seconds : seconds;
}

// Seconds since 1970: not as short as years and days without signs between, nor so long that years
// have five digits.
bool areEpochSeconds(QByteArrayView text)
{
    return text.size() >= 9 && text.size() <= 11 && areCountDigits(text);
}

QByteArray monthOfSeconds(qint64 seconds)
{
    using namespace std::chrono;
    const year_month_day day(floor<days>(sys_seconds(std::chrono::seconds(seconds))));
    return QByteArray::number(int(day.year())) + '-'
        + QByteArray::number(unsigned(day.month())).rightJustified(2, '0');
}

} // namespace

bool isNumstatMeant(QByteArrayView line)
{
    qsizetype end = 0;
    while (end < line.size() && (isCountDigit(line[end]) || line[end] == '-'))
        ++end;
    return end > 0 && end < line.size() && line[end] == '\t';
}

std::optional<NumstatChange> numstatChange(QByteArrayView line)
{
    const std::optional<NumstatChange> change = numstatRecordChange(line);
    // Of the beginning of a log of -z, a line may end within a path of one of several records.
    const bool hasTab = change && change->path.contains('\t') && !change->path.contains('\0');
    return hasTab ? std::nullopt : change;
}

std::optional<NumstatChange> numstatRecordChange(QByteArrayView record)
{
    const qsizetype first = record.indexOf('\t');
    const qsizetype second = first < 0 ? -1 : record.indexOf('\t', first + 1);
    if (second < 0)
        return std::nullopt;
    const QByteArrayView added = record.first(first);
    const QByteArrayView deleted = record.sliced(first + 1, second - first - 1);
    const std::optional<double> plus = lineCount(added);
    const std::optional<double> minus = lineCount(deleted);
    if (added.isEmpty() || deleted.isEmpty() || !plus || !minus
        || (added == "-") != (deleted == "-"))
        return std::nullopt;
    return {{.added = *plus,
             .deleted = *minus,
             .isBinary = added == "-",
             .path = record.sliced(second + 1)}};
}

NumstatPath numstatPath(QByteArrayView written)
{
    const qsizetype arrow = written.indexOf(renameArrow);
    if (arrow < 0)
        return {.path = unquotedPath(written)};
    const QByteArrayView left = written.first(arrow);
    const QByteArrayView right = written.sliced(arrow + renameArrow.size());
    const qsizetype open = left.lastIndexOf('{');
    const qsizetype close = right.indexOf('}');
    if (open < 0 || close < 0)
        return {.path = unquotedPath(right), .former = unquotedPath(left)};
    const QByteArrayView before = left.first(open);
    const QByteArrayView behind = right.sliced(close + 1);
    return {.path = joinedPath(before, right.first(close), behind),
            .former = joinedPath(before, left.sliced(open + 1), behind)};
}

QByteArray monthOfDate(QByteArrayView date)
{
    constexpr std::array<QByteArrayView, 12> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                       "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const QList<QByteArrayView> pieces = datePieces(date);
    // --date=unix and raw: "1756720800", and with a zone behind
    if (!pieces.isEmpty() && areEpochSeconds(pieces.first()))
        return monthOfSeconds(pieces.first().toLongLong() + zoneSeconds(pieces.last()));
    QByteArray year;
    QByteArray month;
    for (const QByteArrayView piece : pieces) {
        // --date=iso and short: "2025-09-01"
        if (piece.size() >= 7 && areCountDigits(piece.first(4)) && piece[4] == '-'
            && areCountDigits(piece.sliced(5, 2)))
            return piece.first(7).toByteArray();
        if (piece.size() == 4 && areCountDigits(piece) && year.isEmpty())
            year = piece.toByteArray();
        for (size_t i = 0; i < months.size() && month.isEmpty(); ++i) {
            if (piece == months[i])
                month = QByteArray::number(int(i) + 1).rightJustified(2, '0');
        }
    }
    return year.isEmpty() || month.isEmpty() ? QByteArray() : year + '-' + month;
}

} // namespace ORR::Companion
