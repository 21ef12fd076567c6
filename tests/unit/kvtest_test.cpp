// The life of a test: one pass without parameters, the odometer, failures and
// warnings of single sets, faults inside a measured function, number formats.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "kv/kvsession.h"
#include "kvconditions.h"
#include "kvcstream.h"
#include "kvparameter.h"
#include "kvtest.h"
#include "kvticker.h"
#include "testutil.h"

#include <gmock/gmock.h>

using ::testing::HasSubstr;

namespace {

// Captures what g_ostrm and g_cstrm write during one test of this file.
class Capture {
public:
    std::string text() { return m_text.text(); }
    std::string table() { return m_table.text(); }

private:
    StreamCapture<kvOStream> m_text{g_ostrm, "log.txt"};
    StreamCapture<kvCStream> m_table{g_cstrm, "table.csv"};
};

int g_calls = 0;
long long g_clocksPerLoop = 1000;

kvResult fixedLoop(int loops, long long* clocks) {
    g_calls += loops;
    *clocks = g_clocksPerLoop * loops;
    return KV_OK;
}

kvResult failingLoop(int, long long* clocks) {
    *clocks = 100;
    return KV_FUNCFAIL;
}

// A write through a null pointer, in assembly so that no sanitizer steps in
// before the fault.
kvResult segvLoop(int, long long*) {
    asm volatile("movl $1, (%0)" : : "r"((int*)nullptr) : "memory");
    return KV_OK;
}

class KvTestLifecycle : public ::testing::Test {
protected:
    void SetUp() override {
        kvCpuTicker::setFreq(1000);
        g_tool = kvTool();
        g_tool.setMethodLoop(4);
        g_ostrm.setOutLevel(7);
        kvTest::m_numParmsColm = 3;
        kvTest::m_numResultColm = 5;
        kvTest::m_hot = 0;
        g_calls = 0;
        g_clocksPerLoop = 1000;
    }
};

TEST_F(KvTestLifecycle, PlainTestMakesOnePassWithOneTableRow) {
    Capture cap;
    kvTest test(fixedLoop, (funcStat)0, "plainFunction", "dir/p_plain_au", "TimPlain//KV_REG");
    EXPECT_EQ(KV_OK, test.run());
    EXPECT_EQ(KV_OK, test.m_result);
    EXPECT_EQ(4, g_calls);  // the Manual method: one bracket of four loops
    std::string table = cap.table();
    EXPECT_EQ("plainFunction,-,-,nLps=4,1000, ,1,-\n", table);
    EXPECT_THAT(cap.text(), HasSubstr("| -OK         plainFunction"));
    EXPECT_EQ("p_plain_au", std::string(test.m_file.c_str()));
}

TEST_F(KvTestLifecycle, FailingSetStopsTheWalkAndWritesNoRow) {
    Capture cap;
    kvTest test(failingLoop, (funcStat)0, "failing", "f", "TimFail//KV_REG");
    EXPECT_EQ(KV_FUNCFAIL, test.run());
    EXPECT_EQ("", cap.table());
    EXPECT_THAT(cap.text(), HasSubstr("-- lib function error on test parameters:"));
}

// Two step iterators walked as an odometer: the later one varies fastest.
class GridTest : public kvTest {
public:
    GridTest() : kvTest(fixedLoop, (funcStat)0, "grid", "g", "TimGrid//KV_REG") {}
    bool canStart() override {
        a.reset();
        a.init("A", 1, 2, 1, (StepOprtn)'+');
        b.reset();
        b.init("B", 10, 30, 10, (StepOprtn)'+');
        m_parms.insert(m_parms.end(), &a);
        m_parms.insert(m_parms.end(), &b);
        return true;
    }
    bool initData() override {
        seen << a.value() << "/" << b.value() << " ";
        return !(a.value() == 1 && b.value() == 10) || !skipFirst;
    }
    void constToOstrm() override { constants++; }
    kvStepIterator<int> a, b;
    kvString seen;
    int constants = 0;
    bool skipFirst = false;
};

TEST_F(KvTestLifecycle, OdometerOrderAndConstantsOnce) {
    Capture cap;
    GridTest test;
    test.skipFirst = true;
    EXPECT_EQ(KV_OK, test.run());
    EXPECT_STREQ("1/10 1/20 1/30 2/10 2/20 2/30 ", test.seen.c_str());
    EXPECT_EQ(1, test.constants);
    // Five measured sets, each a row with both parameter cells.
    std::string table = cap.table();
    EXPECT_EQ(5, (int)std::count(table.begin(), table.end(), '\n'));
    EXPECT_EQ(0u, table.find("grid,1,20,nLps=4,"));
}

// A test whose canStart leaves a parameter without values, refuses, or throws
// on a '+' iterator with a negative step.
class Unstartable : public kvTest {
public:
    enum Fault { EMPTY, REFUSED, THROWS };
    explicit Unstartable(Fault f)
        : kvTest(fixedLoop, (funcStat)0, "unstartable", "u", "TimU"), m_f(f) {}
    bool canStart() override {
        p.reset();
        if (m_f == THROWS) p.init("P", 1, 10, -1, (StepOprtn)'+');
        m_parms.insert(m_parms.end(), &p);
        return m_f != REFUSED;
    }
    kvStepIterator<int> p;
    Fault m_f;
};

// Each ends the test before any measurement, with its reason in the log.
TEST_F(KvTestLifecycle, TestsThatCannotStartMeasureNothing) {
    const struct {
        Unstartable::Fault fault;
        kvResult result;
        const char* message;
    } cases[] = {
        {Unstartable::EMPTY, KV_DATAFAIL, "-- One of argument list for timing is empty\n"},
        {Unstartable::REFUSED, KV_DATAFAIL, "-- Can't start timing\n"},
        {Unstartable::THROWS, KV_EXCPTFAIL,
         "--VDL. Exception: Conflict between iterator limits and operation in canStart\n"},
    };
    for (const auto& c : cases) {
        Capture cap;
        Unstartable test(c.fault);
        EXPECT_EQ(c.result, test.run()) << c.message;
        EXPECT_THAT(cap.text(), HasSubstr(c.message));
        if (c.result == KV_DATAFAIL) {
            EXPECT_THAT(cap.text(), HasSubstr("-DATAFAIL"));
        }
    }
    EXPECT_EQ(0, g_calls);
}

TEST_F(KvTestLifecycle, SignalEndsTestAndNextTestRuns) {
    Capture cap;
    g_ostrm.setOutLevel(3);
    kvTest bad(segvLoop, (funcStat)0, "crashing", "c", "TimCrash");
    EXPECT_EQ(KV_EXCPTFAIL, bad.run());
    EXPECT_EQ(3, g_ostrm.getOutLevel());  // raised to 7 for the measurement, restored
    EXPECT_EQ(KV_EXCPTFAIL, bad.run());   // a second fault is caught the same way
    kvTest good(fixedLoop, (funcStat)0, "healthy", "h", "TimOk");
    EXPECT_EQ(KV_OK, good.run());
}

TEST_F(KvTestLifecycle, CacheKeyWithoutSupportMeasuresNothing) {
    Capture cap;
    kvTest::m_cache = true;
    kvTest test(fixedLoop, (funcStat)0, "nocache", "n", "TimNoCache");
    EXPECT_EQ(KV_UNDEFINED, test.run());
    kvTest::m_cache = false;
    EXPECT_EQ(0, g_calls);
    EXPECT_THAT(cap.text(), HasSubstr("-- Can't run In-Outof-Cache timing: no program support for "
                              "function nocache\n"));
}

TEST(KvTestFormat, FormatClocksRanges) {
    kvTest t((funcLoop)0, (funcStat)0, "x", "x", "x");
    const struct {
        double clocks;
        const char* text;
    } cases[] = {{0, ""},           {-3, ""},           {100, "100"},          {99.96, "100.0"},
                 {1e7, "10000000"}, {1e7 + 1, "1.000e+07"}, {5, "5.00"},       {0.5, "0.500"},
                 {0.0005, "0.000500"}, {0.00005, "5.000e-05"}};
    for (const auto& c : cases) EXPECT_STREQ(c.text, t.formatClocks(c.clocks).c_str()) << c.clocks;
}

TEST(KvTestFormat, SFormatPadsAndNeverCuts) {
    EXPECT_STREQ("ab   ", sFormat(kvString("ab"), -5).c_str());
    EXPECT_STREQ("abcdef", sFormat(kvString("abcdef"), 3).c_str());
    EXPECT_STREQ("  1.5", sFormat(1.5, 5).c_str());
    EXPECT_STREQ("12345", sFormat(12345, 3).c_str());  // short enough to stay decimal
    EXPECT_STREQ("1.23e+09", sFormat(1234567890, 3).c_str());
}

TEST(KvTestFormat, RegInfoNamesTheMethod) {
    kvTest none((funcLoop)0, (funcStat)0, "x", "x", "TimX//KV_REG");
    EXPECT_STREQ("   Test has been registered by KV_REG macro without any function to call.\n"
                 " No standard timing method is available",
                 none.regInfo().c_str());
}

}  // namespace
