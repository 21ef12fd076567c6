// Mahalanobis distance of frames to diagonal Gaussians, for one frame and
// one component (Single), many frames (_D2, _D2L) or many components
// (MultiMix); and the accumulation of mean and variance sums.
#include "dl.h"
#include "dlrows.h"

DL_MODULE("vdlsr/src/p_mahf_au");

static dlVector src, var, mean, dst, meanAcc, varAcc;
static dlVector mean1, var1, src1;
static dlVector srcVector, meanVector, varVector;
static dlrMatrice srcMatrice, meanMatrice, varMatrice;
static kvStepIterator<int> rows, cols;
static dlScaleIterator scaleFactor;
static int stride;

class TimMahF : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        if (m_single || m_meanVarAcc) {
            // One frame: the length is the only size, the column count stays 1.
            dlOne(cols);
            dlStep(rows, "Lenght", 30, 68, 2, '+');
        } else {
            dlStep(rows, "Rows", 8, 20, 2, '+');
            dlStep(cols, "Cols", 30, 40, 3, '+');
        }
        dlScale(scaleFactor, m_func);
        dlInitAll({&src, &var, &mean, &meanAcc, &varAcc, &mean1, &var1, &src1, &srcVector,
                   &meanVector, &varVector, &srcMatrice, &meanMatrice, &varMatrice},
                  m_func);
        dst.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &rows, &cols})) return false;
        bool made = dlCreateAll({&src, &var}, rows, SET_ONE) &&
                    dlCreateAll({&mean, &dst}, rows, SET_ZERO);
        if (made && m_meanVarAcc)
            made = dlCreateAll({&meanAcc, &varAcc}, rows, SET_ZERO);
        made = made && dlCreateAll({&mean1, &var1, &src1}, cols, SET_ZERO) &&
               srcMatrice.createMatrice(rows, cols, SET_ZERO, 0, 0) &&
               meanMatrice.createMatrice(rows, cols, SET_ZERO, 0, 0) &&
               varMatrice.createMatrice(rows, cols, SET_ZERO, 0, 0);
        if (!made) return false;
        stride = m_single || m_meanVarAcc || m_d2l ? 0 : roundedStride(cols);
        return stride == 0 ||
               dlCreateAll({&srcVector, &meanVector, &varVector}, dlProduct(rows, stride), SET_ZERO);
    }
    void flushData() override {
        dlDeleteAll({&src, &var, &mean, &dst, &meanAcc, &varAcc, &mean1, &var1, &src1, &srcVector,
                     &meanVector, &varVector},
                    {&srcMatrice, &meanMatrice, &varMatrice});
    }
    double getDivisor() override { return rows * cols; }
    void columns(dlColumns& c) override {
        c << rows << cols << dlStrideItem("stride", m_d2l, stride) << scaleFactor;
    }

private:
    const bool m_single = m_name.found("Single");
    const bool m_meanVarAcc = m_name.found("MeanVarAcc");
    const bool m_d2l = m_name.found("D2L");
};

DL_REG(TimMahF, vdlsMahDistSingle_32f, (src, mean, var, rows, dst));
DL_REG(TimMahF, vdlsMahDistSingle_64f, (src, mean, var, rows, dst));
DL_REG(TimMahF, vdlsMahDistSingle_32f64f, (src, mean, var, rows, dst));
DL_REG(TimMahF, vdlsMahDistSingle_16s32f, (src, mean, var, rows, dst));
DL_REG(TimMahF, vdlsMahDistSingle_16s32s_Sfs, (src, mean, var, rows, dst, scaleFactor.value()));
DL_REG(TimMahF, vdlsMahDist_32f_D2, (srcVector, stride, mean1, var1, cols, dst, rows));
DL_REG(TimMahF, vdlsMahDist_64f_D2, (srcVector, stride, mean1, var1, cols, dst, rows));
DL_REG(TimMahF, vdlsMahDist_32f_D2L, (srcMatrice, mean1, var1, cols, dst, rows));
DL_REG(TimMahF, vdlsMahDist_64f_D2L, (srcMatrice, mean1, var1, cols, dst, rows));
DL_REG(TimMahF, vdlsMahDistMultiMix_32f_D2, (meanVector, varVector, stride, src1, cols, dst, rows));
DL_REG(TimMahF, vdlsMahDistMultiMix_64f_D2, (meanVector, varVector, stride, src1, cols, dst, rows));
DL_REG(TimMahF, vdlsMahDistMultiMix_32f_D2L, (meanMatrice, varMatrice, src1, cols, dst, rows));
DL_REG(TimMahF, vdlsMahDistMultiMix_64f_D2L, (meanMatrice, varMatrice, src1, cols, dst, rows));
DL_REG(TimMahF, vdlsMeanVarAcc_32f, (src, mean, meanAcc, varAcc, rows, 0.5f));
DL_REG(TimMahF, vdlsMeanVarAcc_64f, (src, mean, meanAcc, varAcc, rows, 0.5));
