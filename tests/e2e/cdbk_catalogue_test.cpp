// The codebook and vector-quantisation tests of the catalogue as the
// program shows them, and what a user sees when a codebook cannot be made.
#include "catalogue.h"

namespace {

using namespace kelvar_e2e;
using ::testing::HasSubstr;

const Family kCdbk = {
    "Cdbk",
    {{"TimCdbk", "p_cdbk_au",
      "vdlsCdbkInitAlloc_{,Wgt}L2_{16s,32f}_perf vdlsVQSingle_{Thresh,Sort}_{16s,32f} "
      "vdlsVQDistSingle_{Thresh,Sort}_{16s32s_Sfs,32f}"},
     {"TimVQ", "p_vq_au", "vdlsVQ{,Dist}_32f vdlsVQ_16s vdlsVQDist_16s32s_Sfs"},
     {"TimFormV", "p_form_au", "vdlsFormVector{_4i,_2i,}_{8u16s,16s16s,8u32f,16s32f}"},
     {"TimFormVQ", "p_formvq_au", "vdlsFormVectorVQ_{16s,8u,1u}{16s,32f}"},
     {"TimSplitVQ", "p_splitvq_au", "vdlsSplitVQ_{16s,32f}{16s,8u,1u}"}},
    // Creation: 3 heights by 4 steps by 3 hints, lookup by two counts and
    // four scale factors more; 3 hints, 4 steps, 5 heights, with and without
    // weights; 2 hints, 4 steps (3 from 2 up in FormVQ), 4 heights, 3
    // codebook counts; eleven lengths of two or four elements a codebook.
    {{"vdlsVQDistSingle_Sort_16s32s_Sfs", 288}, {"vdlsVQ_16s", 120}, {"vdlsSplitVQ_32f1u", 96},
     {"vdlsFormVectorVQ_1u16s", 72}, {"vdlsFormVector_4i_8u16s", 11}}};

INSTANTIATE_TEST_SUITE_P(Cdbk, FamilyCatalogue, ::testing::Values(&kCdbk));

// A k-means codebook of 3 vectors has no cluster: a lookup test says so and
// fails on its first grid point; a creation test reports the library's
// status as a function error.
TEST(CdbkCatalogue, CodebookThatCannotBeMadeIsReported) {
    Sandbox box;
    Result lookup = box.run({"-B", "-dMethod=Manual", "-dNumLoops=1", "-fvdlsVQ_16s",
                             "-dHint=kmeansLong", "-dheight=3"});
    EXPECT_EQ(1, lookup.code);
    EXPECT_THAT(lookup.out, HasSubstr("\n Error in create codebook 16bit code\n"));
    EXPECT_THAT(lookup.out, HasSubstr("-- One of argument list for timing is empty"));
    EXPECT_THAT(lookup.out, HasSubstr("DATAFAIL"));

    Result single = box.run({"-B", "-dMethod=Manual", "-dNumLoops=1", "-fvdlsVQSingle_Sort_32f",
                             "-dHint=kmeansNum", "-dHength=4"});
    EXPECT_THAT(single.out, HasSubstr("\n Error in create codebook code\n"));

    Result build = box.run({"-B", "-dMethod=Manual", "-dNumLoops=1",
                            "-fvdlsCdbkInitAlloc_L2_16s_perf", "-dHint=kmeansNum", "-dHength=4"});
    EXPECT_EQ(1, build.code);
    EXPECT_THAT(build.out, HasSubstr("--VDL ERROR. status = -4 in vdlsCdbkInitAlloc_L2_16s_perf"));
    EXPECT_THAT(build.out, HasSubstr("FUNCFAIL"));
}

}  // namespace
