#include "output/output.h"

#include "support/golden.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <thread>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

class OutputFiles : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(writeOutput(name, "old")); }

    struct stat status() const
    {
        struct stat found = {};
        EXPECT_EQ(::stat(QFile::encodeName(name).constData(), &found), 0);
        return found;
    }

    // All names, also the hidden ones.
    QStringList files() const
    {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }

    const QTemporaryDir folder;
    const QString name = folder.filePath(u"a"_s);
    const QByteArray path = QFile::encodeName(name);
};

// As long as it lives, the process is one of an ordinary user.
class OrdinaryUser
{
public:
    OrdinaryUser() : isPossible(::geteuid() != 0 || ::seteuid(65534) == 0) { }
    ~OrdinaryUser() { EXPECT_EQ(::seteuid(former), 0); }

    const uid_t former = ::geteuid();
    const bool isPossible;
};

} // namespace

TEST_F(OutputFiles, holds_the_bytes_in_place_of_what_stood_there)
{
    EXPECT_TRUE(writeOutput(name, QByteArray(1000, 'x')));
    EXPECT_TRUE(writeOutput(name, "a\n\0b"_ba));
    EXPECT_EQ(readTestFile(name), "a\n\0b"_ba);
    EXPECT_TRUE(writeOutput(name, QByteArray()));
    EXPECT_EQ(readTestFile(name), QByteArray());
}

TEST_F(OutputFiles, one_that_cannot_be_opened_fails)
{
    EXPECT_FALSE(writeOutput(folder.path(), "a"));
    EXPECT_FALSE(writeOutput(folder.filePath(u"no/a"_s), "a"));
    EXPECT_FALSE(writeOutput(folder.filePath(u"no/"_s), "a"));
    EXPECT_FALSE(writeOutput(folder.filePath(u"a/b"_s), "a"));
    EXPECT_FALSE(writeOutput(folder.filePath(QString(300, u'a')), "a"));
    EXPECT_FALSE(writeOutput(QString(), "a"));
    EXPECT_EQ(files(), QStringList(u"a"_s));
}

TEST_F(OutputFiles, a_full_disk_fails)
{
    EXPECT_FALSE(writeOutput(u"/dev/full"_s, "a"));
    EXPECT_FALSE(writeOutput(u"/dev/full"_s, QByteArray(1000000, 'x')));
}

TEST_F(OutputFiles, appears_with_commit_and_not_before)
{
    OutputFile file(name);
    EXPECT_TRUE(file.isOpen());
    EXPECT_TRUE(file.write("ne"));
    EXPECT_TRUE(file.write("w"));
    EXPECT_EQ(readTestFile(name), "old");
    EXPECT_TRUE(file.commit());
    EXPECT_EQ(readTestFile(name), "new");
    EXPECT_FALSE(file.isOpen());
    EXPECT_FALSE(file.write("more"));
    EXPECT_FALSE(file.commit());
    EXPECT_EQ(readTestFile(name), "new");
    EXPECT_EQ(files(), QStringList(u"a"_s));
}

TEST_F(OutputFiles, leaves_nothing_without_commit)
{
    {
        OutputFile old(name);
        OutputFile fresh(folder.filePath(u"b"_s));
        EXPECT_TRUE(old.write("new"));
        EXPECT_TRUE(fresh.write("new"));
        EXPECT_EQ(files().size(), 3);
    }
    EXPECT_EQ(files(), QStringList(u"a"_s));
    EXPECT_EQ(readTestFile(name), "old");
}

TEST_F(OutputFiles, last_of_two_holds)
{
    OutputFile first(name);
    OutputFile second(name);
    EXPECT_TRUE(first.write("first"));
    EXPECT_TRUE(second.write("second"));
    EXPECT_TRUE(second.commit());
    EXPECT_TRUE(first.commit());
    EXPECT_EQ(readTestFile(name), "first");
}

TEST_F(OutputFiles, chain_of_links_is_followed_from_folder_to_folder)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"sub"_s));
    ASSERT_TRUE(QFile::link(u"../second"_s, folder.filePath(u"sub/first"_s)));
    ASSERT_TRUE(QFile::link(folder.filePath(u"sub/../a"_s), folder.filePath(u"second"_s)));
    EXPECT_TRUE(writeOutput(folder.filePath(u"sub/first"_s), "new"));
    EXPECT_EQ(readTestFile(name), "new");
    EXPECT_EQ(QDir(folder.filePath(u"sub"_s)).entryList(QDir::Files | QDir::Hidden),
              QStringList(u"first"_s));
}

TEST_F(OutputFiles, ring_of_links_fails)
{
    ASSERT_TRUE(QFile::link(u"ring"_s, folder.filePath(u"ring"_s)));
    EXPECT_FALSE(writeOutput(folder.filePath(u"ring"_s), "new"));
}

TEST_F(OutputFiles, owner_is_kept)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the superuser can give files away";
    ASSERT_EQ(::chown(path.constData(), 1234, 4321), 0);
    ASSERT_EQ(::chmod(path.constData(), 06751), 0);
    EXPECT_TRUE(writeOutput(name, "new"));
    EXPECT_EQ(status().st_uid, 1234U);
    EXPECT_EQ(status().st_gid, 4321U);
    EXPECT_EQ(status().st_mode & 07777, 0751U) << "it is no longer the program that was trusted";
}

