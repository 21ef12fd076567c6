// Clocks and priority: the time stamp counter, the real-time clock device and
// the OS timer over it, the one-off frequency estimate, and the priority
// bracket around a measurement.
#include "kvticker.h"

#include <fcntl.h>
#include <linux/rtc.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "kvcpuprobe.h"

long long vdl_get_cpu_counter() {
    unsigned lo, hi;
    __asm__ __volatile__("rdtsc" : "=a"(lo), "=d"(hi));
    return (long long)(((unsigned long long)hi << 32) | lo);
}

int kvCpuTicker::m_freqMHz = 0;

int kvCpuTicker::getFreq() {
    if (m_freqMHz == 0)
        m_freqMHz = estimateCpuFreqMHz();
    return m_freqMHz;
}

namespace {

// A failing clock device leaves no trustworthy time base: stop the process.
[[noreturn]] void clockDeviceFails(const char* text) {
    int code = errno;
    perror(text);
    exit(code);
}

bool isRoot() { return getuid() == 0; }

}  // namespace

int LinuxRTClock::INT_PER_SEC = 8192;

LinuxRTClock g_rtc;

// Only root may raise the interrupt rate; everyone else uses the system's
// monotonic wall clock.
LinuxRTClock::LinuxRTClock() : m_fd(-1), m_running(false) {
    if (isRoot())
        m_fd = open("/dev/rtc", O_RDONLY);
    if (m_fd != -1) {
        if (ioctl(m_fd, RTC_IRQP_SET, (unsigned long)INT_PER_SEC) == -1)
            clockDeviceFails("\n-- kvCpuTicker. ioctl: Setting of IRQ rate fails\n");
        if (ioctl(m_fd, RTC_PIE_ON, 0) == -1)
            clockDeviceFails("\n-- kvCpuTicker. ioctl: Enabling of periodic interrupts fails\n");
        m_running = true;
    }
}

LinuxRTClock::~LinuxRTClock() {
    if (m_fd != -1) {
        m_running = false;
        if (ioctl(m_fd, RTC_PIE_OFF, 0) == -1)
            clockDeviceFails("\n-- kvCpuTicker. ioctl: Disabling of periodic interrupts fails\n");
        close(m_fd);
    }
}

// Without the device: microseconds of the monotonic wall clock, which goes
// on while the process waits for a core (processor time would not), and
// which no clock adjustment slews. With the device, a read blocks until the
// next interrupt and returns the count of interrupts since the last read in
// its upper 24 bits.
void OSTimer::GetCounter(long long* p) {
    if (g_rtc.m_fd == -1) {
        timespec now;
        clock_gettime(CLOCK_MONOTONIC_RAW, &now);
        *p = (long long)now.tv_sec * 1000000 + now.tv_nsec / 1000;
    } else if (g_rtc.m_running) {
        unsigned data = 0;
        if (read(g_rtc.m_fd, &data, sizeof(data)) == -1)
            clockDeviceFails("\n-- OSTimer. read: Reading of TRC data fails\n");
        *p = data >> 8;
    } else {
        *p = 0;
    }
}

long long OSTimer::getOSFreq() {
    m_osFreq = g_rtc.m_fd == -1 ? 1000000 : LinuxRTClock::INT_PER_SEC;
    return m_osFreq;
}

double OSTimer::getSec() {
    float ticks = (float)(m_stopCounter - m_startCounter);
    return ticks / (double)getOSFreq();
}

namespace {

// The counter read at once after the timer started: retried while a
// preemption between the two readings shows as more than a few
// microseconds, so that neither end of the estimate is off by a time slice.
long long startTogether(OSTimer& timer) {
    long long t0 = 0;
    for (int tries = 0; tries < 20; ++tries) {
        timer.start();
        t0 = vdl_get_cpu_counter();
        long long check = 0;
        timer.GetCounter(&check);
        if (check - timer.m_startCounter <= 5) break;
    }
    return t0;
}

long long stopTogether(OSTimer& timer) {
    long long t1 = 0;
    for (int tries = 0; tries < 20; ++tries) {
        long long check = 0;
        timer.GetCounter(&check);
        t1 = vdl_get_cpu_counter();
        timer.stop();
        if (timer.m_stopCounter - check <= 5) break;
    }
    return t1;
}

}  // namespace

