/* Codebook and vector-quantisation functions of the Vdl Primitives. C linkage throughout; included by vdlsr.h. */
#ifndef VDLSR_CDBK_H
#define VDLSR_CDBK_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Codebooks and vector quantisation ----
 *
 * A codebook holds `nClust` codewords of `width` elements and, for a WgtL2
 * codebook, `width` non-negative weights. It is a state object, opaque to the
 * caller: made by an InitAlloc call through its out-parameter from `height`
 * training vectors (rows `step` elements apart, step >= width), and released
 * by the Free call of its type. It does not keep the training data.
 *
 * Distance: the squared distance d(x, c) = sum over k of w_k (x_k - c_k)^2,
 * with w_k = 1 for an L2 codebook. 16-bit data are summed in double, exact
 * while a distance stays below 2^53 (width up to 2048 at full range); a
 * 16s32s_Sfs result is d * 2^-scaleFactor, rounded to nearest, halves away
 * from zero, saturated to 32 bits. _32f distances are summed in float, in
 * component order, with a relative error up to (width + 1) * 6e-8; code paths
 * may round differently within that bound (fused multiply-add). The nearest
 * codeword is the one of least distance, the lower index among equals.
 *
 * Hints of the creation:
 *   vdlCdbkHintFull:       every training vector is a codeword; nClust must
 *                          equal height.
 *   vdlCdbkHintKmeansLong: k-means (Lloyd) rounds until a round moves no
 *                          vector to another cluster, at most 100 rounds.
 *   vdlCdbkHintKmeansNum:  the same for a fixed 10 rounds (fewer only when a
 *                          round moves nothing, as later rounds would not
 *                          either).
 * The k-means seeds are training vectors chosen farthest first: row 0, then
 * each time the row whose distance to its nearest seed is the largest, the
 * lowest row among equals. A round assigns each vector to its nearest
 * codeword under the codebook's distance, then sets each codeword to the
 * mean of its vectors (rounded to nearest for 16-bit codebooks); a codeword
 * left without vectors takes the vector farthest from its own codeword (the
 * lowest row among equals; none if every distance is 0), which counts as a
 * move. The result depends only on the input: the same call gives the same
 * codebook.
 *
 * Bit-packed indices (1u): a row of indices is a bit string that starts at
 * bit row * step (step in bits) of the buffer, bit b being bit 7 - b % 8 of
 * byte b / 8 (the most significant bit first). Codebook c's index takes
 * ceil(log2(size of c)) bits (none for a codebook of one codeword), high
 * bits first, the indices of a row one after another in codebook order.
 *
 * Every function checks its arguments before it writes anything, and for a
 * bad one returns at once: vdlStsNullPtrErr for a null pointer (a null
 * codebook of a table too), vdlStsSizeErr for a width, height, length or
 * count below 1, vdlStsStepErr for a step below what a row needs,
 * vdlStsOutOfRangeErr for nClust above height, an index outside its
 * codebook, N above the codebook size, or a codebook too large for the
 * index type, vdlStsBadArgErr for an unknown hint, nClust other than height
 * with the full hint, a negative, infinite or NaN weight, or a threshold
 * below 1 or NaN, vdlStsContextMatchErr for a state that is no codebook of
 * its type, and vdlStsNoMemErr when no memory is left.
 */

typedef enum {
    vdlCdbkHintFull = 1,
    vdlCdbkHintKmeansLong = 2,
    vdlCdbkHintKmeansNum = 3
} Vdl_Cdbk_Hint;

typedef struct VdlsCdbkState_16s VdlsCdbkState_16s;
typedef struct VdlsCdbkState_32f VdlsCdbkState_32f;

/* -- Creation and release. -- */

/* *ppCdbk = codebook of nClust codewords from height rows of width; L2; 16-bit. */
VdlStatus vdlsCdbkInitAlloc_L2_16s(VdlsCdbkState_16s** ppCdbk, const Vdl16s* pSrc, int width,
                                   int step, int height, int nClust, Vdl_Cdbk_Hint hint);
/* As the L2 form, distances weighted by pWgt[width], which the codebook keeps; 16-bit. */
VdlStatus vdlsCdbkInitAlloc_WgtL2_16s(VdlsCdbkState_16s** ppCdbk, const Vdl16s* pSrc,
                                      const Vdl16s* pWgt, int width, int step, int height,
                                      int nClust, Vdl_Cdbk_Hint hint);
/* *ppCdbk = codebook of nClust codewords from height rows of width; L2; float. */
VdlStatus vdlsCdbkInitAlloc_L2_32f(VdlsCdbkState_32f** ppCdbk, const Vdl32f* pSrc, int width,
                                   int step, int height, int nClust, Vdl_Cdbk_Hint hint);
