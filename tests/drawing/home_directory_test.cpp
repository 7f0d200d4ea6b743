#include "drawing/home_directory.h"

#include "driver/scoped_environment.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace ORR::Drawing;
using namespace Qt::StringLiterals;

namespace {

// A folder of its own in which a test sets up installations; paths are given from its root.
class HomeDirectory : public testing::Test
{
protected:
    QString path(const QString &relative) const { return base + u'/' + relative; }

    void makeFolder(const QString &relative) { ASSERT_TRUE(QDir(base).mkpath(relative)); }

    void makeProgram(const QString &relative)
    {
        makeFolder(relative.section(u'/', 0, -2));
        QFile file(path(relative));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    }

    // An installation as it is told to be: its root holds conf and bin/linux-x86_64/orrlayout.
    void makeInstallation(const QString &root)
    {
        makeFolder(root + u"/conf"_s);
        makeProgram(root + u"/bin/linux-x86_64/orrlayout"_s);
    }

    void makeLink(const QString &relative, const QString &target)
    {
        makeFolder(relative.section(u'/', 0, -2));
        ASSERT_TRUE(QFile::link(target, path(relative)));
    }

    HomeSearch find(const QString &argv0, const QStringList &pathEntries = {},
                    const QString &orrHome = {}) const
    {
        return findHome({argv0, base, orrHome, pathEntries});
    }

    QTemporaryDir folder;
    const QString base = QDir(folder.path()).canonicalPath();
};

} // namespace

TEST_F(HomeDirectory, variable_names_the_root)
{
    makeFolder(u"elsewhere/conf"_s);
    EXPECT_EQ(find(u"orrlayout"_s, {}, path(u"elsewhere"_s)).directory, path(u"elsewhere"_s));
}

TEST_F(HomeDirectory, variable_goes_before_the_program)
{
    makeFolder(u"elsewhere/conf"_s);
    makeInstallation(u"opt/orr"_s);
    EXPECT_EQ(
        find(path(u"opt/orr/bin/linux-x86_64/orrlayout"_s), {}, path(u"elsewhere"_s)).directory,
        path(u"elsewhere"_s));
}

TEST_F(HomeDirectory, relative_variable_counts_from_the_working_directory)
{
    makeFolder(u"elsewhere/conf"_s);
    EXPECT_EQ(find(u"orrlayout"_s, {}, u"elsewhere/"_s).directory, path(u"elsewhere"_s));
}

TEST_F(HomeDirectory, variable_without_conf_is_rejected_for_the_program)
{
    makeInstallation(u"opt/orr"_s);
    makeFolder(u"elsewhere"_s);
    EXPECT_EQ(
        find(path(u"opt/orr/bin/linux-x86_64/orrlayout"_s), {}, path(u"elsewhere"_s)).directory,
        path(u"opt/orr"_s));
}

TEST_F(HomeDirectory, absolute_program_leads_to_its_root)
{
    makeInstallation(u"opt/orr"_s);
    EXPECT_EQ(find(path(u"opt/orr/bin/linux-x86_64/orrlayout"_s)).directory, path(u"opt/orr"_s));
}

TEST_F(HomeDirectory, relative_program_counts_from_the_working_directory)
{
    makeInstallation(u"opt/orr"_s);
    EXPECT_EQ(find(u"./opt/orr/bin/linux-x86_64/orrlayout"_s).directory, path(u"opt/orr"_s));
}

TEST_F(HomeDirectory, bare_name_is_looked_up_along_path)
{
    makeInstallation(u"opt/orr"_s);
    makeFolder(u"empty"_s);
    EXPECT_EQ(
        find(u"orrlayout"_s, {path(u"empty"_s), path(u"opt/orr/bin/linux-x86_64"_s)}).directory,
        path(u"opt/orr"_s));
}

TEST_F(HomeDirectory, bare_name_passes_by_what_cannot_be_run)
{
    makeInstallation(u"opt/orr"_s);
    makeInstallation(u"wrong"_s);
    ASSERT_TRUE(
        QFile::setPermissions(path(u"wrong/bin/linux-x86_64/orrlayout"_s), QFile::ReadOwner));
    EXPECT_EQ(find(u"orrlayout"_s,
                   {path(u"wrong/bin/linux-x86_64"_s), path(u"opt/orr/bin/linux-x86_64"_s)})
                  .directory,
              path(u"opt/orr"_s));
}

