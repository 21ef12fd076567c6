// The alignment and signal tests of the catalogue as the program shows them:
// the functions of each class with their module, and a quick run of the
// family that ends without a failure, passes over pairs of equal rates and
// walks the grids of the expected size.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "catalogue.h"

namespace {

using namespace kelvar_e2e;

const std::vector<TestClass>& family() {
    static const std::vector<TestClass> classes = {
        {"TimDTW", "p_dtw_au",
         {"vdlsDTW_L2_32f_D2L", "vdlsDTW_L2_32f_D2", "vdlsDTW_L2_8u32s_D2Sfs",
          "vdlsDTW_L2_8u32s_D2LSfs", "vdlsDTW_L2Low_16s32s_D2Sfs", "vdlsDTW_L2Low_16s32s_D2LSfs"}},
        {"TimResampleFast", "p_resample_ml",
         {"vdlsResamplePolyphase_32f_Fast", "vdlsResamplePolyphase_16s_Fast",
          "vdlsResamplePolyphaseFixed_32f_Fast", "vdlsResamplePolyphaseFixed_16s_Fast"}},
        {"TimResampleAcc", "p_resample_ml",
         {"vdlsResamplePolyphase_32f_Accur", "vdlsResamplePolyphase_16s_Accur",
          "vdlsResamplePolyphaseFixed_32f_Accur", "vdlsResamplePolyphaseFixed_16s_Accur"}},
        {"TimCross", "p_cross_ml",
         {"vdlsCrossCorrCoeffDecim_16s32f", "vdlsCrossCorrCoeff_16s32f",
          "vdlsCrossCorrCoeffInterpolation_16s32f", "vdlsCrossCorrCoeffPartial_16s32f"}},
        {"TimWiener", "p_wiener_ml",
         {"vdlsWienerFilterDesign_Aurora_32f", "vdlsWienerFilterDesign_Aurora_16s",
          "vdlsNoiseSpectrumUpdate_Aurora_32f", "vdlsNoiseSpectrumUpdate_Aurora_16s_Sfs",
          "vdlsNoiseSpectrumUpdate_Aurora_32s_Sfs"}},
        {"TimKodiak", "p_kodiak_au", {"vdlsFilterUpdateWiener_32s", "vdlsFilterUpdateEMNS_32s"}},
    };
    return classes;
}

TEST(AlignCatalogue, EachClassListsItsFunctionsAndModule) {
    expectFamilyListed(family(), 25);
}

// The (in rate, out rate) cells of the rows of one resampling function.
std::multiset<std::pair<int, int>> ratePairs(const std::string& table, const std::string& base,
                                             const std::string& types, const std::string& descr) {
    std::multiset<std::pair<int, int>> pairs;
    for (const std::string& line : split(table, '\n')) {
        std::vector<std::string> cells = split(line, ',');
        if (cells.size() > 5 && cells[0] == base && cells[1] == types && cells[2] == descr)
            pairs.insert({std::stoi(cells[3]), std::stoi(cells[4])});
    }
    return pairs;
}

TEST(AlignCatalogue, QuickRunOfTheFamilyPassesAndWalksWholeGrids) {
    Sandbox box;
    QuickRun run = runFamilyQuickly(box, family());
    EXPECT_EQ(0, run.code);
    EXPECT_EQ("25", summaryValue(run.summary, ".Number of tests"));
    EXPECT_EQ(0, failures(run.summary));
    EXPECT_EQ("0", summaryValue(run.summary, ".....-EXCPTFAIL "));

    std::map<std::string, int> rows = rowsPerFunction(run.table);
    // 3 heights by 3 widths by 2 deltas by 2 beams, one scale factor.
    EXPECT_EQ(36, rows["vdlsDTW_L2_32f_D2L"]);
    EXPECT_EQ(36, rows["vdlsDTW_L2_8u32s_D2Sfs"]);
    // 4 lengths by the 12 pairs of different rates.
    EXPECT_EQ(48, rows["vdlsResamplePolyphase_16s_Fast"]);
    EXPECT_EQ(48, rows["vdlsResamplePolyphaseFixed_32f_Accur"]);
    // Only the search walks the lags: 18 lengths by 6 by 6 by 2 steps.
    EXPECT_EQ(1296, rows["vdlsCrossCorrCoeffDecim_16s32f"]);
    EXPECT_EQ(18, rows["vdlsCrossCorrCoeffPartial_16s32f"]);
    EXPECT_EQ(11, rows["vdlsNoiseSpectrumUpdate_Aurora_32s_Sfs"]);
    EXPECT_EQ(6, rows["vdlsFilterUpdateEMNS_32s"]);

    // No pair of equal rates; 8000 as the out rate, from the table's last
    // entry, against each of the other three in rates.
    std::multiset<std::pair<int, int>> pairs =
        ratePairs(run.table, "vdlsResamplePolyphase", "32f", "Fast");
    EXPECT_EQ(48u, pairs.size());
    for (const auto& p : pairs) EXPECT_NE(p.first, p.second);
    EXPECT_EQ(0u, pairs.count({8000, 8000}));
    EXPECT_EQ(4u, pairs.count({11025, 8000}));
    EXPECT_EQ(4u, pairs.count({16000, 8000}));
    EXPECT_EQ(4u, pairs.count({22050, 8000}));
    EXPECT_EQ(4u, pairs.count({8000, 22050}));
}

}  // namespace