/* As the L2 form, distances weighted by pWgt[width], which the codebook keeps; float. */
VdlStatus vdlsCdbkInitAlloc_WgtL2_32f(VdlsCdbkState_32f** ppCdbk, const Vdl32f* pSrc,
                                      const Vdl32f* pWgt, int width, int step, int height,
                                      int nClust, Vdl_Cdbk_Hint hint);
/* Releases a 16-bit codebook. */
VdlStatus vdlsCdbkFree_16s(VdlsCdbkState_16s* pCdbk);
/* Releases a float codebook. */
VdlStatus vdlsCdbkFree_32f(VdlsCdbkState_32f* pCdbk);

/* *pWidth, *pSize: codeword width and count of a 16-bit codebook. */
VdlStatus vdlsGetCdbkSize_16s(const VdlsCdbkState_16s* pCdbk, int* pWidth, int* pSize);
/* *pWidth, *pSize: codeword width and count of a float codebook. */
VdlStatus vdlsGetCdbkSize_32f(const VdlsCdbkState_32f* pCdbk, int* pWidth, int* pSize);
/* Copies the codewords into rows of pDst, step elements apart (step >= width). */
VdlStatus vdlsGetCodebook_16s(const VdlsCdbkState_16s* pCdbk, Vdl16s* pDst, int step);
/* Copies the codewords into rows of pDst, step elements apart (step >= width). */
VdlStatus vdlsGetCodebook_32f(const VdlsCdbkState_32f* pCdbk, Vdl32f* pDst, int step);

/* -- Nearest codeword of each of height vectors (rows step apart). -- */

/* pIndx[i] = index of the codeword nearest to row i; float. */
VdlStatus vdlsVQ_32f(const Vdl32f* pSrc, int step, Vdl32s* pIndx, int height,
                     const VdlsCdbkState_32f* pCdbk);
/* pIndx[i] = index of the codeword nearest to row i; 16-bit. */
VdlStatus vdlsVQ_16s(const Vdl16s* pSrc, int step, Vdl32s* pIndx, int height,
                     const VdlsCdbkState_16s* pCdbk);
/* pIndx[i], pDist[i]: the nearest codeword of row i and its distance; float. */
VdlStatus vdlsVQDist_32f(const Vdl32f* pSrc, int step, Vdl32s* pIndx, Vdl32f* pDist, int height,
                         const VdlsCdbkState_32f* pCdbk);
/* pIndx[i], pDist[i]: the nearest codeword of row i and its scaled distance; 16-bit. */
VdlStatus vdlsVQDist_16s32s_Sfs(const Vdl16s* pSrc, int step, Vdl32s* pIndx, Vdl32s* pDist,
                                int height, const VdlsCdbkState_16s* pCdbk, int scaleFactor);

/* -- Codewords near one vector of the codebook's width. -- */

/* The codewords within relThresh (>= 1) times the least distance, nearest first
 * (lower index among equals), *pNum of them; pIndx has room for the codebook's size. */
VdlStatus vdlsVQSingle_Thresh_16s(const Vdl16s* pSrc, Vdl32s* pIndx,
                                  const VdlsCdbkState_16s* pCdbk, Vdl32f relThresh, int* pNum);
/* As vdlsVQSingle_Thresh_16s; float. */
VdlStatus vdlsVQSingle_Thresh_32f(const Vdl32f* pSrc, Vdl32s* pIndx,
                                  const VdlsCdbkState_32f* pCdbk, Vdl32f relThresh, int* pNum);
/* As vdlsVQSingle_Thresh_16s, and pDist[j] the scaled distance of pIndx[j]. */
VdlStatus vdlsVQDistSingle_Thresh_16s32s_Sfs(const Vdl16s* pSrc, Vdl32s* pIndx, Vdl32s* pDist,
                                             const VdlsCdbkState_16s* pCdbk, Vdl32f relThresh,
                                             int* pNum, int scaleFactor);
/* As vdlsVQSingle_Thresh_32f, and pDist[j] the distance of pIndx[j]. */
VdlStatus vdlsVQDistSingle_Thresh_32f(const Vdl32f* pSrc, Vdl32s* pIndx, Vdl32f* pDist,
                                      const VdlsCdbkState_32f* pCdbk, Vdl32f relThresh,
                                      int* pNum);
/* pIndx[0..N-1]: the N nearest codewords (1 <= N <= size), nearest first; 16-bit. */
VdlStatus vdlsVQSingle_Sort_16s(const Vdl16s* pSrc, Vdl32s* pIndx, const VdlsCdbkState_16s* pCdbk,
                                int N);
/* pIndx[0..N-1]: the N nearest codewords (1 <= N <= size), nearest first; float. */
VdlStatus vdlsVQSingle_Sort_32f(const Vdl32f* pSrc, Vdl32s* pIndx, const VdlsCdbkState_32f* pCdbk,
                                int N);
