// The model-training tests of the catalogue as the program shows them, and
// the element counts their clocks are divided by.
#include "catalogue.h"

namespace {

using namespace kelvar_e2e;

const Family kTrain = {
    "Train",
    {{"TimGbt", "p_gbt_au",
      "vdlsMeanColumn_{32f,16s}_D2{,L} vdlsVarColumn_32f_D2{,L} vdlsVarColumn_16s_D2{,L}Sfs "
      "vdlsMeanVarColumn_32f_D2{,L} vdlsMeanVarColumn_{16s,16s32s}_D2{,L}Sfs "
      "vdlsMeanVarColumn_16s16s32s_D2{,L}"},
     {"TimAcccm", "p_acccm_au", "vdlsAccCovarianceMatrix_{16s,32f}64f_D2{L,}"},
     {"TimDcl", "p_dcl_au",
      "vdlsDcsClustLAccumulate{,_DirectVar}_{32f,64f} vdlsDcsClustLCompute_{32f64f,64f}"},
     {"TimNewVar", "p_newvar_au", "vdlsNewVar_32f{,_I} vdlsNewVar_32s_{,I}Sfs"},
     {"TimSum", "p_sum_au",
      "vdlsSum{Column,Row}_{32f,64f,16s32f}_D2{,L} vdlsSum{Column,Row}_16s32s_D2{,L}Sfs"},
     {"TimSumMeanVar", "p_summnvar_au",
      "vdlsSumMeanVar_{32f,16s32f}{,_I} vdlsSumMeanVar_16s32s_{,I}Sfs"},
     {"TimSvd", "p_svd_au",
      "vdlsSumRow{Abs,Sqr}_64f vdlsAddMulRow_64f "
      "vdls{SumColumnAbs,SumColumnSqr,DotProdColumn,MulColumn,AddMulColumn,QRTransColumn}_64f_D2L "
      "vdlsSVD{,Sort}_64f_D2{,L}{,_I}"},
     {"TimUpdate", "p_updt_au",
      "vdlsUpdate{Mean,Var,Weight,GConst,GConst_DirectVar}_{32f,64f} "
      "vdlsOutProbPreCalc_{32f,64f,32s}{,_I}"},
     {"TimUpdatePrim", "p_updateprim_au", "vdlsUpdateNoisePSDMCRA_32s_I"},
     {"TimWghtMean", "p_wghtmeancol_au", "vdlsWeighted{Mean,Var,MeanVar}Column_{32f,64f}_D2{,L}"},
     {"TimWSum", "p_wsum_au", "vdlsWeightedSum{,Half}_{32f,64f,16s}"},
     {"TimICpy", "p_icpy_au", "vdlsCopyColumn_Indirect_{64f,32f,16s}_D2{,L}"},
     {"TimVecMat", "p_vecmat_ml",
      "vdls{MatVec,VecMat}Mul_32f_D2{,L} vdls{MatVec,VecMat}Mul_{16s,16s32s,32s}_D2{,L}Sfs"},
     {"TimPrim", "p_prim_au",
      "vdlsRecSqrt_{32f,32s_Sfs,32s16s_Sfs} vdlsNormalizeColumn_32f_D2{,L} "
      "vdlsNormalizeColumn_16s_D2{,L}Sfs vdlsSubRow_{32f,16s}_D2{,L} vdlsAddAllRowSum_32f_D2{,L}"}},
    // Heights 100 and 10000 only: the step multiplies; 5 row counts by 4
    // column counts by 4 scale factors; square sizes 20 to 100; 20 lengths
    // by 4 factors.
    {{"vdlsAccCovarianceMatrix_32f64f_D2", 2}, {"vdlsMeanVarColumn_16s32s_D2LSfs", 80},
     {"vdlsSVDSort_64f_D2L_I", 9}, {"vdlsRecSqrt_32s16s_Sfs", 80},
     {"vdlsCopyColumn_Indirect_16s_D2L", 64}}};

INSTANTIATE_TEST_SUITE_P(Train, FamilyCatalogue, ::testing::Values(&kTrain));

// A row's time over its clocks per element, in proportion to the elements
// one call handled.
double timePerClock(const std::vector<std::string>& row) {
    return std::stod(row[12]) / std::stod(row[10]);
}

// A vector step of TimSvd divides by 1 (its column count is a nameless 1), a
// 100 by 100 column step by 10000, the noise estimate at length 64 (33
// bins) by 32.
TEST(TrainCatalogue, ClocksAreDividedByTheElementsOfACall) {
    const std::string& table = quickRun(kTrain).table;
    Rows unit = rowsOf(table, "vdlsSumRowAbs", "64f", "-"),
         square = rowsOf(table, "vdlsQRTransColumn", "64f", "D2L"),
         noise = rowsOf(table, "vdlsUpdateNoisePSDMCRA", "32s", "I");
    ASSERT_FALSE(unit.empty() || square.empty() || noise.empty());
    EXPECT_EQ("-", unit[0][4]);
    EXPECT_EQ("100", square.back()[3]);
    EXPECT_EQ("100", square.back()[4]);
    EXPECT_NEAR(10000, timePerClock(square.back()) / timePerClock(unit[0]), 300);
    EXPECT_EQ("64", noise[0][3]);
    EXPECT_NEAR(32, timePerClock(noise[0]) / timePerClock(unit[0]), 1);
}

}  // namespace
