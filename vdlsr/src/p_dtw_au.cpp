// Distance of two sequences of feature vectors by dynamic time warping. The
// data are computed: a slow sine over the frames, each frame led by its own
// index, and the second sequence an exact copy of the first.
#include <cmath>

#include "dl.h"

DL_MODULE("vdlsr/src/p_dtw_au");

static dlVector pSrc1, pSrc2, pDist;
static dlrMatrice mSrc1, mSrc2;
static kvStepIterator<int> width, height1, delta, beam;
static dlScaleIterator scaleFactor;
static int step, dataSize, width_dataSize;
static int shrink = 3;

// Element j of frame i in the element type T; other types are left alone.
template <class T>
static T frameValue(int i, int j) {
    if (j == 0) return i;
    return std::sin((i + j) / 100.0) * shrink;
}
template <>
dl16s frameValue<dl16s>(int i, int j) {
    if (j == 0) return i;
    return (dl16s)(std::sin((i + j) / 100.0) * shrink * 256.0);
}
template <>
dl8u frameValue<dl8u>(int i, int j) {
    double v = j == 0 ? i : (double)(int)(std::sin((i + j) / 100.0) * shrink * 256.0);
    return (dl8u)(v < 0 ? 0 : v > 255 ? 255 : v);
}

template <class T>
static void fillFrame(void* row, int i, int cols) {
    T* p = (T*)row;
    for (int j = 0; j < cols; ++j) p[j] = frameValue<T>(i, j);
}

static void fillFrame(dlType type, void* row, int i, int cols) {
    switch (type) {
    case DL_8U: fillFrame<dl8u>(row, i, cols); break;
    case DL_16S: fillFrame<dl16s>(row, i, cols); break;
    case DL_32F: fillFrame<dl32f>(row, i, cols); break;
    default: break;
    }
}

class TimDTW : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(width, "Width", 4, 20, 8, '+');
        dlStep(height1, "Height1", 30, 50, 10, '+');
        dlStep(delta, "Delta", 0, 3, 3, '+');
        dlStep(beam, "Beam", 50, 1000, 950, '+');
        dlScale(scaleFactor, m_func, -10);
        dlInitAll({&mSrc1, &mSrc2, &pSrc1, &pSrc2}, m_func);
        pDist.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &height1, &width, &delta, &beam})) return false;
        if (m_d2l) {
            if (!mSrc1.createMatrice(height1, width, SET_ZERO, 0, 0) ||
                !mSrc2.createMatrice(height1, width, SET_ZERO, 0, 0))
                return false;
            width_dataSize = dlVector::item(mSrc1.m_func) * mSrc1.columns();
            setDataMatr();
        } else {
            step = (width + 3) / 4 * 4;
            if (!pSrc1.createVector(height1 * step, -1) || !pSrc2.createVector(height1 * step, -1))
                return false;
            dataSize = pSrc1.m_len * dlVector::item(pSrc1.m_func);
            setDataVec();
        }
        return pDist.createVector(1, SET_ZERO, 0, 0);
    }
    void flushData() override {
        if (m_d2l) {
            mSrc2.deleteMatrice();
            mSrc1.deleteMatrice();
        } else {
            dlDeleteAll({&pSrc2, &pSrc1});
        }
        pDist.deleteVector();
    }
    // The whole alignment grid times the work of one cell.
    double getDivisor() override { return (double)height1 * height1 * width; }
    void columns(dlColumns& c) override { c << height1 << width << delta << beam << scaleFactor; }

    // The frames into the rows of mSrc1, copied row by row into mSrc2.
    virtual void setDataMatr() {
        for (int i = 0; i < height1; ++i) {
            fillFrame(mSrc1.m_type, mSrc1.rowAt(i), i, width);
            memcpy(mSrc2.rowAt(i), mSrc1.rowAt(i), width_dataSize);
        }
    }
    // The frames into pSrc1, row i at element i * step, copied into pSrc2.
    virtual void setDataVec() {
        for (int i = 0; i < height1; ++i) fillFrame(pSrc1.m_type, pSrc1.getPointerAt(i * step), i, width);
        memcpy(pSrc2.m_data, pSrc1.m_data, dataSize);
    }

private:
    const bool m_d2l = m_name.found("D2L");
};

DL_REG(TimDTW, vdlsDTW_L2_32f_D2L,
       (mSrc1, height1, mSrc2, height1, width, pDist, delta, (float)beam.value()));
DL_REG(TimDTW, vdlsDTW_L2_32f_D2,
       (pSrc1, height1, pSrc2, height1, width, step, pDist, delta, (float)beam.value()));
// The step forms take the scale factor negated, the row-table forms as it is.
DL_REG(TimDTW, vdlsDTW_L2_8u32s_D2Sfs,
       (pSrc1, height1, pSrc2, height1, width, step, pDist, delta, beam, -scaleFactor.value()));
DL_REG(TimDTW, vdlsDTW_L2_8u32s_D2LSfs,
       (mSrc1, height1, mSrc2, height1, width, pDist, delta, beam, scaleFactor.value()));
DL_REG(TimDTW, vdlsDTW_L2Low_16s32s_D2Sfs,
       (pSrc1, height1, pSrc2, height1, width, step, pDist, delta, beam, -scaleFactor.value()));
DL_REG(TimDTW, vdlsDTW_L2Low_16s32s_D2LSfs,
       (mSrc1, height1, mSrc2, height1, width, pDist, delta, beam, scaleFactor.value()));
