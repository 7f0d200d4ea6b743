// Diagrams of all subjects of their languages: what is read of each, and that it is drawn.
#include "companion/check/check_text.h"
#include "companion/import/sequences/mermaid_import.h"
#include "companion/import/sequences/plantuml_import.h"
#include "companion/produce/drawn_size.h"
#include "import/sequence_read.h"

#include <QDir>

#include <algorithm>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

struct Diagram
{
    const char *format;
    const char *name;
    int participants;
    int messages;
    int fragments;
    int remarks; // notes in the diagram
    int told; // lines that can't be drawn as they are written
};

constexpr Diagram diagrams[] = {
    {"mermaid", "accessible_title", 2, 2, 0, 0, 0},
    {"mermaid", "activation_lines", 2, 5, 0, 0, 0},
    {"mermaid", "activation_signs", 3, 6, 0, 0, 0},
    {"mermaid", "actors", 3, 4, 0, 0, 0},
    {"mermaid", "aliases", 3, 3, 0, 0, 0},
    {"mermaid", "all_arrows", 2, 10, 0, 0, 2},
    {"mermaid", "alternatives", 2, 4, 1, 0, 0},
    {"mermaid", "autonumber", 2, 4, 0, 0, 0},
    {"mermaid", "background", 3, 6, 2, 0, 0},
    {"mermaid", "boxes", 5, 4, 0, 0, 0},
    {"mermaid", "break", 2, 4, 1, 0, 0},
    {"mermaid", "central_dots", 3, 3, 0, 0, 0},
    {"mermaid", "characters", 2, 3, 0, 0, 0},
    {"mermaid", "checkout", 5, 12, 2, 2, 0},
    {"mermaid", "comments_and_directives", 2, 2, 0, 0, 1},
    {"mermaid", "create_destroy", 4, 9, 0, 0, 0},
    {"mermaid", "critical", 3, 4, 1, 0, 0},
    {"mermaid", "declared_order", 3, 4, 0, 0, 0},
    {"mermaid", "half_arrows", 2, 7, 0, 0, 7},
    {"mermaid", "long_texts", 3, 3, 0, 1, 0},
    {"mermaid", "loop", 2, 3, 1, 0, 0},
    {"mermaid", "menus", 2, 2, 0, 0, 2},
    {"mermaid", "message_wrap", 2, 2, 0, 1, 0},
    {"mermaid", "names_like_words", 2, 3, 0, 0, 0},
    {"mermaid", "names_with_dashes", 4, 5, 0, 0, 0},
    {"mermaid", "nested_fragments", 3, 5, 4, 0, 0},
    {"mermaid", "nested_parallel", 4, 6, 2, 0, 0},
    {"mermaid", "note_over_three", 3, 2, 0, 2, 0},
    {"mermaid", "notes", 2, 2, 0, 4, 0},
    {"mermaid", "optional", 2, 3, 1, 0, 0},
    {"mermaid", "parallel", 4, 4, 1, 0, 0},
    {"mermaid", "semicolons", 2, 3, 0, 0, 0},
    {"mermaid", "stacked_activations", 2, 8, 0, 0, 0},
    {"mermaid", "title_front_matter", 2, 2, 0, 0, 0},
    {"mermaid", "twelve_services", 12, 11, 0, 0, 0},
    {"mermaid", "two_people", 2, 2, 0, 0, 0},
    {"mermaid", "typed_participants", 6, 7, 0, 0, 0},
    {"plantuml", "activate", 3, 4, 0, 0, 0},
    {"plantuml", "aliases", 5, 5, 0, 0, 0},
    {"plantuml", "anchors", 2, 3, 0, 0, 5},
    {"plantuml", "arrows", 2, 14, 0, 0, 4},
    {"plantuml", "autoactivate", 3, 4, 0, 0, 0},
    {"plantuml", "bar_without_call", 2, 1, 0, 0, 0},
    {"plantuml", "boxes", 4, 3, 0, 0, 0},
    {"plantuml", "brewing", 5, 14, 2, 1, 0},
    {"plantuml", "characters", 2, 2, 0, 0, 0},
    {"plantuml", "colours", 4, 4, 0, 0, 0},
    {"plantuml", "continued", 2, 2, 0, 0, 0},
    {"plantuml", "create_destroy", 4, 6, 0, 0, 0},
    {"plantuml", "creole", 2, 3, 0, 0, 0},
    {"plantuml", "dividers", 2, 6, 0, 0, 0},
    {"plantuml", "fragments", 3, 9, 5, 0, 0},
    {"plantuml", "groups", 2, 3, 3, 0, 0},
    {"plantuml", "kinds", 8, 7, 0, 0, 0},
    {"plantuml", "left_arrows", 2, 3, 0, 0, 0},
    {"plantuml", "mainframe", 3, 2, 0, 0, 0},
    {"plantuml", "nested_activation", 2, 6, 0, 0, 0},
    {"plantuml", "notes", 2, 2, 0, 9, 0},
    {"plantuml", "numbers", 2, 7, 0, 0, 0},
    {"plantuml", "order", 3, 3, 0, 0, 0},
    {"plantuml", "outside", 2, 9, 0, 0, 0},
    {"plantuml", "pages", 2, 3, 0, 0, 2},
    {"plantuml", "parallel", 3, 6, 2, 0, 1},
    {"plantuml", "participant_block", 2, 1, 0, 0, 0},
    {"plantuml", "references", 3, 3, 0, 0, 0},
    {"plantuml", "returns", 3, 4, 0, 0, 0},
    {"plantuml", "settings", 2, 1, 0, 0, 6},
    {"plantuml", "short_forms", 3, 7, 0, 0, 0},
    {"plantuml", "title_lines", 2, 2, 0, 0, 3},
    {"plantuml", "to_itself", 1, 3, 0, 0, 0},
    {"plantuml", "two_diagrams", 2, 1, 0, 0, 1},
    {"plantuml", "two_people", 2, 2, 0, 0, 0},
};

