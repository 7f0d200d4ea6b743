#include "companion/produce/sequence_picture.h"

#include "companion/produce/drawn_size.h"
#include "companion/produce/wrapped_text.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

Sequence sequenceOf(int participants, const QList<SequenceStep> &steps)
{
    Sequence sequence{.steps = steps};
    for (int i = 0; i < participants; ++i)
        sequence.participants += SequenceParticipant{.name = u"P%1"_s.arg(i)};
    return sequence;
}

SequenceStep callOf(int from, int to, const QString &text = u"call"_s)
{
    return {.from = from, .to = to, .text = text};
}

WrittenGraph graphOf(const Sequence &sequence, const PictureRequest &request = {})
{
    return SequencePicture(sequence).write(request);
}

// How many statements have all of these.
qsizetype statementsWith(const QByteArray &text, const QByteArrayList &parts)
{
    qsizetype count = 0;
    for (const QByteArray &line : text.split('\n')) {
        bool hasAll = true;
        for (const QByteArray &part : parts)
            hasAll = hasAll && line.contains(part);
        count += hasAll ? 1 : 0;
    }
    return count;
}

} // namespace

TEST(SequencePicture, draws_open_heads_as_returns_and_others_as_messages)
{
    SequenceStep open = callOf(0, 1);
    open.head = SequenceStep::Open;
    const QByteArray text = graphOf(sequenceOf(2, {callOf(0, 1), open})).text;
    EXPECT_EQ(statementsWith(text, {"uml=\"message\"", "label=\"call\""}), 1);
    EXPECT_EQ(statementsWith(text, {"uml=\"return\"", "visible=\"true\""}), 1);
}

TEST(SequencePicture, opens_a_bar_at_the_message_before_it)
{
    const QByteArray text =
        graphOf(sequenceOf(2, {callOf(0, 1), {.type = SequenceStep::Activate, .to = 1}})).text;
    EXPECT_EQ(statementsWith(text, {"uml=\"activation\"", "row=\"4\""}), 1);
    EXPECT_EQ(statementsWith(text, {"uml=\"return\""}), 1); // its end
}

TEST(SequencePicture, nests_bars)
{
    const SequenceStep bar{.type = SequenceStep::Activate, .to = 0};
    const QByteArray text = graphOf(sequenceOf(1, {bar, bar, bar})).text;
    EXPECT_EQ(statementsWith(text, {"nesting=\"1\""}), 1);
    EXPECT_EQ(statementsWith(text, {"nesting=\"2\""}), 1);
}

TEST(SequencePicture, lets_whoever_is_created_stand_at_the_message)
{
    const QByteArray text =
        graphOf(
            sequenceOf(2, {callOf(0, 0), {.type = SequenceStep::Create, .to = 1}, callOf(0, 1)}))
            .text;
    EXPECT_EQ(statementsWith(text, {"uml=\"object\"", "row=\"3\"", "P0"}), 1);
    EXPECT_EQ(statementsWith(text, {"uml=\"object\"", "row=\"5\"", "P1"}), 1);
}

TEST(SequencePicture, ends_a_line_with_a_cross)
{
    const QByteArray text =
        graphOf(sequenceOf(2, {callOf(0, 1), {.type = SequenceStep::Destroy, .to = 1}})).text;
    EXPECT_EQ(statementsWith(text, {"label=\"\u00d7\""}), 1);
}

TEST(SequencePicture, draws_frames_with_a_section_each)
{
    const QByteArray text =
        graphOf(
            sequenceOf(2,
                       {{.type = SequenceStep::BeginFragment, .text = u"a"_s, .keyword = u"alt"_s},
                        callOf(0, 1),
                        {.type = SequenceStep::NextSection, .text = u"b"_s},
                        callOf(1, 0),
                        {.type = SequenceStep::EndFragment}}))
            .text;
    EXPECT_EQ(statementsWith(text, {"uml=\"combinedfragment\"", "label=\"alt\""}), 1);
    EXPECT_EQ(statementsWith(text, {"uml=\"section\"", "label=\"[a]\""}), 1);
    EXPECT_EQ(statementsWith(text, {"uml=\"section\"", "label=\"[b]\""}), 1);
}

TEST(SequencePicture, survives_steps_that_make_no_sense)
{
    using Step = SequenceStep;
    const Sequence sequence = sequenceOf(2,
                                         {{.type = Step::EndFragment},
                                          {.type = Step::NextSection},
                                          {.type = Step::Deactivate, .to = 0},
                                          {.type = Step::Destroy, .to = 0},
                                          {.type = Step::Destroy, .to = 0},
                                          callOf(0, 1),
                                          {.type = Step::BeginFragment, .keyword = u"loop"_s},
                                          {.type = Step::Create, .to = 1},
                                          {.type = Step::Note, .from = 1, .to = 0, .text = u"n"_s},
                                          callOf(Step::leftOutside, Step::rightOutside)});
    const QSizeF size = drawnSize(graphOf(sequence).text, u"umlseq"_s);
    EXPECT_GT(size.width(), 20);
    EXPECT_GT(size.height(), 20);
    EXPECT_TRUE(drawnSize(graphOf({}).text, u"umlseq"_s).isValid());
}

