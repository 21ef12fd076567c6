// The program as a user meets it: command keys, console answers on standard
// input, the files it reads and writes beside itself, and its exit code.
// Selections name only the processor pseudo-test or nothing at all, so the
// tests hold whatever the catalogue holds.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <string>

#include "run_program.h"

#include <gmock/gmock.h>

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

using namespace kelvar_e2e;

const char* const kBanner = "\nOrvan(R) Vdl Primitives. Kelvar System 2.0, ";
const char* const kNothing = "-fNoFunctionHasThisName";

TEST(CliHelp, HelpAndVersionEndTheRunEarly) {
    Sandbox box;
    Result r = box.run({"-h", "-B"});
    EXPECT_EQ(0, r.code);
    EXPECT_EQ(0u, r.out.find(std::string("Command line options: \n-h: type short help and exit\n"
                                         "-B: ignored because of -h option\n") +
                             kBanner));
    EXPECT_THAT(r.out, HasSubstr("\nQUICK HELP\n-B               = batch mode (no console input)\n"));
    EXPECT_THAT(r.out, Not(HasSubstr("| CPU")));  // no run title
    r = box.run({"-v"});
    EXPECT_EQ(0, r.code);
    EXPECT_THAT(r.out, HasSubstr(kBanner));
    EXPECT_THAT(r.out, Not(HasSubstr("| CPU")));
    // The banner comes before a listing.
    r = box.run({"-v", "-e", "-f=__kvOrvanCpu"});
    const size_t listed = r.out.find("__kvOrvanCpu\t");
    EXPECT_NE(std::string::npos, listed);
    EXPECT_LT(r.out.find(kBanner), listed);
}

// A batch run asks nothing and shows the defaults, with the processor
// priority raised where it may be.
TEST(CliKeys, BatchRunAsksNothing) {
    Sandbox box;
    Result r = box.run({"-B", "-YHIGH", kNothing});
    EXPECT_EQ(0, r.code);
    EXPECT_THAT(r.out, Not(HasSubstr("] = ")));
    EXPECT_THAT(r.out, HasSubstr(" Method = Auto\n Accuracy = 5\n AlignVectorsBy = element\n"
                                " VectorAlign = 0\n"));
    EXPECT_THAT(r.out, HasSubstr("| KV Summary"));
}

// Without a word on the command line the first line of the .cfg file beside
// the program, wherever it is started from, stands for it.
TEST(CliKeys, CfgFileOnlyWithoutArguments) {
    Sandbox box;
    writeFile(box.path("kelvar.cfg"), "-v;-B\n-h\n");
    Result r = box.run({});
    EXPECT_EQ(0u, r.out.find("Command line options: read from kelvar.cfg file\n"
                             "-v: type the version number of the Kelvar System and exit\n"
                             "-B: ignored because of -v option\n"));
    EXPECT_THAT(r.out, Not(HasSubstr("QUICK HELP")));
    r = box.run({}, "", "/");
    EXPECT_EQ(0u, r.out.find("Command line options: read from " + box.path("kelvar.cfg") + " file\n"));
    r = box.run({"-v"});
    EXPECT_EQ(0u, r.out.find("Command line options: \n-v: "));
}

TEST(CliKeys, IniFileWrittenReadBackAndBeatenByData) {
    Sandbox box;
    Result r = box.run({"-B", "-I", "-f=__kvOrvanCpu"});
    EXPECT_EQ(0, r.code);
    std::string ini = readFile(box.path("kelvar.ini"));
    EXPECT_EQ(0u, ini.find("\n[Kelvar System]\nMethod=Auto\t// "));
    EXPECT_THAT(ini, AllOf(HasSubstr("\nAccuracy=5"), HasSubstr("\nAlignVectorsBy=element"),
                           HasSubstr("\nVectorAlign=0"), Not(HasSubstr("NumLoops"))));

    writeFile(box.path("kelvar.ini"), "[Kelvar System]\nMethod=Manual\nNumLoops=20\nVectorAlign=3\n");
    r = box.run({"-B", "-i", kNothing});
    EXPECT_THAT(r.out, HasSubstr(" Method = Manual\n NumLoops = 20\n AlignVectorsBy = element\n"
                                " VectorAlign = 3\n MisalignFirstVectorOnly = yes\n"));
    r = box.run({"-B", "-dNumLoops=30", "-i", "-dVectorAlign=70", kNothing});
    EXPECT_THAT(r.out, AllOf(HasSubstr(" NumLoops = 30\n"), HasSubstr(" VectorAlign = 6\n")));
}

// Questions at the console, answered from standard input; at its end the
// defaults stand.
TEST(CliKeys, ConsoleAnswersAndEndOfInput) {
    Sandbox box;
    Result r = box.run({kNothing}, "Manual\n25\n");
    EXPECT_EQ(0, r.code);
    EXPECT_THAT(r.out, AllOf(HasSubstr("Specify timing method, please"),
                             HasSubstr("\n Method {Auto|Manual|Statistic|Iterative} [Auto] = "),
                             HasSubstr("\n NumLoops [10] = "), HasSubstr(" NumLoops = 25\n"),
                             HasSubstr("End of common specifications"), Not(HasSubstr("Accuracy")),
                             Not(HasSubstr("VectorAlign by"))));  // misalignment only with -A
    r = box.run({kNothing}, "");
    EXPECT_THAT(r.out, AllOf(HasSubstr(" Method = Auto\n"), HasSubstr("\n Accuracy, % [5] = "),
                             HasSubstr(" Accuracy = 5\n")));
    r = box.run({"-AMisalign", kNothing}, "byte\n70\nno\n");
    EXPECT_THAT(r.out, AllOf(Not(HasSubstr("Specify timing method")),
                             HasSubstr("Specify vectors alignment, please"),
                             HasSubstr("VectorAlign by Byte, 0..63 [0] = "),
                             HasSubstr(" VectorAlign = 6\n"),
                             HasSubstr(" MisalignFirstVectorOnly = no\n")));
}

TEST(CliKeys, UnopenedFileIsFatalAndTheSignalFileStillComes) {
    Sandbox box;
    Result r = box.run({"-g", "-r" + box.path("missing/t.csv"), "-B"});
    EXPECT_EQ(0, r.code);
    EXPECT_THAT(r.out, HasSubstr("FATAL ERROR: can't open output file for writing\n"));
    EXPECT_THAT(r.out, Not(HasSubstr("| KV Summary")));
    std::string signal = readFile(box.path("kelvar.end"));
    ASSERT_NE(0u, signal.size());
    EXPECT_EQ('\n', signal.back());
    r = box.run({"-I" + box.path("missing/k.ini")});
    EXPECT_THAT(r.out, HasSubstr("FATAL ERROR: can't open ini-file for writing\n"));
}

TEST(CliKeys, DirectoryAndNameKeysActBeforeFileKeys) {
    Sandbox box;
    mkdir(box.path("out").c_str(), 0755);
    Result r = box.run({"-o", "-u", "-v", "-lout", "-nrun"});
    EXPECT_THAT(r.out, HasSubstr("-o: write console output to " + box.path("out/run.txt") + "\n"));
    EXPECT_THAT(r.out, HasSubstr("-u: ignored because of -v option\n"));
    EXPECT_TRUE(exists(box.path("out/run_sum.csv")));
    EXPECT_THAT(readFile(box.path("out/run.txt")), HasSubstr("Kelvar System 2.0"));
}

}  // namespace
