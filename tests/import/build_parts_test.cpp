// What the importers of builds share, each by itself.
#include "companion/import/builds/object_path.h"
#include "companion/import/programs/section_kind.h"
#include "companion/import/programs/symbol_name.h"
#include "companion/import/reading/gzip_bytes.h"
#include "companion/import/reading/written_number.h"
#include "graph/numbers.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;
using namespace ORR::Graph;

namespace {

// "hello\n", packed by gzip -n.
const QByteArray packedHello =
    QByteArray::fromHex("1f8b0800000000000003cb48cdc9c9e7020020303a3606000000");

} // namespace

TEST(WrittenNumber, is_what_tools_write)
{
    EXPECT_EQ(writtenNumber("12"), 12);
    EXPECT_EQ(writtenNumber("-3.5"), -3.5);
    EXPECT_EQ(writtenNumber("+7"), 7);
    EXPECT_EQ(writtenNumber("1e+06"), 1e6);
    EXPECT_EQ(writtenNumber(".5"), 0.5);
    EXPECT_EQ(writtenNumber("5."), 5);
    EXPECT_EQ(writtenNumber("123456789012345"), 123456789012345.0);
}

TEST(WrittenNumber, is_infinite_beyond_double)
{
    EXPECT_EQ(writtenNumber("1e999"), infinity);
    EXPECT_EQ(writtenNumber("-1e999"), -infinity);
}

TEST(WrittenNumber, is_nothing_else)
{
    for (const char *text : {"", "-", "+-1", "nan", "inf", "1e", "1e+", "1,5", " 1", "1 ", "0x10",
                             ".", "1.2.3", "--1", "1f"})
        EXPECT_FALSE(writtenNumber(text)) << '\'' << text << '\'';
}

TEST(WrittenNumber, amounts_are_not_below_zero)
{
    EXPECT_EQ(writtenAmount("0"), 0);
    EXPECT_FALSE(writtenAmount("-1"));
    EXPECT_FALSE(writtenAmount("x"));
    EXPECT_FALSE(writtenAmount("1e999"));
    EXPECT_FALSE(writtenSize(QByteArray(400, '9')));
}

TEST(WrittenNumber, sizes_have_bases)
{
    EXPECT_EQ(writtenSize("0x1F"), 31);
    EXPECT_EQ(writtenSize("017"), 15);
    EXPECT_EQ(writtenSize("17"), 17);
    EXPECT_EQ(writtenSize("0"), 0);
    for (const char *text : {"", "0x", "08", "1f", "-1", "0xg"})
        EXPECT_FALSE(writtenSize(text)) << '\'' << text << '\'';
}

TEST(ReadableOutput, leaves_out_what_says_nothing)
{
    EXPECT_EQ(readableOutput("src/CMakeFiles/x.dir/a.cpp.o"), "src/x/a.cpp.o");
    EXPECT_EQ(readableOutput("CMakeFiles/x.dir/y/CMakeFiles/z.dir/b.o"), "x/y/z/b.o");
}

TEST(ReadableOutput, keeps_all_else)
{
    EXPECT_EQ(readableOutput("src/a.o"), "src/a.o");
    EXPECT_EQ(readableOutput("myCMakeFiles/x.dir/a.o"), "myCMakeFiles/x.dir/a.o");
    EXPECT_EQ(readableOutput("CMakeFiles/a/b.dir/c.o"), "a/b.dir/c.o");
    EXPECT_EQ(readableOutput(""), "");
}

TEST(ShortSymbol, has_no_arguments)
{
    EXPECT_EQ(shortSymbol("std::vector<int, A<b> >::end() const"), "std::vector::end");
    EXPECT_EQ(shortSymbol("main"), "main");
    EXPECT_EQ(shortSymbol("f(int, g(*)(char)) [clone .cold]"), "f");
}

TEST(ShortSymbol, has_no_type_that_is_returned)
{
    EXPECT_EQ(shortSymbol("std::basic_string<char> join<char>(int)"), "join");
    EXPECT_EQ(shortSymbol("void (anonymous namespace)::put<int>(int)"),
              "(anonymous namespace)::put");
}

