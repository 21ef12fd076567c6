// Codebooks: building one from training vectors (each timed call builds and
// frees), and the codewords near one vector of a codebook built before the
// timed call, within a threshold or the N nearest.
#include "dlcdbk.h"

DL_MODULE("vdlsr/src/p_cdbk_au");

static dlVector pSrc, pWgt, pIndx, pDist;
static VdlsCdbkState_16s* pCdbk_16s;
static VdlsCdbkState_32f* pCdbk_32f;
static int num;
static kvStepIterator<int> height, height_int, step;
static kvStepIterator<float> height_flt;
static dlScaleIterator scaleFactor;
static kvMapIterator<int> hint;
static int nClust;
static int Num;

class TimCdbk : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        m_status = 0;
        Num = 1;
        dlStep(height, "Hength", 50, 250, 2, '*');
        dlStep(step, "Step", 1, 10, 2, '*');
        if (m_thresh) {
            dlOne(height_int);
            dlStep(height_flt, "height_flt", 1.5f, 2.5f, 1.5f, '*');
        } else if (m_sort) {
            dlStep(height_int, "height_int", 3, 10, 2, '*');
            dlOne(height_flt);
        } else {
            dlOne(height_int);
            dlOne(height_flt);
        }
        dlScale(scaleFactor, m_func);
        dlCdbkHint(hint, {vdlCdbkHintFull, vdlCdbkHintKmeansLong, vdlCdbkHintKmeansNum});
        dlInitAll({&pSrc, &pWgt}, m_func);
        pIndx.init(dlFunc("_32s_"), 1);
        pDist.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&hint, &scaleFactor, &step, &height, &height_int, &height_flt}))
            return false;
        nClust = dlClusterCount(hint, height);
        if (m_wgt && !pWgt.createVector(step, SET_VALUE, 1.0, 0)) return false;
        if (!pSrc.createVector(height * step, SET_RANDOM, -height, height) ||
            !pDist.createVector(height, SET_ZERO, 0, 0))
            return false;
        if (!m_single) return true;
        return pIndx.createVector(height, SET_ZERO, 0, 0) && SetData();
    }
    // The codebook that the timed lookups search.
    virtual bool SetData() {
        *handle() = 0;  // a creation test leaves the handle of a freed codebook
        m_status = dlCdbkCreate(m_f32, handle(), pSrc, 0, step, height, nClust, hint);
        if (m_status == vdlStsNoErr) return true;
        dlError("\n Error in create codebook code\n");
        return false;
    }
    void flushData() override {
        dlDeleteAll({&pSrc, &pWgt, &pIndx, &pDist});
        if (m_single) dlCdbkFree(m_f32, handle());
    }
    double getDivisor() override { return (double)height * height_int * Num; }
    void columns(dlColumns& c) override {
        c << step << height;
        if (m_thresh) c << height_flt;
        else c << height_int;
        c << hint << scaleFactor;
    }

private:
    void** handle() { return m_f32 ? (void**)&pCdbk_32f : (void**)&pCdbk_16s; }

    const bool m_wgt = m_name.found("_WgtL2");
    const bool m_single = m_name.found("Single");
    const bool m_thresh = m_name.found("Thresh");
    const bool m_sort = m_name.found("Sort");
    const bool m_f32 = !m_name.found("16s");
    int m_status = 0;
};

// The creation tests time a build and its release: no codebook outlives a call.
#define CDBK_PERF(Form, Type, ...)                                                         \
    static VdlStatus vdlsCdbkInitAlloc_##Form##_##Type##_perf(VdlsCdbkState_##Type** pp,   \
                                                              __VA_ARGS__) {               \
        VdlStatus status = vdlsCdbkInitAlloc_##Form##_##Type(pp, CDBK_ARGS_##Form);         \
        if (status != vdlStsNoErr) return status;                                          \
        return vdlsCdbkFree_##Type(*pp);                                                   \
    }
#define CDBK_ARGS_L2 src, width, step, rows, n, h
#define CDBK_ARGS_WgtL2 src, wgt, width, step, rows, n, h

CDBK_PERF(L2, 16s, const Vdl16s* src, int width, int step, int rows, int n, Vdl_Cdbk_Hint h)
CDBK_PERF(WgtL2, 16s, const Vdl16s* src, const Vdl16s* wgt, int width, int step, int rows, int n,
          Vdl_Cdbk_Hint h)
CDBK_PERF(L2, 32f, const Vdl32f* src, int width, int step, int rows, int n, Vdl_Cdbk_Hint h)
CDBK_PERF(WgtL2, 32f, const Vdl32f* src, const Vdl32f* wgt, int width, int step, int rows, int n,
          Vdl_Cdbk_Hint h)

#define HINT ((Vdl_Cdbk_Hint)hint.value())

DL_REG(TimCdbk, vdlsCdbkInitAlloc_L2_16s_perf, (&pCdbk_16s, pSrc, step, step, height, nClust, HINT));
DL_REG(TimCdbk, vdlsCdbkInitAlloc_WgtL2_16s_perf,
       (&pCdbk_16s, pSrc, pWgt, step, step, height, nClust, HINT));
DL_REG(TimCdbk, vdlsCdbkInitAlloc_L2_32f_perf, (&pCdbk_32f, pSrc, step, step, height, nClust, HINT));
DL_REG(TimCdbk, vdlsCdbkInitAlloc_WgtL2_32f_perf,
       (&pCdbk_32f, pSrc, pWgt, step, step, height, nClust, HINT));
DL_REG(TimCdbk, vdlsVQSingle_Thresh_16s, (pSrc, pIndx, pCdbk_16s, height_flt.value(), &num));
DL_REG(TimCdbk, vdlsVQSingle_Thresh_32f, (pSrc, pIndx, pCdbk_32f, height_flt.value(), &num));
DL_REG(TimCdbk, vdlsVQDistSingle_Thresh_16s32s_Sfs,
       (pSrc, pIndx, pDist, pCdbk_16s, height_flt.value(), &num, scaleFactor.value()));
DL_REG(TimCdbk, vdlsVQDistSingle_Thresh_32f,
       (pSrc, pIndx, pDist, pCdbk_32f, height_flt.value(), &num));
DL_REG(TimCdbk, vdlsVQSingle_Sort_16s, (pSrc, pIndx, pCdbk_16s, height_int.value()));
DL_REG(TimCdbk, vdlsVQSingle_Sort_32f, (pSrc, pIndx, pCdbk_32f, height_int.value()));
DL_REG(TimCdbk, vdlsVQDistSingle_Sort_16s32s_Sfs,
       (pSrc, pIndx, pDist, pCdbk_16s, height_int.value(), scaleFactor.value()));
DL_REG(TimCdbk, vdlsVQDistSingle_Sort_32f, (pSrc, pIndx, pDist, pCdbk_32f, height_int.value()));
