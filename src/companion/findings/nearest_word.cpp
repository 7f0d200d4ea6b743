#include "companion/findings/nearest_word.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// How many steps away a word may be.
qsizetype reach(const QString &word)
{
    const qsizetype third = std::max<qsizetype>(1, (word.size() + 1) / 3);
    return std::min(third, word.size() - 1);
}

} // namespace

int editDistance(QStringView a, QStringView b)
{
    // The rows of the table for the prefixes of `a` of the lengths i - 2, i - 1 and i.
    std::vector<int> beforeLast(static_cast<size_t>(b.size()) + 1);
    std::vector<int> last = beforeLast;
    std::vector<int> row = beforeLast;
    for (size_t j = 0; j < row.size(); ++j)
        row[j] = static_cast<int>(j);
    for (qsizetype i = 1; i <= a.size(); ++i) {
        std::swap(beforeLast, last);
        std::swap(last, row);
        row[0] = static_cast<int>(i);
        for (qsizetype j = 1; j <= b.size(); ++j) {
            const auto at = static_cast<size_t>(j);
            const int exchanged = last[at - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[at] = std::min({last[at] + 1, row[at - 1] + 1, exchanged});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[at] = std::min(row[at], beforeLast[at - 2] + 1);
        }
    }
    return row.back();
}

QString nearestWord(const QString &text, const QStringList &words)
{
    QString nearest;
    int least = 0;
    for (const QString &word : words) {
        if (std::abs(word.size() - text.size()) > reach(word))
            continue;
        const int distance = editDistance(text.toLower(), word.toLower());
        if (distance > reach(word) || (!nearest.isEmpty() && distance >= least))
            continue;
        nearest = word;
        least = distance;
    }
    return nearest;
}

QString didYouMean(const QString &text, const QStringList &words)
{
    const QString nearest = nearestWord(text, words);
    return nearest.isEmpty() ? QString() : u"did you mean '%1'?"_s.arg(nearest);
}

} // namespace ORR::Companion