/* As vdlsVQSingle_Sort_16s, and pDist[j] the scaled distance of pIndx[j]. */
VdlStatus vdlsVQDistSingle_Sort_16s32s_Sfs(const Vdl16s* pSrc, Vdl32s* pIndx, Vdl32s* pDist,
                                           const VdlsCdbkState_16s* pCdbk, int N,
                                           int scaleFactor);
/* As vdlsVQSingle_Sort_32f, and pDist[j] the distance of pIndx[j]. */
VdlStatus vdlsVQDistSingle_Sort_32f(const Vdl32f* pSrc, Vdl32s* pIndx, Vdl32f* pDist,
                                    const VdlsCdbkState_32f* pCdbk, int N);

/* -- Feature vectors from codebook rows, without a codebook state. --
 * A _2i (_4i) form takes len codebooks: codebook k is the row ppSrc[k] with
 * pHeights[k] codewords of 2 (4) elements one after another; it writes
 * pDst[n*k + j] = ppSrc[k][n*pInd[k] + j] for j below n = 2 (4). The other
 * forms take nStream codebooks of pHeights[k] rows of pWidths[k] elements,
 * pSteps[k] apart (pSteps[k] >= pWidths[k]), and write codeword pInd[k] of
 * each behind the one before: pDst holds the sum of the widths. */

/* 2 elements a codebook; 8u indices, 16-bit codewords. */
VdlStatus vdlsFormVector_2i_8u16s(const Vdl8u* pInd, const Vdl16s* const* ppSrc,
                                  const Vdl32s* pHeights, Vdl16s* pDst, int len);
/* 2 elements a codebook; 16s indices, 16-bit codewords. */
VdlStatus vdlsFormVector_2i_16s16s(const Vdl16s* pInd, const Vdl16s* const* ppSrc,
                                   const Vdl32s* pHeights, Vdl16s* pDst, int len);
/* 2 elements a codebook; 8u indices, float codewords. */
VdlStatus vdlsFormVector_2i_8u32f(const Vdl8u* pInd, const Vdl32f* const* ppSrc,
                                  const Vdl32s* pHeights, Vdl32f* pDst, int len);
/* 2 elements a codebook; 16s indices, float codewords. */
VdlStatus vdlsFormVector_2i_16s32f(const Vdl16s* pInd, const Vdl32f* const* ppSrc,
                                   const Vdl32s* pHeights, Vdl32f* pDst, int len);
/* 4 elements a codebook; 8u indices, 16-bit codewords. */
VdlStatus vdlsFormVector_4i_8u16s(const Vdl8u* pInd, const Vdl16s* const* ppSrc,
                                  const Vdl32s* pHeights, Vdl16s* pDst, int len);
/* 4 elements a codebook; 16s indices, 16-bit codewords. */
VdlStatus vdlsFormVector_4i_16s16s(const Vdl16s* pInd, const Vdl16s* const* ppSrc,
                                   const Vdl32s* pHeights, Vdl16s* pDst, int len);
/* 4 elements a codebook; 8u indices, float codewords. */
VdlStatus vdlsFormVector_4i_8u32f(const Vdl8u* pInd, const Vdl32f* const* ppSrc,
                                  const Vdl32s* pHeights, Vdl32f* pDst, int len);
/* 4 elements a codebook; 16s indices, float codewords. */
VdlStatus vdlsFormVector_4i_16s32f(const Vdl16s* pInd, const Vdl32f* const* ppSrc,
                                   const Vdl32s* pHeights, Vdl32f* pDst, int len);
/* nStream codebooks of their own widths; 8u indices, 16-bit codewords. */
VdlStatus vdlsFormVector_8u16s(const Vdl8u* pInd, const Vdl16s* const* ppSrc,
                               const Vdl32s* pHeights, const Vdl32s* pWidths,
                               const Vdl32s* pSteps, int nStream, Vdl16s* pDst);
/* nStream codebooks of their own widths; 16s indices, 16-bit codewords. */
VdlStatus vdlsFormVector_16s16s(const Vdl16s* pInd, const Vdl16s* const* ppSrc,
                                const Vdl32s* pHeights, const Vdl32s* pWidths,
                                const Vdl32s* pSteps, int nStream, Vdl16s* pDst);
/* nStream codebooks of their own widths; 8u indices, float codewords. */
VdlStatus vdlsFormVector_8u32f(const Vdl8u* pInd, const Vdl32f* const* ppSrc,
                               const Vdl32s* pHeights, const Vdl32s* pWidths,
                               const Vdl32s* pSteps, int nStream, Vdl32f* pDst);
