// What the functions of the C header promise.
#include "library_calls.h"

#include "drawing/format_table.h"
#include "drawing/layout_table.h"

#include <QStringList>

#include <cstdint>
#include <initializer_list>

using namespace ORR;

namespace {

const std::string noGraph = "digraph {\n  a -> ;\n}\n";

QStringList names(const char *(*nameAt)(size_t))
{
    QStringList all;
    for (size_t i = 0; const char *name = nameAt(i); ++i)
        all += QString::fromLatin1(name);
    return all;
}

// Options of a version that is younger by one field.
struct LaterOptions
{
    orrlayout_options known = ORRLAYOUT_OPTIONS;
    double scale = 0;
};

Drawn drawnWithSize(size_t size)
{
    orrlayout_options options = ORRLAYOUT_OPTIONS;
    options.size = size;
    options.engine = "treemap";
    return drawn(smallGraph, &options);
}

// The list of a check that succeeds, freed at the end.
class Checked
{
public:
    explicit Checked(const std::string &dot, const char *engine = nullptr)
    {
        orrlayout_options options = ORRLAYOUT_OPTIONS;
        options.engine = engine;
        char *message = nullptr;
        EXPECT_EQ(orrlayout_check(dot.data(), dot.size(), &options, &list, &message), ORRLAYOUT_OK);
        EXPECT_EQ(message, nullptr);
    }
    ~Checked() { orrlayout_findings_free(list); }
    Checked(const Checked &) = delete;
    Checked &operator=(const Checked &) = delete;

    size_t count() const { return orrlayout_findings_count(list); }
    const orrlayout_finding *at(size_t index) const { return orrlayout_findings_at(list, index); }

private:
    orrlayout_findings *list = nullptr;
};

} // namespace

TEST(Library, lists_the_engines_and_formats_of_the_tables)
{
    EXPECT_EQ(names(orrlayout_engine_name), Drawing::layoutNames());
    EXPECT_EQ(names(orrlayout_format_name), Drawing::formatNames());
    EXPECT_EQ(orrlayout_engine_name(SIZE_MAX), nullptr);
    EXPECT_EQ(orrlayout_format_name(SIZE_MAX), nullptr);
}

TEST(Library, has_the_version_of_the_project)
{
    EXPECT_STREQ(orrlayout_version(), ORR_PROJECT_VERSION);
}

TEST(Library, has_a_text_for_every_status_and_for_any_other_number)
{
    QStringList texts;
    for (int status = ORRLAYOUT_OK; status <= ORRLAYOUT_NOT_STARTED + 1; ++status)
        texts += QString::fromLatin1(orrlayout_status_text(static_cast<orrlayout_status>(status)));
    EXPECT_EQ(texts.removeDuplicates(), 0);
    EXPECT_EQ(texts.back(), QStringLiteral("an unknown status"));
}

TEST(Library, draws_svg_unless_told_otherwise)
{
    EXPECT_EQ(drawn(smallGraph, "treemap", nullptr).drawing,
              drawn(smallGraph, "treemap", "SVG").drawing);
    EXPECT_EQ(drawn(smallGraph, "treemap", "").drawing.substr(0, 5), "<?xml");
}

TEST(Library, needs_neither_an_engine_nor_options_for_a_finished_drawing)
{
    const std::string finished = drawn(smallGraph, "treemap", "xdot1.2").drawing;
    const Drawn replayed = drawn(finished, static_cast<orrlayout_options *>(nullptr));
    EXPECT_EQ(replayed.message, "");
    EXPECT_NE(replayed.drawing.find("Alpha"), std::string::npos);
}

TEST(Library, reads_labels_as_html_when_asked)
{
    const std::string bold = R"(digraph { graph [bb="0,0,50,20" xdotversion="1.2"];
        a [_ldraw_="F 10 5 -Arial c 7 -#000000 T 10 10 0 20 11 -<b>bold</b>"]; })";
    orrlayout_options options = ORRLAYOUT_OPTIONS;
    EXPECT_NE(drawn(bold, &options).drawing.find("&lt;b&gt;"), std::string::npos);
    options.html_labels = 1;
    EXPECT_EQ(drawn(bold, &options).drawing.find("&lt;b&gt;"), std::string::npos);
}

