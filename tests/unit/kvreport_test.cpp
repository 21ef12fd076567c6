// Layout of the report frames and the contents of the summary and listings.
#include <gtest/gtest.h>

#include "kvconditions.h"
#include "kvreport.h"
#include "kvtest.h"
#include "kvtestlist.h"

namespace {

TEST(KvReportFormat, FramedLinesEndWithBarAtPlace78) {
    kvReportFormat f(true, 1, 11, 13, -79, -79, -79);
    kvString empty = f.getLine("", "", "", "", "", "");
    ASSERT_EQ(80, empty.length());
    EXPECT_EQ('|', empty[78]);
    EXPECT_EQ(0, f.getLine("CPU", ":", "value", "", "", "").find("| CPU      : value "));
    EXPECT_EQ(0, f.getLine("Description", ":", "x", "", "", "").find("| Description : x"));
    // Right-aligned items; one too long for the frame is left out.
    kvString t = f.getLine("", "", "", "Thu Jan  1 10:00:00 2026", "", "");
    EXPECT_EQ(54, t.find("Thu"));
    EXPECT_EQ(78, t.find("|", 1));
    kvString tooLong;
    tooLong.resize(79, 'x');
    EXPECT_EQ(-1, f.getLine("", "", "", tooLong, "", "").find("x"));
    // An over-long value pushes the closing bar out.
    kvString value;
    value.resize(90, 'v');
    kvString over = f.getLine("CPU", ":", value, "", "", "");
    EXPECT_EQ(-1, over.find("|", 1));
    EXPECT_EQ('\n', over[over.length() - 1]);
}

TEST(KvReportFormat, FrameOffSeparatorsAndTimes) {
    kvReportFormat f(false, 1, 14, -79, -79, -79, -79);
    EXPECT_STREQ("  -OK         name\n", f.getLine("-OK", "name", "", "", "", "").c_str());
    kvString sep = f.firstLine();
    EXPECT_EQ(80, sep.length());
    EXPECT_EQ('+', sep[78]);
    EXPECT_TRUE(f.m_frame);
    f.lastLine();
    EXPECT_FALSE(f.m_frame);

    EXPECT_STREQ("100:00:00", kvReportFormat::getTimeStr(360000).c_str());
    kvString text = "one two three", piece;
    EXPECT_TRUE(kvReportFormat::getPieceItem(text, piece, 8));
    EXPECT_STREQ("one two", piece.c_str());
    EXPECT_STREQ("three", text.c_str());
    EXPECT_STREQ("abc", cutoffNL("abc\ndef").c_str());
}

TEST(KvReportEnd, CountsNestAsTheDotsShow) {
    kvTestList list;
    for (kvResult r : {KV_OK, KV_EXCPTFAIL, KV_BADSTSWRN, KV_UNDEFINED}) list.plus(r);
    list.m_stopTime = list.m_startTime + 5;
    kvReportEnd end(list);
    const char* expected[] = {".Number of tests", "4", ".Successes      ", "1",
                              ".Failures       ", "2", "...Fails        ", "1",
                              ".....-FAIL      ", "0", ".....-EXCPTFAIL ", "1",
                              "...Warnings     ", "1", ".....-WARNING   ", "0",
                              ".....-BADSTSWRN ", "1", "...Undefined    ", "1",
                              ".Total time     ", "00:00:05"};
    int i = 0;
    for (kvReportEnd::iterator it = end.begin(); it != end.end(); ++it, ++i)
        EXPECT_STREQ(expected[i], (*it).c_str());
    EXPECT_EQ(22, i);
}

TEST(KvReportList, ListsSelectedTestsNumberedWithoutGaps) {
    kvTestList list;
    list.insert(list.end(), new kvTest((funcLoop)0, (funcStat)0, "vdlsA", "x/p_a_au", "TimA"));
    list.insert(list.end(), new kvTest((funcLoop)0, (funcStat)0, "vdlsB", "p_b_au", "TimB"));
    list.insert(list.end(), new kvTest((funcLoop)0, (funcStat)0, "vdlsC", "p_c_au", "TimC"));
    kvConditions conditions;
    RunCondition_fNot notB("B");
    conditions.insert(conditions.end(), &notB);
    kvReportList report(list, conditions, 0);
    kvString flat;
    for (kvReportList::iterator it = report.begin(); it != report.end(); ++it) flat << *it << "|";
    EXPECT_STREQ("   #|Function|Test|Source|\n|   1|vdlsA|TimA|p_a_au|\n|   2|vdlsC|TimC|p_c_au|\n|",
                 flat.c_str());
    conditions.clear();
    for (kvTestList::iterator it = list.begin(); it != list.end(); ++it) delete *it;
}

TEST(KvReportTestResult, HeaderAndRowOfTheSummaryTable) {
    kvReportTestResult header(0);
    EXPECT_STREQ("Function,Class,Control87,Status87,ControlSSX,StatusSSX,Test,Time (sec.),"
                 "SrcName,Result,ExeName",
                 header.m_table.c_str());
    kvTest t((funcLoop)0, (funcStat)0, "vdlsX_32f", "dir/p_x_au", "TimX");
    t.m_result = KV_OK;
    t.m_badSSX = true;
    t.m_stopTime = t.m_startTime + 3;
    kvReportTestResult row(&t);
    EXPECT_STREQ("OK", row.m_result.c_str());
    EXPECT_EQ(0, row.m_table.find("-,-,-,?,TimX,3,p_x_au,OK,"));
}

}  // namespace
