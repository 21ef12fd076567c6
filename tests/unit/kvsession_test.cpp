// The session: file naming, the signal file, the library hooks and the
// registration functions. Whole runs are checked by running the program itself.
#include <gtest/gtest.h>

#include <string>

#include "kv/kvsession.h"
#include "kvtest.h"
#include "kvtestlist.h"
#include "testutil.h"

namespace {

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
