// What the C++ header makes of the C functions.
#include "library_calls.h"

#include <orrlayout/orrlayout.hpp>

using namespace std::chrono_literals;

namespace {

orrlayout_status statusOf(const std::string &dot, const orrlayout::Options &options)
{
    try {
        orrlayout::draw(dot, options);
    } catch (const orrlayout::Error &error) {
        EXPECT_STRNE(error.what(), "");
        return error.status();
    }
    return ORRLAYOUT_OK;
}

} // namespace

TEST(CppHeader, draws_what_the_functions_of_c_draw)
{
    EXPECT_EQ(orrlayout::draw(smallGraph, {.engine = "treemap"}),
              drawn(smallGraph, "treemap").drawing);
    EXPECT_EQ(orrlayout::draw(smallGraph, {.engine = "treemap", .format = "png"}),
              drawn(smallGraph, "treemap", "png").drawing);
}

TEST(CppHeader, throws_the_status_and_the_message)
{
    EXPECT_EQ(statusOf("", {.engine = "treemap"}), ORRLAYOUT_BAD_INPUT);
    EXPECT_EQ(statusOf(smallGraph, {.engine = "none"}), ORRLAYOUT_UNKNOWN_ENGINE);
    EXPECT_EQ(statusOf(smallGraph, {.engine = "treemap", .format = "gif"}),
              ORRLAYOUT_UNKNOWN_FORMAT);
    EXPECT_EQ(statusOf(smallGraph, {.engine = "treemap", .format = "vsdx", .home = "/nowhere"}),
              ORRLAYOUT_BAD_ARGUMENT);
    EXPECT_EQ(statusOf(smallGraph, {.engine = "treemap", .timeout = 60s}), ORRLAYOUT_OK);
    EXPECT_EQ(statusOf(smallGraph, {.engine = "treemap", .timeout = -1ms}), ORRLAYOUT_BAD_ARGUMENT);
    EXPECT_EQ(statusOf(smallGraph, {.engine = "treemap", .timeout = 24h * 50}),
              ORRLAYOUT_BAD_ARGUMENT);
}

TEST(CppHeader, lists_findings)
{
    EXPECT_TRUE(orrlayout::check(smallGraph).empty());
    const std::vector<orrlayout::Finding> findings = orrlayout::check("digraph {\n  a -> ;\n}\n");
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings.front().severity, ORRLAYOUT_ERROR);
    EXPECT_EQ(findings.front().rule, "syntax-error");
    EXPECT_EQ(findings.front().line, 2U);
    EXPECT_EQ(findings.front().endColumn, 9U);
}

TEST(CppHeader, lists_names)
{
    ASSERT_FALSE(orrlayout::engines().empty());
    EXPECT_EQ(orrlayout::engines().front(), orrlayout_engine_name(0));
    EXPECT_EQ(orrlayout::formats().back(), "vdx");
    EXPECT_EQ(orrlayout::version(), orrlayout_version());
}
