// The Gaussian scoring tests of the catalogue as the program shows them:
// which functions each class times and from which module, and a quick run
// of the whole family that must end without a failure and walk the grids of
// the expected size.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "catalogue.h"

namespace {

using namespace kelvar_e2e;

const std::vector<TestClass>& family() {
    static const std::vector<TestClass> classes = {
        {"TimLGauss", "p_lgauss_au",
         {"vdlsLogGauss_32f_D2", "vdlsLogGauss_64f_D2", "vdlsLogGauss_Scaled_16s32f_D2",
          "vdlsLogGauss_16s32s_D2Sfs", "vdlsLogGauss_32f_D2L", "vdlsLogGauss_64f_D2L",
          "vdlsLogGauss_Scaled_16s32f_D2L", "vdlsLogGauss_16s32s_D2LSfs",
          "vdlsLogGaussMultiMix_32f_D2", "vdlsLogGaussMultiMix_64f_D2",
          "vdlsLogGaussMultiMix_Scaled_16s32f_D2", "vdlsLogGaussMultiMix_16s32s_D2Sfs",
          "vdlsLogGaussMultiMix_32f_D2L", "vdlsLogGaussMultiMix_64f_D2L",
          "vdlsLogGaussMultiMix_Scaled_16s32f_D2L", "vdlsLogGaussMultiMix_16s32s_D2LSfs",
          "vdlsLogGauss_IdVar_32f_D2", "vdlsLogGauss_IdVar_64f_D2",
          "vdlsLogGauss_IdVarScaled_16s32f_D2", "vdlsLogGauss_IdVar_16s32s_D2Sfs",
          "vdlsLogGauss_IdVar_32f_D2L", "vdlsLogGauss_IdVar_64f_D2L",
          "vdlsLogGauss_IdVarScaled_16s32f_D2L", "vdlsLogGauss_IdVar_16s32s_D2LSfs",
          "vdlsLogGauss_Low_16s32s_D2Sfs", "vdlsLogGauss_Low_16s32s_D2LSfs",
          "vdlsLogGauss_LowScaled_16s32f_D2", "vdlsLogGauss_LowScaled_16s32f_D2L",
          "vdlsLogGauss_IdVarLow_16s32s_D2Sfs", "vdlsLogGauss_IdVarLow_16s32s_D2LSfs",
          "vdlsLogGauss_IdVarLowScaled_16s32f_D2", "vdlsLogGauss_IdVarLowScaled_16s32f_D2L",
          "vdlsLogGaussMultiMix_Low_16s32s_D2Sfs", "vdlsLogGaussMultiMix_Low_16s32s_D2LSfs",
          "vdlsLogGaussMultiMix_LowScaled_16s32f_D2",
          "vdlsLogGaussMultiMix_LowScaled_16s32f_D2L"}},
        {"TimMahFAdd", "p_lgaussadd_au",
         {"vdlsLogGaussAdd_32f_D2", "vdlsLogGaussAdd_32f_D2L", "vdlsLogGaussAdd_64f_D2",
          "vdlsLogGaussAdd_64f_D2L", "vdlsLogGaussAdd_Scaled_16s32f_D2",
          "vdlsLogGaussAdd_Scaled_16s32f_D2L", "vdlsLogGaussAdd_IdVar_32f_D2",
          "vdlsLogGaussAdd_IdVar_32f_D2L", "vdlsLogGaussAdd_IdVar_64f_D2",
          "vdlsLogGaussAdd_IdVar_64f_D2L", "vdlsLogGaussAdd_IdVarScaled_16s32f_D2",
          "vdlsLogGaussAdd_IdVarScaled_16s32f_D2L", "vdlsLogGaussAddMultiMix_32f_D2",
          "vdlsLogGaussAddMultiMix_32f_D2L", "vdlsLogGaussAddMultiMix_64f_D2",
          "vdlsLogGaussAddMultiMix_64f_D2L", "vdlsLogGaussAddMultiMix_Scaled_16s32f_D2",
          "vdlsLogGaussAddMultiMix_Scaled_16s32f_D2L", "vdlsLogGaussAdd_LowScaled_16s32f_D2",
          "vdlsLogGaussAdd_LowScaled_16s32f_D2L", "vdlsLogGaussAdd_IdVarLowScaled_16s32f_D2",
          "vdlsLogGaussAdd_IdVarLowScaled_16s32f_D2L",
          "vdlsLogGaussAddMultiMix_LowScaled_16s32f_D2",
          "vdlsLogGaussAddMultiMix_LowScaled_16s32f_D2L"}},
        {"TimMahMaxF", "p_lgaussmax_au",
         {"vdlsLogGaussMax_32f_D2", "vdlsLogGaussMax_32f_D2L", "vdlsLogGaussMax_64f_D2",
          "vdlsLogGaussMax_64f_D2L", "vdlsLogGaussMax_Scaled_16s32f_D2",
          "vdlsLogGaussMax_Scaled_16s32f_D2L", "vdlsLogGaussMax_16s32s_D2Sfs",
          "vdlsLogGaussMax_16s32s_D2LSfs", "vdlsLogGaussMax_IdVar_32f_D2",
          "vdlsLogGaussMax_IdVar_32f_D2L", "vdlsLogGaussMax_IdVar_64f_D2",
          "vdlsLogGaussMax_IdVar_64f_D2L", "vdlsLogGaussMax_IdVarScaled_16s32f_D2",
          "vdlsLogGaussMax_IdVarScaled_16s32f_D2L", "vdlsLogGaussMax_IdVar_16s32s_D2Sfs",
          "vdlsLogGaussMax_IdVar_16s32s_D2LSfs", "vdlsLogGaussMaxMultiMix_32f_D2",
          "vdlsLogGaussMaxMultiMix_32f_D2L", "vdlsLogGaussMaxMultiMix_64f_D2",
          "vdlsLogGaussMaxMultiMix_64f_D2L", "vdlsLogGaussMaxMultiMix_Scaled_16s32f_D2",
          "vdlsLogGaussMaxMultiMix_Scaled_16s32f_D2L", "vdlsLogGaussMaxMultiMix_16s32s_D2Sfs",
          "vdlsLogGaussMaxMultiMix_16s32s_D2LSfs", "vdlsLogGaussMax_LowScaled_16s32f_D2",
          "vdlsLogGaussMax_LowScaled_16s32f_D2L", "vdlsLogGaussMax_Low_16s32s_D2Sfs",
          "vdlsLogGaussMax_Low_16s32s_D2LSfs", "vdlsLogGaussMax_IdVarLowScaled_16s32f_D2",
          "vdlsLogGaussMax_IdVarLowScaled_16s32f_D2L", "vdlsLogGaussMax_IdVarLow_16s32s_D2Sfs",
          "vdlsLogGaussMax_IdVarLow_16s32s_D2LSfs",
          "vdlsLogGaussMaxMultiMix_LowScaled_16s32f_D2",
          "vdlsLogGaussMaxMultiMix_LowScaled_16s32f_D2L", "vdlsLogGaussMaxMultiMix_Low_16s32s_D2Sfs",
          "vdlsLogGaussMaxMultiMix_Low_16s32s_D2LSfs"}},
        {"TimLogGMixt", "p_lgaussmixt_au",
         {"vdlsLogGaussMixture_Scaled_16s32f_D2", "vdlsLogGaussMixture_Scaled_16s32f_D2L",
          "vdlsLogGaussMixture_LowScaled_16s32f_D2", "vdlsLogGaussMixture_LowScaled_16s32f_D2L",
          "vdlsLogGaussMixture_32f_D2", "vdlsLogGaussMixture_32f_D2L",
          "vdlsLogGaussMixture_64f_D2", "vdlsLogGaussMixture_64f_D2L",
          "vdlsLogGaussMixture_IdVarScaled_16s32f_D2",
          "vdlsLogGaussMixture_IdVarScaled_16s32f_D2L",
          "vdlsLogGaussMixture_IdVarLowScaled_16s32f_D2",
          "vdlsLogGaussMixture_IdVarLowScaled_16s32f_D2L", "vdlsLogGaussMixture_IdVar_32f_D2",
          "vdlsLogGaussMixture_IdVar_32f_D2L", "vdlsLogGaussMixture_IdVar_64f_D2",
          "vdlsLogGaussMixture_IdVar_64f_D2L"}},
        {"TimLGaussSingle", "p_lgausssing_au",
         {"vdlsLogGaussSingle_32f", "vdlsLogGaussSingle_64f", "vdlsLogGaussSingle_32f64f",
          "vdlsLogGaussSingle_Scaled_16s32f", "vdlsLogGaussSingle_IdVarScaled_16s32f",
          "vdlsLogGaussSingle_16s32s_Sfs", "vdlsLogGaussSingle_IdVar_16s32s_Sfs",
          "vdlsLogGaussSingle_IdVar_32f", "vdlsLogGaussSingle_IdVar_64f",
          "vdlsLogGaussSingle_IdVar_32f64f", "vdlsLogGaussSingle_DirectVar_32f",
          "vdlsLogGaussSingle_DirectVar_64f", "vdlsLogGaussSingle_DirectVar_32f64f",
          "vdlsLogGaussSingle_DirectVarScaled_16s32f", "vdlsLogGaussSingle_LowScaled_16s32f",
          "vdlsLogGaussSingle_IdVarLowScaled_16s32f", "vdlsLogGaussSingle_DirectVar_16s32s_Sfs",
          "vdlsLogGaussSingle_Low_16s32s_Sfs", "vdlsLogGaussSingle_IdVarLow_16s32s_Sfs"}},
        {"TimLGaussSingleBlock_16s", "p_lgblock_au",
         {"vdlsLogGaussSingle_BlockDVarScaled_16s32f", "vdlsLogGaussSingle_BlockDVar_16s32s_Sfs"}},
        {"TimLGaussSingleBlock_32f", "p_lgblock_au",
         {"vdlsLogGaussSingle_BlockDVar_32f", "vdlsLogGaussSingle_BlockDVar_32f64f"}},
        {"TimLGaussSingleBlock_64f", "p_lgblock_au",
         {"vdlsLogGaussSingle_BlockDVar_64f"}},
        {"TimMahF", "p_mahf_au",
         {"vdlsMahDistSingle_32f", "vdlsMahDistSingle_64f", "vdlsMahDistSingle_32f64f",
          "vdlsMahDistSingle_16s32f", "vdlsMahDistSingle_16s32s_Sfs", "vdlsMahDist_32f_D2",
          "vdlsMahDist_64f_D2", "vdlsMahDist_32f_D2L", "vdlsMahDist_64f_D2L",
          "vdlsMahDistMultiMix_32f_D2", "vdlsMahDistMultiMix_64f_D2",
          "vdlsMahDistMultiMix_32f_D2L", "vdlsMahDistMultiMix_64f_D2L", "vdlsMeanVarAcc_32f",
          "vdlsMeanVarAcc_64f"}},
        {"TimMixg", "p_mixg_au",
         {"vdlsGaussianSplit_32f", "vdlsGaussianSplit_64f", "vdlsGaussianDist_32f",
          "vdlsGaussianDist_64f", "vdlsGaussianMerge_32f", "vdlsGaussianMerge_64f"}},
        {"TimBhatDist", "p_bhat_au",
         {"vdlsBhatDist_32f", "vdlsBhatDist_32f64f", "vdlsBhatDistSLog_32f",
          "vdlsBhatDistSLog_32f64f"}},
        {"TimObvProb", "p_obvprob_au", {"ObvProbVec_32f_D2et"}},
    };
    return classes;
}

TEST(GaussCatalogue, EachClassListsItsFunctionsAndModule) {
    expectFamilyListed(family(), 162);
}

// The stride cell of a function's rows by their column count, for a table
// whose rows read rows, cols, stride behind the function's three cells.
std::map<int, std::string> strideByCols(const std::string& table, const std::string& base,
                                        const std::string& types, const std::string& descr) {
    std::map<int, std::string> strides;
    for (const std::string& line : split(table, '\n')) {
        std::vector<std::string> cells = split(line, ',');
        if (cells.size() > 5 && cells[0] == base && cells[1] == types && cells[2] == descr)
            strides[std::stoi(cells[4])] = cells[5];
    }
    return strides;
}

TEST(GaussCatalogue, QuickRunOfTheFamilyPassesAndWalksWholeGrids) {
    Sandbox box;
    std::vector<std::string> args = {"-B", "-dMethod=Manual", "-dNumLoops=1",
                                     "-r" + box.path("gauss.csv"), "-u" + box.path("gauss_sum.csv")};
    for (const TestClass& c : family()) args.push_back(std::string("-t") + c.name);
    Result r = box.run(args);
    EXPECT_EQ(0, r.code);

    std::string sum = readFile(box.path("gauss_sum.csv"));
    EXPECT_EQ("162", summaryValue(sum, ".Number of tests"));
    EXPECT_EQ("0", summaryValue(sum, ".....-FAIL      "));
    EXPECT_EQ("0", summaryValue(sum, ".....-EXCPTFAIL "));

    std::string table = readFile(box.path("gauss.csv"));
    std::map<std::string, int> rows = rowsPerFunction(table);
    // Two grids: 7 by 4 small sizes, then 5 large row counts of 40 columns.
    EXPECT_EQ(33, rows["vdlsLogGauss_32f_D2"]);
    EXPECT_EQ(33, rows["vdlsLogGaussMultiMix_64f_D2L"]);
    // ... each under four scale factors.
    EXPECT_EQ(132, rows["vdlsLogGauss_16s32s_D2Sfs"]);
    EXPECT_EQ(132, rows["vdlsLogGaussMultiMix_Scaled_16s32f_D2"]);
    // Four scale factors by 3 block counts by 5 block sizes; no scale wheel
    // in the float class.
    EXPECT_EQ(60, rows["vdlsLogGaussSingle_BlockDVar_16s32s_Sfs"]);
    EXPECT_EQ(15, rows["vdlsLogGaussSingle_BlockDVar_32f64f"]);
    // 4 widths, 1 height, 5 frame counts, 2 shifts.
    EXPECT_EQ(40, rows["ObvProbVec_32f_D2et"]);
    // 20 lengths of one column under four scale factors; 7 by 4 sizes.
    EXPECT_EQ(80, rows["vdlsMahDistSingle_16s32s_Sfs"]);
    EXPECT_EQ(28, rows["vdlsMahDist_32f_D2L"]);

    // Rows of 16-bit data step by multiples of 8 elements, others by 4;
    // row-pointer data have no step.
    typedef std::map<int, std::string> Strides;
    EXPECT_EQ((Strides{{30, "32"}, {33, "40"}, {36, "40"}, {39, "40"}, {40, "40"}}),
              strideByCols(table, "vdlsLogGauss", "16s32s", "D2Sfs"));
    EXPECT_EQ((Strides{{30, "32"}, {33, "36"}, {36, "36"}, {39, "40"}, {40, "40"}}),
              strideByCols(table, "vdlsLogGauss", "32f", "D2"));
    EXPECT_EQ((Strides{{30, "32"}, {33, "36"}, {36, "36"}, {39, "40"}}),
              strideByCols(table, "vdlsMahDist", "64f", "D2"));
    EXPECT_EQ((Strides{{30, "-"}, {33, "-"}, {36, "-"}, {39, "-"}}),
              strideByCols(table, "vdlsMahDist", "32f", "D2L"));
}

}  // namespace
