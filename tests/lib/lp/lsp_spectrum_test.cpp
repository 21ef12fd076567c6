// Line spectral pairs there and back, and the all-pole power spectrum
// against a direct evaluation on the unit circle.
#include <cfloat>
#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "lp_forms.h"

using namespace lpref;
using namespace vdltest;

namespace {

// The catalogue's four filters, each under the sign that makes it stable
// in this library's convention A(z) = 1 - sum a z^-k.
const std::vector<Vec>& tableFilters()
{
    static const std::vector<Vec> filters = {
        {1.07978, -1.84139, 1.19199, -0.800087, 0.349903},
        {3.62228, -8.47263, 12.5707, -14.0352, 10.8972, -6.34564, 2.1912, -0.532509, -0.0119157,
         -0.059504},
        {0.93593, -4.09103, 2.82259, -8.23521, 4.28778, -10.4685, 3.82957, -9.12874, 1.97011,
         -5.42329, 0.193073, -2.04585, -0.367991, -0.377252, -0.220548},
        {4.51097, -12.7103, 27.2264, -47.6265, 71.3919, -94.6788, 113.736, -126.447, 132.126,
         -130.842, 122.689, -107.849, 87.4566, -64.1793, 41.687, -23.3599, 10.8689, -4.01472,
         1.02738, -0.139252},
    };
    return filters;
}

// a -> LSP -> a in float; every zero found, the cosines descending in (-1, 1).
void expectRoundTrip(const Vec& a, int nInt, int nDiv, double tolerance)
{
    const int p = static_cast<int>(a.size());
    const std::vector<Vdl32f> src = convert<Vdl32f>(a);
    std::vector<Vdl32f> lsp(p), back(p);
    int roots = -1;
    ASSERT_EQ(vdlsLPToLSP_32f(src.data(), lsp.data(), p, &roots, nInt, nDiv), vdlStsNoErr);
    ASSERT_EQ(roots, p);
    for (int i = 0; i < p; ++i) {
        EXPECT_LT(std::fabs(lsp[i]), 1.0f);
        if (i > 0) {
            EXPECT_LT(lsp[i], lsp[i - 1]);
        }
    }
    ASSERT_EQ(vdlsLSPToLP_32f(lsp.data(), back.data(), p), vdlStsNoErr);
    for (int i = 0; i < p; ++i)
        EXPECT_NEAR(back[i], a[i], tolerance * (1 + std::fabs(a[i])));
}

TEST(LineSpectralPairs, TableFiltersAndRandomStableFiltersComeBack)
{
    for (const Vec& a : tableFilters()) {
        SCOPED_TRACE(a.size());
        expectRoundTrip(a, 64 * static_cast<int>(a.size()), 30, 2e-3);
    }
    std::mt19937 rng(21);
    for (int p : {1, 2, 3, 9, 16, 17}) {
        SCOPED_TRACE(p);
        // Zeros crowd near x = 1 and -1, where equal steps in x are coarse.
        expectRoundTrip(stablePredictor(rng, p, 0.8), 64 * p + 64, 20, 1e-4);
    }
}

TEST(LineSpectralPairs, SixteenBitFormsKeepTheirFixedPoint)
{
    std::mt19937 rng(5);
    const int p = 10;
    const Vec a = stablePredictor(rng, p, 0.6);
    std::vector<Vdl16s> src(p), lsp(p), back(p);
    for (int i = 0; i < p; ++i)
        src[i] = static_cast<Vdl16s>(roundSaturate<Vdl16s>(std::ldexp(a[i], 12)));
    int roots = 0;
    // Q12 in, cosines in Q14 out, back to Q12.
    ASSERT_EQ(vdlsLPToLSP_16s_Sfs(src.data(), 12, lsp.data(), p, &roots, 200, 20, -14), vdlStsNoErr);
    ASSERT_EQ(roots, p);
    ASSERT_EQ(vdlsLSPToLP_16s_Sfs(lsp.data(), 14, back.data(), p, -12), vdlStsNoErr);
    for (int i = 0; i < p; ++i)
        EXPECT_NEAR(back[i], src[i], 8);
}

TEST(LineSpectralPairs, AnUnstableFilterReportsTheZerosItHas)
{
    // The table of order 10 as printed is not stable in this convention.
    Vec a = tableFilters()[1];
    for (double& x : a)
        x = -x;
    const std::vector<Vdl32f> src = convert<Vdl32f>(a);
    std::vector<Vdl32f> lsp(10, 5.0f);
    int roots = -1;
    ASSERT_EQ(vdlsLPToLSP_32f(src.data(), lsp.data(), 10, &roots, 60, 4), vdlStsNoErr);
    EXPECT_LT(roots, 10);
    for (int i = roots; i < 10; ++i)
        EXPECT_EQ(lsp[i], 0.0f);
}

TEST(Spectrum, MatchesTheInverseFilterOnTheGridAndFoldsLongFilters)
{
    std::mt19937 rng(9);
    for (int order : {1, 2, 4}) {
        for (int p : {1, 3, 9}) {
            SCOPED_TRACE(order * 100 + p);
            const int n = 1 << (order + 1);
            const Vec a = stablePredictor(rng, p, 0.5);
            const std::vector<Vdl32f> src = convert<Vdl32f>(a);
            std::vector<Vdl32f> got(n + 1, 77.0f);
            ASSERT_EQ(vdlsLPToSpectrum_32f(src.data(), p, got.data(), order, 2.5f), vdlStsNoErr);
            std::vector<Vdl16s> fixed(p), got16(n);
            for (int k = 0; k < p; ++k)
                fixed[k] = static_cast<Vdl16s>(roundSaturate<Vdl16s>(std::ldexp(a[k], 12)));
            ASSERT_EQ(vdlsLPToSpectrum_16s_Sfs(fixed.data(), p, got16.data(), order, 300, -2),
                      vdlStsNoErr);
            Vec held(p);
            for (int k = 0; k < p; ++k)
                held[k] = std::ldexp(fixed[k], -12);
            for (int m = 0; m < n; ++m) {
                const double w = 2 * M_PI * m / n;
                const double want = 2.5 / inversePower(Vec(src.begin(), src.end()), w);
                EXPECT_NEAR(got[m], want, 1e-5 * want);
                EXPECT_NEAR(got16[m], roundSaturate<Vdl16s>(300 * 4 / inversePower(held, w)), 1);
            }
            EXPECT_EQ(got[n], 77.0f);
        }
    }
}

TEST(Spectrum, AZeroOnTheGridSaturatesWithAWarning)
{
    const Vdl32f a[] = {1.0f};  // A(z) = 1 - z^-1, zero at w = 0
    Vdl32f got[4];
    EXPECT_EQ(vdlsLPToSpectrum_32f(a, 1, got, 1, 1.0f), vdlStsDivByZeroWrn);
    EXPECT_EQ(got[0], FLT_MAX);
    EXPECT_NEAR(got[2], 0.25f, 1e-6);  // |A(-1)|^2 = 4
}

} // namespace
