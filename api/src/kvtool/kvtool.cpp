#include "kvtool.h"

#include <climits>
#include <vector>

#include "../kvfpstate.h"
#include "../kvstream.h"
#include "../kvtest.h"
#include "../kvticker.h"

kvTool g_tool;
int kvTool::m_priority = 0;

// ---------------------------------------------------------------------------
// File-local helpers

// Writes text at INFO when that level may pass, and always empties it, so the
// callers can build the next message in the same string.
static void writeInfo(kvString& text) {
    if (g_ostrm.beginMessage(INFO)) {
        g_ostrm << text;
        g_ostrm.endMessage();
    }
    text = "";
}

static void internalError(int line) {
    g_ostrm << ERR << "KV internal error: file " << "api/src/kvtool" << ", line " << line << "\n"
            << endMsgFlush;
}

static bool badCtrlStatus() {
    bool bad87 = false, badSSX = false;
    return kvTest::badCtrlStatus(bad87, badSSX);
}

static void printBadCtrlStatus(bool flag) {
    bool bad87 = false, badSSX = false;
    if (flag && kvTest::badCtrlStatus(bad87, badSSX)) kvTest::printCtrlStatus(bad87, badSSX);
}

// The floating-point bracket around one run of the measured function: the
// x87 flags are cleared here, the MXCSR flags gather over the whole set.
static void ctrlStart() {
    g_ctrl87.start();
    g_ssx.start();
}

static void ctrlStop() {
    g_ctrl87.stop();
    g_ssx.stop();
}

// The adapter for the old form of test function, which leaves its count in
// the tool instead of returning it.
static funcOld _funcOld = 0;
static kvTool* _pTool = 0;

static kvResult _funcLoop(int loops, long long* clocks) {
    kvResult r = _funcOld(*_pTool, loops);
    *clocks = _pTool->m_clocks * kvCpuTicker::getClockFactor();
    return r;
}

// ---------------------------------------------------------------------------
// Settings

kvTool::kvTool()
    : m_result(KV_UNDEFINED),
      m_funcClocks(0),
      m_numLoops(0),
      m_accuracy(0.05),
      m_method(KV_METHOD_AUTO),
      m_loopNum(10),
      m_startLoops(1),
      m_maxLoops(2048),
      m_setUse(false),
      m_minClocks(100),
      m_statCalls(12),
      m_statClocks(10000),
      m_ibsMode(false),
      m_checkBadStatus(false),
      m_comment(""),
      m_clocks(0),
      m_achieved(1.0),
      m_funcLoop(0),
      m_funcStat(0),
      m_funcCall(0),
      m_funcInit(0) {}

void kvTool::reset() {
    m_result = KV_UNDEFINED;
    m_funcClocks = 0;
    m_clocks = 0;
    m_numLoops = 0;
    m_achieved = 1.0;
    m_comment = "";
    m_funcLoop = 0;
    m_funcStat = 0;
    m_funcCall = 0;
    m_funcInit = 0;
}

void kvTool::setMethodAuto() { m_method = KV_METHOD_AUTO; }

void kvTool::setMethodLoop(int loops) {
    m_method = KV_METHOD_MANUAL;
    m_loopNum = loops > 1 ? loops : 1;
}

void kvTool::setMethodStat(int calls, long long clocks) {
    m_method = KV_METHOD_STATISTIC;
    m_statCalls = calls;
    m_statClocks = clocks;
}

int kvTool::loopProduct(long long a, long long b) {
    long long p = a * b;   // both factors are ints, so this cannot overflow
    return p > MAX_LOOPS ? MAX_LOOPS : (int)p;
}

// The stop stays at least eight times the start, also at the limit: the
// start is held to an eighth of it.
void kvTool::setMethodBest(int start, int max, long long clocks) {
    m_method = KV_METHOD_ITERATIVE;
    if (start > MAX_LOOPS / 8) start = MAX_LOOPS / 8;
    m_startLoops = start > 1 ? start : 1;
    int least = loopProduct(8, start);
    if (max > MAX_LOOPS) max = MAX_LOOPS;
    m_maxLoops = least > max ? least : max;
    m_minClocks = clocks;
}

