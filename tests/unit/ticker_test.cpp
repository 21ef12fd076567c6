// Clocks and priority: the stopwatch sums, the usual-frequency rule, the OS
// timer, and the priority bracket leaving the process as it found it.
#include <gtest/gtest.h>

#include <sched.h>
#include <sys/resource.h>
#include <unistd.h>

#include <ctime>
#include <fstream>
#include <string>

#include "kvticker.h"

namespace {

void spin(int n) {
    volatile unsigned sink = 0;
    for (int i = 0; i < n; ++i)
        sink = sink + (unsigned)i;
}

struct ProcessPriority {
    int nice, policy, rtPriority;
    static ProcessPriority current() {
        sched_param p;
        sched_getparam(0, &p);
        return {getpriority(PRIO_PROCESS, 0), sched_getscheduler(0), p.sched_priority};
    }
    bool operator==(const ProcessPriority& o) const {
        return nice == o.nice && policy == o.policy && rtPriority == o.rtPriority;
    }
};

}  // namespace

TEST(CpuTicker, SumsIntervalsButNotTheGapAndStartClears) {
    kvCpuTicker t;
    t.stop();  // an off without an on adds nothing
    EXPECT_EQ(0, t.getTicks());
    long long begin = vdl_get_cpu_counter();
    t.on();
    spin(10000);
    t.off();
    long long first = t.getTicks();
    long long gapBegin = vdl_get_cpu_counter();
    spin(100000);
    long long gap = vdl_get_cpu_counter() - gapBegin;
    t.on();
    spin(10000);
    t.off();
    long long end = vdl_get_cpu_counter();
    t.off();

    EXPECT_EQ(2, t.getOnCount());
    EXPECT_GT(first, 0);
    EXPECT_GT(t.getTicks(), first);
    EXPECT_LE(t.getTicks(), end - begin - gap);

    t.start();
    EXPECT_EQ(0, t.getOnCount());
    EXPECT_EQ(0, t.m_ticks);
}

TEST(UsualFrequency, NearestWithinThreePercentElseAsMeasured) {
    const struct {
        int measured, expected;
    } cases[] = {
        {1003, 1000}, {3100, 3060}, {61, 60}, {2800, 2800},  // within 3%
        {2230, 2200}, {2515, 2500}, {1950, 1900},            // midway: the lower one
        {3200, 3200}, {700, 700},                            // nearest is above 3% away
        {5000, 5000}, {40000, 40000}, {0, 0}};               // more than 1000 from all
    for (const auto& c : cases)
        EXPECT_EQ(c.expected, nearestUsualFreqMHz(c.measured)) << c.measured;
}

TEST(OSTimer, ClockPathWithoutDevice) {
    if (g_rtc.m_fd != -1)
        GTEST_SKIP() << "a real-time clock device is open";
    EXPECT_FALSE(g_rtc.m_running);
    OSTimer timer;
    EXPECT_EQ(1000000, timer.getOSFreq());
    // A wall clock: a sleep counts as much as work.
    timer.start();
    usleep(50000);
    timer.stop();
    EXPECT_GE(timer.getSec(), 0.05);
    EXPECT_LT(timer.getSec(), 5.0);
}

// Whether this process may raise its priority again once lowered: root
// in a container may lack the capability (CAP_SYS_NICE, bit 23).
bool mayRaisePriority() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.compare(0, 7, "CapEff:") == 0)
            return (std::stoull(line.substr(7), nullptr, 16) >> 23) & 1;
    return false;
}

// As root the levels really change the process; otherwise nothing may change.
// The low level is left out where its change could not be undone.
TEST(Priority, BracketRestoresWhatItChanged) {
    const bool root = getuid() == 0;
    ProcessPriority before = ProcessPriority::current();
    for (int level = 0; level <= 4; ++level) {
        if (level == 3 && root && !mayRaisePriority()) continue;
        kvSetPriority(level);
        ProcessPriority inside = ProcessPriority::current();
        kvResetPriority();
        EXPECT_TRUE(before == ProcessPriority::current()) << "level " << level;
        if (!root || level == 0 || level == 4) {
            EXPECT_TRUE(before == inside) << "level " << level;
        } else if (level == 3) {
            EXPECT_EQ(10, inside.nice);
        }
    }
    kvResetPriority();  // nothing saved: nothing to restore
    EXPECT_TRUE(before == ProcessPriority::current());
}

// Takes the two seconds of the real estimate, at raised priority when root.
TEST(Frequency, EstimateIsPlausibleAndRestoresPriority) {
    ProcessPriority before = ProcessPriority::current();
    int mhz = estimateCpuFreqMHz();
    EXPECT_TRUE(before == ProcessPriority::current());
    EXPECT_GT(mhz, 100);
    EXPECT_LT(mhz, 20000);

    kvCpuTicker::setFreq(1234);  // a known frequency skips the estimate
    EXPECT_EQ(1234, kvCpuTicker::getFreq());
    kvCpuTicker::setFreq(0);
}
