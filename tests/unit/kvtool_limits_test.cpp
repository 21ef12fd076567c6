// Loop counts of the timing engine at the top of their range: the settings
// and the search's products stop at kvTool::MAX_LOOPS instead of wrapping.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <vector>

#include "kvstream.h"
#include "kvtest.h"
#include "kvtool/kvtool.h"

namespace {

// Each loop call reports the next figure of the script (the last repeats)
// and records the count it was asked for.
std::vector<double> g_perCall;
std::vector<int> g_loops;

kvResult scriptedLoop(int loops, long long* clocks) {
    size_t i = std::min(g_loops.size(), g_perCall.size() - 1);
    g_loops.push_back(loops);
    *clocks = (long long)(g_perCall[i] * loops);
    return KV_OK;
}

class KvToolLimits : public ::testing::Test {
protected:
    void SetUp() override {
        g_ostrm.setOutLevel(ERR);
        g_perCall.clear();
        g_loops.clear();
        kvTest::initCtrlStatus();
        kvTest::clearCtrlStatus();
    }

    // True when every count asked for was positive and within the limit.
    static bool countsInRange() {
        for (int n : g_loops)
            if (n < 1 || n > kvTool::MAX_LOOPS) return false;
        return !g_loops.empty();
    }

    kvTool m_tool;
};

}  // namespace

TEST_F(KvToolLimits, SettingsAreHeldToTheLimitAndKeepTheirRatio) {
    m_tool.setMethodBest(2000000000, 2048, 10);
    EXPECT_EQ(m_tool.m_startLoops, kvTool::MAX_LOOPS / 8);
    EXPECT_EQ(m_tool.m_maxLoops, kvTool::MAX_LOOPS);

    m_tool.setMethodBest(INT_MAX, INT_MAX, 10);
    EXPECT_EQ(m_tool.m_startLoops, kvTool::MAX_LOOPS / 8);
    EXPECT_EQ(m_tool.m_maxLoops, kvTool::MAX_LOOPS);

    m_tool.setMethodBest(3, INT_MAX, 10);
    EXPECT_EQ(m_tool.m_maxLoops, kvTool::MAX_LOOPS);

    m_tool.setMethodBest(INT_MIN, 2048, 10);
    EXPECT_EQ(m_tool.m_startLoops, 1);
    EXPECT_EQ(m_tool.m_maxLoops, 2048);

    EXPECT_EQ(kvTool::loopProduct(4, kvTool::MAX_LOOPS), kvTool::MAX_LOOPS);
    EXPECT_EQ(kvTool::loopProduct(INT_MAX, 10), kvTool::MAX_LOOPS);
    EXPECT_EQ(kvTool::loopProduct(10, 2048), 20480);
}

TEST_F(KvToolLimits, IterativeFromTheHighestStartEndsAtTheLimit) {
    // Every figure disagrees with the one before: the search doubles to the
    // limit, repeats there and would go on at four times the count.
    for (int i = 0; i < 20; ++i) g_perCall.push_back(i % 2 ? 200 : 100);
    m_tool.setMethodBest(INT_MAX, INT_MAX, 10);
    EXPECT_EQ(m_tool.timing(scriptedLoop, 0, 0, 0), KV_ACCURWRN);
    EXPECT_TRUE(countsInRange());
    EXPECT_EQ(g_loops.front(), kvTool::MAX_LOOPS / 8);
    EXPECT_EQ(g_loops.back(), kvTool::MAX_LOOPS);
    EXPECT_EQ(m_tool.m_numLoops, kvTool::MAX_LOOPS);
    EXPECT_STREQ(m_tool.m_comment.c_str(), "nLps=16777216 acc=50.0%");
}

TEST_F(KvToolLimits, DoublingPastTheLimitStopsWithTheLastCountUsed) {
    g_perCall = {100, 300};
    m_tool.m_funcLoop = scriptedLoop;
    m_tool.m_funcClocks = 50;
    EXPECT_EQ(m_tool.continueIterations(INT_MAX, INT_MAX), KV_ACCURWRN);
    EXPECT_EQ(g_loops, std::vector<int>{kvTool::MAX_LOOPS});
    EXPECT_EQ(m_tool.m_numLoops, kvTool::MAX_LOOPS);

    g_loops.clear();
    m_tool.m_funcClocks = 50;
    EXPECT_EQ(m_tool.continueIterations(kvTool::MAX_LOOPS / 2, INT_MAX), KV_ACCURWRN);
    EXPECT_EQ(g_loops, (std::vector<int>{kvTool::MAX_LOOPS / 2, kvTool::MAX_LOOPS}));
}

TEST_F(KvToolLimits, RepeatTimingWithoutFiguresMeasuresNothing) {
    m_tool.m_funcLoop = scriptedLoop;
    m_tool.m_numLoops = 8;
    g_perCall = {100};
    EXPECT_EQ(m_tool.repeatTiming(8, 0), KV_OK);
    EXPECT_TRUE(g_loops.empty());
}
