// The feature-extraction tests of the catalogue as the program shows them:
// which functions each class times and from which module, and a quick run
// of the whole family that must end without a failure, walk grids of the
// expected size and fill the table as each module lays it out.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "catalogue.h"

namespace {

using namespace kelvar_e2e;

const std::vector<TestClass>& family() {
    static const std::vector<TestClass> classes = {
        {"TimDlt", "p_dlt_au",
         {"vdlsEvalDelta_32f_D2", "vdlsEvalDelta_16s_D2Sfs", "vdlsEvalDeltaMul_32f_D2",
          "vdlsEvalDeltaMul_16s_D2Sfs", "vdlsDelta_Win1_32f_D2", "vdlsDelta_Win2_32f_D2",
          "vdlsDelta_Win1_16s_D2Sfs", "vdlsDelta_Win2_16s_D2Sfs", "vdlsDeltaMul_Win1_32f_D2",
          "vdlsDeltaMul_Win2_32f_D2", "vdlsDeltaDeltaMul_Win1_32f_D2",
          "vdlsDeltaDeltaMul_Win2_32f_D2", "vdlsDeltaMul_Win1_16s_D2Sfs",
          "vdlsDeltaMul_Win2_16s_D2Sfs", "vdlsDeltaDeltaMul_Win1_16s_D2Sfs",
          "vdlsDeltaDeltaMul_Win2_16s_D2Sfs", "vdlsDeltaDelta_Win1_32f_D2",
          "vdlsDeltaDelta_Win2_32f_D2", "vdlsDeltaDelta_Win1_16s_D2Sfs",
          "vdlsDeltaDelta_Win2_16s_D2Sfs", "vdlsCopyColumn_32f_D2", "vdlsCopyColumn_16s_D2"}},
        {"TimDltAur", "p_dltaur_au",
         {"vdlsDeltaDelta_Aurora_16s_D2Sfs", "vdlsDeltaDeltaMul_Aurora_16s_D2Sfs",
          "vdlsDeltaDelta_Aurora_32f_D2", "vdlsDeltaDeltaMul_Aurora_32f_D2"}},
        {"TimLifter32", "p_lifter_au", {"vdlsDCTLifter_32f"}},
        {"TimLifter16", "p_lifter_au", {"vdlsDCTLifter_16s_Sfs", "vdlsDCTLifter_32s16s_Sfs"}},
        {"TimMelF", "p_melft_au",
         {"vdlsMelToLinear_32f", "vdlsLinearToMel_32f", "vdlsCopyWithPadding_32f",
          "vdlsCopyWithPadding_16s"}},
        {"TimMelFB16s", "p_evalfbank_au", {"vdlsEvalFBank_16s_Sfs", "vdlsEvalFBank_16s32s_Sfs"}},
        {"TimLp2Cep", "p_lp2cep_au",
         {"vdlsLPToCepstrum_32f", "vdlsLPToCepstrum_16s_Sfs", "vdlsCepstrumToLP_32f",
          "vdlsCepstrumToLP_16s_Sfs"}},
        {"TimNormEnergy", "p_normenergy_au",
         {"vdlsNormEnergy_32f", "vdlsNormEnergy_16s", "vdlsNormEnergy_RT_32f",
          "vdlsNormEnergy_RT_16s"}},
        {"TimNormInRng", "p_norminrng_au",
         {"vdlsNormalizeInRange_16s8u", "vdlsNormalizeInRange_16s", "vdlsNormalizeInRange_16s_I",
          "vdlsNormalizeInRange_32f8u", "vdlsNormalizeInRange_32f16s", "vdlsNormalizeInRange_32f",
          "vdlsNormalizeInRange_32f_I", "vdlsNormalizeInRangeMinMax_16s8u",
          "vdlsNormalizeInRangeMinMax_16s", "vdlsNormalizeInRangeMinMax_16s_I",
          "vdlsNormalizeInRangeMinMax_32f8u", "vdlsNormalizeInRangeMinMax_32f16s",
          "vdlsNormalizeInRangeMinMax_32f", "vdlsNormalizeInRangeMinMax_32f_I"}},
        {"TimZeroMean", "p_zeromean_au", {"vdlsZeroMean_16s"}},
        {"TimIgnr", "p_ignr_au",
         {"vdlsSignChangeRate_32f", "vdlsSignChangeRateXor_32f", "vdlsSignChangeRate_16s",
          "vdlsSignChangeRate_Count0_32f", "vdlsSignChangeRate_Count0_16s"}},
        {"TimVoiceAct", "p_voiceact_au",
         {"vdlsFindPeaks_32s8u", "vdlsPeriodicityLSPE_16s", "vdlsPeriodicity_32s16s"}},
        {"Tim_pm2f0", "p_pm2f0_au", {"vdlsPitchmarkToF0Cand_32f", "vdlsPitchmarkToF0Cand_16s_Sfs"}},
        {"TimHbcod", "p_hbcod_au",
         {"vdlsHighBandCoding_Aurora_32f", "vdlsHighBandCoding_Aurora_32s_Sfs"}},
        {"TimBlind", "p_blind_ml",
         {"vdlsBlindEqualization_Aurora_32f", "vdlsBlindEqualization_Aurora_16s"}},
        {"TimOfsc", "p_ofsc_au",
         {"vdlsCompensateOffset_16s", "vdlsCompensateOffset_32f", "vdlsCompensateOffset_16s_I",
          "vdlsCompensateOffset_32f_I", "vdlsCompensateOffsetQ15_16s",
          "vdlsCompensateOffsetQ15_16s_I"}},
        {"TimWave", "p_waveavr_ml", {"vdlsWaveProcessing_Aurora_32f", "vdlsWaveProcessing_Aurora_16s"}},
        {"TimSmoot", "p_smoot_ml",
         {"vdlsSmoothedPowerSpectrumAurora_32f", "vdlsSmoothedPowerSpectrumAurora_32s_Sfs",
          "vdlsSmoothedPowerSpectrumAurora_32s64s_Sfs", "vdlsSmoothedPowerSpectrumAurora_16s"}},
        {"Tim_Sinc", "p_sinc_au",
         {"vdlsSinC_32f", "vdlsSinC_32f64f", "vdlsSinC_64f", "vdlsSinC_32f_I", "vdlsSinC_64f_I"}},
    };
    return classes;
}

TEST(FeatureCatalogue, EachClassListsItsFunctionsAndModule) {
    expectFamilyListed(family(), 89);
}

// The cells of each table row of one function (prefix and base, types,
// descriptor as the table splits them).
std::vector<std::vector<std::string>> rowsOf(const std::string& table, const std::string& base,
                                             const std::string& types, const std::string& descr) {
    std::vector<std::vector<std::string>> found;
    for (const std::string& line : split(table, '\n')) {
        std::vector<std::string> cells = split(line, ',');
        if (cells.size() > 12 && cells[0] == base && cells[1] == types && cells[2] == descr)
            found.push_back(cells);
    }
    return found;
}

// Cells of a row: 3 rows, 4 cols, 5 stride, ..., 10 clocks per element,
// 12 the time of a call in microseconds.
std::map<int, std::string> strideByCols(const std::vector<std::vector<std::string>>& rows) {
    std::map<int, std::string> strides;
    for (const std::vector<std::string>& r : rows) strides[std::stoi(r[4])] = r[5];
    return strides;
}

class FeatureRun : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        box = new Sandbox;
        run = new QuickRun(runFamilyQuickly(*box, family()));
    }
    static void TearDownTestSuite() {
        delete run;
        delete box;
    }
    static Sandbox* box;
    static QuickRun* run;
};

