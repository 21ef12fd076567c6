// Aurora blind equalisation of cepstra against a running bias.
#include "dl.h"
#include "dlfeature.h"

DL_MODULE("vdlsr/src/p_blind_ml");

static dlVector pSrc, pDst, pBias;
static kvStepIterator<int> len;

class TimBlind : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "len", 32, 512, 32, '+');
        dlInitAll({&pSrc, &pDst, &pBias}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&len}) && dlCreateAll({&pSrc, &pDst}, len, SET_ZERO) &&
               pBias.createVector(len, SET_ONE, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst, &pBias}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len; }
};

DL_REG(TimBlind, vdlsBlindEqualization_Aurora_32f, (pSrc, pDst, pBias, len, 1.0f));
DL_REG(TimBlind, vdlsBlindEqualization_Aurora_16s, (pSrc, pDst, pBias, len, 1));
