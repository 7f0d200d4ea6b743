#include "companion/import/sequences/plantuml_import.h"

#include "import/sequence_read.h"

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

ImportResult plantumlRead(const QByteArray &statements)
{
    return sequenceRead(readPlantuml, "@startuml\n" + statements + "\n@enduml\n");
}

std::string plantumlSteps(const QByteArray &statements)
{
    return stepsOf(plantumlRead(statements));
}

} // namespace

TEST(PlantumlImport, knows_all_arrows)
{
    const std::pair<const char *, const char *> arrows[] = {
        {"A -> B : t", "A -> B: t\n"},         {"A->B: t", "A -> B: t\n"},
        {"A ->> B : t", "A ->> B: t\n"},       {"A --> B : t", "A --> B: t\n"},
        {"A -->> B : t", "A -->> B: t\n"},     {"A <- B : t", "B -> A: t\n"},
        {"A <<-- B : t", "B -->> A: t\n"},     {"A <-> B : t", "A <-> B: t\n"},
        {"A ->x B : t", "A -x B: t\n"},        {"A x<- B : t", "B -x A: t\n"},
        {"A ->o B : t", "A -o B: t\n"},        {"A o-> B : t", "A o-> B: t\n"},
        {"A -\\ B : t", "A -> B: t\n"},        {"A -\\\\ B : t", "A ->> B: t\n"},
        {"A //-- B : t", "B -->> A: t\n"},     {"A -[#red]> B : t", "A -> B: t\n"},
        {"A -[#00F]-> B : t", "A --> B: t\n"}, {"A -[dashed]> B : t", "A --> B: t\n"},
        {"foo->bar", "foo -> bar: \n"},        {"\"A b\" -> \"C: d\" : t", "A b -> C: d: t\n"},
        {"A -> A : t", "A -> A: t\n"},         {"[-> A : t", "[ -> A: t\n"},
        {"[<- A : t", "A -> [: t\n"},          {"[o-> A : t", "[ o-> A: t\n"},
        {"A ->] : t", "A -> ]: t\n"},          {"A <-] : t", "] -> A: t\n"},
        {"A ->? : t", "A -> ]: t\n"},
    };
    for (const auto &[statement, steps] : arrows)
        EXPECT_EQ(plantumlSteps(statement), steps) << statement;
    EXPECT_EQ(sequenceIn(plantumlRead("A -[#red]> B")).steps[0].color, u"#FF0000");
}

TEST(PlantumlImport, opens_and_closes_bars_by_short_forms)
{
    EXPECT_EQ(plantumlSteps("A -> B ++ : ask\nB -> C ++ #gold : more\nreturn less\nreturn"),
              "A -> B: ask\n+B\nB -> C: more\n+C\nC --> B: less\n-C\nB --> A: \n-B\n");
    EXPECT_EQ(plantumlSteps("A -> B ++ : ask\nB -> A --++ : t\nA -> B !! : t\nB -> C ** : t"),
              "A -> B: ask\n+B\nB -> A: t\n+A\n-B\nA -> B: t\ndestroy B\ncreate C\nB -> C: t\n");
    EXPECT_EQ(plantumlSteps("autoactivate on\nA -> B : t\nB --> A : u"),
              "A -> B: t\n+B\nB --> A: u\n-B\n");
}

TEST(PlantumlImport, orders_participants)
{
    const ImportResult result =
        plantumlRead("participant C order 3\nparticipant \"Al\" as A order 1\nD -> C : t");
    ASSERT_TRUE(result.picture);
    const QList<SequenceParticipant> &people = sequenceIn(result).participants;
    EXPECT_EQ(people[0].name, u"D"); // of no order, which is 0
    EXPECT_EQ(people[1].name, u"Al");
    EXPECT_EQ(people[2].name, u"C");
    EXPECT_EQ(stepsOf(result), "D -> C: t\n");
}

TEST(PlantumlImport, reads_kinds_stereotypes_and_colours)
{
    const ImportResult result =
        plantumlRead("database L as \"Long name\" <<(D,#FFF) old>> #F80/white\nL -> M : t");
    ASSERT_TRUE(result.picture);
    const SequenceParticipant &one = sequenceIn(result).participants[0];
    EXPECT_EQ(one.kind, SequenceParticipant::Database);
    EXPECT_EQ(one.name, u"Long name");
    EXPECT_EQ(one.stereotype, u"old");
    EXPECT_EQ(one.fill, u"#FF8800");
}

TEST(PlantumlImport, places_notes)
{
    EXPECT_EQ(plantumlSteps("B -> A : t\nnote left : a\nnote right #red : b\nnote over A, B : c\n"
                            "note right of B\n two\n lines\nend note\nnote across : d"),
              "B -> A: t\nnote left of B,B: a\nnote right of A,A: b\nnote over A,B: c\n"
              "note right of B,B: two|lines\n== d\n");
}

TEST(PlantumlImport, reads_fragments_with_colours_and_labels)
{
    const ImportResult result = plantumlRead("alt #AABBCC one\nA -> B : t\nelse\nB -> A : u\nend\n"
                                             "group My own [second]\nA -> B : t\nend");
    EXPECT_EQ(stepsOf(result),
              "alt [one]\nA -> B: t\nelse []\nB -> A: u\nend\n"
              "My own [second]\nA -> B: t\nend\n");
    EXPECT_EQ(sequenceIn(result).steps[0].color, u"#AABBCC");
}

