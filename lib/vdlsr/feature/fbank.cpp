// Mel filter banks: triangles evenly spaced on the mel scale over the bins
// of a power spectrum, built in one block of memory (the caller's for the
// 32s bank, the library's for the others), and their evaluation.
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "vdlsr.h"
#include "weighted_sums.h"

using namespace vdl;

struct VdlFBankState_32f {
    vdl::WeightedBody body;
};
struct VdlFBankState_16s : VdlFBankState_32f {};
struct VdlFBankState_32s : VdlFBankState_32f {};

namespace {

constexpr int maxFrameLen = 1 << 20;
constexpr int maxFilters = 1 << 16;

int fftLength(int frameLen)
{
    int n = 1;
    while (n < frameLen)
        n *= 2;
    return n;
}

long long alignUp(long long bytes)
{
    return (bytes + 15) / 16 * 16;
}

// Header, three int arrays of nFilter and the weights: each bin lies in at
// most two neighbouring triangles.
long long bankBytes(int fftLen, int nFilter)
{
    return alignUp(sizeof(VdlFBankState_32f)) + alignUp(3LL * nFilter * sizeof(int)) +
           2LL * (fftLen / 2) * sizeof(float);
}

VdlStatus checkShape(int frameLen, int nFilter, int mode)
{
    return firstError({checkLen(frameLen), checkLen(nFilter), checkRange(frameLen, 2, maxFrameLen),
                       checkRange(nFilter, 1, maxFilters),
                       mode == 1 || mode == 2 ? vdlStsNoErr : vdlStsBadArgErr});
}

struct MelScale {
    double mul, div;
    int mode;
    double mel(double f) const
    {
        return mode == 1 ? mul * std::log1p(f / div) : mul * std::log10(1 + f / div);
    }
    double linear(double m) const
    {
        return mode == 1 ? div * std::expm1(m / mul) : div * (std::pow(10.0, m / mul) - 1);
    }
};

struct BankSpec {
    int frameLen;
    double sampFreq, lowFreq, highFreq;
    int nFilter;
    MelScale scale;
};

VdlStatus checkSpec(const BankSpec& b)
{
    if (VdlStatus s = checkShape(b.frameLen, b.nFilter, b.scale.mode))
        return s;
    // Finite first: a comparison with NaN would raise the invalid flag.
    const bool ok = std::isfinite(b.sampFreq) && std::isfinite(b.lowFreq) &&
                    std::isfinite(b.highFreq) && std::isfinite(b.scale.mul) &&
                    std::isfinite(b.scale.div) && b.sampFreq > 0 && b.lowFreq >= 0 &&
                    b.lowFreq < b.highFreq && b.highFreq <= b.sampFreq / 2 && b.scale.mul > 0 &&
                    b.scale.div > 0;
    return ok ? vdlStsNoErr : vdlStsBadArgErr;
}

// Lays the bank out in `memory` (bankBytes of it) and fills the triangles.
VdlFBankState_32f* build(void* memory, const BankSpec& b, unsigned tag)
{
    const int fftLen = fftLength(b.frameLen);
    const int bins = fftLen / 2;
    char* p = static_cast<char*>(memory);
    VdlFBankState_32f* st = reinterpret_cast<VdlFBankState_32f*>(p);
    int* ints = reinterpret_cast<int*>(p + alignUp(sizeof(VdlFBankState_32f)));
    WeightRows& r = st->body.rows;
    st->body.tag = tag;
    st->body.length = fftLen;
    r.rows = b.nFilter;
    r.first = ints;
    r.count = ints + b.nFilter;
    r.offset = ints + 2 * b.nFilter;
    r.weights = reinterpret_cast<float*>(p + alignUp(sizeof(VdlFBankState_32f)) +
                                         alignUp(3LL * b.nFilter * sizeof(int)));
    const double lowMel = b.scale.mel(b.lowFreq);
    const double stepMel = (b.scale.mel(b.highFreq) - lowMel) / (b.nFilter + 1);
    auto corner = [&](int j) { return b.scale.linear(lowMel + j * stepMel); };
    const double binHz = b.sampFreq / fftLen;
    int used = 0;
    for (int i = 0; i < b.nFilter; ++i) {
        const double left = corner(i), centre = corner(i + 1), right = corner(i + 2);
        r.first[i] = 0;
        r.count[i] = 0;
        r.offset[i] = used;
        for (int k = 0; k < bins; ++k) {
            const double f = k * binHz;
            double w = 0;
            if (f > left && f <= centre)
                w = (f - left) / (centre - left);
            else if (f > centre && f < right)
                w = (right - f) / (right - centre);
            if (w <= 0)
                continue;
            if (r.count[i] == 0)
                r.first[i] = k;
            r.weights[used++] = static_cast<float>(w);
            ++r.count[i];
        }
    }
    return st;
}

template <class State>
VdlStatus initAlloc(State** ppFBank, int* pFFTLen, const BankSpec& b, unsigned tag)
{
    if (VdlStatus s = firstError({checkPtrs({ppFBank, pFFTLen}), checkSpec(b)}))
        return s;
    void* memory = std::malloc(bankBytes(fftLength(b.frameLen), b.nFilter));
    if (!memory)
        return vdlStsNoMemErr;
    *ppFBank = static_cast<State*>(build(memory, b, tag));
    *pFFTLen = (*ppFBank)->body.length;
    return vdlStsNoErr;
}

VdlStatus freeBank(VdlFBankState_32f* st, unsigned tag)
{
    if (VdlStatus s = checkState(st, tag))
        return s;
    releaseState(st);  // the rows lie in the state's own block
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsMelFBankGetSize_32s(int frameLen, int nFilter, int mode, int* pSize)
{
    if (VdlStatus s = firstError({checkPtrs({pSize}), checkShape(frameLen, nFilter, mode)}))
        return s;
    *pSize = static_cast<int>(bankBytes(fftLength(frameLen), nFilter));
    return vdlStsNoErr;
}

VdlStatus vdlsMelFBankInit_32s(VdlFBankState_32s* pFBank, int* pFFTLen, int frameLen,
                               int sampFreq, int lowFreq, int highFreq, int nFilter,
                               int melMulQ15, int melDivQ15, int mode)
{
    const BankSpec b{frameLen, double(sampFreq), double(lowFreq), double(highFreq), nFilter,
                     {melMulQ15 / 32768.0, melDivQ15 / 32768.0, mode}};
    if (VdlStatus s = firstError({checkPtrs({pFBank, pFFTLen}), checkSpec(b)}))
        return s;
    *pFFTLen = build(pFBank, b, fbankTag32s)->body.length;
    return vdlStsNoErr;
}

VdlStatus vdlsMelFBankInitAlloc_16s(VdlFBankState_16s** ppFBank, int* pFFTLen, int frameLen,
                                    Vdl32f sampFreq, Vdl32f lowFreq, Vdl32f highFreq,
                                    int nFilter, Vdl32f melMul, Vdl32f melDiv, int mode)
{
    return initAlloc(ppFBank, pFFTLen,
                     BankSpec{frameLen, sampFreq, lowFreq, highFreq, nFilter, {melMul, melDiv, mode}},
                     fbankTag16s);
}

VdlStatus vdlsMelFBankInitAlloc_32f(VdlFBankState_32f** ppFBank, int* pFFTLen, int frameLen,
                                    Vdl32f sampFreq, Vdl32f lowFreq, Vdl32f highFreq,
                                    int nFilter, Vdl32f melMul, Vdl32f melDiv, int mode)
{
    return initAlloc(ppFBank, pFFTLen,
                     BankSpec{frameLen, sampFreq, lowFreq, highFreq, nFilter, {melMul, melDiv, mode}},
                     fbankTag32f);
}

VdlStatus vdlsFBankFree_16s(VdlFBankState_16s* pFBank)
{
    return freeBank(pFBank, fbankTag16s);
}

VdlStatus vdlsFBankFree_32f(VdlFBankState_32f* pFBank)
{
    return freeBank(pFBank, fbankTag32f);
}

VdlStatus vdlsEvalFBank_32f(const Vdl32f* pSrc, Vdl32f* pDst, const VdlFBankState_32f* pFBank)
{
    return applyWeights(pSrc, pDst, pFBank, fbankTag32f, 0);
}

VdlStatus vdlsEvalFBank_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, const VdlFBankState_16s* pFBank,
                                int scaleFactor)
{
    return applyWeights(pSrc, pDst, pFBank, fbankTag16s, scaleFactor);
}

VdlStatus vdlsEvalFBank_16s32s_Sfs(const Vdl16s* pSrc, Vdl32s* pDst,
                                   const VdlFBankState_16s* pFBank, int scaleFactor)
{
    return applyWeights(pSrc, pDst, pFBank, fbankTag16s, scaleFactor);
}

VdlStatus vdlsEvalFBank_32s_Sfs(const Vdl32s* pSrc, Vdl32s* pDst, const VdlFBankState_32s* pFBank,
                                int scaleFactor)
{
    return applyWeights(pSrc, pDst, pFBank, fbankTag32s, scaleFactor);
}

} // extern "C"
