// The codebook and vector-quantisation tests of the catalogue as the
// program shows them: the functions each class times and from which
// module, a quick run of the whole family, and what a user sees when a
// codebook cannot be made.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "catalogue.h"

namespace {

using namespace kelvar_e2e;

const std::vector<TestClass>& family() {
    static const std::vector<TestClass> classes = {
        {"TimCdbk", "p_cdbk_au",
         {"vdlsCdbkInitAlloc_L2_16s_perf", "vdlsCdbkInitAlloc_WgtL2_16s_perf",
          "vdlsCdbkInitAlloc_L2_32f_perf", "vdlsCdbkInitAlloc_WgtL2_32f_perf",
          "vdlsVQSingle_Thresh_16s", "vdlsVQSingle_Thresh_32f",
          "vdlsVQDistSingle_Thresh_16s32s_Sfs", "vdlsVQDistSingle_Thresh_32f",
          "vdlsVQSingle_Sort_16s", "vdlsVQSingle_Sort_32f", "vdlsVQDistSingle_Sort_16s32s_Sfs",
          "vdlsVQDistSingle_Sort_32f"}},
        {"TimVQ", "p_vq_au",
         {"vdlsVQ_32f", "vdlsVQ_16s", "vdlsVQDist_32f", "vdlsVQDist_16s32s_Sfs"}},
        {"TimFormV", "p_form_au",
         {"vdlsFormVector_4i_8u16s", "vdlsFormVector_4i_16s16s", "vdlsFormVector_4i_8u32f",
          "vdlsFormVector_4i_16s32f", "vdlsFormVector_2i_8u16s", "vdlsFormVector_2i_16s16s",
          "vdlsFormVector_2i_8u32f", "vdlsFormVector_2i_16s32f", "vdlsFormVector_8u16s",
          "vdlsFormVector_16s16s", "vdlsFormVector_8u32f", "vdlsFormVector_16s32f"}},
        {"TimFormVQ", "p_formvq_au",
         {"vdlsFormVectorVQ_16s16s", "vdlsFormVectorVQ_8u16s", "vdlsFormVectorVQ_1u16s",
          "vdlsFormVectorVQ_16s32f", "vdlsFormVectorVQ_8u32f", "vdlsFormVectorVQ_1u32f"}},
        {"TimSplitVQ", "p_splitvq_au",
         {"vdlsSplitVQ_16s16s", "vdlsSplitVQ_16s8u", "vdlsSplitVQ_16s1u", "vdlsSplitVQ_32f16s",
          "vdlsSplitVQ_32f8u", "vdlsSplitVQ_32f1u"}},
    };
    return classes;
}

TEST(CdbkCatalogue, EachClassListsItsFunctionsAndModule) {
    expectFamilyListed(family(), 40);
}

TEST(CdbkCatalogue, QuickRunOfTheFamilyPassesAndWalksWholeGrids) {
    Sandbox box;
    QuickRun run = runFamilyQuickly(box, family());
    EXPECT_EQ(0, run.code);
    EXPECT_EQ("40", summaryValue(run.summary, ".Number of tests"));
    EXPECT_EQ(0, failures(run.summary));

    std::map<std::string, int> rows = rowsPerFunction(run.table);
    // Creation: 3 heights by 4 steps by 3 hints.
    EXPECT_EQ(36, rows["vdlsCdbkInitAlloc_WgtL2_32f_perf"]);
    // ... by two thresholds, or two counts, and four scale factors where scaled.
    EXPECT_EQ(72, rows["vdlsVQSingle_Thresh_32f"]);
    EXPECT_EQ(288, rows["vdlsVQDistSingle_Sort_16s32s_Sfs"]);
    // 3 hints, 4 steps, 5 heights, with and without weights.
    EXPECT_EQ(120, rows["vdlsVQ_16s"]);
    // 2 hints, 4 steps (3 from 2 up in FormVQ), 4 heights, 3 codebook counts.
    EXPECT_EQ(96, rows["vdlsSplitVQ_32f1u"]);
    EXPECT_EQ(72, rows["vdlsFormVectorVQ_1u16s"]);
    // Eleven lengths of two or four elements a codebook; five stream counts.
    EXPECT_EQ(11, rows["vdlsFormVector_4i_8u16s"]);
    EXPECT_EQ(5, rows["vdlsFormVector_16s32f"]);
}

// A k-means codebook of 3 vectors has no cluster: a lookup test says so and
// fails on its first grid point; a creation test reports the library's
// status as a function error.
TEST(CdbkCatalogue, CodebookThatCannotBeMadeIsReported) {
    Sandbox box;
    Result lookup = box.run({"-B", "-dMethod=Manual", "-dNumLoops=1", "-fvdlsVQ_16s",
                             "-dHint=kmeansLong", "-dheight=3"});
    EXPECT_EQ(1, lookup.code);
    EXPECT_TRUE(contains(lookup.out, "\n Error in create codebook 16bit code\n"));
    EXPECT_TRUE(contains(lookup.out, "-- One of argument list for timing is empty"));
    EXPECT_TRUE(contains(lookup.out, "DATAFAIL"));

    Result single = box.run({"-B", "-dMethod=Manual", "-dNumLoops=1", "-fvdlsVQSingle_Sort_32f",
                             "-dHint=kmeansNum", "-dHength=4"});
    EXPECT_TRUE(contains(single.out, "\n Error in create codebook code\n"));

    Result build = box.run({"-B", "-dMethod=Manual", "-dNumLoops=1",
                            "-fvdlsCdbkInitAlloc_L2_16s_perf", "-dHint=kmeansNum", "-dHength=4"});
    EXPECT_EQ(1, build.code);
    EXPECT_TRUE(contains(build.out, "--VDL ERROR. status = -4 in vdlsCdbkInitAlloc_L2_16s_perf"));
    EXPECT_TRUE(contains(build.out, "FUNCFAIL"));
}

}  // namespace
