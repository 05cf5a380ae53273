#include "Devices/Simulation/ScenarioParser.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

using Devices::Simulation::ScenarioParser;

namespace {

// Every line below is read after these, as line 3 of "t.scenario".
const std::string c_header = "A modem name=\"X 1\" imei=356938035643809 pin=7391 puk=81726354\n"
                             "G ghost name=g\n";

struct LineCase {
    const char* line;
    const char* cause; // null: the line is a good step
};

const LineCase c_lines[] = {
    {"A plug   # a comment", nullptr},
    {"A init opened 1 completed radio-off sim-failure", nullptr},
    {"A register operator=\"Meridian Mobile\" tech=hspa+ signal=70 roaming", nullptr},
    {"A error \"a \\\"quoted\\\" text\"", nullptr},
    {"A", "expected LABEL ACTION"},
    {"A wait 10", "expected a duration"},
    {"A signal 101", "expected a percentage"},
    {"A unlock giveup=soon", "giveup expects a duration"},
    {"A register operator=O tech=wimax", "tech expects"},
    {"A refuse busy", "expected none, denied, no-service or timeout"},
    {"A features data,fax", "expected features"},
    {"A jump", "unknown action jump"},
    {"A plug now", "expected no arguments"},
    {"A operator \"Meridian", "a quoted text is not closed"},
    {"B plug", "B is not declared"},
    {"A modem", "A is declared twice"},
    {"C modem pin=73", "pin expects 4 to 8 digits"},
    {"C modem imei=12", "imei expects 15 digits"},
    {"G signal 5", "a ghost only takes plug, pull and wait"},
};

} // namespace

// One log entry "file:line: cause" per bad line, the line left out, and
// never a code of the scenario in the log.
TEST(ScenarioParser, ReadsGoodLinesAndReportsEachBadLine)
{
    for (const auto& c : c_lines) {
        SCOPED_TRACE(c.line);
        testsupport::LogCapture log;
        const auto scenario = ScenarioParser::ParseText("t.scenario", c_header + c.line + "\n");
        ASSERT_FALSE(scenario.modems.empty());
        const auto& a = scenario.modems[0];
        if (!c.cause) {
            EXPECT_EQ(scenario.errors, 0u) << log.Dump();
            EXPECT_EQ(a.steps.size(), 1u);
            continue;
        }
        EXPECT_TRUE(scenario.errors == 1u && a.steps.empty());
        const std::string cause(c.cause);
        EXPECT_EQ(log.Count(L"t.scenario:3: " + std::wstring(cause.begin(), cause.end())), 1u) << log.Dump();
        EXPECT_FALSE(log.Contains(L"7391") || log.Contains(L"81726354")) << log.Dump();
    }
}

// A bad line in the middle leaves the lines around it in place; identities
// come from the IMEI and stay apart between modems.
TEST(ScenarioParser, KeepsTheRestOfTheFile)
{
    const auto scenario = ScenarioParser::ParseText(
        "t.scenario", c_header + "A plug\nA wait forever\nA unlock\nB modem imei=490154203237518\nB plug\n");
    EXPECT_EQ(scenario.errors, 1u);
    ASSERT_EQ(scenario.modems.size(), 3u);
    ASSERT_EQ(scenario.modems[0].steps.size(), 2u);
    EXPECT_NE(scenario.modems[0].id, scenario.modems[2].id);
    EXPECT_EQ(scenario.modems[0].id, ScenarioParser::ParseText("u", c_header).modems[0].id);

    const auto missing = ScenarioParser::ParseFile("/nonexistent/x.scenario");
    EXPECT_TRUE(missing.modems.empty());
    EXPECT_EQ(missing.errors, 1u);
}
