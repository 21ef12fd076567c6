// The feature-extraction tests of the catalogue as the program shows them,
// and the table as each module lays it out: the row steps and divisor of
// the delta tests, the empty parameter cells of high-band coding.
#include <algorithm>

#include "catalogue.h"

namespace {

using namespace kelvar_e2e;
using ::testing::HasSubstr;

const Family kFeature = {
    "Feature",
    {{"TimDlt", "p_dlt_au",
      "vdlsEvalDelta{,Mul}_{32f_D2,16s_D2Sfs} "
      "vdls{Delta,DeltaMul,DeltaDelta,DeltaDeltaMul}_Win{1,2}_{32f_D2,16s_D2Sfs} "
      "vdlsCopyColumn_{32f,16s}_D2"},
     {"TimDltAur", "p_dltaur_au", "vdlsDeltaDelta{,Mul}_Aurora_{16s_D2Sfs,32f_D2}"},
     {"TimLifter32", "p_lifter_au", "vdlsDCTLifter_32f"},
     {"TimLifter16", "p_lifter_au", "vdlsDCTLifter_{16s,32s16s}_Sfs"},
     {"TimMelF", "p_melft_au",
      "vdlsMelToLinear_32f vdlsLinearToMel_32f vdlsCopyWithPadding_{32f,16s}"},
     {"TimMelFB16s", "p_evalfbank_au", "vdlsEvalFBank_{16s,16s32s}_Sfs"},
     {"TimLp2Cep", "p_lp2cep_au", "vdls{LPToCepstrum,CepstrumToLP}_{32f,16s_Sfs}"},
     {"TimNormEnergy", "p_normenergy_au", "vdlsNormEnergy{,_RT}_{32f,16s}"},
     {"TimNormInRng", "p_norminrng_au",
      "vdlsNormalizeInRange{,MinMax}_{16s8u,16s,16s_I,32f8u,32f16s,32f,32f_I}"},
     {"TimZeroMean", "p_zeromean_au", "vdlsZeroMean_16s"},
     {"TimIgnr", "p_ignr_au",
      "vdlsSignChangeRate{,Xor}_32f vdlsSignChangeRate_16s vdlsSignChangeRate_Count0_{32f,16s}"},
     {"TimVoiceAct", "p_voiceact_au",
      "vdlsFindPeaks_32s8u vdlsPeriodicityLSPE_16s vdlsPeriodicity_32s16s"},
     {"Tim_pm2f0", "p_pm2f0_au", "vdlsPitchmarkToF0Cand_{32f,16s_Sfs}"},
     {"TimHbcod", "p_hbcod_au", "vdlsHighBandCoding_Aurora_{32f,32s_Sfs}"},
     {"TimBlind", "p_blind_ml", "vdlsBlindEqualization_Aurora_{32f,16s}"},
     {"TimOfsc", "p_ofsc_au", "vdlsCompensateOffset{,Q15}_16s{,_I} vdlsCompensateOffset_32f{,_I}"},
     {"TimWave", "p_waveavr_ml", "vdlsWaveProcessing_Aurora_{32f,16s}"},
     {"TimSmoot", "p_smoot_ml", "vdlsSmoothedPowerSpectrumAurora_{32f,32s_Sfs,32s64s_Sfs,16s}"},
     {"Tim_Sinc", "p_sinc_au", "vdlsSinC_{32f,32f64f,64f,32f_I,64f_I}"}},
    // 4 scale factors, 2 windows, 2 offsets, 4 row counts, 5 column counts;
    // one window and offset and no scale wheel outside the Eval forms; 4
    // scale factors by 9 heights by 4 steps; by 22 filter counts by 2 lengths.
    {{"vdlsEvalDelta_16s_D2Sfs", 320}, {"vdlsDelta_Win1_32f_D2", 20},
     {"vdlsDeltaDelta_Aurora_16s_D2Sfs", 144}, {"vdlsEvalFBank_16s_Sfs", 176},
     {"vdlsFindPeaks_32s8u", 60}}};  // 3 lengths, 4 search, 5 averaging sizes

INSTANTIATE_TEST_SUITE_P(Feature, FamilyCatalogue, ::testing::Values(&kFeature));

// Cells of a row: 3 rows, 4 cols, 5 stride, ..., 10 clocks per element,
// 12 the time of a call in microseconds.
TEST(FeatureCatalogue, DeltaRowsHoldThreeBlocksRoundedByElementType) {
    const std::string& table = quickRun(kFeature).table;
    typedef std::map<std::string, std::string> Strides;
    EXPECT_EQ((Strides{{"12", "40"}, {"13", "40"}, {"14", "48"}, {"15", "48"}, {"16", "48"}}),
              cellBy(rowsOf(table, "vdlsDelta_Win1", "16s", "D2Sfs"), 4, 5));
    EXPECT_EQ((Strides{{"12", "36"}, {"13", "40"}, {"14", "44"}, {"15", "48"}, {"16", "48"}}),
              cellBy(rowsOf(table, "vdlsDelta_Win1", "32f", "D2"), 4, 5));
}

// Clocks per element times the element count is the clocks of a call, the
// same multiple of its time in every row: so the count must be rows * cols,
// not a count that grows with the padded stride.
TEST(FeatureCatalogue, DeltaTableDividesByRowsTimesCols) {
    std::vector<double> perUsec;  // clocks per microsecond
    for (const auto& r : rowsOf(quickRun(kFeature).table, "vdlsDeltaDelta_Win2", "32f", "D2")) {
        const double perElement = std::stod(r[10]), usec = std::stod(r[12]);
        if (usec > 0) perUsec.push_back(perElement * std::stoi(r[3]) * std::stoi(r[4]) / usec);
    }
    ASSERT_EQ(20u, perUsec.size());
    const auto range = std::minmax_element(perUsec.begin(), perUsec.end());
    EXPECT_LT(*range.second / *range.first, 1.02);
}

// Cells 3 to 8, the size, the four parameters and the scale factor, empty.
TEST(FeatureCatalogue, HighBandCodingWritesNoParameterCell) {
    const std::string& table = quickRun(kFeature).table;
    EXPECT_THAT(table, HasSubstr("\nvdlsHighBandCoding_Aurora,32f,-,-,-,-,-,-,-,"));
    EXPECT_THAT(table, HasSubstr("\nvdlsHighBandCoding_Aurora,32s,Sfs,-,-,-,-,-,-,"));
}

}  // namespace
