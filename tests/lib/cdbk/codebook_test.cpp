// Making codebooks: the full hint keeps the training rows; the k-means
// hints find clear clusters under L2 and weighted L2, and give the same
// codebook every time.
#include <gtest/gtest.h>

#include "cdbk_reference.h"

using namespace cdbkref;

namespace {

template <class T, bool Weighted>
struct Form {
    using Elem = T;
    static constexpr bool weighted = Weighted;
};

template <class F>
class Codebooks : public ::testing::Test {
protected:
    using T = typename F::Elem;
    using A = Api<T>;

    // Weights of whole numbers 1..3, so that 16-bit data keep exact sums.
    std::vector<double> weights(std::mt19937& rng, int width)
    {
        return F::weighted ? randomValues<T>(rng, width, 1, 3) : std::vector<double>();
    }

    typename A::State* make(const Rows& rows, const std::vector<double>& w, int step, int nClust,
                             Vdl_Cdbk_Hint hint)
    {
        const int width = static_cast<int>(rows[0].size());
        const std::vector<T> flat = rowsOf<T>(rows, step).flat;
        const std::vector<T> wgt = convert<T>(w);
        typename A::State* state = nullptr;
        const VdlStatus s =
            F::weighted ? A::initWgt(&state, flat.data(), wgt.data(), width, step,
                                     static_cast<int>(rows.size()), nClust, hint)
                        : A::initL2(&state, flat.data(), width, step, static_cast<int>(rows.size()),
                                    nClust, hint);
        EXPECT_EQ(s, vdlStsNoErr);
        return state;
    }
};

using Forms = ::testing::Types<Form<Vdl16s, false>, Form<Vdl16s, true>, Form<Vdl32f, false>,
                               Form<Vdl32f, true>>;
TYPED_TEST_SUITE(Codebooks, Forms);

TYPED_TEST(Codebooks, FullHintKeepsEveryTrainingRow)
{
    using T = typename TypeParam::Elem;
    std::mt19937 rng(3);
    for (int width : {1, 3, 9}) {
        for (int height : {1, 7, 17}) {
            SCOPED_TRACE(testing::Message() << "width " << width << " height " << height);
            Rows rows(height);
            for (auto& r : rows)
                r = randomValues<T>(rng, width, -300, 300);
            auto* cdbk = this->make(rows, this->weights(rng, width), width + 2, height,
                                    vdlCdbkHintFull);
            ASSERT_NE(cdbk, nullptr);
            EXPECT_EQ(codewords<T>(cdbk), rows);
            EXPECT_EQ(Api<T>::release(cdbk), vdlStsNoErr);
        }
    }
}

TYPED_TEST(Codebooks, KmeansFindTheMeansOfClearClusters)
{
    using T = typename TypeParam::Elem;
    std::mt19937 rng(5);
    for (int width : {1, 9, 17}) {
        const int clusters = 6;
        Rows means;
        const Rows rows = clusteredRows<T>(rng, clusters, 9, width, means);
        const std::vector<double> w = this->weights(rng, width);
        double wsum = 0;
        for (int k = 0; k < width; ++k)
            wsum += w.empty() ? 1.0 : w[k];
        for (auto hint : {vdlCdbkHintKmeansLong, vdlCdbkHintKmeansNum}) {
            SCOPED_TRACE(testing::Message() << "width " << width << " hint " << hint);
            auto* cdbk = this->make(rows, w, width, clusters, hint);
            ASSERT_NE(cdbk, nullptr);
            const Rows code = codewords<T>(cdbk);
            ASSERT_EQ(code.size(), static_cast<size_t>(clusters));
            // Farthest-first seeds land one in each cluster, and the rounds
            // settle on the cluster means; 16-bit codewords are rounded
            // means, each vector up to half a unit further off in every
            // component.
            const double rounding = std::is_integral<T>::value ? rows.size() * wsum * 0.25 : 0;
            EXPECT_LE(distortion(rows, code, w), distortion(rows, means, w) * (1 + 1e-5) + rounding);

            auto* again = this->make(rows, w, width, clusters, hint);
            EXPECT_EQ(codewords<T>(again), code);
            Api<T>::release(again);
            Api<T>::release(cdbk);
        }
    }
}

// All rows alike: the codebook keeps its size, every codeword that row.
TYPED_TEST(Codebooks, IdenticalRowsGiveFullSizeCodebook)
{
    using T = typename TypeParam::Elem;
    std::mt19937 rng(9);
    const Rows rows(25, std::vector<double>{4, -2, 7});
    auto* cdbk = this->make(rows, this->weights(rng, 3), 3, 5, vdlCdbkHintKmeansLong);
    ASSERT_NE(cdbk, nullptr);
    EXPECT_EQ(codewords<T>(cdbk), Rows(5, rows[0]));
    Api<T>::release(cdbk);
}

} // namespace
