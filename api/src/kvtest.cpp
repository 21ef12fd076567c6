#include "kvtest.h"

#include "kv/kvsession.h"
#include "kvcacheiterator.h"
#include "kvconditions.h"
#include "kvcstream.h"
#include "kvexception.h"
#include "kvfpstate.h"
#include "kvistream.h"
#include "kvparameter.h"
#include "kvreport.h"
#include "kvticker.h"

kvResult kvTest::m_currentResult = KV_UNDEFINED;
int kvTest::m_numParmsColm = 0;
int kvTest::m_numResultColm = 0;
int kvTest::m_hot = 0;
bool kvTest::m_pressing = false;
bool kvTest::m_cache = false;

// The output level to restore after a raised level or an exception.
static OutputLevel OldOutLevel = 1;

kvTest::kvTest(funcOld old, kvString name, kvString file, kvString info)
    : m_funcLoop(0), m_funcStat(0), m_funcCall(0), m_funcInit(0), m_funcOld(old) {
    construct(name, file, info);
}

kvTest::kvTest(funcLoop loop, funcStat stat, kvString name, kvString file, kvString info)
    : m_funcLoop(loop), m_funcStat(stat), m_funcCall(0), m_funcInit(0), m_funcOld(0) {
    construct(name, file, info);
}

kvTest::kvTest(funcCall call, funcInit init, funcLoop loop, funcStat stat, kvString name,
               kvString file, kvString info)
    : m_funcLoop(loop), m_funcStat(stat), m_funcCall(call), m_funcInit(init), m_funcOld(0) {
    construct(name, file, info);
}

void kvTest::construct(kvString name, kvString file, kvString info) {
    m_deprecated = false;
    m_startTime = m_stopTime = time(0);
    m_name = name;
    m_file = file.getFileName();
    m_info = kvTestInfo(info);
    m_result = KV_UNDEFINED;
    m_firstSet = true;
    m_bad87 = m_badSSX = false;
    m_cacheParm = 0;
    m_cacheRetry = false;
    initSettings();
}

kvTest::~kvTest() {
    m_parms.clear();
    delete m_cacheParm;
}

void kvTest::message(MessageLevel level, const kvString& text) {
    g_ostrm << level << text << endMsg;
}

void kvTest::initSettings() {
    m_currentResult = KV_UNDEFINED;
    m_firstSet = true;
    m_bad87 = m_badSSX = m_cacheRetry = m_deprecated = false;
    m_cacheParm = 0;
    m_parms.clear();
}

bool kvTest::tobeRun(kvConditions& conditions) {
    if (!conditions.tobeRun(this)) return false;
    if (m_hot != 2) return true;
    return kvTest::isHotLine();
}

int kvTest::compareFunc(const kvTest* other) const { return m_name.compare(other->m_name); }

bool kvTest::isHotLine() {
    if (!g_pHotList) return false;
    for (kvStringList::iterator it = g_pHotList->begin(); it != g_pHotList->end(); ++it)
        if (*it == m_name) return true;
    return false;
}

bool kvTest::setIniSection(kvString name) {
    kvIniFile* ini = g_istrm.getIniFile();
    if (m_pressing && ini && !ini->sectionExist(name)) return false;
    if (g_istrm.isIniUpdate()) ini->write(name);
    g_istrm.setIniSection(name);
    return true;
}

