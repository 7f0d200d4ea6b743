#include "companion/import/trees/csv_import.h"

#include "companion/import/trees/csv_records.h"
#include "tree_read.h"

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

// Each record in brackets, the cells with "|" between, and the fault.
std::string csvRecordsOf(const QByteArray &text, char separator = ',')
{
    ImportSource source("in", text);
    CsvRecords records(&source, separator);
    QByteArray all;
    QList<QByteArray> cells;
    while (records.next(&cells))
        all += '[' + cells.join('|') + ']';
    if (records.fault())
        all += " line " + QByteArray::number(records.fault()->place.line);
    return all.toStdString();
}

const TreeMeaning &csvMeaningOf(const ImportResult &result)
{
    return treePicture(result).meaning();
}

} // namespace

TEST(CsvRecords, part_cells)
{
    EXPECT_EQ(csvRecordsOf("a,b,,c\r\n1,2\n\n,\n"), "[a|b||c][1|2][|]");
    EXPECT_EQ(csvRecordsOf("\xef\xbb\xbf"
                           "a;b",
                           ';'),
              "[a|b]");
    EXPECT_EQ(csvRecordsOf(""), "");
}

TEST(CsvRecords, read_cells_in_quotes)
{
    EXPECT_EQ(csvRecordsOf("\"a,b\",\"c \"\"d\"\"\",e\n"), "[a,b|c \"d\"|e]");
    EXPECT_EQ(csvRecordsOf("\"a\nb\r\nc\",d\n\"\"\n"), "[a\nb\nc|d][]");
    EXPECT_EQ(csvRecordsOf("\"a\"b,c\"d\n"), "[ab|c\"d]");
}

TEST(CsvRecords, tell_a_quote_that_is_not_closed)
{
    EXPECT_EQ(csvRecordsOf("a,b\nc,\"d\n\n\n"), "[a|b] line 2");
}

TEST(CsvRecords, find_their_separator)
{
    EXPECT_EQ(csvSeparator("a;b,c;d\n,,,,"), ';');
    EXPECT_EQ(csvSeparator("\"a,b,c\"\t2\n"), '\t');
    EXPECT_EQ(csvSeparator("a"), ',');
}

TEST(CsvImport, finds_the_columns_of_paths_and_sizes)
{
    const ImportResult result = treeRead(readCsv, "id,Path,size\n1,a/x,5\n2,a/y,2\n3,a/x,1\n");
    EXPECT_EQ(weightsOf(result), "a/x 6\na/y 2\n");
    EXPECT_EQ(csvMeaningOf(result).weight, u"size"_s); // though others have numbers, too
    EXPECT_EQ(weightsOf(treeRead(readCsv, "what;n\na;1\n")), "a 1\n");
    EXPECT_EQ(treeFault(treeRead(readCsv, "path,size\na,abc\nb,2\n")),
              "in:2: 'abc' is no number; the sizes are those of 'size'");
}

TEST(CsvImport, takes_the_columns_that_are_named)
{
    const QByteArray table = "id,file,size,when\n1,a/x,5,7\n2,a/y,2,8\n";
    EXPECT_EQ(weightsOf(treeRead(readCsv, table, {.path = "file", .area = "SIZE"})),
              "a/x 5\na/y 2\n");
    EXPECT_EQ(weightsOf(treeRead(readCsv, table, {.path = "2", .area = "3"})), "a/x 5\na/y 2\n");
    EXPECT_EQ(
        weightsOf(treeRead(readCsv, "1|a\n2|b\n", {.path = "2", .area = "1", .separator = "|"})),
        "a 1\nb 2\n");
}

TEST(CsvImport, tells_which_columns_there_are)
{
    EXPECT_EQ(treeFault(treeRead(readCsv, "a,b\nx,1\n", {.area = "c"})),
              "in:1: there is no column 'c'; the columns are 'a', 'b'");
    EXPECT_EQ(treeFault(treeRead(readCsv, "x,1\n", {.area = "3"})),
              "in:1: there is no column '3'; the 2 columns have no names, but numbers from 1");
    EXPECT_EQ(treeFault(treeRead(readCsv, "a,b\nx,1\n", {.separator = ",,"})),
              ": the separator is one character or 'tab', not ',,'");
}

