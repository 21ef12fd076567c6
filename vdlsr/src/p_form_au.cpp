// Feature vectors put together from codebook rows that the test holds: two
// or four elements a codebook, or streams of their own widths.
#include "dl.h"
#include "kvmemory.h"

DL_MODULE("vdlsr/src/p_form_au");

static const int indexCount = 200;
static const int dstLength = 800;

static dlVector pInd, pDst, heights, widths, steps;
static dlrMatrice mSrc;
static kvStepIterator<int> len, nStream;

class TimFormV : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        if (m_4i || m_2i) {
            dlStep(len, "Lenght", 16, 100, 8, '+');
            dlOne(nStream);
        } else {
            dlStep(nStream, "nStream", 4, 12, 2, '+');
            dlOne(len);
        }
        pInd.init(m_func, 1);
        pDst.init(m_func, DL_DST1);
        mSrc.init(m_func, DL_DST1);
        dlInitAll({&heights, &widths, &steps}, dlFunc("_32s_"));
        return true;
    }
    bool canContinue() override {
        int shift = kvGetVectorShift();
        return stepOdometer({&len, &nStream}) &&
               pInd.createVectorExt(indexCount, 0 * shift, SET_VALUE, 2.0, 0) &&
               pDst.createVectorExt(dstLength, 5 * shift, SET_ZERO, 0, 0) &&
               heights.createVectorExt(indexCount, 2 * shift, SET_VALUE, 10.0, 0) &&
               widths.createVectorExt(indexCount, 3 * shift, SET_VALUE, 20.0, 0) &&
               steps.createVectorExt(indexCount, 4 * shift, SET_VALUE, 20.0, 0) &&
               mSrc.createMatrice(indexCount, dstLength, SET_ZERO, 0, 0);
    }
    void flushData() override {
        dlDeleteAll({&pInd, &pDst, &heights, &widths, &steps});
        mSrc.deleteMatrice();
    }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override {
        if (m_4i || m_2i) c << len;
        else c << nStream;
    }

private:
    const bool m_4i = m_name.found("4i");
    const bool m_2i = m_name.found("2i");
};

DL_REG(TimFormV, vdlsFormVector_4i_8u16s, (pInd, mSrc, heights, pDst, len));
DL_REG(TimFormV, vdlsFormVector_4i_16s16s, (pInd, mSrc, heights, pDst, len));
DL_REG(TimFormV, vdlsFormVector_4i_8u32f, (pInd, mSrc, heights, pDst, len));
DL_REG(TimFormV, vdlsFormVector_4i_16s32f, (pInd, mSrc, heights, pDst, len));
DL_REG(TimFormV, vdlsFormVector_2i_8u16s, (pInd, mSrc, heights, pDst, len));
DL_REG(TimFormV, vdlsFormVector_2i_16s16s, (pInd, mSrc, heights, pDst, len));
DL_REG(TimFormV, vdlsFormVector_2i_8u32f, (pInd, mSrc, heights, pDst, len));
DL_REG(TimFormV, vdlsFormVector_2i_16s32f, (pInd, mSrc, heights, pDst, len));
DL_REG(TimFormV, vdlsFormVector_8u16s, (pInd, mSrc, heights, widths, steps, nStream, pDst));
DL_REG(TimFormV, vdlsFormVector_16s16s, (pInd, mSrc, heights, widths, steps, nStream, pDst));
DL_REG(TimFormV, vdlsFormVector_8u32f, (pInd, mSrc, heights, widths, steps, nStream, pDst));
DL_REG(TimFormV, vdlsFormVector_16s32f, (pInd, mSrc, heights, widths, steps, nStream, pDst));
