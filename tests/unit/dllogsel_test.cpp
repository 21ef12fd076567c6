// The data rules of the log-domain and selection modules: how many draws
// mark the sparse sign table, the bounds of fixed-point log values, where
// the planted maximum goes, and the words of the map parameters.
#include <gtest/gtest.h>

#include <vector>

#include "dllogsel.h"

namespace {

TEST(DlPlantSigns, AppliesDrawsWhileTheIndexIsNotAboveHeightOverNSign) {
    const int frames = 3, height = 8;
    std::vector<dl32s> draws = {1, 2, 3, 4, 5, 6, 7, 1, 2, 3, 4, 5, 6, 7, 1, 2, 3};
    std::vector<dl8u> sign(frames * height, 0);
    EXPECT_EQ(9, dlPlantSigns(sign.data(), draws.data(), (int)draws.size(), frames, height, 1.0));
    std::vector<dl8u> thin(frames * height, 0);
    EXPECT_EQ(3, dlPlantSigns(thin.data(), draws.data(), (int)draws.size(), frames, height, 3.3));
    // Each frame gets the same pattern from the first draws: 1, 2, 3.
    for (int f = 0; f < frames; ++f)
        for (int j = 0; j < height; ++j)
            EXPECT_EQ(thin[f * height + j], (j >= 1 && j <= 3) ? 1 : 0) << f << "," << j;
    // Repeated draws mark fewer components than they are.
    int marked = 0;
    for (int j = 0; j < height; ++j) marked += sign[j];
    EXPECT_EQ(7, marked);
}

TEST(DlPlantSigns, StopsAtTheDrawsThereAreAndSkipsDrawsOutsideTheFrame) {
    std::vector<dl32s> draws = {0, 9, -1};
    std::vector<dl8u> sign(2 * 4, 0);
    EXPECT_EQ(3, dlPlantSigns(sign.data(), draws.data(), 3, 2, 4, 1.0));
    EXPECT_EQ(std::vector<dl8u>({1, 0, 0, 0, 1, 0, 0, 0}), sign);
}

TEST(DlLogBounds, FixedPointFormsScaleByPositiveFactorsOnly) {
    const dlLogBounds at8(true, 8);
    EXPECT_EQ(-5120.0, at8.low);
    EXPECT_EQ(-1280.0, at8.high);
    for (int sf : {-1, 0}) {
        const dlLogBounds b(true, sf);
        EXPECT_EQ(-20.0, b.low);
        EXPECT_EQ(-5.0, b.high);
    }
    const dlLogBounds floats(false, 8);
    EXPECT_EQ(-20.0, floats.low);
}

TEST(DlPlaceIndex, BeginEndAndMiddle) {
    EXPECT_EQ(0, dlPlaceIndex(DL_PLACE_BEGIN, 32));
    EXPECT_EQ(31, dlPlaceIndex(DL_PLACE_END, 32));
    EXPECT_EQ(16, dlPlaceIndex(DL_PLACE_MIDDLE, 32));
}

TEST(DlMapNumbers, ShowsEachValueByItsDecimalText) {
    kvMapIterator<int> sf;
    dlMapNumbers(sf, "scaleFactor", {-1, 0, 8, 12});
    EXPECT_STREQ("-1; 0; 8; 12", sf.defaultString().c_str());
    std::vector<int> walked;
    for (bool more = sf.firstValue(); more; more = sf.nextValue()) walked.push_back(sf.value());
    EXPECT_EQ(std::vector<int>({-1, 0, 8, 12}), walked);
}

} // namespace
