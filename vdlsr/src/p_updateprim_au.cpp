// The noise estimate of minimum-controlled recursive averaging, one frame
// of a power spectrum per call, with its state made by the library.
#include "dl.h"

DL_MODULE_VDLS("vdlsr/src/p_updateprim_au");

static dlVector pSrcNoisySpeech, pSrcDstNoisePSD;
static VdlMCRAState_32s* pSrcDstState = 0;
static kvStepIterator<int> len;
static int size;

class TimUpdatePrim : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Length", 64, 4096, 2, '*');
        dlInitAll({&pSrcNoisySpeech, &pSrcDstNoisePSD}, dlFunc("_32s_"), 1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&len})) return false;
        // The statuses of the set-up calls are not looked at: a failed
        // set-up shows in the status of the timed call.
        vdlsGetSizeMCRA_32s(len, &size);
        if (!pSrcNoisySpeech.createVector(len / 2 + 1, SET_ONE, 0, 0) ||
            !pSrcDstNoisePSD.createVector(len / 2 + 1, SET_ZERO, 0, 0))
            return false;
        pSrcDstState = static_cast<VdlMCRAState_32s*>(vdlsMalloc_8u(size));
        if (!pSrcDstState) return false;
        vdlsInitMCRA_32s(8000, len, pSrcDstState);
        return true;
    }
    void flushData() override {
        vdlsFree(pSrcDstState);
        pSrcDstState = 0;
        dlDeleteAll({&pSrcNoisySpeech, &pSrcDstNoisePSD});
    }
    double getDivisor() override { return len / 2; }
    void columns(dlColumns& c) override { c << len; }

private:
    const bool m_noise = m_name.found("Noise");
};

DL_REG(TimUpdatePrim, vdlsUpdateNoisePSDMCRA_32s_I,
       (pSrcNoisySpeech, pSrcDstState, pSrcDstNoisePSD));
