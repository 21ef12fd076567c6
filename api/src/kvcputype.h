// The processor type table: labels that -T accepts and names the run title
// prints, and the framework's own processor answers.
#ifndef KV_CPUTYPE_H
#define KV_CPUTYPE_H

#include "kvstring.h"
#include "vdlcore.h"

struct vdlOrvanCpuId;

class kvCpuType {
public:
    static int cpuType(kvString label);
    static kvString cpuName(VdlCpuType type);
    static kvString cpuLabel(VdlCpuType type);
    static kvString optimizedList();
};

// The label padded with blanks to 9 characters; a longer one stays as it is.
kvString formatLabel(kvString label);

// Processor type of an identity record; `genuineOrvan` selects the maker's
// model table before the extension levels that any maker may have.
VdlCpuType kvClassifyCpu(const vdlOrvanCpuId& id, bool genuineOrvan);

// One detection of the largest data or unified cache through CPUID, for a
// processor with (`hasCpuid`) and of the maker (`genuineOrvan`) as told:
// status 0 with the size; else size 0 with 36 when the maker's detection does
// not apply, or 37 when it finds no cache, and no cache function lists one.
VdlStatus kvDetectMaxCacheSizeB(bool hasCpuid, bool genuineOrvan, int* size);

// The largest cache in bytes: the library's answer when it has one, else the
// framework's own detection.
int kvGetMaxCacheSizeB();

#endif
