#include "drawing/debug_flag.h"
#include "drawing/environment.h"

#include "driver/scoped_environment.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QLoggingCategory>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>
#include <vector>

using namespace ORR::Drawing;
using namespace Qt::StringLiterals;

namespace {

// Settings in a folder of the test's own, and nothing that asks for a redirection.
class Environment : public testing::Test
{
protected:
    Environment()
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
        for (const char *name : {"HALVANEREDIRECTDIR", "HALVANEREDIRECTPATH", "UNICODEMAP_JP",
                                 "QTWEBENGINE_CHROMIUM_FLAGS", "PERL_SKIP_LOCALE_INIT"})
            cleared.push_back(std::make_unique<ScopedEnvironment>(name, QByteArray()));
    }

    void writeRedirection(const QString &directory)
    {
        QSettings(QSettings::IniFormat, QSettings::UserScope, u"Halvane"_s, u"HalvaneRedirect"_s)
            .setValue(u"redirectDir"_s, directory);
    }

    // Where settings go after the start.
    static QString settingsFolder()
    {
        const QSettings probe(QSettings::IniFormat, QSettings::UserScope, u"Halvane"_s, u"x"_s);
        return QDir::cleanPath(QFileInfo(probe.fileName()).path() + u"/.."_s);
    }

    QTemporaryDir settings;
    std::vector<std::unique_ptr<ScopedEnvironment>> cleared;
};

} // namespace

TEST_F(Environment, application_gets_its_identity)
{
    startApplication(u"orrlayout"_s);
    EXPECT_EQ(QCoreApplication::applicationName(), u"orrlayout"_s);
    EXPECT_EQ(QCoreApplication::organizationName(), u"Halvane"_s);
    EXPECT_EQ(QCoreApplication::organizationDomain(), u"halvane.example"_s);
    EXPECT_EQ(QSettings::defaultFormat(), QSettings::IniFormat);
    EXPECT_STREQ(registeredName, "Halvane Labs, Inc.");
}

TEST_F(Environment, child_processes_see_three_variables)
{
    startApplication(u"orrlayout"_s);
    EXPECT_EQ(qgetenv("UNICODEMAP_JP"), "open-ascii");
    EXPECT_EQ(qgetenv("QTWEBENGINE_CHROMIUM_FLAGS"), "--disable-logging --log-level=3");
    EXPECT_EQ(qgetenv("PERL_SKIP_LOCALE_INIT"), "1");
}

TEST_F(Environment, settings_stay_where_they_are_without_a_redirection)
{
    startApplication(u"orrlayout"_s);
    EXPECT_EQ(settingsFolder(), settings.path());
    EXPECT_FALSE(qEnvironmentVariableIsSet("HALVANEREDIRECTDIR"));
}

TEST_F(Environment, settings_go_to_the_directory_of_the_environment)
{
    const ScopedEnvironment directory("HALVANEREDIRECTDIR", "/tmp/first");
    startApplication(u"orrlayout"_s);
    EXPECT_EQ(settingsFolder(), u"/tmp/first"_s);
    EXPECT_EQ(qgetenv("HALVANEREDIRECTDIR"), "/tmp/first");
}

TEST_F(Environment, redirection_in_the_settings_goes_before_the_directory)
{
    const ScopedEnvironment directory("HALVANEREDIRECTDIR", "/tmp/first");
    writeRedirection(u"/tmp/second"_s);
    startApplication(u"orrlayout"_s);
    EXPECT_EQ(settingsFolder(), u"/tmp/second"_s);
    EXPECT_EQ(qgetenv("HALVANEREDIRECTDIR"), "/tmp/second");
}

TEST_F(Environment, empty_redirection_in_the_settings_counts)
{
    const ScopedEnvironment directory("HALVANEREDIRECTDIR", "/tmp/first");
    writeRedirection(u""_s);
    startApplication(u"orrlayout"_s);
    EXPECT_EQ(settingsFolder(), settings.path());
}

TEST_F(Environment, path_of_the_environment_goes_before_all)
{
    const ScopedEnvironment directory("HALVANEREDIRECTDIR", "/tmp/first");
    const ScopedEnvironment path("HALVANEREDIRECTPATH", "/tmp/third");
    writeRedirection(u"/tmp/second"_s);
    startApplication(u"orrlayout"_s);
    EXPECT_EQ(settingsFolder(), u"/tmp/third"_s);
    EXPECT_EQ(qgetenv("HALVANEREDIRECTDIR"), "/tmp/third");
}

TEST_F(Environment, one_logging_category_loses_its_debug_messages)
{
    const QLoggingCategory before("qt.accessibility.table", QtDebugMsg);
    startApplication(u"orrlayout"_s);
    const QLoggingCategory table("qt.accessibility.table", QtDebugMsg);
    const QLoggingCategory other("orr.test", QtDebugMsg);
    EXPECT_FALSE(before.isDebugEnabled());
    EXPECT_FALSE(table.isDebugEnabled());
    EXPECT_TRUE(table.isWarningEnabled());
    EXPECT_TRUE(other.isDebugEnabled());
}

TEST_F(Environment, may_be_started_twice)
{
    startApplication(u"orrlayout"_s);
    startApplication(u"orrlayout"_s);
    const QLoggingCategory table("qt.accessibility.table", QtDebugMsg);
    EXPECT_FALSE(table.isDebugEnabled());
}

TEST_F(Environment, locale_of_the_program_is_that_of_files)
{
    startApplication(u"orrlayout"_s);
    EXPECT_EQ(QLocale(), QLocale::c());
}

TEST(LogFile, is_named_after_what_it_is_for)
{
    EXPECT_EQ(logFileName(u"/var/log/orr"_s, u"orrlayout"_s), u"/var/log/orr/orrlayout.log"_s);
}

TEST(DebugFlag, is_off_unless_the_environment_holds_it)
{
    const ScopedEnvironment variable("DEBUG_ORRHOME_TRACE", QByteArray());
    EXPECT_FALSE(debugFlag(u"orrhome"_s, u"trace"_s));
}

TEST(DebugFlag, is_on_for_whatever_is_not_a_word_for_no)
{
    for (const char *value : {"", "1", "TRUE", "YES", "ALL"}) {
        const ScopedEnvironment variable("DEBUG_ORRHOME_TRACE", value);
        EXPECT_TRUE(debugFlag(u"orrhome"_s, u"trace"_s)) << value;
    }
    for (const char *value : {"FALSE", "OFF", "NONE", "false"}) {
        const ScopedEnvironment variable("DEBUG_ORRHOME_TRACE", value);
        EXPECT_FALSE(debugFlag(u"orrhome"_s, u"trace"_s)) << value;
    }
}

TEST(DebugFlag, has_a_group_and_a_keyword)
{
    const ScopedEnvironment variable("DEBUG_ORRHOME_TRACE", "1");
    EXPECT_FALSE(debugFlag(u"orrhome"_s, u"other"_s));
    EXPECT_FALSE(debugFlag(u"other"_s, u"trace"_s));
}
