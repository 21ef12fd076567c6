// Split vector quantisation round trip: SplitVQ finds the nearest codeword
// of each sub-vector, FormVectorVQ puts those codewords back together, for
// 16-bit, 8-bit and bit-packed indices; and feature vectors from codebook
// rows the caller holds.
#include <gtest/gtest.h>

#include "cdbk_reference.h"

using namespace cdbkref;

namespace {

template <class T>
class Split : public ::testing::Test {
protected:
    using A = Api<T>;
    // Widths and sizes of the table: one codebook of one codeword (no bits).
    const std::vector<int> widths = {2, 3, 1};
    const std::vector<int> sizes = {5, 17, 1};
    const std::vector<int> bits = {3, 5, 0};
    const int height = 13;

    void SetUp() override
    {
        std::mt19937 rng(31);
        for (size_t c = 0; c < widths.size(); ++c) {
            Rows rows(sizes[c]);
            for (auto& r : rows)
                r = randomValues<T>(rng, widths[c], -50, 50);
            const std::vector<T> flat = rowsOf<T>(rows, widths[c]).flat;
            typename A::State* cdbk = nullptr;
            ASSERT_EQ(A::initL2(&cdbk, flat.data(), widths[c], widths[c], sizes[c], sizes[c],
                                vdlCdbkHintFull),
                      vdlStsNoErr);
            table.push_back(cdbk);
            code.push_back(rows);
        }
        for (int i = 0; i < height; ++i)
            vectors.push_back(randomValues<T>(rng, step, -60, 60));
    }
    void TearDown() override
    {
        for (auto it = table.rbegin(); it != table.rend(); ++it)
            A::release(*it);
    }

    // Index c of row i must name a codeword nearest to the sub-vector.
    void expectNearest(int i, size_t c, int index, int offset) const
    {
        const std::vector<double> x(vectors[i].begin() + offset,
                                    vectors[i].begin() + offset + widths[c]);
        const int want = nearest(x, code[c], {});
        if (std::is_integral<T>::value) {
            EXPECT_EQ(index, want) << "row " << i << " codebook " << c;
        } else {
            const double best = distance(x, code[c][want], {});
            EXPECT_LE(distance(x, code[c][index], {}), best + 1e-5 * (1 + best));
        }
    }
    // Row i of `out` rebuilt from its indices (four a row) is the codewords
    // of those indices.
    void expectRebuilt(const std::vector<T>& out, int dstStep, const std::vector<Vdl16s>& index) const
    {
        for (int i = 0; i < height; ++i) {
            std::vector<double> want;
            for (size_t c = 0; c < widths.size(); ++c) {
                const auto& w = code[c][index[i * 4 + c]];
                want.insert(want.end(), w.begin(), w.end());
            }
            std::vector<double> got(out.begin() + i * dstStep, out.begin() + i * dstStep + 6);
            EXPECT_EQ(got, want) << "row " << i;
        }
    }

