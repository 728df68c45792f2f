#include "adapters/script/transcript.h"

#include <gtest/gtest.h>

#include <sstream>

namespace catalogador::script {
namespace {

TEST(Transcript, PrintsOneLineAnEventWithItsKeysInOrder) {
    std::ostringstream out;
    Transcript transcript(out, false);
    transcript.print({{"event", "sql"}, {"zeta", 1}, {"alfa", "ñ\n"}});
    EXPECT_EQ(out.str(), "{\"event\":\"sql\",\"zeta\":1,\"alfa\":\"ñ\\n\"}\n");
}

TEST(Transcript, TraceEventsShowOnlyInTraces) {
    std::ostringstream plain;
    Transcript(plain, false).trace({{"event", "pointer"}, {"value", 11}});
    EXPECT_EQ(plain.str(), "");
    std::ostringstream traced;
    Transcript(traced, true).trace({{"event", "pointer"}, {"value", 11}});
    EXPECT_EQ(traced.str(), "{\"event\":\"pointer\",\"value\":11}\n");
}

TEST(Transcript, BytesThatAreNoTextAreReplaced) {
    EXPECT_EQ(lineOf("a\xFFz"), "\"a\uFFFDz\"");
}

TEST(JsonOfVariant, KeepsEachKindOfValue) {
    EXPECT_EQ(lineOf(jsonOf(Null{})), "null");
    EXPECT_EQ(lineOf(jsonOf(true)), "true");
    EXPECT_EQ(lineOf(jsonOf(724)), "724");
    EXPECT_EQ(lineOf(jsonOf("España")), "\"España\"");
    EXPECT_EQ(lineOf(jsonOf(Date{2026, 3, 1, 10, 5, 9})), "\"2026-03-01 10:05:09\"");
}

TEST(JsonOfVariant, WholeNumbersHaveNoFractionWhateverTheDatabaseCallsThem) {
    EXPECT_EQ(lineOf(jsonOf(5.0)), "5");
    EXPECT_EQ(lineOf(jsonOf(5.25)), "5.25");
    EXPECT_EQ(lineOf(jsonOf(Decimal{"12.50"})), "12.5");
    EXPECT_EQ(lineOf(jsonOf(Decimal{"12.00"})), "12");
    EXPECT_EQ(lineOf(jsonOf(Decimal{".5"})), "0.5");
    EXPECT_EQ(lineOf(jsonOf(Decimal{"9007199254740993"})), "9007199254740993");
}

TEST(TranscriptStatements, TracesWhatGoesThroughTheConnection) {
    std::ostringstream out;
    Transcript transcript(out, true);
    TranscriptStatements statements(transcript);
    statements.opened("Select 1", 2, 4);
    statements.executed("Delete From t");
    statements.written("insert", "genCodigoTexto", {{"CTeCodigo", 7}, {"CTeTextoLargo", Null{}}},
                       true);
    statements.written("delete", "genCodigoTexto", {}, false);
    statements.written("delete", "genCodigoTexto", {}, std::nullopt);
    EXPECT_EQ(out.str(),
              "{\"event\":\"statement\",\"sql\":\"Select 1\",\"type\":2,\"lock\":4}\n"
              "{\"event\":\"statement\",\"sql\":\"Delete From t\",\"execute\":true}\n"
              "{\"event\":\"write\",\"kind\":\"insert\",\"table\":\"genCodigoTexto\","
              "\"columns\":{\"CTeCodigo\":7,\"CTeTextoLargo\":null}}\n"
              "{\"event\":\"write\",\"kind\":\"delete\",\"table\":\"genCodigoTexto\","
              "\"columns\":{},\"failed\":true}\n"
              "{\"event\":\"write\",\"kind\":\"delete\",\"table\":\"genCodigoTexto\","
              "\"columns\":{},\"unknown\":true}\n");
}

TEST(TranscriptStatements, AreQuietWhileAServiceWorks) {
    std::ostringstream out;
    Transcript transcript(out, true);
    TranscriptStatements statements(transcript);
    {
        const TranscriptStatements::Quiet outer(statements);
        { const TranscriptStatements::Quiet inner(statements); }
        statements.opened("Select 1", 2, 4);
    }
    EXPECT_EQ(out.str(), "");
    statements.executed("Select 2");
    EXPECT_NE(out.str(), "");
}

}  // namespace
}  // namespace catalogador::script
