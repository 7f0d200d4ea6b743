#include "companion/check/check_text.h"
#include "companion/check/rules.h"

#include "support/golden.h"

#include <QRegularExpression>
#include <QSet>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

QString text(std::string_view of)
{
    return QString::fromLatin1(of.data(), qsizetype(of.size()));
}

} // namespace

TEST(CheckRules, have_ids_of_their_own)
{
    static const QRegularExpression form(u"^[a-z]+[a-z0-9]*(-[a-z0-9]+)*$"_s);
    QSet<QString> ids;
    for (const Rule *rule : checkRules()) {
        EXPECT_TRUE(form.match(text(rule->id)).hasMatch()) << rule->id;
        EXPECT_FALSE(ids.contains(text(rule->id))) << rule->id;
        ids += text(rule->id);
        EXPECT_EQ(findRule(rule->id), rule);
    }
    EXPECT_EQ(findRule("no-such-rule"), nullptr);
}

TEST(CheckRules, are_worded_alike)
{
    for (const Rule *rule : checkRules()) {
        EXPECT_FALSE(rule->sentence.empty()) << rule->id;
        EXPECT_NE(rule->sentence.back(), '.') << rule->id;
        EXPECT_FALSE(rule->help.empty()) << rule->id;
        EXPECT_EQ(rule->help.back(), '.') << rule->id;
    }
}
