// The DCT of filter-bank log energies to liftered cepstra, through a state
// made for each parameter set: float in TimLifter32, integer in TimLifter16.
#include "dl.h"
#include "dlfeature.h"

DL_MODULE("vdlsr/src/p_lifter_au");

static dlVector src, dst;
static kvStepIterator<int> nChannel, nLifter, nMFCC;
static dlScaleIterator scaleFactor;
static VdlDCTLifterState_32f* pState32f;
static VdlDCTLifterState_16s* pState16s;

// What both classes share; each makes and frees its own state.
class TimLifter : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(nChannel, "nChannel", 23, 24, 1, '+');
        dlStep(nLifter, "nLifter", 20, 22, 1, '+');
        dlStep(nMFCC, "nMFCC", 10, 12, 1, '+');
        dlScale(scaleFactor, m_func);
        src.init(m_func, 1);
        dst.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &nChannel, &nLifter, &nMFCC}) ||
            !src.createVector(nChannel, -1) || !dst.createVector(nLifter, SET_ZERO, 0, 0))
            return false;
        makeState();
        return true;
    }
    void flushData() override {
        freeState();
        dlDeleteAll({&src, &dst});
    }
    double getDivisor() override { return nMFCC * nChannel; }
    void columns(dlColumns& c) override { c << nChannel << nLifter << nMFCC << scaleFactor; }

protected:
    virtual void makeState() = 0;
    virtual void freeState() = 0;
};

class TimLifter32 : public TimLifter {
public:
    using TimLifter::TimLifter;

protected:
    void makeState() override { vdlsDCTLifterInitAlloc_32f(&pState32f, nChannel, nMFCC, nLifter, 1.0f); }
    void freeState() override {
        if (pState32f) vdlsDCTLifterFree_32f(pState32f);
        pState32f = 0;
    }
};

class TimLifter16 : public TimLifter {
public:
    using TimLifter::TimLifter;

protected:
    void makeState() override { vdlsDCTLifterInitAlloc_16s(&pState16s, nChannel, nMFCC, nLifter, 1.0f); }
    void freeState() override {
        if (pState16s) vdlsDCTLifterFree_16s(pState16s);
        pState16s = 0;
    }
};

DL_REG(TimLifter32, vdlsDCTLifter_32f, (src, dst, pState32f));
DL_REG(TimLifter16, vdlsDCTLifter_16s_Sfs, (src, dst, pState16s, scaleFactor.value()));
DL_REG(TimLifter16, vdlsDCTLifter_32s16s_Sfs, (src, dst, pState16s, scaleFactor.value()));
