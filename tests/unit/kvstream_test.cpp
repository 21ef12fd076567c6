// Levelled text streams, line input, the trace labels, and the table
// stream: cells, rows, the append mode, the identical-row check and
// postponed rows.
#include <gtest/gtest.h>

#include <string>

#include "kvcstream.h"
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


std::string warning(int a, int b) {
    return " Performance table warning:\n Lines " + std::to_string(a) + " & " + std::to_string(b) +
           " have identical parameters\n";
}

TEST(KvCStream, RowsArePaddedWithPlaceholders) {
    TempDir dir;
    kvCStream s;
    ASSERT_TRUE(s.addStream(dir.path("t.csv"), false));
    s << "a" << "b" << "c";
    s.lineOut(5);
    s << "a" << "" << 7 << "\n";  // a lone line feed ends the row
    s << "x\n";                   // merely ending in one: a normal cell
    EXPECT_EQ(1, s.getColmCount());
    s.tableFlush();
    s.setColm(2, "third");
    EXPECT_EQ(0, s.getColmCount());
    s.lineOut(3);  // a cell past the column count is not written
    s.setColm(2, "third");
    s.setColmCount(3);
    s.lineOut(0);
    EXPECT_EQ("a,b,c,-,-\na,-,7\n-,-,-\n-,-,third\n", readFile(dir.path("t.csv")));
    EXPECT_EQ(4, s.getLineCount());
}

TEST(KvCStream, CellsBeyond32AreDropped) {
    kvCStream s;
    for (int i = 0; i < 33; ++i) s << i;
    EXPECT_EQ(32, s.getColmCount());
    kvString cell;
    EXPECT_FALSE(s.getColm(32, cell));
    s.setColm(32, "ignored");
    s.setColm(-1, "ignored");
    EXPECT_EQ(32, s.getColmCount());
}

TEST(KvCStream, AppendKeepsOldRowsButCountsFromZero) {
    TempDir dir;
    {
        kvCStream first;
        ASSERT_TRUE(first.addStream(dir.path("t.csv"), false));
        first << "old" << "\n";
    }
    kvCStream s;
    ASSERT_TRUE(s.addStream(dir.path("t.csv"), true));
    EXPECT_EQ(0, s.getLineCount());
    s << "new" << "\n";
    EXPECT_EQ("old\nnew\n", readFile(dir.path("t.csv")));
    EXPECT_FALSE(s.addStream(dir.path("no/dir.csv"), false));
}

TEST(KvCStream, IdenticalRowsNamedByLineNumber) {
    TempDir dir;
    LogCapture log(ERR | WARN);
    kvCStream s;
    ASSERT_TRUE(s.addStream(dir.path("t.csv"), false));
    s << "title" << "\n";
    s.identicalLinesStart(2);
    s << "1" << "2" << "10" << "\n";
    s << "1" << "3" << "11" << "\n";
    s << "1" << "2" << "12" << "\n";  // equal to line 2 in the check columns
    s << "1" << "2" << "13" << "\n";  // a third equal row is not named
    EXPECT_TRUE(s.identicalLinesStop());
    EXPECT_EQ(warning(2, 4), log.text());
    EXPECT_FALSE(s.identicalLinesStop());  // the check is off after a stop

    s.identicalLinesStart(2);
    EXPECT_FALSE(s.identicalLinesStop());  // nothing stored
}

TEST(KvCStream, CheckWidthIsAtMost32AndWorksWithoutFiles) {
    LogCapture log(ERR | WARN);
    kvCStream s;  // no file: rows are forgotten, lines still count
    s.identicalLinesStart(40);
    for (int row = 0; row < 2; ++row) {
        for (int i = 0; i < 31; ++i) s << "p";
        s << row;  // the rows differ in column 32 only
        s.lineOut(0);
    }
    EXPECT_FALSE(s.identicalLinesStop());
    s.identicalLinesStart(40);
    for (int row = 0; row < 2; ++row) {
        for (int i = 0; i < 32; ++i) s << "p";
        s.lineOut(0);
    }
    EXPECT_TRUE(s.identicalLinesStop());
    EXPECT_EQ(warning(3, 4), log.text());
}

TEST(KvCStream, PostponedRowsComeLastAndAreChecked) {
    TempDir dir;
    LogCapture log(ERR | WARN);
    kvCStream s;
    ASSERT_TRUE(s.addStream(dir.path("t.csv"), false));
    s.identicalLinesStart(1);
    s << "dep" << "1";
    s.linePostpone();
    EXPECT_EQ("", readFile(dir.path("t.csv")));
    EXPECT_EQ(0, s.getColmCount());
    s << "reg" << "2" << "\n";
    s.linePostponeOut(3);
    EXPECT_EQ("reg,2\ndep,1,-\n", readFile(dir.path("t.csv")));
    EXPECT_EQ(2, s.getLineCount());
    s.linePostponeOut(3);  // the store is empty again
    EXPECT_EQ(2, s.getLineCount());
    s << "dep" << "\n";
    EXPECT_TRUE(s.identicalLinesStop());  // the postponed row took line 2
    EXPECT_EQ(warning(2, 3), log.text());
}

}  // namespace