TEST(Library, says_what_is_wrong_with_a_request)
{
    struct Case
    {
        std::string dot;
        const char *engine;
        const char *format;
        orrlayout_status status;
        const char *message;
    };
    for (const Case &each : std::initializer_list<Case>{
             {noGraph, "treemap", "svg", ORRLAYOUT_BAD_INPUT, "Unable to parse dot input"},
             {"", "treemap", "svg", ORRLAYOUT_BAD_INPUT, "Unable to parse dot input"},
             {smallGraph, "tree\nmap", "svg", ORRLAYOUT_UNKNOWN_ENGINE,
              "Layout required and layout engine not provided/available."},
             {smallGraph, nullptr, "svg", ORRLAYOUT_UNKNOWN_ENGINE,
              "Layout required and layout engine not provided/available."},
             {smallGraph, "treemap", "g\nif\x1b", ORRLAYOUT_UNKNOWN_FORMAT,
              "there is no format g if\\x1b"},
             {"digraph { a; subgraph s { b } }", "gftree", "svg", ORRLAYOUT_NO_DRAWING,
              "GraflibTree does not support subgraphs"},
         }) {
        const Drawn result = drawn(each.dot, each.engine, each.format);
        EXPECT_EQ(result.status, each.status) << each.message;
        EXPECT_EQ(result.message, each.message);
    }
}

TEST(Library, refuses_what_is_no_argument)
{
    char *drawing = nullptr;
    char *message = nullptr;
    size_t size = 1;
    const auto draw = [&](const char *dot, size_t count, char **bytes, size_t *length) {
        orrlayout_free(message);
        return orrlayout_draw(dot, count, nullptr, bytes, length, &message);
    };
    EXPECT_EQ(draw(nullptr, 5, &drawing, &size), ORRLAYOUT_BAD_ARGUMENT);
    EXPECT_STREQ(message, "there is no input");
    EXPECT_EQ(size, 0U);
    EXPECT_EQ(draw("", 0, nullptr, &size), ORRLAYOUT_BAD_ARGUMENT);
    EXPECT_EQ(draw("", 0, &drawing, nullptr), ORRLAYOUT_BAD_ARGUMENT);
    EXPECT_STREQ(message, "there is no place for the drawing");
    EXPECT_EQ(draw(nullptr, 0, &drawing, &size), ORRLAYOUT_BAD_INPUT);
    EXPECT_EQ(orrlayout_check("", 0, nullptr, nullptr, nullptr), ORRLAYOUT_BAD_ARGUMENT);
    orrlayout_free(message);
}

TEST(Library, does_without_a_place_for_the_message)
{
    char *drawing = nullptr;
    size_t size = 0;
    EXPECT_EQ(orrlayout_draw("x", 1, nullptr, &drawing, &size, nullptr), ORRLAYOUT_BAD_INPUT);
    EXPECT_EQ(drawing, nullptr);
}

TEST(Library, takes_options_of_its_own_size_and_of_no_smaller_one)
{
    EXPECT_EQ(drawnWithSize(sizeof(orrlayout_options)).status, ORRLAYOUT_OK);
    for (const size_t size : {size_t(0), size_t(1), sizeof(orrlayout_options) - 1, SIZE_MAX})
        EXPECT_EQ(drawnWithSize(size).status, ORRLAYOUT_BAD_ARGUMENT) << size;
}

TEST(Library, takes_options_of_a_later_version_while_they_say_nothing_new)
{
    LaterOptions options;
    options.known.size = sizeof options;
    options.known.engine = "treemap";
    EXPECT_EQ(drawn(smallGraph, &options.known).status, ORRLAYOUT_OK);
    options.scale = 2;
    const Drawn refused = drawn(smallGraph, &options.known);
    EXPECT_EQ(refused.status, ORRLAYOUT_BAD_ARGUMENT);
    EXPECT_EQ(refused.message, "the options are of another version than the library");
}

