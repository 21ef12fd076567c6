// Mixture scores of frames over only the components that a sparse sign
// table marks: about one in n_sign components of a frame is scored.
#include "dl.h"
#include "dlrows.h"
#include "dllogsel.h"

DL_MODULE("vdlsr/src/p_lselect_au");

static dlVector pSrc, pMean, pVar, pVal, pSign, pResult, vec_rand;
static dlrMatrice mSrc, mMean, mVar;
static kvStepIterator<int> width, height, frames;
static kvIterator<double> n_sign;
// Not set up by any test: the nameless 0 that the Scaled forms pass.
static dlrScaleIterator scaleFactor;
static int step;
static float val = 1.0f;

class TimLSelect : public dlRowsTest {
public:
    using dlRowsTest::dlRowsTest;

    bool canStart() override {
        dlStep(width, "Width", 36, 40, 3, '+');
        dlStep(height, "Height", 8, 20, 4, '+');
        dlStep(frames, "Frames", 8, 20, 4, '+');
        dlFixedList(n_sign, "n_sign", {1.0, 2.0, 2.5, 3.3, 5.0});
        dlInitAll({&mSrc, &mMean, &mVar, &pSrc, &pMean, &pVar}, m_func);
        pVal.init(m_func, DL_DST1);
        pResult.init(m_func, DL_DST1);
        pSign.init(dlFunc("_8u_"), 1);
        vec_rand.init(dlFunc("_32s_"), 1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&width, &height, &frames, &n_sign})) return false;
        step = layoutStride(width);
        bool made = createRows(pSrc, mSrc, frames, width, step, dlFillOne) &&
                    createRows(pMean, mMean, height, width, step, dlFillOne) &&
                    createRows(pVar, mVar, height, width, step, dlFillOne) &&
                    pVal.createVector(height, SET_ONE, 0, 0) &&
                    pSign.createVector(frames * height, SET_ZERO, 0, 0) &&
                    pResult.createVector(frames, SET_ZERO, 0, 0) &&
                    vec_rand.createVector(drawCount(), SET_RANDOM, 1.0, height);
        if (made) setDataSign();
        return made;
    }
    virtual void setDataSign() {
        dlPlantSigns(pSign, vec_rand, drawCount(), frames, height, n_sign);
    }
    void flushData() override {
        dlDeleteAll({&pSrc, &pMean, &pVar, &pVal, &pSign, &pResult, &vec_rand},
                    {&mSrc, &mMean, &mVar});
    }
    double getDivisor() override { return (double)height * width * frames; }
    void columns(dlColumns& c) override {
        c << height << width << strideItem("step", step) << frames << n_sign
          << scaleFactor;
    }

private:
    // frames * height / n_sign, the quotient in floating point, truncated.
    static int drawCount() { return (int)(frames * height / n_sign); }
};

DL_REG(TimLSelect, vdlsLogGaussMixture_Select_32f_D2,
       (pSrc, pMean, pVar, step, width, pVal, pSign, height, pResult, frames, val));
DL_REG(TimLSelect, vdlsLogGaussMixture_SelectIdVar_32f_D2,
       (pSrc, pMean, step, width, pVal, pSign, height, pResult, frames, val));
DL_REG(TimLSelect, vdlsLogGaussMixture_SelectScaled_16s32f_D2,
       (pSrc, pMean, pVar, step, width, pVal, pSign, height, pResult, frames, val,
        scaleFactor.value()));
DL_REG(TimLSelect, vdlsLogGaussMixture_SelectIdVarScaled_16s32f_D2,
       (pSrc, pMean, step, width, pVal, pSign, height, pResult, frames, val, scaleFactor.value()));
DL_REG(TimLSelect, vdlsLogGaussMixture_Select_32f_D2L,
       (mSrc, mMean, mVar, width, pVal, pSign, height, pResult, frames, val));
DL_REG(TimLSelect, vdlsLogGaussMixture_SelectIdVar_32f_D2L,
       (mSrc, mMean, width, pVal, pSign, height, pResult, frames, val));
DL_REG(TimLSelect, vdlsLogGaussMixture_SelectScaled_16s32f_D2L,
       (mSrc, mMean, mVar, width, pVal, pSign, height, pResult, frames, val, scaleFactor.value()));
DL_REG(TimLSelect, vdlsLogGaussMixture_SelectIdVarScaled_16s32f_D2L,
       (mSrc, mMean, width, pVal, pSign, height, pResult, frames, val, scaleFactor.value()));
