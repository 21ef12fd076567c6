// The info and apply functions of every key. `info` tells in words what the
// key will do, or why it is ignored; `apply` does it and leaves a wrong
// argument without effect, so that a wrong key never stops a run.
#include "kvkeys.h"

#include "../kvconditions.h"
#include "../kvcputype.h"
#include "../kvcstream.h"
#include "../kvistream.h"
#include "../kvtest.h"
#include "../kvtestlist.h"
#include "kvsession.h"

// A key that has no meaning when the run ends before the tests (help,
// version, listing) says so instead of what it would do.
static bool exitsAt(int level, kvString& info) {
    if (!kvSession::isExit(level)) return false;
    info = kvSession::getExitInfo();
    return true;
}

// Opens an output file of a table or text stream; a failure stops the run
// once all keys are reported.
template <class Stream>
static void openOutput(Stream& stream, const kvString& path, bool append, kvSession* session) {
    if (!stream.addStream(path, append)) session->unopenedFile();
}

static const char* const KV_NO_LIBRARY =
    "ignored: <vdlcore.h> is not included before <dl.h> in test files";

// ---- -B -A -d

kvString B_info(kvString) {
    kvString info;
    return exitsAt(1, info) ? info : kvString("batch mode");
}
void B_apply(kvString, kvSession* session) { session->m_batch = true; }

kvString A_info(kvString arg) {
    kvString info;
    if (exitsAt(1, info)) return info;
    static const char* const words[4] = {", timing method", ", common parameters",
                                         ", data misalignment", ", each test parameters"};
    int level = getAskLevel(arg);
    kvString list;
    for (int bit = 0; bit < 4; ++bit)
        if (level & (1 << bit)) list += words[bit];
    // Only the comma goes; its blank stays behind "ask".
    return "ask" + list.substr(1) + " from console";
}
void A_apply(kvString arg, kvSession* session) { session->addAskMode(getAskLevel(arg)); }

kvString d_info(kvString arg) {
    kvString info;
    if (exitsAt(1, info)) return info;
    if (arg.empty()) return "ignored: empty data argument";
    int eq = arg.find("=");
    kvString name = eq < 0 ? kvString() : arg.substr(0, eq);
    if (name.trim().empty()) return "ignored: incorrect data format";
    return "set KV parameter " + arg;
}
// An argument without "=" is still stored, under its whole text, with an
// empty value.
void d_apply(kvString arg, kvSession*) { g_istrm.dataList().set(arg); }

// ---- ini file

kvString i_info(kvString arg) {
    kvString info;
    return exitsAt(1, info) ? info : "read from " + kvSession::genInPath(arg, extIni);
}
void i_apply(kvString arg, kvSession* session) {
    session->setIniMode(kvSession::genInPath(arg, extIni), false);
}

kvString I_info(kvString arg) {
    kvString info;
    if (exitsAt(1, info)) return info;
    return "write KV parameters to " + kvSession::genInPath(arg, extIni) + " and exit";
}
void I_apply(kvString arg, kvSession* session) {
    session->setIniMode(kvSession::genInPath(arg, extIni), true);
}

kvString P_info(kvString) {
    kvString info;
    return exitsAt(1, info) ? info : kvString("read tested function names from ini-file if any");
}
void P_apply(kvString, kvSession*) { kvTest::m_pressing = true; }

// ---- text output

kvString o_info(kvString arg) { return "write console output to " + kvSession::genOutPath(arg, extOut); }
void o_apply(kvString arg, kvSession* session) {
    openOutput(g_ostrm, kvSession::genOutPath(arg, extOut), false, session);
}

kvString O_info(kvString arg) { return "add console output to " + kvSession::genOutPath(arg, extOut); }
void O_apply(kvString arg, kvSession* session) {
    openOutput(g_ostrm, kvSession::genOutPath(arg, extOut), true, session);
}

kvString L_info(kvString arg) {
    kvString info;
    if (exitsAt(1, info)) return info;
    static const char* const words[7] = {"errors", ",warnings", ",performance results",
                                         ",measurement process", ",tracing info", ",memory info",
                                         ",data info"};
    OutputLevel level = getLevel(arg);
    if (level == 0) return "ignored: incorrect level of console output";
    kvString list;
    for (int bit = 0; bit < 7; ++bit)
        if (level & (1 << bit)) list += words[bit];
    return "write " + list + " to console";
}
void L_apply(kvString arg, kvSession* session) { session->addLevelMode(getLevel(arg)); }

