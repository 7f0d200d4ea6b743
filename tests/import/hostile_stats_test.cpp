#include "companion/import/lines/line_counts_import.h"
#include "companion/import/lines/numstat_import.h"
#include "companion/import/trees/csv_import.h"
#include "companion/import/trees/du_import.h"
#include "companion/import/trees/folded_import.h"
#include "tree_read.h"

#include <cmath>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

// Importers of trees of weights and inputs that no tool writes: they say what is wrong, or read a
// tree of finite weights.
namespace {

struct TreeImporter
{
    const char *name;
    TreeReading read;
    int (*likeness)(QByteArrayView beginning);
    const char *data;
    char number; // one that stands in the data, to be replaced
};

constexpr TreeImporter treeImporters[] = {
    {"folded", readFolded, likenessOfFolded, "folded/draw.folded", '1'},
    {"du", readDu, likenessOfDu, "du/import.nul", '4'},
    {"numstat", readNumstat, likenessOfNumstat, "numstat/page.log", '1'},
    {"numstat -z", readNumstat, likenessOfNumstat, "numstat/renamed.nul", '1'},
    {"cloc", readCloc, likenessOfCloc, "cloc/both.json", '1'},
    {"scc", readScc, likenessOfScc, "scc/languages.json", '1'},
    {"tokei", readTokei, likenessOfTokei, "tokei/files.json", '1'},
    {"csv", readCsv, likenessOfCsv, "csv/packages.tsv", '1'},
};

bool isSoundTree(const ImportResult &result)
{
    if (result.fault)
        return !result.picture && !result.fault->sentence.isEmpty();
    const WeightTree &tree = treePicture(result).tree();
    for (WeightTree::Item item = 0; item < tree.size(); ++item) {
        if (!std::isfinite(tree.ownWeight(item)) || tree.ownWeight(item) < 0
            || !std::isfinite(tree.part(item)))
            return false;
    }
    return result.picture != nullptr;
}

bool readsTreeSoundly(const TreeImporter &importer, const QByteArray &text)
{
    const int likeness = importer.likeness(text);
    return likeness >= 0 && likeness <= 100 && isSoundTree(treeRead(importer.read, text))
        && isSoundTree(treeRead(importer.read, text, {.by = "month", .color = "2"}));
}

// The same on every run.
QByteArray randomStatsBytes(quint32 seed, qsizetype size, QByteArrayView alphabet)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < size; ++i) {
        seed = seed * 1664525 + 1013904223;
        bytes += alphabet.isEmpty() ? char(seed >> 24) : alphabet[(seed >> 16) % alphabet.size()];
    }
    return bytes;
}

// What came of an input can be written for the engine, with numbers that are such.
bool writesTreeSoundly(const TreeImporter &importer, const QByteArray &text)
{
    const ImportResult result = treeRead(importer.read, text);
    if (!result.picture)
        return true;
    const QByteArray written = result.picture->write({.engine = u"treemap"_s}).text;
    return !written.isEmpty() && !written.contains("\"nan\"") && !written.contains("\"inf\"");
}

} // namespace

TEST(HostileStats, random_bytes_are_told)
{
    for (const TreeImporter &importer : treeImporters) {
        for (quint32 seed = 0; seed < 30; ++seed) {
            EXPECT_TRUE(readsTreeSoundly(importer, randomStatsBytes(seed, 2000, {})))
                << importer.name;
            EXPECT_TRUE(readsTreeSoundly(importer,
                                         randomStatsBytes(seed, 2000, "1-.e\t\n ;,\"/{}[]=>\\ab:")))
                << importer.name << ' ' << seed;
        }
    }
}

TEST(HostileStats, inputs_may_end_anywhere)
{
    for (const TreeImporter &importer : treeImporters) {
        const QByteArray whole = statsData(importer.data);
        ASSERT_FALSE(whole.isEmpty());
        for (qsizetype end = 0; end < std::min<qsizetype>(whole.size(), 7000); end += 7)
            EXPECT_TRUE(readsTreeSoundly(importer, whole.first(end)))
                << importer.name << ' ' << end;
    }
}

TEST(HostileStats, numbers_may_be_any)
{
    for (const TreeImporter &importer : treeImporters) {
        for (const char *number : {"-1", "1e308", "1e999", "-1e999", "nan", "inf", "0", "-0", "",
                                   "99999999999999999999999999", "1e-999", "0x1"}) {
            QByteArray text = statsData(importer.data);
            text.replace(QByteArray(1, importer.number), number);
            EXPECT_TRUE(readsTreeSoundly(importer, text)) << importer.name << ' ' << number;
            EXPECT_TRUE(writesTreeSoundly(importer, text)) << importer.name << ' ' << number;
        }
    }
}

TEST(HostileStats, depth_is_no_matter)
{
    const QByteArray deep = QByteArray("a;").repeated(200000) + "b 1\n";
    EXPECT_TRUE(isSoundTree(treeRead(readFolded, deep)));
    const QByteArray folders = "1\t" + QByteArray("a/").repeated(200000) + "b\n";
    EXPECT_TRUE(isSoundTree(treeRead(readDu, folders)));
    EXPECT_TRUE(isSoundTree(treeRead(readCloc, QByteArray("[").repeated(200000))));
}

TEST(HostileStats, sums_beyond_double_are_told)
{
    const std::string told = "in: its sizes add up to more than a number can hold";
    EXPECT_EQ(treeFault(treeRead(readFolded, "a 1e308\na 1e308\n")), told);
    EXPECT_EQ(treeFault(treeRead(readDu, "1e308\ta/b\n1e308\tc\n")), told);
    EXPECT_EQ(treeFault(treeRead(readCsv, "path,size\na,1e308\na,1e308\n")), told);
    EXPECT_EQ(treeFault(treeRead(readFolded, "a 1e308\n")), "");
}

TEST(HostileStats, sums_stay_finite)
{
    EXPECT_TRUE(isSoundTree(treeRead(readFolded, "a 1e308\na 1e308\nb 1e308\nb;c 1e308\n")));
    EXPECT_TRUE(isSoundTree(treeRead(readDu, "1e308\ta/b\n1e308\ta\n1e308\tc\n1e308\t.\n")));
    EXPECT_TRUE(isSoundTree(treeRead(readCsv, "path,size\na,1e308\na,1e308\n")));
    for (const TreeImporter &importer : {treeImporters[0], treeImporters[1], treeImporters[7]})
        EXPECT_TRUE(writesTreeSoundly(importer, "1e308\ta 1e308\n1e308\tb 1e308\n"))
            << importer.name;
}
