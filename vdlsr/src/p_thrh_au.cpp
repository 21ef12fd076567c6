// Language-model scores floored, weighted and offset.
#include "dl.h"
#include "dlshifted.h"

DL_MODULE("vdlsr/src/p_thrh_au");

static dlVector src, dst;
static kvStepIterator<int> len;
static float lmBase, lmFloor, lmScale;

class TimLMThr : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        lmBase = -8.0f;
        lmFloor = -50.0f;
        lmScale = 13.0f;
        dlStep(len, "Lenght", 10, 48, 2, '+');
        src.init(m_func, 1);
        dst.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&len}) && dlCreateShifted({&src, &dst}, len, 0, SET_ZERO);
    }
    void flushData() override { dlDeleteAll({&src, &dst}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len; }
};

DL_REG(TimLMThr, vdlsScaleLM_32f, (src, dst, len, lmFloor, lmScale, lmBase));
DL_REG(TimLMThr, vdlsScaleLM_16s32s,
       (src, dst, len, (Vdl16s)lmFloor, (Vdl16s)lmScale, (Vdl32s)lmBase));
