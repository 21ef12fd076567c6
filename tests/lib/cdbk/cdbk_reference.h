// Plain double-precision models of the codebook functions, and the calls of
// each element type under one name for typed tests.
#ifndef VDL_TESTS_CDBK_REFERENCE_H
#define VDL_TESTS_CDBK_REFERENCE_H

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "test_data.h"
#include "vdlsr.h"

namespace cdbkref {

using namespace vdltest;
using Rows = std::vector<std::vector<double>>;

// sum over k of w_k (x_k - c_k)^2; no weights means all 1.
inline double distance(const std::vector<double>& x, const std::vector<double>& c,
                       const std::vector<double>& w)
{
    double d = 0;
    for (size_t k = 0; k < c.size(); ++k)
        d += (w.empty() ? 1.0 : w[k]) * (x[k] - c[k]) * (x[k] - c[k]);
    return d;
}

// Codeword indices by distance, the lower index among equals.
inline std::vector<int> ranked(const std::vector<double>& x, const Rows& code,
                               const std::vector<double>& w)
{
    std::vector<int> order(code.size());
    for (size_t j = 0; j < order.size(); ++j)
        order[j] = static_cast<int>(j);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return distance(x, code[a], w) < distance(x, code[b], w);
    });
    return order;
}

inline int nearest(const std::vector<double>& x, const Rows& code, const std::vector<double>& w)
{
    return ranked(x, code, w)[0];
}

inline double distortion(const Rows& data, const Rows& code, const std::vector<double>& w)
{
    double sum = 0;
    for (const auto& x : data)
        sum += distance(x, code[nearest(x, code, w)], w);
    return sum;
}

// `clusters` tight groups far apart, rows shuffled, and the mean of each
// group: the codebook k-means should find.
template <class T>
Rows clusteredRows(std::mt19937& rng, int clusters, int perCluster, int width, Rows& means)
{
    Rows rows;
    means.assign(clusters, std::vector<double>(width, 0.0));
    for (int c = 0; c < clusters; ++c) {
        const std::vector<double> centre = randomValues<T>(rng, width, -1000, 1000);
        for (int i = 0; i < perCluster; ++i) {
            std::vector<double> row = randomValues<T>(rng, width, -5, 5);
            for (int k = 0; k < width; ++k) {
                row[k] += centre[k];
                means[c][k] += row[k] / perCluster;
            }
            rows.push_back(row);
        }
    }
    std::shuffle(rows.begin(), rows.end(), rng);
    return rows;
}

// Writes `value` into the bit string of packed indices: `bits` bits from
// bit `first`, the most significant bit of each byte first.
inline void writeBits(std::vector<Vdl8u>& bytes, long long first, int bits, int value)
{
    for (int b = 0; b < bits; ++b) {
        const long long bit = first + b;
        const int one = (value >> (bits - 1 - b)) & 1;
        if (one)
            bytes[bit / 8] |= static_cast<Vdl8u>(0x80 >> (bit % 8));
        else
            bytes[bit / 8] &= static_cast<Vdl8u>(~(0x80 >> (bit % 8)));
    }
}

// The calls of one element type.
template <class T>
struct Api;

template <>
struct Api<Vdl16s> {
    using State = VdlsCdbkState_16s;
    using Dist = Vdl32s;
    static constexpr auto initL2 = vdlsCdbkInitAlloc_L2_16s;
    static constexpr auto initWgt = vdlsCdbkInitAlloc_WgtL2_16s;
    static constexpr auto release = vdlsCdbkFree_16s;
    static constexpr auto size = vdlsGetCdbkSize_16s;
    static constexpr auto get = vdlsGetCodebook_16s;
    static constexpr auto vq = vdlsVQ_16s;
    static constexpr auto thresh = vdlsVQSingle_Thresh_16s;
    static constexpr auto sort = vdlsVQSingle_Sort_16s;
    static constexpr auto split16 = vdlsSplitVQ_16s16s;
    static constexpr auto split8 = vdlsSplitVQ_16s8u;
    static constexpr auto split1 = vdlsSplitVQ_16s1u;
    static constexpr auto form16 = vdlsFormVectorVQ_16s16s;
    static constexpr auto form8 = vdlsFormVectorVQ_8u16s;
    static constexpr auto form1 = vdlsFormVectorVQ_1u16s;
    static constexpr int scaleFactor = 1;
    static VdlStatus vqDist(const Vdl16s* s, int step, Vdl32s* i, Dist* d, int h, const State* c)
    {
        return vdlsVQDist_16s32s_Sfs(s, step, i, d, h, c, scaleFactor);
    }
    static VdlStatus threshDist(const Vdl16s* s, Vdl32s* i, Dist* d, const State* c, float t, int* n)
    {
        return vdlsVQDistSingle_Thresh_16s32s_Sfs(s, i, d, c, t, n, scaleFactor);
    }
    static VdlStatus sortDist(const Vdl16s* s, Vdl32s* i, Dist* d, const State* c, int n)
    {
        return vdlsVQDistSingle_Sort_16s32s_Sfs(s, i, d, c, n, scaleFactor);
    }
    static double result(double d) { return roundSaturate<Vdl32s>(d / 2); }
};

template <>
struct Api<Vdl32f> {
    using State = VdlsCdbkState_32f;
    using Dist = Vdl32f;
    static constexpr auto initL2 = vdlsCdbkInitAlloc_L2_32f;
    static constexpr auto initWgt = vdlsCdbkInitAlloc_WgtL2_32f;
    static constexpr auto release = vdlsCdbkFree_32f;
    static constexpr auto size = vdlsGetCdbkSize_32f;
    static constexpr auto get = vdlsGetCodebook_32f;
    static constexpr auto vq = vdlsVQ_32f;
    static constexpr auto thresh = vdlsVQSingle_Thresh_32f;
    static constexpr auto sort = vdlsVQSingle_Sort_32f;
    static constexpr auto split16 = vdlsSplitVQ_32f16s;
    static constexpr auto split8 = vdlsSplitVQ_32f8u;
    static constexpr auto split1 = vdlsSplitVQ_32f1u;
    static constexpr auto form16 = vdlsFormVectorVQ_16s32f;
    static constexpr auto form8 = vdlsFormVectorVQ_8u32f;
    static constexpr auto form1 = vdlsFormVectorVQ_1u32f;
    static constexpr auto vqDist = vdlsVQDist_32f;
    static constexpr auto threshDist = vdlsVQDistSingle_Thresh_32f;
    static constexpr auto sortDist = vdlsVQDistSingle_Sort_32f;
    static double result(double d) { return d; }
};

// The codewords of a codebook, read back.
template <class T>
Rows codewords(const typename Api<T>::State* cdbk)
{
    int width = 0, size = 0;
    Api<T>::size(cdbk, &width, &size);
    std::vector<T> flat(static_cast<size_t>(width) * size);
    Api<T>::get(cdbk, flat.data(), width);
    Rows rows(size);
    for (int j = 0; j < size; ++j)
        rows[j].assign(flat.begin() + j * width, flat.begin() + (j + 1) * width);
    return rows;
}

} // namespace cdbkref

#endif
