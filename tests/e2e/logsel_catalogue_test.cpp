// The log-domain and selection tests of the catalogue as the program shows
// them: which functions each class times and from which module, and a quick
// run of the whole family that must end without a failure, walk grids of
// the expected size and ask the ranks and scale factors it should.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "catalogue.h"

namespace {

using namespace kelvar_e2e;

const std::vector<TestClass>& family() {
    static const std::vector<TestClass> classes = {
        {"TimLSelect", "p_lselect_au",
         {"vdlsLogGaussMixture_Select_32f_D2", "vdlsLogGaussMixture_SelectIdVar_32f_D2",
          "vdlsLogGaussMixture_SelectScaled_16s32f_D2",
          "vdlsLogGaussMixture_SelectIdVarScaled_16s32f_D2", "vdlsLogGaussMixture_Select_32f_D2L",
          "vdlsLogGaussMixture_SelectIdVar_32f_D2L", "vdlsLogGaussMixture_SelectScaled_16s32f_D2L",
          "vdlsLogGaussMixture_SelectIdVarScaled_16s32f_D2L"}},
        {"TimLSelectBuild", "p_lselectbuild_au",
         {"vdlsBuildSignTable_8u1u", "vdlsBuildSignTable_Var_8u1u", "vdlsFillShortlist_Row_1u",
          "vdlsFillShortlist_RowVar_1u", "vdlsFillShortlist_Column_1u",
          "vdlsFillShortlist_ColumnVar_1u"}},
        {"TimLAdd", "p_ladd_au",
         {"vdlsLogAdd_64f", "vdlsLogAdd_32f", "vdlsLogAdd_16s_Sfs", "vdlsLogAdd_32s_Sfs"}},
        {"TimLSub", "p_lsub_au",
         {"vdlsLogSub_64f", "vdlsLogSub_32f", "vdlsLogSub_32s_Sfs", "vdlsLogSub_16s_Sfs"}},
        {"TimLSum", "p_lsum_au",
         {"vdlsLogSum_64f", "vdlsLogSum_32f", "vdlsLogSum_16s_Sfs", "vdlsLogSum_32s_Sfs"}},
        {"TimLMThr", "p_thrh_au", {"vdlsScaleLM_32f", "vdlsScaleLM_16s32s"}},
        {"Tim_Expns", "p_expns_au",
         {"vdlsExpNegSqr_32f", "vdlsExpNegSqr_32f64f", "vdlsExpNegSqr_64f",
          "vdlsExpNegSqr_32f_I", "vdlsExpNegSqr_64f_I"}},
        {"TimEntropy", "p_entropy_au", {"vdlsEntropy_32f", "vdlsEntropy_16s32s_Sfs"}},
        {"TimNBest", "p_nbest_au",
         {"vdlsNthMaxElement_32s", "vdlsNthMaxElement_32f", "vdlsNthMaxElement_64f"}},
        {"Tim_Untcrv", "p_untcrv_au",
         {"vdlsUnitCurve_32f", "vdlsUnitCurve_16s_Sfs", "vdlsUnitCurve_32f_I",
          "vdlsUnitCurve_16s_ISfs"}},
    };
    return classes;
}

TEST(LogSelCatalogue, EachClassListsItsFunctionsAndModule) {
    expectFamilyListed(family(), 42);
}

// The cells of the rows of one function in the performance table.
std::vector<std::vector<std::string>> rowsOf(const std::string& table, const std::string& base,
                                             const std::string& types,
                                             const std::string& descriptor) {
    std::vector<std::vector<std::string>> rows;
    for (const std::string& line : split(table, '\n')) {
        std::vector<std::string> cells = split(line, ',');
        if (cells.size() > 8 && cells[0] == base && cells[1] == types && cells[2] == descriptor)
            rows.push_back(cells);
    }
    return rows;
}

TEST(LogSelCatalogue, QuickRunOfTheFamilyPassesAndWalksWholeGrids) {
    Sandbox box;
    QuickRun run = runFamilyQuickly(box, family());
    EXPECT_EQ(0, run.code);
    EXPECT_EQ("42", summaryValue(run.summary, ".Number of tests"));
    EXPECT_EQ(0, failures(run.summary));
    EXPECT_EQ("0", summaryValue(run.summary, ".....-WARNING   "));
    EXPECT_EQ("0", summaryValue(run.summary, ".....-BADSTSWRN "));

    std::map<std::string, int> rows = rowsPerFunction(run.table);
    // 2 widths, 4 heights, 4 frame counts, 5 sign densities; no scale wheel.
    EXPECT_EQ(160, rows["vdlsLogGaussMixture_SelectScaled_16s32f_D2L"]);
    // 2 counts by 3 clusters by 3 shifts by 3 heights; one count for Var_.
    EXPECT_EQ(54, rows["vdlsFillShortlist_Row_1u"]);
    EXPECT_EQ(27, rows["vdlsFillShortlist_RowVar_1u"]);
    // Scale factors by 3 hints by 3 lengths: 4 for 16s, 5 for 32s, 1 else.
    EXPECT_EQ(36, rows["vdlsLogAdd_16s_Sfs"]);
    EXPECT_EQ(45, rows["vdlsLogAdd_32s_Sfs"]);
    EXPECT_EQ(9, rows["vdlsLogAdd_32f"]);
    // 10 lengths; the scale factor is not walked.
    EXPECT_EQ(10, rows["vdlsLogSub_16s_Sfs"]);
    // 20 lengths by 3 hints, by 4 scales for the fixed-point forms.
    EXPECT_EQ(240, rows["vdlsLogSum_32s_Sfs"]);
    EXPECT_EQ(60, rows["vdlsLogSum_64f"]);
    EXPECT_EQ(20, rows["vdlsExpNegSqr_64f_I"]);
    EXPECT_EQ(54, rows["vdlsNthMaxElement_64f"]);
    // 7 lengths by 3 source shifts by 4 scale factors; 7 lengths alone.
    EXPECT_EQ(84, rows["vdlsUnitCurve_16s_ISfs"]);
    EXPECT_EQ(7, rows["vdlsUnitCurve_32f_I"]);

    // The rank grows with the length: 1 at 32 with NN 1, 512 at 1024 with
    // NN 16.
    std::set<std::string> ranks;
    for (const std::vector<std::string>& cells : rowsOf(run.table, "vdlsNthMaxElement", "32s", "-"))
        ranks.insert(cells[3] + ":" + cells[4]);
    EXPECT_TRUE(ranks.count("32:1"));
    EXPECT_TRUE(ranks.count("1024:512"));
    EXPECT_FALSE(ranks.count("1024:16"));

    // The fixed-point log-add walks its own scale factors; the float form
    // shows none.
    std::set<std::string> factors;
    for (const std::vector<std::string>& cells : rowsOf(run.table, "vdlsLogAdd", "16s", "Sfs"))
        factors.insert(cells[8]);
    EXPECT_EQ((std::set<std::string>{"-1", "0", "8", "12"}), factors);
    for (const std::vector<std::string>& cells : rowsOf(run.table, "vdlsLogAdd", "32f", "-"))
        EXPECT_EQ("-", cells[8]);

    // All five sign densities, 1 and 3.3 among them.
    std::set<std::string> densities;
    for (const std::vector<std::string>& cells :
         rowsOf(run.table, "vdlsLogGaussMixture_Select", "32f", "D2"))
        densities.insert(cells[7]);
    EXPECT_EQ((std::set<std::string>{"1", "2", "2.5", "3.3", "5"}), densities);
}

}  // namespace
