#include "companion/import/traces/trace_import.h"

#include "companion/import/traces/trace_calls.h"
#include "companion/produce/tree_picture.h"
#include "import/sequence_read.h"

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

// A span of OTLP: times in nanoseconds, `more` with a comma before.
QByteArray otlpSpan(const char *id, const char *parent, const char *name, int start, int end,
                    const char *more = "")
{
    return "{\"traceId\":\"t\",\"spanId\":\"" + QByteArray(id) + "\",\"parentSpanId\":\"" + parent
        + "\",\"name\":\"" + name + "\",\"startTimeUnixNano\":\"" + QByteArray::number(start)
        + "\",\"endTimeUnixNano\":\"" + QByteArray::number(end) + '"' + more + '}';
}

QByteArray otlpService(const char *name, const QByteArrayList &spans)
{
    return "{\"resource\":{\"attributes\":[{\"key\":\"service.name\",\"value\":{\"stringValue\":\""
        + QByteArray(name) + "\"}}]},\"scopeSpans\":[{\"spans\":[" + spans.join(',') + "]}]}";
}

QByteArray otlp(const QByteArrayList &services)
{
    return "{\"resourceSpans\":[" + services.join(',') + "]}";
}

std::string callsOf(const ImportResult &result, int most = 1000)
{
    if (!result.picture)
        return "no picture: " + (result.fault ? result.fault->sentence.toStdString() : "");
    QStringList notes;
    const auto &calls = dynamic_cast<const TraceCalls &>(*result.picture);
    const std::string steps = stepsOf(calls.sequence(most, &notes));
    return steps + notes.join(u'\n').toStdString();
}

std::string callsIn(const QByteArray &text, int most = 1000)
{
    return callsOf(sequenceRead(readTrace, text), most);
}

} // namespace

TEST(TraceImport, draws_a_call_where_both_sides_tell_of_it_once)
{
    EXPECT_EQ(callsIn(otlp({otlpService("a",
                                        {otlpSpan("1", "", "first", 0, 9000),
                                         otlpSpan("2", "1", "call b", 1000, 8000, ",\"kind\":3")}),
                            otlpService("b",
                                        {otlpSpan("3", "2", "work", 2000, 7000,
                                                  ",\"kind\":\"SPAN_KIND_SERVER\"")})})),
              "[ -> a: first\n+a\na -> b: work\n+b\nb -->> a: 5 \u00b5s\n-b\na -->> [: 9 \u00b5s\n"
              "-a\n");
}

TEST(TraceImport, draws_calls_in_the_order_of_time)
{
    EXPECT_EQ(callsIn(otlp({otlpService("a",
                                        {otlpSpan("1", "", "first", 0, 100),
                                         otlpSpan("2", "1", "late", 50, 60),
                                         otlpSpan("3", "1", "early", 10, 20)})})),
              "[ -> a: first\n+a\na -> a: early, 0.01 \u00b5s\na -> a: late, 0.01 \u00b5s\n"
              "a -->> [: 0.1 \u00b5s\n-a\n");
}

TEST(TraceImport, folds_what_is_alike_and_in_a_row)
{
    EXPECT_EQ(callsIn(otlp({otlpService("a",
                                        {otlpSpan("1", "", "first", 0, 4000000),
                                         otlpSpan("2", "1", "w", 0, 1000000),
                                         otlpSpan("3", "1", "w", 1000000, 3000000),
                                         otlpSpan("4", "1", "v", 3000000, 4000000)})})),
              "[ -> a: first\n+a\na -> a: w \u00d72, 3 ms\na -> a: v, 1 ms\na -->> [: 4 ms\n-a\n");
}

