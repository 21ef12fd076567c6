// Aurora waveform processing of one frame. The frame is always 200 samples;
// "len" walks the grid and fills its column, as the table of this test has
// always shown it.
#include "dl.h"
#include "dlfeature.h"

DL_MODULE("vdlsr/src/p_waveavr_ml");

static dlVector pSrc, pDst;
static kvStepIterator<int> len;
static const int frame = 200;

class TimWave : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "len", 32, 512, 64, '+');
        dlInitAll({&pSrc, &pDst}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&len}) && dlCreateAll({&pSrc, &pDst}, frame, SET_ZERO);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst}); }
    double getDivisor() override { return frame; }
    void columns(dlColumns& c) override { c << len; }
};

DL_REG(TimWave, vdlsWaveProcessing_Aurora_32f, (pSrc, pDst));
DL_REG(TimWave, vdlsWaveProcessing_Aurora_16s, (pSrc, pDst));
