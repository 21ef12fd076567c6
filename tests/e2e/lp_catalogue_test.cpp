// The linear-prediction tests of the catalogue as the program shows them,
// and the two data edges of the family: the largest spectrum order, a
// filter length without a table.
#include "catalogue.h"

namespace {

using namespace kelvar_e2e;

const Family kLp = {
    "Lp",
    {{"TimLDurb", "p_durb_au", "vdlsDurbin_{32f,16s_Sfs}"},
     {"TimSchur", "p_schur_au", "vdlsSchur_{32f,16s_Sfs}"},
     {"TimLp2Ref", "p_lp2ref_au", "vdls{LPToReflection,ReflectionToLP}_{32f,16s_Sfs}"},
     {"TimLp2Spectr", "p_lp2spectr_au", "vdlsLPToSpectrum_{32f,16s_Sfs}"},
     {"TimLpc2Lsf", "p_lpc2lsf_au", "vdlsLPToLSP_{32f,16s_Sfs}"},
     {"TimLsp2Lp", "p_lsp2lpc_au", "vdlsLSPToLP_{32f,16s_Sfs}"},
     {"Tim_fc2ar", "p_fc2ar_au", "vdlsReflectionTo{AR,LAR,TrueAR}_{32f,16s_Sfs}"},
     {"Tim_fc2t", "p_fc2t_au", "vdlsReflectionTo{AbsTilt,Tilt}_{32f,16s_Sfs}"},
     {"TimRflt", "p_sflt_au", "vdlsTabsCalculation_Aurora_{16s,32f}"},
     {"TimResid", "p_resid_ml", "vdlsResidualFilter_Aurora_{32f,16s_Sfs}"},
     {"TimLHFlt", "p_lhflt_ml", "vdlsLowHighFilter_Aurora_{32f,16s_Sfs}"},
     {"TimPred", "p_pred_au", "vdlsLinearPrediction{_Auto,_Cov,Neg_Auto}_{32f,16s_Sfs}"}},
    {{"vdlsDurbin_32f", 31},                       // orders 2 to 32
     {"vdlsLPToReflection_16s_Sfs", 48},           // 12 lengths by 4 factors
     {"vdlsReflectionToTrueAR_16s_Sfs", 8},        // 4 to 512 by doubling
     {"vdlsLowHighFilter_Aurora_32f", 24},         // 4 lengths by 6 tap counts
     {"vdlsLinearPrediction_Cov_16s_Sfs", 144}}};  // 6 by 6 by 4

INSTANTIATE_TEST_SUITE_P(Lp, FamilyCatalogue, ::testing::Values(&kLp));

TEST(LpCatalogue, LargestSpectrumOrderAndALengthWithoutTableRunClean) {
    Sandbox box;
    QuickRun run = runQuickly(box, {kLp.classes[3], kLp.classes[4]}, {"-dOrder=8", "-dLength=7"});
    EXPECT_EQ(0, run.code);
    EXPECT_EQ("0", summaryValue(run.summary, ".Failures       "));
    EXPECT_EQ(1u, rowsOf(run.table, "vdlsLPToLSP", "16s", "Sfs").size());
    // The spectrum's one row reports the predictor order 2^9 - 2.
    EXPECT_EQ(std::set<std::string>{"510"},
              cellsAt(rowsOf(run.table, "vdlsLPToSpectrum", "32f", "-"), 3));
}

}  // namespace
