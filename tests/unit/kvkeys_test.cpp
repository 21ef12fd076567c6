// Command keys: the tokenizer, argument translations, run selection, the
// report line of each key, help, the run's common parameters, and the
// session's file naming, signal file, library hooks and registration.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kv/kvkeys.h"
#include "kv/kvsession.h"
#include "kvconditions.h"
#include "kvcputype.h"
#include "kvistream.h"
#include "kvmemory.h"
#include "kvparameter.h"
#include "kvtest.h"
#include "kvtestlist.h"
#include "kvtool/kvtool.h"
#include "testutil.h"

#include <gmock/gmock.h>

using ::testing::HasSubstr;
using ::testing::Not;

namespace {

std::string str(const kvString& s) { return s.c_str(); }

// Every key of a tokenized line as "letter:argument".
std::string keysOf(const kvCommandList& list) {
    std::string r;
    for (kvCommandList::iterator it = list.begin(); it != list.end(); ++it)
        r += (r.empty() ? "" : " ") + std::string(1, it->m_key) + ":" + it->m_arg.c_str();
    return r;
}

std::string tokenize(std::vector<const char*> words) {
    kvCommandList list;
    list.setArgs((int)words.size(), const_cast<char**>(words.data()));
    return keysOf(list);
}

std::string tokenizeLine(const char* line) {
    kvCommandList list;
    list.setArgs(line);
    return keysOf(list);
}

// Puts back every global that a key changes.
void resetKeyGlobals() {
    s_hintArg = 0;
    s_hintHide = false;
    s_version = false;
    s_cpuType = -1;
    s_numThreads = 0;
    vdlEnvironment = 0;
    kvTest::m_hot = 0;
    kvTest::m_pressing = false;
    kvTest::m_cache = false;
    kvTool::m_priority = 0;
    g_tool.m_setUse = false;
    kvTestList::m_startFunc = "";
    g_istrm.dataList().clear();
    g_istrm.deleteIniFile();
    g_istrm.setIStream(0);
}

// A session with the whole key table, as initSession builds it, but without
// binding the library.
class KeysTest : public ::testing::Test {
protected:
    void SetUp() override {
        resetKeyGlobals();
        m_session.m_conditions = new kvConditions;
        m_session.registerOptions(true);
    }
    void TearDown() override {
        for (kvConditions::iterator it = m_session.m_conditions->begin();
             it != m_session.m_conditions->end(); ++it)
            delete *it;
        delete m_session.m_conditions;
        resetKeyGlobals();
    }

    // Runs parseCommandLine on the words and returns what it reported.
    std::string parse(std::vector<const char*> words, bool* result = 0) {
        std::vector<char*> argv;
        argv.push_back(const_cast<char*>(m_exe.c_str()));
        for (const char* w : words) argv.push_back(const_cast<char*>(w));
        LogCapture out;
        bool ok = m_session.parseCommandLine((int)argv.size(), argv.data());
        if (result) *result = ok;
        return out.text();
    }

    std::string help(char arg, bool hide) {
        LogCapture out;
        m_session.hint(arg, hide);
        return out.text();
    }

