// The timing engine driven by scripted test functions: each loop call reports
// a chosen clocks-per-call figure, so every step of the search is exact.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

#include "kvfpstate.h"
#include "kvtest.h"
#include "kvticker.h"
#include "kvtool/kvtool.h"
#include "testutil.h"

#include <gmock/gmock.h>

using ::testing::ContainsRegex;
using ::testing::ElementsAre;
using ::testing::MatchesRegex;
using ::testing::HasSubstr;

namespace {

struct Script {
    std::vector<double> perCall;   // figure of each loop call; the last repeats
    std::vector<int> loops;        // loop counts asked for, in order
    kvResult result = KV_OK;
    int zeroDivideAt = -1;         // loop call that raises a floating-point flag
    int calls = 0;                 // calls of the single-call form
    int inits = 0;
    int statCalls = -1;            // minimums handed to the statistic form
    long long statClocks = -1;
    long long warmUpEnd = 0;       // the counter when the slow warm-up returned
};
Script s;

kvResult scriptedLoop(int loops, long long* clocks) {
    size_t i = s.loops.size();
    s.loops.push_back(loops);
    double perCall = s.perCall[std::min(i, s.perCall.size() - 1)];
    *clocks = (long long)(perCall * loops + 0.5);
    if ((int)i == s.zeroDivideAt) {
        volatile double zero = 0;
        volatile double x = 1.0 / zero;
        (void)x;
    }
    return s.result;
}

kvResult scriptedStat(int* calls, long long* clocks) {
    s.statCalls = *calls;
    s.statClocks = *clocks;
    *calls = 25;
    *clocks = 2500;
    return KV_OK;
}

int countingCall() { return ++s.calls, 0; }
int countingInit() { return ++s.inits, 0; }

// The first call (the warm-up) burns many clocks; the rest cost nearly nothing.
int slowFirstCall() {
    if (s.calls++ == 0) {
        long long end = vdl_get_cpu_counter() + 20000000;
        while (vdl_get_cpu_counter() < end) {
        }
        s.warmUpEnd = vdl_get_cpu_counter();
    }
    return 0;
}

// n figures that swing between a and b after the given head: no two agree.
std::vector<double> swing(size_t n, double a, double b, std::vector<double> head = {}) {
    while (head.size() < n) head.push_back(head.size() % 2 ? b : a);
    return head;
}

// Catches the errors and warnings written to g_ostrm during each test.
class KvToolTest : public ::testing::Test {
protected:
    void SetUp() override {
        s = Script();
        kvTest::initCtrlStatus();
        kvTest::clearCtrlStatus();
    }
    void TearDown() override { kvTest::clearCtrlStatus(); }

    std::string output() { return m_log.text(); }

    kvResult runAuto(std::vector<double> perCall) {
        s.perCall = perCall;
        return m_tool.timing(scriptedLoop, 0, 0, 0);
    }

