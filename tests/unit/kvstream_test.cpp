#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "kvstream.h"

#include "testutil.h"

namespace {

// Attaches a file to g_ostrm for one test, and puts the global back as it was.
class GlobalLog {
public:
    explicit GlobalLog(const kvString& name, OutputLevel level) : m_name(name) {
        m_level = g_ostrm.getOutLevel();
        g_ostrm.addStream(name, false);
        g_ostrm.setOutLevel(level);
    }
    ~GlobalLog() {
        g_ostrm.close();
        g_ostrm.setOutLevel(m_level);
    }
    std::string text() const {
        g_ostrm.flush();
        return readFile(m_name);
    }
private:
    kvString m_name;
    OutputLevel m_level;
};

TEST(KvOStream, BitMaskFiltersTextBeginMessageComparesNumbers) {
    TempDir dir;
    kvOStream s;
    ASSERT_TRUE(s.addStream(dir.path("log.txt"), false));
    s.setOutLevel(7);
    s << INFO << "hidden" << endMsg;
    s << PERF << "shown " << 42 << endMsg;

    s.setOutLevel(23);
    EXPECT_FALSE(s.beginMessage(DATA));
    ASSERT_TRUE(s.beginMessage(INFO));  // passes the number test, dropped by the mask
    s << "dropped";
    s.endMessage();
    s.setOutLevel(87);
    EXPECT_TRUE(s.beginMessage(DATA));
    s << "data";
    s.endMessageFlush();
    EXPECT_EQ("shown 42data", readFile(dir.path("log.txt")));
}

TEST(KvOStream, LevelStackFallsBackToErr) {
    kvOStream s;
    EXPECT_EQ(PERF, s.getMsgLevel());
    s << WARN << INFO;
    EXPECT_EQ(INFO, s.getMsgLevel());
    s << endMsg;
    EXPECT_EQ(WARN, s.getMsgLevel());
    s << endMsgFlush;
    EXPECT_EQ(PERF, s.getMsgLevel());
    s.restoreMsgLevel();
    s.restoreMsgLevel();  // a stray end marker never silences errors
    EXPECT_EQ(ERR, s.getMsgLevel());
    EXPECT_FALSE(s.beginMessage(WARN));  // out level 1: nothing above errors
    EXPECT_EQ(ERR, s.getMsgLevel());
}

TEST(KvOStream, FanOutWritesEveryFileAndFlushMarkerFlushesThem) {
    TempDir dir;
    kvOStream s;
    ASSERT_TRUE(s.addStream(dir.path("a.txt"), false));
    writeFile(dir.path("b.txt"), "old\n");
    ASSERT_TRUE(s.addStream(dir.path("b.txt"), true));
    s.setOutLevel(3);
    s << WARN << "w:" << (unsigned char)200 << " " << 4000000000u << " " << 1234.5 << ' ' << 'c'
      << "\n" << endMsgFlush;
    // Still open: only the flush can have put the text on disk.
    EXPECT_EQ("w:200 4000000000 1.23e+03 c\n", readFile(dir.path("a.txt")));
    EXPECT_EQ("old\nw:200 4000000000 1.23e+03 c\n", readFile(dir.path("b.txt")));
}

TEST(KvOStream, UnopenableFileReportsAndAddStreamFails) {
    TempDir dir;
    GlobalLog log(dir.path("log.txt"), ERR);
    kvOStream s;
    kvString bad = dir.path("missing/out.txt");
    EXPECT_FALSE(s.addStream(bad, false));
    EXPECT_TRUE(s.empty());
    i_stream in(dir.path("none.txt"), IO_ASIS | IO_READ, true);
    EXPECT_FALSE(in.isOpen());
    kvString line;
    EXPECT_FALSE(in.getline(line));
    i_stream quiet(dir.path("none.txt"), IO_ASIS | IO_READ, false);
    std::string expected = std::string("-- Can't open file ") + bad.c_str() + " to write: \n" +
                           "-- Can't open file " + dir.path("none.txt").c_str() + " to read: \n";
    EXPECT_EQ(expected, log.text());
}

TEST(IStream, GetlineReadsLongLinesInPieces) {
    TempDir dir;
    std::string longLine(1000, 'x'), edge(511, 'y'), fullBuf(1022, 'z');
    writeFile(dir.path("in.txt"),
              longLine + "\n" + edge + "\n\nwith cr\r\n" + fullBuf + "\nlast");
    i_stream in(dir.path("in.txt"), IO_ASIS | IO_READ, true);
    kvString line;
    ASSERT_TRUE(in.getline(line));
    EXPECT_EQ(longLine, line.c_str());
    ASSERT_TRUE(in.getline(line));
    EXPECT_EQ(edge, line.c_str());
    ASSERT_TRUE(in.getline(line));  // an empty line is not the end
    EXPECT_TRUE(line.empty());
    ASSERT_TRUE(in.getline(line));
    EXPECT_STREQ("with cr\r", line.c_str());
    ASSERT_TRUE(in.getline(line));
    EXPECT_EQ(fullBuf, line.c_str());
    ASSERT_TRUE(in.getline(line));  // no line feed behind the last line
    EXPECT_STREQ("last", line.c_str());
    EXPECT_FALSE(in.getline(line));
    EXPECT_TRUE(line.empty());
}

TEST(KvTrace, LabelsNestAndOuterOutClosesInner) {
    TempDir dir;
    GlobalLog log(dir.path("log.txt"), 23);
    kvTrace t;
    t.traceIn("a");
    t.traceIn("b");
    EXPECT_STREQ("b", t.getCurName().c_str());
    EXPECT_STREQ("**", t.getIndent().c_str());
    t.traceOut("a");  // b was left open, as by an exception
    EXPECT_TRUE(t.empty());
    EXPECT_TRUE(t.getIndent().empty());
    EXPECT_TRUE(t.getCurName().empty());
    const char* expected =
        "****** trace into   a\n"
        "******* trace into   b\n"
        "******* trace out of a\n";
    EXPECT_STREQ(expected, t.getText().c_str());
    EXPECT_EQ(expected, readFile(dir.path("log.txt")));  // flushed at each line
    EXPECT_EQ(PERF, g_ostrm.getMsgLevel());

    t.traceIn("x");
    t.traceIn("y");
    t.traceOut("unknown");  // cuts the indent for every label, erases none
    EXPECT_TRUE(t.getIndent().empty());
    EXPECT_EQ(2, t.size());
}

TEST(KvTrace, TraceTextIsKeptEvenWhenTheLevelIsOff) {
    TempDir dir;
    GlobalLog log(dir.path("log.txt"), 7);
    kvTrace t;
    t.traceIn("step");
    t.traceOut("step");
    EXPECT_EQ("", log.text());
    EXPECT_STREQ("****** trace into   step\n****** trace out of step\n", t.getText().c_str());
}

}  // namespace