kvResult kvTest::run() {
    m_result = KV_OK;
    m_currentResult = KV_UNDEFINED;
    try {
        KV_SIGNAL_REGION(region);
        m_tool = g_tool;
        if (m_info.m_tag.found("Ibs")) m_tool.m_ibsMode = true;
        g_trace.reset();
        bool section;
        KV_TRACED("setIniSection", section = setIniSection(m_name));
        if (!section) return KV_UNDEFINED;
        KV_TRACED("beginTest", beginTest());
        OldOutLevel = g_ostrm.getOutLevel();
        time(&m_startTime);

        {
            // Gone before the measurement: a fault jumps back to the region
            // above and skips the destructors of what is alive then.
            g_trace.traceIn("testTitle");
            kvReportTestTitle title(this);
            g_trace.traceOut("testTitle");
            KV_TRACED("g_ostrm<<testTitle", g_ostrm << ERR << title << endMsg);
            KV_TRACED("g_ustrm<<testTitle", g_ustrm << title);
        }

        bool started;
        KV_TRACED("canStart", started = canStart());
        if (!started) {
            message(ERR, "-- Can't start timing\n");
            m_currentResult = KV_DATAFAIL;
        } else if (m_cache && !m_cacheParm) {
            printNotSupportTiming("In-Outof-Cache", m_name);
        } else {
            KV_TRACED("parmsFromIstrm", parmsFromIstrm());
            putTableName();
            if (g_istrm.isIniUpdate() || kvSession::m_nameExit) {
                m_currentResult = KV_OK;   // only walking the parameters
            } else {
                outputRegInfo();
                KV_TRACED("loopData", loopData());
            }
        }
        KV_TRACED("flushStart", flushStart());
    } catch (kvException& e) {
        m_currentResult = KV_EXCPTFAIL;
        g_ostrm.setOutLevel(OldOutLevel);
        message(ERR, kvString(e.msg()) + " in " + g_trace.getCurName() + "\n");
    }

    m_result = m_currentResult;
    time(&m_stopTime);
    g_trace.traceIn("testResult");
    kvReportTestResult report(this);
    g_trace.traceOut("testResult");
    g_ostrm << report;
    g_ustrm << report;
    g_ostrm.flush();
    g_cstrm.flush();
    g_ustrm.flush();
    KV_TRACED("endTest", endTest());
    return m_result;
}

void kvTest::startAndStop() {
    OutputLevel level = g_ostrm.getOutLevel();
    g_ostrm.setOutLevel(1);
    try {
        KV_SIGNAL_REGION(region);
        beginTest();
        canStart();
        flushStart();
        endTest();
    } catch (kvException& e) {
        message(ERR, kvString(e.msg()) + " in startAndStop of " + m_name + " test\n");
    }
    g_ostrm.setOutLevel(level);
}

// The trace text at the start of the walk, restored before each set. It
// lives outside the frame: a fault in a measured function jumps over this
// frame without running its destructors, so the frames between the
// protected region of run() and the measured call own no memory.
static kvString& savedTraceText() {
    static kvString* text = new kvString;
    return *text;
}

void kvTest::loopData() {
    bool constPending = true;
    m_firstSet = true;
    kvString& savedTrace = savedTraceText();
    savedTrace = g_trace.getText();
    g_cstrm.identicalLinesStart(m_numParmsColm);
    do {
        g_trace.setText(savedTrace);
        m_vectorNum = 0;
        m_vectorShift = 0;
        bool more;
        KV_TRACED("canContinue", more = canContinue());
        if (!more) {
            if (m_firstSet) {
                message(ERR, "-- One of argument list for timing is empty\n");
                raiseResult(KV_DATAFAIL);
            }
            break;
        }
        m_firstSet = false;
        bool ready;
        KV_TRACED("initData", ready = initData());
        if (ready) measureSet(constPending);
        KV_TRACED("flushData", flushData());
    } while (m_currentResult < KV_ACCURFAIL);

    if (m_currentResult == KV_UNDEFINED) {
        message(ERR, "-- Error while initialization of function data\n");
        raiseResult(KV_DATAFAIL);
    }
    g_cstrm.linePostponeOut(m_numResultColm + m_numParmsColm);
    if (g_cstrm.identicalLinesStop()) {
        message(WARN, "-- Warning: duplicate lines in performance table (csv-file)\n");
        raiseResult(g_ostrm.getOutLevel() < 2 ? KV_OK : KV_DATAWRN);
    }
}

