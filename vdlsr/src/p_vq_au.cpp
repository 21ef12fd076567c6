// Vector quantisation of many vectors: the nearest codeword of each, and
// its distance, against a codebook built before the timed call.
#include "dlcdbk.h"

DL_MODULE("vdlsr/src/p_vq_au");

static dlVector pSrc, pWgt, pIndx, pDist;
static VdlsCdbkState_16s* pCdbk_16s;
static VdlsCdbkState_32f* pCdbk_32f;
static kvStepIterator<int> step, height;
static dlScaleIterator scaleFactor;
static kvMapIterator<int> hint, Wgt;
static int nClust;

class TimVQ : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(step, "step", 1, 10, 2, '*');
        dlStep(height, "height", 25, 650, 2, '*');
        dlScale(scaleFactor, m_func);
        dlCdbkHint(hint, {vdlCdbkHintFull, vdlCdbkHintKmeansLong, vdlCdbkHintKmeansNum});
        dlMapList(Wgt, "Parm4", {{0, "WithoutWgt"}, {1, "Wgt"}}, {1, 0});
        dlInitAll({&pSrc, &pWgt}, m_func);
        pIndx.init(dlFunc("_32s_"), 1);
        pDist.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&hint, &scaleFactor, &step, &height, &Wgt})) return false;
        nClust = dlClusterCount(hint, height);
        if (!pWgt.createVector(step, SET_VALUE, 1.0, 0) ||
            !pSrc.createVector(height * step, SET_RANDOM, -height, height) ||
            !pIndx.createVector(height, SET_ZERO, 0, 0) ||
            (m_dist && !pDist.createVector(height, SET_ZERO, 0, 0)))
            return false;
        if (dlCdbkCreate(!m_16s, handle(), pSrc, Wgt == 1 ? &pWgt : 0, step, height, nClust,
                         hint) == vdlStsNoErr)
            return true;
        dlError(m_16s ? "\n Error in create codebook 16bit code\n"
                      : "\n Error in create codebook 32bit code\n");
        return false;
    }
    void flushData() override {
        dlDeleteAll({&pSrc, &pWgt, &pIndx, &pDist});
        dlCdbkFree(!m_16s, handle());
    }
    double getDivisor() override { return height; }
    void columns(dlColumns& c) override { c << step << height << hint << Wgt << scaleFactor; }

private:
    void** handle() { return m_16s ? (void**)&pCdbk_16s : (void**)&pCdbk_32f; }

    const bool m_16s = m_name.found("_16s");
    const bool m_dist = m_name.found("Dist");
};

DL_REG(TimVQ, vdlsVQ_32f, (pSrc, step, pIndx, height, pCdbk_32f));
DL_REG(TimVQ, vdlsVQ_16s, (pSrc, step, pIndx, height, pCdbk_16s));
DL_REG(TimVQ, vdlsVQDist_32f, (pSrc, step, pIndx, pDist, height, pCdbk_32f));
DL_REG(TimVQ, vdlsVQDist_16s32s_Sfs,
       (pSrc, step, pIndx, pDist, height, pCdbk_16s, scaleFactor.value()));