TEST(ShortSymbol, keeps_operators)
{
    EXPECT_EQ(shortSymbol("operator new(unsigned long)"), "operator new");
    EXPECT_EQ(shortSymbol("std::ostream& std::operator<< <char>(char)"), "std::operator<<");
    EXPECT_EQ(shortSymbol("a::operator()(int) const"), "a::operator()");
    EXPECT_EQ(shortSymbol("X<int>::operator->() const"), "X::operator->");
    EXPECT_EQ(shortSymbol("my_operator<int>(int)"), "my_operator");
}

TEST(ShortSymbol, keeps_what_is_made_for_a_name)
{
    EXPECT_EQ(shortSymbol("vtable for a::B"), "vtable for a::B");
    EXPECT_EQ(shortSymbol("guard variable for f()::x"), "guard variable for f");
}

TEST(ShortSymbol, has_the_names_of_a_mangled_one)
{
    EXPECT_EQ(shortSymbol("_ZN3ORR5GraphL6encodeEd"), "ORR::Graph::encode");
    EXPECT_EQ(shortSymbol("_ZNK12_GLOBAL__N_11A1bEv"), "(anonymous namespace)::A::b");
    EXPECT_EQ(shortSymbol("_ZN1AD2Ev"), "A::~A");
    EXPECT_EQ(shortSymbol("_ZN1AC1Ei"), "A::A");
    EXPECT_EQ(shortSymbol("_ZSt4swapv"), "std::swap");
    EXPECT_EQ(shortSymbol("_Z4mainv"), "main");
}

TEST(ShortSymbol, keeps_a_mangled_one_that_has_more)
{
    for (const char *text : {"_ZN1AIiE1bEv", "_Z1fIiEvT_", "_ZN1A", "_ZN", "_Z", "_ZN99999999999AE",
                             "_ZTV1A", "_ZNC1E", "_ZN0E"})
        EXPECT_EQ(shortSymbol(text), text);
}

TEST(ShortSymbol, keeps_what_is_no_symbol)
{
    for (const char *text : {"", "(", "<", "a<b", "  ", "x ", "()", ">", "[section .a]"})
        EXPECT_EQ(shortSymbol(text), text);
}

TEST(SectionKind, is_that_of_the_beginning_of_a_name)
{
    const QStringList kinds = sectionKinds();
    const auto kindName = [&](const char *section) { return kinds.at(sectionKind(section)); };
    EXPECT_EQ(kindName(".text"), "code");
    EXPECT_EQ(kindName(".text.unlikely"), "code");
    EXPECT_EQ(kindName(".rodata.str1.1"), "constants");
    EXPECT_EQ(kindName(".data.rel.ro"), "constants");
    EXPECT_EQ(kindName(".data.rel.local"), "data");
    EXPECT_EQ(kindName(".bss"), "zeros");
    EXPECT_EQ(kindName(".rela.dyn"), "links");
    EXPECT_EQ(kindName(".debug_info"), "debug");
    EXPECT_EQ(kindName(".textual"), "other");
    EXPECT_EQ(kindName(""), "other");
}

TEST(GzipBytes, are_unpacked)
{
    EXPECT_TRUE(isGzip(packedHello));
    EXPECT_EQ(unpackedGzip(packedHello), "hello\n");
    EXPECT_EQ(unpackedGzip(packedHello + packedHello), "hello\nhello\n");
}

TEST(GzipBytes, are_nothing_where_they_are_broken)
{
    EXPECT_FALSE(isGzip("hello"));
    EXPECT_FALSE(unpackedGzip("hello"));
    EXPECT_FALSE(unpackedGzip(""));
    for (qsizetype size = 0; size < packedHello.size(); ++size)
        EXPECT_FALSE(unpackedGzip(packedHello.first(size))) << size;
    QByteArray spoiled = packedHello;
    spoiled[14] = char(spoiled[14] ^ 0x40);
    EXPECT_FALSE(unpackedGzip(spoiled));
}

TEST(GzipBytes, begin_even_if_they_are_cut_off)
{
    EXPECT_EQ(unpackedGzipBeginning(packedHello.chopped(8)), "hello\n");
}
