// The linear-prediction modules' own data helpers: the sort of line
// spectral pairs and the lags the recursions are timed on.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <vector>

#include "dllp.h"

namespace {

TEST(SortVector, SortsDescendingWithDuplicatesAndLeavesOneElement) {
    std::mt19937 rng(77);
    for (int n : {2, 3, 8, 31, 200}) {
        std::vector<short> v(n);
        for (short& x : v) x = (short)(rng() % 21) - 10;  // many duplicates
        std::vector<short> want = v;
        std::sort(want.begin(), want.end(), std::greater<short>());
        SortVector(v.data(), 0, n - 1);
        EXPECT_EQ(want, v) << n;
    }
    float one = 0.5f;
    SortVector(&one, 0, 0);
    EXPECT_EQ(0.5f, one);
    std::vector<float> sorted = {3, 2, 1}, reversed = {1, 2, 3};
    SortVector(reversed.data(), 0, 2);
    EXPECT_EQ(sorted, reversed);
}

TEST(DlLags, LagsBeyondTheDataAreZeroAndTheFirstIsAtLeastOne) {
    const float x[] = {0.5f, 0.25f, -0.5f};
    float r[6];
    dlLags(x, 3, r, 5);
    EXPECT_FLOAT_EQ(1.0f, r[0]);  // 0.5625 raised
    EXPECT_FLOAT_EQ(0.5f * 0.25f - 0.25f * 0.5f, r[1]);
    EXPECT_FLOAT_EQ(-0.25f, r[2]);
    EXPECT_EQ(0.0f, r[3]);
    EXPECT_EQ(0.0f, r[5]);
    const float loud[] = {2.0f, 1.0f};
    dlLags(loud, 2, r, 1);
    EXPECT_FLOAT_EQ(5.0f, r[0]);
    EXPECT_FLOAT_EQ(2.0f, r[1]);
}

}  // namespace
