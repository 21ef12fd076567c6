// exp(-x^2) of a vector, into another vector or in place.
#include "dl.h"
#include "dlinplace.h"
#include "dlshifted.h"

DL_MODULE("vdlsr/src/p_expns_au");

static dlVector pSrc, pDst, pSrcDst, pTmp;
static kvStepIterator<int> len;
static dlInPlace inPlace(pSrcDst, pTmp);

class Tim_Expns : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Length", 10, 48, 2, '+');
        pSrc.init(m_func, 1);
        pDst.init(m_func, DL_DST1);
        dlInitAll({&pSrcDst, &pTmp}, m_func);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&len})) return false;
        inPlace.cover(len);
        return dlCreateShifted({&pSrc}, len, 0, SET_ONE) &&
               dlCreateShifted({&pDst, &pSrcDst}, len, 1, SET_ZERO) &&
               dlCreateShifted({&pTmp}, len, 3, SET_ONE);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst, &pSrcDst, &pTmp}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len; }
};

DL_REG(Tim_Expns, vdlsExpNegSqr_32f, (pSrc, pDst, len));
DL_REG(Tim_Expns, vdlsExpNegSqr_32f64f, (pSrc, pDst, len));
DL_REG(Tim_Expns, vdlsExpNegSqr_64f, (pSrc, pDst, len));
DL_REG_I(Tim_Expns, vdlsExpNegSqr_32f_I, (pSrcDst, len), inPlace.restore());
DL_REG_I(Tim_Expns, vdlsExpNegSqr_64f_I, (pSrcDst, len), inPlace.restore());
