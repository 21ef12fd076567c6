// The table stream: cells, rows, the append mode, the identical-row check
// and postponed rows.
#include <gtest/gtest.h>

#include <string>

#include "kvcstream.h"
#include "testutil.h"

namespace {

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
