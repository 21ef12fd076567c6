// Power spectrum of an all-pole model. Its predictor is made by the
// library's own Levinson-Durbin from the lags of a sine.
#include "dllp.h"

DL_MODULE_VDLS("vdlsr/src/p_lp2spectr_au");

static dlVector pSrc, pTmp_Src, pSrc_float, pSrc_short, pDst, pTmp;
static kvStepIterator<int> order;
static dlScaleIterator scaleFactor;
static int len;
static dlLpError pErr;

class TimLp2Spectr : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(order, "Order", 2, 8, 1, '+');
        dlScale(scaleFactor, m_func, 9);
        dlInitAll({&pSrc, &pTmp_Src, &pDst}, m_func);
        pSrc_float.init(dlFunc("_32f_"), 1);
        pSrc_short.init(dlFunc("_16s_"), 1);
        pTmp.init(dlFunc("_32f_"), 1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &order})) return false;
        const int points = 1 << (order + 1);
        len = points - 2;
        if (!dlCreateAll({&pSrc, &pTmp_Src, &pSrc_float, &pSrc_short, &pDst}, points, SET_ZERO)) return false;
        if (!pTmp.createVector(tmpLen, SET_ZERO, 0, 0)) return false;
        setData();
        return true;
    }
    // Lags of 237 samples (those from 237 on are 0), then the predictor of
    // order len; the status of these calls is not looked at.
    virtual void setData() {
        dlSine(pTmp, tmpLen, 100.0);
        dlLags(pTmp, tmpLen, pSrc_float, len);
        if (m_16s) {
            vdlsConvert_32f16s_Sfs(pSrc_float, pSrc_short, len + 1, 1, -7);
            vdlsDurbin_16s_Sfs(pSrc_short, pSrc, len, &pErr.s, -7);
        } else {
            vdlsDurbin_32f(pSrc_float, pSrc, len, &pErr.f);
        }
    }
    void flushData() override {
        dlDeleteAll({&pSrc, &pTmp_Src, &pSrc_float, &pSrc_short, &pDst, &pTmp});
    }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << dlItem("len", len) << scaleFactor; }

private:
    static const int tmpLen = 237;
    const bool m_16s = m_name.found("_16s");
};

DL_REG(TimLp2Spectr, vdlsLPToSpectrum_32f, (pSrc, len, pDst, order, 1.0f));
DL_REG(TimLp2Spectr, vdlsLPToSpectrum_16s_Sfs, (pSrc, len, pDst, order, 16, scaleFactor.value()));
