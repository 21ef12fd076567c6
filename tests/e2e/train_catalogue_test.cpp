// The model-training tests of the catalogue as the program shows them:
// which functions each class times and from which module, and a quick run
// of the whole family that must end without a failure, walk the grids of
// the expected size and divide by the expected element counts.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "catalogue.h"

namespace {

using namespace kelvar_e2e;

const std::vector<TestClass>& family() {
    static const std::vector<TestClass> classes = {
        {"TimGbt", "p_gbt_au",
         {"vdlsMeanColumn_32f_D2", "vdlsMeanColumn_32f_D2L", "vdlsMeanColumn_16s_D2",
          "vdlsMeanColumn_16s_D2L", "vdlsVarColumn_32f_D2", "vdlsVarColumn_32f_D2L",
          "vdlsVarColumn_16s_D2Sfs", "vdlsVarColumn_16s_D2LSfs", "vdlsMeanVarColumn_32f_D2",
          "vdlsMeanVarColumn_32f_D2L", "vdlsMeanVarColumn_16s_D2Sfs",
          "vdlsMeanVarColumn_16s_D2LSfs", "vdlsMeanVarColumn_16s32s_D2Sfs",
          "vdlsMeanVarColumn_16s32s_D2LSfs", "vdlsMeanVarColumn_16s16s32s_D2",
          "vdlsMeanVarColumn_16s16s32s_D2L"}},
        {"TimAcccm", "p_acccm_au",
         {"vdlsAccCovarianceMatrix_16s64f_D2L", "vdlsAccCovarianceMatrix_32f64f_D2L",
          "vdlsAccCovarianceMatrix_16s64f_D2", "vdlsAccCovarianceMatrix_32f64f_D2"}},
        {"TimDcl", "p_dcl_au",
         {"vdlsDcsClustLAccumulate_32f", "vdlsDcsClustLAccumulate_64f",
          "vdlsDcsClustLAccumulate_DirectVar_32f", "vdlsDcsClustLAccumulate_DirectVar_64f",
          "vdlsDcsClustLCompute_32f64f", "vdlsDcsClustLCompute_64f"}},
        {"TimNewVar", "p_newvar_au",
         {"vdlsNewVar_32f", "vdlsNewVar_32f_I", "vdlsNewVar_32s_Sfs", "vdlsNewVar_32s_ISfs"}},
        {"TimSum", "p_sum_au",
         {"vdlsSumColumn_32f_D2", "vdlsSumColumn_64f_D2", "vdlsSumColumn_32f_D2L",
          "vdlsSumColumn_64f_D2L", "vdlsSumColumn_16s32f_D2", "vdlsSumColumn_16s32f_D2L",
          "vdlsSumColumn_16s32s_D2Sfs", "vdlsSumColumn_16s32s_D2LSfs", "vdlsSumRow_32f_D2",
          "vdlsSumRow_64f_D2", "vdlsSumRow_32f_D2L", "vdlsSumRow_64f_D2L", "vdlsSumRow_16s32f_D2",
          "vdlsSumRow_16s32f_D2L", "vdlsSumRow_16s32s_D2Sfs", "vdlsSumRow_16s32s_D2LSfs"}},
        {"TimSumMeanVar", "p_summnvar_au",
         {"vdlsSumMeanVar_32f", "vdlsSumMeanVar_32f_I", "vdlsSumMeanVar_16s32f",
          "vdlsSumMeanVar_16s32f_I", "vdlsSumMeanVar_16s32s_Sfs", "vdlsSumMeanVar_16s32s_ISfs"}},
        {"TimSvd", "p_svd_au",
         {"vdlsSumRowAbs_64f", "vdlsSumRowSqr_64f", "vdlsAddMulRow_64f",
          "vdlsSumColumnAbs_64f_D2L", "vdlsSumColumnSqr_64f_D2L", "vdlsDotProdColumn_64f_D2L",
          "vdlsMulColumn_64f_D2L", "vdlsAddMulColumn_64f_D2L", "vdlsQRTransColumn_64f_D2L",
          "vdlsSVD_64f_D2", "vdlsSVDSort_64f_D2", "vdlsSVD_64f_D2_I", "vdlsSVDSort_64f_D2_I",
          "vdlsSVD_64f_D2L", "vdlsSVDSort_64f_D2L", "vdlsSVD_64f_D2L_I",
          "vdlsSVDSort_64f_D2L_I"}},
        {"TimUpdate", "p_updt_au",
         {"vdlsUpdateMean_32f", "vdlsUpdateMean_64f", "vdlsUpdateVar_32f", "vdlsUpdateVar_64f",
          "vdlsUpdateWeight_32f", "vdlsUpdateWeight_64f", "vdlsUpdateGConst_32f",
          "vdlsUpdateGConst_64f", "vdlsUpdateGConst_DirectVar_32f",
          "vdlsUpdateGConst_DirectVar_64f", "vdlsOutProbPreCalc_32f", "vdlsOutProbPreCalc_64f",
          "vdlsOutProbPreCalc_32f_I", "vdlsOutProbPreCalc_64f_I", "vdlsOutProbPreCalc_32s",
          "vdlsOutProbPreCalc_32s_I"}},
        {"TimUpdatePrim", "p_updateprim_au", {"vdlsUpdateNoisePSDMCRA_32s_I"}},
        {"TimWghtMean", "p_wghtmeancol_au",
         {"vdlsWeightedMeanColumn_32f_D2", "vdlsWeightedMeanColumn_32f_D2L",
          "vdlsWeightedMeanColumn_64f_D2", "vdlsWeightedMeanColumn_64f_D2L",
          "vdlsWeightedVarColumn_32f_D2", "vdlsWeightedVarColumn_32f_D2L",
          "vdlsWeightedVarColumn_64f_D2", "vdlsWeightedVarColumn_64f_D2L",
          "vdlsWeightedMeanVarColumn_32f_D2", "vdlsWeightedMeanVarColumn_32f_D2L",
          "vdlsWeightedMeanVarColumn_64f_D2", "vdlsWeightedMeanVarColumn_64f_D2L"}},
        {"TimWSum", "p_wsum_au",
         {"vdlsWeightedSum_32f", "vdlsWeightedSum_64f", "vdlsWeightedSum_16s",
          "vdlsWeightedSumHalf_32f", "vdlsWeightedSumHalf_64f", "vdlsWeightedSumHalf_16s"}},
        {"TimICpy", "p_icpy_au",
         {"vdlsCopyColumn_Indirect_64f_D2", "vdlsCopyColumn_Indirect_32f_D2",
          "vdlsCopyColumn_Indirect_16s_D2", "vdlsCopyColumn_Indirect_64f_D2L",
          "vdlsCopyColumn_Indirect_32f_D2L", "vdlsCopyColumn_Indirect_16s_D2L"}},
        {"TimVecMat", "p_vecmat_ml",
         {"vdlsMatVecMul_32f_D2", "vdlsMatVecMul_32f_D2L", "vdlsMatVecMul_16s_D2Sfs",
          "vdlsMatVecMul_16s_D2LSfs", "vdlsMatVecMul_16s32s_D2Sfs", "vdlsMatVecMul_16s32s_D2LSfs",
          "vdlsMatVecMul_32s_D2Sfs", "vdlsMatVecMul_32s_D2LSfs", "vdlsVecMatMul_32f_D2",
          "vdlsVecMatMul_32f_D2L", "vdlsVecMatMul_16s_D2Sfs", "vdlsVecMatMul_16s_D2LSfs",
          "vdlsVecMatMul_16s32s_D2Sfs", "vdlsVecMatMul_16s32s_D2LSfs", "vdlsVecMatMul_32s_D2Sfs",
          "vdlsVecMatMul_32s_D2LSfs"}},
        {"TimPrim", "p_prim_au",
         {"vdlsRecSqrt_32f", "vdlsRecSqrt_32s_Sfs", "vdlsRecSqrt_32s16s_Sfs",
          "vdlsNormalizeColumn_32f_D2", "vdlsNormalizeColumn_32f_D2L",
          "vdlsNormalizeColumn_16s_D2Sfs", "vdlsNormalizeColumn_16s_D2LSfs", "vdlsSubRow_32f_D2",
          "vdlsSubRow_32f_D2L", "vdlsSubRow_16s_D2", "vdlsSubRow_16s_D2L",
          "vdlsAddAllRowSum_32f_D2", "vdlsAddAllRowSum_32f_D2L"}},
    };
    return classes;
}

TEST(TrainCatalogue, EachClassListsItsFunctionsAndModule) {
    expectFamilyListed(family(), 139);
}

// A row of the performance table: its parameter cells and the elements
// one call handled, which the whole call's time over its clocks per
// element gives relative to the row `reference` that handled one.
struct Row {
    std::vector<std::string> cells;
    double timePerClock;  // Time (usec) / Clocks
};

std::vector<Row> rowsOf(const std::string& table, const std::string& base,
                        const std::string& types, const std::string& descr) {
    std::vector<Row> rows;
    for (const std::string& line : split(table, '\n')) {
        std::vector<std::string> cells = split(line, ',');
        if (cells.size() < 14 || cells[0] != base || cells[1] != types || cells[2] != descr)
            continue;
        rows.push_back(Row{cells, std::stod(cells[12]) / std::stod(cells[10])});
    }
    return rows;
}

TEST(TrainCatalogue, QuickRunOfTheFamilyPassesWithTheExpectedGridsAndDivisors) {
    Sandbox box;
    QuickRun run = runFamilyQuickly(box, family());
    EXPECT_EQ(0, run.code);
    EXPECT_EQ("139", summaryValue(run.summary, ".Number of tests"));
    EXPECT_EQ(0, failures(run.summary));

    std::map<std::string, int> rows = rowsPerFunction(run.table);
    // Heights 100 and 10000 only: the step multiplies.
    EXPECT_EQ(2, rows["vdlsAccCovarianceMatrix_32f64f_D2"]);
    // 5 row counts by 4 column counts, under 4 scale factors where scaled.
    EXPECT_EQ(20, rows["vdlsMeanVarColumn_16s16s32s_D2"]);
    EXPECT_EQ(80, rows["vdlsMeanVarColumn_16s32s_D2LSfs"]);
    EXPECT_EQ(80, rows["vdlsSumRow_16s32s_D2Sfs"]);
    // Square sizes 20 to 100; 5 by 5 matrices; 19 vector lengths.
    EXPECT_EQ(9, rows["vdlsSVDSort_64f_D2L_I"]);
    EXPECT_EQ(25, rows["vdlsQRTransColumn_64f_D2L"]);
    EXPECT_EQ(19, rows["vdlsSumRowAbs_64f"]);
    EXPECT_EQ(7, rows["vdlsUpdateNoisePSDMCRA_32s_I"]);
    EXPECT_EQ(64, rows["vdlsCopyColumn_Indirect_16s_D2L"]);
    // 20 lengths, under 4 scale factors where scaled.
    EXPECT_EQ(20, rows["vdlsRecSqrt_32f"]);
    EXPECT_EQ(80, rows["vdlsRecSqrt_32s16s_Sfs"]);
    EXPECT_EQ(20, rows["vdlsOutProbPreCalc_32s_I"]);

    // Element counts: a vector step of TimSvd divides by 1 (its column
    // count is a nameless 1), a 100 by 100 column step by 10000, the noise
    // estimate at length 64 (33 bins) by 32.
    std::vector<Row> unit = rowsOf(run.table, "vdlsSumRowAbs", "64f", "-");
    ASSERT_FALSE(unit.empty());
    EXPECT_EQ("-", unit[0].cells[4]);
    const double one = unit[0].timePerClock;
    std::vector<Row> square = rowsOf(run.table, "vdlsQRTransColumn", "64f", "D2L");
    ASSERT_FALSE(square.empty());
    EXPECT_EQ("100", square.back().cells[3]);
    EXPECT_EQ("100", square.back().cells[4]);
    EXPECT_NEAR(10000, square.back().timePerClock / one, 300);
    std::vector<Row> noise = rowsOf(run.table, "vdlsUpdateNoisePSDMCRA", "32s", "I");
    ASSERT_FALSE(noise.empty());
    EXPECT_EQ("64", noise[0].cells[3]);
    EXPECT_NEAR(32, noise[0].timePerClock / one, 1);
}

}  // namespace