TEST_F(HomeDirectory, program_folder_on_path_is_the_last_resort)
{
    makeFolder(u"opt/orr/bin"_s);
    makeFolder(u"opt/orr/conf"_s);
    makeFolder(u"usr/bin"_s);
    const QStringList pathEntries{path(u"usr/bin"_s), path(u"opt/orr/bin"_s)};
    EXPECT_EQ(find(u"unknown"_s, pathEntries).directory, path(u"opt/orr"_s));
    EXPECT_EQ(find(path(u"usr/bin/orrlayout"_s), pathEntries).directory, path(u"opt/orr"_s));
}

TEST_F(HomeDirectory, other_folders_on_path_are_no_program_folders)
{
    makeFolder(u"opt/orr/tools"_s);
    makeFolder(u"opt/orr/conf"_s);
    EXPECT_EQ(find(u"unknown"_s, {path(u"opt/orr/tools"_s), path(u"opt/orr"_s)}).directory, u""_s);
}

TEST_F(HomeDirectory, symbolic_link_leads_to_what_it_names)
{
    makeInstallation(u"opt/orr"_s);
    makeLink(u"usr/bin/orrlayout"_s, u"../../opt/orr/bin/linux-x86_64/orrlayout"_s);
    EXPECT_EQ(find(path(u"usr/bin/orrlayout"_s)).directory, path(u"opt/orr"_s));
    EXPECT_EQ(find(u"orrlayout"_s, {path(u"usr/bin"_s)}).directory, path(u"opt/orr"_s));
}

TEST_F(HomeDirectory, conf_beside_a_link_is_somebody_elses)
{
    makeInstallation(u"opt/orr"_s);
    makeFolder(u"home/conf"_s);
    makeLink(u"home/bin/orrlayout"_s, path(u"opt/orr/bin/linux-x86_64/orrlayout"_s));
    EXPECT_EQ(find(path(u"home/bin/orrlayout"_s)).directory, path(u"opt/orr"_s));
}

TEST_F(HomeDirectory, link_counts_as_the_program_where_its_target_leads_nowhere)
{
    makeProgram(u"store/orrlayout-1.0"_s);
    makeFolder(u"opt/orr/conf"_s);
    makeLink(u"opt/orr/bin/orrlayout"_s, path(u"store/orrlayout-1.0"_s));
    EXPECT_EQ(find(path(u"opt/orr/bin/orrlayout"_s)).directory, path(u"opt/orr"_s));
}

TEST_F(HomeDirectory, shared_data_of_a_prefix_go_before_the_prefix)
{
    makeProgram(u"usr/bin/orrlayout"_s);
    makeFolder(u"usr/conf"_s);
    makeFolder(u"usr/share/orrlayout/conf"_s);
    EXPECT_EQ(find(path(u"usr/bin/orrlayout"_s)).directory, path(u"usr/share/orrlayout"_s));
}

TEST_F(HomeDirectory, program_may_lie_in_the_root)
{
    makeProgram(u"stick/orrlayout"_s);
    makeFolder(u"stick/conf"_s);
    EXPECT_EQ(find(path(u"stick/orrlayout"_s)).directory, path(u"stick"_s));
}

TEST_F(HomeDirectory, platform_may_have_any_name)
{
    for (const QString &platform : {u"pc-win64"_s, u"linux-aarch64"_s, u"x"_s}) {
        const QString root = u"opt/"_s + platform;
        makeFolder(root + u"/conf"_s);
        makeProgram(root + u"/bin/"_s + platform + u"/orrlayout"_s);
        const QString programs = path(root + u"/bin/"_s + platform);
        EXPECT_EQ(find(programs + u"/orrlayout"_s).directory, path(root));
        EXPECT_EQ(find(u"unknown"_s, {programs}).directory, path(root));
    }
}

TEST_F(HomeDirectory, programs_lie_no_deeper_than_in_the_folder_of_a_platform)
{
    makeFolder(u"opt/orr/conf"_s);
    makeProgram(u"opt/orr/bin/linux-x86_64/debug/orrlayout"_s);
    EXPECT_EQ(find(path(u"opt/orr/bin/linux-x86_64/debug/orrlayout"_s)).directory, u""_s);
}

