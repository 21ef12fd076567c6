// DC offset compensation of a frame. The _I forms overwrite their data on
// every call and are timed as plain tests: nothing restores the input.
#include "dl.h"
#include "dlfeature.h"

DL_MODULE("vdlsr/src/p_ofsc_au");

static dlVector pSrc, pDst, pSrcDst, srcValues;
static kvStepIterator<int> len;
static Vdl16s dst0_s = 0;
static Vdl32f dst0_f = 0;

class TimOfsc : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Lenght", 30, 48, 2, '+');
        dlInitAll({&pSrc, &pDst, &pSrcDst, &srcValues}, m_func);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&len}) || !srcValues.createVector(1, SET_ZERO, 0, 0)) return false;
        return m_inPlace ? pSrcDst.createVector(len, SET_ZERO, 0, 0)
                         : dlCreateAll({&pSrc, &pDst}, len, SET_ZERO);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst, &pSrcDst, &srcValues}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len; }

private:
    const bool m_inPlace = m_name.found("_I");
};

DL_REG(TimOfsc, vdlsCompensateOffset_16s, (pSrc, pDst, len, srcValues, dst0_s, 1.0f));
DL_REG(TimOfsc, vdlsCompensateOffset_32f, (pSrc, pDst, len, srcValues, dst0_f, 1.0f));
DL_REG(TimOfsc, vdlsCompensateOffset_16s_I, (pSrcDst, len, srcValues, dst0_s, 1.0f));
DL_REG(TimOfsc, vdlsCompensateOffset_32f_I, (pSrcDst, len, srcValues, dst0_f, 1.0f));
DL_REG(TimOfsc, vdlsCompensateOffsetQ15_16s, (pSrc, pDst, len, srcValues, dst0_s, 32767));
DL_REG(TimOfsc, vdlsCompensateOffsetQ15_16s_I, (pSrcDst, len, srcValues, dst0_s, 32767));