Sandbox* FeatureRun::box = nullptr;
QuickRun* FeatureRun::run = nullptr;

TEST_F(FeatureRun, EndsWithoutAFailure) {
    EXPECT_EQ(0, run->code);
    EXPECT_EQ("89", summaryValue(run->summary, ".Number of tests"));
    EXPECT_EQ(0, failures(run->summary));
    EXPECT_EQ("0", summaryValue(run->summary, ".....-EXCPTFAIL "));
}

TEST_F(FeatureRun, WalksTheWholeGrids) {
    std::map<std::string, int> rows = rowsPerFunction(run->table);
    // 4 scale factors, 2 windows, 2 offsets, 4 row counts, 5 column counts.
    EXPECT_EQ(320, rows["vdlsEvalDelta_16s_D2Sfs"]);
    // No scale wheel and one window and offset outside the Eval forms.
    EXPECT_EQ(20, rows["vdlsDelta_Win1_32f_D2"]);
    EXPECT_EQ(80, rows["vdlsDeltaDelta_Win2_16s_D2Sfs"]);
    // 4 scale factors, 9 heights, 4 steps.
    EXPECT_EQ(144, rows["vdlsDeltaDelta_Aurora_16s_D2Sfs"]);
    // 4 scale factors, 22 filter counts, 2 lengths.
    EXPECT_EQ(176, rows["vdlsEvalFBank_16s_Sfs"]);
    // The one given scale factor: 8 lengths doubling from 4.
    EXPECT_EQ(8, rows["vdlsPitchmarkToF0Cand_16s_Sfs"]);
    // 3 lengths, 4 search sizes, 5 averaging sizes; 2 by 3 by 3 periods.
    EXPECT_EQ(60, rows["vdlsFindPeaks_32s8u"]);
    EXPECT_EQ(18, rows["vdlsPeriodicity_32s16s"]);
    EXPECT_EQ(21, rows["vdlsZeroMean_16s"]);
    EXPECT_EQ(20, rows["vdlsSinC_64f_I"]);
    EXPECT_EQ(1, rows["vdlsHighBandCoding_Aurora_32f"]);
}

