// Maps of GNU ld.
#include "companion/import/programs/size_import.h"
#include "import/told_tree.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;
using namespace ORR::Testing;
using namespace Qt::StringLiterals;

namespace {

const QByteArray mapHeading = "Linker script and memory map\n\n";

std::string toldMap(const QByteArray &lines, const std::string &by = {})
{
    return toldTree(readBytes(readSize, mapHeading + lines, {.engine = u"treemap"_s, .by = by}));
}

} // namespace

TEST(LinkerMap, has_the_pieces_of_sections)
{
    EXPECT_EQ(toldMap(".text           0x0000000000001000       0x30\n"
                      " *(.text)\n"
                      " .text          0x0000000000001000       0x10 a/b.o\n"
                      " .text.hot      0x0000000000001010       0x20 a/b.o\n"
                      "                0x0000000000001010                f(int)\n"
                      "                0x0000000000001018                g\n"),
              ".text>a>b.o 16 #0\n.text>a>b.o>.text.hot 32 #0\n");
}

TEST(LinkerMap, has_the_symbol_of_a_piece_that_is_one)
{
    EXPECT_EQ(toldMap(".data\n .data.x\n"
                      "                0x10        0x4 a.o\n"
                      "                0x10                ns::x\n"
                      "                0x10                ns::sameAsX\n"),
              ".data>a.o>ns::x 4 #2\n");
}

TEST(LinkerMap, has_the_name_of_a_piece_without_a_symbol)
{
    EXPECT_EQ(toldMap(".text\n .text._ZN1A1bEv\n                0x10        0x4 a.o\n"),
              ".text>a.o>A::b 4 #0\n");
}

TEST(LinkerMap, has_archives_as_groups)
{
    EXPECT_EQ(toldMap(".text 0x0 0x4\n .text 0x0 0x4 lib/CMakeFiles/l.dir/libx.a(y.o)\n"
                      " .text 0x4 0x1 /usr/lib/gcc/12/../../libgcc.a(z.o)\n"),
              ".text>lib>l>libx.a>y.o 4 #0\n.text>system>libgcc.a>z.o 1 #0\n");
}

TEST(LinkerMap, has_objects_first_if_that_is_asked_for)
{
    EXPECT_EQ(
        toldMap(".text\n .text 0x0 0x4 a.o\n .text.f 0x4 0x1 a.o\n.bss\n COMMON 0x0 0x2 a.o\n",
                "object"),
        "a.o>.text 4 #0\na.o>.text>.text.f 1 #0\na.o>.bss>COMMON 2 #3\n");
}

TEST(LinkerMap, passes_over_what_is_no_piece)
{
    EXPECT_EQ(toldMap("LOAD a.o\n"
                      "START GROUP\n"
                      "                0x0000000000003000                . = ALIGN (0x10)\n"
                      "                [!provide]                        PROVIDE (x = .)\n"
                      ".rodata         0x0000000000002000        0x9\n"
                      " *(.rodata .rodata.* .gnu.linkonce.r.*)\n"
                      " .rodata.str1.1\n"
                      "                0x0000000000002000        0x9 a.o\n"
                      "                                         0x1f (size before relaxing)\n"
                      " .rodata.str1.1\n"
                      "                0x0000000000002009        0x0 b.o\n"
                      "                                         0x1f (size before relaxing)\n"
                      "/DISCARD/\n"
                      " .note.GNU-stack 0x0 0x8 a.o\n"
                      "OUTPUT(a.out elf64-x86-64)\n"
                      "\nCross Reference Table\n\n"
                      "Symbol            File\n"
                      " .text 0x0 0x4 a.o\n"),
              ".rodata>a.o>.rodata.str1.1 9 #1\n");
}

TEST(LinkerMap, passes_over_what_was_discarded)
{
    const QByteArray before = "Discarded input sections\n\n .text 0x0 0x40 gone.o\n\n";
    EXPECT_EQ(toldTree(readBytes(readSize, before + mapHeading + ".text\n .text 0x0 0x4 a.o\n")),
              ".text>a.o 4 #0\n");
}

TEST(LinkerMap, tells_filling_and_what_the_linker_made)
{
    EXPECT_EQ(toldMap(".text 0x0 0x4\n *fill* 0x0 0x3 \n.plt 0x8 0x10\n .plt 0x8 0x10 crt1.o\n"),
              ".text>fill 3 #0\n.plt>linker 16 #0\n");
}

TEST(LinkerMap, tells_what_is_broken)
{
    const auto fault = [](const QByteArray &lines) {
        return toldFault(readBytes(readSize, mapHeading + lines));
    };
    EXPECT_EQ(fault(".text\n .text 0xzz 0x4 a.o\n"),
              u"4: the piece '.text' has no address and size"_s);
    EXPECT_EQ(fault(".text\n .text 0x4 a.o\n"), u"4: the piece '.text' has no address and size"_s);
    EXPECT_EQ(fault(""), u"nothing in it has a size"_s);
}

TEST(LinkerMap, is_told_from_what_is_none)
{
    EXPECT_EQ(toldFault(readBytes(readSize, "hello\n")),
              u"1: this is no table of size or bloaty, and no map of GNU ld, which has the line "
              "'Linker script and memory map'"_s);
    EXPECT_EQ(toldFault(readBytes(readSize, mapHeading, {.engine = u"treemap"_s, .by = "colour"})),
              u"--by can be section or object for a map, not 'colour'"_s);
}

TEST(LinkerMap, of_a_program_has_the_bytes_that_size_tells)
{
    const QByteArray map = dataFile(u"size/read_graph.map"_s);
    const double mapped = wholeWeight(readBytes(readSize, map));
    const double sized = wholeWeight(readBytes(readSize, dataFile(u"size/read_graph.size"_s)));
    EXPECT_EQ(sized, 60368); // its line Total
    // The linker tells the comments of each object, and writes what they have in common.
    const QByteArray told = QByteArray::fromStdString(toldTree(readBytes(readSize, map)));
    double comments = 0;
    for (const QByteArray &line : told.split('\n')) {
        if (line.startsWith(".comment>"))
            comments += line.split(' ').at(1).toDouble();
    }
    EXPECT_GT(mapped - comments, sized * 0.97);
    EXPECT_LT(mapped - comments, sized * 1.03);
    EXPECT_TRUE(told.contains("libgraph.a>dot_graph.o>ORR::Graph::DotGraph::addSubgraph 434 #0\n"));
}

TEST(LinkerMap, is_flat_for_bars)
{
    const QByteArray map = mapHeading + ".text\n .text.a 0x0 0x4 x/a.o\n .text.b 0x0 0x2 x/b.o\n";
    EXPECT_EQ(toldTree(readBytes(readSize, map, {.engine = u"bar"_s})), ".text 6 #0\n");
    EXPECT_EQ(toldTree(readBytes(readSize, map, {.engine = u"bar"_s, .by = "object"})),
              "x/a.o 4 #0\nx/b.o 2 #0\n");
}