/* nStream codebooks of their own widths; 16s indices, float codewords. */
VdlStatus vdlsFormVector_16s32f(const Vdl16s* pInd, const Vdl32f* const* ppSrc,
                                const Vdl32s* pHeights, const Vdl32s* pWidths,
                                const Vdl32s* pSteps, int nStream, Vdl32f* pDst);

/* -- Split vector quantisation over a table of nCdbks codebooks. --
 * Row i of the vectors is the codewords (or the sub-vectors) of codebooks 0,
 * 1, ... one behind the other, as wide as each codebook: together at most
 * the vector step. Row i of the indices holds one index per codebook, at
 * element i * step, or at bit i * step for 1u. */

/* Row i of pDst = codewords pSrc[i*srcStep + c] of codebooks c; 16s indices, 16-bit. */
VdlStatus vdlsFormVectorVQ_16s16s(const Vdl16s* pSrc, int srcStep, Vdl16s* pDst, int dstStep,
                                  int height, const VdlsCdbkState_16s* const* ppCdbks, int nCdbks);
/* As vdlsFormVectorVQ_16s16s with 8u indices. */
VdlStatus vdlsFormVectorVQ_8u16s(const Vdl8u* pSrc, int srcStep, Vdl16s* pDst, int dstStep,
                                 int height, const VdlsCdbkState_16s* const* ppCdbks, int nCdbks);
/* As vdlsFormVectorVQ_16s16s with bit-packed indices, srcStep in bits. */
VdlStatus vdlsFormVectorVQ_1u16s(const Vdl8u* pSrc, int srcStep, Vdl16s* pDst, int dstStep,
                                 int height, const VdlsCdbkState_16s* const* ppCdbks, int nCdbks);
/* Row i of pDst = codewords pSrc[i*srcStep + c] of codebooks c; 16s indices, float. */
VdlStatus vdlsFormVectorVQ_16s32f(const Vdl16s* pSrc, int srcStep, Vdl32f* pDst, int dstStep,
                                  int height, const VdlsCdbkState_32f* const* ppCdbks, int nCdbks);
/* As vdlsFormVectorVQ_16s32f with 8u indices. */
VdlStatus vdlsFormVectorVQ_8u32f(const Vdl8u* pSrc, int srcStep, Vdl32f* pDst, int dstStep,
                                 int height, const VdlsCdbkState_32f* const* ppCdbks, int nCdbks);
/* As vdlsFormVectorVQ_16s32f with bit-packed indices, srcStep in bits. */
VdlStatus vdlsFormVectorVQ_1u32f(const Vdl8u* pSrc, int srcStep, Vdl32f* pDst, int dstStep,
                                 int height, const VdlsCdbkState_32f* const* ppCdbks, int nCdbks);

/* Row i of pDst = the nearest codeword index of each sub-vector of row i; 16-bit to 16s. */
VdlStatus vdlsSplitVQ_16s16s(const Vdl16s* pSrc, int srcStep, Vdl16s* pDst, int dstStep,
                             int height, const VdlsCdbkState_16s* const* ppCdbks, int nCdbks);
/* As vdlsSplitVQ_16s16s with 8u indices (codebooks of at most 256 codewords). */
VdlStatus vdlsSplitVQ_16s8u(const Vdl16s* pSrc, int srcStep, Vdl8u* pDst, int dstStep,
                            int height, const VdlsCdbkState_16s* const* ppCdbks, int nCdbks);
/* As vdlsSplitVQ_16s16s with bit-packed indices, dstStep in bits; other bits stay. */
VdlStatus vdlsSplitVQ_16s1u(const Vdl16s* pSrc, int srcStep, Vdl8u* pDst, int dstStep,
                            int height, const VdlsCdbkState_16s* const* ppCdbks, int nCdbks);
/* Row i of pDst = the nearest codeword index of each sub-vector of row i; float to 16s. */
VdlStatus vdlsSplitVQ_32f16s(const Vdl32f* pSrc, int srcStep, Vdl16s* pDst, int dstStep,
                             int height, const VdlsCdbkState_32f* const* ppCdbks, int nCdbks);
/* As vdlsSplitVQ_32f16s with 8u indices (codebooks of at most 256 codewords). */
VdlStatus vdlsSplitVQ_32f8u(const Vdl32f* pSrc, int srcStep, Vdl8u* pDst, int dstStep,
                            int height, const VdlsCdbkState_32f* const* ppCdbks, int nCdbks);
/* As vdlsSplitVQ_32f16s with bit-packed indices, dstStep in bits; other bits stay. */
VdlStatus vdlsSplitVQ_32f1u(const Vdl32f* pSrc, int srcStep, Vdl8u* pDst, int dstStep,
                            int height, const VdlsCdbkState_32f* const* ppCdbks, int nCdbks);

#ifdef __cplusplus
}
#endif

#endif