TEST(TraceImport, draws_a_loop_around_calls_that_are_alike)
{
    const std::string steps =
        callsOf(sequenceRead(readTrace, sequenceData(u"trace/dispatch.json"_s)));
    EXPECT_NE(steps.find("loop [3 times, 24 ms]\nfrontend -> route: HTTP GET /route\n+route\n"
                         "route -->> frontend: 7.3 ms\n-route\nend\n"),
              std::string::npos)
        << steps;
    EXPECT_NE(steps.find("redis -->> driver: 2.4 ms, failed\n"), std::string::npos) << steps;
}

TEST(TraceImport, reads_what_an_exporter_sends_and_the_same_a_line_each)
{
    const std::string whole = callsOf(sequenceRead(readTrace, sequenceData(u"trace/shop.json"_s)));
    EXPECT_NE(whole.find("loop [4 times, 21.9 ms]\norders -> stock: stock.Reserve\n"),
              std::string::npos)
        << whole;
    EXPECT_NE(whole.find("payment -> payment: ask bank, 25.8 ms, failed\n"), std::string::npos);
    EXPECT_NE(whole.find("orders ->> mail: send receipt\n"), std::string::npos);
    EXPECT_EQ(callsOf(sequenceRead(readTrace, sequenceData(u"trace/lines.json"_s))), whole);
}

TEST(TraceImport, leaves_out_the_deepest_calls_if_there_are_too_many)
{
    const QByteArray text = otlp(
        {otlpService("a", {otlpSpan("1", "", "one", 0, 1000)}),
         otlpService("b", {otlpSpan("2", "1", "two", 0, 1000)}),
         otlpService("c",
                     {otlpSpan("3", "2", "three", 0, 1000), otlpSpan("4", "3", "four", 0, 1000)})});
    EXPECT_EQ(callsIn(text, 2),
              "[ -> a: one\n+a\na -> b: two (2 calls below)\n+b\n"
              "b -->> a: 1 \u00b5s\n-b\na -->> [: 1 \u00b5s\n-a\n"
              "calls below level 2 are left out, to draw at most 2, each of up to 3 things");
}

TEST(TraceImport, parts_several_traces)
{
    const std::string steps = callsIn(otlp({otlpService(
        "a", {otlpSpan("2", "", "later", 5000, 6000), otlpSpan("1", "", "first", 0, 1000)})}));
    EXPECT_EQ(steps.find("== first, 1 \u00b5s\n[ -> a: first\n"), 0u) << steps;
    EXPECT_NE(steps.find("== later, 1 \u00b5s\n[ -> a: later\n"), std::string::npos) << steps;
}

TEST(TraceImport, survives_circles_and_odd_times)
{
    const ImportResult circle = sequenceRead(
        readTrace,
        otlp({otlpService("a",
                          {otlpSpan("1", "2", "x", 0, 1), otlpSpan("2", "1", "y", 0, 1),
                           otlpSpan("3", "3", "z", 0, 1)})}));
    EXPECT_EQ(callsOf(circle), "[ -> a: z\n+a\na -->> [: 0.001 \u00b5s\n-a\n");
    ASSERT_EQ(circle.notes.size(), 1);
    EXPECT_EQ(circle.notes[0].sentence,
              u"2 spans have each other as parents, in a circle, and are left out");
    const ImportResult backward =
        sequenceRead(readTrace, otlp({otlpService("a", {otlpSpan("1", "", "x", 9, 1)})}));
    ASSERT_EQ(backward.notes.size(), 1);
    EXPECT_EQ(backward.notes[0].place.path, u"$.resourceSpans[0].scopeSpans[0].spans[0]");
    EXPECT_EQ(callsOf(backward), "[ -> a: x\n+a\na -->> [: 0 \u00b5s\n-a\n");
    const QByteArray huge = "{\"data\":[{\"spans\":[{\"traceID\":\"t\",\"spanID\":\"1\","
                            "\"operationName\":\"x\",\"startTime\":-1e300,\"duration\":1e300}]}]}";
    EXPECT_NE(callsIn(huge).find("(unnamed): x"), std::string::npos) << callsIn(huge);
    const ImportResult cut = sequenceRead(readTrace, huge);
    ASSERT_EQ(cut.notes.size(), 1);
    EXPECT_EQ(cut.notes[0].place.path, u"$.data[0].spans[0].startTime");
}

