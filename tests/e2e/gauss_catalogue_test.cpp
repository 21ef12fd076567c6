// The Gaussian scoring tests of the catalogue as the program shows them,
// and the row steps of their matrices.
#include "catalogue.h"

namespace {

using namespace kelvar_e2e;

const Family kGauss = {
    "Gauss",
    {{"TimLGauss", "p_lgauss_au",
      "vdlsLogGauss{,_IdVar,MultiMix}{_32f,_64f}_D2{,L} "
      "vdlsLogGauss{_,_IdVar,MultiMix_}{,Low}Scaled_16s32f_D2{,L} "
      "vdlsLogGauss{,_IdVar,MultiMix}_16s32s_D2{,L}Sfs "
      "vdlsLogGauss{_,_IdVar,MultiMix_}Low_16s32s_D2{,L}Sfs"},
     {"TimMahFAdd", "p_lgaussadd_au",
      "vdlsLogGaussAdd{,_IdVar,MultiMix}{_32f,_64f}_D2{,L} "
      "vdlsLogGaussAdd{_,_IdVar,MultiMix_}{,Low}Scaled_16s32f_D2{,L}"},
     {"TimMahMaxF", "p_lgaussmax_au",
      "vdlsLogGaussMax{,_IdVar,MultiMix}{_32f,_64f}_D2{,L} "
      "vdlsLogGaussMax{_,_IdVar,MultiMix_}{,Low}Scaled_16s32f_D2{,L} "
      "vdlsLogGaussMax{,_IdVar,MultiMix}_16s32s_D2{,L}Sfs "
      "vdlsLogGaussMax{_,_IdVar,MultiMix_}Low_16s32s_D2{,L}Sfs"},
     {"TimLogGMixt", "p_lgaussmixt_au",
      "vdlsLogGaussMixture{_,_IdVar}{,Low}Scaled_16s32f_D2{,L} "
      "vdlsLogGaussMixture{,_IdVar}{_32f,_64f}_D2{,L}"},
     {"TimLGaussSingle", "p_lgausssing_au",
      "vdlsLogGaussSingle{,_IdVar,_DirectVar}{_32f,_64f,_32f64f,_16s32s_Sfs} "
      "vdlsLogGaussSingle_{,IdVar,DirectVar,Low,IdVarLow}Scaled_16s32f "
      "vdlsLogGaussSingle_{,IdVar}Low_16s32s_Sfs"},
     {"TimLGaussSingleBlock_16s", "p_lgblock_au",
      "vdlsLogGaussSingle_BlockDVarScaled_16s32f vdlsLogGaussSingle_BlockDVar_16s32s_Sfs"},
     {"TimLGaussSingleBlock_32f", "p_lgblock_au", "vdlsLogGaussSingle_BlockDVar_32f{,64f}"},
     {"TimLGaussSingleBlock_64f", "p_lgblock_au", "vdlsLogGaussSingle_BlockDVar_64f"},
     {"TimMahF", "p_mahf_au",
      "vdlsMahDistSingle_{32f,64f,32f64f,16s32f,16s32s_Sfs} "
      "vdlsMahDist{,MultiMix}_{32f,64f}_D2{,L} vdlsMeanVarAcc_{32f,64f}"},
     {"TimMixg", "p_mixg_au", "vdlsGaussian{Split,Dist,Merge}_{32f,64f}"},
     {"TimBhatDist", "p_bhat_au", "vdlsBhatDist{,SLog}_32f{,64f}"},
     {"TimObvProb", "p_obvprob_au", "ObvProbVec_32f_D2et"}},
    // Two grids: 7 by 4 small sizes, then 5 large row counts of 40 columns,
    // under four scale factors where scaled; 4 factors by 3 block counts by 5
    // block sizes; 4 widths, 1 height, 5 frame counts, 2 shifts; 20 lengths
    // of one column by 4 factors.
    {{"vdlsLogGauss_32f_D2", 33}, {"vdlsLogGauss_16s32s_D2Sfs", 132},
     {"vdlsLogGaussSingle_BlockDVar_16s32s_Sfs", 60}, {"ObvProbVec_32f_D2et", 40},
     {"vdlsMahDistSingle_16s32s_Sfs", 80}}};

INSTANTIATE_TEST_SUITE_P(Gauss, FamilyCatalogue, ::testing::Values(&kGauss));

// Rows of 16-bit data step by multiples of 8 elements, others by 4 (in
// elements, not bytes, as the 64-bit rows show); row-pointer data have no
// step.
TEST(GaussCatalogue, RowStepsRoundUpByElementType) {
    const std::string& table = quickRun(kGauss).table;
    typedef std::map<std::string, std::string> Strides;
    EXPECT_EQ((Strides{{"30", "32"}, {"33", "40"}, {"36", "40"}, {"39", "40"}, {"40", "40"}}),
              cellBy(rowsOf(table, "vdlsLogGauss", "16s32s", "D2Sfs"), 4, 5));
    EXPECT_EQ((Strides{{"30", "32"}, {"33", "36"}, {"36", "36"}, {"39", "40"}}),
              cellBy(rowsOf(table, "vdlsMahDist", "64f", "D2"), 4, 5));
    EXPECT_EQ((Strides{{"30", "-"}, {"33", "-"}, {"36", "-"}, {"39", "-"}}),
              cellBy(rowsOf(table, "vdlsMahDist", "32f", "D2L"), 4, 5));
}

}  // namespace
