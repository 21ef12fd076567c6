// Column and row statistics: means, variances, sums and their weighted
// and integer forms, each over the templates of column_stats.h.
#include "column_stats.h"
#include "vdlsr.h"

using namespace vdl;

extern "C" {

VdlStatus vdlsMeanColumn_32f_D2(const Vdl32f* pSrc, int height, int step, Vdl32f* pDstMean, int width)
{
    return meanColumn<Vdl32f>(StepRows<Vdl32f>(pSrc, step), height, pDstMean, width);
}

VdlStatus vdlsMeanColumn_32f_D2L(const Vdl32f* const* ppSrc, int height, Vdl32f* pDstMean, int width)
{
    return meanColumn<Vdl32f>(TableRows<Vdl32f>(ppSrc), height, pDstMean, width);
}

VdlStatus vdlsMeanColumn_16s_D2(const Vdl16s* pSrc, int height, int step, Vdl16s* pDstMean, int width)
{
    return meanColumn<Vdl16s>(StepRows<Vdl16s>(pSrc, step), height, pDstMean, width);
}

VdlStatus vdlsMeanColumn_16s_D2L(const Vdl16s* const* ppSrc, int height, Vdl16s* pDstMean, int width)
{
    return meanColumn<Vdl16s>(TableRows<Vdl16s>(ppSrc), height, pDstMean, width);
}

VdlStatus vdlsVarColumn_32f_D2(const Vdl32f* pSrc, int height, int step, const Vdl32f* pSrcMean, Vdl32f* pDstVar, int width)
{
    return varColumn<Vdl32f>(StepRows<Vdl32f>(pSrc, step), height, pSrcMean, pDstVar, width, 0);
}

VdlStatus vdlsVarColumn_32f_D2L(const Vdl32f* const* ppSrc, int height, const Vdl32f* pSrcMean, Vdl32f* pDstVar, int width)
{
    return varColumn<Vdl32f>(TableRows<Vdl32f>(ppSrc), height, pSrcMean, pDstVar, width, 0);
}

VdlStatus vdlsVarColumn_16s_D2Sfs(const Vdl16s* pSrc, int height, int step, const Vdl16s* pSrcMean, Vdl16s* pDstVar, int width, int scaleFactor)
{
    return varColumn<Vdl16s>(StepRows<Vdl16s>(pSrc, step), height, pSrcMean, pDstVar, width, scaleFactor);
}

VdlStatus vdlsVarColumn_16s_D2LSfs(const Vdl16s* const* ppSrc, int height, const Vdl16s* pSrcMean, Vdl16s* pDstVar, int width, int scaleFactor)
{
    return varColumn<Vdl16s>(TableRows<Vdl16s>(ppSrc), height, pSrcMean, pDstVar, width, scaleFactor);
}

VdlStatus vdlsMeanVarColumn_32f_D2(const Vdl32f* pSrc, int height, int step, Vdl32f* pDstMean, Vdl32f* pDstVar, int width)
{
    return meanVarColumn<Vdl32f>(StepRows<Vdl32f>(pSrc, step), height, pDstMean, pDstVar, width, 0);
}

VdlStatus vdlsMeanVarColumn_32f_D2L(const Vdl32f* const* ppSrc, int height, Vdl32f* pDstMean, Vdl32f* pDstVar, int width)
{
    return meanVarColumn<Vdl32f>(TableRows<Vdl32f>(ppSrc), height, pDstMean, pDstVar, width, 0);
}

VdlStatus vdlsMeanVarColumn_16s_D2Sfs(const Vdl16s* pSrc, int height, int step, Vdl16s* pDstMean, Vdl16s* pDstVar, int width, int scaleFactor)
{
    return meanVarColumn<Vdl16s>(StepRows<Vdl16s>(pSrc, step), height, pDstMean, pDstVar, width, scaleFactor);
}

VdlStatus vdlsMeanVarColumn_16s_D2LSfs(const Vdl16s* const* ppSrc, int height, Vdl16s* pDstMean, Vdl16s* pDstVar, int width, int scaleFactor)
{
    return meanVarColumn<Vdl16s>(TableRows<Vdl16s>(ppSrc), height, pDstMean, pDstVar, width, scaleFactor);
}

VdlStatus vdlsMeanVarColumn_16s32s_D2Sfs(const Vdl16s* pSrc, int height, int step, Vdl32s* pDstMean, Vdl32s* pDstVar, int width, int scaleFactor)
{
    return meanVarColumn<Vdl16s>(StepRows<Vdl16s>(pSrc, step), height, pDstMean, pDstVar, width, scaleFactor);
}

VdlStatus vdlsMeanVarColumn_16s32s_D2LSfs(const Vdl16s* const* ppSrc, int height, Vdl32s* pDstMean, Vdl32s* pDstVar, int width, int scaleFactor)
{
    return meanVarColumn<Vdl16s>(TableRows<Vdl16s>(ppSrc), height, pDstMean, pDstVar, width, scaleFactor);
}

VdlStatus vdlsMeanVarColumn_16s16s32s_D2(const Vdl16s* pSrc, int height, int step, Vdl16s* pDstMean, Vdl32s* pDstVar, int width)
{
    return meanVarColumn<Vdl16s>(StepRows<Vdl16s>(pSrc, step), height, pDstMean, pDstVar, width, 0);
}

VdlStatus vdlsMeanVarColumn_16s16s32s_D2L(const Vdl16s* const* ppSrc, int height, Vdl16s* pDstMean, Vdl32s* pDstVar, int width)
{
    return meanVarColumn<Vdl16s>(TableRows<Vdl16s>(ppSrc), height, pDstMean, pDstVar, width, 0);
}

VdlStatus vdlsWeightedMeanColumn_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pWgt, int height, Vdl32f* pDstMean, int width)
{
    return weightedColumn<Vdl32f>(StepRows<Vdl32f>(pSrc, step), pWgt, height, pDstMean, nullptr, nullptr, width, {pDstMean});
}

