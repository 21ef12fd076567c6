// Spectral tilt of frames from their first reflection coefficients and
// energies.
#include "dllp.h"

DL_MODULE("vdlsr/src/p_fc2t_au");

static dlVector pSrc1, pSrc2, pDst;
static kvStepIterator<int> len;
static dlScaleIterator scaleFactor;

class Tim_fc2t : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Length", 4, 512, 2, '*');
        dlScale(scaleFactor, m_func, -10);
        dlInitAll({&pSrc1, &pSrc2, &pDst}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&len, &scaleFactor}) &&
               dlCreateAll({&pSrc1, &pSrc2}, len, SET_RANDOM, 10, 30) &&
               pDst.createVector(len, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc1, &pSrc2, &pDst}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len << scaleFactor; }
};

DL_REG(Tim_fc2t, vdlsReflectionToAbsTilt_32f, (pSrc1, pSrc2, pDst, len));
DL_REG(Tim_fc2t, vdlsReflectionToAbsTilt_16s_Sfs, (pSrc1, pSrc2, pDst, len, scaleFactor.value()));
DL_REG(Tim_fc2t, vdlsReflectionToTilt_32f, (pSrc1, pSrc2, pDst, len));
DL_REG(Tim_fc2t, vdlsReflectionToTilt_16s_Sfs, (pSrc1, pSrc2, pDst, len, scaleFactor.value()));