bool kvTool::getMethodAuto() const { return m_method == KV_METHOD_AUTO; }

bool kvTool::getMethodLoop(int& loops) const {
    if (m_method != KV_METHOD_MANUAL) return false;
    loops = m_loopNum;
    return true;
}

bool kvTool::getMethodStat(int& calls, long long& clocks) const {
    if (m_method != KV_METHOD_STATISTIC) return false;
    calls = m_statCalls;
    clocks = m_statClocks;
    return true;
}

bool kvTool::getMethodBest(int& start, int& max, long long& clocks) const {
    if (m_method != KV_METHOD_ITERATIVE) return false;
    start = m_startLoops;
    max = m_maxLoops;
    clocks = m_minClocks;
    return true;
}

void kvTool::getAutoParameters(int& start, int& max, long long& clocks) {
    start = 1;
    max = 2048;
    clocks = 10LL * kvCpuTicker::getClockFactor();
}

// ---------------------------------------------------------------------------
// Texts and figures

kvString kvTool::getAccuracyStr(double a) {
    double x = 100 * a;
    return kvString::format(x < 0.1 ? "%.2f%c" : "%.1f%c", x, '%');
}

kvString kvTool::clockStr(long long clocks) {
    // Large counts keep about nine digits, the rest shown as zeros.
    double x = (double)clocks;
    kvString zeros;
    while (x > 2147483647.0) {
        x /= 10;
        zeros << '0';
    }
    kvString text;
    text << (int)x << zeros;
    return text;
}

double kvTool::computeAccuracy(double a, double b) {
    double d = a - b;
    if (d < 0) d = -d;
    return 2 * d / (a + b);
}

double kvTool::computeAccuracy(const double* v, int n) {
    if (n < 1) return 0;
    double mean = 0;
    for (int i = 0; i < n; ++i) mean += v[i];
    mean /= n;
    double worst = 0;
    for (int i = 0; i < n; ++i) {
        double d = v[i] - mean;
        if (d < 0) d = -d;
        if (d / mean > worst) worst = d / mean;
    }
    return worst;
}

double kvTool::computeBest(const double* v, int n) {
    if (n < 1) return 0;
    double best = v[0];
    for (int i = 1; i < n; ++i)
        if (v[i] < best) best = v[i];
    return best;
}

// ---------------------------------------------------------------------------
// Entries

kvResult kvTool::timing(funcLoop loop, funcStat stat, funcCall call, funcInit init) {
    reset();
    if (!loop && !stat && !call) {
        g_ostrm << ERR
                << " Internal test problem: The test cannot execute standard timing.\n"
                   " No one of funcLoop, funcStat or funcCall is registered in the test.\n"
                << endMsgFlush;
        return KV_FAIL;
    }
    m_funcLoop = loop;
    m_funcStat = stat;
    m_funcCall = call;
    m_funcInit = init;

    switch (m_method) {
    case KV_METHOD_MANUAL:
        if (loop || call) {
            KV_TRACED("customLoopTiming", customLoopTiming());
        } else {
            g_ostrm << ERR
                    << " ATTENTION! The test cannot execute Manual loop timing.\n"
                       " Statistic timing will be run instead.\n"
                    << endMsg;
            setMethodStat(m_loopNum, 0);
            return timing(0, stat, 0, init);
        }
        break;
    case KV_METHOD_STATISTIC:
        if (stat || call) {
            KV_TRACED("statisticTiming", statisticTiming());
        } else {
            g_ostrm << ERR
                    << " ATTENTION! The test cannot execute Statistic timing.\n"
                       " Manual loop timing will be run instead.\n"
                    << endMsg;
            setMethodLoop(m_statCalls);
            return timing(loop, 0, 0, init);
        }
        break;
    case KV_METHOD_AUTO:
        KV_TRACED("autoTiming", autoLoopTiming());
        break;
    case KV_METHOD_ITERATIVE:
        KV_TRACED("iterativeTiming", bestTiming(m_startLoops, m_maxLoops, m_minClocks));
        break;
    default:
        internalError(746);
        m_result = KV_FAIL;
        break;
    }
    return m_result;
}

