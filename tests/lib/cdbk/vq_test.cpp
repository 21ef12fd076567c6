// Searching a codebook: nearest codewords of many rows, and the codewords
// of one vector within a threshold or the N nearest, against brute force
// over the codewords the codebook reports.
#include <gtest/gtest.h>

#include "cdbk_reference.h"

using namespace cdbkref;

namespace {

template <class T>
class Search : public ::testing::Test {
protected:
    using A = Api<T>;
    static constexpr bool exact = std::is_integral<T>::value;

    // A weighted codebook of `size` random codewords of `width`.
    void build(int width, int size)
    {
        std::mt19937 rng(21 + width);
        Rows rows(size);
        for (auto& r : rows)
            r = randomValues<T>(rng, width, -60, 60);
        weights = randomValues<T>(rng, width, 0, 3);
        const std::vector<T> flat = rowsOf<T>(rows, width).flat, wgt = convert<T>(weights);
        ASSERT_EQ(A::initWgt(&cdbk, flat.data(), wgt.data(), width, width, size, size,
                             vdlCdbkHintFull),
                  vdlStsNoErr);
        code = codewords<T>(cdbk);
    }
    void TearDown() override
    {
        if (cdbk)
            A::release(cdbk);
    }
    // A float distance may differ from the model by its rounding.
    double slack(double d) const { return exact ? 0 : 1e-5 * (1 + d); }

    typename A::State* cdbk = nullptr;
    Rows code;
    std::vector<double> weights;
};

using Types = ::testing::Types<Vdl16s, Vdl32f>;
TYPED_TEST_SUITE(Search, Types);

TYPED_TEST(Search, EachRowFindsItsNearestCodeword)
{
    using T = TypeParam;
    using D = typename Api<T>::Dist;
    std::mt19937 rng(4);
    // Widths of one and one past the eight and the sixteen float lanes.
    for (int width : {1, 9, 17}) {
        for (int size : {1, 7, 300}) {
            this->TearDown();
            this->build(width, size);
            for (int height : {1, 13, 65}) {
                SCOPED_TRACE(testing::Message() << width << "x" << size << " rows " << height);
                const int step = width + 3;
                Rows rows(height);
                for (auto& r : rows)
                    r = randomValues<T>(rng, width, -70, 70);
                const std::vector<T> flat = rowsOf<T>(rows, step).flat;
                std::vector<Vdl32s> index(height, -1), index2(height, -1);
                std::vector<D> dist(height);
                ASSERT_EQ(Api<T>::vq(flat.data(), step, index.data(), height, this->cdbk), vdlStsNoErr);
                ASSERT_EQ(Api<T>::vqDist(flat.data(), step, index2.data(), dist.data(), height,
                                         this->cdbk),
                          vdlStsNoErr);
                EXPECT_EQ(index, index2);
                for (int i = 0; i < height; ++i) {
                    const int want = nearest(rows[i], this->code, this->weights);
                    const double best = distance(rows[i], this->code[want], this->weights);
                    const double got = distance(rows[i], this->code[index[i]], this->weights);
                    if (this->exact) {
                        EXPECT_EQ(index[i], want);
                    }
                    EXPECT_LE(got, best + this->slack(best));
                    EXPECT_NEAR(dist[i], Api<T>::result(got), this->slack(got));
                }
            }
        }
    }
}

TYPED_TEST(Search, ThresholdAndSortListNearestFirst)
{
    using T = TypeParam;
    using D = typename Api<T>::Dist;
    std::mt19937 rng(8);
    this->build(5, 40);
    for (int trial = 0; trial < 20; ++trial) {
        const std::vector<double> x = randomValues<T>(rng, 5, -70, 70);
        const std::vector<T> xs = convert<T>(x);
        const std::vector<int> order = ranked(x, this->code, this->weights);
        const auto dist = [&](int j) { return distance(x, this->code[j], this->weights); };

        for (float thresh : {1.0f, 1.5f, 2.25f, 40.0f}) {
            int expected = 0;
            while (expected < 40 && dist(order[expected]) <= dist(order[0]) * thresh)
                ++expected;
            std::vector<Vdl32s> index(40, -1), index2(40, -1);
            std::vector<D> d(40);
            int num = -1, num2 = -1;
            ASSERT_EQ(Api<T>::thresh(xs.data(), index.data(), this->cdbk, thresh, &num), vdlStsNoErr);
            ASSERT_EQ(Api<T>::threshDist(xs.data(), index2.data(), d.data(), this->cdbk, thresh, &num2),
                      vdlStsNoErr);
            EXPECT_EQ(num, num2);
            if (this->exact) {
                EXPECT_EQ(num, expected);
                EXPECT_EQ(std::vector<int>(index.begin(), index.begin() + num),
                          std::vector<int>(order.begin(), order.begin() + expected));
            }
            for (int j = 0; j < num2; ++j)
                EXPECT_NEAR(d[j], Api<T>::result(dist(index2[j])), this->slack(dist(index2[j])));
        }
        for (int n : {1, 3, 40}) {
            std::vector<Vdl32s> index(n), index2(n);
            std::vector<D> d(n);
            ASSERT_EQ(Api<T>::sort(xs.data(), index.data(), this->cdbk, n), vdlStsNoErr);
            ASSERT_EQ(Api<T>::sortDist(xs.data(), index2.data(), d.data(), this->cdbk, n), vdlStsNoErr);
            EXPECT_EQ(index, index2);
            for (int j = 0; j < n; ++j) {
                if (this->exact) {
                    EXPECT_EQ(index[j], order[j]);
                }
                EXPECT_NEAR(dist(index[j]), dist(order[j]), this->slack(dist(order[j])));
                EXPECT_NEAR(d[j], Api<T>::result(dist(index[j])), this->slack(dist(index[j])));
            }
        }
    }
}

} // namespace