TEST_F(HomeDirectory, program_may_lie_in_the_root_below_a_folder_called_bin)
{
    makeProgram(u"home/bin/orrlayout-1.0/orrlayout"_s);
    makeFolder(u"home/bin/orrlayout-1.0/conf"_s);
    const QString program = path(u"home/bin/orrlayout-1.0/orrlayout"_s);
    EXPECT_EQ(find(program).directory, path(u"home/bin/orrlayout-1.0"_s));
    makeFolder(u"home/conf"_s);
    EXPECT_EQ(find(program).directory, path(u"home"_s));
}

TEST_F(HomeDirectory, file_named_conf_does_not_count)
{
    makeProgram(u"opt/orr/bin/linux-x86_64/orrlayout"_s);
    makeProgram(u"opt/orr/conf"_s);
    EXPECT_EQ(find(path(u"opt/orr/bin/linux-x86_64/orrlayout"_s)).directory, u""_s);
}

TEST_F(HomeDirectory, nothing_to_go_by_gives_nothing)
{
    EXPECT_EQ(find(u""_s).directory, u""_s);
    EXPECT_EQ(find(u"orrlayout"_s, {u""_s, path(u"missing"_s)}).directory, u""_s);
    EXPECT_EQ(find(path(u"missing/orrlayout"_s)).directory, u""_s);
}

TEST_F(HomeDirectory, trace_tells_each_source_by_its_name)
{
    makeInstallation(u"opt/orr"_s);
    const QString programs = path(u"opt/orr/bin/linux-x86_64"_s);
    const QString absolute = programs + u"/orrlayout"_s;
    const auto last = [](const HomeSearch &search) { return search.trace.last(); };
    const QString root = path(u"opt/orr"_s);

    EXPECT_EQ(last(find(u""_s, {}, root)), u"ORRHOME: [%1] from $ORRHOME variable\n"_s.arg(root));
    EXPECT_EQ(last(find(absolute)), u"ORRHOME: [%1] from Abs argv0\n"_s.arg(root));
    EXPECT_EQ(last(find(u"opt/orr/bin/linux-x86_64/orrlayout"_s)),
              u"ORRHOME: [%1] from Rel argv0\n"_s.arg(root));
    EXPECT_EQ(last(find(u"orrlayout"_s, {programs})),
              u"ORRHOME: [%1] from argv0 on Path\n"_s.arg(root));
    EXPECT_EQ(last(find(u"unknown"_s, {programs})),
              u"ORRHOME: [%1] from bin on Path\n"_s.arg(root));
}

TEST_F(HomeDirectory, trace_starts_with_the_clues_and_tells_what_is_rejected)
{
    makeInstallation(u"opt/orr"_s);
    const QString program = path(u"opt/orr/bin/linux-x86_64/orrlayout"_s);
    const QStringList expected{
        u"ORRHOME: Init argv0='%1' Cwd='%2'\n"_s.arg(program, base),
        u"ORRHOME: reject path for no '%1'\n"_s.arg(path(u"elsewhere/conf"_s)),
        u"ORRHOME: [%1] from Abs argv0\n"_s.arg(path(u"opt/orr"_s)),
    };
    EXPECT_EQ(find(program, {}, path(u"elsewhere"_s)).trace, expected);
}

TEST_F(HomeDirectory, clues_of_the_process_are_its_environment)
{
    const ScopedEnvironment home("ORRHOME", "/opt/orr");
    const ScopedEnvironment path("PATH", "/usr/bin::/bin");
    const HomeClues clues = homeClues(u"orrlayout"_s);
    EXPECT_EQ(clues.argv0, u"orrlayout"_s);
    EXPECT_EQ(clues.workingDirectory, QDir::currentPath());
    EXPECT_EQ(clues.orrHome, u"/opt/orr"_s);
    EXPECT_EQ(clues.path, (QStringList{u"/usr/bin"_s, u""_s, u"/bin"_s}));
}

TEST(VisioTemplate, lies_under_the_home_directory)
{
    EXPECT_EQ(visioTemplateDirectory(u"/opt/orr"_s), u"/opt/orr/conf/orrery/visio/empty"_s);
    EXPECT_EQ(visioTemplateDirectory(u""_s), u""_s);
}
