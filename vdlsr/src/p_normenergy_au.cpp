// Normalisation of the log energies of an utterance, whole and running. The
// data are updated in place and not restored: every call normalises again.
#include "dl.h"
#include "dlfeature.h"

DL_MODULE("vdlsr/src/p_normenergy_au");

static dlVector pSrcDst;
static kvStepIterator<int> rows, step;
static dlScaleIterator scaleFactor;

class TimNormEnergy : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(rows, "Rows", 50, 500, 50, '+');
        dlStep(step, "Step", 11, 20, 1, '+');
        dlScale(scaleFactor, m_func);
        pSrcDst.init(m_func, 1);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&scaleFactor, &step, &rows}) &&
               pSrcDst.createVector(rows * step, SET_ZERO, 0, 0);
    }
    void flushData() override { pSrcDst.deleteVector(); }
    double getDivisor() override { return rows; }
    void columns(dlColumns& c) override { c << step << rows << scaleFactor; }
};

DL_REG(TimNormEnergy, vdlsNormEnergy_32f, (pSrcDst, step, rows, 1.0f, 1.0f));
DL_REG(TimNormEnergy, vdlsNormEnergy_16s, (pSrcDst, step, rows, 1, 1, 1.0f));
DL_REG(TimNormEnergy, vdlsNormEnergy_RT_32f, (pSrcDst, step, rows, 1.0f, 1.0f, 1.0f));
DL_REG(TimNormEnergy, vdlsNormEnergy_RT_16s, (pSrcDst, step, rows, 1, 16, 1, 1.0f));