kvResult kvTool::timing(funcOld old) {
    _funcOld = old;
    _pTool = this;
    return timing(_funcLoop, 0, 0, 0);
}

void kvTool::updateResult(kvResult r) {
    if (r > m_result) m_result = r;
}

// ---------------------------------------------------------------------------
// Single measurements

void kvTool::runTimFunc(int loops, double* clocksPerCall) {
    kvResult r = KV_UNDEFINED;
    // A count of zero or less is taken once more: a preempted or too short
    // bracket can read nothing at all.
    for (int attempt = 0; attempt < 2; ++attempt) {
        m_clocks = 0;
        if (m_setUse) {
            if (!m_funcCall) {
                m_result = KV_UNDEFINED;
                return;
            }
            KV_TRACED("vdlFunctionCalls", r = timCall_Loop(loops, &m_clocks, true));
        } else {
            if (m_ibsMode && m_funcInit) KV_TRACED("initFunc call", m_funcInit());
            ctrlStart();
            g_trace.traceIn("vdlFunctionCalls");
            kvSetPriority(m_priority);
            if (m_funcLoop) {
                r = m_funcLoop(loops, &m_clocks);
            } else if (m_funcCall) {
                r = timCall_Loop(loops, &m_clocks, false);
            } else {
                internalError(248);
                r = KV_FAIL;
            }
            kvResetPriority();
            g_trace.traceOut("vdlFunctionCalls");
            ctrlStop();
        }
        updateResult(r);
        if (m_result > KV_WARNING || m_clocks > 0) break;
    }
    *clocksPerCall = (double)m_clocks / (double)loops;
}

void kvTool::runTimFuncStat(long long maxClocks, int* calls, double* clocksPerCall) {
    long long local = maxClocks;
    kvResult r;
    if (m_setUse) {
        if (!m_funcCall) {
            m_result = KV_UNDEFINED;
            return;
        }
        r = timCall_Stat(calls, &local, true);
    } else {
        ctrlStart();
        kvSetPriority(m_priority);
        g_trace.traceIn("vdlFunctionCalls");
        if (m_funcStat)
            r = m_funcStat(calls, &local);
        else
            r = timCall_Stat(calls, &local, false);
        g_trace.traceOut("vdlFunctionCalls");
        kvResetPriority();
        ctrlStop();
    }
    *clocksPerCall = *calls != 0 ? (double)local / (double)*calls : 0.0;
    updateResult(r);
}

kvResult kvTool::timCall_Loop(int loops, long long* clocks, bool reset) {
    if (!m_funcCall) {
        internalError(758);
        return KV_FAIL;
    }
    if (m_funcInit) m_funcInit();
    m_funcCall();

    kvCpuTicker ticker;
    ticker.start();
    for (int i = 0; i < loops; ++i) {
        if (m_funcInit) m_funcInit();
        if (reset) kvTest::resetAllVectors();
        if (m_funcCall() < 0) break;
    }
    ticker.stop();
    *clocks = ticker.getTicks();
    return KV_OK;
}

kvResult kvTool::timCall_Stat(int* calls, long long* clocks, bool reset) {
    if (!m_funcCall) {
        internalError(795);
        return KV_FAIL;
    }
    if (m_funcInit) m_funcInit();
    m_funcCall();

    // The ticker sums the brackets; its first on() starts the sum at zero.
    // The count stops at the int limit, whatever clock sum was asked for.
    kvCpuTicker ticker;
    int count = 0;
    while (!(count >= *calls && ticker.getTicks() >= *clocks) && count < INT_MAX) {
        if (m_funcInit) m_funcInit();
        ticker.on();
        if (reset) kvTest::resetAllVectors();
        m_funcCall();
        ticker.off();
        // Only the first call of a pass is timed; a failing second call
        // ends the sum without its pass.
        if (m_funcCall() < 0) break;
        ++count;
    }
    *calls = count;
    *clocks = ticker.getTicks();
    return KV_OK;
}

// ---------------------------------------------------------------------------
// Methods

