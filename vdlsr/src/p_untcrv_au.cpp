// The unit curve of a vector, into another vector or in place; the data
// repeat a group of four values below, on and beyond the curve's steps.
#include "dl.h"
#include "dlinplace.h"
#include "dlshifted.h"

DL_MODULE("vdlsr/src/p_untcrv_au");

static dlVector pSrc, pDst, pSrcDst, pTmp;
static kvStepIterator<int> len, srcShiftVal;
static dlScaleIterator scaleFactor;
static dlInPlace inPlace(pSrcDst, pTmp);

class Tim_Untcrv : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Length", 4, 260, 2, '*');
        if (m_16s)
            dlStep(srcShiftVal, "srcShiftVal", -1, 1, 1, '+');
        else
            dlOne(srcShiftVal);
        dlScale(scaleFactor, m_name);
        dlInitAll({&pSrc, &pDst, &pSrcDst, &pTmp}, m_func);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &srcShiftVal, &len})) return false;
        if (m_inPlace) {
            inPlace.cover(len);
            if (!dlCreateShifted({&pSrcDst, &pTmp}, len, 2, SET_ZERO)) return false;
            intData_I();
            return true;
        }
        if (!pSrc.createVector(len, SET_ZERO, 0, 0) || !pDst.createVector(len, SET_ZERO, 0, 0))
            return false;
        intData();
        return true;
    }
    virtual void intData() { fillGroups(pSrc); }
    virtual void intData_I() { fillGroups(pTmp); }
    void flushData() override { dlDeleteAll({&pSrc, &pDst, &pSrcDst, &pTmp}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override {
        c << len;
        if (m_16s) c << scaleFactor << srcShiftVal;
    }

private:
    // The group of four from the start; a length read from input that is
    // no multiple of 4 ends inside a group.
    void fillGroups(dlVector& v) const {
        static const double group16s[4] = {-100, 0, 4, 300};
        static const double group32f[4] = {-1.0, 1.0, 1.2, 2.2};
        const double* group = m_16s ? group16s : group32f;
        for (int i = 0; i < len; ++i) v.setIndex(i, SET_VALUE, group[i % 4], 0);
    }

    const bool m_inPlace = m_name.found("_I");
    const bool m_16s = m_name.found("_16s");
};

DL_REG(Tim_Untcrv, vdlsUnitCurve_32f, (pSrc, pDst, len));
DL_REG(Tim_Untcrv, vdlsUnitCurve_16s_Sfs, (pSrc, srcShiftVal, pDst, len, scaleFactor.value()));
DL_REG_I(Tim_Untcrv, vdlsUnitCurve_32f_I, (pSrcDst, len), inPlace.restore());
DL_REG_I(Tim_Untcrv, vdlsUnitCurve_16s_ISfs, (pSrcDst, srcShiftVal, len, scaleFactor.value()),
         inPlace.restore());
