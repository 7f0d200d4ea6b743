// No message brings a terminal a control character of the input, of a file's name, an argument or
// the environment.
#include "drawing/layout_table.h"
#include "driver/program_run.h"
#include "support/breaking_texts.h"
#include "support/golden.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

// Escape, bell, delete, a new line, C1 in UTF-8 and as a byte of its own.
const QByteArray controls = "\x1b]0;t\x07\x7f\n\r\t\xc2\x9b"
                            "2J\xc2\x85\x9bz";

// All that a terminal may be told is text and the ends of lines.
testing::AssertionResult isPrintable(const QByteArray &message)
{
    if (message.isEmpty())
        return testing::AssertionFailure() << "no message";
    const QString shown = QString::fromUtf8(message);
    if (shown.toUtf8() != message)
        return testing::AssertionFailure() << "no UTF-8: " << message.toHex(' ').toStdString();
    for (const QChar c : shown) {
        if (c != u'\n' && c.category() == QChar::Other_Control)
            return testing::AssertionFailure() << message.toHex(' ').toStdString();
    }
    return testing::AssertionSuccess();
}

class HostileMessages : public ProgramTest
{
protected:
    // The program in place of a shell, which hands names on as they are: an argument of QProcess
    // would lose the bytes that are no UTF-8. `words` are those behind its name; $x stands for the
    // controls.
    ProgramRun runWithControls(const QByteArray &words,
                               const QByteArray &input = smallGraph()) const
    {
        const QByteArray script = "x=$(cat controls); exec \"$0\" " + words;
        return run(
            {.arguments = {u"-c"_s, QString::fromLatin1(script), QStringLiteral(ORR_PROGRAM)},
             .input = input,
             .command = u"/bin/sh"_s});
    }

    void SetUp() override { writeFile(u"controls"_s, controls); }
};

// The statements that a sequence refuses, with # for an id.
const QByteArrayList refusedSequences{
    "# [uml=spacer row=1000000 col=0];",
    "# [uml=object row=0 col=\"-1\"];",
    "subgraph # { graph [uml=combinedfragment row=9999999]; subgraph s { graph [uml=section]; } }",
    "subgraph s { graph [uml=combinedfragment]; subgraph # { graph [uml=section row=9999999]; } }",
    "# [uml=activation]; # -> # [uml=message]; # -> # [uml=return row=9999999];",
};

} // namespace

TEST_F(HostileMessages, of_ids_that_a_sequence_refuses)
{
    for (const QByteArray &statements : refusedSequences) {
        for (const QByteArray &text : breakingTexts() + QByteArrayList{controls}) {
            const QByteArray named = QByteArray(statements).replace("#", quotedInGraph(text));
            const ProgramRun drawn = draw("digraph { " + named + " }", u"svg"_s, u"umlseq"_s);
            EXPECT_EQ(drawn.status, 1) << named.toStdString();
            EXPECT_TRUE(drawn.errors.startsWith("Unable to lay out")) << named.toStdString();
            EXPECT_TRUE(isPrintable(drawn.errors)) << named.toStdString();
        }
    }
}

TEST_F(HostileMessages, of_graphs_that_an_engine_refuses)
{
    const QByteArray id = quotedInGraph(controls);
    for (const QString &engine : ORR::Drawing::layoutNames()) {
        const ProgramRun drawn = draw("digraph " + id + " { subgraph " + id + " { " + id + " -> "
                                          + id + " [" + id + '=' + id + "]; } }",
                                      u"svg"_s, engine);
        EXPECT_TRUE(drawn.status == 0 ? drawn.errors.isEmpty() : isPrintable(drawn.errors))
            << drawn.errors.toStdString();
    }
    EXPECT_EQ(draw("digraph { subgraph " + id + " { a; } }", u"svg"_s, u"gftree"_s).status, 1);
}

