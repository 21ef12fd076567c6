#include "kvsession.h"

#include <cstdio>
#include <ctime>

#include "../kvconditions.h"
#include "../kvcputype.h"
#include "../kvcstream.h"
#include "../kvistream.h"
#include "../kvreport.h"
#include "../kvtest.h"
#include "../kvtestlist.h"
#include "../kvinfotest.h"

kvSession* pSession = 0;
kvTestList* pTestList = 0;
kvList<kvParameter*>* g_pParmList = 0;
void (*s_parmFunc)() = 0;
kvString* pCmdLine = 0;
kvStringList* g_pHotList = 0;
kvStringList* g_pLibInfoList = 0;
kvStringList* g_pLibFuncList = 0;
char s_hintArg = 0;
bool s_hintHide = false;
bool s_version = false;
int s_cpuType = -1;
int s_numThreads = 0;
int qKeys = 1;
void (*vdlEnvironment)() = 0;
kvList<vdlGetLibVersionFunc>* vdlVersionList = 0;
void (*initTimingMethod)(kvTool&) = 0;
const char* KV_version = "2.0";

// ---- registration: safe before main, touches no stream

int kvRegTest(kvTest* test) {
    if (!pTestList) pTestList = new kvTestList;
    pTestList->insert(pTestList->end(), test);
    return 1;
}

int kvRegParm(kvParameter& parm) {
    if (!g_pParmList) g_pParmList = new kvList<kvParameter*>;
    g_pParmList->insert(g_pParmList->end(), &parm);
    return 1;
}

int kvRegParmFunc(void (*f)()) { s_parmFunc = f; return 1; }

int kvRegCmdLine(kvString keys) {
    if (!pCmdLine) pCmdLine = new kvString;
    *pCmdLine << " " << keys;
    return 1;
}

int kvRegTimingMethod(void (*f)(kvTool&)) { initTimingMethod = f; return 1; }
int kvRegVdlEnvironment(void (*f)()) { vdlEnvironment = f; return 1; }

int kvRegVdlVersion(vdlGetLibVersionFunc f) {
    if (!vdlVersionList) vdlVersionList = new kvList<vdlGetLibVersionFunc>;
    vdlVersionList->insert(vdlVersionList->end(), f);
    return 1;
}

static int appendName(kvStringList*& list, const kvString& name, bool unique) {
    if (!list) list = new kvStringList;
    if (unique)
        for (kvStringList::iterator it = list->begin(); it != list->end(); ++it)
            if (*it == name) return 0;
    list->insert(list->end(), name);
    return 1;
}

int kvRegLibInfo(kvString line) { return appendName(g_pLibInfoList, line, true); }
int kvRegLibFunc(kvString name) { return name.empty() ? 0 : appendName(g_pLibFuncList, name, false); }
int kvRegHotFunction(kvString name) { return appendName(g_pHotList, name, false); }
int kvRegQKeys() { qKeys = 1; return 1; }
int kvRegSession(kvSession* session) { pSession = session; return 1; }

void deleteTestList() {
    if (!pTestList) return;
    for (kvTestList::iterator it = pTestList->begin(); it != pTestList->end(); ++it) {
        delete *it;
        *it = 0;
    }
    delete pTestList;
    pTestList = 0;
}

// ---- the session

kvSession::kvSession()
    : m_conditions(0), m_askMode(0), m_batch(false), m_levelMode(1), m_quickMode(false),
      m_enumMode(100), m_unopened(false), m_iniWrite(false) {}

kvSession::~kvSession() {
    for (kvList<kvOption*>::iterator it = m_options.begin(); it != m_options.end(); ++it)
        deleteOption(*it);
}

void kvSession::initSession() {
    m_conditions = new kvConditions;
    m_askMode = 0;
    m_batch = false;
    m_levelMode = 1;
    m_quickMode = false;
    m_enumMode = 100;
    m_unopened = false;
    m_iniName = "";
    m_iniWrite = false;
    m_optionInfo = "";
    m_sglName = "";
    registerOptions(vdl_Init() != -2);
}

void kvSession::addCondition(RunCondition* condition) {
    m_conditions->insert(m_conditions->end(), condition);
}

int kvSession::run(int argc, char** argv) {
    g_ostrm.setMsgLevel(PERF);
    g_ostrm.addStream(&c_out);
    setVdlEnvironment();
    initSession();
    kvRegTest(new __kvOrvanCpuTest("__kvOrvanCpu", "api/src/kv",
                                   "__kvOrvanCpuTest/Orvan CPU information"));
    time(&pTestList->m_startTime);
    int code = 0;
    bool headerWritten = false;

    if (parseCommandLine(argc, argv) && startSession() && !quickOutput()) {
        if (vdlEnvironment) {
            initStaticCpu();
            setNumThreads();
            setVdlEnvironment();
        }
        setVdlLibInfo();
        if (pTestList && !m_quickMode) {
            printf("Sorting functions...");
            fflush(stdout);
            pTestList->sortFunc();
            putchar('\n');
        }
        outputHeader();
        headerWritten = true;
        if (s_parmFunc) s_parmFunc();
        selectTestParameters();
        beginCommonData();
        readCommonData();
        endCommonData();
        if (!g_pHotList) g_pHotList = new kvStringList;
        putTableTitle();
        code = pTestList->runTests(*m_conditions) ? 1 : 0;
    }

    time(&pTestList->m_stopTime);
    if (headerWritten) outputFooter();
    outputSignal();
    deleteTestList();
    return code;
}