TEST(PlantumlImport, counts_messages)
{
    EXPECT_EQ(plantumlSteps("autonumber 5 2 \"[000]\"\nA -> B : a\nA -> B\nautonumber stop\n"
                            "A -> B : c\nautonumber resume\nA -> B : d\nautonumber 1.1\n"
                            "A -> B : e\nA -> B : f"),
              "A -> B: [005] a\nA -> B: [007]\nA -> B: c\nA -> B: [009] d\n"
              "A -> B: 1.1. e\nA -> B: 1.2. f\n");
}

TEST(PlantumlImport, counts_in_levels)
{
    EXPECT_EQ(
        plantumlSteps("autonumber 1.1.1\nA -> B : a\nA -> B : b\nautonumber inc A\nA -> B : c\n"
                      "A -> B : d\nautonumber inc B\nA -> B : e"),
        "A -> B: 1.1.1. a\nA -> B: 1.1.2. b\nA -> B: 2.1.1. c\nA -> B: 2.1.2. d\n"
        "A -> B: 2.2.1. e\n");
}

TEST(PlantumlImport, tells_of_times_and_links_that_it_leaves_out)
{
    EXPECT_EQ(plantumlSteps("{a} A -> B : t\n{b} B -> A : u\n{a} <-> {b} : 3 ms\n"
                            "A (10)<- B : v\nurl of A is [[http://x]]\nurl -> A : w"),
              "A -> B: t\nB -> A: u\nB -> A: v\nurl -> A: w\n");
}

TEST(PlantumlImport, tells_of_settings_that_change_nothing)
{
    EXPECT_EQ(
        sequenceNotes(plantumlRead("skinparam {\nshadowing false\n}\nskinparam monochrome true\n"
                                   "scale 2\nleft to right direction\nhide unlinked\n"
                                   "hide footbox\ntop to bottom direction\nA -> B : t\n"
                                   "scale -> hide : t")),
        "line 2: 'skinparam' changes nothing in the drawing\n"
        "line 5: 'skinparam' changes nothing in the drawing\n"
        "line 6: 'scale' changes nothing in the drawing\n"
        "line 7: 'left to right direction' changes nothing in the drawing\n"
        "line 8: 'hide' changes nothing in the drawing\n");
}

TEST(PlantumlImport, tells_of_bars_and_creations_that_have_no_message)
{
    EXPECT_EQ(sequenceNotes(plantumlRead("create C\nA -> B ++ : t\nB --> A -- : u\n"
                                         "A -> B -- : v\ndeactivate B")),
              "line 5: 'A' is not active, so no bar ends here\n"
              "line 6: 'B' is not active, so no bar ends here\n"
              "line 2: no message creates 'C'\n");
    EXPECT_EQ(sequenceNotes(plantumlRead("autoactivate on\nA --> B : t\nA -> C ** : u\n"
                                         "C --> A : v\nA -> C !! : w")),
              "");
}

TEST(PlantumlImport, names_the_file_that_is_empty)
{
    const ImportResult result = sequenceRead(readPlantuml, "");
    EXPECT_EQ(sequenceFault(result), "line 0: there is no '@startuml'");
    EXPECT_EQ(result.fault->place.source, "in");
}

TEST(PlantumlImport, drops_marks_of_texts)
{
    EXPECT_EQ(plantumlSteps("A -> B : **b** //s// \"\"c\"\" __u__ ~~w~~ --x-- <color:red>r</color> "
                            "<U+2665> [[http://x y z]] http://a//b one\\ntwo"),
              "A -> B: b s c u w x r \u2665 y z http://a//b one|two\n");
}

TEST(PlantumlImport, goes_on_after_comments_and_long_lines)
{
    EXPECT_EQ(plantumlSteps("' no\n/' no '/\n/' no\nA -> C '/\nA -> B : one \\\n two"),
              "A -> B: one two\n");
}

TEST(PlantumlImport, tells_faults_with_their_lines)
{
    const std::pair<const char *, const char *> faults[] = {
        {"A -> B\nwhatever", "line 3: 'whatever' is no statement of a sequence diagram"},
        {"loop\nA -> B", "line 2: 'loop' is not closed by an 'end'"},
        {"A -> B\nend", "line 3: 'end' closes nothing"},
        {"return", "line 2: 'return' answers nothing: nobody is active"},
        {"note left : t", "line 2: a note beside a message stands behind none"},
        {"A -> B\nnote left\ntext", "line 5: what is to end with 'end note' does not end"},
        {"box\nparticipant A", "line 4: the last 'box' is not closed by an 'end box'"},
        {"autonumber 1.1\nautonumber inc C",
         "line 3: 'autonumber inc C' does not say where the numbers begin"},
        {"autonumber x", "line 2: 'autonumber x' does not say where the numbers begin"},
        {"", "line 0: there is nobody in this diagram"},
    };
    for (const auto &[statements, fault] : faults)
        EXPECT_EQ(sequenceFault(plantumlRead(statements)), fault) << statements;
    EXPECT_EQ(sequenceFault(sequenceRead(readPlantuml, "@startmindmap\n* a")),
              "line 1: '@startmindmap' begins no diagram of UML");
}
