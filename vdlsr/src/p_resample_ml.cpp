// Polyphase resampling between the rates of speech, with fast and with
// accurate interpolation between the filter's phases. The resampler holds
// state and moves a time position on; the timed functions are this module's
// wrappers, which start every call from the same position.
#include "dl.h"

DL_MODULE_VDLS("vdlsr/src/p_resample_ml");

static dlVector pSrc, pDst;
static kvStepIterator<int> lenSrc, inRate, outRate;
// The rates; 8000 stands last again, so that outRate (from index 1 on) can
// reach it.
static int pRateArray[] = {8000, 11025, 16000, 22050, 8000};
static const int rateCount = sizeof(pRateArray) / sizeof(pRateArray[0]);
// Input samples the filter reaches to either side of its centre.
static int history = 32;
static int hist, outLen;
static double pTime, factor;
// Holders of the library's states, one per kind; the kind in use is made
// for each grid point and released after it.
static VdlsResamplingPolyphase_32f** dlState32f;
static VdlsResamplingPolyphase_16s** dlState16s;
static VdlsResamplingPolyphaseFixed_32f** dlStateFixed32f;
static VdlsResamplingPolyphaseFixed_16s** dlStateFixed16s;

// The wrappers: the library's calls less the time argument, each from the
// time position hist, so that every timed call resamples the same samples.
// The library's length is hist + len - pTime, which is len.
template <class State, class T>
static VdlStatus resampleFromStart(VdlStatus (*call)(const State*, const T*, int, T*, Vdl64f,
                                                     Vdl32f, Vdl64f*, int*),
                                   const State* state, const T* src, int len, T* dst, double f,
                                   float norm, int* pOutLen) {
    pTime = hist;
    return call(state, src, (int)(hist + len - pTime), dst, f, norm, &pTime, pOutLen);
}

template <class State, class T>
static VdlStatus resampleFixedFromStart(VdlStatus (*call)(const State*, const T*, int, T*, Vdl32f,
                                                          Vdl64f*, int*),
                                        const State* state, const T* src, int len, T* dst,
                                        float norm, int* pOutLen) {
    pTime = hist;
    return call(state, src, (int)(hist + len - pTime), dst, norm, &pTime, pOutLen);
}

static VdlStatus vdlsResamplePolyphase_32f_Fast(const VdlsResamplingPolyphase_32f* s, const Vdl32f* src,
                                                int len, Vdl32f* dst, double f, float norm, int* n) {
    return resampleFromStart(vdlsResamplePolyphase_32f, s, src, len, dst, f, norm, n);
}
static VdlStatus vdlsResamplePolyphase_16s_Fast(const VdlsResamplingPolyphase_16s* s, const Vdl16s* src,
                                                int len, Vdl16s* dst, double f, float norm, int* n) {
    return resampleFromStart(vdlsResamplePolyphase_16s, s, src, len, dst, f, norm, n);
}
static VdlStatus vdlsResamplePolyphaseFixed_32f_Fast(const VdlsResamplingPolyphaseFixed_32f* s,
                                                     const Vdl32f* src, int len, Vdl32f* dst,
                                                     float norm, int* n) {
    return resampleFixedFromStart(vdlsResamplePolyphaseFixed_32f, s, src, len, dst, norm, n);
}
static VdlStatus vdlsResamplePolyphaseFixed_16s_Fast(const VdlsResamplingPolyphaseFixed_16s* s,
                                                     const Vdl16s* src, int len, Vdl16s* dst,
                                                     float norm, int* n) {
    return resampleFixedFromStart(vdlsResamplePolyphaseFixed_16s, s, src, len, dst, norm, n);
}
// The accurate forms differ only in the state they are given.
static auto* const vdlsResamplePolyphase_32f_Accur = vdlsResamplePolyphase_32f_Fast;
static auto* const vdlsResamplePolyphase_16s_Accur = vdlsResamplePolyphase_16s_Fast;
static auto* const vdlsResamplePolyphaseFixed_32f_Accur = vdlsResamplePolyphaseFixed_32f_Fast;
static auto* const vdlsResamplePolyphaseFixed_16s_Accur = vdlsResamplePolyphaseFixed_16s_Fast;

// What both classes do; they differ in the hint their states are made with.
class TimResample : public prTest {
public:
    TimResample(funcCall call, funcInit init, funcLoop loop, funcStat stat, kvString name,
                kvString file, kvString info, VdlHintAlgorithm hint)
        : prTest(call, init, loop, stat, name, file, info), m_hint(hint) {}

    bool canStart() override {
        lenSrc.reset();
        lenSrc.init("LenghtSrc", 1000, 10000, 3000, '+');
        inRate.reset();
        inRate.init("inRate", 0, 3, 1, '+');
        outRate.reset();
        outRate.init("outRate", 1, 4, 1, '+');
        for (kvParameter* p : {(kvParameter*)&lenSrc, (kvParameter*)&inRate, (kvParameter*)&outRate})
            p->fromIStream(g_istrm);
        pSrc.init(m_func, 1);
        pDst.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!stepRates()) return false;
        factor = (double)pRateArray[outRate] / pRateArray[inRate];
        hist = history + 1;
        pTime = hist;
        float window = factor > 1 ? 2 * history : (float)(2 * history * factor);
        if (!createState(window)) return false;
        return pSrc.createVector(lenSrc + 2 * hist + 5, SET_ZERO, 0, 0) &&
               pDst.createVectorExt((int)(lenSrc * factor + 20.0), 1 * kvGetVectorShift(), SET_ZERO, 0, 0);
    }
    void flushData() override {
        dlDeleteAll({&pSrc, &pDst});
        freeState();
    }
    double getDivisor() override { return lenSrc; }
    void columns(dlColumns& c) override {
        c << dlItem("inRate", pRateArray[inRate]) << dlItem("outRate", pRateArray[outRate]) << lenSrc;
    }