TEST(SequencePicture, wraps_texts_to_keep_the_page)
{
    QList<SequenceStep> steps;
    for (int i = 0; i + 1 < 6; ++i)
        steps += callOf(i, i + 1, u"a text of several words that is rather long"_s);
    const Sequence sequence = sequenceOf(6, steps);
    const double wide = drawnSize(graphOf(sequence, {.width = 5000}).text, u"umlseq"_s).width();
    const WrittenGraph narrow = graphOf(sequence, {.width = 700});
    EXPECT_GT(wide, 1000);
    EXPECT_LE(drawnSize(narrow.text, u"umlseq"_s).width(), 700);
    EXPECT_EQ(narrow.notes, QStringList());
}

TEST(SequencePicture, says_why_the_page_is_not_kept)
{
    const WrittenGraph graph =
        graphOf(sequenceOf(40, {callOf(0, 39)}), {.width = 300, .height = 60});
    ASSERT_EQ(graph.notes.size(), 1);
    EXPECT_TRUE(
        graph.notes[0].contains(u"points wide and not 300, as 40 participants stand side by "
                                "side, and "_s))
        << graph.notes[0].toStdString();
    EXPECT_TRUE(
        graph.notes[0].contains(u"points high and not 60, as its step has lines of its own"_s));
}

TEST(SequencePicture, names_what_takes_the_room)
{
    using Step = SequenceStep;
    const auto reasonOf = [](const Sequence &sequence) {
        const WrittenGraph graph = graphOf(sequence, {.width = 150, .height = 10'000});
        return graph.notes.value(0).section(u", as "_s, 1).toStdString();
    };
    QList<Step> nested;
    for (int i = 0; i < 60; ++i)
        nested += {callOf(0, 0), Step{.type = Step::Activate, .to = 0}};
    EXPECT_EQ(reasonOf(sequenceOf(1, nested)), "calls lie 60 deep on each other");

    QList<Step> framed;
    for (int i = 0; i < 30; ++i)
        framed += Step{.type = Step::BeginFragment, .keyword = u"loop"_s};
    framed += callOf(0, 1);
    EXPECT_EQ(reasonOf(sequenceOf(2, framed)), "fragments lie 30 deep in each other");

    const Step right = {
        .type = Step::Note, .from = 1, .to = 1, .text = u"some words"_s, .side = Step::Right};
    const Step left = {
        .type = Step::Note, .from = 0, .to = 0, .text = u"more words"_s, .side = Step::Left};
    EXPECT_EQ(reasonOf(sequenceOf(2, {callOf(0, 1), right, left})), "notes need it");
    EXPECT_EQ(reasonOf(sequenceOf(9, {callOf(0, 1), right})), "9 participants stand side by side");
    EXPECT_EQ(reasonOf(sequenceOf(2, {callOf(0, 1)})), "");
}

TEST(SequencePicture, draws_the_first_of_too_many)
{
    QList<SequenceStep> steps{{.type = SequenceStep::BeginFragment, .keyword = u"loop"_s}};
    for (int i = 0; i < 50; ++i)
        steps += callOf(i % 20, (i + 1) % 20, u"call %1"_s.arg(i));
    steps += SequenceStep{.type = SequenceStep::EndFragment};
    const WrittenGraph graph = graphOf(sequenceOf(20, steps), {.most = 10});
    EXPECT_EQ(graph.notes.value(0),
              u"only the first 10 of 20 participants are drawn, and what they "
              "do among themselves");
    EXPECT_EQ(graph.notes.value(1), u"only the first 10 of 29 steps are drawn");
    EXPECT_EQ(statementsWith(graph.text, {"call 8\""}), 1);
    EXPECT_EQ(statementsWith(graph.text, {"call 20\""}), 0);
}

TEST(WrappedText, keeps_to_the_width)
{
    const QFontMetricsF metrics(QFont(u"Arial"_s, 11));
    const double width = metrics.horizontalAdvance(u"mmmmmm"_s);
    EXPECT_EQ(wrappedText(u"one two\nthree"_s, metrics, 1000), u"one two\nthree");
    for (const QString &text : {u"one two three four five six"_s, QString(2000, u'm')}) {
        const QStringList lines = wrappedText(text, metrics, width).split(u'\n');
        EXPECT_GT(lines.size(), 2);
        for (const QString &line : lines)
            EXPECT_LE(metrics.horizontalAdvance(line), width) << line.toStdString();
        EXPECT_EQ(lines.join(QString()).remove(u' '), QString(text).remove(u' '));
    }
    EXPECT_EQ(wrappedText(u"ab"_s, metrics, 0), u"a\nb");
}
