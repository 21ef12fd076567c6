// F0 candidates from pitch marks 1, 2, 3 ...
#include "dl.h"
#include "dlfeature.h"

DL_MODULE("vdlsr/src/p_pm2f0_au");

static dlVector pSrc, pDst;
static kvStepIterator<int> len;
static dlScaleIterator scaleFactor;

class Tim_pm2f0 : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Length", 4, 512, 2, '*');
        dlScale(scaleFactor, m_func, -24);
        dlInitAll({&pSrc, &pDst}, m_func);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&len, &scaleFactor}) || !dlCreateAll({&pSrc, &pDst}, len, SET_ZERO))
            return false;
        setData();
        return true;
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len << scaleFactor; }

protected:
    // Marks one apart, in the element type of the source.
    virtual void setData() {
        for (int i = 0; i < len; ++i) pSrc.setIndex(i, SET_VALUE, i + 1, 0);
    }
};

DL_REG(Tim_pm2f0, vdlsPitchmarkToF0Cand_32f, (pSrc, pDst, len));
DL_REG(Tim_pm2f0, vdlsPitchmarkToF0Cand_16s_Sfs, (pSrc, pDst, len, scaleFactor.value()));
