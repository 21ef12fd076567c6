// Aurora smoothed power spectrum: len values of spectrum in, len / 4 + 1 out.
#include "dl.h"

DL_MODULE("vdlsr/src/p_smoot_ml");

static dlVector pSrc, pDst;
static kvStepIterator<int> len;

class TimSmoot : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "len", 32, 512, 32, '+');
        pSrc.init(m_func, 1);
        pDst.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&len}) && pSrc.createVector(len, SET_ZERO, 0, 0) &&
               pDst.createVector(len / 4 + 1, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len; }
};

DL_REG(TimSmoot, vdlsSmoothedPowerSpectrumAurora_32f, (pSrc, pDst, len));
DL_REG(TimSmoot, vdlsSmoothedPowerSpectrumAurora_32s_Sfs, (pSrc, pDst, len, 10));
DL_REG(TimSmoot, vdlsSmoothedPowerSpectrumAurora_32s64s_Sfs, (pSrc, pDst, len, 10));
DL_REG(TimSmoot, vdlsSmoothedPowerSpectrumAurora_16s, (pSrc, pDst, len));
