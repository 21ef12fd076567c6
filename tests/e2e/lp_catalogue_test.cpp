// The linear-prediction tests of the catalogue as the program shows them:
// which functions each class times and from which module, a quick run of
// the whole family without a failure over grids of the expected size, and
// the two data edges of the family (the largest spectrum order, a filter
// length without a table).
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "catalogue.h"

namespace {

using namespace kelvar_e2e;

const std::vector<TestClass>& family() {
    static const std::vector<TestClass> classes = {
        {"TimLDurb", "p_durb_au", {"vdlsDurbin_32f", "vdlsDurbin_16s_Sfs"}},
        {"TimSchur", "p_schur_au", {"vdlsSchur_32f", "vdlsSchur_16s_Sfs"}},
        {"TimLp2Ref", "p_lp2ref_au",
         {"vdlsLPToReflection_32f", "vdlsLPToReflection_16s_Sfs", "vdlsReflectionToLP_32f",
          "vdlsReflectionToLP_16s_Sfs"}},
        {"TimLp2Spectr", "p_lp2spectr_au", {"vdlsLPToSpectrum_32f", "vdlsLPToSpectrum_16s_Sfs"}},
        {"TimLpc2Lsf", "p_lpc2lsf_au", {"vdlsLPToLSP_32f", "vdlsLPToLSP_16s_Sfs"}},
        {"TimLsp2Lp", "p_lsp2lpc_au", {"vdlsLSPToLP_32f", "vdlsLSPToLP_16s_Sfs"}},
        {"Tim_fc2ar", "p_fc2ar_au",
         {"vdlsReflectionToAR_32f", "vdlsReflectionToAR_16s_Sfs", "vdlsReflectionToLAR_32f",
          "vdlsReflectionToLAR_16s_Sfs", "vdlsReflectionToTrueAR_32f",
          "vdlsReflectionToTrueAR_16s_Sfs"}},
        {"Tim_fc2t", "p_fc2t_au",
         {"vdlsReflectionToAbsTilt_32f", "vdlsReflectionToAbsTilt_16s_Sfs",
          "vdlsReflectionToTilt_32f", "vdlsReflectionToTilt_16s_Sfs"}},
        {"TimRflt", "p_sflt_au", {"vdlsTabsCalculation_Aurora_16s", "vdlsTabsCalculation_Aurora_32f"}},
        {"TimResid", "p_resid_ml",
         {"vdlsResidualFilter_Aurora_32f", "vdlsResidualFilter_Aurora_16s_Sfs"}},
        {"TimLHFlt", "p_lhflt_ml",
         {"vdlsLowHighFilter_Aurora_32f", "vdlsLowHighFilter_Aurora_16s_Sfs"}},
        {"TimPred", "p_pred_au",
         {"vdlsLinearPrediction_Auto_32f", "vdlsLinearPrediction_Auto_16s_Sfs",
          "vdlsLinearPrediction_Cov_32f", "vdlsLinearPrediction_Cov_16s_Sfs",
          "vdlsLinearPredictionNeg_Auto_32f", "vdlsLinearPredictionNeg_Auto_16s_Sfs"}},
    };
    return classes;
}

TEST(LpCatalogue, EachClassListsItsFunctionsAndModule) {
    expectFamilyListed(family(), 36);
}

TEST(LpCatalogue, QuickRunOfTheFamilyPassesAndWalksWholeGrids) {
    Sandbox box;
    QuickRun run = runFamilyQuickly(box, family());
    EXPECT_EQ(0, run.code);
    EXPECT_EQ("36", summaryValue(run.summary, ".Number of tests"));
    EXPECT_EQ(0, failures(run.summary));

    std::map<std::string, int> rows = rowsPerFunction(run.table);
    EXPECT_EQ(31, rows["vdlsDurbin_32f"]);        // orders 2 to 32
    EXPECT_EQ(30, rows["vdlsSchur_16s_Sfs"]);     // 3 to 32, one scale factor
    EXPECT_EQ(48, rows["vdlsLPToReflection_16s_Sfs"]);  // 12 lengths by 4 factors
    EXPECT_EQ(12, rows["vdlsReflectionToLP_32f"]);
    EXPECT_EQ(7, rows["vdlsLPToSpectrum_16s_Sfs"]);
    EXPECT_EQ(3, rows["vdlsLPToLSP_32f"]);
    EXPECT_EQ(16, rows["vdlsLSPToLP_16s_Sfs"]);
    EXPECT_EQ(8, rows["vdlsReflectionToTrueAR_16s_Sfs"]);  // 4 to 512 by doubling
    EXPECT_EQ(1, rows["vdlsTabsCalculation_Aurora_32f"]);
    EXPECT_EQ(32, rows["vdlsResidualFilter_Aurora_16s_Sfs"]);  // 8 lens by 4 factors
    EXPECT_EQ(24, rows["vdlsLowHighFilter_Aurora_32f"]);        // 4 lens by 6 tap counts
    EXPECT_EQ(144, rows["vdlsLinearPrediction_Cov_16s_Sfs"]);   // 6 by 6 by 4
}

TEST(LpCatalogue, LargestSpectrumOrderAndALengthWithoutTableRunClean) {
    Sandbox box;
    std::vector<TestClass> two = {family()[3], family()[4]};
    QuickRun run = runFamilyQuickly(box, two, {"-dOrder=8", "-dLength=7"});
    EXPECT_EQ(0, run.code);
    EXPECT_EQ(0, failures(run.summary));
    std::map<std::string, int> rows = rowsPerFunction(run.table);
    EXPECT_EQ(1, rows["vdlsLPToSpectrum_32f"]);
    EXPECT_EQ(1, rows["vdlsLPToLSP_16s_Sfs"]);
    // The spectrum's row reports the predictor order 2^9 - 2.
    bool found = false;
    for (const std::string& line : split(run.table, '\n')) {
        std::vector<std::string> cells = split(line, ',');
        if (cells.size() > 3 && cells[0] == "vdlsLPToSpectrum" && cells[1] == "32f") {
            EXPECT_EQ("510", cells[3]);
            found = true;
        }
    }
    EXPECT_TRUE(found);
}

}  // namespace
