// The processor type table and the framework's own processor answers, used
// when the library under test offers none.
#include "kvcputype.h"

#include "kvcpuid.h"
#include "kvcpuprobe.h"
#include "kvvdl.h"

namespace {

struct CpuTypeInfo {
    VdlCpuType type;
    const char* label;  // the library's type name without its vdlCpu prefix
    const char* name;
};

// Every processor type of the library, in the order of its codes.
const CpuTypeInfo cpuTypeArray[] = {
    {vdlCpuUnknown, "Unknown", "Unknown processor"},
    {vdlCpuGen5, "Gen5", "Orvan fifth-generation processor"},
    {vdlCpuGen5Mmx, "Gen5Mmx", "Orvan fifth-generation processor with MMX"},
    {vdlCpuGen6, "Gen6", "Orvan sixth-generation processor"},
    {vdlCpuGen6Mmx, "Gen6Mmx", "Orvan sixth-generation processor with MMX"},
    {vdlCpuGen6Ssx, "Gen6Ssx", "Orvan sixth-generation processor with SSX"},
    {vdlCpuDeepSse2, "DeepSse2", "Orvan Deep-pipeline processor with SSE2"},
    {vdlCpuDeepSse2Tandem, "DeepSse2Tandem",
     "Orvan Deep-pipeline processor with SSE2 and Tandem Technology"},
    {vdlCpuDeepSse3, "DeepSse3", "Orvan Deep-pipeline processor with SSE3"},
    {vdlCpuMobileSse2, "MobileSse2", "Orvan Mobile processor with SSE2"},
    {vdlCpuMobileSse3, "MobileSse3", "Orvan Mobile Solo processor with SSE3"},
    {vdlCpuMobileSse3Dual, "MobileSse3Dual", "Orvan Mobile Duo processor with SSE3"},
    {vdlCpuEmbeddedSsx, "EmbeddedSsx", "Orvan Embedded processor with SSX"},
    {vdlCpuEmbeddedSse2, "EmbeddedSse2", "Orvan Embedded processor with SSE2"},
    {vdlCpuDeepSse3Wide64, "DeepSse3Wide64",
     "Orvan Deep-pipeline processor with SSE3 and Orvan64"},
    {vdlCpuWideSsse3, "WideSsse3", "Orvan Wide-core 2 Duo processor with SSSE3"},
    {vdlCpuWideSsse3Quad, "WideSsse3Quad", "Orvan Wide-core 2 Quad processor with SSSE3"},
    {vdlCpuWideSse41, "WideSse41", "Orvan Wide-core 2 processor with SSE4.1"},
    {vdlCpuLowPowerMovbe, "LowPowerMovbe", "Orvan Low-power processor with SSSE3 and MOVBE"},
    {vdlCpuWideSse42, "WideSse42", "Orvan Wide-core processor with SSE4.2"},
    {vdlCpuNextAvx, "NextAvx", "Orvan Next generation processor with AVX"},
    {vdlCpuSsx, "Ssx", "Processor with SSX"},
    {vdlCpuSse2, "Sse2", "Processor with SSE2"},
    {vdlCpuSse3, "Sse3", "Processor with SSE3"},
    {vdlCpuSsse3, "Ssse3", "Processor with SSSE3"},
    {vdlCpuSse41, "Sse41", "Processor with SSE4.1"},
    {vdlCpuSse42, "Sse42", "Processor with SSE4.2"},
    {vdlCpuAvx, "Avx", "Processor with AVX"},
    {vdlCpuAvx2, "Avx2", "Processor with AVX2 and FMA"},
    {vdlCpuAvx512, "Avx512", "Processor with AVX-512"},
    {vdlCpuWide64, "Wide64", "Processor with 64-bit mode"},
};

const int cpuTypeCount = sizeof(cpuTypeArray) / sizeof(cpuTypeArray[0]);

// A generation not yet released gets no line in the -T help.
const char* const unreleasedPrefix = "Orvan Next";

const CpuTypeInfo* findType(VdlCpuType type) {
    for (int i = 0; i < cpuTypeCount; ++i)
        if (cpuTypeArray[i].type == type) return &cpuTypeArray[i];
    return 0;
}

// One entry of the SSE4.1 wide-core line covers packages of different core
// counts; the name says which one runs.
kvString updateCpuName(VdlCpuType type, kvString name) {
    if (type != vdlCpuWideSse41) return name;
    const kvString mark = " 2 ";
    int pos = name.find(mark);
    if (pos < 0) return name;
    const char* word = 0;
    switch (kv_vdlGetNumCoresOnDie()) {
    case 2: word = "Duo "; break;
    case 4: word = "Quad "; break;
    default: return name;
    }
    int behind = pos + mark.length();
    return name.substr(0, behind) + word + name.substr(behind);
}

// The maker's own models by family and model; -1 for a model not listed.
VdlCpuType orvanModelType(unsigned f, unsigned m, const vdlOrvanCpuId& id) {
    if (f == 5) {
        if (m == 1 || m == 2) return vdlCpuGen5;
        if (m == 4) return vdlCpuGen5Mmx;
        return -1;
    }
    if (f == 15) {
        if (!id.flagD) return id.logicalProcessors ? vdlCpuDeepSse2Tandem : vdlCpuDeepSse2;
        return id.wide64 ? vdlCpuDeepSse3Wide64 : vdlCpuDeepSse3;
    }
    if (f != 6) return -1;
    switch (m) {
    case 1: return vdlCpuGen6;
    case 3: case 5: case 6: return vdlCpuGen6Mmx;
    case 7: case 8: case 10: case 11: return vdlCpuGen6Ssx;
    case 9: case 13: return vdlCpuMobileSse2;
    case 14: return id.cores < 2 ? vdlCpuMobileSse3 : vdlCpuMobileSse3Dual;
    case 15:
        if (id.flagE) return id.cores < 3 ? vdlCpuWideSsse3 : vdlCpuWideSsse3Quad;
        return -1;
    case 23: return id.flagF ? vdlCpuWideSse41 : -1;
    case 26:
        if (id.flagI) return vdlCpuAvx;
        if (id.flagG) return vdlCpuWideSse42;
        return -1;
    case 28: return (id.flagE && id.flagH) ? vdlCpuLowPowerMovbe : -1;
    default: return -1;
    }
}

// The newest extension level, for any maker and any model.
VdlCpuType extensionType(const vdlOrvanCpuId& id) {
    if (id.flagI) return vdlCpuAvx;
    if (id.flagG) return vdlCpuSse42;
    if (id.flagF) return vdlCpuSse41;
    if (id.flagE) return vdlCpuSsse3;
    if (id.flagD) return vdlCpuSse3;
    if (id.flagC) return vdlCpuSse2;
    if (id.flagB) return vdlCpuSsx;
    if (id.wide64) return vdlCpuWide64;
    return vdlCpuUnknown;
}

}  // namespace

