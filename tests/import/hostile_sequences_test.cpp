// Importers of sequences and inputs that no tool writes: they say what is wrong, or read something
// that can be drawn.
#include "companion/import/sequences/mermaid_import.h"
#include "companion/import/sequences/plantuml_import.h"
#include "companion/import/traces/trace_import.h"
#include "import/sequence_read.h"

#include <QElapsedTimer>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

struct SequenceImporter
{
    const char *name;
    SequenceReading read;
    int (*likeness)(QByteArrayView beginning);
    const char *data;
};

constexpr SequenceImporter sequenceImporters[] = {
    {"mermaid", readMermaid, likenessOfMermaid, "mermaid/checkout.mmd"},
    {"plantuml", readPlantuml, likenessOfPlantuml, "plantuml/brewing.puml"},
    {"trace", readTrace, likenessOfTrace, "trace/shop.json"},
    {"trace of Jaeger", readTrace, likenessOfTrace, "trace/dispatch.json"},
};

bool isReadSoundly(const SequenceImporter &importer, const QByteArray &text, bool isDrawn = true)
{
    const int likeness = importer.likeness(text);
    if (likeness < 0 || likeness > 100)
        return false;
    const ImportResult result = sequenceRead(importer.read, text);
    if (result.fault)
        return !result.picture && !result.fault->sentence.isEmpty();
    return result.picture
        && (!isDrawn || !result.picture->write({.engine = u"umlseq"_s, .most = 50}).text.isEmpty());
}

QByteArray someBytes(quint32 seed, qsizetype size, QByteArrayView alphabet)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < size; ++i) {
        seed = seed * 1664525 + 1013904223;
        bytes += alphabet.isEmpty() ? char(seed >> 24) : alphabet[(seed >> 16) % alphabet.size()];
    }
    return bytes;
}

} // namespace

TEST(HostileSequences, random_bytes_are_told)
{
    for (const SequenceImporter &importer : sequenceImporters) {
        for (quint32 seed = 0; seed < 20; ++seed) {
            EXPECT_TRUE(isReadSoundly(importer, someBytes(seed, 2000, {}))) << importer.name;
            const QByteArray signs = someBytes(seed, 300, "AB->x()<:\n ;+[]{}\"'/\\|o#=.");
            for (const char *const begin : {"sequenceDiagram\n", "@startuml\n", ""})
                EXPECT_TRUE(isReadSoundly(importer, begin + signs)) << importer.name << ' ' << seed;
        }
    }
}

TEST(HostileSequences, lines_of_signs_are_read_one_by_one)
{
    for (quint32 seed = 0; seed < 400; ++seed) {
        const QByteArray line = someBytes(seed, 12, "AB->x()<: ;+[]{}\"'/\\|o#=.*!&");
        EXPECT_TRUE(isReadSoundly(sequenceImporters[0], "sequenceDiagram\n" + line));
        EXPECT_TRUE(isReadSoundly(sequenceImporters[1], "@startuml\n" + line + "\n@enduml"));
    }
}

TEST(HostileSequences, a_file_that_is_not_there_is_told_in_words_of_the_system)
{
    for (const SequenceImporter &importer : sequenceImporters) {
        std::vector<ImportSource> sources;
        sources.emplace_back("/nowhere/at/all");
        const ImportResult result = importer.read(sources, {.engine = u"umlseq"_s});
        EXPECT_EQ(sequenceFault(result), "line 0: No such file or directory") << importer.name;
    }
}

TEST(HostileSequences, truncated_inputs_are_told_or_drawn)
{
    for (const SequenceImporter &importer : sequenceImporters) {
        const QByteArray whole = sequenceData(QString::fromLatin1(importer.data));
        for (qsizetype size = 0; size < whole.size(); size += 7) {
            EXPECT_TRUE(isReadSoundly(importer, whole.first(size), size % 70 == 0))
                << importer.name << ' ' << size;
        }
    }
}

TEST(HostileSequences, odd_numbers_are_told_or_drawn)
{
    for (const SequenceImporter &importer : sequenceImporters) {
        const QByteArray whole = sequenceData(QString::fromLatin1(importer.data));
        for (const char *number :
             {"-1", "1e999", "-1e999", "nan", "99999999999999999999999", "0"}) {
            for (const char digit : {'0', '1', '2', '5'}) {
                EXPECT_TRUE(
                    isReadSoundly(importer, QByteArray(whole).replace(digit, number), false))
                    << importer.name << ' ' << number;
            }
        }
    }
}

TEST(HostileSequences, names_of_any_bytes_are_drawn)
{
    const QByteArray name = "\xff\xfe\"\\<b>\x01{}";
    EXPECT_TRUE(isReadSoundly(sequenceImporters[0],
                              "sequenceDiagram\nparticipant A as " + name + "\nA->>B: " + name));
    EXPECT_TRUE(isReadSoundly(sequenceImporters[1], "@startuml\nA -> B : " + name + "\n@enduml"));
}

TEST(HostileSequences, deep_and_long_inputs_take_little_time)
{
    QElapsedTimer timer;
    timer.start();
    const QByteArray loops = QByteArray("loop x\n").repeated(20000);
    const QByteArray ends = QByteArray("end\n").repeated(20000);
    EXPECT_TRUE(
        isReadSoundly(sequenceImporters[0], "sequenceDiagram\n" + loops + "A->>B: t\n" + ends));
    EXPECT_TRUE(isReadSoundly(sequenceImporters[1],
                              "@startuml\n" + loops + "A -> B : t\n" + ends + "@enduml"));
    const QByteArray words = QByteArray("a; ").repeated(100000);
    EXPECT_TRUE(isReadSoundly(sequenceImporters[0], "sequenceDiagram\nA->>B: " + words));
    const QByteArray codes = QByteArray("#35;").repeated(100000);
    EXPECT_TRUE(isReadSoundly(sequenceImporters[0], "sequenceDiagram\nA->>B: " + codes));
    for (const char *const piece : {"**", "//", "<b>", "--", "a -> ", "\"", "  ", "[", "<<"}) {
        const QByteArray pieces = QByteArray(piece).repeated(20000);
        EXPECT_TRUE(
            isReadSoundly(sequenceImporters[1], "@startuml\nA -> B : " + pieces + "\n@enduml"));
        EXPECT_TRUE(isReadSoundly(sequenceImporters[1], "@startuml\n" + pieces + "\n@enduml"));
    }
    EXPECT_LT(timer.elapsed(), 60000); // with the sanitizers, too
}