VdlStatus vdlsWeightedMeanColumn_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pWgt, int height, Vdl32f* pDstMean, int width)
{
    return weightedColumn<Vdl32f>(TableRows<Vdl32f>(ppSrc), pWgt, height, pDstMean, nullptr, nullptr, width, {pDstMean});
}

VdlStatus vdlsWeightedVarColumn_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pWgt, int height, const Vdl32f* pSrcMean, Vdl32f* pDstVar, int width)
{
    return weightedColumn<Vdl32f>(StepRows<Vdl32f>(pSrc, step), pWgt, height, nullptr, pSrcMean, pDstVar, width, {pSrcMean, pDstVar});
}

VdlStatus vdlsWeightedVarColumn_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pWgt, int height, const Vdl32f* pSrcMean, Vdl32f* pDstVar, int width)
{
    return weightedColumn<Vdl32f>(TableRows<Vdl32f>(ppSrc), pWgt, height, nullptr, pSrcMean, pDstVar, width, {pSrcMean, pDstVar});
}

VdlStatus vdlsWeightedMeanVarColumn_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pWgt, int height, Vdl32f* pDstMean, Vdl32f* pDstVar, int width)
{
    return weightedColumn<Vdl32f>(StepRows<Vdl32f>(pSrc, step), pWgt, height, pDstMean, nullptr, pDstVar, width, {pDstMean, pDstVar});
}

VdlStatus vdlsWeightedMeanVarColumn_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pWgt, int height, Vdl32f* pDstMean, Vdl32f* pDstVar, int width)
{
    return weightedColumn<Vdl32f>(TableRows<Vdl32f>(ppSrc), pWgt, height, pDstMean, nullptr, pDstVar, width, {pDstMean, pDstVar});
}

VdlStatus vdlsWeightedMeanColumn_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pWgt, int height, Vdl64f* pDstMean, int width)
{
    return weightedColumn<Vdl64f>(StepRows<Vdl64f>(pSrc, step), pWgt, height, pDstMean, nullptr, nullptr, width, {pDstMean});
}

VdlStatus vdlsWeightedMeanColumn_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pWgt, int height, Vdl64f* pDstMean, int width)
{
    return weightedColumn<Vdl64f>(TableRows<Vdl64f>(ppSrc), pWgt, height, pDstMean, nullptr, nullptr, width, {pDstMean});
}

