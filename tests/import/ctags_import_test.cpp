#include "companion/import/graphs/ctags_import.h"

#include "companion/produce/declarations_picture.h"
#include "import/imported.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;

namespace {

const Declarations &declarationsOf(const ImportResult &result)
{
    return static_cast<const DeclarationsPicture &>(*result.picture).declarations();
}

const Declarations::Declaration &declarationIn(const ImportResult &result, const char *name)
{
    const Declarations &all = declarationsOf(result);
    const int found = all.find(QString::fromLatin1(name));
    EXPECT_GE(found, 0) << name;
    return all.all()[std::max(found, 0)];
}

QStringList memberTexts(const Declarations::Declaration &declaration)
{
    QStringList texts;
    for (const Declarations::Member &member : declaration.members)
        texts.append(member.text);
    return texts;
}

} // namespace

TEST(CtagsImport, reads_types_with_members_and_bases)
{
    const auto result = importedFile("ctags", "ctags/devices.json");
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    const auto &svg = declarationIn(result, "ORR::Graph::Svg");
    EXPECT_EQ(svg.kind, u"class");
    ASSERT_EQ(svg.bases.size(), 1);
    EXPECT_EQ(declarationsOf(result).all()[svg.bases[0]].name, u"ORR::Graph::Device");
    EXPECT_TRUE(memberTexts(svg).contains("begin(int width, int height): void"))
        << memberTexts(svg).join('\n').toStdString();
    EXPECT_EQ(memberTexts(declarationIn(result, "ORR::Graph::Device::Pen::Style")),
              (QStringList{"Solid", "Dashed", "Dotted"}));
}

TEST(CtagsImport, takes_a_prototype_and_its_definition_for_one)
{
    const auto result =
        importedBytes("ctags",
                      R"tags({"_type": "tag", "name": "A", "kind": "class", "language": "C++"}
{"_type": "tag", "name": "f", "kind": "prototype", "scope": "A", "access": "public", "signature": "(int a=g(1,2),char * b)", "typeref": "typename:void"}
{"_type": "tag", "name": "f", "kind": "function", "scope": "A", "signature": "(int a,char * b)", "typeref": "typename:void"})tags");
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    EXPECT_EQ(memberTexts(declarationIn(result, "A")), (QStringList{"f(int a, char* b): void"}));
}

TEST(CtagsImport, puts_functions_of_no_type_into_their_file)
{
    const auto result = importedBytes(
        "ctags", R"tags({"_type": "tag", "name": "main", "path": "m.c", "kind": "function"})tags");
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    EXPECT_EQ(declarationIn(result, "m.c").kind, u"file");
}

TEST(CtagsImport, looks_for_bases_in_the_scopes_around)
{
    const auto result = importedBytes(
        "ctags",
        R"tags({"_type": "tag", "name": "B", "kind": "class", "scope": "n", "language": "C++"}
{"_type": "tag", "name": "A", "kind": "class", "scope": "n::m", "inherits": "B,C<int>", "language": "C++"})tags");
    ASSERT_TRUE(result.picture);
    const auto &heir = declarationIn(result, "n::m::A");
    ASSERT_EQ(heir.bases.size(), 2);
    EXPECT_EQ(declarationsOf(result).all()[heir.bases[0]].name, u"n::B");
    EXPECT_EQ(declarationsOf(result).all()[heir.bases[1]].kind, u"elsewhere");
}

TEST(CtagsImport, tells_the_line_that_is_broken)
{
    const auto result =
        importedBytes("ctags", "{\"_type\": \"tag\", \"name\": \"a\"}\n{\"_type\": \n");
    ASSERT_TRUE(result.fault);
    EXPECT_EQ(result.fault->place.line, 2);
    EXPECT_GE(result.fault->place.offset, 10);
    EXPECT_EQ(result.fault->place.path, u"$");
    EXPECT_EQ(importedBytes("ctags", "\n{}\n").fault->place.line, 2);
    EXPECT_EQ(importedBytes("ctags", "\n{}\n").fault->place.offset, 0);
}

TEST(CtagsImport, tells_what_makes_json_of_the_classic_form)
{
    const auto result = importedFile("ctags", "ctags/classic.tags");
    EXPECT_EQ(faultOf(result),
              "this is the classic form of tags; 'ctags --output-format=json' writes JSON");
    EXPECT_GT(likenessOfCtags(importDataBytes("ctags/classic.tags")), 50);
    EXPECT_EQ(faultOf(importedBytes("ctags", "main\tmain.c\t/^int main()$/;\"\tf\n")),
              faultOf(result));
}

TEST(CtagsImport, tells_that_there_is_nothing_to_draw)
{
    EXPECT_TRUE(faultOf(importedBytes("ctags", "")).startsWith("there are neither types"));
}

TEST(CtagsImport, is_told_by_its_look)
{
    EXPECT_GT(likenessOfCtags(importDataBytes("ctags/devices.json")), 50);
    EXPECT_EQ(likenessOfCtags("{\"a\": 1}"), 0);
}

TEST(CtagsImport, ends_no_process_whatever_it_reads)
{
    EXPECT_GT(
        readBrokenImports("ctags", "gfdecl", importDataBytes("ctags/devices.json").first(3000)),
        100);
}

TEST(CtagsImport, keeps_the_page_with_what_ctags_wrote)
{
    const auto result = importedFile("ctags", "ctags/devices.json");
    ASSERT_TRUE(result.picture);
    const auto drawn = drawnImport(*result.picture, "gfdecl");
    EXPECT_TRUE(drawn.notes.isEmpty());
    EXPECT_LE(drawn.size.width(), 1200);
    EXPECT_LE(drawn.size.height(), 800);
    EXPECT_TRUE(drawn.text.contains("The title"));
}