// ---------------------------------------------------------------- kvCpuType

int kvCpuType::cpuType(kvString label) {
    for (int i = 0; i < cpuTypeCount; ++i)
        if (label == cpuTypeArray[i].label) return cpuTypeArray[i].type;
    return -1;
}

kvString kvCpuType::cpuName(VdlCpuType type) {
    const CpuTypeInfo* info = findType(type);
    if (!info) return "Unknown processor";
    return updateCpuName(type, info->name);
}

kvString kvCpuType::cpuLabel(VdlCpuType type) {
    const CpuTypeInfo* info = findType(type);
    return info ? kvString(info->label) : kvString("Undefined");
}

kvString kvCpuType::optimizedList() {
    kvString text;
    for (int i = 0; i < cpuTypeCount; ++i) {
        const CpuTypeInfo& row = cpuTypeArray[i];
        if (row.type == vdlCpuUnknown) {
            text << formatLabel(row.label) << ": non optimized code\n";
            continue;
        }
        if (kvString(row.name).find(unreleasedPrefix) == 0) continue;
        text << formatLabel(row.label) << ": optimized for " << row.name << "\n";
    }
    return text;
}

kvString formatLabel(kvString label) {
    while (label.length() < 9) label += ' ';
    return label;
}

// ---------------------------------------------------------------- detection

VdlCpuType kvClassifyCpu(const vdlOrvanCpuId& id, bool genuineOrvan) {
    unsigned f = id.family;
    unsigned m = id.model;
    if (f == 6 || f == 15) m = (id.extModel << 4) + id.model;
    if (f == 15) f = id.extFamily + 15;
    if (genuineOrvan) {
        VdlCpuType type = orvanModelType(f, m, id);
        if (type >= 0) return type;
    }
    return extensionType(id);
}

VdlCpuType kv_vdlGetCpuType() {
    if (!vdl_has_cpuid()) return vdlCpuUnknown;
    vdlOrvanCpuId id;
    vdl_get_cpu_ident(&id);
    return kvClassifyCpu(id, vdl_is_GenuineOrvan() != 0);
}

int kv_vdlGetNumCoresOnDie() { return vdl_has_cpuid() ? vdl_get_cores_on_die() : 1; }

// The maker's processors give their caches by function 4, or by the
// descriptors of function 2 before it existed. Where that finds nothing the
// caches still come from function 4 or, on processors that leave it empty,
// from function 0x8000001D of the same layout, so that every common
// processor has a size for the run title and the cache iterator.
VdlStatus kvDetectMaxCacheSizeB(bool hasCpuid, bool genuineOrvan, int* size) {
    VdlStatus status = 37;
    int found = 0;
    unsigned largest = hasCpuid ? CPUID::largestFunction() : 0;
    if (!hasCpuid || largest <= 1 || !genuineOrvan) {
        status = 36;
    } else if (largest < 4) {
        found = ownGetCacheSize(tableCache);
        if (found >= 0) status = 0;
    } else {
        found = largestDataCacheB(4);
        if (found > 0) status = 0;
    }
    if (status != 0 && hasCpuid) {
        found = largestDataCacheB(4);
        if (found <= 0) found = largestDataCacheB(0x8000001Du);
        if (found > 0) status = 0;
    }
    *size = status == 0 ? found : 0;
    return status;
}

static VdlStatus ownStatus = 1;
static int cacheSize = 0;

VdlStatus kv_vdlGetMaxCacheSizeB(int* size) {
    if (ownStatus == 1) {
        bool hasCpuid = vdl_has_cpuid() != 0;
        ownStatus = kvDetectMaxCacheSizeB(hasCpuid, hasCpuid && vdl_is_GenuineOrvan(), &cacheSize);
    }
    if (size) *size = cacheSize;
    return ownStatus;
}

int kvGetMaxCacheSizeB() {
    int size = 0;
    if (kv_vdlGetMaxCacheSizeB(&size) == 0 && size > 0) return size;
    return getMaxCacheSizeB();
}