TEST(CsvImport, weighs_every_record_1_without_a_column_of_sizes)
{
    const ImportResult result = treeRead(readCsv, "path,by\na/x,me\na/x,you\na/y,me\n");
    EXPECT_EQ(weightsOf(result), "a/x 2\na/y 1\n");
    EXPECT_EQ(csvMeaningOf(result).weight, u"records"_s);
    EXPECT_EQ(result.notes.size(), 1); // that they count
}

TEST(CsvImport, colours_numbers_on_a_scale)
{
    const ImportResult result = treeRead(readCsv, "path,size,age\na,1,10\nb,1,30\na,1,20\nc,1,\n",
                                         {.area = "size", .color = "age"});
    EXPECT_EQ(weightsOf(result), "a 2 30/2 #2\nb 1 30/1 #1\nc 1\n");
    EXPECT_EQ(csvMeaningOf(result).coloring, TreeMeaning::Coloring::ByShare);
    EXPECT_EQ(csvMeaningOf(result).low, 10);
    EXPECT_EQ(csvMeaningOf(result).high, 30);
    EXPECT_EQ(csvMeaningOf(result).color, u"age"_s);
}

TEST(CsvImport, centres_a_scale_that_goes_through_0)
{
    const ImportResult result =
        treeRead(readCsv, "path,size,change\na,1,-3\nb,1,2\n", {.color = "change"});
    EXPECT_EQ(csvMeaningOf(result).low, -3);
    EXPECT_EQ(csvMeaningOf(result).high, 3);
    EXPECT_EQ(csvMeaningOf(result).scale, TreeMeaning::Scale::BadToGood);
}

TEST(CsvImport, colours_words_by_their_kinds)
{
    const ImportResult result =
        treeRead(readCsv, "path,size,sort\na,1,new\nb,5,old\nc,1,7\n", {.color = "sort"});
    EXPECT_EQ(weightsOf(result), "a 1 #2\nb 5 #0\nc 1 #1\n");
    EXPECT_EQ(csvMeaningOf(result).coloring, TreeMeaning::Coloring::ByKind);
    EXPECT_EQ(csvMeaningOf(result).kinds, (QStringList{u"old"_s, u"7"_s, u"new"_s}));
}

TEST(CsvImport, tells_a_word_below_ten_thousand_numbers)
{
    QByteArray table = "path,size,age\n";
    for (int i = 0; i <= 10000; ++i)
        table += "a,1,2\n";
    EXPECT_EQ(treeFault(treeRead(readCsv, table + "b,1,old\n", {.color = "age"})),
              "in:10003: 'old' is no number; above it, the column of colours has numbers");
}

TEST(CsvImport, tells_the_record_that_is_broken)
{
    EXPECT_EQ(treeFault(treeRead(readCsv, "path,size\n\"a\nb\",1\nc,x\n")),
              "in:4: 'x' is no number; the sizes are those of 'size'");
    EXPECT_EQ(treeFault(treeRead(readCsv, "path,size\na,1\nb\n")),
              "in:3: there are 1 columns, and 2 are needed");
    EXPECT_EQ(treeFault(treeRead(readCsv, "path,size\na,-1\n")),
              "in:2: '-1' is below 0; the sizes are those of 'size'");
    EXPECT_EQ(treeFault(treeRead(readCsv, "path,size,c\na,1,1e200\n", {.color = "c"})),
              "in:2: '1e200' is too large for a scale of colours");
    EXPECT_EQ(treeFault(treeRead(readCsv, "path,size\na,\"1\n")),
              "in:2: a quote that begins here is not closed");
    EXPECT_EQ(treeFault(treeRead(readCsv, "")),
              "in: there is no record with a path and a size above 0");
}