void kvSession::setVdlEnvironment() {
    if (vdlEnvironment) {
        vdlEnvironment();
        g_ostrm << "\nVDL Core library functions have been integrated into KV\n";
    }
    kvBindVdlFallbacks();
}

void kvSession::setVdlLibInfo() {
    if (!vdlVersionList) return;
    for (kvList<vdlGetLibVersionFunc>::iterator it = vdlVersionList->begin();
         it != vdlVersionList->end(); ++it) {
        const VdlLibraryVersion* v = (*it)();
        if (!v) continue;
        kvString line;
        line << (v->Name ? v->Name : "") << ", " << (v->Version ? v->Version : "") << ", "
             << (v->BuildDate ? v->BuildDate : "");
        kvRegLibInfo(line);
    }
    g_ostrm << "VDL libraries information has been set into KV\n";
}

void kvSession::reportStatus(VdlStatus status) {
    if (status == 0) {
        g_ostrm << "--status = vdlStsNoErr\n";
        return;
    }
    g_ostrm << (status < 0 ? "--VDL ERROR. " : "--VDL WARNING. ") << "status = " << (int)status
            << ": " << vdl_GetStatusString(status) << "\n";
}

void kvSession::initStaticCpu() {
    if (!vdlEnvironment) return;
    if (s_cpuType == -1) {
        vdl_Init();
        return;
    }
    g_ostrm << ERR << "\n--calling vdlInitCpu( vdlCpu" << kvCpuType::cpuLabel(s_cpuType) << "="
            << s_cpuType << " )\n";
    VdlStatus status = vdl_InitCpu(s_cpuType);
    reportStatus(status);
    if (status < 0) {
        g_ostrm << "--calling vdlInit()\n";
        VdlStatus init = vdl_Init();
        if (init < 0) reportStatus(init);
    }
    g_ostrm << endMsg;
}

void kvSession::setNumThreads() {
    if (!vdlEnvironment || s_numThreads < 1) return;
    g_ostrm << ERR << "\n--calling vdlSetNumThreads( " << s_numThreads << " )\n";
    reportStatus(vdl_SetNumThreads(s_numThreads));
    g_ostrm << endMsg;
}

bool kvSession::quickOutput() {
    if (s_version || s_hintArg)
        g_ostrm << "\nOrvan(R) Vdl Primitives. Kelvar System " << KV_version << ", " << __DATE__
                << "\n";
    if (s_hintArg) {
        hint(s_hintArg, s_hintHide);
        return true;
    }
    if (m_enumMode > 1) return s_version;
    if (pTestList && m_enumMode == 0 && !m_quickMode) pTestList->sortFunc();
    listTests(m_enumMode);
    return true;
}

void kvSession::listTests(int mode) {
    kvReportTitle title(*pTestList);
    g_ostrm << title;
    g_cstrm << title;
    kvReportList list(*pTestList, *m_conditions, mode);
    g_ostrm << list;
    g_cstrm << list;
}

void kvSession::outputHeader() {
    kvReportTitle title(*pTestList);
    g_ostrm << title;
    g_cstrm << title;
    g_qstrm << title;
    g_ustrm << title;
    kvReportTestResult header(0);
    g_ustrm << header;
}

void kvSession::outputFooter() {
    kvReportEnd end(*pTestList);
    g_ostrm << ERR << end << endMsg;
    g_ustrm << end;
}

void kvSession::outputSignal() {
    if (m_sglName.empty()) return;
    FILE* f = fopen(m_sglName.c_str(), "w");
    if (!f) return;
    time_t start = pTestList ? pTestList->m_startTime : 0;
    time_t stop = pTestList ? pTestList->m_stopTime : 0;
    fprintf(f, "%s\n%s\n", kvReportFormat::getTimeStr((int)difftime(stop, start)).c_str(),
            ctime(&stop));
    fclose(f);
}

void kvSession::putTableTitle() {
    putTableTitleLine();
    if (m_nameMode & 2) {
        g_cstrm.swap(g_qstrm);
        putTableTitleLine();
        g_cstrm.swap(g_qstrm);
    }
}

void kvSession::putTableTitleLine() {
    funcTitleToCStream();
    parmsTitleToCStream();
    kvTest::m_numParmsColm = g_cstrm.getColmCount();
    resultTitleToCStream();
    kvTest::m_numResultColm = g_cstrm.getColmCount() - kvTest::m_numParmsColm;
    g_cstrm.lineOut(0);
}

void kvSession::funcTitleToCStream() { g_cstrm << "funcBase" << "funcDataType" << "funcDescriptor"; }

void kvSession::parmsTitleToCStream() {
    g_cstrm << "Len/Size" << "Parm1" << "Parm2" << "Parm3" << "Parm4" << "scaleFactor";
}

void kvSession::resultTitleToCStream() {
    g_cstrm << "Comment" << "Clocks" << "per" << "Time (usec)" << "MFlops";
    if (kvTest::m_hot != 0) g_cstrm << "Interest";
}

void kvSession::kvFuncTitleToCStream() { g_cstrm << "function"; }

void kvSession::kvParmsTitleToCStream() {
    for (int i = 1; i <= 8; ++i) g_cstrm << kvString::format("Parm%d", i);
}
