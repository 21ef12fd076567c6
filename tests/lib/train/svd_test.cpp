// The singular-value decomposition: U diag(W) V^T rebuilds A, U and V are
// orthonormal, the sorted forms descend, on random and rank-deficient
// matrices; and the column steps against plain loops.
#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "train_reference.h"
#include "vdlsr.h"

using namespace trainref;

namespace {

// A height x width matrix as rows `step` apart.
struct Dense {
    Dense(int h, int w, int s) : height(h), width(w), step(s), data(static_cast<size_t>(h) * s, 0.0) {}
    double& at(int i, int k) { return data[static_cast<size_t>(i) * step + k]; }
    double at(int i, int k) const { return data[static_cast<size_t>(i) * step + k]; }
    std::vector<Vdl64f*> table()
    {
        std::vector<Vdl64f*> t;
        for (int i = 0; i < height; ++i) t.push_back(&at(i, 0));
        return t;
    }
    int height, width, step;
    std::vector<double> data;
};

Dense randomMatrix(std::mt19937& rng, int h, int w, int step, int rank)
{
    // A product of h x rank and rank x w random factors has that rank.
    std::uniform_real_distribution<double> dist(-1, 1);
    std::vector<double> left(h * rank), right(rank * w);
    for (double& x : left) x = dist(rng);
    for (double& x : right) x = dist(rng);
    Dense a(h, w, step);
    for (int i = 0; i < h; ++i)
        for (int k = 0; k < w; ++k)
            for (int r = 0; r < rank; ++r) a.at(i, k) += left[i * rank + r] * right[r * w + k];
    return a;
}

// Columns of m (height x width) orthonormal to `tol`.
void expectOrthonormalColumns(const Dense& m, double tol)
{
    for (int p = 0; p < m.width; ++p)
        for (int q = p; q < m.width; ++q) {
            double dot = 0;
            for (int i = 0; i < m.height; ++i) dot += m.at(i, p) * m.at(i, q);
            EXPECT_NEAR(dot, p == q ? 1.0 : 0.0, tol) << p << "," << q;
        }
}

void expectDecomposition(const Dense& a, const Dense& u, const std::vector<double>& w, const Dense& v,
                         bool sorted)
{
    double scale = 0;
    for (double x : w) scale = std::max(scale, x);
    for (int i = 0; i < a.height; ++i)
        for (int k = 0; k < a.width; ++k) {
            double sum = 0;
            for (int j = 0; j < a.width; ++j) sum += u.at(i, j) * w[j] * v.at(k, j);
            EXPECT_NEAR(sum, a.at(i, k), 1e-12 * (1 + scale)) << i << "," << k;
        }
    expectOrthonormalColumns(u, 1e-12);
    expectOrthonormalColumns(v, 1e-12);
    for (double x : w) EXPECT_GE(x, 0.0);
    if (sorted) {
        EXPECT_TRUE(std::is_sorted(w.rbegin(), w.rend()));
    }
}

struct SvdCase {
    int height, width, step, rank;
};

class Svd : public ::testing::TestWithParam<SvdCase> {};

TEST_P(Svd, EveryFormDecomposesTheMatrix)
{
    const SvdCase c = GetParam();
    std::mt19937 rng(c.height * 100 + c.width + c.rank);
    const Dense a = randomMatrix(rng, c.height, c.width, c.step, c.rank);
    for (int form = 0; form < 8; ++form) {
        SCOPED_TRACE(form);
        const bool sorted = form & 1, table = form & 2, inPlace = form & 4;
        Dense u(c.height, c.width, c.step), v(c.width, c.width, c.step), work = a;
        std::vector<double> w(c.width, -1);
        auto ut = u.table(), vt = v.table(), wt = work.table();
        std::vector<const Vdl64f*> at(wt.begin(), wt.end());
        VdlStatus s;
        if (!table && !inPlace)
            s = (sorted ? vdlsSVDSort_64f_D2 : vdlsSVD_64f_D2)(a.data.data(), u.data.data(), c.height,
                                                               w.data(), v.data.data(), c.width, c.step, 100);
        else if (!table)
            s = (sorted ? vdlsSVDSort_64f_D2_I : vdlsSVD_64f_D2_I)(work.data.data(), c.height, w.data(),
                                                                   v.data.data(), c.width, c.step, 100);
        else if (!inPlace)
            s = (sorted ? vdlsSVDSort_64f_D2L : vdlsSVD_64f_D2L)(at.data(), ut.data(), c.height, w.data(),
                                                                 vt.data(), c.width, 100);
        else
            s = (sorted ? vdlsSVDSort_64f_D2L_I : vdlsSVD_64f_D2L_I)(wt.data(), c.height, w.data(),
                                                                     vt.data(), c.width, 100);
        ASSERT_EQ(vdlStsNoErr, s);
        expectDecomposition(a, inPlace ? work : u, w, v, sorted);
        int nonZero = 0;
        for (double x : w) nonZero += x > 1e-9;
        EXPECT_EQ(std::min(c.rank, c.width), nonZero);
    }
}

INSTANTIATE_TEST_SUITE_P(Shapes, Svd,
                         ::testing::Values(SvdCase{1, 1, 1, 1}, SvdCase{5, 5, 8, 5},
                                           SvdCase{17, 9, 12, 9}, SvdCase{12, 12, 12, 4},
                                           SvdCase{9, 7, 7, 1}, SvdCase{4, 3, 5, 0}),
                         [](const ::testing::TestParamInfo<SvdCase>& info) {
                             const SvdCase& c = info.param;
                             return std::to_string(c.height) + "x" + std::to_string(c.width) +
                                    "step" + std::to_string(c.step) + "rank" +
                                    std::to_string(c.rank);
                         });

TEST(SvdLimits, ReportsTheIterationLimit)
{
    std::mt19937 rng(3);
    const Dense a = randomMatrix(rng, 8, 8, 8, 8);
    Dense u(8, 8, 8), v(8, 8, 8);
    std::vector<double> w(8);
    EXPECT_EQ(vdlStsErr, vdlsSVD_64f_D2(a.data.data(), u.data.data(), 8, w.data(), v.data.data(), 8, 8, 1));
}

TEST(ColumnSteps, MatchPlainLoopsOverTheirRows)
{
    std::mt19937 rng(4);
    Dense a = randomMatrix(rng, 6, 4, 4, 4);
    auto t = a.table();
    std::vector<const Vdl64f*> ct(t.begin(), t.end());
    double sumAbs = 0, sumSqr = 0, dot = 0;
    for (int i = 2; i < 6; ++i) {
        sumAbs += std::fabs(a.at(i, 1));
        sumSqr += a.at(i, 1) * a.at(i, 1);
        dot += a.at(i, 1) * a.at(i, 3);
    }
    double r = 0;
    ASSERT_EQ(vdlStsNoErr, vdlsSumColumnAbs_64f_D2L(ct.data(), 4, 6, &r, 2, 1));
    EXPECT_NEAR(r, sumAbs, 1e-14);
    ASSERT_EQ(vdlStsNoErr, vdlsSumColumnSqr_64f_D2L(ct.data(), 4, 6, &r, 2, 1, 0.5));
    EXPECT_NEAR(r, 0.5 * sumSqr, 1e-14);
    ASSERT_EQ(vdlStsNoErr, vdlsDotProdColumn_64f_D2L(ct.data(), 4, 6, &r, 2, 1, 3));
    EXPECT_NEAR(r, dot, 1e-14);

    const Dense before = a;
    ASSERT_EQ(vdlStsNoErr, vdlsMulColumn_64f_D2L(t.data(), 4, 6, 3, 2, -2.0));
    ASSERT_EQ(vdlStsNoErr, vdlsAddMulColumn_64f_D2L(t.data(), 4, 6, 0, 1, 1, 3.0));
    ASSERT_EQ(vdlStsNoErr, vdlsQRTransColumn_64f_D2L(t.data(), 4, 6, 0, 3, 0.6, 0.8));
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(a.at(i, 2), i >= 3 ? -2.0 * before.at(i, 2) : before.at(i, 2));
        EXPECT_NEAR(a.at(i, 1), i >= 1 ? before.at(i, 1) + 3 * before.at(i, 0) : before.at(i, 1), 1e-14);
        EXPECT_NEAR(a.at(i, 0), 0.6 * before.at(i, 0) + 0.8 * before.at(i, 3), 1e-14);
        EXPECT_NEAR(a.at(i, 3), 0.6 * before.at(i, 3) - 0.8 * before.at(i, 0), 1e-14);
    }
    // Rows and columns outside the matrix touch nothing.
    EXPECT_EQ(vdlStsOutOfRangeErr, vdlsMulColumn_64f_D2L(t.data(), 4, 6, 6, 0, 0.0));
    EXPECT_EQ(vdlStsOutOfRangeErr, vdlsAddMulColumn_64f_D2L(t.data(), 4, 6, 0, 4, 0, 0.0));
    EXPECT_EQ(vdlStsOutOfRangeErr, vdlsDotProdColumn_64f_D2L(ct.data(), 4, 6, &r, 0, -1, 0));

    const std::vector<double> x = {1.5, -2, 0.25};
    std::vector<double> y = {1, 1, 1};
    ASSERT_EQ(vdlStsNoErr, vdlsSumRowAbs_64f(x.data(), 3, &r));
    EXPECT_EQ(3.75, r);
    ASSERT_EQ(vdlStsNoErr, vdlsSumRowSqr_64f(x.data(), 3, &r, 2.0));
    EXPECT_EQ(2 * (2.25 + 4 + 0.0625), r);
    ASSERT_EQ(vdlStsNoErr, vdlsAddMulRow_64f(x.data(), y.data(), 3, -2.0));
    EXPECT_EQ(y, (std::vector<double>{-2, 5, 0.5}));
}

} // namespace
