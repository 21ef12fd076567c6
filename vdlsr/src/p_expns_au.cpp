// exp(-x^2) of a vector, into another vector or in place.
#include "dl.h"
#include "dllogsel.h"
#include "dlshifted.h"

DL_MODULE("vdlsr/src/p_expns_au");

static dlVector pSrc, pDst, pSrcDst, pTmp;
static kvStepIterator<int> len;
static int dataSize;

class Tim_Expns : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Length", 10, 48, 2, '+');
        pSrc.init(m_func, 1);
        pDst.init(m_func, DL_DST1);
        pSrcDst.init(m_func, 1);
        pTmp.init(m_func, 1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&len})) return false;
        dataSize = len * dlVector::item(m_func);
        return dlCreateShifted({&pSrc}, len, 0, SET_ONE) &&
               dlCreateShifted({&pDst, &pSrcDst}, len, 1, SET_ZERO) &&
               dlCreateShifted({&pTmp}, len, 3, SET_ONE);
    }
    void flushData() override {
        for (dlVector* v : {&pSrc, &pDst, &pSrcDst, &pTmp}) v->deleteVector();
    }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len; }
};

DL_REG(Tim_Expns, vdlsExpNegSqr_32f, (pSrc, pDst, len));
DL_REG(Tim_Expns, vdlsExpNegSqr_32f64f, (pSrc, pDst, len));
DL_REG(Tim_Expns, vdlsExpNegSqr_64f, (pSrc, pDst, len));
DL_REG_I(Tim_Expns, vdlsExpNegSqr_32f_I, (pSrcDst, len), dlRestore(pSrcDst, pTmp, dataSize));
DL_REG_I(Tim_Expns, vdlsExpNegSqr_64f_I, (pSrcDst, len), dlRestore(pSrcDst, pTmp, dataSize));