// One parameter set whose data exist: report, measure, check, output.
void kvTest::measureSet(bool& constPending) {
    if (constPending) {
        constPending = false;
        outputConst();
    }
    if (m_cacheParm && !m_cacheParm->validateSize()) {
        m_cacheRetry = true;
        return;
    }
    putTextParms(PERF);
    if (m_tool.m_setUse) KV_TRACED("reserveAllVectors", reserveAllVectors());
    if (m_hot == 2 && !isHotLine()) {
        g_ostrm << "  measuring is omitted: not hot line\n";
        return;
    }
    printAllMemoryBlocks("before function calls");
    OldOutLevel = g_ostrm.getOutLevel();
    initCtrlStatus();
    if (OldOutLevel == 3) g_ostrm.setOutLevel(7);
    kvResult r;
    KV_TRACED("runTiming", r = runTiming());
    g_ostrm.setOutLevel(OldOutLevel);
    if (r != KV_UNDEFINED) {
        printAllMemoryBlocks("after function calls");
    } else {
        message(ERR, "-- Internal test problem: runTiming() function returns undefined result\n");
        raiseResult(KV_FAIL);
    }
    r = kvMaxResult(r, checkCtrlStatus());
    kvResult d = r;
    if (g_ostrm.getOutLevel() < 2 && r >= KV_ACCURWRN && r <= KV_WARNING) d = KV_OK;
    raiseResult(d);
    outputResult(r);
}

bool kvTest::canContinue() {
    if (m_parms.empty()) return m_firstSet;
    if (m_cacheParm && m_cacheRetry) {
        m_cacheRetry = false;
        if (m_cacheParm->repeatValue()) return true;
        g_ostrm << ERR;
        m_cacheParm->outputInfo();
        putTextParms();
        g_ostrm << "-- Fail to allocate " << m_cacheParm->getComment() << " data\n" << endMsg;
        if (m_currentResult <= KV_ACCURFAIL) m_currentResult = KV_DATAFAIL;
        return false;
    }
    if (m_firstSet) {
        for (kvList<kvParameter*>::iterator it = m_parms.begin(); it != m_parms.end(); ++it)
            if (!(*it)->firstValue()) return false;
        return true;
    }
    // Odometer: the last registered parameter varies fastest.
    kvList<kvParameter*>::iterator it = m_parms.end();
    for (--it; it.pNode(); --it) {
        if ((*it)->nextValue()) return true;
        (*it)->firstValue();
    }
    return false;
}

kvResult kvTest::runTiming() {
    if (!m_funcLoop && !m_funcStat && !m_funcCall)
        return m_funcOld ? m_tool.timing(m_funcOld) : KV_UNDEFINED;
    return m_tool.timing(m_funcLoop, m_funcStat, m_funcCall, m_funcInit);
}

void kvTest::initCtrlStatus() {
    g_ctrl87.init();
    g_ssx.init();
}

void kvTest::clearCtrlStatus() {
    g_ctrl87.clear();
    g_ssx.clear();
}

bool kvTest::badCtrlStatus(bool& bad87, bool& badSSX) {
    bad87 = g_ctrl87.badStatus();
    badSSX = g_ssx.badStatus();
    return bad87 || badSSX;
}

void kvTest::printCtrlStatus(bool bad87, bool badSSX) {
    g_ostrm << WARN;
    if (bad87) g_ostrm << "-- Status    87: " << g_ctrl87.strSW() << "\n";
    if (badSSX) g_ostrm << "-- Status    SSX: " << g_ssx.strExceptionState() << "\n";
    g_ostrm << endMsg;
}

kvResult kvTest::checkCtrlStatus() {
    bool bad87, badSSX;
    bool bad = badCtrlStatus(bad87, badSSX);
    if (bad) {
        if (bad87) m_bad87 = true;
        if (badSSX) m_badSSX = true;
        printCtrlStatus(bad87, badSSX);
    }
    clearCtrlStatus();
    return bad ? KV_BADSTSWRN : KV_UNDEFINED;
}

// The text log is flushed with each result line, so a killed run leaves at
// most the line in flight unwritten, never half a line behind it.
void kvTest::outputResult(kvResult r) {
    if (r == KV_UNDEFINED) return;
    putTextError(r);
    putTextResult(r);
    g_ostrm.flush();
    if (r < KV_ACCURFAIL) {
        putTableResult(r);
        putTableResult_Deprecated(r);
    }
}

void kvTest::putTextError(kvResult r) {
    if (r <= KV_OK) return;
    g_ostrm << (r < KV_ACCURFAIL ? WARN : ERR) << "-- " << kvResultString(r)
            << " on test parameters:\n";
    putTextParms();
    g_ostrm << endMsg;
}

