// Normalised sinc of a vector; the _I tests work in place on a copy of the
// input.
#include "dl.h"
#include "dlfeature.h"

DL_MODULE_VDLS("vdlsr/src/p_sinc_au");

static dlVector pSrc, pTmp, pDst, pSrcDst;
static kvStepIterator<int> len;
static dlInPlace inPlace(pSrcDst, pTmp);

class Tim_Sinc : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Length", 10, 48, 2, '+');
        dlInitAll({&pSrc, &pTmp, &pSrcDst}, m_func);
        pDst.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&len}) && dlCreateAll({&pSrc, &pTmp}, len, SET_RANDOM, -10, 10) &&
               pDst.createVector(len, SET_ZERO, 0, 0) && inPlace.create(len);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pTmp, &pDst, &pSrcDst}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len; }
};

DL_REG(Tim_Sinc, vdlsSinC_32f, (pSrc, pDst, len));
DL_REG(Tim_Sinc, vdlsSinC_32f64f, (pSrc, pDst, len));
DL_REG(Tim_Sinc, vdlsSinC_64f, (pSrc, pDst, len));
DL_REG_I(Tim_Sinc, vdlsSinC_32f_I, (pSrcDst, len), inPlace.restore());
DL_REG_I(Tim_Sinc, vdlsSinC_64f_I, (pSrcDst, len), inPlace.restore());
