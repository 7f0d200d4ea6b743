#include "companion/import/sequences/mermaid_import.h"

#include "import/sequence_read.h"

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

ImportResult mermaidRead(const QByteArray &statements)
{
    return sequenceRead(readMermaid, "sequenceDiagram\n" + statements);
}

std::string mermaidSteps(const QByteArray &statements)
{
    return stepsOf(mermaidRead(statements));
}

} // namespace

TEST(MermaidImport, knows_all_arrows)
{
    const std::pair<const char *, const char *> arrows[] = {
        {"A->B: t", "A - B: t\n"},
        {"A-->B: t", "A -- B: t\n"},
        {"A->>B: t", "A -> B: t\n"},
        {"A-->>B: t", "A --> B: t\n"},
        {"A<<->>B: t", "A <-> B: t\n"},
        {"A<<-->>B: t", "A <--> B: t\n"},
        {"A-xB: t", "A -x B: t\n"},
        {"A--xB: t", "A --x B: t\n"},
        {"A-)B: t", "A ->> B: t\n"},
        {"A--)B: t", "A -->> B: t\n"},
        {"A-|\\B: t", "A -> B: t\n"},
        {"A--\\\\B: t", "A -->> B: t\n"},
        {"A/|-B: t", "B -> A: t\n"},
        {"A//--B: t", "B -->> A: t\n"},
        {"A->>()B: t", "A -o B: t\n"},
        {"A()->>()B: t", "A o-o B: t\n"},
        {"A  ->>  B  :  t ", "A -> B: t\n"},
        {"A->>A: t", "A -> A: t\n"},
        {"A->>B", "A -> B: \n"},
    };
    for (const auto &[statement, steps] : arrows)
        EXPECT_EQ(mermaidSteps(statement), steps) << statement;
}

TEST(MermaidImport, takes_signs_behind_the_arrow_as_bars)
{
    EXPECT_EQ(mermaidSteps("A->>+B: ask\nB-->>-A: answer"),
              "A -> B: ask\n+B\nB --> A: answer\n-B\n");
}

TEST(MermaidImport, keeps_signs_of_arrows_in_names)
{
    EXPECT_EQ(mermaidSteps("api-xml->>user-db: go -> there"), "api-xml -> user-db: go -> there\n");
    EXPECT_EQ(mermaidSteps("Loop->>Note: t"), "Loop -> Note: t\n");
    EXPECT_EQ(mermaidSteps("end ->> A: t"), "end -> A: t\n");
    EXPECT_EQ(mermaidSteps("loop from 5->10 times\nA->>B: t\nend"),
              "loop [from 5->10 times]\nA -> B: t\nend\n");
}

TEST(MermaidImport, destroys_with_the_next_message)
{
    EXPECT_EQ(mermaidSteps("create participant B\nA->>B: hello\ndestroy B\nA->>C: first\n"
                           "B-xA: bye"),
              "create B\nA -> B: hello\nA -> C: first\nB -x A: bye\ndestroy B\n");
}

TEST(MermaidImport, reads_attributes_of_participants)
{
    const ImportResult result = mermaidRead(
        "participant D@{ \"type\": \"database\", \"alias\": \"as ever\" } as The store\n"
        "actor P as Somebody<br>else");
    ASSERT_TRUE(result.picture);
    const QList<SequenceParticipant> &people = sequenceIn(result).participants;
    EXPECT_EQ(people[0].kind, SequenceParticipant::Database);
    EXPECT_EQ(people[0].name, u"The store");
    EXPECT_EQ(people[1].kind, SequenceParticipant::Actor);
    EXPECT_EQ(people[1].name, u"Somebody\nelse");
}

TEST(MermaidImport, reads_boxes_and_their_colours)
{
    const ImportResult result = mermaidRead("box rgb(10, 20, 30) In a box\nparticipant A\nend\n"
                                            "box Green things\nparticipant B\nend\nA->>C: t");
    ASSERT_TRUE(result.picture);
    const Sequence &sequence = sequenceIn(result);
    ASSERT_EQ(sequence.boxes.size(), 2);
    EXPECT_EQ(sequence.boxes[0].title, u"In a box");
    EXPECT_EQ(sequence.boxes[0].fill, u"#0A141E");
    EXPECT_EQ(sequence.boxes[1].title, u"things");
    EXPECT_EQ(sequence.boxes[1].fill, u"#008000");
    EXPECT_EQ(sequence.participants[0].box, 0);
    EXPECT_EQ(sequence.participants[1].box, 1);
    EXPECT_EQ(sequence.participants[2].box, -1);
}

TEST(MermaidImport, counts_messages)
{
    EXPECT_EQ(mermaidSteps("autonumber 10 5\nA->>B: a\nA->>B:\nautonumber off\nA->>B: c\n"
                           "autonumber\nA->>B: d"),
              "A -> B: 10. a\nA -> B: 15\nA -> B: c\nA -> B: 1. d\n");
}

TEST(MermaidImport, turns_codes_into_characters)
{
    EXPECT_EQ(mermaidSteps("A->>B: #9829; #35; #amp; #nonsense; #0; #x; one<br/>two\\nthree"),
              "A -> B: \u2665 # & #nonsense; #0; #x; one|two|three\n");
}