void kvTest::putTextResult(kvResult r) {
    if (r < KV_OK || r > KV_WARNING) return;
    if (!g_ostrm.beginMessage(r == KV_OK ? PERF : WARN)) return;
    if (r > KV_OK) g_ostrm << "-- performance:\n";
    g_ostrm << testResultString() << "\n";
    g_ostrm.endMessage();
}

void kvTest::putTextParms() { putTextParms(g_ostrm.getMsgLevel()); }

void kvTest::putTextParms(MessageLevel level) {
    if (!g_ostrm.beginMessage(level)) return;
    if (m_cacheParm) g_ostrm << m_cacheParm->getComment() << ":";
    KV_TRACED("parmsToOstrm", parmsToOstrm());
    g_ostrm << "\n";
    g_ostrm.endMessage();
}

void kvTest::putTableParms() {
    KV_TRACED("funcToCstrm", funcToCstrm());
    KV_TRACED("parmsToCstrm", parmsToCstrm());
    g_cstrm.setColmCount(m_numParmsColm);
}

void kvTest::putTableResult(kvResult r) {
    putTableParms();
    KV_TRACED("resultToCstrm", resultToCstrm(r));
    g_cstrm.lineOut(m_numResultColm + m_numParmsColm);
}

void kvTest::putTableResult_Deprecated(kvResult r) {
    if (setDeprecatedFlag(true)) {
        putTableParms();
        resultToCstrm(r);
        g_cstrm.linePostpone();
    }
    setDeprecatedFlag(false);
}

bool kvTest::setDeprecatedFlag(bool flag) {
    m_deprecated = flag;
    kvList<kvParameter*>::iterator it;
    if (!flag) {
        for (it = m_parms.begin(); it != m_parms.end(); ++it) (*it)->setDeprecatedFlag(false);
        return false;
    }
    bool found = false;
    for (it = m_parms.begin(); it != m_parms.end(); ++it) {
        if (!(*it)->isDeprecatedParm()) continue;
        found = true;
        if (!(*it)->setDeprecatedFlag(true)) return false;
    }
    return found;
}

void kvTest::funcToCstrm() { g_cstrm << m_name; }

void kvTest::parmsFromIstrm() {
    for (kvList<kvParameter*>::iterator it = m_parms.begin(); it != m_parms.end(); ++it)
        (*it)->fromIStream(g_istrm);
}

void kvTest::parmsToOstrm() {
    for (kvList<kvParameter*>::iterator it = m_parms.begin(); it != m_parms.end(); ++it)
        (*it)->toOStream(g_ostrm);
}

void kvTest::parmsToCstrm() {
    for (kvList<kvParameter*>::iterator it = m_parms.begin(); it != m_parms.end(); ++it)
        (*it)->toCStream(g_cstrm);
}

void kvTest::parmsNameToCstrm() {
    for (kvList<kvParameter*>::iterator it = m_parms.begin(); it != m_parms.end(); ++it)
        (*it)->nameToCStream(g_cstrm);
}

void kvTest::resultToCstrm(kvResult r) {
    (void)r;
    g_cstrm << getComment() << perfString(false) << getUnit() << usecString(m_tool)
            << perfString(true) << (isHotLine() ? "Hot" : "");
}

kvString kvTest::getComment() {
    if (m_deprecated) return "deprecated";
    kvString c;
    if (m_cacheParm) c << m_cacheParm->getComment() << " ";
    return c + m_tool.m_comment;
}

void kvTest::outputConst() { KV_TRACED("constToOstrm", constToOstrm()); }

void kvTest::outputRegInfo() {
    if (!g_ostrm.beginMessage(PERF)) return;
    g_ostrm << regInfo() << "\n";
    g_ostrm.endMessage();
}