void kvTool::customLoopTiming() {
    kvString& text = m_text;
    text << "    Manual method: \n"
         << "        numLoops   = " << m_loopNum << "\n";
    writeInfo(text);

    KV_TRACED("runTimFunc", runTimFunc(m_loopNum, &m_funcClocks));
    m_achieved = 0;
    m_comment = "";
    m_comment << "nLps=" << m_loopNum;

    text << "        funcClocks = " << m_funcClocks << "\n"
         << "        result     = " << kvResultString(m_result) << "\n";
    writeInfo(text);
}

void kvTool::statisticTiming() {
    int n = m_statCalls;
    kvString& text = m_text;
    text << "    Statistical method:\n"
         << "        minCalls   = " << m_statCalls << "\n"
         << "        maxClocks  = " << clockStr(m_statClocks) << "\n";
    writeInfo(text);

    KV_TRACED("runTimFuncStat", runTimFuncStat(m_statClocks, &n, &m_funcClocks));
    m_achieved = 0;
    m_comment = "";
    m_comment << "nCalls=" << n;

    text << "        numCalls   = " << n << "\n"
         << "        funcClocks = " << m_funcClocks << "\n"
         << "        result     = " << kvResultString(m_result) << "\n";
    writeInfo(text);
}

void kvTool::autoLoopTiming() {
    int start, max;
    long long clocks;
    getAutoParameters(start, max, clocks);
    bestTiming(start, max, clocks);
}

kvResult kvTool::startIterations(int loops, long long minClocks) {
    m_numLoops = loops;
    KV_TRACED("runTimFunc", runTimFunc(m_numLoops, &m_funcClocks));
    if (m_result > KV_WARNING) return m_result;
    return (double)minClocks > m_numLoops * m_funcClocks ? KV_ACCURFAIL : KV_OK;
}

kvResult kvTool::continueIterations(int startLoops, int maxLoops) {
    double prev = m_funcClocks;
    if (maxLoops > MAX_LOOPS) maxLoops = MAX_LOOPS;
    // The count doubles in 64 bits: the doubling past a limit near the top of
    // the int range must not wrap.
    long long loops = startLoops < maxLoops ? startLoops : maxLoops;
    while (loops <= maxLoops) {
        m_numLoops = (int)loops;
        KV_TRACED("runTimFunc", runTimFunc(m_numLoops, &m_funcClocks));
        if (!(m_funcClocks > 0)) return KV_ACCURFAIL;
        m_achieved = computeAccuracy(m_funcClocks, prev);
        if (m_checkBadStatus && badCtrlStatus()) {
            // Fall back to the count before, whose figure was still clean.
            m_numLoops /= 2;
            m_funcClocks = prev;
            return KV_BADSTSWRN;
        }
        if (m_achieved <= m_accuracy) return KV_OK;
        prev = m_funcClocks;
        loops *= 2;
    }
    m_numLoops = (int)(loops / 2);
    return KV_ACCURWRN;
}

kvResult kvTool::repeatTiming(int loops, int count) {
    std::vector<double>& figures = m_figures;
    figures.assign(count > 0 ? count : 0, 0.0);
    int first = 0;
    if (loops == m_numLoops && count > 0) {
        figures[0] = m_funcClocks;
        first = 1;
    }
    m_numLoops = loops;

    kvString& text = m_text;
    for (int i = first; i < count; ++i) {
        KV_TRACED("runTimFunc", runTimFunc(m_numLoops, &figures[i]));
        text << "        numLoops   = " << m_numLoops << "\n"
             << "        numClocks  = " << m_clocks << "\n"
             << "        funcClocks = " << figures[i] << "\n";
        writeInfo(text);
    }
    m_achieved = computeAccuracy(figures.data(), count);
    m_funcClocks = computeBest(figures.data(), count);

    kvResult r = m_achieved > m_accuracy ? KV_ACCURWRN : KV_OK;
    if (m_checkBadStatus && badCtrlStatus()) r = KV_BADSTSWRN;

    printBadCtrlStatus(m_checkBadStatus);
    text << "        accuracy   = " << getAccuracyStr(m_achieved) << "\n"
         << "        bestClocks = " << m_funcClocks << "\n"
         << "        result     = " << kvResultString(r) << "\n";
    writeInfo(text);
    return r;
}

