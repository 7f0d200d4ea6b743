// `orr watch` follows files in whichever way they are saved.
#include "companion/watch_run.h"
#include "support/golden.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QXmlStreamReader>

#include <atomic>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class WatchSavesTest : public WatchTest
{
protected:
    void startWith(const QString &file)
    {
        start({u"-K"_s, u"treemap"_s, u"-o"_s, u"o.svg"_s, file});
        ASSERT_TRUE(shows(u"o.svg"_s, ">v0<"));
    }

    QByteArray bytesOf(const QString &name) const { return path(name).toUtf8(); }
    void makeFolder(const QString &name) const { ASSERT_TRUE(QDir().mkpath(path(name))); }
    void rename(const QString &from, const QString &to) const
    {
        ASSERT_EQ(::rename(bytesOf(from).constData(), bytesOf(to).constData()), 0);
    }
    void link(const QByteArray &target, const QString &name) const
    {
        ASSERT_EQ(::symlink(target.constData(), bytesOf(name).constData()), 0);
    }
};

// What is no whole SVG; empty if it is one.
QString svgFault(const QByteArray &bytes)
{
    QXmlStreamReader reader(bytes);
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() ? reader.errorString() : QString();
}

} // namespace

TEST_F(WatchSavesTest, by_writing_over_them)
{
    writeFile(u"a.dot"_s, labelled("v0"));
    startWith(u"a.dot"_s);
    for (const char *const label : {"v1", "v2", "v3"}) {
        writeFile(u"a.dot"_s, labelled(label));
        EXPECT_TRUE(shows(u"o.svg"_s, QByteArray(">") + label + '<'));
    }
}

TEST_F(WatchSavesTest, by_renaming)
{
    writeFile(u"a.dot"_s, labelled("v0"));
    startWith(u"a.dot"_s);
    for (const char *const label : {"v1", "v2", "v3"}) {
        replaceFile(u"a.dot"_s, labelled(label));
        EXPECT_TRUE(shows(u"o.svg"_s, QByteArray(">") + label + '<'));
    }
}

// As an editor does that keeps the former content under another name.
TEST_F(WatchSavesTest, by_moving_the_former_one_away)
{
    writeFile(u"a.dot"_s, labelled("v0"));
    startWith(u"a.dot"_s);
    for (const char *const label : {"v1", "v2"}) {
        rename(u"a.dot"_s, u"a.dot~"_s);
        writeFile(u"a.dot"_s, labelled(label));
        EXPECT_TRUE(shows(u"o.svg"_s, QByteArray(">") + label + '<'));
    }
    EXPECT_EQ(errors.count("can't be read"), 0);
}

TEST_F(WatchSavesTest, by_removing_and_creating_them)
{
    writeFile(u"a.dot"_s, labelled("v0"));
    startWith(u"a.dot"_s);
    ASSERT_TRUE(QFile::remove(path(u"a.dot"_s)));
    writeFile(u"a.dot"_s, labelled("v1"));
    EXPECT_TRUE(shows(u"o.svg"_s, ">v1<"));
    EXPECT_EQ(errors.count("can't be read"), 0);
    ASSERT_TRUE(QFile::remove(path(u"a.dot"_s)));
    EXPECT_TRUE(says("'a.dot' can't be read: No such file or directory; waiting for it\n"));
    EXPECT_TRUE(shows(u"o.svg"_s, ">v1<"));
    writeFile(u"a.dot"_s, labelled("v2"));
    EXPECT_TRUE(shows(u"o.svg"_s, ">v2<"));
}