    LogCapture m_log{ERR | WARN};
    kvTool m_tool;
};

TEST_F(KvToolTest, MethodSettingsAreClamped) {
    int start = 0, max = 0, calls = 0;
    long long clocks = 0;
    m_tool.setMethodBest(100, 200, 1000);  // the limit is at least eight times the start
    ASSERT_TRUE(m_tool.getMethodBest(start, max, clocks));
    EXPECT_EQ(max, 800);
    m_tool.setMethodLoop(0);
    ASSERT_TRUE(m_tool.getMethodLoop(calls));
    EXPECT_EQ(calls, 1);

    // Settings and products of the search stop at the limit instead of wrapping.
    m_tool.setMethodBest(2000000000, 2048, 10);
    EXPECT_EQ(m_tool.m_startLoops, kvTool::MAX_LOOPS / 8);
    EXPECT_EQ(m_tool.m_maxLoops, kvTool::MAX_LOOPS);
    m_tool.setMethodBest(3, INT_MAX, 10);
    EXPECT_EQ(m_tool.m_maxLoops, kvTool::MAX_LOOPS);
    m_tool.setMethodBest(INT_MIN, 2048, 10);
    EXPECT_EQ(m_tool.m_startLoops, 1);
    EXPECT_EQ(kvTool::loopProduct(INT_MAX, 10), kvTool::MAX_LOOPS);
    EXPECT_EQ(kvTool::loopProduct(10, 2048), 20480);
}

TEST_F(KvToolTest, TextsAndFigures) {
    EXPECT_STREQ(kvTool::getAccuracyStr(0.0004).c_str(), "0.04%");
    EXPECT_STREQ(kvTool::getAccuracyStr(0.05).c_str(), "5.0%");
    EXPECT_STREQ(kvTool::getAccuracyStr(0.002).c_str(), "0.2%");
    EXPECT_STREQ(kvTool::clockStr(2147483647LL).c_str(), "2147483647");
    EXPECT_STREQ(kvTool::clockStr(2147483648LL).c_str(), "2147483640");
    EXPECT_STREQ(kvTool::clockStr(123456789012LL).c_str(), "1234567890" "00");

    EXPECT_EQ(kvTool::computeAccuracy(100, 100), 0.0);
    EXPECT_DOUBLE_EQ(kvTool::computeAccuracy(90, 110), 0.2);
    double v[] = {90, 100, 110, 100};
    EXPECT_DOUBLE_EQ(kvTool::computeAccuracy(v, 4), 0.1);
    EXPECT_EQ(kvTool::computeAccuracy(v, 0), 0.0);
    EXPECT_EQ(kvTool::computeBest(v + 2, 1), 110.0);
    EXPECT_EQ(kvTool::computeBest(v, 4), 90.0);
}

// The loop counts that the automatic and iterative searches ask for, and what
// they settle on. Iterative cases give their start and limit.
TEST_F(KvToolTest, SearchSteps) {
    const struct {
        const char* what;
        std::vector<double> perCall;
        std::vector<int> loops;
        kvResult result;
        const char* comment;
        int start = 0, max = 0;  // iterative settings
        long long minClocks = 0;
    } cases[] = {
        {"agreement within 1 % stops at once", {100, 100.5}, {1, 4}, KV_OK, "nLps=4"},
        // 2 * |41 - 39| / 80 is exactly the target of 5 %.
        {"agreement at the target is confirmed by repeats", {39, 41}, {1, 4, 4, 4}, KV_OK,
         "nLps=4"},
        {"failed repeats go on at four times the count", {100, 103, 80, 120, 80}, {1, 4, 4, 4, 16},
         KV_OK, "nLps=16"},
        {"zero clocks once is retried", {0, 100}, {1, 1, 4}, KV_OK, "nLps=4"},
        {"zero clocks twice at both prior counts fails", {0}, {1, 1, 10, 10}, KV_ACCURFAIL, 0},
        {"a short prior run raises the count tenfold", {5, 5, 5}, {1, 10, 40}, KV_OK, "nLps=40"},
        {"no agreement ends at the limit with a warning", swing(12, 100, 200),
         {1, 4, 8, 16, 32, 64, 128, 256, 512, 1024, 2048, 2048, 2048}, KV_ACCURWRN,
         "nLps=2048 acc=40.0%"},
        {"a short prior run raises the limit tenfold", swing(13, 20, 5, {5}),
         {1, 10, 40, 80, 160, 320, 640, 1280, 2560, 5120, 10240, 20480, 20480, 20480}, KV_ACCURWRN,
         "nLps=20480 acc=66.7%"},
        {"iterative starts and stops where the user says", {20}, {100, 400}, KV_OK, "nLps=400",
         100, 200, 1000},
        // Every figure disagrees with the one before: the search doubles to
        // the limit and repeats there.
        {"iterative from the highest start ends at the limit", swing(20, 100, 200),
         {1 << 21, 1 << 23, 1 << 24, 1 << 24, 1 << 24}, KV_ACCURWRN, "nLps=16777216 acc=50.0%",
         INT_MAX, INT_MAX, 10},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        s = Script();
        s.perCall = c.perCall;
        m_tool = kvTool();
        if (c.start) m_tool.setMethodBest(c.start, c.max, c.minClocks);
        EXPECT_EQ(m_tool.timing(scriptedLoop, 0, 0, 0), c.result);
        EXPECT_EQ(s.loops, c.loops);
        if (c.comment) {
            EXPECT_STREQ(m_tool.m_comment.c_str(), c.comment);
        }
        if (c.result == KV_OK) {
            EXPECT_EQ(m_tool.m_funcClocks, c.perCall.back());
        }
    }
    // A failure of the function ends the prior stage.
    s = Script();
    m_tool = kvTool();
    s.result = KV_FUNCFAIL;
    EXPECT_EQ(runAuto({100}), KV_FUNCFAIL);
    EXPECT_EQ(s.loops, (std::vector<int>{1}));
}

TEST_F(KvToolTest, RepeatTimingReusesTheFigureJustMade) {
    s.perCall = {50, 60};
    m_tool.m_funcLoop = scriptedLoop;
    m_tool.m_numLoops = 8;
    m_tool.m_funcClocks = 40;
    EXPECT_EQ(m_tool.repeatTiming(8, 3), KV_ACCURWRN);
    EXPECT_EQ(s.loops, (std::vector<int>{8, 8}));
    EXPECT_EQ(m_tool.m_funcClocks, 40.0);
    EXPECT_DOUBLE_EQ(m_tool.m_achieved, 10.0 / 50.0);

    s.loops.clear();
    s.perCall = {60};
    EXPECT_EQ(m_tool.repeatTiming(16, 3), KV_OK);
    EXPECT_EQ(s.loops, (std::vector<int>{16, 16, 16}));
    EXPECT_EQ(m_tool.m_funcClocks, 60.0);
    s.loops.clear();
    EXPECT_EQ(m_tool.repeatTiming(8, 0), KV_OK);  // no repeats: nothing measured
    EXPECT_TRUE(s.loops.empty());
}

TEST_F(KvToolTest, DoublingPastTheLimitStopsWithTheLastCountUsed) {
    s.perCall = {100, 300};
    m_tool.m_funcLoop = scriptedLoop;
    m_tool.m_funcClocks = 50;
    EXPECT_EQ(m_tool.continueIterations(INT_MAX, INT_MAX), KV_ACCURWRN);
    EXPECT_THAT(s.loops, ElementsAre(kvTool::MAX_LOOPS));
    s.loops.clear();
    m_tool.m_funcClocks = 50;
    EXPECT_EQ(m_tool.continueIterations(kvTool::MAX_LOOPS / 2, INT_MAX), KV_ACCURWRN);
    EXPECT_THAT(s.loops, ElementsAre(kvTool::MAX_LOOPS / 2, kvTool::MAX_LOOPS));
}

TEST_F(KvToolTest, BadStatusInSearchFallsBackToHalfTheCount) {
    m_tool.m_ibsMode = true;
    s.zeroDivideAt = 1;
    s.perCall = {100};
    EXPECT_EQ(m_tool.timing(scriptedLoop, 0, 0, countingInit), KV_OK);
    EXPECT_EQ(s.loops, (std::vector<int>{1, 4, 2, 2, 2, 2, 2}));
    EXPECT_EQ(s.inits, 7);   // before every measurement in this mode
    EXPECT_STREQ(m_tool.m_comment.c_str(), "nLps=2");
    std::string out = output();
    EXPECT_THAT(out, HasSubstr("-- Status    SSX: "));
    EXPECT_THAT(out, HasSubstr("-- Attempting to avoid bad control status\n-- Attempt is successful\n"));
}

TEST_F(KvToolTest, ManualWithOnlyCallKeepsWarmUpOutsideTheBracket) {
    m_tool.setMethodLoop(10);
    EXPECT_EQ(m_tool.timing(0, 0, slowFirstCall, countingInit), KV_OK);
    const long long returned = vdl_get_cpu_counter();
    EXPECT_EQ(s.calls, 11);
    EXPECT_EQ(s.inits, 11);
    // The bracket opens after the warm-up returned and closes before timing
    // returns, however busy the machine: a bracket around the warm-up would
    // also hold its 20 million clocks.
    EXPECT_GT(m_tool.m_clocks, 0);
    EXPECT_LE(m_tool.m_clocks, returned - s.warmUpEnd);
    EXPECT_STREQ(m_tool.m_comment.c_str(), "nLps=10");
}

// Manual without a loop or call runs Statistic with its count, and the other
// way round.
TEST_F(KvToolTest, EachMethodFallsBackToTheOtherWithItsCount) {
    m_tool.setMethodLoop(7);
    EXPECT_EQ(m_tool.timing(0, scriptedStat, 0, 0), KV_OK);
    EXPECT_EQ(s.statCalls, 7);
    EXPECT_EQ(s.statClocks, 0);
    EXPECT_EQ(m_tool.m_funcClocks, 100.0);
    m_tool.setMethodStat(12, 5000);
    s.perCall = {30};
    EXPECT_EQ(m_tool.timing(scriptedLoop, 0, 0, 0), KV_OK);
    EXPECT_EQ(s.loops, (std::vector<int>{12}));
    EXPECT_EQ(output(),
              " ATTENTION! The test cannot execute Manual loop timing.\n"
              " Statistic timing will be run instead.\n"
              " ATTENTION! The test cannot execute Statistic timing.\n"
              " Manual loop timing will be run instead.\n");
}

TEST_F(KvToolTest, StatisticThroughCallCountsOnlyTimedPasses) {
    m_tool.setMethodStat(5, 0);
    EXPECT_EQ(m_tool.timing(0, 0, countingCall, countingInit), KV_OK);
    EXPECT_EQ(s.calls, 1 + 2 * 5);   // the warm-up, then two calls a pass
    EXPECT_EQ(s.inits, 1 + 5);
    EXPECT_STREQ(m_tool.m_comment.c_str(), "nCalls=5");
}

TEST_F(KvToolTest, MissingFunctionsOrMethodAreInternalProblems) {
    EXPECT_EQ(m_tool.timing(0, 0, 0, countingInit), KV_FAIL);
    EXPECT_EQ(m_tool.timing(0, scriptedStat, 0, 0), KV_FAIL);  // Auto needs a loop or a call
    // The line numbers are the source's own, so only their form is checked.
    EXPECT_THAT(output(), MatchesRegex(" Internal test problem: The test cannot execute standard timing.\n"
                                       " No one of funcLoop, funcStat or funcCall is registered in the test.\n"
                                       "KV internal error: file api/src/kvtool, line [0-9]+\n"));
    m_tool.m_method = 9;
    EXPECT_EQ(m_tool.timing(scriptedLoop, 0, 0, 0), KV_FAIL);
    EXPECT_THAT(output(), ContainsRegex("KV internal error: file api/src/kvtool, line [0-9]+\n$"));
}

TEST_F(KvToolTest, SetUseTimesTheCallAndIgnoresTheLoop) {
    m_tool.m_setUse = true;
    m_tool.setMethodLoop(10);
    EXPECT_EQ(m_tool.timing(scriptedLoop, 0, countingCall, 0), KV_OK);
    EXPECT_TRUE(s.loops.empty());
    EXPECT_EQ(s.calls, 11);
    // Without a call there is nothing to measure.
    EXPECT_EQ(m_tool.timing(scriptedLoop, 0, 0, 0), KV_UNDEFINED);
    EXPECT_EQ(m_tool.m_funcClocks, 0.0);

    m_tool.setMethodAuto();
    EXPECT_EQ(m_tool.timing(scriptedLoop, 0, 0, 0), KV_ACCURFAIL);
    EXPECT_TRUE(s.loops.empty());
}

kvResult oldForm(kvTool& tool, int loops) {
    s.loops.push_back(loops);
    tool.m_clocks = 250LL * loops;
    return KV_OK;
}

TEST_F(KvToolTest, OldFormLeavesItsCountInTheTool) {
    EXPECT_EQ(m_tool.timing(oldForm), KV_OK);
    EXPECT_EQ(m_tool.m_funcClocks, 250.0);
    EXPECT_EQ(s.loops, (std::vector<int>{1, 4}));
}

}  // namespace