// ---- tables

kvString r_info(kvString arg) {
    return "write performance result table to " + kvSession::genOutPath(arg, extCsv);
}
void r_apply(kvString arg, kvSession* session) {
    openOutput(g_cstrm, kvSession::genOutPath(arg, extCsv), false, session);
}

kvString R_info(kvString arg) {
    return "add performance result table to " + kvSession::genOutPath(arg, extCsv);
}
void R_apply(kvString arg, kvSession* session) {
    openOutput(g_cstrm, kvSession::genOutPath(arg, extCsv), true, session);
}

kvString q_info(kvString arg) {
    kvString info;
    if (exitsAt(1, info)) return info;
    if (arg == "+") return "add function parameter name lines to csv files defined by -r & -R keys";
    return "write function parameter name lines to " + kvSession::genOutPath(arg, extName);
}
void q_apply(kvString arg, kvSession* session) {
    if (arg == "+") {
        kvSession::m_nameMode |= 1;
        return;
    }
    kvSession::m_nameMode |= 2;
    openOutput(g_qstrm, kvSession::genOutPath(arg, extName), false, session);
}

kvString Q_info(kvString) {
    kvString info;
    if (exitsAt(1, info)) return info;
    return "exit after function parameter name table creation and don't run tests\n";
}
void Q_apply(kvString, kvSession*) { kvSession::m_nameExit = true; }

kvString u_info(kvString arg) {
    kvString info;
    return exitsAt(1, info) ? info : "write summary table to " + kvSession::genOutPath(arg, extSum);
}
void u_apply(kvString arg, kvSession* session) {
    openOutput(g_ustrm, kvSession::genOutPath(arg, extSum), false, session);
}

kvString U_info(kvString arg) {
    kvString info;
    return exitsAt(1, info) ? info : "add summary table to " + kvSession::genOutPath(arg, extSum);
}
void U_apply(kvString arg, kvSession* session) {
    openOutput(g_ustrm, kvSession::genOutPath(arg, extSum), true, session);
}

// The signal file is created under exactly the path reported here.
kvString g_info(kvString arg) {
    return "create file " + kvSession::genOutPath(arg, extSgl) + " at the end of KV work";
}
void g_apply(kvString arg, kvSession* session) {
    session->setSglName(kvSession::genOutPath(arg, extSgl));
}

// ---- names and directories: they act in parseCommandLine before all keys

kvString n_info(kvString arg) {
    if (arg.empty()) return "ignored: empty default name";
    return "name ini-file and output files as " + arg + ".<proper-ext>";
}
void n_apply(kvString, kvSession*) {}

kvString p_info(kvString arg) {
    if (arg.empty()) return "ignored: empty directory name";
    return "open test data files & ini-file in " + kvSession::genDirName(arg);
}
void p_apply(kvString, kvSession*) {}

kvString l_info(kvString arg) {
    if (arg.empty()) return "ignored: empty directory name";
    return "open output files in " + kvSession::genDirName(arg);
}
void l_apply(kvString, kvSession*) {}

// ---- selection

kvString f_info(kvString arg) {
    kvString info;
    if (exitsAt(2, info)) return info;
    switch (getCondition(arg)) {
    case 0: return "test functions containing '" + arg + "'";
    case 1: return "don't test functions without '" + arg + "' in the name";
    case 2: return "don't test functions containing '" + arg + "'";
    case 3: return "test function equal to '" + arg + "'";
    default: return "ignored: empty function pattern";
    }
}
void f_apply(kvString arg, kvSession* session) {
    RunCondition* condition = kvMakeCondition(true, arg);
    if (condition) session->addCondition(condition);
}

kvString t_info(kvString arg) {
    kvString info;
    if (exitsAt(2, info)) return info;
    switch (getCondition(arg)) {
    case 0: return "run tests containing " + arg;
    case 1: return "don't run tests which doesn't contain " + arg;
    case 2: return "don't run tests containing " + arg;
    case 3: return "run test equal to " + arg;
    default: return "ignored: empty test pattern";
    }
}
void t_apply(kvString arg, kvSession* session) {
    RunCondition* condition = kvMakeCondition(false, arg);
    if (condition) session->addCondition(condition);
}

kvString F_info(kvString arg) {
    kvString info;
    return exitsAt(1, info) ? info : "start testing from " + arg + " function";
}
void F_apply(kvString arg, kvSession*) { kvTestList::m_startFunc = arg; }

