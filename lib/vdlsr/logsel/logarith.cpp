// Log-add, log-sub and log-sum of vectors.
#include "logdomain.h"
#include "vdlsr.h"

using namespace vdl;

extern "C" {

VdlStatus vdlsLogAdd_64f(const Vdl64f* pSrc, Vdl64f* pSrcDst, int len, VdlHintAlgorithm hint)
{
    return logAdd(pSrc, pSrcDst, len, hint);
}

VdlStatus vdlsLogAdd_32f(const Vdl32f* pSrc, Vdl32f* pSrcDst, int len, VdlHintAlgorithm hint)
{
    return logAdd(pSrc, pSrcDst, len, hint);
}

VdlStatus vdlsLogAdd_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pSrcDst, int len, int scaleFactor,
                             VdlHintAlgorithm hint)
{
    return logAddSfs(pSrc, pSrcDst, len, scaleFactor, hint);
}

VdlStatus vdlsLogAdd_32s_Sfs(const Vdl32s* pSrc, Vdl32s* pSrcDst, int len, int scaleFactor,
                             VdlHintAlgorithm hint)
{
    return logAddSfs(pSrc, pSrcDst, len, scaleFactor, hint);
}

VdlStatus vdlsLogSub_64f(const Vdl64f* pSrc, Vdl64f* pSrcDst, int len)
{
    return logSub(pSrc, pSrcDst, len);
}

VdlStatus vdlsLogSub_32f(const Vdl32f* pSrc, Vdl32f* pSrcDst, int len)
{
    return logSub(pSrc, pSrcDst, len);
}

VdlStatus vdlsLogSub_32s_Sfs(const Vdl32s* pSrc, Vdl32s* pSrcDst, int len, int scaleFactor)
{
    return logSubSfs(pSrc, pSrcDst, len, scaleFactor);
}

VdlStatus vdlsLogSub_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pSrcDst, int len, int scaleFactor)
{
    return logSubSfs(pSrc, pSrcDst, len, scaleFactor);
}

VdlStatus vdlsLogSum_64f(const Vdl64f* pSrc, Vdl64f* pResult, int len, VdlHintAlgorithm hint)
{
    return logSum(pSrc, pResult, len, hint);
}

VdlStatus vdlsLogSum_32f(const Vdl32f* pSrc, Vdl32f* pResult, int len, VdlHintAlgorithm hint)
{
    return logSum(pSrc, pResult, len, hint);
}

VdlStatus vdlsLogSum_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pResult, int len, int scaleFactor,
                             VdlHintAlgorithm hint)
{
    return logSumSfs(pSrc, pResult, len, scaleFactor, hint);
}

VdlStatus vdlsLogSum_32s_Sfs(const Vdl32s* pSrc, Vdl32s* pResult, int len, int scaleFactor,
                             VdlHintAlgorithm hint)
{
    return logSumSfs(pSrc, pResult, len, scaleFactor, hint);
}

} // extern "C"
