// Fixed-point updates of the gains of a noise-reduction filter, Wiener and
// Ephraim-Malah style, from signal-to-noise ratios in Q22.
#include "dl.h"

DL_MODULE("vdlsr/src/p_kodiak_au");

static dlVector pSrc, pSrc1, pDst;
static kvStepIterator<int> len;

class TimKodiak : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Length", 32, 1024, 2, '*');
        dlInitAll({&pSrc, &pSrc1, &pDst}, m_func);
        return true;
    }
    bool canContinue() override {
        // A priori ratio 1.0 in Q22; a posteriori ratios up to 256.
        return stepOdometer({&len}) && pSrc.createVector(len, SET_VALUE, 4194304.0, 0) &&
               pSrc1.createVector(len, SET_RANDOM, 0.0, 1073741824.0) &&
               pDst.createVector(len, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pSrc1, &pDst}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len; }
};

DL_REG(TimKodiak, vdlsFilterUpdateWiener_32s, (pSrc, pDst, len));
DL_REG(TimKodiak, vdlsFilterUpdateEMNS_32s, (pSrc, pSrc1, pDst, len));