// The text is a fault as long as it is not whole.
TEST_F(WatchSavesTest, by_writing_them_in_several_steps)
{
    writeFile(u"a.dot"_s, labelled("v0"));
    startWith(u"a.dot"_s);
    const QByteArray text = labelled("v1");
    QFile file(path(u"a.dot"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    QElapsedTimer pause;
    for (qsizetype at = 0; at < text.size(); at += 10) {
        pause.start();
        file.write(text.sliced(at, std::min<qsizetype>(10, text.size() - at)));
        ::usleep(80'000);
        if (pause.elapsed() > 400)
            GTEST_SKIP() << "the machine is so slow that a pause looks like the end";
    }
    file.close();
    EXPECT_TRUE(shows(u"o.svg"_s, ">v1<"));
    EXPECT_TRUE(says(" drawn in ", 2));
    end(SIGTERM);
    EXPECT_EQ(drawn(), 2);
    EXPECT_EQ(errors.count('\n'), 2) << errors.toStdString();
    EXPECT_EQ(output, "");
}

TEST_F(WatchSavesTest, behind_links)
{
    makeFolder(u"x"_s);
    makeFolder(u"y"_s);
    writeFile(u"x/real.dot"_s, labelled("v0"));
    writeFile(u"y/real.dot"_s, labelled("v2"));
    link("x", u"folder"_s);
    link(bytesOf(u"folder/real.dot"_s), u"a.dot"_s);
    startWith(u"a.dot"_s);
    replaceFile(u"x/real.dot"_s, labelled("v1"));
    EXPECT_TRUE(shows(u"o.svg"_s, ">v1<"));
    link("y", u"other"_s);
    rename(u"other"_s, u"folder"_s);
    EXPECT_TRUE(shows(u"o.svg"_s, ">v2<"));
    replaceFile(u"y/real.dot"_s, labelled("v3"));
    EXPECT_TRUE(shows(u"o.svg"_s, ">v3<"));
    replaceFile(u"a.dot"_s, labelled("v4"));
    EXPECT_TRUE(shows(u"o.svg"_s, ">v4<"));
}

TEST_F(WatchSavesTest, in_a_folder_that_is_made_again)
{
    makeFolder(u"x/y"_s);
    writeFile(u"x/y/a.dot"_s, labelled("v0"));
    startWith(u"x/y/../y/a.dot"_s);
    ASSERT_TRUE(QDir(path(u"x"_s)).removeRecursively());
    makeFolder(u"x/y"_s);
    writeFile(u"x/y/a.dot"_s, labelled("v1"));
    EXPECT_TRUE(shows(u"o.svg"_s, ">v1<"));
    rename(u"x"_s, u"z"_s);
    EXPECT_TRUE(says("can't be read"));
    makeFolder(u"x/y"_s);
    writeFile(u"x/y/a.dot"_s, labelled("v2"));
    EXPECT_TRUE(shows(u"o.svg"_s, ">v2<"));
    replaceFile(u"x/y/a.dot"_s, labelled("v3"));
    EXPECT_TRUE(shows(u"o.svg"_s, ">v3<"));
}

TEST_F(WatchSavesTest, in_a_folder_that_is_not_there_yet)
{
    start({u"-K"_s, u"treemap"_s, u"-o"_s, u"o.svg"_s, path(u"x/y/a.dot"_s)});
    EXPECT_TRUE(says("can't be read: No such file or directory; waiting for it"));
    makeFolder(u"x/y"_s);
    writeFile(u"x/y/a.dot"_s, labelled("v1"));
    EXPECT_TRUE(shows(u"o.svg"_s, ">v1<"));
}

TEST_F(WatchSavesTest, where_only_looking_helps)
{
    writeFile(u"a.dot"_s, labelled("v0"));
    start({u"-K"_s, u"treemap"_s, u"--poll"_s, u"-o"_s, u"o.svg"_s, u"a.dot"_s});
    ASSERT_TRUE(shows(u"o.svg"_s, ">v0<"));
    writeFile(u"a.dot"_s, labelled("v1"));
    EXPECT_TRUE(shows(u"o.svg"_s, ">v1<"));
    replaceFile(u"a.dot"_s, labelled("v2"));
    EXPECT_TRUE(shows(u"o.svg"_s, ">v2<"));
    ASSERT_TRUE(QFile::remove(path(u"a.dot"_s)));
    EXPECT_TRUE(says("; waiting for it\n"));
}

// In a namespace of users one may take all watches away from oneself.
TEST_F(WatchSavesTest, where_the_system_has_no_watches_left)
{
    for (const auto &[limit, setting] : {std::pair("watches", "fs.inotify.max_user_watches"),
                                         std::pair("instances", "fs.inotify.max_user_instances")}) {
        const QString command = u"echo 0 >/proc/sys/user/max_inotify_"_s + QLatin1String(limit);
        if (run({.arguments = {u"-Ur"_s, u"sh"_s, u"-c"_s, command}, .command = u"unshare"_s})
                .status
            != 0)
            GTEST_SKIP() << "no namespace of users can be made here";
        errors.clear();
        writeFile(u"a.dot"_s, labelled("v0"));
        start({u"-K"_s, u"treemap"_s, u"-o"_s, u"o.svg"_s, u"a.dot"_s},
              u"exec unshare -Ur sh -c '"_s + command + u" && exec \"$0\" \"$@\"' \"$0\" \"$@\""_s);
        EXPECT_TRUE(says(setting));
        EXPECT_TRUE(says("; looking at the inputs twice a second\n"));
        ASSERT_TRUE(shows(u"o.svg"_s, ">v0<"));
        replaceFile(u"a.dot"_s, labelled("v1"));
        EXPECT_TRUE(shows(u"o.svg"_s, ">v1<"));
        end(SIGTERM);
        EXPECT_EQ(errors.count("twice a second"), 1);
    }
}

TEST_F(WatchSavesTest, and_never_shows_half_a_drawing)
{
    const QStringList names{u"a"_s, u"b"_s, u"c"_s, u"d"_s};
    const auto saveAll = [&](int number) {
        for (const QString &name : names)
            writeFile(name + u".dot"_s, labelled('v' + QByteArray::number(number)));
    };
    const auto allShow = [&](int number) {
        for (const QString &name : names)
            EXPECT_TRUE(shows(name + u".svg"_s, ">v" + QByteArray::number(number) + '<'));
    };
    saveAll(0);
    start({u"-K"_s, u"treemap"_s, u"a.dot"_s, u"b.dot"_s, u"c.dot"_s, u"d.dot"_s});
    allShow(0);
    ASSERT_NE(svgFault(fileContent(u"a.svg"_s).chopped(10)), QString());
    std::atomic<bool> isOver = false;
    qint64 readings = 0;
    QString fault;
    std::thread reader([&] {
        for (; !isOver && fault.isEmpty(); ++readings) {
            QFile file(path(names.at(readings % names.size()) + u".svg"_s));
            fault = file.open(QIODevice::ReadOnly) ? svgFault(file.readAll()) : file.errorString();
        }
    });
    for (int i = 1; i <= 50 && !HasFailure(); ++i) {
        saveAll(i);
        allShow(i);
    }
    isOver = true;
    reader.join();
    EXPECT_EQ(fault, QString());
    EXPECT_GT(readings, 200);
    EXPECT_TRUE(says(" drawn in ", 4 + 200));
}
