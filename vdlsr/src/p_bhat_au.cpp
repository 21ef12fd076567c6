// Bhattacharyya distance of two diagonal Gaussians.
#include "dl.h"
#include "dlshifted.h"

DL_MODULE("vdlsr/src/p_bhat_au");

static dlVector pSrcMean1, pSrcVar1, pSrcMean2, pSrcVar2;
static kvStepIterator<int> len;

// The one distance of a call, of the function's result type.
static struct {
    Vdl32f f32;
    Vdl64f f64;
    operator Vdl32f*() { return &f32; }
    operator Vdl64f*() { return &f64; }
} pResult;

class TimBhatDist : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Lenght", 32, 40, 2, '+');
        dlInitAll({&pSrcMean1, &pSrcVar1, &pSrcMean2, &pSrcVar2}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&len}) &&
               dlCreateShifted({&pSrcMean1, &pSrcVar1, &pSrcMean2, &pSrcVar2}, len, 0, SET_ONE);
    }
    void flushData() override { dlDeleteAll({&pSrcMean1, &pSrcVar1, &pSrcMean2, &pSrcVar2}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len; }
};

DL_REG(TimBhatDist, vdlsBhatDist_32f, (pSrcMean1, pSrcVar1, pSrcMean2, pSrcVar2, len, pResult));
DL_REG(TimBhatDist, vdlsBhatDist_32f64f, (pSrcMean1, pSrcVar1, pSrcMean2, pSrcVar2, len, pResult));
DL_REG(TimBhatDist, vdlsBhatDistSLog_32f,
       (pSrcMean1, pSrcVar1, pSrcMean2, pSrcVar2, len, pResult, 100.0f, 150.0f));
DL_REG(TimBhatDist, vdlsBhatDistSLog_32f64f,
       (pSrcMean1, pSrcVar1, pSrcMean2, pSrcVar2, len, pResult, 100.0f, 150.0f));
