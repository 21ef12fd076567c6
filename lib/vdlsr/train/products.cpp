// Matrix-vector and vector-matrix products, and the accumulation of a
// covariance matrix.
#include "products.h"
#include "vdlsr.h"

using namespace vdl;

extern "C" {

VdlStatus vdlsMatVecMul_32f_D2(const Vdl32f* pSrcMatr, int step, const Vdl32f* pSrcVec, int width, Vdl32f* pDst, int height)
{
    return matVecMul(StepRows<Vdl32f>(pSrcMatr, step), pSrcVec, width, pDst, height, 0);
}

VdlStatus vdlsMatVecMul_32f_D2L(const Vdl32f* const* ppSrcMatr, const Vdl32f* pSrcVec, int width, Vdl32f* pDst, int height)
{
    return matVecMul(TableRows<Vdl32f>(ppSrcMatr), pSrcVec, width, pDst, height, 0);
}

VdlStatus vdlsVecMatMul_32f_D2(const Vdl32f* pSrcVec, const Vdl32f* pSrcMatr, int step, int height, Vdl32f* pDst, int width)
{
    return vecMatMul(pSrcVec, StepRows<Vdl32f>(pSrcMatr, step), height, pDst, width, 0);
}

VdlStatus vdlsVecMatMul_32f_D2L(const Vdl32f* pSrcVec, const Vdl32f* const* ppSrcMatr, int height, Vdl32f* pDst, int width)
{
    return vecMatMul(pSrcVec, TableRows<Vdl32f>(ppSrcMatr), height, pDst, width, 0);
}

VdlStatus vdlsMatVecMul_16s_D2Sfs(const Vdl16s* pSrcMatr, int step, const Vdl16s* pSrcVec, int width, Vdl16s* pDst, int height, int scaleFactor)
{
    return matVecMul(StepRows<Vdl16s>(pSrcMatr, step), pSrcVec, width, pDst, height, scaleFactor);
}

VdlStatus vdlsMatVecMul_16s_D2LSfs(const Vdl16s* const* ppSrcMatr, const Vdl16s* pSrcVec, int width, Vdl16s* pDst, int height, int scaleFactor)
{
    return matVecMul(TableRows<Vdl16s>(ppSrcMatr), pSrcVec, width, pDst, height, scaleFactor);
}

VdlStatus vdlsVecMatMul_16s_D2Sfs(const Vdl16s* pSrcVec, const Vdl16s* pSrcMatr, int step, int height, Vdl16s* pDst, int width, int scaleFactor)
{
    return vecMatMul(pSrcVec, StepRows<Vdl16s>(pSrcMatr, step), height, pDst, width, scaleFactor);
}

VdlStatus vdlsVecMatMul_16s_D2LSfs(const Vdl16s* pSrcVec, const Vdl16s* const* ppSrcMatr, int height, Vdl16s* pDst, int width, int scaleFactor)
{
    return vecMatMul(pSrcVec, TableRows<Vdl16s>(ppSrcMatr), height, pDst, width, scaleFactor);
}

VdlStatus vdlsMatVecMul_16s32s_D2Sfs(const Vdl16s* pSrcMatr, int step, const Vdl16s* pSrcVec, int width, Vdl32s* pDst, int height, int scaleFactor)
{
    return matVecMul(StepRows<Vdl16s>(pSrcMatr, step), pSrcVec, width, pDst, height, scaleFactor);
}

VdlStatus vdlsMatVecMul_16s32s_D2LSfs(const Vdl16s* const* ppSrcMatr, const Vdl16s* pSrcVec, int width, Vdl32s* pDst, int height, int scaleFactor)
{
    return matVecMul(TableRows<Vdl16s>(ppSrcMatr), pSrcVec, width, pDst, height, scaleFactor);
}

VdlStatus vdlsVecMatMul_16s32s_D2Sfs(const Vdl16s* pSrcVec, const Vdl16s* pSrcMatr, int step, int height, Vdl32s* pDst, int width, int scaleFactor)
{
    return vecMatMul(pSrcVec, StepRows<Vdl16s>(pSrcMatr, step), height, pDst, width, scaleFactor);
}

VdlStatus vdlsVecMatMul_16s32s_D2LSfs(const Vdl16s* pSrcVec, const Vdl16s* const* ppSrcMatr, int height, Vdl32s* pDst, int width, int scaleFactor)
{
    return vecMatMul(pSrcVec, TableRows<Vdl16s>(ppSrcMatr), height, pDst, width, scaleFactor);
}

VdlStatus vdlsMatVecMul_32s_D2Sfs(const Vdl32s* pSrcMatr, int step, const Vdl32s* pSrcVec, int width, Vdl32s* pDst, int height, int scaleFactor)
{
    return matVecMul(StepRows<Vdl32s>(pSrcMatr, step), pSrcVec, width, pDst, height, scaleFactor);
}

VdlStatus vdlsMatVecMul_32s_D2LSfs(const Vdl32s* const* ppSrcMatr, const Vdl32s* pSrcVec, int width, Vdl32s* pDst, int height, int scaleFactor)
{
    return matVecMul(TableRows<Vdl32s>(ppSrcMatr), pSrcVec, width, pDst, height, scaleFactor);
}

VdlStatus vdlsVecMatMul_32s_D2Sfs(const Vdl32s* pSrcVec, const Vdl32s* pSrcMatr, int step, int height, Vdl32s* pDst, int width, int scaleFactor)
{
    return vecMatMul(pSrcVec, StepRows<Vdl32s>(pSrcMatr, step), height, pDst, width, scaleFactor);
}

VdlStatus vdlsVecMatMul_32s_D2LSfs(const Vdl32s* pSrcVec, const Vdl32s* const* ppSrcMatr, int height, Vdl32s* pDst, int width, int scaleFactor)
{
    return vecMatMul(pSrcVec, TableRows<Vdl32s>(ppSrcMatr), height, pDst, width, scaleFactor);
}

VdlStatus vdlsAccCovarianceMatrix_16s64f_D2(const Vdl16s* pSrc, int srcStep, int height, const Vdl64f* pMean, Vdl64f* pDst, int width, int dstStep, Vdl64f val)
{
    return accCovariance<Vdl16s>(StepRows<Vdl16s>(pSrc, srcStep), height, pMean, WritableStepRows<Vdl64f>(pDst, dstStep), width, val);
}

VdlStatus vdlsAccCovarianceMatrix_16s64f_D2L(const Vdl16s* const* ppSrc, int height, const Vdl64f* pMean, Vdl64f* const* ppDst, int width, Vdl64f val)
{
    return accCovariance<Vdl16s>(TableRows<Vdl16s>(ppSrc), height, pMean, WritableTableRows<Vdl64f>(ppDst), width, val);
}

VdlStatus vdlsAccCovarianceMatrix_32f64f_D2(const Vdl32f* pSrc, int srcStep, int height, const Vdl64f* pMean, Vdl64f* pDst, int width, int dstStep, Vdl64f val)
{
    return accCovariance<Vdl32f>(StepRows<Vdl32f>(pSrc, srcStep), height, pMean, WritableStepRows<Vdl64f>(pDst, dstStep), width, val);
}

VdlStatus vdlsAccCovarianceMatrix_32f64f_D2L(const Vdl32f* const* ppSrc, int height, const Vdl64f* pMean, Vdl64f* const* ppDst, int width, Vdl64f val)
{
    return accCovariance<Vdl32f>(TableRows<Vdl32f>(ppSrc), height, pMean, WritableTableRows<Vdl64f>(ppDst), width, val);
}

} // extern "C"
