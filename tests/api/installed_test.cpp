// The library as it is installed, in a place where the installation was moved to, and the examples
// as strangers build and call them there.
#include "drawing/format_table.h"
#include "support/golden.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace ORR::Drawing;
using namespace Qt::StringLiterals;

namespace {

const QString projectFolder = QStringLiteral(ORR_PROJECT_FOLDER);
const QString input = projectFolder + u"/examples/treemap/own_source.dot"_s;

QString libraryFile()
{
    return QStringLiteral(ORR_LIBRARY);
}

// The output of a program that succeeds.
QByteArray outputOf(const QString &program, const QStringList &arguments,
                    const QString &standardInput = {},
                    const QList<QPair<QString, QString>> &variables = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto &[name, value] : variables)
        environment.insert(name, value);
    process.setProcessEnvironment(environment);
    if (!standardInput.isEmpty())
        process.setStandardInputFile(standardInput);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(120000)) << program.toStdString();
    const QByteArray errors = process.readAllStandardError();
    EXPECT_EQ(process.exitCode(), 0) << program.toStdString() << ": " << errors.toStdString();
    return process.readAllStandardOutput();
}

// One installation for all tests, moved after it was made.
class Installed : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        folder = std::make_unique<QTemporaryDir>();
        outputOf(QStringLiteral(ORR_CMAKE),
                 {u"--install"_s, QStringLiteral(ORR_BUILD_FOLDER), u"--prefix"_s,
                  folder->filePath(u"first"_s)});
        ASSERT_TRUE(QDir().rename(folder->filePath(u"first"_s), prefix()));
    }
    static void TearDownTestSuite() { folder.reset(); }

    static QString prefix() { return folder->filePath(u"a place"_s); }
    static QString libraryFolder() { return prefix() + u'/' + QStringLiteral(ORR_LIBDIR); }
    static QString path(const QString &name) { return folder->filePath(name); }

    // The program is called with an engine and a format.
    static void expectDrawingsOf(const QString &program, const QStringList &before = {})
    {
        for (const QString &format : formatNames()) {
            const QByteArray expected = outputOf(QStringLiteral(ORR_PROGRAM),
                                                 {u"-K"_s, u"treemap"_s, u"-T"_s, format, input});
            const QByteArray drawing = outputOf(program, before + QStringList{u"treemap"_s, format},
                                                input, {{u"LD_LIBRARY_PATH"_s, libraryFolder()}});
            EXPECT_FALSE(expected.isEmpty());
            EXPECT_TRUE(drawing == expected)
                << format.toStdString() << ": " << drawing.size() << " bytes";
        }
    }

    static inline std::unique_ptr<QTemporaryDir> folder;
};

} // namespace

TEST_F(Installed, library_serves_examples_that_cmake_builds)
{
    const QString cmake = QStringLiteral(ORR_CMAKE);
    outputOf(cmake,
             {u"-S"_s, projectFolder + u"/examples/embed"_s, u"-B"_s, path(u"embed"_s),
              "-DCMAKE_PREFIX_PATH="_L1 + prefix()});
    outputOf(cmake, {u"--build"_s, path(u"embed"_s)});
    expectDrawingsOf(path(u"embed/draw_c"_s));
    expectDrawingsOf(path(u"embed/draw_cpp"_s));
}

TEST_F(Installed, library_serves_what_is_built_with_pkg_config)
{
    const QString flags = QString::fromLocal8Bit(
        outputOf(u"pkg-config"_s, {u"--cflags"_s, u"--libs"_s, u"orrlayout"_s}, {},
                 {{u"PKG_CONFIG_PATH"_s, libraryFolder() + u"/pkgconfig"_s}}));
    outputOf(u"cc"_s,
             QStringList{projectFolder + u"/examples/embed/draw.c"_s, u"-o"_s, path(u"draw"_s)}
                 + QProcess::splitCommand(flags.trimmed().replace(u"\\ "_s, u"\" \""_s)));
    expectDrawingsOf(path(u"draw"_s));
    EXPECT_EQ(outputOf(u"pkg-config"_s, {u"--modversion"_s, u"orrlayout"_s}, {},
                       {{u"PKG_CONFIG_PATH"_s, libraryFolder() + u"/pkgconfig"_s}}),
              ORR_PROJECT_VERSION "\n");
}