TEST(MermaidImport, tells_each_line_that_it_cannot_draw_as_it_is_written)
{
    EXPECT_EQ(
        sequenceNotes(mermaidRead("A->B: t\nA-->B: t; A->B: t\nA-|\\B: t\nlink A: x @ http://y")),
        "line 2: a line without a head is drawn with an open one\n"
        "line 3: a line without a head is drawn with an open one\n"
        "line 4: a half of an arrow head is drawn as a whole one\n"
        "line 5: menus of participants ('link') are not drawn\n");
}

TEST(MermaidImport, tells_of_bars_that_end_without_a_beginning)
{
    EXPECT_EQ(sequenceNotes(mermaidRead("A->>+B: t\nB-->>-A: u\nA->>-B: v\ndeactivate B\n"
                                        "participant C as Cee<br>of two\ndeactivate C")),
              "line 4: 'A' is not active, so no bar ends here\n"
              "line 5: 'B' is not active, so no bar ends here\n"
              "line 7: 'Cee of two' is not active, so no bar ends here\n");
    EXPECT_EQ(sequenceNotes(mermaidRead("activate A\nA->>+A: t\nA->>-A: u\ndeactivate A\n"
                                        "A->>+B: t\ndestroy B\nA-xB: u\ndeactivate B")),
              "line 9: 'B' is not active, so no bar ends here\n");
}

TEST(MermaidImport, tells_of_creations_and_ends_without_a_message)
{
    EXPECT_EQ(sequenceNotes(mermaidRead("create participant B\nA->>C: t\ndestroy C")),
              "line 4: no message destroys 'C'\nline 2: no message creates 'B'\n");
    EXPECT_EQ(sequenceNotes(mermaidRead("create participant B\nB->>A: t\nA->>B: u")),
              "line 3: 'B' sends a message before one creates it\n");
    EXPECT_EQ(sequenceNotes(mermaidRead("create actor B\nA->>C: t\nA->>B: u\nB->>A: v\n"
                                        "destroy B\nB-xA: w")),
              "");
}

TEST(MermaidImport, tells_of_directives)
{
    EXPECT_EQ(
        sequenceNotes(sequenceRead(readMermaid,
                                   "%%{init: { \"theme\": \"dark\" } }%%\n"
                                   "sequenceDiagram\n%% A comment\nA->>B: t\n%%{wrap\n}%%\n")),
        "line 1: directives ('%%{') change nothing in the drawing\n"
        "line 5: directives ('%%{') change nothing in the drawing\n");
}

TEST(MermaidImport, names_the_file_that_is_empty)
{
    const ImportResult result = sequenceRead(readMermaid, "");
    EXPECT_EQ(sequenceFault(result), "line 0: there is no 'sequenceDiagram'");
    EXPECT_EQ(result.fault->place.source, "in");
}

TEST(MermaidImport, counts_what_it_tells_no_more)
{
    const ImportResult result = mermaidRead(QByteArray("A->B: t\n").repeated(50));
    ASSERT_EQ(result.notes.size(), 21);
    EXPECT_EQ(result.notes[19].place.line, 21);
    EXPECT_EQ(result.notes[20].place.line, 22);
    EXPECT_EQ(result.notes[20].sentence,
              u"from here on there is more that can't be drawn as it is written: 30 of them"_s);
}

TEST(MermaidImport, tells_faults_with_their_lines)
{
    const std::pair<const char *, const char *> faults[] = {
        {"A->>B: t\nwhatever", "line 3: 'whatever' is no statement of a sequence diagram"},
        {"loop\nA->>B: t", "line 2: 'loop' is not closed by an 'end'"},
        {"A->>B: t\nend", "line 3: 'end' closes nothing"},
        {"A->>B: t\nelse", "line 3: 'else' stands in no fragment"},
        {"alt x\nA->>B: t\nand\nend", "line 4: 'and' stands in 'alt', but belongs into 'par'"},
        {"loop\noption x\nend", "line 3: 'option' stands in 'loop', but belongs into 'critical'"},
        {"par x\nopt y\nelse\nend\nend", "line 4: 'else' stands in 'opt', but belongs into 'alt'"},
        {"A->>: t", "line 2: the message 'A->>: t' has no receiver"},
        {"autonumber x",
         "line 2: 'autonumber' is followed by a number, the distance to the next, "
         "or 'off'"},
        {"participant", "line 2: 'participant' is followed by no name"},
        {"note beside A: t",
         "line 2: a note is 'left of', 'right of' or 'over' somebody, with a "
         "colon and its text behind"},
        {"box\nparticipant A", "line 3: the last 'box' is not closed by an 'end'"},
        {"", "line 0: there is nobody in this diagram"},
    };
    for (const auto &[statements, fault] : faults)
        EXPECT_EQ(sequenceFault(mermaidRead(statements)), fault) << statements;
    EXPECT_EQ(sequenceFault(sequenceRead(readMermaid, "flowchart TD\nA-->B")),
              "line 1: 'flowchart TD' is no sequence diagram, which begins with "
              "'sequenceDiagram'");
    EXPECT_EQ(sequenceFault(sequenceRead(readMermaid, "")),
              "line 0: there is no "
              "'sequenceDiagram'");
}