TEST(CsvImport, reads_a_table_of_cloc_and_tells_of_its_sum)
{
    const ImportResult result =
        treeRead(readCsv, statsData("csv/companion.csv"), {.area = "code", .color = "language"});
    EXPECT_EQ(csvMeaningOf(result).weight, u"code"_s);
    EXPECT_EQ(csvMeaningOf(result).kinds.first(), u"C++"_s);
    ASSERT_EQ(result.notes.size(), 1);
    EXPECT_EQ(result.notes[0].place.line, 305);
    EXPECT_EQ(result.notes[0].sentence, u"a record has no path and is passed over"_s);
}

TEST(CsvImport, reads_a_table_of_packages)
{
    const ImportResult result =
        treeRead(readCsv, statsData("csv/packages.tsv"), {.color = "priority"});
    EXPECT_EQ(weightsOf(result).find("admin/adduser 686 #"), 0);
    EXPECT_EQ(csvMeaningOf(result).weight, u"kilobytes"_s);
    EXPECT_EQ(csvMeaningOf(result).unit, TreeMeaning::Unit::Count);
    EXPECT_EQ(csvMeaningOf(result).kinds.first(), u"required"_s);
}

TEST(CsvImport, reads_a_table_without_names)
{
    const ImportResult result = treeRead(readCsv, "a/b;3;x\nc;4;y\n", {.color = "3"});
    EXPECT_EQ(weightsOf(result), "a/b 3 #1\nc 4 #0\n");
    EXPECT_EQ(csvMeaningOf(result).weight, u"column 2"_s);
    EXPECT_EQ(csvMeaningOf(result).color, u"column 3"_s);
}

TEST(CsvImport, takes_the_unit_from_the_name_of_the_column)
{
    const auto unitOfColumn = [](const char *name) {
        return csvMeaningOf(treeRead(readCsv, QByteArray("path,") + name + "\na,1\n")).unit;
    };
    EXPECT_EQ(unitOfColumn("Size_in_Bytes"), TreeMeaning::Unit::Bytes);
    EXPECT_EQ(unitOfColumn("kilobytes"), TreeMeaning::Unit::Count);
    EXPECT_EQ(unitOfColumn("seconds"), TreeMeaning::Unit::Seconds);
}

TEST(CsvImport, tells_what_is_clearly_no_table_unless_columns_are_named)
{
    for (const char *json : {"{\n  \"a\": 1,\n  \"b\": 2\n}\n", "[{\"a\": 1},\n {\"a\": 2}]\n"}) {
        EXPECT_EQ(treeFault(treeRead(readCsv, json)),
                  "in: this looks like JSON, not like a table; --path and --area would name its "
                  "columns if it is one");
        EXPECT_EQ(likenessOfCsv(json), 0);
    }
    EXPECT_NE(treeFault(treeRead(readCsv, statsData("junit/pytest.xml"))).find("like XML"),
              std::string::npos);
    EXPECT_NE(treeFault(treeRead(readCsv, statsData("lcov/html_text.cpp.gcov.json.gz")))
                  .find("like no text"),
              std::string::npos);
    EXPECT_EQ(weightsOf(treeRead(readCsv, "{\"a\",1\nb,2\n", {.path = "1", .area = "2"})),
              "{\"a\" 1\nb 2\n");
    EXPECT_EQ(weightsOf(treeRead(readCsv, "[a],1\n<b,2\n")), "[a] 1\n<b 2\n");
}

TEST(CsvImport, is_surer_of_a_table_with_a_column_of_paths)
{
    EXPECT_GT(likenessOfCsv("added\tdeleted\tpath\n3\t4\ta\n"), 60);
    EXPECT_GT(likenessOfCsv("\"File\";code\n\"a\";3\n"), 60);
    EXPECT_LT(likenessOfCsv(statsData("size/sections.csv")), 60);
}

TEST(CsvImport, knows_its_inputs)
{
    EXPECT_GT(likenessOfCsv(statsData("csv/packages.tsv")), 50);
    EXPECT_EQ(likenessOfCsv("one column\nof words\n"), 0);
    EXPECT_EQ(likenessOfCsv("a,b\n1\n"), 0);
    EXPECT_EQ(likenessOfCsv("Words, and a comma.\nOne, two, three.\nNone.\nEnd, here.\n"), 0);
    EXPECT_EQ(likenessOfCsv(""), 0);
}
