// Mel filter banks applied to a power spectrum. Each set builds a 32s bank
// in memory of its own and an allocated 16s bank, whose handle the module
// keeps in library memory; the tests time the 16s bank. TimMelFB32f is the
// like class for float banks, with no test registered.
#include "dl.h"
#include "dlfeature.h"

DL_MODULE_VDLS("vdlsr/src/p_evalfbank_au");

static dlVector src, dst;
static kvStepIterator<int> nFilter, lenFFT;
static dlScaleIterator scaleFactor;
static int size_32s;
static VdlFBankState_32s* pFBank32s;
static VdlFBankState_16s** pFBank16s;
static VdlFBankState_32f** pFBank32f;

class TimMelFB16s : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(nFilter, "nFilter", 3, 24, 1, '+');
        dlStep(lenFFT, "lenFFT", 8, 9, 1, '+');
        dlScale(scaleFactor, m_func);
        src.init(m_func, 1);
        dst.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &nFilter, &lenFFT}) ||
            !src.createVector(1 << lenFFT, SET_ZERO, 0, 0) ||
            !dst.createVector(1 << lenFFT, SET_ZERO, 0, 0))
            return false;
        vdlsMelFBankGetSize_32s(400, nFilter, 2, &size_32s);
        pFBank32s = (VdlFBankState_32s*)vdlsMalloc_8u(size_32s);
        vdlsMelFBankInit_32s(pFBank32s, &m_fftLen, 400, 40000, 10, 19000, nFilter, 85032960,
                             22937600, 2);
        pFBank16s = (VdlFBankState_16s**)vdlsMalloc_8u(sizeof(void*));
        *pFBank16s = 0;
        vdlsMelFBankInitAlloc_16s(pFBank16s, &m_fftLen, (1 << lenFFT) + 2, 16000.0f, 64.0f,
                                  8000.0f, nFilter, 1126.99f, 700.0f, 1);
        return true;
    }
    void flushData() override {
        dlDeleteAll({&src, &dst});
        vdlsFree(pFBank32s);
        if (pFBank16s && *pFBank16s) vdlsFBankFree_16s(*pFBank16s);
        vdlsFree(pFBank16s);
        pFBank32s = 0;
        pFBank16s = 0;
    }
    double getDivisor() override { return nFilter << lenFFT; }
    void columns(dlColumns& c) override { c << nFilter << lenFFT << scaleFactor; }

private:
    const bool m_32s = m_name.found("_32s");
    int m_fftLen = 0;
};

class TimMelFB32f : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(nFilter, "nFilter", 3, 24, 1, '+');
        dlStep(lenFFT, "lenFFT", 8, 9, 1, '+');
        dlInitAll({&src, &dst}, m_func);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&nFilter, &lenFFT}) || !src.createVector(1 << lenFFT, SET_ZERO, 0, 0) ||
            !dst.createVector(1 << lenFFT, SET_ZERO, 0, 0))
            return false;
        pFBank32f = (VdlFBankState_32f**)vdlsMalloc_8u(sizeof(void*));
        *pFBank32f = 0;
        vdlsMelFBankInitAlloc_32f(pFBank32f, &m_fftLen, (1 << lenFFT) + 2, 16000.0f, 64.0f,
                                  8000.0f, nFilter, 1126.99f, 700.0f, 1);
        return true;
    }
    void flushData() override {
        dlDeleteAll({&src, &dst});
        if (pFBank32f && *pFBank32f) vdlsFBankFree_32f(*pFBank32f);
        vdlsFree(pFBank32f);
        pFBank32f = 0;
    }
    double getDivisor() override { return nFilter << lenFFT; }
    void columns(dlColumns& c) override { c << nFilter << lenFFT; }

private:
    int m_fftLen = 0;
};

DL_REG(TimMelFB16s, vdlsEvalFBank_16s_Sfs, (src, dst, *pFBank16s, scaleFactor.value()));
DL_REG(TimMelFB16s, vdlsEvalFBank_16s32s_Sfs, (src, dst, *pFBank16s, scaleFactor.value()));
