// Noise reduction of the advanced front end: the Wiener filter of a frame's
// spectrum and the update of the noise spectrum.
#include "dl.h"
#include "dlshifted.h"

DL_MODULE("vdlsr/src/p_wiener_ml");

static dlVector pSrc, pNoise, pDen, pDst;
static kvStepIterator<int> len;

class TimWiener : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "len", 60, 70, 1, '+');
        dlInitAll({&pSrc, &pNoise, &pDen}, m_func);
        pDst.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&len}) && dlCreateAll({&pSrc, &pDen}, len, SET_RANDOM) &&
               pNoise.createVector(len, SET_ONE, 0, 0) && dlCreateShifted({&pDst}, len, 2, SET_ZERO);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pNoise, &pDen, &pDst}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len; }
};

DL_REG(TimWiener, vdlsWienerFilterDesign_Aurora_32f, (pSrc, pNoise, pDen, pDst, len));
DL_REG(TimWiener, vdlsWienerFilterDesign_Aurora_16s, (pSrc, pNoise, pDen, pDst, len));
DL_REG(TimWiener, vdlsNoiseSpectrumUpdate_Aurora_32f, (pSrc, pNoise, pDst, len));
DL_REG(TimWiener, vdlsNoiseSpectrumUpdate_Aurora_16s_Sfs, (pSrc, pNoise, pDst, len, 0));
DL_REG(TimWiener, vdlsNoiseSpectrumUpdate_Aurora_32s_Sfs, (pSrc, pNoise, pDst, len, 0));