kvString Y_info(kvString arg) {
    kvString info;
    if (exitsAt(1, info)) return info;
    static const char* const words[4] = {"", "high", "normal", "low"};
    int priority = getPriority(arg);
    if (priority == 0) return "ignored: incorrect process priority value";
    return kvString("set ") + words[priority] + " process priority";
}
void Y_apply(kvString arg, kvSession*) {
    int priority = getPriority(arg);
    if (priority != 0) kvTool::m_priority = priority;
}

static bool isHotOnly(const kvString& arg) { return !arg.empty() && arg[0] == 'O'; }

kvString H_info(kvString arg) {
    kvString info;
    if (exitsAt(2, info)) return info;
    return isHotOnly(arg) ? "run tests for hot functions only" : "add 'Interest' column to table file";
}
void H_apply(kvString arg, kvSession*) { kvTest::m_hot = isHotOnly(arg) ? 2 : 1; }

// ---- library set-up

kvString T_info(kvString arg) {
    if (!vdlEnvironment) return KV_NO_LIBRARY;
    if (kvCpuType::cpuType(arg) == -1) return "ignored: incorrect CPU type";
    return "call vdlInitStaticCpu ( vdlCpu" + arg + " )";
}
void T_apply(kvString arg, kvSession*) { s_cpuType = kvCpuType::cpuType(arg); }

// The thread count, or 0 when the argument is no positive number.
static int threadCount(kvString arg) {
    int n = 0;
    n << arg;
    return arg.errorConvertion() || n < 1 ? 0 : n;
}

kvString N_info(kvString arg) {
    if (!vdlEnvironment) return KV_NO_LIBRARY;
    if (threadCount(arg) == 0) return "ignored: incorrect number of threads";
    return "call vdlSetNumThreads(" + arg + ")";
}
void N_apply(kvString arg, kvSession*) {
    int n = threadCount(arg);
    if (n > 0) s_numThreads = n;
}

// ---- measurement modes

kvString S_info(kvString) {
    kvString info;
    return exitsAt(1, info) ? info : kvString("include to measurement data set & use time");
}
void S_apply(kvString, kvSession*) { g_tool.m_setUse = true; }

kvString C_info(kvString) {
    kvString info;
    if (exitsAt(1, info)) return info;
    return "test data size will be in cache and out of cache if that is supported by test";
}
void C_apply(kvString, kvSession*) { kvTest::m_cache = true; }

// ---- sorting, listing, version, help

kvString s_info(kvString arg) {
    kvString info;
    if (exitsAt(2, info)) return info;
    return arg == "-" ? "don't sort functions" : "sort functions";
}
void s_apply(kvString arg, kvSession* session) {
    if (arg == "-") session->setQuickMode(true);
}

static int enumMode(const kvString& arg) {
    if (arg.empty()) return 0;
    return arg[0] == '+' ? 1 : arg[0] == '-' ? -1 : 0;
}

// Help beats a listing; the version banner comes with it.
kvString e_info(kvString arg) {
    if (kvSession::isExit(2) && !kvSession::isExit(3)) return kvSession::getExitInfo();
    switch (enumMode(arg)) {
    case 1: return "enumerate applied and not applied library functions and exit";
    case -1: return "enumerate not applied library functions and exit";
    default: return "enumerate tested functions and exit";
    }
}
void e_apply(kvString arg, kvSession* session) { session->setEnumMode(enumMode(arg)); }

kvString v_info(kvString) { return "type the version number of the Kelvar System and exit"; }
void v_apply(kvString, kvSession*) { s_version = true; }

static kvString keyHelpInfo(char key) {
    kvString info("type extended help for -");
    info += key;
    return info + " key and exit";
}

static char hintArg(const kvString& arg) { return arg.empty() ? (char)1 : arg[0]; }

kvString h_info(kvString arg) {
    if (arg.empty()) return "type short help and exit";
    if (arg[0] == 'h') return "type extended help and exit";
    return keyHelpInfo(arg[0]);
}
void h_apply(kvString arg, kvSession*) {
    s_hintHide = true;
    s_hintArg = hintArg(arg);
}

kvString hq_info(kvString arg) {
    if (arg.empty()) return "type short help with hidden key sand exit";
    if (arg[0] == '?') return "type extended help with hidden keys and exit";
    return keyHelpInfo(arg[0]);
}
void hq_apply(kvString arg, kvSession*) {
    s_hintHide = false;
    s_hintArg = hintArg(arg);
}
