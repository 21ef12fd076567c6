// The scoring kernels work on several rows at once, sharing the loads of a
// mean and variance that every row reads; a row's score must still be the
// same to the bit whether it is scored alone or beside others, in whichever
// place of a group it falls.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "vdlsr.h"

namespace {

template <class T>
struct Scene {
    int width, height, step;
    std::vector<T> frames, means, vars;
    Scene(int w, int h) : width(w), height(h), step(w + 3)
    {
        std::mt19937 rng(w * 131 + h);
        std::uniform_real_distribution<double> value(-3, 3), precision(0.2, 5);
        frames.resize(static_cast<size_t>(h) * step);
        means.resize(frames.size());
        vars.resize(frames.size());
        for (size_t i = 0; i < frames.size(); ++i) {
            frames[i] = static_cast<T>(value(rng));
            means[i] = static_cast<T>(value(rng));
            vars[i] = static_cast<T>(precision(rng));
        }
    }
    const T* frame(int i) const { return frames.data() + static_cast<size_t>(i) * step; }
};

// score(scene, first row, count, out) scores rows first .. first+count-1.
template <class T, class Score>
void expectRowsAsAlone(const Scene<T>& s, Score score)
{
    std::vector<T> together(s.height);
    ASSERT_EQ(vdlStsNoErr, score(0, s.height, together.data()));
    for (int i = 0; i < s.height; ++i) {
        T alone = 0;
        ASSERT_EQ(vdlStsNoErr, score(i, 1, &alone));
        EXPECT_EQ(alone, together[i]) << "row " << i;
    }
}

class RowGrouping : public ::testing::TestWithParam<int> {};

TEST_P(RowGrouping, FramesAgainstOneGaussianScoreAsAlone)
{
    const Scene<Vdl32f> s32(GetParam(), 11);
    expectRowsAsAlone(s32, [&](int first, int count, Vdl32f* out) {
        return vdlsLogGauss_32f_D2(s32.frame(first), s32.step, s32.means.data(), s32.vars.data(),
                                   s32.width, out, count, -1.5f);
    });
    expectRowsAsAlone(s32, [&](int first, int count, Vdl32f* out) {
        return vdlsMahDist_32f_D2(s32.frame(first), s32.step, s32.means.data(), s32.vars.data(),
                                  s32.width, out, count);
    });
    const Scene<Vdl64f> s64(GetParam(), 11);
    expectRowsAsAlone(s64, [&](int first, int count, Vdl64f* out) {
        return vdlsLogGauss_64f_D2(s64.frame(first), s64.step, s64.means.data(), s64.vars.data(),
                                   s64.width, out, count, -1.5);
    });
}

TEST_P(RowGrouping, OneFrameAgainstGaussiansScoresAsAlone)
{
    const Scene<Vdl32f> s(GetParam(), 11);
    expectRowsAsAlone(s, [&](int first, int count, Vdl32f* out) {
        for (int j = 0; j < count; ++j)
            out[j] = 2.0f;
        const size_t at = static_cast<size_t>(first) * s.step;
        return vdlsLogGaussMultiMix_32f_D2(s.means.data() + at, s.vars.data() + at, s.step,
                                           s.frame(0), s.width, out, count);
    });
}

// Widths below, at and past the lanes of every path, and a sum of several
// vectors with a remainder.
INSTANTIATE_TEST_SUITE_P(Widths, RowGrouping, ::testing::Values(1, 7, 8, 17, 40));

} // namespace
