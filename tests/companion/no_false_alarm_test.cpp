// Whatever the project itself draws and shows is well formed, or what is said of it is true.
#include "companion/check_said.h"
#include "support/corpus.h"

#include <map>

using namespace Qt::StringLiterals;

namespace {

// What is said of an input with good reason, in its lines but for the sentences.
const std::map<QString, QStringList> trueWarnings{
    // The segments of edges stand at the graph, where they change nothing.
    {u"gftree/compact"_s, {u"2:67 unread-attribute"_s, u"2:85 unread-attribute"_s}},
};

QStringList rulesIn(const QStringList &said)
{
    QStringList rules;
    for (const QString &line : said)
        rules += line.section(u':', 0, 1);
    return rules;
}

class NoFalseAlarm : public testing::TestWithParam<CorpusInput>
{
};

} // namespace

TEST_P(NoFalseAlarm, is_raised_by_what_the_project_draws)
{
    const CorpusInput &input = GetParam();
    const auto known = trueWarnings.find(input.engine() + u'/' + input.name());
    const QStringList expected = known == trueWarnings.end() ? QStringList() : known->second;
    const QStringList said = saidOf(input.text(), input.engine());
    EXPECT_EQ(rulesIn(said), expected) << said.join(u'\n').toStdString();
    // What holds for every engine holds for this one.
    const QStringList saidOfAny = saidOf(input.text());
    EXPECT_EQ(rulesIn(saidOfAny), expected) << saidOfAny.join(u'\n').toStdString();
}

INSTANTIATE_TEST_SUITE_P(AllInputs, NoFalseAlarm, testing::ValuesIn(corpusInputs()), nameOfInput);
