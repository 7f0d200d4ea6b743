// Names of files that are bytes and no texts, or look like something else.
#include "faults/fault_run.h"
#include "support/golden.h"

#include <QFile>

#include <algorithm>
#include <cstdio>

#include <dirent.h>

using namespace Qt::StringLiterals;

namespace {

class FileNames : public FaultTest
{
protected:
    // The program, called by a shell that makes the names: `printf` knows bytes by their octal
    // numbers.
    ProgramRun drawByShell(const QString &input, const QString &outputName) const
    {
        const QString script = u"\"$0\" -K treemap -T \"$1\" -o \"$(printf '%1')\" "
                               "\"$(printf '%2')\""_s.arg(outputName, input);
        return run({.arguments = {u"-c"_s, script, QStringLiteral(ORR_PROGRAM), format()},
                    .command = u"/bin/sh"_s});
    }

    // The toolkit's own way to clear a folder does not see them.
    void TearDown() override
    {
        const QByteArrayList names = rawNames();
        for (const QByteArray &name : names)
            std::remove(rawPath(name).constData());
    }

    // The names in the folder as they are.
    QByteArrayList rawNames() const
    {
        QByteArrayList names;
        DIR *const opened = ::opendir(QFile::encodeName(path(u"."_s)).constData());
        while (const dirent *entry = ::readdir(opened))
            names.append(entry->d_name);
        ::closedir(opened);
        return names;
    }

    QByteArray rawPath(const QByteArray &name) const
    {
        return QFile::encodeName(path(u"."_s)) + '/' + name;
    }

    void makeFile(const QByteArray &name, const QByteArray &content) const
    {
        FILE *const file = std::fopen(rawPath(name).constData(), "w");
        ASSERT_NE(file, nullptr);
        std::fwrite(content.constData(), 1, static_cast<size_t>(content.size()), file);
        std::fclose(file);
    }

    QByteArray content(const QByteArray &name) const
    {
        QByteArray bytes(1 << 20, '\0');
        FILE *const file = std::fopen(rawPath(name).constData(), "r");
        if (!file)
            return "missing";
        bytes.truncate(static_cast<qsizetype>(std::fread(bytes.data(), 1, 1 << 20, file)));
        std::fclose(file);
        return bytes;
    }
};

ORR_FOR_EACH_FORMAT(FileNames);

} // namespace

TEST_P(FileNames, that_are_no_utf8_are_told_apart)
{
    const QByteArray other = "digraph { c [area=1]; d [area=2]; }";
    makeFile("in\xFF.dot", smallGraph());
    makeFile("in\xFE.dot", other);
    EXPECT_TRUE(succeeded(drawByShell(u"in\\377.dot"_s, u"\\377."_s + format())));
    EXPECT_TRUE(succeeded(drawByShell(u"in\\376.dot"_s, u"\\376."_s + format())));
    EXPECT_EQ(content("\xFF." + QByteArray(GetParam())), drawing(smallGraph()));
    EXPECT_EQ(content("\xFE." + QByteArray(GetParam())), drawing(other));
    const QByteArrayList names = rawNames();
    EXPECT_EQ(std::count_if(names.cbegin(), names.cend(),
                            [](const QByteArray &name) { return name.endsWith(GetParam()); }),
              3)
        << "with what stood there";
}

TEST_P(FileNames, that_are_no_utf8_and_not_there_are_refused)
{
    // This is what the name would look like with a replacement character.
    makeFile("in\xEF\xBF\xBD.dot", smallGraph());
    EXPECT_TRUE(failedWith(drawByShell(u"in\\377.dot"_s, output()), inputFileMessage));
    EXPECT_TRUE(failedWith(drawByShell(u"in\\377\\303.dot"_s, output()), inputFileMessage));
    EXPECT_EQ(fileContent(output()), oldContent);
}

TEST_P(FileNames, that_begin_with_a_colon_are_files)
{
    makeFile(":in.dot", smallGraph());
    const QString colon = u":out."_s + format();
    EXPECT_TRUE(succeeded(run({.arguments = arguments(colon) + QStringList(u":in.dot"_s)})));
    EXPECT_EQ(content(colon.toUtf8()), drawing(smallGraph()));
    // The folder of that name is not there.
    const ProgramRun failed =
        run({.arguments = arguments(u":/"_s + output()) + QStringList(u":in.dot"_s)});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(fileContent(output()), oldContent);
}

// The toolkit reads the name of the folder as a text, and looks for it under another name.
TEST_P(FileNames, temporary_folder_that_is_no_utf8_is_not_found)
{
    writeFile(u"in.dot"_s, smallGraph());
    const auto drawByTemporary = [&](const QString &options) {
        const QString script =
            u"TMPDIR=$PWD/$(printf 't\\377'); export TMPDIR; mkdir \"$TMPDIR\"; "
            "\"$0\" -K treemap -T \"$1\" %1 in.dot; status=$?; rmdir \"$TMPDIR\"; exit $status"_s
                .arg(options);
        return run({.arguments = {u"-c"_s, script, QStringLiteral(ORR_PROGRAM), format()},
                    .command = u"/bin/sh"_s});
    };
    EXPECT_TRUE(failedWith(drawByTemporary(QString()), temporaryFileMessage));
    EXPECT_EQ(fileContent(output()), oldContent);
    EXPECT_TRUE(succeeded(drawByTemporary(u"-o \"out.$1\""_s))) << "there it is not needed";
    EXPECT_EQ(fileContent(output()), drawing(smallGraph()));
}