VdlStatus vdlsWeightedVarColumn_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pWgt, int height, const Vdl64f* pSrcMean, Vdl64f* pDstVar, int width)
{
    return weightedColumn<Vdl64f>(StepRows<Vdl64f>(pSrc, step), pWgt, height, nullptr, pSrcMean, pDstVar, width, {pSrcMean, pDstVar});
}

VdlStatus vdlsWeightedVarColumn_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pWgt, int height, const Vdl64f* pSrcMean, Vdl64f* pDstVar, int width)
{
    return weightedColumn<Vdl64f>(TableRows<Vdl64f>(ppSrc), pWgt, height, nullptr, pSrcMean, pDstVar, width, {pSrcMean, pDstVar});
}

VdlStatus vdlsWeightedMeanVarColumn_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pWgt, int height, Vdl64f* pDstMean, Vdl64f* pDstVar, int width)
{
    return weightedColumn<Vdl64f>(StepRows<Vdl64f>(pSrc, step), pWgt, height, pDstMean, nullptr, pDstVar, width, {pDstMean, pDstVar});
}

VdlStatus vdlsWeightedMeanVarColumn_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pWgt, int height, Vdl64f* pDstMean, Vdl64f* pDstVar, int width)
{
    return weightedColumn<Vdl64f>(TableRows<Vdl64f>(ppSrc), pWgt, height, pDstMean, nullptr, pDstVar, width, {pDstMean, pDstVar});
}

VdlStatus vdlsSumColumn_32f_D2(const Vdl32f* pSrc, int step, int height, Vdl32f* pDst, int width)
{
    return sumLines<Vdl32f>(StepRows<Vdl32f>(pSrc, step), height, width, pDst, 0, true);
}

VdlStatus vdlsSumColumn_32f_D2L(const Vdl32f* const* ppSrc, int height, Vdl32f* pDst, int width)
{
    return sumLines<Vdl32f>(TableRows<Vdl32f>(ppSrc), height, width, pDst, 0, true);
}

VdlStatus vdlsSumRow_32f_D2(const Vdl32f* pSrc, int width, int step, Vdl32f* pDst, int height)
{
    return sumLines<Vdl32f>(StepRows<Vdl32f>(pSrc, step), height, width, pDst, 0, false);
}

VdlStatus vdlsSumRow_32f_D2L(const Vdl32f* const* ppSrc, int width, Vdl32f* pDst, int height)
{
    return sumLines<Vdl32f>(TableRows<Vdl32f>(ppSrc), height, width, pDst, 0, false);
}

VdlStatus vdlsSumColumn_64f_D2(const Vdl64f* pSrc, int step, int height, Vdl64f* pDst, int width)
{
    return sumLines<Vdl64f>(StepRows<Vdl64f>(pSrc, step), height, width, pDst, 0, true);
}

VdlStatus vdlsSumColumn_64f_D2L(const Vdl64f* const* ppSrc, int height, Vdl64f* pDst, int width)
{
    return sumLines<Vdl64f>(TableRows<Vdl64f>(ppSrc), height, width, pDst, 0, true);
}

VdlStatus vdlsSumRow_64f_D2(const Vdl64f* pSrc, int width, int step, Vdl64f* pDst, int height)
{
    return sumLines<Vdl64f>(StepRows<Vdl64f>(pSrc, step), height, width, pDst, 0, false);
}

VdlStatus vdlsSumRow_64f_D2L(const Vdl64f* const* ppSrc, int width, Vdl64f* pDst, int height)
{
    return sumLines<Vdl64f>(TableRows<Vdl64f>(ppSrc), height, width, pDst, 0, false);
}

VdlStatus vdlsSumColumn_16s32f_D2(const Vdl16s* pSrc, int step, int height, Vdl32f* pDst, int width)
{
    return sumLines<Vdl16s>(StepRows<Vdl16s>(pSrc, step), height, width, pDst, 0, true);
}

VdlStatus vdlsSumColumn_16s32f_D2L(const Vdl16s* const* ppSrc, int height, Vdl32f* pDst, int width)
{
    return sumLines<Vdl16s>(TableRows<Vdl16s>(ppSrc), height, width, pDst, 0, true);
}

