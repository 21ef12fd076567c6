/* Core of the Vdl Primitives: status codes, library version record, processor
 * types and the calls that set the library up. C linkage throughout. */
#ifndef VDLCORE_H
#define VDLCORE_H

#ifdef __cplusplus
extern "C" {
#endif

/* Signed status of every call: 0 no error, negative an error, positive a warning. */
typedef int VdlStatus;

/* Element types, named by width in bits and kind: u unsigned, s signed
 * integer, f floating point. */
typedef unsigned char Vdl8u;
typedef unsigned short Vdl16u;
typedef unsigned int Vdl32u;
typedef signed short Vdl16s;
typedef signed int Vdl32s;
typedef long long Vdl64s;
typedef float Vdl32f;
typedef double Vdl64f;

/* Version record of one library; the last three members are the texts that a
 * harness shows: name, version and build date. */
typedef struct {
    int major;
    int minor;
    int majorBuild;
    int build;
    char targetCpu[4];
    const char* Name;
    const char* Version;
    const char* BuildDate;
} VdlLibraryVersion;

/* Processor code reported by vdlGetCpuType and accepted by vdlInitCpu. */
typedef int VdlCpuType;

/* Hint for functions that may trade accuracy for speed. */
typedef enum {
    vdlAlgHintNone = 0,
    vdlAlgHintFast = 1,
    vdlAlgHintAccurate = 2
} VdlHintAlgorithm;

/* Status codes. -2 is left unused: callers take it to mean "no library bound". */
enum {
    /* warnings */
    vdlStsThreadsWrn         = 5,   /* more than one thread asked for; the library runs on the caller's thread */
    vdlStsLogNegArgWrn       = 4,   /* log of a negative argument; result set to the floor */
    vdlStsLogZeroArgWrn      = 3,   /* log of zero; result set to the floor */
    vdlStsDivByZeroWrn       = 2,   /* division by zero; result saturated */
    vdlStsGenericCodeWrn     = 1,   /* no optimised code for this processor; generic code runs */
    /* success */
    vdlStsNoErr              = 0,   /* no error */
    /* errors */
    vdlStsErr                = -1,  /* unclassified error */
    vdlStsNullPtrErr         = -3,  /* a required pointer is null */
    vdlStsSizeErr            = -4,  /* a length or size is zero, negative or too large */
    vdlStsStepErr            = -5,  /* a row step is smaller than the row width */
    vdlStsBadArgErr          = -6,  /* an argument is outside its domain */
    vdlStsNoMemErr           = -7,  /* memory allocation failed */
    vdlStsCpuNotSupportedErr = -8,  /* the processor lacks extensions the requested type needs */
    vdlStsCpuTypeErr         = -9,  /* the processor type code is unknown */
    vdlStsNumThreadsErr      = -10, /* negative thread count */
    vdlStsNoCacheInfoErr     = -11, /* the processor reports no cache sizes */
    vdlStsDivByZeroErr       = -12, /* division by zero that leaves no usable result */
    vdlStsOutOfRangeErr      = -13, /* an index or parameter lies outside its range */
    vdlStsContextMatchErr    = -14  /* a state object is of the wrong kind or damaged */
};

/* Processor types, named by generation and the newest extension each runs.
 * 1..38 are model-specific, 64..72 extension levels for any maker, 96 the
 * bare 64-bit instruction set. Each type runs one of the library's code
 * paths (vdlGetCodePath): types with AVX2 and FMA the 256-bit path, type 72
 * the 512-bit path where the library was built with it, all others the
 * baseline path. */
enum {
    vdlCpuUnknown          = 0,  /* generic code, no extension required */
    vdlCpuGen5             = 1,  /* fifth generation, x87 only */
    vdlCpuGen5Mmx          = 2,  /* fifth generation with MMX */
    vdlCpuGen6             = 3,  /* sixth generation, first models */
    vdlCpuGen6Mmx          = 4,  /* sixth generation with MMX */
    vdlCpuGen6Ssx          = 5,  /* sixth generation with SSX */
    vdlCpuDeepSse2         = 6,  /* long-pipeline generation with SSE2 */
    vdlCpuDeepSse2Tandem   = 7,  /* as 6, two logical processors per core */
    vdlCpuDeepSse3         = 8,  /* long-pipeline generation with SSE3 */
    vdlCpuMobileSse2       = 9,  /* low-voltage sixth generation with SSE2 */
    vdlCpuMobileSse3       = 10, /* low-voltage with SSE3, one core */
    vdlCpuMobileSse3Dual   = 11, /* low-voltage with SSE3, two cores */
    vdlCpuEmbeddedSsx      = 16, /* embedded line with SSX */
    vdlCpuEmbeddedSse2     = 17, /* embedded line with SSE2 */
    vdlCpuDeepSse3Wide64   = 32, /* long-pipeline generation with SSE3 and 64-bit mode */
    vdlCpuWideSsse3        = 33, /* wide-core generation with SSSE3, up to two cores */
    vdlCpuWideSsse3Quad    = 34, /* wide-core generation with SSSE3, four cores */
    vdlCpuWideSse41        = 35, /* wide-core generation with SSE4.1 */
    vdlCpuLowPowerMovbe    = 36, /* low-power line with SSSE3 and MOVBE */
    vdlCpuWideSse42        = 37, /* wide-core generation with SSE4.2 */
    vdlCpuNextAvx          = 38, /* next generation, AVX */
    vdlCpuSsx              = 64, /* any maker, SSX */
    vdlCpuSse2             = 65, /* any maker, SSE2 */
    vdlCpuSse3             = 66, /* any maker, SSE3 */
    vdlCpuSsse3            = 67, /* any maker, SSSE3 */
    vdlCpuSse41            = 68, /* any maker, SSE4.1 */
    vdlCpuSse42            = 69, /* any maker, SSE4.2 */
    vdlCpuAvx              = 70, /* any maker, AVX with the state enabled by the OS */
    vdlCpuAvx2             = 71, /* any maker, AVX2 and FMA with the state enabled by the OS */
    vdlCpuAvx512           = 72, /* any maker, 512-bit vectors (F, DQ, BW, VL) enabled by the OS */
    vdlCpuWide64           = 96  /* any maker, 64-bit mode without a known SIMD level */
};

/* Type of the running processor, from its feature flags; vdlCpuUnknown when
 * nothing is recognised. */
VdlCpuType vdlGetCpuType(void);

/* Cores per package the processor reports; at least 1. */
int vdlGetNumCoresOnDie(void);

/* Size in bytes of the largest data or unified cache. On failure *size is 0
 * (if size is not null) and the status is negative. */
VdlStatus vdlGetMaxCacheSizeB(int* size);

/* Text for a status code; unknown codes get a generic text. Never null. */
const char* vdlGetStatusString(VdlStatus status);

/* Selects the best code path for the running processor: the widest whose
 * extensions the processor has and whose register state the operating
 * system saves. vdlStsNoErr, or vdlStsGenericCodeWrn when only the baseline
 * path fits. The library selects so once at load as well. */
VdlStatus vdlInit(void);

/* Selects the code path of one processor type; refused with
 * vdlStsCpuTypeErr for an unknown code and vdlStsCpuNotSupportedErr for a
 * type the running processor cannot execute, in which case the current
 * selection stays. */
VdlStatus vdlInitCpu(VdlCpuType cpu);

/* Type whose code path is selected. */
VdlCpuType vdlGetEnabledCpuType(void);

/* Code path in force: 0 baseline x86-64, 1 256-bit vectors with fused
 * multiply-add, 2 512-bit vectors. Results of different paths may differ
 * within the bounds each family states, since wider paths sum in another
 * order. */
int vdlGetCodePath(void);

/* Name of the code path in force ("baseline", "vec256", "vec512"). Never null. */
const char* vdlGetCodePathName(void);

/* The library runs on the caller's thread. 0 and 1 are accepted
 * (vdlStsNoErr); a larger count is stored and answered with the warning
 * vdlStsThreadsWrn; a negative count is refused with vdlStsNumThreadsErr. */
VdlStatus vdlSetNumThreads(int numThreads);

/* Thread count stored by vdlSetNumThreads; 1 until set. */
VdlStatus vdlGetNumThreads(int* numThreads);

#ifdef __cplusplus
}
#endif

#endif
