// Matrix-vector products of every form and layout against a plain double
// loop, and the covariance accumulation.
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "scaled_call.h"
#include "train_reference.h"
#include "vdlsr.h"

using namespace trainref;

namespace {

// The four products of one element type: matrix times vector and vector
// times matrix, rows `step` apart or behind a table of pointers.
template <class S, class D, int Sf, auto MatVec, auto MatVecL, auto VecMat, auto VecMatL>
struct ProductForm {
    using Src = S;
    using Dst = D;
    static constexpr int scaleFactor = Sf;
    static constexpr auto matVec = MatVec, matVecL = MatVecL, vecMat = VecMat, vecMatL = VecMatL;
};

using Product32f = ProductForm<Vdl32f, Vdl32f, 0, vdlsMatVecMul_32f_D2, vdlsMatVecMul_32f_D2L,
                               vdlsVecMatMul_32f_D2, vdlsVecMatMul_32f_D2L>;
using Product16s = ProductForm<Vdl16s, Vdl16s, 9, vdlsMatVecMul_16s_D2Sfs, vdlsMatVecMul_16s_D2LSfs,
                               vdlsVecMatMul_16s_D2Sfs, vdlsVecMatMul_16s_D2LSfs>;
using Product16s32s = ProductForm<Vdl16s, Vdl32s, -1, vdlsMatVecMul_16s32s_D2Sfs, vdlsMatVecMul_16s32s_D2LSfs,
                                  vdlsVecMatMul_16s32s_D2Sfs, vdlsVecMatMul_16s32s_D2LSfs>;
using Product32s = ProductForm<Vdl32s, Vdl32s, 6, vdlsMatVecMul_32s_D2Sfs, vdlsMatVecMul_32s_D2LSfs,
                               vdlsVecMatMul_32s_D2Sfs, vdlsVecMatMul_32s_D2LSfs>;

template <class F>
class Products : public ::testing::Test {};
using ProductForms = ::testing::Types<Product32f, Product16s, Product16s32s, Product32s>;
TYPED_TEST_SUITE(Products, ProductForms);

TYPED_TEST(Products, BothSidesAndLayoutsMatchATripleLoop)
{
    using F = TypeParam;
    using S = typename F::Src;
    using D = typename F::Dst;
    std::mt19937 rng(21);
    for (Shape s : shapes) {
        SCOPED_TRACE(::testing::Message() << s.height << "x" << s.width);
        Matrix<S> m(rng, s, -200, 200);
        const auto vw = randomValues<S>(rng, s.width, -100, 100);
        const auto vh = randomValues<S>(rng, s.height, -100, 100);
        const std::vector<S> xw = convert<S>(vw), xh = convert<S>(vh);
        std::vector<D> dh(s.height), dhL(s.height), dw(s.width), dwL(s.width);
        const int sf = F::scaleFactor;
        ASSERT_EQ(vdlStsNoErr, callScaled(F::matVec, sf, m.flat(), s.step, xw.data(), s.width, dh.data(), s.height));
        ASSERT_EQ(vdlStsNoErr, callScaled(F::matVecL, sf, m.rowTable(), xw.data(), s.width, dhL.data(), s.height));
        ASSERT_EQ(vdlStsNoErr, callScaled(F::vecMat, sf, xh.data(), m.flat(), s.step, s.height, dw.data(), s.width));
        ASSERT_EQ(vdlStsNoErr, callScaled(F::vecMatL, sf, xh.data(), m.rowTable(), s.height, dwL.data(), s.width));
        EXPECT_EQ(dh, dhL);
        EXPECT_EQ(dw, dwL);
        for (int i = 0; i < s.height; ++i) {
            double sum = 0;
            for (int k = 0; k < s.width; ++k) sum += m.value(i, k) * vw[k];
            const double want = expected<D>(sum, F::scaleFactor);
            EXPECT_NEAR(dh[i], want, tolerance<D>(want)) << i;
        }
        for (int k = 0; k < s.width; ++k) {
            double sum = 0;
            for (int i = 0; i < s.height; ++i) sum += vh[i] * m.value(i, k);
            const double want = expected<D>(sum, F::scaleFactor);
            EXPECT_NEAR(dw[k], want, tolerance<D>(want)) << k;
        }
    }
}

TEST(Products, IntegerResultsSaturate)
{
    const Vdl16s m[2] = {32767, 32767}, v[2] = {32767, 32767};
    Vdl16s d16 = 0;
    Vdl32s d32 = 0;
    ASSERT_EQ(vdlStsNoErr, vdlsMatVecMul_16s_D2Sfs(m, 2, v, 2, &d16, 1, 0));
    EXPECT_EQ(32767, d16);
    ASSERT_EQ(vdlStsNoErr, vdlsMatVecMul_16s32s_D2Sfs(m, 2, v, 2, &d32, 1, -2));
    EXPECT_EQ(2147483647, d32);
    ASSERT_EQ(vdlStsNoErr, vdlsMatVecMul_16s32s_D2Sfs(m, 2, v, 2, &d32, 1, 1));
    EXPECT_EQ(1073676289, d32);  // 2 * 32767^2 / 2
}

TEST(Covariance, AccumulatesTheScaledCentredProducts)
{
    std::mt19937 rng(22);
    for (Shape s : shapes) {
        SCOPED_TRACE(::testing::Message() << s.height << "x" << s.width);
        Matrix<Vdl16s> a(rng, s, -500, 500);
        Matrix<Vdl32f> b(rng, s, -5, 5);
        const std::vector<double> mean = randomValues<Vdl64f>(rng, s.width, -50, 50);
        const int dstStep = s.width + 3;
        std::vector<double> dst(static_cast<size_t>(s.width) * dstStep, 1.0), dstL(s.width * s.width, 1.0);
        std::vector<Vdl64f*> rowsL;
        for (int i = 0; i < s.width; ++i) rowsL.push_back(&dstL[i * s.width]);
        ASSERT_EQ(vdlStsNoErr, vdlsAccCovarianceMatrix_16s64f_D2(a.flat(), s.step, s.height, mean.data(),
                                                                dst.data(), s.width, dstStep, 0.5));
        ASSERT_EQ(vdlStsNoErr, vdlsAccCovarianceMatrix_32f64f_D2L(b.rowTable(), s.height, mean.data(),
                                                                 rowsL.data(), s.width, 2.0));
        for (int i = 0; i < s.width; ++i)
            for (int j = 0; j < s.width; ++j) {
                double ca = 0, cb = 0;
                for (int n = 0; n < s.height; ++n) {
                    ca += (a.value(n, i) - mean[i]) * (a.value(n, j) - mean[j]);
                    cb += (b.value(n, i) - mean[i]) * (b.value(n, j) - mean[j]);
                }
                EXPECT_NEAR(dst[i * dstStep + j], 1 + 0.5 * ca, 1e-9 * (1 + std::fabs(ca)));
                EXPECT_NEAR(dstL[i * s.width + j], 1 + 2 * cb, 1e-9 * (1 + std::fabs(cb)));
            }
        for (int i = 0; i < s.width; ++i)  // the padding of each row stays
            for (int j = s.width; j < dstStep; ++j) EXPECT_EQ(1.0, dst[i * dstStep + j]);
    }
}

} // namespace