private:
    // The odometer lenSrc, inRate, outRate, fastest first, over pairs of
    // different rates: a pair of equal rates is passed over, or ends the
    // grid when it is the first.
    bool stepRates() {
        bool first = m_firstSet;
        do {
            if (!stepOdometer({&lenSrc, &inRate, &outRate})) return false;
            if (!ratesInRange()) return false;
            if (pRateArray[inRate] != pRateArray[outRate]) return true;
        } while (!first);
        return false;
    }
    bool ratesInRange() const {
        if (inRate >= 0 && inRate < rateCount && outRate >= 0 && outRate < rateCount) return true;
        dlError(kvString("-- Rate index out of the table of ") << rateCount << " rates\n");
        return false;
    }
    // A holder from the library's allocator, and the state of the test's
    // kind in it; the status of the make call is not looked at.
    template <class State>
    static bool newHolder(State**& holder) {
        holder = (State**)vdlsMalloc_8u(sizeof(State*));
        if (!holder) return false;
        *holder = 0;
        return true;
    }
    bool createState(float window) {
        int in = pRateArray[inRate], out = pRateArray[outRate];
        if (m_fixed && m_16s) {
            if (!newHolder(dlStateFixed16s)) return false;
            vdlsResamplePolyphaseFixedInitAlloc_16s(dlStateFixed16s, in, out, 2 * history, 0.95f, 9.0f, m_hint);
        } else if (m_fixed) {
            if (!newHolder(dlStateFixed32f)) return false;
            vdlsResamplePolyphaseFixedInitAlloc_32f(dlStateFixed32f, in, out, 2 * history, 0.95f, 9.0f, m_hint);
        } else if (m_16s) {
            if (!newHolder(dlState16s)) return false;
            vdlsResamplePolyphaseInitAlloc_16s(dlState16s, window, 256, 0.95f, 9.0f, m_hint);
        } else {
            if (!newHolder(dlState32f)) return false;
            vdlsResamplePolyphaseInitAlloc_32f(dlState32f, window, 256, 0.95f, 9.0f, m_hint);
        }
        return true;
    }
    template <class State>
    static void release(State**& holder, VdlStatus (*freeCall)(State*)) {
        if (!holder) return;
        if (*holder) freeCall(*holder);
        vdlsFree(holder);
        holder = 0;
    }
    void freeState() {
        release(dlState32f, vdlsResamplePolyphaseFree_32f);
        release(dlState16s, vdlsResamplePolyphaseFree_16s);
        release(dlStateFixed32f, vdlsResamplePolyphaseFixedFree_32f);
        release(dlStateFixed16s, vdlsResamplePolyphaseFixedFree_16s);
    }

    const VdlHintAlgorithm m_hint;
    const bool m_16s = m_name.found("16s");
    const bool m_fixed = m_name.found("Fixed");
};

class TimResampleFast : public TimResample {
public:
    TimResampleFast(funcCall call, funcInit init, funcLoop loop, funcStat stat, kvString name,
                    kvString file, kvString info)
        : TimResample(call, init, loop, stat, name, file, info, vdlAlgHintFast) {}
};

class TimResampleAcc : public TimResample {
public:
    TimResampleAcc(funcCall call, funcInit init, funcLoop loop, funcStat stat, kvString name,
                   kvString file, kvString info)
        : TimResample(call, init, loop, stat, name, file, info, vdlAlgHintAccurate) {}
};

DL_REG(TimResampleFast, vdlsResamplePolyphase_32f_Fast,
       (*dlState32f, pSrc, lenSrc, pDst, factor, 0.98f, &outLen));
DL_REG(TimResampleFast, vdlsResamplePolyphase_16s_Fast,
       (*dlState16s, pSrc, lenSrc, pDst, factor, 0.98f, &outLen));
DL_REG(TimResampleFast, vdlsResamplePolyphaseFixed_32f_Fast,
       (*dlStateFixed32f, pSrc, lenSrc, pDst, 0.98f, &outLen));
DL_REG(TimResampleFast, vdlsResamplePolyphaseFixed_16s_Fast,
       (*dlStateFixed16s, pSrc, lenSrc, pDst, 0.98f, &outLen));
DL_REG(TimResampleAcc, vdlsResamplePolyphase_32f_Accur,
       (*dlState32f, pSrc, lenSrc, pDst, factor, 0.98f, &outLen));
DL_REG(TimResampleAcc, vdlsResamplePolyphase_16s_Accur,
       (*dlState16s, pSrc, lenSrc, pDst, factor, 0.98f, &outLen));
DL_REG(TimResampleAcc, vdlsResamplePolyphaseFixed_32f_Accur,
       (*dlStateFixed32f, pSrc, lenSrc, pDst, 0.98f, &outLen));
DL_REG(TimResampleAcc, vdlsResamplePolyphaseFixed_16s_Accur,
       (*dlStateFixed16s, pSrc, lenSrc, pDst, 0.98f, &outLen));
