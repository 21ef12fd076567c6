// Aurora high-band coding of three high-band energies against the low
// band's spectra of 65 and 129 bins. No parameter of its own is shown.
#include "dl.h"
#include "dlfeature.h"

DL_MODULE("vdlsr/src/p_hbcod_au");

static dlVector pSrcHFB, pInSWP, pDSWP, pDstHFB;
static kvStepIterator<int> len;

class TimHbcod : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "", 3, 3, 1, '+');
        dlInitAll({&pSrcHFB, &pInSWP, &pDSWP, &pDstHFB}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&len}) && pSrcHFB.createVector(len, SET_VALUE, 10.0, 0) &&
               pInSWP.createVector(65, SET_VALUE, 10.0, 0) &&
               pDSWP.createVector(129, SET_VALUE, 10.0, 0) && pDstHFB.createVector(len, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrcHFB, &pInSWP, &pDSWP, &pDstHFB}); }
    double getDivisor() override { return 129 * len; }
};

DL_REG(TimHbcod, vdlsHighBandCoding_Aurora_32f, (pSrcHFB, pInSWP, pDSWP, pDstHFB));
DL_REG(TimHbcod, vdlsHighBandCoding_Aurora_32s_Sfs, (pSrcHFB, pInSWP, pDSWP, pDstHFB, -5));
