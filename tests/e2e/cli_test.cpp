// The program as a user meets it: command keys, console answers on standard
// input, the files it reads and writes beside itself, and its exit code.
// Selections name only the processor pseudo-test or nothing at all, so the
// tests hold whatever the catalogue holds.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <string>

#include "run_program.h"

#include <gmock/gmock.h>

using ::testing::HasSubstr;
using ::testing::Not;

namespace {

using namespace kelvar_e2e;

const char* const kBanner = "\nOrvan(R) Vdl Primitives. Kelvar System 2.0, ";
const char* const kNothing = "-fNoFunctionHasThisName";

// ---------------------------------------------------------------- help, version

TEST(CliHelp, HelpAndVersionEndTheRunEarly) {
    Sandbox box;
    Result r = box.run({"-h", "-B"});
    EXPECT_EQ(0, r.code);
    EXPECT_EQ(0u, r.out.find(std::string("Command line options: \n-h: type short help and exit\n"
                                         "-B: ignored because of -h option\n") +
                             kBanner));
    EXPECT_THAT(r.out, HasSubstr("\nQUICK HELP\n-B               = batch mode (no console input)\n"));
    EXPECT_THAT(r.out, Not(HasSubstr("-SU")));
    EXPECT_THAT(r.out, Not(HasSubstr("| CPU")));   // no run title

    // One key's own help; the other help forms are the unit tests' matter.
    r = box.run({"-hL"});
    EXPECT_THAT(r.out, HasSubstr("EXTENDED KEY HELP\n-L<ERR|WARN|PERF|INFO|TRACE|DATA> = set detail "
                                "level of the console output\nERR  : output errors\n"));
    r = box.run({"-v"});
    EXPECT_EQ(0, r.code);
    EXPECT_EQ(0u, r.out.find(std::string("Command line options: \n-v: type the version number of "
                                         "the Kelvar System and exit\n") + kBanner));
    EXPECT_THAT(r.out, Not(HasSubstr("| CPU")));
    r = box.run({"-v", "-e", "-f=__kvOrvanCpu"});
    EXPECT_LT(r.out.find(kBanner), r.out.find("__kvOrvanCpu\t"));
}

// ---------------------------------------------------------------- selection

TEST(CliEnumerate, SelectionsNarrowTheList) {
    Sandbox box;
    Result r = box.run({"-e", "-f__kvOrvanCpu"});
    EXPECT_EQ(0, r.code);
    EXPECT_THAT(r.out, HasSubstr("-e: enumerate tested functions and exit\n"
                                "-f__kvOrvanCpu: test functions containing '__kvOrvanCpu'\n"));
    EXPECT_THAT(r.out, HasSubstr("\t__kvOrvanCpu\t__kvOrvanCpuTest\t"));

    r = box.run({"-e", "-t=__kvOrvanCpuTest", "-f-Orvan"});
    EXPECT_THAT(r.out, HasSubstr("-f-Orvan: don't test functions containing 'Orvan'\n"));
    EXPECT_THAT(r.out, Not(HasSubstr("\t__kvOrvanCpu\t")));

    r = box.run({"-e", "-t", "-", "-t=__kvOrvanCpuTest", kNothing});
    EXPECT_THAT(r.out, HasSubstr("-t-: ignored: empty test pattern\n"));
    EXPECT_THAT(r.out, HasSubstr("\t__kvOrvanCpu\t"));   // either first-group key suffices
}

// ---------------------------------------------------------------- keys and files

TEST(CliKeys, ReportLinesOfABatchRun) {
    Sandbox box;
    Result r = box.run({"-B", "-x", "-Lwarn", "-dfoo", "-YHIGH", "-Q", kNothing});
    EXPECT_EQ(0, r.code);
    EXPECT_EQ(0u, r.out.find("Command line options: \n-B: batch mode\n"
                             "-x: ignored: incorrect option key\n"
                             "-Lwarn: ignored: incorrect level of console output\n"
                             "-dfoo: ignored: incorrect data format\n"
                             "-YHIGH: set high process priority\n"
                             "-Q: exit after function parameter name table creation and don't run "
                             "tests\n\n"));
    // No questions in batch mode; the defaults show.
    EXPECT_THAT(r.out, Not(HasSubstr("] = ")));
    EXPECT_THAT(r.out, HasSubstr(" Method = Auto\n Accuracy = 5\n AlignVectorsBy = element\n"
                                " VectorAlign = 0\n"));
    EXPECT_THAT(r.out, HasSubstr("| KV Summary"));
}

TEST(CliKeys, CfgFileOnlyWithoutArguments) {
    Sandbox box;
    writeFile(box.path("kelvar.cfg"), "-v;-B\n-h\n");
    Result r = box.run({});
    EXPECT_EQ(0u, r.out.find("Command line options: read from kelvar.cfg file\n"
                             "-v: type the version number of the Kelvar System and exit\n"
                             "-B: ignored because of -v option\n"));
    EXPECT_THAT(r.out, Not(HasSubstr("QUICK HELP")));

    // From elsewhere the file is found beside the program.
    r = box.run({}, "", "/");
    EXPECT_EQ(0u, r.out.find("Command line options: read from " + box.path("kelvar.cfg") + " file\n"));

    r = box.run({"-v"});
    EXPECT_EQ(0u, r.out.find("Command line options: \n-v: "));
}

TEST(CliKeys, IniFileWrittenReadBackAndBeatenByData) {
    Sandbox box;
    Result r = box.run({"-B", "-I", "-f=__kvOrvanCpu"});
    EXPECT_EQ(0, r.code);
    EXPECT_THAT(r.out, HasSubstr("-I: write KV parameters to " + box.path("kelvar.ini") + " and exit\n"));
    std::string ini = readFile(box.path("kelvar.ini"));
    EXPECT_EQ(0u, ini.find("\n[Kelvar System]\nMethod=Auto\t// "));
    EXPECT_THAT(ini, HasSubstr("\nAccuracy=5"));
    EXPECT_THAT(ini, HasSubstr("\nAlignVectorsBy=element"));
    EXPECT_THAT(ini, HasSubstr("\nVectorAlign=0"));
    EXPECT_THAT(ini, Not(HasSubstr("NumLoops")));

    writeFile(box.path("kelvar.ini"), "[Kelvar System]\nMethod=Manual\nNumLoops=20\nVectorAlign=3\n");
    r = box.run({"-B", "-i", kNothing});
    EXPECT_THAT(r.out, HasSubstr("-i: read from " + box.path("kelvar.ini") + "\n"));
    EXPECT_THAT(r.out, HasSubstr(" Method = Manual\n NumLoops = 20\n AlignVectorsBy = element\n"
                                " VectorAlign = 3\n MisalignFirstVectorOnly = yes\n"));

    r = box.run({"-B", "-dNumLoops=30", "-i", "-dVectorAlign=70", kNothing});
    EXPECT_THAT(r.out, HasSubstr(" NumLoops = 30\n"));
    EXPECT_THAT(r.out, HasSubstr(" VectorAlign = 6\n"));
}

TEST(CliKeys, ConsoleAnswersAndEndOfInput) {
    Sandbox box;
    Result r = box.run({kNothing}, "Manual\n25\n");
    EXPECT_EQ(0, r.code);
    EXPECT_THAT(r.out, HasSubstr("Specify timing method, please"));
    EXPECT_THAT(r.out, HasSubstr("\n Method {Auto|Manual|Statistic|Iterative} [Auto] = "));
    EXPECT_THAT(r.out, HasSubstr("\n NumLoops [10] = "));
    EXPECT_THAT(r.out, HasSubstr(" NumLoops = 25\n"));
    EXPECT_THAT(r.out, Not(HasSubstr("Accuracy")));
    EXPECT_THAT(r.out, HasSubstr("End of common specifications"));
    // Misalignment is not asked without -A.
    EXPECT_THAT(r.out, Not(HasSubstr("VectorAlign by")));

    r = box.run({kNothing}, "");
    EXPECT_THAT(r.out, HasSubstr(" Method = Auto\n"));
    EXPECT_THAT(r.out, HasSubstr("\n Accuracy, % [5] = "));
    EXPECT_THAT(r.out, HasSubstr(" Accuracy = 5\n"));

    r = box.run({"-AMisalign", kNothing}, "byte\n70\nno\n");
    EXPECT_THAT(r.out, Not(HasSubstr("Specify timing method")));
    EXPECT_THAT(r.out, HasSubstr("Specify vectors alignment, please"));
    EXPECT_THAT(r.out, HasSubstr("VectorAlign by Byte, 0..63 [0] = "));
    EXPECT_THAT(r.out, HasSubstr(" VectorAlign = 6\n"));
    EXPECT_THAT(r.out, HasSubstr(" MisalignFirstVectorOnly = no\n"));
}

TEST(CliKeys, UnopenedFileIsFatalAndTheSignalFileStillComes) {
    Sandbox box;
    Result r = box.run({"-g", "-r" + box.path("missing/t.csv"), "-B"});
    EXPECT_EQ(0, r.code);
    EXPECT_THAT(r.out, HasSubstr("-g: create file " + box.path("kelvar.end") + " at the end of KV work\n"));
    EXPECT_THAT(r.out, HasSubstr("-B: batch mode\n"));
    EXPECT_THAT(r.out, HasSubstr("FATAL ERROR: can't open output file for writing\n"));
    EXPECT_THAT(r.out, Not(HasSubstr("| KV Summary")));
    std::string signal = readFile(box.path("kelvar.end"));
    EXPECT_NE(0u, signal.size());
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
