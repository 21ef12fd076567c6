// The files of a run, field by field: one library function timed with the
// text log, the performance, name and summary tables beside the program.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "run_program.h"

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::Not;

namespace {

using namespace kelvar_e2e;

// Index of the first line that starts with `head`, or -1.
int find(const std::vector<std::string>& ls, const std::string& head) {
    for (size_t i = 0; i < ls.size(); ++i)
        if (startsWith(ls[i], head)) return (int)i;
    return -1;
}

const char* const kColumnTitle =
    "funcBase,funcDataType,funcDescriptor,Len/Size,Parm1,Parm2,Parm3,Parm4,scaleFactor,"
    "Comment,Clocks,per,Time (usec),MFlops";

class AddNRowsRun : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        box = new Sandbox;
        result = box->run({"-B", "-fAddNRows", "-o", "-r", "-u", "-q"});
    }
    static void TearDownTestSuite() { delete box; }
    static Sandbox* box;
    static Result result;
};
Sandbox* AddNRowsRun::box = nullptr;
Result AddNRowsRun::result;

void expectTitleRows(const std::vector<std::string>& ls) {
    ASSERT_GE(ls.size(), 5u);
    EXPECT_TRUE(startsWith(ls[0], "CPU,"));
    EXPECT_TRUE(startsWith(ls[1], "OS,Linux ("));
    EXPECT_TRUE(startsWith(ls[2], "Computer,"));
    int start = find(ls, "Start,");
    ASSERT_GT(start, 2);
    for (int i = 3; i < start; ++i) EXPECT_TRUE(startsWith(ls[i], "Library,")) << ls[i];
}

TEST_F(AddNRowsRun, PerformanceTableHasOneRowPerGridPoint) {
    std::vector<std::string> ls = lines(readFile(box->path("kelvar.csv")));
    expectTitleRows(ls);
    int title = find(ls, "funcBase,");
    ASSERT_GT(title, 0);
    EXPECT_EQ(kColumnTitle, ls[title]);
    // Columns 20..30, rows 36..40, offsets 4, 8, 12, 16: the offset fastest.
    ASSERT_EQ((size_t)title + 1 + 11 * 5 * 4, ls.size());
    int row = title + 1;
    for (int col = 20; col <= 30; ++col)
        for (int rows1 = 36; rows1 <= 40; ++rows1)
            for (int offset = 4; offset <= 16; offset += 4, ++row) {
                const std::string point = "vdlsAddNRows,32f,D2," + std::to_string(col) + ",50," +
                                          std::to_string(rows1) + "," + std::to_string(offset);
                // On a busy machine the loop count may come with the accuracy reached.
                ASSERT_THAT(ls[row],
                            MatchesRegex(point + ",-,-,nLps=[0-9]+( acc=[0-9.]+%)?,[^,]+,e,[^,]+,-"));
                std::vector<std::string> c = split(ls[row], ',');
                EXPECT_GT(std::stod(c[10]), 0.0) << ls[row];  // clocks per element
                EXPECT_GT(std::stod(c[12]), 0.0) << ls[row];  // microseconds
            }
}

TEST_F(AddNRowsRun, NameTableHoldsTheParameterNames) {
    std::vector<std::string> ls = lines(readFile(box->path("kelvar_name.csv")));
    expectTitleRows(ls);
    int title = find(ls, "funcBase,");
    ASSERT_GT(title, 0);
    EXPECT_EQ(kColumnTitle, ls[title]);
    ASSERT_EQ((size_t)title + 2, ls.size());
    EXPECT_EQ("vdlsAddNRows,32f,D2,Column,stride,Row1,Offset,-,-,parmNames,-,-,-,-", ls[title + 1]);
}

TEST_F(AddNRowsRun, SummaryTableEndsWithTheCounts) {
    std::vector<std::string> ls = lines(readFile(box->path("kelvar_sum.csv")));
    expectTitleRows(ls);
    int header = find(ls, "Function,Class,");
    ASSERT_GT(header, 0);
    EXPECT_EQ("Function,Class,Control87,Status87,ControlSSX,StatusSSX,Test,Time (sec.),SrcName,"
              "Result,ExeName",
              ls[header]);
    // The time in whole seconds is the one cell that varies.
    EXPECT_THAT(ls[header + 1], MatchesRegex("vdlsAddNRows_32f_D2,Timing,-,-,-,-,TimAddNRow,[0-9]+,"
                                             "p_addnrow_au,OK,kelvar"));
    ASSERT_EQ("END_DATA", ls[header + 2]);
    const char* labels[] = {".Number of tests,1", ".Successes      ,1", ".Failures       ,0",
                            "...Fails        ,0", ".....-FAIL      ,0", ".....-EXCPTFAIL ,0",
                            "...Warnings     ,0", ".....-WARNING   ,0", ".....-BADSTSWRN ,0",
                            "...Undefined    ,0", ".Total time     ,"};
    ASSERT_EQ((size_t)header + 3 + 11, ls.size());
    for (int i = 0; i < 11; ++i) EXPECT_TRUE(startsWith(ls[header + 3 + i], labels[i])) << i;
}

TEST_F(AddNRowsRun, TextLogHoldsTitleTestAndSummary) {
    EXPECT_EQ(0, result.code);
    std::string text = readFile(box->path("kelvar.txt"));
    EXPECT_THAT(text, HasSubstr("Command line options: \n-B: batch mode\n"));
    EXPECT_THAT(text, AllOf(HasSubstr("| CPU      : "), HasSubstr("| Library  : "),
                            HasSubstr("| Function  : vdlsAddNRows_32f_D2"),
                            HasSubstr("| -OK         vdlsAddNRows_32f_D2"),
                            HasSubstr("| .Number of tests : 1 ")));
    EXPECT_THAT(text, Not(HasSubstr("__kvOrvanCpu")));  // the selection keeps the pseudo-test out
    // The console got the same text as the log.
    EXPECT_THAT(result.out, HasSubstr("| -OK         vdlsAddNRows_32f_D2"));
}

TEST(ProcessorReport, PseudoTestEndsOk) {
    Sandbox box;
    Result r = box.run({"-B", "-f=__kvOrvanCpu"});
    EXPECT_EQ(0, r.code);
    EXPECT_THAT(r.out, HasSubstr("    Orvan(R) Processor Identification\n"));
    EXPECT_THAT(r.out, HasSubstr("| -OK         __kvOrvanCpu"));
    EXPECT_THAT(r.out, HasSubstr("| .Successes       : 1 "));
}

}  // namespace
