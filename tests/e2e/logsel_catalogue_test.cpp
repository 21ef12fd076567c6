// The log-domain and selection tests of the catalogue as the program shows
// them, and the ranks, scale factors and densities their grids walk.
#include "catalogue.h"

namespace {

using namespace kelvar_e2e;
using ::testing::Contains;
using ::testing::IsSupersetOf;
using ::testing::Not;

const Family kLogSel = {
    "LogSel",
    {{"TimLSelect", "p_lselect_au",
      "vdlsLogGaussMixture_Select{,IdVar}_32f_D2{,L} "
      "vdlsLogGaussMixture_Select{,IdVar}Scaled_16s32f_D2{,L}"},
     {"TimLSelectBuild", "p_lselectbuild_au",
      "vdlsBuildSignTable{,_Var}_8u1u vdlsFillShortlist_{Row,RowVar,Column,ColumnVar}_1u"},
     {"TimLAdd", "p_ladd_au", "vdlsLogAdd_{64f,32f,16s_Sfs,32s_Sfs}"},
     {"TimLSub", "p_lsub_au", "vdlsLogSub_{64f,32f,32s_Sfs,16s_Sfs}"},
     {"TimLSum", "p_lsum_au", "vdlsLogSum_{64f,32f,16s_Sfs,32s_Sfs}"},
     {"TimLMThr", "p_thrh_au", "vdlsScaleLM_{32f,16s32s}"},
     {"Tim_Expns", "p_expns_au", "vdlsExpNegSqr_{32f,32f64f,64f,32f_I,64f_I}"},
     {"TimEntropy", "p_entropy_au", "vdlsEntropy_{32f,16s32s_Sfs}"},
     {"TimNBest", "p_nbest_au", "vdlsNthMaxElement_{32s,32f,64f}"},
     {"Tim_Untcrv", "p_untcrv_au", "vdlsUnitCurve_{32f,16s_Sfs,32f_I,16s_ISfs}"}},
    // 2 widths, 4 heights, 4 frame counts, 5 sign densities, no scale wheel;
    // 2 counts by 3 clusters by 3 shifts by 3 heights, one count for Var;
    // 20 lengths by 3 hints by 4 scale factors.
    {{"vdlsLogGaussMixture_SelectScaled_16s32f_D2L", 160}, {"vdlsFillShortlist_Row_1u", 54},
     {"vdlsFillShortlist_RowVar_1u", 27}, {"vdlsLogSum_32s_Sfs", 240},
     {"vdlsUnitCurve_16s_ISfs", 84}}};  // 7 lengths by 3 shifts by 4 factors

INSTANTIATE_TEST_SUITE_P(LogSel, FamilyCatalogue, ::testing::Values(&kLogSel));

TEST(LogSelCatalogue, RanksScaleFactorsAndDensitiesFollowTheFunction) {
    const std::string& table = quickRun(kLogSel).table;
    // The rank grows with the length: 1 at 32 with NN 1, 512 at 1024 with
    // NN 16.
    std::set<std::string> ranks;
    for (const auto& r : rowsOf(table, "vdlsNthMaxElement", "32s", "-"))
        ranks.insert(r[3] + ":" + r[4]);
    EXPECT_THAT(ranks, IsSupersetOf({"32:1", "1024:512"}));
    EXPECT_THAT(ranks, Not(Contains("1024:16")));
    // The fixed-point log-add walks its own scale factors; the float form
    // shows none.
    EXPECT_EQ((std::set<std::string>{"-1", "0", "8", "12"}),
              cellsAt(rowsOf(table, "vdlsLogAdd", "16s", "Sfs"), 8));
    EXPECT_EQ(std::set<std::string>{"-"}, cellsAt(rowsOf(table, "vdlsLogAdd", "32f", "-"), 8));
    // All five sign densities, 1 and 3.3 among them.
    EXPECT_EQ((std::set<std::string>{"1", "2", "2.5", "3.3", "5"}),
              cellsAt(rowsOf(table, "vdlsLogGaussMixture_Select", "32f", "D2"), 7));
}

}  // namespace
