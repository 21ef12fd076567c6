// Predictor coefficients to cepstrum and back.
#include "dl.h"
#include "dlfeature.h"

DL_MODULE("vdlsr/src/p_lp2cep_au");

static dlVector pSrc, pDst;
static kvStepIterator<int> len;
static dlScaleIterator scaleFactor;

class TimLp2Cep : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Lenght", 5, 21, 1, '+');
        dlScale(scaleFactor, m_func);
        dlInitAll({&pSrc, &pDst}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&scaleFactor, &len}) && dlCreateAll({&pSrc, &pDst}, len, SET_ZERO);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len << scaleFactor; }
};

DL_REG(TimLp2Cep, vdlsLPToCepstrum_32f, (pSrc, pDst, len));
DL_REG(TimLp2Cep, vdlsLPToCepstrum_16s_Sfs, (pSrc, pDst, len, scaleFactor.value()));
DL_REG(TimLp2Cep, vdlsCepstrumToLP_32f, (pSrc, pDst, len));
DL_REG(TimLp2Cep, vdlsCepstrumToLP_16s_Sfs, (pSrc, pDst, len, scaleFactor.value()));