TEST_F(HostileMessages, of_texts_that_are_no_graph_or_no_drawing)
{
    for (const QByteArray &text : breakingTexts() + QByteArrayList{controls}) {
        const QByteArray attributes = "[bb=\"0,0,9,9\" xdotversion=" + quotedInGraph(text) + ']';
        for (const QByteArray &graph :
             {text, "digraph { " + quotedInGraph(text) + " = }",
              "digraph { graph " + attributes + "; a -> " + quotedInGraph(text) + "; }"}) {
            const ProgramRun drawn = draw(graph);
            EXPECT_EQ(drawn.status, 1) << graph.toStdString();
            EXPECT_TRUE(isPrintable(drawn.errors));
        }
    }
}

TEST_F(HostileMessages, of_arguments)
{
    for (const QByteArray words :
         {"-K \"$x\" -T svg", "-K treemap -T \"$x\"", "-K treemap -T svg \"$x\"",
          "-K treemap -T svg -o \"$x/$x.svg\"", "-K treemap -o \"$x\"", "\"-$x\"", "\"--$x\"",
          "\"--$x=1\"", "-K treemap -T svg \"-Z$x\"", "-K", "-T svg -K treemap a.dot \"$x\""}) {
        const ProgramRun drawn = runWithControls(words);
        EXPECT_EQ(drawn.status, 1) << words.toStdString();
        EXPECT_TRUE(isPrintable(drawn.errors)) << words.toStdString();
    }
}

// The messages with the help tell how the program was called.
TEST_F(HostileMessages, of_the_name_that_the_program_is_called_by)
{
    ASSERT_TRUE(QFile::link(QStringLiteral(ORR_PROGRAM), path(QString::fromUtf8("\x1b[31m\x07z"))));
    for (const QString &format : {u"none"_s, u"svg"_s}) {
        const ProgramRun drawn = run({.arguments = {u"-T"_s, format, u"-K"_s, u"none"_s},
                                      .input = smallGraph(),
                                      .command = path(QString::fromUtf8("\x1b[31m\x07z"))});
        EXPECT_EQ(drawn.status, 1);
        EXPECT_TRUE(drawn.errors.contains("\\x1b[31m\\x07z")) << drawn.errors.toStdString();
        EXPECT_TRUE(isPrintable(drawn.errors));
    }
}

TEST_F(HostileMessages, of_the_environment)
{
    const QString hostile = QString::fromUtf8("/\x1b]0;t\x07\x7f\xc2\x9b");
    for (const QString &name :
         {u"ORRHOME"_s, u"PATH"_s, u"HOME"_s, u"TMPDIR"_s, u"LC_ALL"_s, u"QT_QPA_PLATFORM"_s,
          u"QT_HASH_SEED"_s, u"DEBUG_ORRHOME_TRACE"_s}) {
        const ProgramRun drawn =
            run({.arguments = {u"-K"_s, u"treemap"_s, u"-T"_s, u"svg"_s},
                 .input = smallGraph(),
                 .environment = {{u"DEBUG_ORRHOME_TRACE"_s, u"1"_s}, {name, hostile}}});
        EXPECT_TRUE(isPrintable(drawn.errors)) << name.toStdString();
        EXPECT_TRUE(drawn.errors.contains("\\x1b") || name != "ORRHOME"_L1);
    }
}

// Libraries that the rich text goes through complain about what they do not know.
TEST_F(HostileMessages, of_rich_text_are_none)
{
    for (const QByteArray &text : breakingTexts() + QByteArrayList{controls}) {
        const QByteArray html = "<p style='" + text + ":" + text
            + "'><img src='data:image/png;base64," + text.toBase64() + "'><font face='" + text
            + "'>a";
        const QByteArray ops =
            "F 9 5 -Arial H 9 9 0 9 " + QByteArray::number(html.size()) + " -" + html;
        EXPECT_TRUE(succeeded(draw("digraph { graph [xdotversion=1 bb=\"0,0,9,9\"]; a [_ldraw_="
                                       + quotedInGraph(ops) + "]; }",
                                   u"svg"_s)));
    }
}
