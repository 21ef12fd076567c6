// Observation probability of a state over a block of frames: the state's
// first mixture component scores all frames, and each further component is
// added in the log domain while its weight is worth it.
#include "dl.h"

DL_MODULE_VDLS("vdlsr/src/p_obvprob_au");

// Log weights of the mixture components.
static const float wgtSet[8] = {-1.1512924f, -1.1512924f, 0, 0, 0, 0, 0, 0};
// Components lighter than this add nothing measurable to the sum.
static const float minWeight = -2.0474458f;
// The score of a state that has no frame to score.
static const float emptyScore = -4500000.0f;

static float Weight(int component) { return wgtSet[component]; }

// The log probability of each of `frames` frames (rows of `step` elements)
// under the state whose components lie in pMean and pVar, with the
// constants of the components in pVal; the last argument is not read.
static VdlStatus ObvProbVec_32f_D2et(const Vdl32f* pSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                                     int step, int width, const Vdl32f* pVal,
                                     [[maybe_unused]] int height, Vdl32f* pResult, int frames,
                                     int) {
    if (frames > 1) {
        float weight = Weight(0);
        vdlsLogGauss_32f_D2(pSrc, step, pMean, pVar, width, pResult, frames, pVal[0]);
        for (int i = 1; i < frames; ++i)
            if (weight >= minWeight)
                vdlsLogGaussAdd_32f_D2(pSrc, step, pMean, pVar, width, pResult, frames, pVal[i]);
    } else if (frames == 0) {
        vdlsSet_32f(emptyScore, pResult, 0);
    } else if (frames == 1) {
        vdlsLogGauss_32f_D2(pSrc, step, pMean, pVar, width, pResult, frames, pVal[0]);
    }
    return 0;
}

static dlVector pSrc, pMean, pVar, pVal, pResult;
static kvStepIterator<int> width, height, frames, SListShift;
static dlScaleIterator scaleFactor;
static int step;

class TimObvProb : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(width, "Width", 30, 40, 3, '+');
        dlStep(height, "Height", 12, 13, 2, '+');
        dlStep(frames, "Frames", 8, 16, 2, '+');
        dlStep(SListShift, "SListShift", 0, 1, 1, '+');
        dlScale(scaleFactor, m_func);
        dlInitAll({&pSrc, &pMean, &pVar, &pVal, &pResult}, m_func);
        return true;
    }
    bool canContinue() override {
        if (!stepGrid()) return false;
        step = roundedStride(width);
        return pSrc.createVector(dlProduct(frames, step), SET_VALUE, 1.0, 0) &&
               pMean.createVector(dlProduct(height, step), SET_VALUE, 1.0, 0) &&
               pVar.createVector(dlProduct(height, step), SET_VALUE, 1.0, 0) &&
               pVal.createVector(frames, SET_VALUE, 1.0, 0) &&
               pResult.createVector(frames, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pMean, &pVar, &pVal, &pResult}); }
    double getDivisor() override { return height * width * frames; }
    void columns(dlColumns& c) override {
        c << height << width << dlItem("step", step) << frames << SListShift << scaleFactor;
    }

private:
    // The odometer width, height, frames, SListShift, fastest first; beyond
    // a shift of 2 the frame count stands still, at a value above 11.
    bool stepGrid() {
        int shift = SListShift.value();
        bool moved = m_firstSet || shift <= 2
                         ? stepOdometer({&width, &height, &frames, &SListShift})
                         : stepOdometer({&width, &height, &SListShift});
        if (!moved) return false;
        if (!m_firstSet && SListShift.value() != shift && SListShift.value() >= 3)
            while (frames.value() <= 11 && frames.nextValue()) {
            }
        return true;
    }
};

DL_REG(TimObvProb, ObvProbVec_32f_D2et,
       (pSrc, pMean, pVar, step, width, pVal, height, pResult, frames, SListShift));
