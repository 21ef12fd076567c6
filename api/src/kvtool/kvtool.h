// kvTool: the timing engine. Turns calls of a test's function into clocks per
// call (m_funcClocks) with a judged accuracy, by one of four methods.
#ifndef KV_TOOL_H
#define KV_TOOL_H

#include <vector>

#include "../kvresult.h"
#include "../kvstring.h"

typedef kvResult (*funcLoop)(int loops, long long* clocks);
typedef kvResult (*funcStat)(int* calls, long long* clocks);
typedef int (*funcCall)();
typedef int (*funcInit)();
class kvTool;
typedef kvResult (*funcOld)(kvTool& tool, int loops);

enum kvTimingMethod {
    KV_METHOD_AUTO = 0,
    KV_METHOD_MANUAL = 1,
    KV_METHOD_STATISTIC = 2,
    KV_METHOD_ITERATIVE = 3
};

class kvTool {
public:
    kvTool();
    virtual ~kvTool() {}

    // The highest loop count of a measurement. The search multiplies counts
    // by 2, 4 and 10; it does so in 64 bits and stops at this limit, so no
    // user setting makes a count wrap. Sixteen million calls in one bracket
    // already hold hundreds of millions of clocks for the cheapest function;
    // more would only make a run take hours.
    static constexpr int MAX_LOOPS = 1 << 24;
    // a * b, held to MAX_LOOPS.
    static int loopProduct(long long a, long long b);

    void reset();
    void setMethodAuto();
    void setMethodLoop(int loops);
    void setMethodStat(int calls, long long clocks);
    void setMethodBest(int start, int max, long long clocks);
    bool getMethodAuto() const;
    bool getMethodLoop(int& loops) const;
    bool getMethodStat(int& calls, long long& clocks) const;
    bool getMethodBest(int& start, int& max, long long& clocks) const;
    static void getAutoParameters(int& start, int& max, long long& clocks);
    static kvString getAccuracyStr(double a);
    static kvString clockStr(long long clocks);
    static double computeAccuracy(double a, double b);
    static double computeAccuracy(const double* v, int n);
    static double computeBest(const double* v, int n);

    kvResult timing(funcLoop loop, funcStat stat, funcCall call, funcInit init);
    kvResult timing(funcOld old);

    // The steps of the methods; public so that the search can be driven and
    // checked step by step.
    void updateResult(kvResult r);
    void runTimFunc(int loops, double* clocksPerCall);
    void runTimFuncStat(long long maxClocks, int* calls, double* clocksPerCall);
    kvResult timCall_Loop(int loops, long long* clocks, bool reset);
    kvResult timCall_Stat(int* calls, long long* clocks, bool reset);
    void customLoopTiming();
    void statisticTiming();
    void autoLoopTiming();
    kvResult startIterations(int loops, long long minClocks);
    kvResult continueIterations(int startLoops, int maxLoops);
    kvResult repeatTiming(int loops, int count);
    void bestTiming(int start, int maxLoops, long long minClocks);

    kvResult m_result;
    double m_funcClocks;
    int m_numLoops;
    double m_accuracy;
    int m_method;
    int m_loopNum;
    int m_startLoops;
    int m_maxLoops;
    bool m_setUse;
    long long m_minClocks;
    int m_statCalls;
    long long m_statClocks;
    bool m_ibsMode;
    bool m_checkBadStatus;
    kvString m_comment;
    long long m_clocks;
    double m_achieved;
    funcLoop m_funcLoop;
    funcStat m_funcStat;
    funcCall m_funcCall;
    funcInit m_funcInit;

    static int m_priority;

private:
    // Scratch of the methods: the text of the next information message and
    // the figures of repeatTiming. They live in the object, not in the
    // frames of the search, because a fault in the measured function jumps
    // over those frames without running their destructors.
    kvString m_text;
    std::vector<double> m_figures;
};

// The session's master tool; each test copies it at the start of its run.
extern kvTool g_tool;

#endif
