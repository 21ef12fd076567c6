// Reflection coefficients to area ratios, log-area ratios and tube areas.
#include "dllp.h"

DL_MODULE("vdlsr/src/p_fc2ar_au");

static dlVector pSrc, pDst;
static kvStepIterator<int> len;
static dlScaleIterator scaleFactor;
static float val = 0.99f;
static int srcShiftVal = 13;

class Tim_fc2ar : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Length", 4, 512, 2, '*');
        dlScale(scaleFactor, m_func, -15);
        dlInitAll({&pSrc, &pDst}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&len, &scaleFactor}) && dlCreateAll({&pSrc, &pDst}, len, SET_ZERO);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len << scaleFactor; }
};

DL_REG(Tim_fc2ar, vdlsReflectionToAR_32f, (pSrc, pDst, len));
DL_REG(Tim_fc2ar, vdlsReflectionToAR_16s_Sfs, (pSrc, srcShiftVal, pDst, len, scaleFactor.value()));
DL_REG(Tim_fc2ar, vdlsReflectionToLAR_32f, (pSrc, pDst, len, val));
DL_REG(Tim_fc2ar, vdlsReflectionToLAR_16s_Sfs,
       (pSrc, srcShiftVal, pDst, len, val, scaleFactor.value()));
DL_REG(Tim_fc2ar, vdlsReflectionToTrueAR_32f, (pSrc, pDst, len));
DL_REG(Tim_fc2ar, vdlsReflectionToTrueAR_16s_Sfs,
       (pSrc, srcShiftVal, pDst, len, scaleFactor.value()));