class SequenceDiagram : public testing::TestWithParam<Diagram>
{
};

bool isMermaid(const Diagram &diagram)
{
    return diagram.format == "mermaid"_L1;
}

QString fileOf(const Diagram &diagram)
{
    return QLatin1StringView(diagram.format) + u'/' + QLatin1StringView(diagram.name)
        + (isMermaid(diagram) ? u".mmd"_s : u".puml"_s);
}

ImportResult resultOf(const Diagram &diagram)
{
    return sequenceRead(isMermaid(diagram) ? readMermaid : readPlantuml,
                        sequenceData(fileOf(diagram)));
}

auto countOf(const Sequence &sequence, SequenceStep::Type type)
{
    return std::count_if(sequence.steps.begin(), sequence.steps.end(),
                         [type](const SequenceStep &step) { return step.type == type; });
}

} // namespace

TEST_P(SequenceDiagram, is_read_whole)
{
    const Diagram &diagram = GetParam();
    const ImportResult result = resultOf(diagram);
    ASSERT_TRUE(result.picture) << sequenceFault(result);
    const Sequence &sequence = sequenceIn(result);
    EXPECT_EQ(sequence.participants.size(), diagram.participants);
    EXPECT_EQ(countOf(sequence, SequenceStep::Message), diagram.messages);
    EXPECT_EQ(countOf(sequence, SequenceStep::BeginFragment), diagram.fragments);
    EXPECT_EQ(countOf(sequence, SequenceStep::EndFragment), diagram.fragments);
    EXPECT_EQ(countOf(sequence, SequenceStep::Note), diagram.remarks);
    EXPECT_EQ(result.notes.size(), diagram.told) << sequenceNotes(result);
}

TEST_P(SequenceDiagram, is_drawn_without_errors)
{
    const ImportResult result = resultOf(GetParam());
    ASSERT_TRUE(result.picture);
    const PictureRequest request{.engine = u"umlseq"_s};
    const WrittenGraph graph = result.picture->write(request);
    for (const Finding &finding : checkText(graph.text, {.engine = u"umlseq"_s})) {
        // Open heads are those of returns, which here may come from nowhere.
        EXPECT_EQ(finding.rule->id, "return-without-call") << finding.sentence.toStdString();
    }
    const QSizeF page = drawnSize(graph.text, u"umlseq"_s);
    EXPECT_GT(page.width(), 50);
    EXPECT_LE(page.width(), request.width);
    EXPECT_EQ(page.height() > request.height, !graph.notes.isEmpty());
    EXPECT_EQ(result.picture->write(request).text, graph.text);
}

TEST_P(SequenceDiagram, is_known_by_its_beginning)
{
    const QByteArray text = sequenceData(fileOf(GetParam()));
    const bool isFirst = isMermaid(GetParam());
    EXPECT_GE((isFirst ? likenessOfMermaid : likenessOfPlantuml)(text), 90);
    EXPECT_EQ((isFirst ? likenessOfPlantuml : likenessOfMermaid)(text), 0);
}

INSTANTIATE_TEST_SUITE_P(All, SequenceDiagram, testing::ValuesIn(diagrams), [](const auto &one) {
    return std::string(one.param.format) + '_' + one.param.name;
});

TEST(SequenceDiagrams, are_all_that_lie_there)
{
    for (const char *format : {"mermaid", "plantuml"}) {
        QStringList files =
            QDir(QStringLiteral(ORR_TEST_FOLDER "/data/") + QLatin1StringView(format))
                .entryList({u"*.mmd"_s, u"*.puml"_s}, QDir::Files);
        for (const Diagram &diagram : diagrams) {
            if (QLatin1StringView(diagram.format) == QLatin1StringView(format)) {
                EXPECT_TRUE(files.removeOne(fileOf(diagram).section(u'/', 1))) << diagram.name;
            }
        }
        EXPECT_EQ(files, QStringList());
    }
}