VdlStatus vdlsSumRow_16s32f_D2(const Vdl16s* pSrc, int width, int step, Vdl32f* pDst, int height)
{
    return sumLines<Vdl16s>(StepRows<Vdl16s>(pSrc, step), height, width, pDst, 0, false);
}

VdlStatus vdlsSumRow_16s32f_D2L(const Vdl16s* const* ppSrc, int width, Vdl32f* pDst, int height)
{
    return sumLines<Vdl16s>(TableRows<Vdl16s>(ppSrc), height, width, pDst, 0, false);
}

VdlStatus vdlsSumColumn_16s32s_D2Sfs(const Vdl16s* pSrc, int step, int height, Vdl32s* pDst, int width, int scaleFactor)
{
    return sumLines<Vdl16s>(StepRows<Vdl16s>(pSrc, step), height, width, pDst, scaleFactor, true);
}

VdlStatus vdlsSumColumn_16s32s_D2LSfs(const Vdl16s* const* ppSrc, int height, Vdl32s* pDst, int width, int scaleFactor)
{
    return sumLines<Vdl16s>(TableRows<Vdl16s>(ppSrc), height, width, pDst, scaleFactor, true);
}

VdlStatus vdlsSumRow_16s32s_D2Sfs(const Vdl16s* pSrc, int width, int step, Vdl32s* pDst, int height, int scaleFactor)
{
    return sumLines<Vdl16s>(StepRows<Vdl16s>(pSrc, step), height, width, pDst, scaleFactor, false);
}

VdlStatus vdlsSumRow_16s32s_D2LSfs(const Vdl16s* const* ppSrc, int width, Vdl32s* pDst, int height, int scaleFactor)
{
    return sumLines<Vdl16s>(TableRows<Vdl16s>(ppSrc), height, width, pDst, scaleFactor, false);
}

VdlStatus vdlsSumMeanVar_32f(const Vdl32f* pSrc, int step, int height, Vdl32f* pDstMean, Vdl32f* pDstVar, int width)
{
    return sumMeanVar<Vdl32f>(StepRows<Vdl32f>(pSrc, step), height, pDstMean, pDstVar, width, 0, false);
}

VdlStatus vdlsSumMeanVar_32f_I(const Vdl32f* pSrc, int step, int height, Vdl32f* pSrcDstMean, Vdl32f* pSrcDstVar, int width)
{
    return sumMeanVar<Vdl32f>(StepRows<Vdl32f>(pSrc, step), height, pSrcDstMean, pSrcDstVar, width, 0, true);
}

VdlStatus vdlsSumMeanVar_16s32f(const Vdl16s* pSrc, int step, int height, Vdl32f* pDstMean, Vdl32f* pDstVar, int width)
{
    return sumMeanVar<Vdl16s>(StepRows<Vdl16s>(pSrc, step), height, pDstMean, pDstVar, width, 0, false);
}

VdlStatus vdlsSumMeanVar_16s32f_I(const Vdl16s* pSrc, int step, int height, Vdl32f* pSrcDstMean, Vdl32f* pSrcDstVar, int width)
{
    return sumMeanVar<Vdl16s>(StepRows<Vdl16s>(pSrc, step), height, pSrcDstMean, pSrcDstVar, width, 0, true);
}

VdlStatus vdlsSumMeanVar_16s32s_Sfs(const Vdl16s* pSrc, int step, int height, Vdl32s* pDstMean, Vdl32s* pDstVar, int width, int scaleFactor)
{
    return sumMeanVar<Vdl16s>(StepRows<Vdl16s>(pSrc, step), height, pDstMean, pDstVar, width, scaleFactor, false);
}

VdlStatus vdlsSumMeanVar_16s32s_ISfs(const Vdl16s* pSrc, int step, int height, Vdl32s* pSrcDstMean, Vdl32s* pSrcDstVar, int width, int scaleFactor)
{
    return sumMeanVar<Vdl16s>(StepRows<Vdl16s>(pSrc, step), height, pSrcDstMean, pSrcDstVar, width, scaleFactor, true);
}

} // extern "C"