TEST_F(FeatureRun, DeltaRowsHoldThreeBlocksRoundedByElementType) {
    typedef std::map<int, std::string> Strides;
    EXPECT_EQ((Strides{{12, "40"}, {13, "40"}, {14, "48"}, {15, "48"}, {16, "48"}}),
              strideByCols(rowsOf(run->table, "vdlsDelta_Win1", "16s", "D2Sfs")));
    EXPECT_EQ((Strides{{12, "36"}, {13, "40"}, {14, "44"}, {15, "48"}, {16, "48"}}),
              strideByCols(rowsOf(run->table, "vdlsDelta_Win1", "32f", "D2")));
}

// Clocks per element times the element count is the clocks of a call, the
// same multiple of its time in every row: so the count must be rows * cols,
// not a count that grows with the padded stride.
TEST_F(FeatureRun, DeltaTableDividesByRowsTimesCols) {
    std::vector<double> clocksPerMicrosecond;
    for (const std::vector<std::string>& r : rowsOf(run->table, "vdlsDeltaDelta_Win2", "32f", "D2")) {
        const double perElement = std::stod(r[10]), usec = std::stod(r[12]);
        if (usec > 0) clocksPerMicrosecond.push_back(perElement * std::stoi(r[3]) * std::stoi(r[4]) / usec);
    }
    ASSERT_EQ(20u, clocksPerMicrosecond.size());
    const auto range = std::minmax_element(clocksPerMicrosecond.begin(), clocksPerMicrosecond.end());
    EXPECT_LT(*range.second / *range.first, 1.02);
}

TEST_F(FeatureRun, HighBandCodingWritesNoParameterCell) {
    for (const char* types : {"32f", "32s"}) {
        std::vector<std::vector<std::string>> rows =
            rowsOf(run->table, "vdlsHighBandCoding_Aurora", types, types[2] == 's' ? "Sfs" : "-");
        ASSERT_EQ(1u, rows.size()) << types;
        for (int cell = 3; cell <= 8; ++cell) EXPECT_EQ("-", rows[0][cell]) << types << " " << cell;
    }
}

}  // namespace
