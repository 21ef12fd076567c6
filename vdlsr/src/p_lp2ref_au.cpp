// Predictor coefficients to reflection coefficients and back.
#include <cmath>

#include "dllp.h"

DL_MODULE_VDLS("vdlsr/src/p_lp2ref_au");

static dlVector pSrc, pDst, src_float;
static kvStepIterator<int> len;
static dlScaleIterator scaleFactor;

class TimLp2Ref : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Lenght", 2, 13, 1, '+');
        dlScale(scaleFactor, m_func, -14, -13, -12, -11);
        dlInitAll({&pSrc, &pDst}, m_func);
        src_float.init(dlFunc("_32f_"), 1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &len})) return false;
        if (!pSrc.createVector(len, SET_VALUE, 100.0, 0) || !src_float.createVector(len, SET_ZERO, 0, 0))
            return false;
        SetData();
        return pDst.createVector(len, SET_ZERO, 0, 0);
    }
    // A slow sine: small coefficients of a stable filter, in the fixed point
    // of the scale factor for a 16-bit test.
    virtual void SetData() {
        if (m_16s) {
            dlSine(src_float, len, 100.0);
            vdlsConvert_32f16s_Sfs(src_float, pSrc, len, 1, scaleFactor);
        } else {
            dlSine(pSrc, len, 10000.0);
        }
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst, &src_float}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len << scaleFactor; }

private:
    const bool m_16s = m_name.found("_16s");
};

DL_REG(TimLp2Ref, vdlsLPToReflection_32f, (pSrc, pDst, len));
DL_REG(TimLp2Ref, vdlsLPToReflection_16s_Sfs, (pSrc, pDst, len, scaleFactor.value()));
DL_REG(TimLp2Ref, vdlsReflectionToLP_32f, (pSrc, pDst, len));
DL_REG(TimLp2Ref, vdlsReflectionToLP_16s_Sfs, (pSrc, pDst, len, scaleFactor.value()));
