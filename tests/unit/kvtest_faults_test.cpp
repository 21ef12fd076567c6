// Faults and kills in the middle of a test. A fault of the measured function
// jumps back to run() over the frames of the walk and the timing search,
// without their destructors: those frames must own no memory, which the
// sanitizer build checks with its leak detector. And the text log holds
// each result line of a grid point as soon as it is written, so a kill loses
// at most the line in flight.
#include <gtest/gtest.h>

#include <string>

#include "kvparameter.h"
#include "kvtest.h"
#include "kvticker.h"
#include "testutil.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
// Leaks found so far in this process; 0 where leak detection is off.
static int leaksNow() { return __lsan_do_recoverable_leak_check(); }
#else
static int leaksNow() { return 0; }
#endif

namespace {

int g_calls = 0;
int g_faultAt = -1;  // loop call that faults
int g_perCall[] = {100, 180};
StreamCapture<kvOStream>* g_log = 0;  // its file as it stands on disk at the fault
std::string g_logAtFault;

kvResult faultingLoop(int loops, long long* clocks) {
    if (g_calls++ == g_faultAt) {
        if (g_log) g_logAtFault = g_log->onDisk();
        asm volatile("movl $1, (%0)" : : "r"((int*)nullptr) : "memory");
    }
    // Figures that never agree, so that the search goes through all stages.
    *clocks = (long long)g_perCall[g_calls % 2] * loops;
    return KV_OK;
}

kvResult faultingStat(int* calls, long long* clocks) {
    asm volatile("movl $1, (%0)" : : "r"((int*)nullptr) : "memory");
    *calls = 1;
    *clocks = 1;
    return KV_OK;
}

// A grid of three points, so that the walk and its trace text are alive
// when the fault comes.
class GridTest : public kvTest {
public:
    GridTest() : kvTest(faultingLoop, faultingStat, "faulting", "f", "TimFault//KV_REG") {}
    bool canStart() override {
        p.reset();
        p.init("P", 1, 3, 1, (StepOprtn)'+');
        m_parms.insert(m_parms.end(), &p);
        return true;
    }
    kvStepIterator<int> p;
};

class KvTestFaults : public ::testing::Test {
protected:
    void SetUp() override {
        kvCpuTicker::setFreq(1000);
        g_tool = kvTool();
        g_ostrm.setOutLevel(7);
        kvTest::m_numParmsColm = 3;
        kvTest::m_numResultColm = 5;
        g_calls = 0;
        g_faultAt = -1;
        g_log = 0;
        g_logAtFault.clear();
    }
    void TearDown() override {
        g_tool = kvTool();
        g_log = 0;
    }

    StreamCapture<kvOStream> m_log{g_ostrm, "log.txt"};
};

size_t count(const std::string& text, const char* what) {
    size_t n = 0;
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
    return n;
}

}  // namespace

TEST_F(KvTestFaults, FaultAtAnyStageOfEveryMethodLeaksNothing) {
    GridTest test;
    // Auto: the prior measurement, the doubling, the repeats.
    for (int at : {0, 1, 3, 9, 13, 20}) {
        g_calls = 0;
        g_faultAt = at;
        EXPECT_EQ(KV_EXCPTFAIL, test.run()) << "fault at loop call " << at;
    }
    g_tool.setMethodBest(2, 64, 10);
    g_calls = 0;
    g_faultAt = 4;
    EXPECT_EQ(KV_EXCPTFAIL, test.run());
    g_tool.setMethodLoop(8);
    g_calls = 0;
    g_faultAt = 2;  // the third grid point
    EXPECT_EQ(KV_EXCPTFAIL, test.run());
    g_tool.setMethodStat(4, 100);
    EXPECT_EQ(KV_EXCPTFAIL, test.run());

    EXPECT_EQ(leaksNow(), 0);
    EXPECT_TRUE(contains(m_log.text(), "--VDL. Signal: Illegal storage access. in vdlFunctionCalls\n"));
}

TEST_F(KvTestFaults, ResultLineOfEachGridPointIsInTheFileAtOnce) {
    g_log = &m_log;
    GridTest test;
    g_tool.setMethodLoop(8);
    g_faultAt = 2;  // the third point faults, as a kill would end the run there
    EXPECT_EQ(KV_EXCPTFAIL, test.run());

    // The two points before it stand in the file whole, without any flush
    // at the end of the test.
    EXPECT_EQ(count(g_logAtFault, "perf="), 2u) << g_logAtFault;
    ASSERT_FALSE(g_logAtFault.empty());
    EXPECT_EQ(g_logAtFault.back(), '\n');
}