TEST(TraceImport, reads_what_other_encoders_make_of_it)
{
    const QByteArray text = otlp({otlpService("a", {otlpSpan("1", "", "first", 0, 1000)}),
                                  otlpService("b", {otlpSpan("2", "1", "work", 0, 500)})});
    const std::string whole = callsIn(text);
    ASSERT_NE(whole.find("a -> b: work"), std::string::npos) << whole;
    QByteArray defined = text;
    for (const char *name : {"resource_spans", "scope_spans", "string_value", "trace_id", "span_id",
                             "parent_span_id", "start_time_unix_nano", "end_time_unix_nano"}) {
        QByteArray camel = name;
        for (qsizetype at = camel.indexOf('_'); at >= 0; at = camel.indexOf('_'))
            camel.replace(at, 2, QByteArray(1, char(camel[at + 1] & ~0x20)));
        defined.replace('"' + camel + '"', '"' + QByteArray(name) + '"');
    }
    ASSERT_FALSE(defined.contains("spanId"));
    EXPECT_EQ(callsIn(defined), whole);
    EXPECT_EQ(likenessOfTrace(defined), 100);
    QByteArray batches = text;
    batches.replace("resourceSpans", "batches");
    EXPECT_EQ(callsIn(batches), whole);
    EXPECT_GT(likenessOfTrace(batches), 50);
    EXPECT_EQ(callsIn("{\"trace\": " + text + '}'), whole);
}

TEST(TraceImport, reads_an_array_of_exports)
{
    const QByteArray one = otlp({otlpService("a", {otlpSpan("1", "", "first", 0, 1000)})});
    const QByteArray other = otlp({otlpService("b", {otlpSpan("2", "1", "work", 0, 500)})});
    const std::string whole = callsIn(one + '\n' + other + '\n');
    EXPECT_NE(whole.find("a -> b: work"), std::string::npos) << whole;
    const QByteArray both = "[" + one + ",\n" + other + "]";
    EXPECT_EQ(callsIn(both), whole);
    EXPECT_EQ(likenessOfTrace(both), 100);
    EXPECT_EQ(sequenceRead(readTrace, "[{\"a\": 1}]").fault->place.path, u"$[0]");
}

TEST(TraceImport, keeps_the_size_of_letters_in_ids_of_base_64)
{
    const QByteArray text = otlp(
        {otlpService("a",
                     {otlpSpan("aG8=", "", "one", 0, 1000), otlpSpan("Ag8=", "aG8=", "two", 0, 500),
                      otlpSpan("3", "ag8=", "lost", 0, 10)})});
    EXPECT_NE(callsIn(text).find("a -> a: two"), std::string::npos) << callsIn(text);
    EXPECT_NE(callsIn(text).find("[ -> a: lost"), std::string::npos) << callsIn(text);
}

TEST(TraceImport, says_what_its_colour_means)
{
    const auto titleOf = [](const QByteArray &text) {
        const ImportResult result = sequenceRead(readTrace, text);
        return result.picture->write({.engine = u"umlseq"_s}).text;
    };
    const QByteArray failed = otlpSpan("1", "", "x", 0, 9, ",\"status\":{\"code\":2}");
    EXPECT_TRUE(titleOf(otlp({otlpService("a", {failed})})).contains("red: failed"));
    EXPECT_FALSE(
        titleOf(otlp({otlpService("a", {otlpSpan("1", "", "x", 0, 9)})})).contains("red:"));
}

