// kvTest: one registered measurement over a grid of parameter sets, with its
// whole life in run(): title, set-up, the walk over the grid, timing, checks,
// text and table output, and the test's result.
#ifndef KV_TEST_H
#define KV_TEST_H

#include <ctime>

#include "kvresult.h"
#include "kvstream.h"
#include "kvtestinfo.h"
#include "kvtool/kvtool.h"

class kvParameter;
class kvCacheIterator;
class kvConditions;
class kvObject;
template <class T> class kvIterator;
template <class T> class kvStepIterator;

typedef bool (*kvCacheValidator)(kvParameter* parm, int size, int target, bool refine);

class kvTest {
public:
    kvTest(funcOld old, kvString name, kvString file, kvString info);
    kvTest(funcLoop loop, funcStat stat, kvString name, kvString file, kvString info);
    kvTest(funcCall call, funcInit init, funcLoop loop, funcStat stat, kvString name,
           kvString file, kvString info);
    virtual ~kvTest();

    virtual bool tobeRun(kvConditions& conditions);
    virtual kvResult run();
    virtual int compareFunc(const kvTest* other) const;
    virtual void putTableResult_Deprecated(kvResult r);
    virtual bool canStart() { return true; }
    virtual void flushStart() {}
    virtual bool canContinue();
    virtual bool initData() { return true; }
    virtual void flushData() {}
    virtual kvResult runTiming();
    virtual double getFlops() { return -1.0; }
    virtual double getDivisor() { return 1.0; }
    virtual kvString getUnit() { return " "; }
    virtual void funcToCstrm();
    virtual void parmsFromIstrm();
    virtual void parmsToOstrm();
    virtual void parmsToCstrm();
    virtual void parmsNameToCstrm();
    virtual void resultToCstrm(kvResult r);
    virtual void constToOstrm() {}
    virtual void beginTest() { initSettings(); }
    virtual void endTest() {}
    virtual kvString getComment();
    virtual bool isFloatFunction() { return getFlops() > 0; }
    virtual bool isHotLine();
    virtual void initSettings();
    virtual void printAllMemoryBlocks(kvString title) { (void)title; }
    virtual kvString formatClocks(double x);
    virtual kvString regInfo();
    virtual void putTableParms();
    virtual void putTableResult(kvResult r);
    virtual void putTextParms();
    virtual void putTextParms(MessageLevel level);
    virtual void loopData();
    virtual void outputResult(kvResult r);
    virtual void outputConst();
    virtual void outputRegInfo();
    virtual void putTextResult(kvResult r);

    void startAndStop();
    bool setIniSection(kvString name);
    void regCacheParm(kvIterator<int>& parm, kvObject* object, kvCacheValidator validator);
    void regCacheParm(kvStepIterator<int>& parm, kvObject* object, kvCacheValidator validator);
    bool setDeprecatedFlag(bool flag);
    static void initCtrlStatus();
    static bool badCtrlStatus(bool& bad87, bool& badSSX);
    static void printCtrlStatus(bool bad87, bool badSSX);
    static void clearCtrlStatus();
    kvResult checkCtrlStatus();
    kvString perfString(bool mflops);
    double performance(bool mflops);
    kvString testResultString();
    void putTextError(kvResult r);
    void putTableName();
    void putTableNameLine();

    static void* allocate(int size, int align);
    static void* allocate(int size, int align, void* object);
    static void deallocate(void* p);
    static int reserveAllVectors();
    static int resetAllVectors();

    // Accessors for the reports and the list.
    const kvString& name() const { return m_name; }
    const kvString& file() const { return m_file; }
    const kvTestInfo& info() const { return m_info; }
    kvResult result() const { return m_result; }

    bool m_deprecated;
    time_t m_startTime;
    time_t m_stopTime;
    kvString m_name;
    kvString m_file;
    kvTestInfo m_info;
    kvTool m_tool;
    kvResult m_result;
    funcLoop m_funcLoop;
    funcStat m_funcStat;
    funcCall m_funcCall;
    funcInit m_funcInit;
    funcOld m_funcOld;
    bool m_firstSet;
    bool m_bad87;
    bool m_badSSX;
    kvList<kvParameter*> m_parms;
    kvCacheIterator* m_cacheParm;
    bool m_cacheRetry;

    static kvResult m_currentResult;
    static int m_numParmsColm;
    static int m_numResultColm;
    static int m_hot;
    static bool m_pressing;
    static bool m_cache;
    static int m_vectorNum;
    static int m_vectorShift;

    // Raises m_currentResult to at least r.
    static void raiseResult(kvResult r) {
        if (r > m_currentResult) m_currentResult = r;
    }

protected:
    // One parameter set whose data exist: report, measure, check, output.
    void measureSet(bool& constPending);
    void construct(kvString name, kvString file, kvString info);
    // Writes text at one message level, closing the message.
    static void message(MessageLevel level, const kvString& text);
};

kvString usecString(kvTool& tool);
kvString sFormat(const kvString& value, int width);
kvString sFormat(double value, int width);
kvString sFormat(int value, int width);
kvString sFormat(long long value, int width);
void printNotSupportTiming(kvString what, kvString function);

#endif
