// Inputs of builds that are no inputs: bytes without sense, files that are cut off, numbers of any
// size. Each of them is a picture or a fault, and nothing else.
#include "companion/import/builds/junit_import.h"
#include "companion/import/builds/ninja_import.h"
#include "companion/import/lines/lcov_import.h"
#include "companion/import/programs/size_import.h"
#include "import/told_tree.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>

#include <cmath>

using namespace ORR::Companion;
using namespace ORR::Testing;
using namespace Qt::StringLiterals;

namespace {

struct HostileInput
{
    const char *name;
    ImportReader read;
    QByteArray text; // that is well
};

const QByteArray packedRecord = QByteArray::fromHex(
    "1f8b08000000000000030b76b34ae47271b432d431e44acd4b89cf4f8b2f4a4dce2f4ae10200949de4141a000000");

const QList<HostileInput> hostileInputs{
    {"tracefile", readLcov, "TN:t\nSF:/p/a.c\nDA:1,2\nDA:2,0\nLF:2\nLH:1\nend_of_record\n"},
    {"gcov", readLcov,
     R"({"gcc_version": "12", "current_working_directory": "/p", "files": [{"file": "a.c",)"
     R"( "lines": [{"line_number": 1, "count": 3}]}]})"},
    {"packed", readLcov, packedRecord},
    {"log", readNinja, "# ninja log v5\n0\t1500\t7\tsrc/CMakeFiles/x.dir/a.o\tab\n"},
    {"trace", readNinja,
     R"({"traceEvents": [{"ph": "X", "name": "Source", "ts": 1, "dur": 5, "args": {"detail":)"
     R"( "/usr/include/a.h"}}, {"ph": "b", "id": 1, "ts": 2}, {"ph": "e", "id": 1, "ts": 3}]})"},
    {"sections", readSize, "a.o  :\nsection size addr\n.text 10 0\nTotal 10\n"},
    {"sums", readSize, "text\tdata\tbss\tdec\thex\tfilename\n1\t2\t3\t6\t6\ta.o\n"},
    {"bloaty", readSize, "sections,symbols,vmsize,filesize\n.text,\"f(int, \"\"x\"\")\",10,20\n"},
    {"map", readSize,
     "Linker script and memory map\n\n.text  0x10  0x30\n *(.text)\n .text 0x10 0x20 l.a(b.o)\n"
     " .text._Zf\n                0x30  0x10 b.o\n                0x30   A<int>::f(int)\n"},
    {"junit", readJunit,
     "<testsuite name='s'><testcase classname='p.C' name='x' time='1.5'><failure/></testcase>"
     "</testsuite>"},
};

void expectPictureOrFault(const HostileInput &input, const QByteArray &text)
{
    for (const QString &engine : {u"treemap"_s, u"bar"_s}) {
        const ImportResult result = readBytes(input.read, text, {.engine = engine});
        ASSERT_NE(result.picture != nullptr, result.fault.has_value())
            << input.name << ": " << text.toStdString();
        if (result.fault) {
            ASSERT_FALSE(result.fault->sentence.isEmpty()) << input.name;
            ASSERT_FALSE(result.fault->sentence.endsWith(u'.'))
                << qPrintable(result.fault->sentence);
        } else {
            ASSERT_GT(wholeWeight(result), 0) << input.name;
        }
    }
}

QByteArray senselessBytes(QRandomGenerator *random)
{
    QByteArray bytes(random->bounded(200), '\0');
    for (char &byte : bytes)
        byte = char(random->bounded(256));
    return bytes;
}

// The text with each of its numbers replaced.
QByteArray withNumbers(const QByteArray &text, const QByteArray &number)
{
    QByteArray changed;
    bool isInNumber = false;
    for (const char character : text) {
        const bool isDigit = character >= '0' && character <= '9';
        if (isDigit && !isInNumber)
            changed += number;
        else if (!isDigit)
            changed += character;
        isInNumber = isDigit;
    }
    return changed;
}

} // namespace

TEST(HostileBuilds, are_pictures_as_long_as_they_are_well)
{
    for (const HostileInput &input : hostileInputs)
        EXPECT_TRUE(readBytes(input.read, input.text).picture) << input.name;
}

TEST(HostileBuilds, may_be_bytes_without_sense)
{
    QRandomGenerator random(7);
    for (const HostileInput &input : hostileInputs) {
        for (int i = 0; i < 200; ++i) {
            expectPictureOrFault(input, senselessBytes(&random));
            expectPictureOrFault(input, input.text.first(20) + senselessBytes(&random));
        }
    }
}

TEST(HostileBuilds, may_be_cut_off)
{
    for (const HostileInput &input : hostileInputs) {
        for (qsizetype size = 0; size < input.text.size(); ++size)
            expectPictureOrFault(input, input.text.first(size));
    }
}

TEST(HostileBuilds, may_be_files_of_tools_that_are_cut_off)
{
    // Long ones at fewer places, so that each takes as long.
    const auto cut = [](const char *name, ImportReader read, const QString &file) {
        const QByteArray text = dataFile(file);
        const qsizetype step = 7 * (1 + text.size() / 3000);
        for (qsizetype size = 0; size < text.size(); size += step)
            expectPictureOrFault({.name = name, .read = read, .text = {}}, text.first(size));
    };
    cut("tracefile", readLcov, u"lcov/parser.info"_s);
    cut("gcov", readLcov, u"lcov/texts.gcov.json"_s);
    cut("packed", readLcov, u"lcov/html_text.cpp.gcov.json.gz"_s);
    cut("log", readNinja, u"ninja/ninja_log"_s);
    cut("trace", readNinja, u"ninja/html_text.json"_s);
    cut("sections", readSize, u"size/read_graph.size"_s);
    cut("sums", readSize, u"size/objects.txt"_s);
    cut("bloaty", readSize, u"size/sections.csv"_s);
    cut("map", readSize, u"size/read_graph.map"_s);
    cut("junit", readJunit, u"junit/pytest.xml"_s);
}

TEST(HostileBuilds, may_have_a_byte_that_is_another)
{
    QRandomGenerator random(11);
    for (const HostileInput &input : hostileInputs) {
        for (qsizetype i = 0; i < input.text.size(); ++i) {
            QByteArray text = input.text;
            text[i] = char(random.bounded(256));
            expectPictureOrFault(input, text);
        }
    }
}

TEST(HostileBuilds, may_have_numbers_of_any_kind)
{
    const QByteArrayList numbers{"-1",
                                 "0",
                                 "1e999",
                                 "-1e999",
                                 "nan",
                                 "inf",
                                 "1e-999",
                                 "0x7",
                                 "+3",
                                 "",
                                 QByteArray(400, '9'),
                                 "9223372036854775808"};
    for (const HostileInput &input : hostileInputs) {
        for (const QByteArray &number : numbers)
            expectPictureOrFault(input, withNumbers(input.text, number));
    }
}

TEST(HostileBuilds, have_weights_that_are_drawn)
{
    const ImportResult result = readBytes(
        readNinja, "# ninja log v5\n0\t" + QByteArray(308, '9') + "\t1\ta/b\tx\n0\t1\t1\ta/c\ty\n");
    ASSERT_TRUE(result.picture) << qPrintable(toldFault(result));
    EXPECT_TRUE(std::isfinite(wholeWeight(result)));
    const WrittenGraph graph = result.picture->write({.engine = u"treemap"_s});
    EXPECT_TRUE(graph.text.startsWith("digraph"));
    EXPECT_FALSE(graph.text.contains("inf"));
    EXPECT_FALSE(graph.text.contains("nan"));
}
