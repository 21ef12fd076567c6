// Normalised cross-correlation of 16-bit signals: the whole coefficient, a
// partial one, one with the peak interpolated, and a decimated search over
// lags.
#include "dl.h"

DL_MODULE("vdlsr/src/p_cross_ml");

static dlVector pSrc1, pSrc2, pDst, pDstBeta;
static kvStepIterator<int> Len, minLen, maxLen, ItDec;

class TimCross : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(Len, "Len", 50, 400, 20, '+');
        dlStep(minLen, "minLen", 100, 150, 10, '+');
        dlStep(maxLen, "maxLen", 150, 200, 10, '+');
        dlStep(ItDec, "ItDec", 1, 4, 3, '+');
        dlInitAll({&pSrc1, &pSrc2}, m_func);
        pDst.init(m_func, DL_DST1);
        pDstBeta.init(m_func, DL_DST1);
        return true;
    }
    // Every test asks for all four, but only the search walks the lag
    // parameters; the other tests leave them at the 0 of their reset.
    bool canContinue() override {
        if (m_decim ? !stepOdometer({&Len, &maxLen, &minLen, &ItDec}) : !stepOdometer({&Len}))
            return false;
        // The search's output count divides by the decimation step.
        if (m_decim && ItDec < 1) {
            dlError("-- ItDec must be 1 or more\n");
            return false;
        }
        return dlCreateAll({&pSrc1, &pSrc2}, maxLen + Len, SET_RANDOM) &&
               pDst.createVector(m_decim ? (maxLen - minLen) / ItDec + 2 : 1, SET_ZERO, 0, 0) &&
               pDstBeta.createVector(1, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc1, &pSrc2, &pDst, &pDstBeta}); }
    double getDivisor() override { return Len; }
    void columns(dlColumns& c) override {
        c << Len;
        if (m_decim) c << maxLen << minLen << ItDec;
    }

private:
    const bool m_decim = m_name.found("Decim");
};

DL_REG(TimCross, vdlsCrossCorrCoeffDecim_16s32f, (pSrc1, pSrc2, maxLen, minLen, pDst, ItDec));
DL_REG(TimCross, vdlsCrossCorrCoeff_16s32f, (pSrc1, pSrc2, Len, pDst));
DL_REG(TimCross, vdlsCrossCorrCoeffInterpolation_16s32f, (pSrc1, pSrc2, Len, pDstBeta, pDst));
DL_REG(TimCross, vdlsCrossCorrCoeffPartial_16s32f, (pSrc1, pSrc2, Len, 10.0f, pDst));
