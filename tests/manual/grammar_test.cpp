#include "tools/editors/grammar.h"

#include "support/golden.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace ORR::Docs;
using namespace Qt::StringLiterals;

TEST(Grammar, has_the_names_of_the_tables)
{
    const QByteArray grammar = readTestFile(QStringLiteral(
        ORR_PROJECT_FOLDER "/editors/vscode/syntaxes/orrlayout-dot.tmLanguage.json"));
    EXPECT_FALSE(QJsonDocument::fromJson(grammar).isNull());
    EXPECT_EQ(renewedGrammar(QString::fromUtf8(grammar)).toUtf8(), grammar)
        << "run write_editor_files editors, and read the result";
}

// The folder is an extension as it stands.
TEST(Grammar, is_what_the_extension_names)
{
    const QString folder = QStringLiteral(ORR_PROJECT_FOLDER "/editors/vscode/");
    const auto read = [&](const QString &file) {
        return QJsonDocument::fromJson(readTestFile(folder + file)).object();
    };
    const QJsonValue offers = read(u"package.json"_s)[u"contributes"_s];
    const QJsonValue language = offers[u"languages"_s][0];
    const QJsonValue grammar = offers[u"grammars"_s][0];
    EXPECT_EQ(grammar[u"language"_s], language[u"id"_s]);
    EXPECT_EQ(read(grammar[u"path"_s].toString())[u"scopeName"_s], grammar[u"scopeName"_s]);
    EXPECT_TRUE(read(language[u"configuration"_s].toString()).contains(u"brackets"_s));
}

TEST(Grammar, has_its_names_written_anew_and_nothing_else)
{
    const QString before = u"{\"list\": {\"match\": \"(?:label)\"},\n\"attribute\": {\n"
                           "\"match\": \"(?:^)(?:label|old)(?=x)\"\n}, \"value\": \"(?:label)\"}"_s;
    const QString after = renewedGrammar(before);
    EXPECT_TRUE(after.startsWith(u"{\"list\": {\"match\": \"(?:label)\"},\n"_s));
    EXPECT_TRUE(after.endsWith(u")(?=x)\"\n}, \"value\": \"(?:label)\"}"_s));
    EXPECT_TRUE(after.contains(u"|fillcolor|"_s));
    EXPECT_FALSE(after.contains(u"old"_s));
    EXPECT_EQ(renewedGrammar(after), after);
}

TEST(Grammar, without_the_rule_is_refused)
{
    EXPECT_EQ(renewedGrammar(u"{\"patterns\": []}"_s), QString());
}
