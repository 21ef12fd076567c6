// Log-likelihood against a block-diagonal precision matrix: each element type
// against a dense double model, and the life of the block state.
#include <cmath>
#include <memory>
#include <random>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "gauss_reference.h"
#include "vdlsr.h"

using namespace gaussref;

namespace {

template <class State>
State* stateOf(VdlStatus (*release)(State*));

// One scoring function with the calls that make and free its state; a
// 16-bit form is given the scale factor Sf.
template <class S, class D, int Sf, auto Score, auto Init, auto Release>
struct BlockForm {
    using Src = S;
    using Dst = D;
    using State = std::remove_pointer_t<decltype(stateOf(Release))>;
    static constexpr int scaleFactor = Sf;
    static constexpr auto init = Init;
    static constexpr auto release = Release;
    template <class... Args>
    static VdlStatus score(Args... args)
    {
        if constexpr (std::is_integral<S>::value)
            return Score(args..., Sf);
        else
            return Score(args...);
    }
};

// Three blocks of a 10 by 10 matrix whose entries outside them are random
// too, so that reading past a block shows.
template <class Form>
class BlockDVar : public ::testing::Test {
protected:
    using S = typename Form::Src;
    using D = typename Form::Dst;

    static constexpr int size = 10;
    const std::vector<int> blocks = {3, 1, 4};
    const int len = 8;

    BlockDVar()
    {
        std::mt19937 rng(11);
        const bool ints = std::is_integral<S>::value;
        matrix = randomValues<S>(rng, size * size, ints ? -3 : -1, ints ? 5 : 2);
        x = randomValues<S>(rng, len, ints ? -20 : -2, ints ? 20 : 2);
        mean = randomValues<S>(rng, len, ints ? -20 : -2, ints ? 20 : 2);
    }

    // The state of `blocks`, made from a copy of the matrix that is gone by
    // the time the state is used.
    typename Form::State* makeState()
    {
        RowSet<S> rows(matrix, size, size, size);
        typename Form::State* state = nullptr;
        EXPECT_EQ(Form::init(&state, rows.table.data(), blocks.data(), 3), vdlStsNoErr);
        return state;
    }

    double expected(double val) const
    {
        double q = 0;
        for (int b = 0, origin = 0; b < 3; origin += blocks[b], ++b)
            for (int r = origin; r < origin + blocks[b]; ++r)
                for (int c = origin; c < origin + blocks[b]; ++c)
                    q += (x[r] - mean[r]) * matrix[r * size + c] * (x[c] - mean[c]);
        const double score = val - 0.5 * q * std::ldexp(1.0, -Form::scaleFactor);
        return std::is_integral<D>::value ? roundSaturate<Vdl32s>(score) : score;
    }

    std::vector<double> matrix, x, mean;
};

using Forms = ::testing::Types<
    BlockForm<Vdl16s, Vdl32f, 2, vdlsLogGaussSingle_BlockDVarScaled_16s32f,
              vdlsBlockDMatrixInitAlloc_16s, vdlsBlockDMatrixFree_16s>,
    BlockForm<Vdl16s, Vdl32s, 1, vdlsLogGaussSingle_BlockDVar_16s32s_Sfs,
              vdlsBlockDMatrixInitAlloc_16s, vdlsBlockDMatrixFree_16s>,
    BlockForm<Vdl32f, Vdl32f, 0, vdlsLogGaussSingle_BlockDVar_32f, vdlsBlockDMatrixInitAlloc_32f,
              vdlsBlockDMatrixFree_32f>,
    BlockForm<Vdl32f, Vdl64f, 0, vdlsLogGaussSingle_BlockDVar_32f64f,
              vdlsBlockDMatrixInitAlloc_32f, vdlsBlockDMatrixFree_32f>,
    BlockForm<Vdl64f, Vdl64f, 0, vdlsLogGaussSingle_BlockDVar_64f, vdlsBlockDMatrixInitAlloc_64f,
              vdlsBlockDMatrixFree_64f>>;
TYPED_TEST_SUITE(BlockDVar, Forms);

// The score, then calls the state refuses: a length other than the blocks
// cover, no mean, no state; none writes the result.
TYPED_TEST(BlockDVar, MatchesDenseModelOverBlocksOnlyAndRefusesBadCalls)
{
    using S = typename TypeParam::Src;
    using D = typename TypeParam::Dst;
    auto* state = this->makeState();
    ASSERT_NE(state, nullptr);
    const std::vector<S> x = convert<S>(this->x), mean = convert<S>(this->mean);
    D result = 0;
    ASSERT_EQ(TypeParam::score(x.data(), mean.data(), state, this->len, &result, D(-3)),
              vdlStsNoErr);
    const double want = this->expected(-3);
    const double tolerance = std::is_integral<D>::value       ? 0
                             : std::is_same<S, Vdl64f>::value ? 1e-12 * (1 + std::fabs(want))
                                                              : 1e-5 * (1 + std::fabs(want));
    EXPECT_NEAR(result, want, tolerance);

    const D scored = result;
    EXPECT_EQ(TypeParam::score(x.data(), mean.data(), state, this->len - 1, &result, 0),
              vdlStsSizeErr);
    EXPECT_EQ(TypeParam::score(x.data(), mean.data(), state, 0, &result, 0), vdlStsSizeErr);
    EXPECT_EQ(TypeParam::score(x.data(), nullptr, state, this->len, &result, 0), vdlStsNullPtrErr);
    EXPECT_EQ(TypeParam::score(x.data(), mean.data(), nullptr, this->len, &result, 0),
              vdlStsNullPtrErr);
    EXPECT_EQ(result, scored);
    EXPECT_EQ(TypeParam::release(state), vdlStsNoErr);
    EXPECT_EQ(TypeParam::release(nullptr), vdlStsNullPtrErr);
}

TYPED_TEST(BlockDVar, InitRefusesBadBlocksAndLeavesTheStateAlone)
{
    using S = typename TypeParam::Src;
    RowSet<S> rows(this->matrix, this->size, this->size, this->size);
    const S* const* table = rows.table.data();
    const int sizes[3] = {3, 0, 4};
    typename TypeParam::State* state = nullptr;
    EXPECT_EQ(TypeParam::init(nullptr, table, this->blocks.data(), 3), vdlStsNullPtrErr);
    EXPECT_EQ(TypeParam::init(&state, nullptr, this->blocks.data(), 3), vdlStsNullPtrErr);
    EXPECT_EQ(TypeParam::init(&state, table, nullptr, 3), vdlStsNullPtrErr);
    EXPECT_EQ(TypeParam::init(&state, table, this->blocks.data(), 0), vdlStsSizeErr);
    EXPECT_EQ(TypeParam::init(&state, table, sizes, 3), vdlStsSizeErr);
    rows.table[7] = nullptr;  // the last row the blocks cover
    EXPECT_EQ(TypeParam::init(&state, table, this->blocks.data(), 3), vdlStsNullPtrErr);
    EXPECT_EQ(state, nullptr);
    rows.table[7] = rows.rows[7].data();
    rows.table[8] = nullptr;  // beyond the blocks: never read
    EXPECT_EQ(TypeParam::init(&state, table, this->blocks.data(), 3), vdlStsNoErr);
    EXPECT_EQ(TypeParam::release(state), vdlStsNoErr);
}

} // namespace
