// Clocks: the time stamp counter, the stopwatch kvCpuTicker, the slow OS
// timer used once to find the processor frequency, and process priority.
#ifndef KV_TICKER_H
#define KV_TICKER_H

// Reads the processor's time stamp counter, with no serialising instruction.
long long vdl_get_cpu_counter();

class kvCpuTicker {
public:
    kvCpuTicker() : m_stopped(true), m_off(true), m_startCount(0), m_ticks(0), m_onCount(0) {}
    void start() { m_stopped = true; on(); }
    void stop() { off(); m_stopped = true; }
    // The counter is read last in on() and first in off(), so that the
    // bookkeeping lies outside the interval.
    void on() {
        if (m_stopped) { m_ticks = 0; m_onCount = 0; m_stopped = false; }
        m_off = false;
        m_startCount = vdl_get_cpu_counter();
    }
    void off() {
        long long now = vdl_get_cpu_counter();
        if (!m_off) { m_ticks += now - m_startCount; m_off = true; ++m_onCount; }
    }
    long long getTicks() const { return m_ticks * getClockFactor(); }
    int getOnCount() const { return m_onCount; }
    static int getFreq();
    static int getClockFactor() { return 1; }
    // Sets the frequency, so that a test or a tool can skip the estimate.
    static void setFreq(int mhz) { m_freqMHz = mhz; }

    bool m_stopped;
    bool m_off;
    long long m_startCount;
    long long m_ticks;
    int m_onCount;
    static int m_freqMHz;
};

class LinuxRTClock {
public:
    LinuxRTClock();
    ~LinuxRTClock();
    int m_fd;
    bool m_running;
    static int INT_PER_SEC;
};
extern LinuxRTClock g_rtc;

class OSTimer {
public:
    OSTimer() : m_startCounter(0), m_stopCounter(0), m_osFreq(0) {}
    void start() { GetCounter(&m_startCounter); }
    void stop() { GetCounter(&m_stopCounter); }
    void GetCounter(long long* p);
    long long getOSFreq();
    double getSec();
    double getUSec() { return getSec() * 1000000.0; }
    long long m_startCounter;
    long long m_stopCounter;
    long long m_osFreq;
};

// The frequency in MHz, measured over a busy wait against the wall clock and
// taken to the nearest usual frequency; 0 without rdtsc.
int estimateCpuFreqMHz();
// The same measurement as it came out, before the usual frequencies.
int measureCpuFreqMHz();
// The usual frequency nearest to `mhz` when it lies within 3%, else `mhz`.
int nearestUsualFreqMHz(int mhz);

void kvSetPriority(int priority);
void kvResetPriority();
int kvGetNumOfProcessors();

#endif