TEST_F(OutputFiles, own_attributes_of_the_user_are_kept)
{
    if (::setxattr(path.constData(), "user.origin", "here", 4, 0) != 0)
        GTEST_SKIP() << "not known to this file system";
    EXPECT_TRUE(writeOutput(name, "new"));
    std::array<char, 16> value{};
    EXPECT_EQ(::getxattr(path.constData(), "user.origin", value.data(), value.size()), 4);
    EXPECT_EQ(QByteArray(value.data()), "here");
}

// An access list as the system stores it, see acl(5): for the owner, for user 1234, for the group,
// the mask, for others.
TEST_F(OutputFiles, access_list_is_kept_and_none_comes_from_the_folder)
{
    constexpr quint32 nobody = 0xFFFFFFFF;
    struct Entry
    {
        quint16 tag;
        quint16 permissions;
        quint32 id;
    };
    struct List
    {
        quint32 version = 2;
        std::array<Entry, 5> entries{
            {{1, 6, nobody}, {2, 6, 1234}, {4, 0, nobody}, {16, 6, nobody}, {32, 0, nobody}}};
    };
    constexpr char access[] = "system.posix_acl_access";
    const List list;
    if (::setxattr(path.constData(), access, &list, sizeof list, 0) != 0)
        GTEST_SKIP() << "not known to this file system";
    EXPECT_TRUE(writeOutput(name, "new"));
    List kept;
    EXPECT_EQ(::getxattr(path.constData(), access, &kept, sizeof kept), ssize_t(sizeof list));
    EXPECT_EQ(std::memcmp(&kept, &list, sizeof list), 0);

    ASSERT_EQ(::removexattr(path.constData(), access), 0);
    ASSERT_EQ(::chmod(path.constData(), 0640), 0);
    ASSERT_EQ(::setxattr(QFile::encodeName(folder.path()).constData(), "system.posix_acl_default",
                         &list, sizeof list, 0),
              0);
    EXPECT_TRUE(writeOutput(name, "newer"));
    EXPECT_EQ(::getxattr(path.constData(), access, &kept, sizeof kept), -1);
    EXPECT_EQ(status().st_mode & 07777, 0640U);
}

// What somebody else puts there while it is opened must not be written over in place: a reader
// would see it empty.
TEST_F(OutputFiles, file_that_is_replaced_meanwhile_is_never_seen_in_part)
{
    const QByteArray place = QFile::encodeName(name);
    const QByteArray other = place + ".other";
    const QByteArray drawing(3000, 'd');
    std::atomic<bool> isDone = false;
    std::thread replacing([&] {
        while (!isDone) {
            EXPECT_TRUE(writeOutput(QFile::decodeName(other), "other"));
            EXPECT_EQ(::rename(other.constData(), place.constData()), 0);
        }
    });
    std::thread reading([&] {
        while (!isDone) {
            const QByteArray seen = readTestFile(name);
            if (seen != "old" && seen != "other" && seen != drawing)
                ADD_FAILURE() << "a reader saw " << seen.size() << " bytes";
        }
    });
    for (int i = 0; i < 1000; ++i) {
        OutputFile file(name);
        EXPECT_TRUE(file.write(drawing) && file.commit());
    }
    isDone = true;
    replacing.join();
    reading.join();
    EXPECT_EQ(files().size(), 1);
}

TEST_F(OutputFiles, file_in_a_folder_that_takes_no_other_is_written_over)
{
    ASSERT_EQ(::chmod(path.constData(), 0666), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0555), 0);
    const ino_t before = status().st_ino;
    {
        const OrdinaryUser user;
        ASSERT_TRUE(user.isPossible);
        EXPECT_FALSE(writeOutput(folder.filePath(u"b"_s), "new"));
        {
            OutputFile file(name);
            EXPECT_TRUE(file.isOpen());
        }
        EXPECT_EQ(readTestFile(name), "old") << "nothing was written";
        EXPECT_TRUE(writeOutput(name, "n"));
        EXPECT_EQ(readTestFile(name), "n");
        EXPECT_TRUE(writeOutput(name, ""));
        EXPECT_EQ(readTestFile(name), "");
    }
    EXPECT_EQ(status().st_ino, before);
    ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
}

TEST_F(OutputFiles, file_of_somebody_else_is_written_over)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "takes the superuser to prepare";
    ASSERT_EQ(::chmod(path.constData(), 0666), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0777), 0);
    {
        const OrdinaryUser user;
        ASSERT_TRUE(user.isPossible);
        EXPECT_TRUE(writeOutput(name, "new"));
    }
    EXPECT_EQ(readTestFile(name), "new");
    EXPECT_EQ(status().st_uid, 0U);
    EXPECT_EQ(files(), QStringList(u"a"_s));
}

TEST_F(OutputFiles, file_that_may_not_be_written_stays)
{
    ASSERT_EQ(::chmod(path.constData(), 0444), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0777), 0);
    {
        const OrdinaryUser user;
        ASSERT_TRUE(user.isPossible);
        EXPECT_FALSE(writeOutput(name, "new"));
    }
    EXPECT_EQ(readTestFile(name), "old");
}