TEST_F(Installed, library_serves_the_program_of_its_page)
{
    const QByteArray page = readTestFile(projectFolder + u"/docs/library.md"_s);
    const qsizetype start = page.indexOf("```cpp\n") + 7;
    ASSERT_GE(start, 7);
    QFile source(path(u"page.cpp"_s));
    ASSERT_TRUE(source.open(QIODevice::WriteOnly));
    source.write(page.sliced(start, page.indexOf("```", start) - start));
    source.close();
    outputOf(u"c++"_s,
             {u"-std=c++20"_s, u"-Wall"_s, u"-Wextra"_s, u"-Werror"_s, source.fileName(), u"-I"_s,
              prefix() + u"/include"_s, libraryFolder() + u"/liborrlayout.so"_s, u"-o"_s,
              path(u"page"_s)});
    const QByteArray drawing =
        outputOf(path(u"page"_s), {}, {}, {{u"LD_LIBRARY_PATH"_s, libraryFolder()}});
    EXPECT_TRUE(drawing.contains("<svg") && drawing.contains("core")) << drawing.toStdString();
}

TEST_F(Installed, library_serves_python)
{
    expectDrawingsOf(u"python3"_s, {projectFolder + u"/examples/embed/draw.py"_s});
}

TEST_F(Installed, files_name_no_folder_of_the_build)
{
    for (const QString &name :
         {u"/pkgconfig/orrlayout.pc"_s, u"/cmake/orrlayout/orrlayout-config.cmake"_s,
          u"/cmake/orrlayout/orrlayout-targets.cmake"_s, u"/liborrlayout.so.1"_s}) {
        const QByteArray text = readTestFile(libraryFolder() + name);
        EXPECT_FALSE(text.contains(ORR_BUILD_FOLDER)) << name.toStdString();
        EXPECT_FALSE(text.contains("/first")) << name.toStdString();
    }
}

TEST_F(Installed, data_lie_where_every_prefix_has_them)
{
    const QByteArray fonts = readTestFile(prefix() + u"/share/orrlayout/fonts.conf"_s);
    EXPECT_TRUE(fonts.contains("liberation/LiberationSans-Regular.ttf"));
    EXPECT_FALSE(fonts.contains(ORR_BUILD_FOLDER));
    EXPECT_TRUE(QDir(prefix() + u"/share/orrlayout/conf/orrery/visio/empty"_s).exists());
    for (const QString &program :
         {u"/bin/orrlayout"_s, u"/bin/orr"_s, u"/libexec/orrlayout/orrlayout-worker"_s})
        EXPECT_TRUE(QFileInfo(prefix() + program).isExecutable()) << program.toStdString();
}

TEST(LibraryFile, exports_the_functions_of_the_header_and_nothing_else)
{
    const QString header =
        QString::fromUtf8(readTestFile(projectFolder + u"/include/orrlayout/orrlayout.h"_s));
    static const QRegularExpression declaration(u"^ORRLAYOUT_API[^(]*?(\\w+)\\("_s,
                                                QRegularExpression::MultilineOption);
    QStringList expected;
    for (const QRegularExpressionMatch &match : declaration.globalMatch(header))
        expected += match.captured(1) + "@@ORRLAYOUT_1"_L1;
    EXPECT_GE(expected.size(), 10);
    expected += u"ORRLAYOUT_1"_s;
    expected.sort();

    QStringList exported;
    const QString list =
        QString::fromLocal8Bit(outputOf(u"nm"_s, {u"-D"_s, u"--defined-only"_s, libraryFile()}));
    for (const QString &line : list.split(u'\n', Qt::SkipEmptyParts))
        exported += line.section(u' ', -1);
    exported.sort();
    EXPECT_EQ(exported.join(u' '), expected.join(u' '));
}

TEST(LibraryFile, has_a_name_for_its_interface_and_brings_no_toolkit_with_it)
{
    const QString dynamic =
        QString::fromLocal8Bit(outputOf(u"readelf"_s, {u"-d"_s, u"-W"_s, libraryFile()}));
    EXPECT_TRUE(dynamic.contains("Library soname: [liborrlayout.so.1]"_L1));
    EXPECT_FALSE(dynamic.contains("Qt6"_L1));
    EXPECT_FALSE(dynamic.contains("fontconfig"_L1));
}

TEST(LibraryPage, names_every_status)
{
    const QString page = QString::fromUtf8(readTestFile(projectFolder + u"/docs/library.md"_s));
    const QString header =
        QString::fromUtf8(readTestFile(projectFolder + u"/include/orrlayout/orrlayout.h"_s));
    static const QRegularExpression status(u"^    (ORRLAYOUT_\\w+) = \\d+"_s,
                                           QRegularExpression::MultilineOption);
    int count = 0;
    for (const QRegularExpressionMatch &match : status.globalMatch(header)) {
        if (match.captured(1) == "ORRLAYOUT_WARNING"_L1
            || match.captured(1) == "ORRLAYOUT_ERROR"_L1)
            continue;
        EXPECT_TRUE(page.contains("`"_L1 + match.captured(1) + "`"_L1))
            << match.captured(1).toStdString();
        ++count;
    }
    EXPECT_EQ(count, 11);
}
