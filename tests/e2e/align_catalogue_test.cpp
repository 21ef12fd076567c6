// The alignment and signal tests of the catalogue as the program shows them,
// and the rate pairs of the resampling tests.
#include "catalogue.h"

namespace {

using namespace kelvar_e2e;

const Family kAlign = {
    "Align",
    {{"TimDTW", "p_dtw_au",
      "vdlsDTW_L2_32f_D2{,L} vdlsDTW_L2_8u32s_D2{,L}Sfs vdlsDTW_L2Low_16s32s_D2{,L}Sfs"},
     {"TimResampleFast", "p_resample_ml", "vdlsResamplePolyphase{,Fixed}_{32f,16s}_Fast"},
     {"TimResampleAcc", "p_resample_ml", "vdlsResamplePolyphase{,Fixed}_{32f,16s}_Accur"},
     {"TimCross", "p_cross_ml", "vdlsCrossCorrCoeff{Decim,,Interpolation,Partial}_16s32f"},
     {"TimWiener", "p_wiener_ml",
      "vdlsWienerFilterDesign_Aurora_{32f,16s} "
      "vdlsNoiseSpectrumUpdate_Aurora_{32f,16s_Sfs,32s_Sfs}"},
     {"TimKodiak", "p_kodiak_au", "vdlsFilterUpdate{Wiener,EMNS}_32s"}},
    // 3 heights by 3 widths by 2 deltas by 2 beams, one scale factor; 4
    // lengths by the 12 pairs of different rates; only the search walks the
    // lags: 18 lengths by 6 by 6 by 2 steps.
    {{"vdlsDTW_L2_8u32s_D2Sfs", 36}, {"vdlsResamplePolyphaseFixed_32f_Accur", 48},
     {"vdlsCrossCorrCoeffDecim_16s32f", 1296}, {"vdlsCrossCorrCoeffPartial_16s32f", 18},
     {"vdlsFilterUpdateEMNS_32s", 6}}};

INSTANTIATE_TEST_SUITE_P(Align, FamilyCatalogue, ::testing::Values(&kAlign));

// No pair of equal rates; 8000, the table's last rate, as the out rate of
// each of the other three.
TEST(AlignCatalogue, ResamplingSkipsPairsOfEqualRates) {
    std::multiset<std::pair<std::string, std::string>> pairs;
    for (const auto& r : rowsOf(quickRun(kAlign).table, "vdlsResamplePolyphase", "32f", "Fast")) {
        EXPECT_NE(r[3], r[4]);
        pairs.insert({r[3], r[4]});
    }
    EXPECT_EQ(48u, pairs.size());
    for (const char* in : {"11025", "16000", "22050"})
        EXPECT_EQ(4u, pairs.count({in, "8000"})) << in;
    EXPECT_EQ(4u, pairs.count({"8000", "22050"}));
}

}  // namespace
