// The N-th largest element of a vector, with one value above all others
// planted at its beginning, its end or its middle.
#include <cstdlib>

#include "dl.h"
#include "dllogsel.h"

DL_MODULE("vdlsr/src/p_nbest_au");

static dlVector pSrc;
static kvStepIterator<int> len, NN;
static kvMapIterator<int> BeginEndMid;
static int N;
// The result, wide enough for each element type.
static union {
    dl32s s32;
    dl32f f32;
    dl64f f64;
} pResult;

class TimNBest : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        srand(100);
        dlStep(len, "len", 32, 1024, 2, '*');
        dlStep(NN, "NN", 1, 16, 4, '*');
        dlMapList(BeginEndMid, "BeginEndMid",
                  {{DL_PLACE_BEGIN, "Begin"}, {DL_PLACE_END, "End"}, {DL_PLACE_MIDDLE, "Middle"}});
        pSrc.init(m_func, 1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&NN, &len, &BeginEndMid}) ||
            !pSrc.createVector(len, SET_RANDOM, 0.0, 1000.0))
            return false;
        // The rank asked for grows with the length.
        N = (len / 32) * NN;
        setData();
        return true;
    }
    // The one value 1001, in the element type.
    virtual void setData() { pSrc.setIndex(dlPlaceIndex(BeginEndMid, len), SET_VALUE, 1001.0, 0); }
    void flushData() override { pSrc.deleteVector(); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len << dlItem("N", N) << BeginEndMid; }
};

DL_REG(TimNBest, vdlsNthMaxElement_32s, (pSrc, len, N, &pResult.s32));
DL_REG(TimNBest, vdlsNthMaxElement_32f, (pSrc, len, N, &pResult.f32));
DL_REG(TimNBest, vdlsNthMaxElement_64f, (pSrc, len, N, &pResult.f64));