void kvTool::bestTiming(int start, int maxLoops, long long minClocks) {
    const int factor = kvCpuTicker::getClockFactor();
    m_checkBadStatus = m_ibsMode;

    kvString& text = m_text;
    text << "    Auto method: start\n"
         << "        minClocks  = " << clockStr(minClocks) << "\n";
    writeInfo(text);

    // Prior measurement: find a count whose clocks reach minClocks; a run too
    // short to measure gets one more chance at ten times the loops.
    kvResult r;
    bool failed = false;
    for (;;) {
        text << "    Prior Measurement: \n"
             << "        numLoops   = " << start << "\n";
        writeInfo(text);
        r = startIterations(start, minClocks);
        text << "        numClocks  = " << m_clocks << "\n"
             << "        funcClocks = " << m_funcClocks << "\n"
             << "        result     = " << kvResultString(r) << "\n";
        writeInfo(text);

        if (r > KV_ACCURFAIL) {
            m_result = r;
            text << "    Auto method: exit\n";
            writeInfo(text);
            return;
        }
        if (r != KV_ACCURFAIL) break;
        if (start > factor) {
            failed = true;
            break;
        }
        start = loopProduct(start, 10);
        maxLoops = loopProduct(maxLoops, 10);
    }

    bool badStatus = false;
    if (!failed && m_numLoops < maxLoops) {
        int next = loopProduct(4, m_numLoops);
        for (;;) {
            text << "    Iteration Measurement: \n"
                 << "        startLoops = " << next << "\n"
                 << "        maxLoops   = " << maxLoops << "\n";
            writeInfo(text);
            r = continueIterations(next, maxLoops);
            text << "        stopLoops  = " << m_numLoops << "\n"
                 << "        stopClocks = " << m_clocks << "\n"
                 << "        accuracy   = " << getAccuracyStr(m_achieved) << "\n"
                 << "        funcClocks = " << m_funcClocks << "\n"
                 << "        result     = " << kvResultString(r) << "\n";
            writeInfo(text);

            if (r == KV_ACCURFAIL) {
                if (next >= factor) {
                    failed = true;
                    break;
                }
                next = loopProduct(next, 10);
                maxLoops = loopProduct(maxLoops, 10);
            } else if (r == KV_BADSTSWRN) {
                badStatus = true;
                break;
            } else {
                // Agreement within 1% stands; otherwise the figure must be
                // confirmed by repeats at the same count.
                if (m_achieved <= 0.01) break;
                text << "    Simple Measurements: \n";
                writeInfo(text);
                r = repeatTiming(m_numLoops, 3);
                if (r != KV_ACCURWRN) break;
                next = loopProduct(4, m_numLoops);
            }
            if (m_numLoops >= maxLoops) break;
        }
    }

    if (failed) {
        m_result = KV_ACCURFAIL;
        text << "    Auto method: exit\n";
        writeInfo(text);
        g_ostrm.flush();
        return;
    }

    if (badStatus) {
        double limit = 2 * m_accuracy;
        printBadCtrlStatus(m_checkBadStatus);
        g_ostrm << WARN << "-- Attempting to avoid bad control status\n" << endMsg;
        text << "    Reduce loops to avoid bad ctrl status.\n"
             << "    Simple Measurements: \n";
        writeInfo(text);
        kvTest::clearCtrlStatus();
        // continueIterations has put back the figure of the halved count, so
        // it is the first of the six.
        r = repeatTiming(m_numLoops, 6);
        if (r != KV_BADSTSWRN && limit >= m_achieved) {
            g_ostrm << WARN << "-- Attempt is successful\n" << endMsg;
        } else {
            text << "    Cannot avoid bad ctrl status\n";
            writeInfo(text);
            g_ostrm << WARN << "-- Attempt fails: "
                    << (r == KV_BADSTSWRN ? "Bad control status repeats.\n"
                                          : "Accuracy is unsatisfactory.\n")
                    << endMsg;
        }
    }

    m_comment << "nLps=" << m_numLoops;
    if (m_achieved > m_accuracy) {
        m_comment << " acc=" << getAccuracyStr(m_achieved);
        if (m_result <= KV_OK) m_result = KV_ACCURWRN;
    }
    text << "    Auto method: stop\n";
    writeInfo(text);
}
