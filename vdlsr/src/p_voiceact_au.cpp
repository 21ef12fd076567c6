// Voice-activity measures: peaks above a moving average, and the
// periodicity of a frame with its best period.
#include "dl.h"

DL_MODULE("vdlsr/src/p_voiceact_au");

static dlVector pSrc, pDstPeaks;
static kvStepIterator<int> len, searchSize, movingAvgSize, maxPeriod, minPeriod;
static Vdl16s periodicityQ15;
static int period;

class TimVoiceAct : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        if (m_peaks) {
            dlStep(len, "Length", 50, 200, 2, '*');
            dlStep(searchSize, "searchSize", 1, 4, 1, '+');
            dlStep(movingAvgSize, "movingAvgSize", 0, 4, 1, '+');
            dlOne(maxPeriod);
            dlOne(minPeriod);
        } else {
            dlStep(len, "Length", 32, 64, 2, '*');
            dlStep(maxPeriod, "maxPeriod", 12, 16, 2, '+');
            dlStep(minPeriod, "minPeriod", 6, 10, 2, '+');
            dlOne(searchSize);
            dlOne(movingAvgSize);
        }
        pSrc.init(m_func, 1);
        pDstPeaks.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&len, &searchSize, &movingAvgSize, &maxPeriod, &minPeriod})) return false;
        const bool made = m_peaks ? pSrc.createVector(len, SET_RANDOM, -10, 10)
                                  : pSrc.createVector(len, SET_ONE, 0, 0);
        return made && pDstPeaks.createVector(len, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDstPeaks}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override {
        if (m_peaks) c << len << searchSize << movingAvgSize;
        else c << len << maxPeriod << minPeriod;
    }

private:
    const bool m_peaks = m_name.found("FindPeaks");
};

DL_REG(TimVoiceAct, vdlsFindPeaks_32s8u, (pSrc, pDstPeaks, len, searchSize, movingAvgSize));
DL_REG(TimVoiceAct, vdlsPeriodicityLSPE_16s,
       (pSrc, len, &periodicityQ15, &period, maxPeriod, minPeriod));
DL_REG(TimVoiceAct, vdlsPeriodicity_32s16s,
       (pSrc, len, &periodicityQ15, &period, maxPeriod, minPeriod));
