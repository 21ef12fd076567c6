// Line spectral pairs to predictor coefficients, from random cosines sorted
// into descending order.
#include "dllp.h"

DL_MODULE_VDLS("vdlsr/src/p_lsp2lpc_au");

static dlVector LSPSrc, pDst;
static kvStepIterator<int> length;
static int scale = 12;

class TimLsp2Lp : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(length, "Length", 4, 19, 1, '+');
        dlInitAll({&LSPSrc, &pDst}, m_func);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&length})) return false;
        if (!LSPSrc.createVector(length, SET_ZERO, 0, 0) || !pDst.createVector(length, SET_ZERO, 0, 0))
            return false;
        setData();
        return true;
    }
    virtual void setData() {
        unsigned int seed = 77;
        if (m_16s) {
            vdlsRandUniform_Direct_16s(LSPSrc, length, -1023, 1023, &seed);
            SortVector((dl16s*)LSPSrc, 0, length - 1);
        } else {
            vdlsRandUniform_Direct_32f(LSPSrc, length, -0.99f, 0.99f, &seed);
            SortVector((dl32f*)LSPSrc, 0, length - 1);
        }
    }
    void flushData() override { dlDeleteAll({&LSPSrc, &pDst}); }
    double getDivisor() override { return length; }
    void columns(dlColumns& c) override { c << length << dlItem("scale", scale); }

private:
    const bool m_16s = m_name.found("_16s");
};

DL_REG(TimLsp2Lp, vdlsLSPToLP_32f, (LSPSrc, pDst, length));
DL_REG(TimLsp2Lp, vdlsLSPToLP_16s_Sfs, (LSPSrc, scale, pDst, length, -scale));