    kvSession m_session;
    std::string m_exe = "/opt/kv/bin/kelvar";
};

// ---------------------------------------------------------------- tokenizer

TEST(KvCommandList, TokenizingAndTheLastOccurrence) {
    EXPECT_EQ("f:-abc", tokenize({"-f-", "abc"}));
    EXPECT_EQ("f:=x B:", tokenize({"-f=", "x", "/B"}));
    EXPECT_EQ("f:+ B:", tokenize({"-f+", "-B"}));
    // With a glued argument the next word is read and lost.
    EXPECT_EQ("f:abc B:", tokenize({"-fabc", "def", "-B"}));
    // A path in the next word is a key of its own; a lone "-" is an argument.
    EXPECT_EQ("i: t:mp/x", tokenize({"-i", "/tmp/x"}));
    EXPECT_EQ("e:-", tokenize({"-e", "-"}));
    // A word in key position that is no key goes, with its follower.
    EXPECT_EQ("B:", tokenize({"junk", "more", "-B"}));
    EXPECT_FALSE(isKeyString("ab"));
    EXPECT_EQ("B: f:Log d:a=1 L:WARN", tokenizeLine("-B;-fLog  -d a=1\t-LWARN\r\n"));

    // The last occurrence of a key wins.
    kvCommandList list;
    list.setArgs("-pA -B -pB -n");
    kvString arg;
    ASSERT_TRUE(list.getArg('p', arg));
    EXPECT_EQ("B", str(arg));
    ASSERT_TRUE(list.getArg('n', arg));
    EXPECT_EQ("", str(arg));
    EXPECT_FALSE(list.isKey('x'));
    EXPECT_FALSE(list.getArg('x', arg));
    EXPECT_FALSE(kvCommandList().getArg('p', arg));
}

// ---------------------------------------------------------------- translations

TEST(KvKeyArgs, Translations) {
    // An empty argument and a word that is no prefix of a name ask for all.
    EXPECT_EQ(15, getAskLevel(""));
    EXPECT_EQ(15, getAskLevel("timing"));
    EXPECT_EQ(3, getAskLevel("TimingParams"));
    EXPECT_EQ(4, getAskLevel("Misalign"));
    // Each level takes in those below it; names are case sensitive.
    const char* levels[] = {"ERR", "PERF", "TRACE", "DATA", "M", "err"};
    const int values[] = {1, 7, 23, 87, 39, 0};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(values[i], getLevel(levels[i])) << levels[i];
    EXPECT_EQ(2, getPriority("N"));
    EXPECT_EQ(0, getPriority("high"));

    struct Case { const char* in; int kind; const char* out; };
    const Case cases[] = {{"", 4, ""},    {"=", 4, ""},   {"-", 4, ""},       {"=a", 3, "a"},
                          {"+a", 1, "a"}, {"-a", 2, "a"}, {"a-b", 0, "a-b"}, {"==a", 3, "=a"}};
    for (const Case& c : cases) {
        kvString arg(c.in);
        EXPECT_EQ(c.kind, getCondition(arg)) << c.in;
        EXPECT_EQ(c.out, str(arg)) << c.in;
    }
}

// ---------------------------------------------------------------- selection

// The functions that the -f/-t keys (written as "f-Gauss", "t=TimVQ") leave.
std::string selected(std::vector<const char*> keys) {
    kvTest tests[] = {{0, 0, "vdlsLogAdd_32f", "p_log_au", "TimLogAdd/d"},
                      {0, 0, "vdlsLogGauss_32f_D2", "p_lgauss_au", "TimLGauss/d"},
                      {0, 0, "vdlsLogGauss_16s32f_D2", "p_lgauss_au", "TimLGauss/d"},
                      {0, 0, "vdlsVQ_16s", "p_vq_au", "TimVQ/d"}};
    kvConditions conditions;
    for (const char* k : keys)
        if (RunCondition* c = kvMakeCondition(k[0] == 'f', k + 1))
            conditions.insert(conditions.end(), c);
    std::string r;
    for (kvTest& t : tests)
        if (conditions.tobeRun(&t)) r += std::string(r.empty() ? "" : " ") + t.m_name.c_str();
    for (kvConditions::iterator it = conditions.begin(); it != conditions.end(); ++it) delete *it;
    return r;
}

TEST(KvConditions, TwoGroupRule) {
    const std::string all = "vdlsLogAdd_32f vdlsLogGauss_32f_D2 vdlsLogGauss_16s32f_D2 vdlsVQ_16s";
    EXPECT_EQ(all, selected({}));
    EXPECT_EQ(all, selected({"f=", "t"}));   // empty patterns build nothing
    EXPECT_EQ("vdlsLogAdd_32f", selected({"fLog", "f-Gauss"}));
    EXPECT_EQ("vdlsLogGauss_32f_D2 vdlsLogGauss_16s32f_D2", selected({"f+32f", "f+D2"}));
    // "=" does not exempt from "-".
    EXPECT_EQ("", selected({"f=vdlsVQ_16s", "f-VQ"}));
    // Function and test keys share the first group.
    EXPECT_EQ("vdlsLogGauss_32f_D2 vdlsLogGauss_16s32f_D2 vdlsVQ_16s", selected({"fVQ", "tTimLG"}));
    EXPECT_EQ("", selected({"t=TimLGaus"}));
    EXPECT_EQ("", selected({"flog"}));
    EXPECT_EQ("vdlsLogAdd_32f vdlsLogGauss_32f_D2 vdlsLogGauss_16s32f_D2",
              selected({"t-TimVQ", "t+Tim"}));
}

// ---------------------------------------------------------------- report lines

TEST_F(KeysTest, ReportLinesUnderAnExitKey) {
    bool ok = false;
    std::string out = parse({"-B", "-LWARN", "-LDATA", "-x", "-f=abc", "-f=", "-t", "-", "-Q",
                             "-YLOW", "-HO", "-Hx", "-s-", "-e", "+", "-FvdlsVQ", "-C"},
                            &ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ("Command line options: \n"
              "-B: ignored because of -e option\n"
              "-LWARN: ignored because of -e option\n"
              "-LDATA: ignored because of -e option\n"
              "-x: ignored: incorrect option key\n"
              "-f=abc: test function equal to 'abc'\n"
              "-f=: ignored: empty function pattern\n"
              "-t-: ignored: empty test pattern\n"
              "-Q: ignored because of -e option\n"
              "-YLOW: ignored because of -e option\n"
              "-HO: run tests for hot functions only\n"
              "-Hx: add 'Interest' column to table file\n"
              "-s-: don't sort functions\n"
              "-e+: enumerate applied and not applied library functions and exit\n"
              "-FvdlsVQ: ignored because of -e option\n"
              "-C: ignored because of -e option\n",
              out);
    // Ignored in the report, still applied.
    EXPECT_TRUE(m_session.m_batch);
    EXPECT_EQ(87, m_session.m_levelMode);
    EXPECT_EQ(3, kvTool::m_priority);
    EXPECT_EQ(1, m_session.m_enumMode);
    EXPECT_EQ("vdlsVQ", str(kvTestList::m_startFunc));
    EXPECT_EQ(1, m_session.m_conditions->size());
}

TEST_F(KeysTest, ReportLinesOfARun) {
    std::string out = parse({"-A", "-YNORMAL", "-Yx", "-SU", "-dX=1", "-d", "X=2", "-d", "", "-dfoo",
                             "-d =1"});
    const char* lines[] = {"-Yx: ignored: incorrect process priority value\n",
                           "-dX=2: set KV parameter X=2\n", "-d: ignored: empty data argument\n",
                           "-d =1: ignored: incorrect data format\n"};
    for (const char* line : lines) EXPECT_THAT(out, HasSubstr(line)) << line;
    EXPECT_EQ(2, kvTool::m_priority);
    EXPECT_EQ(15, m_session.m_askMode);
    EXPECT_TRUE(g_tool.m_setUse);
    // The last -d of a name wins; a -d without "=" is stored with no value.
    kvString value;
    ASSERT_TRUE(g_istrm.dataList().get("X", value));
    EXPECT_EQ("2", str(value));
    ASSERT_TRUE(g_istrm.dataList().get("foo", value));
    EXPECT_EQ("", str(value));
    EXPECT_EQ(2, g_istrm.dataList().size());
}

TEST_F(KeysTest, ExitLevels) {
    std::string out = parse({"-B", "-e", "-h"});
    EXPECT_THAT(out, HasSubstr("-B: ignored because of -h option\n-e: ignored because of -h option\n"));
    EXPECT_EQ(1, s_hintArg);
    EXPECT_TRUE(s_hintHide);

    // -e ranks above -v, and leaves the selection keys alone.
    out = parse({"-v", "-e", "-fx", "-B"});
    EXPECT_THAT(out, HasSubstr("-e: enumerate tested functions and exit\n"
                              "-fx: test functions containing 'x'\n"
                              "-B: ignored because of -e option\n"));

    out = parse({"-hB", "-e-", "-?h"});
    EXPECT_THAT(out, HasSubstr("-hB: type extended help for -B key and exit\n"
                              "-e-: ignored because of -h option\n"
                              "-?h: type extended help for -h key and exit\n"));
    EXPECT_EQ('h', s_hintArg);
    EXPECT_FALSE(s_hintHide);
    EXPECT_EQ(-1, m_session.m_enumMode);
}

TEST_F(KeysTest, FileNamesFollowDirectoriesAndDefaultName) {
    std::string out = parse({"-l", "out", "-g", "-pin", "-iset", "-p/data", "-nrun", "-n", "-p"});
    // -p, -l and -n act before all keys: the last -p (empty) is the default.
    const char* lines[] = {"-g: create file /opt/kv/bin/out/kelvar.end at the end of KV work\n",
                           "-pin: open test data files & ini-file in /opt/kv/bin/in/\n",
                           "-p/data: open test data files & ini-file in /data/\n",
                           "-n: ignored: empty default name\n"};
    for (const char* line : lines) EXPECT_THAT(out, HasSubstr(line)) << line;
    EXPECT_EQ("/opt/kv/bin/out/kelvar.end", str(m_session.m_sglName));
    EXPECT_EQ("/opt/kv/bin/set.ini", str(m_session.m_iniName));
}

TEST_F(KeysTest, LastIniKeySetsNameAndMode) {
    TempDir dir;
    std::string pdir = "-p" + dir.dir() + "/";
    parse({pdir.c_str(), "-Iw", "-ir"});
    EXPECT_EQ(str(dir.path("r.ini")), str(m_session.m_iniName));
    EXPECT_FALSE(m_session.m_iniWrite);
    bool ok = false;
    parse({pdir.c_str(), "-ir", "-Iw"}, &ok);
    EXPECT_TRUE(ok);
    EXPECT_TRUE(m_session.m_iniWrite);
    EXPECT_TRUE(g_istrm.isIniUpdate());
    g_istrm.deleteIniFile();
}

TEST_F(KeysTest, LibraryKeys) {
    std::string out = parse({"-TNoSuchCpu"});
    EXPECT_THAT(out, HasSubstr("-TNoSuchCpu: ignored: <vdlcore.h> is not included before <dl.h> "
                              "in test files\n"));
    vdlEnvironment = [] {};
    out = parse({"-TNoSuchCpu", "-N4", "-N0", "-Nx"});
    EXPECT_THAT(out, HasSubstr("-TNoSuchCpu: ignored: incorrect CPU type\n"
                              "-N4: call vdlSetNumThreads(4)\n"
                              "-N0: ignored: incorrect number of threads\n"
                              "-Nx: ignored: incorrect number of threads\n"));
    EXPECT_EQ(4, s_numThreads);
    EXPECT_EQ(-1, s_cpuType);
}

// ---------------------------------------------------------------- table

TEST_F(KeysTest, TableWithoutTheLibraryAndItsUpdate) {
    kvSession bare;
    int savedQ = qKeys;
    qKeys = 0;
    bare.registerOptions(false);
    qKeys = savedQ;
    EXPECT_EQ(29, bare.m_options.size());
    EXPECT_EQ(nullptr, bare.getOption('T'));

    // The processor list takes the place of the tab, once.
    m_session.updateOptions();
    m_session.updateOptions();
    std::string descr = str(m_session.getOption('T')->m_descr);
    std::string list = str(kvCpuType::optimizedList());
    EXPECT_EQ(std::string(T_descr).replace(std::string(T_descr).find('\t'), 1, list), descr);

    // Neither -A nor -B asks timing and common parameters; -B beats -A.
    m_session.m_askMode = 0;
    m_session.updateOptions();
    EXPECT_EQ(3, m_session.m_askMode);
    m_session.m_batch = true;
    m_session.updateOptions();
    EXPECT_EQ(0, m_session.m_askMode);
}

// ---------------------------------------------------------------- help

// Each form: its heading, the keys it takes in or leaves out, its end.
TEST_F(KeysTest, HelpForms) {
    std::string quick = help(1, true);
    EXPECT_EQ(0u, quick.find(std::string("QUICK HELP\n") + B_help + A_help + d_help));
    EXPECT_THAT(quick, Not(HasSubstr(S_help)));
    EXPECT_EQ(quick.size() - std::string(h_help).size(), quick.rfind(h_help));
    EXPECT_THAT(help(1, false), HasSubstr(std::string("QUICK HELP with hidden keys\n") + B_help));

    std::string full = help('h', true);
    EXPECT_EQ(0u, full.find(std::string("EXTENDED HELP\n\n") + B_help + B_descr + "\n" + A_help));
    // Hidden keys and keys without help text are left out.
    EXPECT_THAT(full, Not(HasSubstr(S_help)));
    EXPECT_THAT(full, Not(HasSubstr(hq_descr)));
    EXPECT_THAT(help('?', false), HasSubstr(std::string("\n") + S_help +
                                           "This is hidden key used by developers only\n" + S_descr));

    EXPECT_EQ(std::string("EXTENDED KEY HELP\n") + F_help + F_descr, help('F', true));
    // -h? asks for the key help of -?.
    EXPECT_EQ("EXTENDED KEY HELP\nKey -? is deprecated\n" + std::string(hq_descr), help('?', true));
    EXPECT_EQ(std::string("EXTENDED KEY HELP\n") + e_help + "No detailed description for this key\n",
              help('e', true));
    EXPECT_EQ("EXTENDED KEY HELP\nKey -x is not valid\n", help('x', true));
}

// ---------------------------------------------------------------- common data

TEST(KvEnterTitle, CentredInA79ColumnBox) {
    std::string box = str(kvSession::getEnterTitle("End of common specifications"));
    std::string stars = " " + std::string(78, '*') + "\n";
    std::string middle = " *" + std::string(24, ' ') + "End of common specifications";
    middle += std::string(78 - middle.size(), ' ') + "*\n";
    EXPECT_EQ(stars + middle + stars, box);

    // A text wider than the box pushes the closing star out.
    std::string wide(90, 'x');
    std::string line = str(kvSession::getEnterTitle(wide.c_str())).substr(80);
    EXPECT_EQ(" *" + wide + "*\n", line.substr(0, line.find('\n') + 1));
}

class CommonDataTest : public ::testing::Test {
protected:
    void SetUp() override {
        resetKeyGlobals();
        g_tool = kvTool();
    }
    void TearDown() override { SetUp(); }
    void set(const char* item) { g_istrm.dataList().set(item); }
    double accuracy(const char* percent, int method) {
        g_tool.m_accuracy = 0.05;
        g_istrm.dataList().clear();
        if (percent) g_istrm.dataList().set("Accuracy", percent);
        readAccuracy(method);
        return g_tool.m_accuracy;
    }
    kvSession session;
};

TEST_F(CommonDataTest, AccuracyLimits) {
    EXPECT_DOUBLE_EQ(0.05, accuracy(0, KV_METHOD_AUTO));
    EXPECT_DOUBLE_EQ(0.5, accuracy("50", KV_METHOD_AUTO));
    EXPECT_DOUBLE_EQ(0.01, accuracy("1", KV_METHOD_ITERATIVE));
    // Figures outside 1 to 50 % are out of range and give 500.
    for (const char* bad : {"51", "0", "-3"}) EXPECT_DOUBLE_EQ(500.0, accuracy(bad, KV_METHOD_AUTO));
    // Manual and Statistic leave it alone; other methods default to 100 %.
    EXPECT_DOUBLE_EQ(0.05, accuracy("20", KV_METHOD_MANUAL));
    EXPECT_DOUBLE_EQ(0.05, accuracy("20", KV_METHOD_STATISTIC));
    EXPECT_DOUBLE_EQ(500.0, accuracy(0, 7));
}

TEST_F(CommonDataTest, TimingMethodFromData) {
    LogCapture out;
    for (const char* item : {"Method=stat", "NumCalls=7", "StartNumLoops=16", "StopNumLoops=100"})
        set(item);
    EXPECT_EQ(0, session.readTimingMethod());
    EXPECT_EQ(KV_METHOD_STATISTIC, g_tool.m_method);
    EXPECT_EQ(7, g_tool.m_statCalls);
    EXPECT_EQ(10000, g_tool.m_statClocks);
    set("Method=Iterative");
    session.readTimingMethod();
    EXPECT_EQ(KV_METHOD_ITERATIVE, g_tool.m_method);
    EXPECT_EQ(16, g_tool.m_startLoops);
    EXPECT_EQ(128, g_tool.m_maxLoops);
    set("Method=x");
    session.readTimingMethod();
    EXPECT_EQ(KV_METHOD_AUTO, g_tool.m_method);
    EXPECT_THAT(out.text(), HasSubstr("Invalid value of Method = x\n"));
}

TEST_F(CommonDataTest, DataOffsetFromData) {
    LogCapture out;
    set("VectorAlign=70");
    set("AlignVectorsBy=b");
    set("MisalignFirstVectorOnly=no");
    set("MutualVectorShift=64");
    EXPECT_EQ(0, session.readDataOffset());
    EXPECT_TRUE(kvGetAlignByByte());
    EXPECT_EQ(6, kvGetVectorAlign());
    EXPECT_FALSE(kvGetAlignSrc());
    EXPECT_EQ(512, kvGetVectorShift());
    EXPECT_THAT(out.text(), Not(HasSubstr("MutualVectorShift")));

    // A multiple of 64 is no misalignment, so the first-vector question goes.
    set("VectorAlign=64");
    set("AlignVectorsBy=element");
    std::string before = out.text();
    session.readDataOffset();
    std::string text = out.text().substr(before.size());
    EXPECT_EQ(" AlignVectorsBy = element\n VectorAlign = 0\n", text);
    kvSetAlignSrc(true);
    kvSetAlignByByte(false);
}

TEST_F(CommonDataTest, CommonParametersAreReadOnce) {
    kvDefault<int> frame(256, "FrameLen", "");
    kvList<kvParameter*>* saved = g_pParmList;
    g_pParmList = new kvList<kvParameter*>;
    EXPECT_EQ(0, session.readTestParameters());
    kvRegParm(frame);
    set("FrameLen=320");
    LogCapture out;
    session.m_askMode = 2;
    // Asked at the console, but -d settles it first.
    EXPECT_EQ(2, session.readTestParameters());
    EXPECT_EQ(320, frame.value());
    EXPECT_FALSE(frame.toRead());
    EXPECT_THAT(out.text(), HasSubstr("Specify common test parameters, please"));
    delete g_pParmList;
    g_pParmList = saved;
}


TEST(KvSessionPaths, DirectoriesAreRelativeToTheExecutable) {
    kvSession::m_exePath = "/opt/kv/bin/kelvar";
    EXPECT_STREQ("/opt/kv/bin/", kvSession::genDirName("").c_str());
    EXPECT_STREQ("/opt/kv/bin/out/", kvSession::genDirName("out").c_str());
    EXPECT_STREQ("/abs/", kvSession::genDirName("/abs").c_str());
    EXPECT_STREQ("C:\\x\\", kvSession::genDirName("C:\\x\\").c_str());
    kvSession::m_exePath = "kelvar";
    EXPECT_STREQ("", kvSession::genDirName("").c_str());
}

TEST(KvSessionPaths, FileNamesTakeTheirEnding) {
    kvSession s;
    kvSession::m_exePath = "/opt/kv/bin/kelvar.exe";
    s.setOutDir("");
    s.setDefName("");
    EXPECT_STREQ("kelvar", kvSession::m_defName.c_str());
    EXPECT_STREQ("/opt/kv/bin/kelvar_sum.csv", kvSession::genOutPath("", "_sum.csv").c_str());
    EXPECT_STREQ("/opt/kv/bin/foo.csv", kvSession::genOutPath("foo.csv", "_sum.csv").c_str());
    EXPECT_STREQ("/opt/kv/bin/./r", kvSession::genOutPath("./r", ".csv").c_str());
    EXPECT_STREQ("/tmp/a", kvSession::genOutPath("/tmp/a", ".csv").c_str());
    s.setOutDir("/out");
    EXPECT_STREQ("/out/x.txt", kvSession::getOutPath("/out/x.txt").c_str());
    s.setDefName("title");
    EXPECT_STREQ("/out/title.ini", kvSession::genOutPath("", ".ini").c_str());
}

TEST(KvSessionSignal, SignalFileHoldsElapsedAndEndTime) {
    TempDir dir;
    std::string path = dir.path("run.end").c_str();
    kvSession s;
    s.outputSignal();  // no name: nothing, and no crash without a list
    s.setSglName(path.c_str());
    s.outputSignal();
    std::string text = readFile(path.c_str());
    EXPECT_EQ(0u, text.find("00:00:00\n"));
    EXPECT_EQ("\n\n", text.substr(text.size() - 2));
}

TEST(KvSessionHooks, FallbacksMarkTheMissingLibrary) {
    vdl_Init = 0;
    vdl_GetStatusString = 0;
    kvBindVdlFallbacks();
    EXPECT_EQ(-2, vdl_Init());
    EXPECT_EQ(-2, vdl_SetNumThreads(2));
    EXPECT_STREQ("Error", vdl_GetStatusString(-5));
    EXPECT_STREQ("Warning", vdl_GetStatusString(3));
}

TEST(KvSessionRegistration, LibraryInfoDropsRepeats) {
    EXPECT_EQ(1, kvRegLibInfo("lib, 1.0, today"));
    EXPECT_EQ(0, kvRegLibInfo("lib, 1.0, today"));
    EXPECT_EQ(0, kvRegLibFunc(""));
    EXPECT_EQ(1, kvRegLibFunc("vdlsX_32f"));
    EXPECT_EQ(1, kvRegCmdLine("-B"));
    EXPECT_STREQ(" -B", pCmdLine->c_str());
}

}  // namespace