    const int step = 8;  // six elements of sub-vectors and two spare
    std::vector<typename A::State*> table;
    std::vector<Rows> code;
    Rows vectors;
};

using Types = ::testing::Types<Vdl16s, Vdl32f>;
TYPED_TEST_SUITE(Split, Types);

// 16-bit, 8-bit and bit-packed indices name the same nearest codewords,
// the packed ones laid out bit by bit, and rebuild the vectors.
TYPED_TEST(Split, IndicesOfEachTypeNameTheNearestCodewordsAndRebuildThem)
{
    using T = TypeParam;
    using Fn = Api<T>;
    const int n = 3, h = this->height, rowBits = 3 + 5 + 0 + 3;  // three spare bits a row
    const auto* table = this->table.data();
    const std::vector<T> src = rowsOf<T>(this->vectors, this->step).flat;
    std::vector<Vdl16s> idx16(h * 4, -1);
    std::vector<Vdl8u> idx8(h * 4, 255), packed(h * 2, 0xA5), want(packed);
    ASSERT_EQ(Fn::split16(src.data(), this->step, idx16.data(), 4, h, table, n), vdlStsNoErr);
    ASSERT_EQ(Fn::split8(src.data(), this->step, idx8.data(), 4, h, table, n), vdlStsNoErr);
    ASSERT_EQ(Fn::split1(src.data(), this->step, packed.data(), rowBits, h, table, n), vdlStsNoErr);
    for (int i = 0; i < h; ++i) {
        for (int c = 0, offset = 0, at = 0; c < n; offset += this->widths[c], at += this->bits[c], ++c) {
            EXPECT_EQ(idx8[i * 4 + c], idx16[i * 4 + c]);
            this->expectNearest(i, c, idx16[i * 4 + c], offset);
            // The same bits written one by one into the same background.
            writeBits(want, static_cast<long long>(i) * rowBits + at, this->bits[c], idx16[i * 4 + c]);
        }
        EXPECT_EQ(idx16[i * 4 + 3], -1) << "spare index element written";
    }
    EXPECT_EQ(packed, want);
    // Rebuilt rows a step apart that leaves a gap, and one that leaves none.
    std::vector<T> out16(h * 7, poison<T>()), out8(out16), out1(h * 6, poison<T>());
    ASSERT_EQ(Fn::form16(idx16.data(), 4, out16.data(), 7, h, table, n), vdlStsNoErr);
    ASSERT_EQ(Fn::form8(idx8.data(), 4, out8.data(), 7, h, table, n), vdlStsNoErr);
    ASSERT_EQ(Fn::form1(packed.data(), rowBits, out1.data(), 6, h, table, n), vdlStsNoErr);
    this->expectRebuilt(out16, 7, idx16);
    this->expectRebuilt(out8, 7, idx16);
    this->expectRebuilt(out1, 6, idx16);
}

// Rows of a codebook of two or four elements a codeword, and streams of
// their own widths and steps, against a plain copy.
TYPED_TEST(Split, FormVectorCopiesChosenCodewords)
{
    using T = TypeParam;
    std::mt19937 rng(41);
    const int len = 5;
    std::vector<std::vector<T>> rows;
    std::vector<const T*> table;
    for (int k = 0; k < len; ++k)
        rows.push_back(convert<T>(randomValues<T>(rng, 40, -9, 9)));
    for (auto& r : rows)
        table.push_back(r.data());
    const std::vector<Vdl32s> heights = {10, 5, 3, 1, 10}, widths = {3, 1, 4, 2, 5},
                              steps = {4, 1, 6, 2, 5};
    const std::vector<Vdl8u> i8 = {9, 4, 2, 0, 7};
    const std::vector<Vdl16s> i16(i8.begin(), i8.end());
    const auto* h = heights.data();
    std::vector<T> out2(2 * len), out4(4 * len), outS(15), outS16(15);
    if constexpr (std::is_same<T, Vdl16s>::value) {
        ASSERT_EQ(vdlsFormVector_2i_8u16s(i8.data(), table.data(), h, out2.data(), len), 0);
        ASSERT_EQ(vdlsFormVector_4i_16s16s(i16.data(), table.data(), h, out4.data(), len), 0);
        ASSERT_EQ(vdlsFormVector_8u16s(i8.data(), table.data(), h, widths.data(), steps.data(), len, outS.data()), 0);
        ASSERT_EQ(vdlsFormVector_16s16s(i16.data(), table.data(), h, widths.data(), steps.data(), len, outS16.data()), 0);
    } else {
        ASSERT_EQ(vdlsFormVector_2i_16s32f(i16.data(), table.data(), h, out2.data(), len), 0);
        ASSERT_EQ(vdlsFormVector_4i_8u32f(i8.data(), table.data(), h, out4.data(), len), 0);
        ASSERT_EQ(vdlsFormVector_8u32f(i8.data(), table.data(), h, widths.data(), steps.data(), len, outS.data()), 0);
        ASSERT_EQ(vdlsFormVector_16s32f(i16.data(), table.data(), h, widths.data(), steps.data(), len, outS16.data()), 0);
    }
    std::vector<T> want2, want4, wantS;
    for (int k = 0; k < len; ++k) {
        const auto row = rows[k].begin();
        want2.insert(want2.end(), row + 2 * i8[k], row + 2 * i8[k] + 2);
        want4.insert(want4.end(), row + 4 * i8[k], row + 4 * i8[k] + 4);
        wantS.insert(wantS.end(), row + steps[k] * i8[k], row + steps[k] * i8[k] + widths[k]);
    }
    EXPECT_EQ(out2, want2);
    EXPECT_EQ(out4, want4);
    EXPECT_EQ(outS, wantS);
    EXPECT_EQ(outS16, wantS);
}

} // namespace