kvString kvTest::regInfo() {
    kvString text = "   Test has been registered";
    if (!m_info.m_tag.empty()) text << " by " << m_info.m_tag << " macro";
    kvString list;
    const char* names[4] = {"loopMethod", "statMethod", "oldMethod", "funcCall"};
    bool set[4] = {m_funcLoop != 0, m_funcStat != 0, m_funcOld != 0, m_funcCall != 0};
    for (int i = 0; i < 4; ++i) {
        if (!set[i]) continue;
        if (!list.empty()) list << ", ";
        list << names[i];
    }
    if (list.empty()) {
        text << " without any function to call.\n No standard timing method is available";
        return text;
    }
    if (m_funcInit) list << ", funcInit";
    text << " with " << list << ".";
    kvString use;
    if (m_funcOld) use = "oldMethod";
    else if (m_funcCall && m_tool.m_setUse) use = "funcCall with Set&Use";
    else if (m_funcCall && !m_funcLoop && !m_funcStat) use = "funcCall";
    else if (m_tool.m_method == KV_METHOD_STATISTIC) use = m_funcStat ? "statMethod" : "loopMethod";
    else use = m_funcLoop ? "loopMethod" : "statMethod";
    text << "\n   " << use << " is called for measuring.";
    return text;
}

double kvTest::performance(bool mflops) {
    if (!mflops) return m_tool.m_funcClocks / getDivisor();
    if (!isFloatFunction()) return 0;
    return getFlops() * kvCpuTicker::getFreq() / m_tool.m_funcClocks;
}

kvString kvTest::perfString(bool mflops) { return formatClocks(performance(mflops)); }

kvString kvTest::formatClocks(double x) {
    if (!(x > 0)) return "";
    if (x < 0.0001 || x > 10000000) return kvString::format("%.3e", x);
    int digits = x >= 100 ? 0 : x >= 10 ? 1 : x >= 1 ? 2 : x >= 0.1 ? 3 : x >= 0.01 ? 4
               : x >= 0.001 ? 5 : 6;
    kvString fmt = kvString::format("%c.%df", '%', digits);
    return kvString::format(fmt.c_str(), x);
}

kvString kvTest::testResultString() {
    const char* sep = "  ";
    kvString line;
    if (m_tool.m_method == KV_METHOD_AUTO || m_tool.m_method == KV_METHOD_ITERATIVE)
        line << sep << "acc=" << sFormat(kvTool::getAccuracyStr(m_tool.m_achieved), -5);
    line << sep << sFormat(m_tool.m_comment, -10);
    line << sep << "perf=" << sFormat(m_tool.m_funcClocks, 9) << "/" << sFormat(getDivisor(), 9)
         << "=" << sFormat(perfString(false), 9) << " clocks";
    return line;
}

void kvTest::putTableName() {
    if (kvSession::m_nameMode & 1) putTableNameLine();
    if (kvSession::m_nameMode & 2) {
        g_cstrm.swap(g_qstrm);
        putTableNameLine();
        g_cstrm.swap(g_qstrm);
    }
}

void kvTest::putTableNameLine() {
    KV_TRACED("funcToCstrm", funcToCstrm());
    KV_TRACED("parmsNameToCstrm", parmsNameToCstrm());
    g_cstrm.setColmCount(m_numParmsColm);
    g_cstrm << "parmNames";
    g_cstrm.lineOut(m_numResultColm + m_numParmsColm);
}

kvString usecString(kvTool& tool) {
    kvString s;
    s << tool.m_funcClocks / kvCpuTicker::getFreq();
    return s;
}

kvString sFormat(const kvString& value, int width) {
    kvString s(value);
    int w = width < 0 ? -width : width;
    if (s.length() >= w) return s;
    kvString pad;
    pad.resize(w - s.length(), ' ');
    return width > 0 ? pad + s : s + pad;
}

kvString sFormat(double value, int width) {
    kvString s;
    s << value;
    return sFormat(s, width);
}

kvString sFormat(int value, int width) {
    kvString s;
    s << value;
    int w = width < 0 ? -width : width;
    if (s.length() > w && s.length() > 9) return sFormat((double)value, width);
    return sFormat(s, width);
}

kvString sFormat(long long value, int width) {
    if (value >= -2147483647LL - 1 && value <= 2147483647LL) return sFormat((int)value, width);
    return sFormat((double)value, width);
}

void printNotSupportTiming(kvString what, kvString function) {
    g_ostrm << ERR << "-- Can't run " << what << " timing: no program support for function "
            << function << "\n" << endMsg;
}