int estimateCpuFreqMHz() {
    return nearestUsualFreqMHz(measureCpuFreqMHz());
}

// With the clock device the busy wait lasts two seconds of time(); with the
// exact wall clock a quarter of a second of it gives the same precision.
int measureCpuFreqMHz() {
    if (!vdl_has_rdtsc())
        return 0;
    kvSetPriority(1);
    OSTimer timer;
    long long ticks = 0;
    if (g_rtc.m_fd == -1) {
        const long long t0 = startTogether(timer);
        long long now = timer.m_startCounter;
        while (now - timer.m_startCounter < 250000)
            timer.GetCounter(&now);
        ticks = stopTogether(timer) - t0;
    } else {
        timer.start();
        long long t0 = vdl_get_cpu_counter();
        time_t begin = time(0);
        while (difftime(time(0), begin) < 2.0) {
        }
        ticks = vdl_get_cpu_counter() - t0;
        timer.stop();
    }
    kvResetPriority();

    float clocks = (float)(ticks * kvCpuTicker::getClockFactor());
    double usec = timer.getUSec();
    if (usec <= 0.0)
        return 0;
    return (int)(clocks / usec + 0.5);
}

int nearestUsualFreqMHz(int mhz) {
    static const int mhz_grid[] = {
        60,   66,   75,   90,   100,  120,  133,  150,  166,  185,  200,  220,  240,
        266,  300,  333,  400,  450,  500,  530,  550,  600,  800,  1000, 1400, 1700,
        1800, 1900, 2000, 2200, 2260, 2400, 2500, 2530, 2600, 2660, 2800, 3060};
    int bestDistance = 1000;
    int best = mhz;
    // Only a strictly smaller distance replaces, so a tie keeps the lower value.
    for (int value : mhz_grid) {
        int distance = abs(mhz - value);
        if (distance < bestDistance) {
            bestDistance = distance;
            best = value;
        }
    }
    if (mhz > 0 && (double)bestDistance / mhz < 0.03)
        return best;
    return mhz;
}

// Priority. Only root may raise it, so for anyone else every call is a no-op.
// Failures of the scheduling calls are deliberately not checked: a measurement
// at normal priority is still a measurement.
namespace {

int _prio = 0;
int _policy = SCHED_OTHER;
sched_param _param;
bool _bSavedPrio = false;

void _savePriority() {
    if (!isRoot())
        return;
    _prio = getpriority(PRIO_PROCESS, 0);
    _policy = sched_getscheduler(0);
    sched_getparam(0, &_param);
}

void _resetPriority() {
    if (!isRoot())
        return;
    setpriority(PRIO_PROCESS, 0, _prio);
    sched_setscheduler(0, _policy, &_param);
}

void _setHighPriority() {
    if (!isRoot())
        return;
    setpriority(PRIO_PROCESS, 0, -20);
    int p = sched_get_priority_max(SCHED_FIFO);
    if (p != -1) {
        sched_param param;
        param.sched_priority = p;
        sched_setscheduler(0, SCHED_RR, &param);
    }
}

void setOtherPolicy(int nice) {
    setpriority(PRIO_PROCESS, 0, nice);
    sched_param param;
    param.sched_priority = 0;
    sched_setscheduler(0, SCHED_OTHER, &param);
}

void _setNormalPriority() {
    if (isRoot())
        setOtherPolicy(0);
}

void _setLowPriority() {
    if (isRoot())
        setOtherPolicy(10);
}

}  // namespace

void kvSetPriority(int priority) {
    if (priority == 0) {
        _bSavedPrio = false;
        return;
    }
    _bSavedPrio = true;
    _savePriority();
    switch (priority) {
    case 1: _setHighPriority(); break;
    case 2: _setNormalPriority(); break;
    case 3: _setLowPriority(); break;
    default: break;
    }
}

void kvResetPriority() {
    if (_bSavedPrio) {
        _bSavedPrio = false;
        _resetPriority();
    }
}

int kvGetNumOfProcessors() {
    long n = sysconf(_SC_NPROCESSORS_ONLN);
    return n < 1 ? 1 : (int)n;
}
