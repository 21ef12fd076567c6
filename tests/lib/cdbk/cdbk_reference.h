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

// Index of the nearest codeword, the lower index among equals.
inline int nearest(const std::vector<double>& x, const Rows& code, const std::vector<double>& w)
{
    int best = 0;
    for (int j = 1; j < static_cast<int>(code.size()); ++j)
        if (distance(x, code[j], w) < distance(x, code[best], w))
            best = j;
    return best;
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

inline double distortion(const Rows& data, const Rows& code, const std::vector<double>& w)
{
    double sum = 0;
    for (const auto& x : data)
        sum += distance(x, code[nearest(x, code, w)], w);
    return sum;
}

// Seeds farthest first: row 0, then the row farthest from its nearest seed.
inline Rows farthestFirst(const Rows& data, int k, const std::vector<double>& w)
{
    Rows code;
    int seed = 0;
    for (int j = 0; j < k; ++j) {
        code.push_back(data[seed]);
        double far = -1;
        for (int i = 0; i < static_cast<int>(data.size()); ++i) {
            const double d = distance(data[i], code[nearest(data[i], code, w)], w);
            if (d > far) {
                far = d;
                seed = i;
            }
        }
    }
    return code;
}

// Lloyd rounds from farthest-first seeds; an empty cluster takes the
// vector farthest from its codeword, each vector once a round.
inline Rows lloyd(const Rows& data, int k, const std::vector<double>& w, int rounds)
{
    const int n = static_cast<int>(data.size());
    const size_t width = data[0].size();
    Rows code = farthestFirst(data, k, w);
    std::vector<int> assigned(n, -1);
    for (int round = 0; round < rounds; ++round) {
        bool moved = false;
        std::vector<double> dist(n);
        for (int i = 0; i < n; ++i) {
            const int j = nearest(data[i], code, w);
            moved = moved || j != assigned[i];
            assigned[i] = j;
            dist[i] = distance(data[i], code[j], w);
        }
        Rows sums(k, std::vector<double>(width, 0.0));
        std::vector<int> counts(k, 0);
        for (int i = 0; i < n; ++i) {
            for (size_t c = 0; c < width; ++c)
                sums[assigned[i]][c] += data[i][c];
            ++counts[assigned[i]];
        }
        for (int j = 0; j < k; ++j) {
            if (counts[j] > 0) {
                for (size_t c = 0; c < width; ++c)
                    code[j][c] = sums[j][c] / counts[j];
                continue;
            }
            int far = -1;
            for (int i = 0; i < n; ++i)
                if (dist[i] > 0 && (far < 0 || dist[i] > dist[far]))
                    far = i;
            if (far < 0)
                continue;
            code[j] = data[far];
            dist[far] = -1;
            moved = true;
        }
        if (!moved)
            break;
    }
    return code;
}

// `clusters` tight groups far apart, rows shuffled: k-means has one clear answer.
template <class T>
Rows clusteredRows(std::mt19937& rng, int clusters, int perCluster, int width)
{
    const bool ints = std::is_integral<T>::value;
    Rows rows;
    for (int c = 0; c < clusters; ++c) {
        const std::vector<double> centre = randomValues<T>(rng, width, -1000, 1000);
        for (int i = 0; i < perCluster; ++i) {
            std::vector<double> noise = randomValues<T>(rng, width, ints ? -5 : -5.0, ints ? 5 : 5.0);
            for (int k = 0; k < width; ++k)
                noise[k] += centre[k];
            rows.push_back(noise);
        }
    }
    std::shuffle(rows.begin(), rows.end(), rng);
    return rows;
}

// Rows into one buffer, `step` elements a row, the gaps poisoned.
template <class T>
std::vector<T> flatten(const Rows& rows, int step)
{
    std::vector<T> flat(rows.size() * step, poison<T>());
    for (size_t i = 0; i < rows.size(); ++i)
        for (size_t k = 0; k < rows[i].size(); ++k)
            flat[i * step + k] = static_cast<T>(rows[i][k]);
    return flat;
}

// The bit string of packed indices, bit by bit: row r at bit r * rowBits,
// most significant bit of each byte first.
inline int readBits(const std::vector<Vdl8u>& bytes, long long first, int bits)
{
    int v = 0;
    for (int b = 0; b < bits; ++b) {
        const long long bit = first + b;
        v = v * 2 + ((bytes[bit / 8] >> (7 - bit % 8)) & 1);
    }
    return v;
}

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
