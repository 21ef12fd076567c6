// Mel and linear frequency conversion of a vector, and copies padded with
// zeros to a longer one.
#include "dl.h"
#include "dlfeature.h"

DL_MODULE("vdlsr/src/p_melft_au");

static dlVector pSrc, pDst;
static kvStepIterator<int> lenSrc, lenDst;
static dlScaleIterator scaleFactor;

class TimMelF : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        if (m_copy) {
            dlStep(lenSrc, "", 100, 100, 1, '+');
            dlStep(lenDst, "LenghtDST", 300, 400, 10, '+');
        } else {
            dlStep(lenSrc, "Lenght", 20, 30, 2, '+');
            dlOne(lenDst);
        }
        dlScale(scaleFactor, m_func);
        dlInitAll({&pSrc, &pDst}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&lenSrc, &lenDst}) && pSrc.createVector(lenSrc, SET_ZERO, 0, 0) &&
               pDst.createVector(m_copy ? lenDst : lenSrc, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst}); }
    double getDivisor() override { return m_copy ? lenDst : lenSrc; }
    void columns(dlColumns& c) override {
        if (m_copy) c << lenDst;
        else c << lenSrc;
    }

private:
    const bool m_copy = m_name.found("Copy");
};

DL_REG(TimMelF, vdlsMelToLinear_32f, (pSrc, pDst, lenSrc, 1.0f, 1.0f));
DL_REG(TimMelF, vdlsLinearToMel_32f, (pSrc, pDst, lenSrc, 1.0f, 1.0f));
DL_REG(TimMelF, vdlsCopyWithPadding_32f, (pSrc, lenSrc, pDst, lenDst));
DL_REG(TimMelF, vdlsCopyWithPadding_16s, (pSrc, lenSrc, pDst, lenDst));