TEST(TraceImport, tells_faults_with_their_places)
{
    const auto faultOf = [](const QByteArray &text) {
        const ImportResult result = sequenceRead(readTrace, text);
        return result.fault ? *result.fault : ImportFault{};
    };
    EXPECT_EQ(faultOf("{\"other\": 1}").place.path, u"$");
    EXPECT_EQ(faultOf("{\"resourceSpans\": []}").sentence, u"there are no spans");
    EXPECT_EQ(faultOf("{\"resourceSpans\": [}").place.offset, 20);
    EXPECT_EQ(faultOf("{\"resourceSpans\": []}\n{\"resourceSpans\": x}\n").place.line, 2);
}

TEST(TraceImport, tells_members_that_are_something_else)
{
    const auto told = [](const QByteArray &text) {
        const ImportResult result = sequenceRead(readTrace, text);
        return result.fault ? '@' + std::to_string(result.fault->place.offset) + ' '
                + result.fault->place.path.toStdString() + ": "
                + result.fault->sentence.toStdString()
                            : "no fault";
    };
    const auto toldOfSpan = [&](const QByteArray &members) {
        return told("{\"resourceSpans\":[{\"scopeSpans\":[{\"spans\":[{" + members + "}]}]}]}");
    };
    const std::string span = "$.resourceSpans[0].scopeSpans[0].spans[0].";
    EXPECT_EQ(toldOfSpan(R"("startTimeUnixNano":"x","endTimeUnixNano":{})"),
              "@64 " + span + "startTimeUnixNano: a number is expected here, and this is 'x'");
    EXPECT_EQ(toldOfSpan(R"("endTimeUnixNano":{})"),
              "@62 " + span + "endTimeUnixNano: a number is expected here, and this is an object");
    EXPECT_EQ(toldOfSpan(R"("spanId":7)"),
              "@53 " + span + "spanId: a string is expected here, and this is a number");
    EXPECT_EQ(toldOfSpan(R"("startTimeUnixNano":null,"endTimeUnixNano":"12")"), "no fault");
    EXPECT_EQ(told(R"({"resourceSpans":7})"),
              "@17 $.resourceSpans: an array is expected here, and this is a number");
    EXPECT_EQ(told(R"({"data":[{"spans":[{"startTime":true}]}]})"),
              "@32 $.data[0].spans[0].startTime: a number is expected here, and this is true");
    EXPECT_EQ(told(R"({"data":[{"spans":[[]]}]})"),
              "@19 $.data[0].spans[0]: an object is expected here, and this is an array");
}

TEST(TraceImport, weighs_what_is_no_waiting_by_service)
{
    std::vector<ImportSource> sources;
    sources.emplace_back("in",
                         otlp({otlpService("a", {otlpSpan("1", "", "one", 0, 1000)}),
                               otlpService("b",
                                           {otlpSpan("2", "1", "two", 100, 500),
                                            otlpSpan("3", "1", "two", 400, 700)})}));
    const ImportResult result = readTrace(sources, {.engine = u"bar"_s});
    ASSERT_TRUE(result.picture);
    const WeightTree &tree = dynamic_cast<const TreePicture &>(*result.picture).tree();
    const WeightTree::Item a = tree.firstChild(WeightTree::root);
    const WeightTree::Item b = tree.nextSibling(a);
    EXPECT_EQ(tree.name(a), "a");
    EXPECT_NEAR(tree.ownWeight(a), 400e-9, 1e-15); // 100 to 700 is waiting
    EXPECT_EQ(tree.firstChild(b), WeightTree::none); // a bar is a service
    EXPECT_NEAR(tree.ownWeight(b), 700e-9, 1e-15);
}

TEST(TraceImport, says_times_with_three_digits)
{
    EXPECT_EQ(durationText(0), u"0 \u00b5s");
    EXPECT_EQ(durationText(85'400), u"85.4 \u00b5s");
    EXPECT_EQ(durationText(999'900), u"1 ms");
    EXPECT_EQ(durationText(340'000'000), u"340 ms");
    EXPECT_EQ(durationText(1'250'000'000), u"1.25 s");
    EXPECT_EQ(durationText(5'025'000'000'000), u"5025 s");
}
