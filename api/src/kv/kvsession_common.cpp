// The run's common parameters: the timing method of g_tool, the parameters
// that test modules register for all tests, and the position of test data
// in memory. Each value lives only for its question: it is read through
// g_istrm (-d, ini file, console, default) and handed over.
#include "kvsession.h"

#include "../kvistream.h"
#include "../kvmemory.h"
#include "../kvparameter.h"
#include "../kvtestlist.h"
#include "../kvtool/kvtool.h"

static const int KV_TITLE_WIDTH = 79;

kvString kvSession::getEnterTitle(kvString text) {
    kvString stars(" ");
    stars.resize(KV_TITLE_WIDTH, '*');
    stars += "\n";

    // The text is centred between the two stars at columns 1 and 78.
    kvString middle(" *");
    int start = (80 - text.length()) / 2;
    if (start > middle.length()) middle.resize(start, ' ');
    middle += text;
    if (middle.length() < KV_TITLE_WIDTH - 1) middle.resize(KV_TITLE_WIDTH - 1, ' ');
    middle += "*\n";
    return stars + middle + stars;
}

// Title boxes go out at the error level, so they show whatever -L says.
static void titleBox(const char* text) {
    g_ostrm << ERR << kvSession::getEnterTitle(text) << endMsg;
}

// The console answers only the groups that -A opened.
static void askConsole(int ask, const char* title) {
    g_istrm.setIStream(ask ? &c_in : 0);
    if (ask) titleBox(title);
}

void kvSession::readCommonData() {
    int a = readTimingMethod();
    int b = readTestParameters();
    int c = readDataOffset();
    if (a + b + c != 0) titleBox("End of common specifications");
}

// A parameter's default comes from the local tool when a registered
// initTimingMethod chose that very method.
int kvSession::readTimingMethod() {
    kvTool local;
    if (initTimingMethod) initTimingMethod(local);
    else local.setMethodAuto();

    int ask = m_askMode & 1;
    askConsole(ask, "Specify timing method, please");

    kvMapDefault<int> method(local.m_method, "Method", "");
    method[KV_METHOD_AUTO] = "Auto";
    method[KV_METHOD_MANUAL] = "Manual";
    method[KV_METHOD_STATISTIC] = "Statistic";
    method[KV_METHOD_ITERATIVE] = "Iterative";
    method.fromIStream(g_istrm);

    switch (method.value()) {
    case KV_METHOD_MANUAL: {
        int loops = 10;
        local.getMethodLoop(loops);
        kvDefault<int> numLoops(loops, "NumLoops", "");
        numLoops.fromIStream(g_istrm);
        g_tool.setMethodLoop(numLoops.value());
        break;
    }
    case KV_METHOD_STATISTIC: {
        int calls = 3;
        long long clocks = 10000;
        local.getMethodStat(calls, clocks);
        kvDefault<int> numCalls(calls, "NumCalls", "");
        kvDefault<int> totalClocks((int)clocks, "TotalCpuClocks", "");
        numCalls.fromIStream(g_istrm);
        totalClocks.fromIStream(g_istrm);
        g_tool.setMethodStat(numCalls.value(), (long long)totalClocks.value());
        break;
    }
    case KV_METHOD_ITERATIVE: {
        int start = 1, stop = 2048;
        long long clocks = 0;
        kvTool::getAutoParameters(start, stop, clocks);
        local.getMethodBest(start, stop, clocks);
        kvDefault<int> startLoops(start, "StartNumLoops", "");
        kvDefault<int> stopLoops(stop, "StopNumLoops", "");
        startLoops.fromIStream(g_istrm);
        stopLoops.fromIStream(g_istrm);
        g_tool.setMethodBest(startLoops.value(), stopLoops.value(), clocks);
        if (startLoops.value() > g_tool.m_startLoops || stopLoops.value() > g_tool.m_maxLoops)
            g_ostrm << WARN << "-- Loop counts held to their limits: StartNumLoops="
                    << g_tool.m_startLoops << " StopNumLoops=" << g_tool.m_maxLoops << "\n"
                    << endMsg;
        break;
    }
    default:
        g_tool.setMethodAuto();
        break;
    }
    readAccuracy(method.value());
    return ask;
}

// Percentages 1 to 50 become fractions; anything else becomes an accuracy
// that every measurement meets.
void readAccuracy(int method) {
    if (method == KV_METHOD_MANUAL || method == KV_METHOD_STATISTIC) return;
    int def = (method == KV_METHOD_AUTO || method == KV_METHOD_ITERATIVE) ? 5 : 100;
    kvDefault<int> accuracy(def, "Accuracy", "Accuracy, %");
    accuracy.fromIStream(g_istrm);
    double a = accuracy.value() * 0.01;
    if (a < 0.01) a = 10.0;
    if (a > 0.5) a = 500.0;
    g_tool.m_accuracy = a;
}

// A dry pass in batch mode over the selected tests drops the registered
// parameters that none of them uses, so they are not asked for.
void kvSession::selectTestParameters() {
    if (!g_pParmList) return;
    bool batch = m_batch;
    int askMode = m_askMode;
    m_batch = true;
    m_askMode = 0;
    pTestList->selectCommonParms(*m_conditions, *g_pParmList);
    m_batch = batch;
    m_askMode = askMode;
}

int kvSession::readTestParameters() {
    if (!g_pParmList || g_pParmList->empty()) return 0;
    int ask = m_askMode & 2;
    askConsole(ask, "Specify common test parameters, please");
    for (kvList<kvParameter*>::iterator it = g_pParmList->begin(); it != g_pParmList->end(); ++it) {
        (*it)->fromIStream(g_istrm);
        // A later test shows the value without asking again.
        (*it)->setToRead(false);
    }
    return ask;
}

int kvSession::readDataOffset() {
    int ask = m_askMode & 4;
    askConsole(ask, "Specify vectors alignment, please");

    kvMapDefault<bool> byByte(false, "AlignVectorsBy", "");
    byByte[true] = "byte";
    byByte[false] = "element";
    byByte.fromIStream(g_istrm);
    kvSetAlignByByte(byByte.value());

    DefaultAlign align(0, "VectorAlign",
                       byByte.value() ? "VectorAlign by Byte, 0..63" : "VectorAlign by Element, 0..63");
    align.fromIStream(g_istrm);
    kvSetVectorAlign(align.value());

    if (align.value() != 0) {
        kvMapDefault<bool> firstOnly(true, "MisalignFirstVectorOnly", "");
        firstOnly[true] = "yes";
        firstOnly[false] = "no";
        firstOnly.fromIStream(g_istrm);
        kvSetAlignSrc(firstOnly.value());
    }

    // The shift is fixed: no source reaches it.
    DefaultShift shift(512, "MutualVectorShift", "MutualVectorShift in Bytes, divisible by 64");
    kvSetVectorShift(shift.value());
    return ask;
}

void kvSession::beginCommonData() { g_ostrm.setOutLevel(7); }

void kvSession::endCommonData() {
    g_ostrm.setOutLevel(m_levelMode);
    if (!(m_askMode & 8)) g_istrm.setIStream(0);
}
