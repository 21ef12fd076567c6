// Split, distance and merge of two diagonal Gaussians given by their means
// and variances.
#include "dl.h"
#include "dlshifted.h"

DL_MODULE("vdlsr/src/p_mixg_au");

static dlVector pMean1, pVar1, pMean2, pVar2, pMeandst, pVardst, pDst;
static kvStepIterator<int> len;
static float wa = 0.5f;
static float wb = 0.5f;

class TimMixg : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Length", 10, 48, 2, '+');
        dlInitAll({&pMean1, &pVar1, &pMean2, &pVar2, &pMeandst, &pVardst, &pDst}, m_func);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&len})) return false;
        bool made = m_split ? dlCreateAll({&pMean1, &pVar1, &pMean2, &pVar2}, len, SET_ONE)
                            : dlCreateShifted({&pMean1, &pVar1, &pMean2, &pVar2}, len, 0, SET_ONE);
        return made && dlCreateShifted({&pMeandst, &pVardst, &pDst}, len, 4, SET_ZERO);
    }
    void flushData() override {
        dlDeleteAll({&pMean1, &pVar1, &pMean2, &pVar2, &pMeandst, &pVardst, &pDst});
    }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len; }

private:
    const bool m_split = m_name.found("GaussianSplit");
};

DL_REG(TimMixg, vdlsGaussianSplit_32f, (pMean1, pVar1, pMean2, pVar2, len, 0.09f));
DL_REG(TimMixg, vdlsGaussianSplit_64f, (pMean1, pVar1, pMean2, pVar2, len, 0.09));
DL_REG(TimMixg, vdlsGaussianDist_32f, (pMean1, pVar1, pMean2, pVar2, len, pDst, wa, 0.5f, wb, 0.5f));
DL_REG(TimMixg, vdlsGaussianDist_64f, (pMean1, pVar1, pMean2, pVar2, len, pDst, wa, 0.5, wb, 0.5));
DL_REG(TimMixg, vdlsGaussianMerge_32f,
       (pMean1, pVar1, pMean2, pVar2, pMeandst, pVardst, len, pDst, 0.5f, 0.5f));
DL_REG(TimMixg, vdlsGaussianMerge_64f,
       (pMean1, pVar1, pMean2, pVar2, pMeandst, pVardst, len, pDst, 0.5, 0.5));