TEST(Library, refuses_an_input_beyond_the_limit_before_it_reads_it)
{
    char *drawing = nullptr;
    size_t size = 0;
    for (const size_t tooMuch : {size_t(1) << 31, SIZE_MAX}) {
        EXPECT_EQ(orrlayout_draw("", tooMuch, nullptr, &drawing, &size, nullptr),
                  ORRLAYOUT_TOO_LARGE);
        orrlayout_findings *findings = nullptr;
        EXPECT_EQ(orrlayout_check("", tooMuch, nullptr, &findings, nullptr), ORRLAYOUT_TOO_LARGE);
        EXPECT_EQ(findings, nullptr);
    }
}

TEST(Library, takes_the_templates_from_where_it_is_told)
{
    orrlayout_options options = ORRLAYOUT_OPTIONS;
    options.engine = "treemap";
    options.format = "vsdx";
    const Drawn beside = drawn(smallGraph, &options);
    EXPECT_EQ(beside.drawing.substr(0, 2), "PK");
    options.home = ORR_PROJECT_FOLDER;
    EXPECT_TRUE(drawn(smallGraph, &options).drawing == beside.drawing);
    options.home = "/nowhere";
    const Drawn refused = drawn(smallGraph, &options);
    EXPECT_EQ(refused.status, ORRLAYOUT_BAD_ARGUMENT);
    EXPECT_EQ(refused.message, "there are no templates of VSDX in /nowhere");
    options.format = "svg"; // which needs none
    EXPECT_EQ(drawn(smallGraph, &options).status, ORRLAYOUT_OK);
}

TEST(Library, finds_nothing_wrong_with_a_graph)
{
    const Checked checked(smallGraph, "treemap");
    EXPECT_EQ(checked.count(), 0U);
    EXPECT_EQ(checked.at(0), nullptr);
}

TEST(Library, says_where_a_text_is_wrong)
{
    const Checked checked(noGraph);
    ASSERT_EQ(checked.count(), 1U);
    const orrlayout_finding &finding = *checked.at(0);
    EXPECT_EQ(finding.severity, ORRLAYOUT_ERROR);
    EXPECT_STREQ(finding.rule, "syntax-error");
    EXPECT_STREQ(finding.sentence, "an edge needs a second end: found ';', expected a name");
    EXPECT_STREQ(finding.suggestion, "write a -> b");
    EXPECT_EQ(finding.line, 2U);
    EXPECT_EQ(finding.column, 8U);
    EXPECT_EQ(finding.end_line, 2U);
    EXPECT_EQ(finding.end_column, 9U);
    EXPECT_EQ(finding.more, 0U);
}

TEST(Library, suggests_the_engine_that_was_meant)
{
    const Checked checked(smallGraph, "treemop");
    ASSERT_EQ(checked.count(), 1U);
    EXPECT_STREQ(checked.at(0)->rule, "unknown-engine");
    EXPECT_STREQ(checked.at(0)->suggestion, "did you mean 'treemap'?");
    EXPECT_EQ(checked.at(0)->line, 0U);
}

TEST(Library, takes_null_where_there_is_nothing_to_free)
{
    orrlayout_free(nullptr);
    orrlayout_findings_free(nullptr);
    EXPECT_EQ(orrlayout_findings_count(nullptr), 0U);
    EXPECT_EQ(orrlayout_findings_at(nullptr, 0), nullptr);
}

TEST(Library, gives_up_in_time_and_draws_again_afterwards)
{
    std::string large = "digraph {";
    for (int i = 0; i < 200000; ++i)
        large += "n" + std::to_string(i) + " [area=1];";
    large += "}";
    ASSERT_EQ(drawn(smallGraph, "treemap").status, ORRLAYOUT_OK); // there is a worker
    orrlayout_options options = ORRLAYOUT_OPTIONS;
    options.engine = "treemap";
    options.timeout_ms = 20;
    const Drawn late = drawn(large, &options);
    EXPECT_EQ(late.status, ORRLAYOUT_TIMED_OUT);
    EXPECT_EQ(late.message, "the drawing was not ready in time");
    EXPECT_EQ(drawn(smallGraph, "treemap").status, ORRLAYOUT_OK);
    EXPECT_EQ(workersOnce(1).size(), 1U) << "what was late is not drawn to its end";
}
