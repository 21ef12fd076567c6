// Levelled text streams, line input and the trace labels.
#include <gtest/gtest.h>

#include <string>

#include "kvstream.h"
#include "testutil.h"

namespace {

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
    s.restoreMsgLevel();
    s.restoreMsgLevel();  // a stray end marker never silences errors
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

TEST(KvOStream, UnopenableFilesAreReported) {
    TempDir dir;
    LogCapture log(ERR);
    kvOStream s;
    kvString bad = dir.path("missing/out.txt");
    EXPECT_FALSE(s.addStream(bad, false));
    EXPECT_TRUE(s.empty());
    i_stream in(dir.path("none.txt"), IO_ASIS | IO_READ, true);
    kvString line;
    EXPECT_FALSE(in.getline(line));
    i_stream quiet(dir.path("none.txt"), IO_ASIS | IO_READ, false);
    EXPECT_EQ(std::string("-- Can't open file ") + bad.c_str() + " to write: \n" +
                  "-- Can't open file " + dir.path("none.txt").c_str() + " to read: \n",
              log.text());
}

TEST(IStream, GetlineReadsLongLinesInPieces) {
    TempDir dir;
    std::string longLine(1000, 'x'), edge(511, 'y'), fullBuf(1022, 'z');
    writeFile(dir.path("in.txt"), longLine + "\n" + edge + "\n\nwith cr\r\n" + fullBuf + "\nlast");
    i_stream in(dir.path("in.txt"), IO_ASIS | IO_READ, true);
    // An empty line is not the end; a carriage return stays; the last line
    // needs no line feed.
    for (const std::string& want : {longLine, edge, std::string(), std::string("with cr\r"), fullBuf,
                                    std::string("last")}) {
        kvString line;
        ASSERT_TRUE(in.getline(line));
        EXPECT_EQ(want, line.c_str());
    }
    kvString line("x");
    EXPECT_FALSE(in.getline(line));
    EXPECT_TRUE(line.empty());
}

TEST(KvTrace, LabelsNestAndOuterOutClosesInner) {
    LogCapture log(23);
    kvTrace t;
    t.traceIn("a");
    t.traceIn("b");
    EXPECT_STREQ("**", t.getIndent().c_str());
    t.traceOut("a");  // b was left open, as by an exception
    EXPECT_TRUE(t.empty());
    EXPECT_TRUE(t.getCurName().empty());
    const char* expected =
        "****** trace into   a\n"
        "******* trace into   b\n"
        "******* trace out of a\n";
    EXPECT_STREQ(expected, t.getText().c_str());
    EXPECT_EQ(expected, log.onDisk());  // flushed at each line
    EXPECT_EQ(PERF, g_ostrm.getMsgLevel());

    t.traceIn("x");
    t.traceIn("y");
    t.traceOut("unknown");  // cuts the indent for every label, erases none
    EXPECT_TRUE(t.getIndent().empty());
    EXPECT_EQ(2, t.size());
}

TEST(KvTrace, TraceTextIsKeptEvenWhenTheLevelIsOff) {
    LogCapture log(7);
    kvTrace t;
    t.traceIn("step");
    t.traceOut("step");
    EXPECT_EQ("", log.text());
    EXPECT_STREQ("****** trace into   step\n****** trace out of step\n", t.getText().c_str());
}

}  // namespace
