// CPUID objects, the feature-flag and cache-descriptor tables, and the cache
// sizes of function 4. Bit positions and table contents follow the processor
// maker's published CPUID definitions.
#include "kvcpuid.h"

#include <climits>

#include "kvcpuprobe.h"
#include "kvstream.h"

static kvCpuidReader s_reader = ownGetReg;

kvCpuidReader kvSetCpuidReader(kvCpuidReader reader) {
    kvCpuidReader previous = s_reader;
    s_reader = reader ? reader : ownGetReg;
    return previous;
}

// ---------------------------------------------------------------- CPUID

CPUID::CPUID(unsigned function, unsigned subfunction) {
    for (int i = 0; i < 4; ++i) m_regs[i] = 0;
    if (validFunction(function)) s_reader(m_regs, function, subfunction);
}

unsigned CPUID::getBits(int reg, int high, int low) const {
    unsigned long long mask = (1ull << (high - low + 1)) - 1;
    return (unsigned)((m_regs[reg] >> low) & mask);
}

unsigned CPUID::largestFunction() { return CPUID(0).reg(EAX); }
unsigned CPUID::largestExFunction() { return CPUID(0x80000000u).reg(EAX); }

// Functions 0 and 0x80000000 tell the limits, so they are always valid. A
// processor answers a function above its limit with the data of another one,
// not with zeros, so the limit must be checked before every read.
bool CPUID::validFunction(unsigned function) {
    if (function == 0 || function == 0x80000000u) return true;
    if (function < 0x80000000u) return function <= largestFunction();
    return function <= largestExFunction();
}

// ---------------------------------------------------------------- feature flags

// Function 1 EDX and ECX bit by bit, then four bits of function 0x80000001.
// Unassigned bits have no name.
FlagInfo FeatureFlags[] = {
    {0x00000001, CPUID::EDX, 0, "FPU", "x87 floating-point unit on the chip"},
    {0x00000001, CPUID::EDX, 1, "VME",
     "Virtual-8086 mode enhancements (CR4.VME, CR4.PVI, virtual interrupt flags)"},
    {0x00000001, CPUID::EDX, 2, "DE",
     "Debugging extensions: I/O breakpoints, CR4.DE, DR4/DR5 trapping"},
    {0x00000001, CPUID::EDX, 3, "PSE", "Page size extension: 4 MiB pages with 32-bit paging"},
    {0x00000001, CPUID::EDX, 4, "TSC", "Time-stamp counter and the RDTSC instruction"},
    {0x00000001, CPUID::EDX, 5, "MSR", "Model-specific registers, RDMSR and WRMSR instructions"},
    {0x00000001, CPUID::EDX, 6, "PAE",
     "Physical address extension: physical addresses wider than 32 bits"},
    {0x00000001, CPUID::EDX, 7, "MCE", "Machine-check exception (vector 18) and CR4.MCE"},
    {0x00000001, CPUID::EDX, 8, "CX8", "CMPXCHG8B compare-and-exchange of 8 bytes"},
    {0x00000001, CPUID::EDX, 9, "APIC", "Local APIC present on the chip"},
    {0x00000001, CPUID::EDX, 10, "", ""},
    {0x00000001, CPUID::EDX, 11, "SEP",
     "SYSENTER/SYSEXIT fast system-call instructions and their MSRs"},
    {0x00000001, CPUID::EDX, 12, "MTRR", "Memory type range registers"},
    {0x00000001, CPUID::EDX, 13, "PGE", "Global-page bit in page entries, enabled by CR4.PGE"},
    {0x00000001, CPUID::EDX, 14, "MCA",
     "Machine-check architecture: MCG_CAP and error-reporting banks"},
    {0x00000001, CPUID::EDX, 15, "CMOV", "Conditional move; with an FPU also FCMOVcc and FCOMI"},
    {0x00000001, CPUID::EDX, 16, "PAT", "Page attribute table"},
    {0x00000001, CPUID::EDX, 17, "PSE36", "36-bit page size extension: 4 MiB pages above 4 GiB"},
    {0x00000001, CPUID::EDX, 18, "PSN", "Processor serial number available and enabled"},
    {0x00000001, CPUID::EDX, 19, "CLFSH", "CLFLUSH cache-line flush instruction"},
    {0x00000001, CPUID::EDX, 20, "", ""},
    {0x00000001, CPUID::EDX, 21, "DS",
     "Debug store: branch and event records written to a memory buffer"},
    {0x00000001, CPUID::EDX, 22, "ACPI",
     "Thermal monitor and software-controlled clock modulation MSRs"},
    {0x00000001, CPUID::EDX, 23, "MMX", "64-bit packed-integer SIMD instructions"},
    {0x00000001, CPUID::EDX, 24, "FXSR", "FXSAVE/FXRSTOR instructions and CR4.OSFXSR"},
    {0x00000001, CPUID::EDX, 25, "SSX",
     "First 128-bit SIMD extension (packed single precision, MXCSR)"},
    {0x00000001, CPUID::EDX, 26, "SSE2",
     "128-bit SIMD extension for double precision and integers"},
    {0x00000001, CPUID::EDX, 27, "SS", "Self-snoop of the processor's own caches"},
    {0x00000001, CPUID::EDX, 28, "Tandem",
     "Tandem multi-threading: the per-package count of addressable logical-processor IDs "
     "in CPUID.1:EBX[23:16] is valid"},
    {0x00000001, CPUID::EDX, 29, "TM", "Thermal monitor: automatic thermal control circuit"},
    {0x00000001, CPUID::EDX, 30, "", ""},
    {0x00000001, CPUID::EDX, 31, "PBE",
     "Pending break enable: FERR#/PBE# signals a pending interrupt while the clock is stopped"},
    {0x00000001, CPUID::ECX, 0, "SSE3",
     "SIMD extension 3 (horizontal add/subtract, LDDQU, and others)"},
    {0x00000001, CPUID::ECX, 1, "PCLMULQDQ", "Carry-less multiplication instruction PCLMULQDQ"},
    {0x00000001, CPUID::ECX, 2, "DTES64", "Debug store area in 64-bit layout"},
    {0x00000001, CPUID::ECX, 3, "MONITOR", "MONITOR/MWAIT instructions"},
    {0x00000001, CPUID::ECX, 4, "DS-CPL", "Debug store filtered by current privilege level"},
    {0x00000001, CPUID::ECX, 5, "VMX", "Virtual-machine extensions (hardware virtualisation)"},
    {0x00000001, CPUID::ECX, 6, "SMX", "Safer-mode extensions (GETSEC instruction)"},
    {0x00000001, CPUID::ECX, 7, "EST",
     "Enhanced software-controlled frequency/voltage (performance-state) transitions"},
    {0x00000001, CPUID::ECX, 8, "TM2", "Thermal monitor 2"},
    {0x00000001, CPUID::ECX, 9, "SSSE3", "Supplemental SIMD extension 3"},
    {0x00000001, CPUID::ECX, 10, "CNXT-ID",
     "L1 context ID: L1 data cache mode selectable between adaptive and shared"},
    {0x00000001, CPUID::ECX, 11, "SDBG", "Silicon-debug interface MSR"},
    {0x00000001, CPUID::ECX, 12, "FMA", "Fused multiply-add on 256-bit (YMM) register state"},
    {0x00000001, CPUID::ECX, 13, "CX16", "CMPXCHG16B compare-and-exchange of 16 bytes"},
    {0x00000001, CPUID::ECX, 14, "xTPR",
     "xTPR update control: sending of task-priority messages can be disabled"},
    {0x00000001, CPUID::ECX, 15, "PDCM", "Perfmon and debug capability MSR (PERF_CAPABILITIES)"},
    {0x00000001, CPUID::ECX, 16, "", ""},
    {0x00000001, CPUID::ECX, 17, "PCID", "Process-context identifiers, enabled by CR4.PCIDE"},
    {0x00000001, CPUID::ECX, 18, "DCA",
     "Direct cache access: prefetch of data from a memory-mapped device"},
    {0x00000001, CPUID::ECX, 19, "SSE4.1", "SIMD extension 4.1"},
    {0x00000001, CPUID::ECX, 20, "SSE4.2", "SIMD extension 4.2 (string compare, CRC32)"},
    {0x00000001, CPUID::ECX, 21, "x2APIC", "x2APIC mode of the local APIC"},
    {0x00000001, CPUID::ECX, 22, "MOVBE", "MOVBE byte-swapping move instruction"},
    {0x00000001, CPUID::ECX, 23, "POPCNT", "POPCNT population-count instruction"},
    {0x00000001, CPUID::ECX, 24, "TSC-DEADLINE",
     "Local APIC timer one-shot mode driven by a TSC deadline value"},
    {0x00000001, CPUID::ECX, 25, "AES", "AES encryption/decryption round instructions"},
    {0x00000001, CPUID::ECX, 26, "XSAVE",
     "XSAVE/XRSTOR, XSETBV/XGETBV and XCR0 (extended state management)"},
    {0x00000001, CPUID::ECX, 27, "OSXSAVE",
     "Operating system has set CR4.OSXSAVE; XGETBV/XSETBV usable"},
    {0x00000001, CPUID::ECX, 28, "AVX", "256-bit advanced vector extensions"},
    {0x00000001, CPUID::ECX, 29, "F16C",
     "Half-precision (16-bit) floating-point conversion instructions"},
    {0x00000001, CPUID::ECX, 30, "RDRAND", "RDRAND hardware random-number instruction"},
    {0x00000001, CPUID::ECX, 31, "", ""},
    {0x80000001, CPUID::EDX, 11, "SYSCALL",
     "SYSCALL/SYSRET fast system-call instructions (documented by the maker for 64-bit mode)"},
    {0x80000001, CPUID::EDX, 20, "XD", "Execute-disable (no-execute, NX) bit in page entries"},
    {0x80000001, CPUID::EDX, 29, "Orvan64",
     "Orvan 64-bit architecture (64-bit long mode) available"},
    {0x80000001, CPUID::ECX, 0, "LAHF-SAHF", "LAHF/SAHF instructions usable in 64-bit mode"},
};

const int FeatureFlagsCount = sizeof(FeatureFlags) / sizeof(FeatureFlags[0]);

FlagInfo* findFlagInfo(FlagInfo* table, int count, kvString name) {
    if (name.empty()) return 0;
    for (int i = 0; i < count; ++i)
        if (name == table[i].name) return &table[i];
    return 0;
}

FlagInfo* findFlagInfo(FlagInfo* table, int count, unsigned function, int reg, int bit) {
    for (int i = 0; i < count; ++i)
        if (table[i].function == function && table[i].reg == reg && table[i].bit == bit)
            return &table[i];
    return 0;
}

bool isFeatureFlag(kvString name) {
    FlagInfo* info = findFlagInfo(FeatureFlags, FeatureFlagsCount, name);
    if (!info) return false;
    return CPUID(info->function).getBit(info->reg, info->bit) != 0;
}

void printFeatureFlag(kvString name) {
    g_ostrm << kvString::format("%-11s", name.c_str());
    FlagInfo* info = findFlagInfo(FeatureFlags, FeatureFlagsCount, name);
    if (!info) {
        g_ostrm << "? - unknown flag???????\n";
        return;
    }
    g_ostrm << (isFeatureFlag(name) ? "1" : "0") << " - " << info->description << "\n";
}

// ---------------------------------------------------------------- function 2

const CacheDescriptor tableCache[] = {
    {0xEC, 25165824},  // L3
    {0xEB, 18874368},  // L3
    {0x4D, 16777216},  // L3
    {0x4C, 12582912},  // L3
    {0xEA, 12582912},  // L3
    {0x47, 8388608},  // L3
    {0x4B, 8388608},  // L3
    {0xE4, 8388608},  // L3
    {0x4A, 6291456},  // L3
    {0x4E, 6291456},  // L2
    {0xDE, 6291456},  // L3
    {0x29, 4194304},  // L3
    {0x46, 4194304},  // L3
    {0x49, 4194304},  // L3/L2
    {0xD8, 4194304},  // L3
    {0xE3, 4194304},  // L3
    {0x48, 3145728},  // L2
    {0xDD, 3145728},  // L3
    {0x25, 2097152},  // L3
    {0x45, 2097152},  // L2
    {0x7D, 2097152},  // L2
    {0x85, 2097152},  // L2
    {0xD2, 2097152},  // L3
    {0xD7, 2097152},  // L3
    {0xE2, 2097152},  // L3
    {0xDC, 1572864},  // L3
    {0x23, 1048576},  // L3
    {0x24, 1048576},  // L2
    {0x44, 1048576},  // L2
    {0x78, 1048576},  // L2
    {0x7C, 1048576},  // L2
    {0x84, 1048576},  // L2
    {0x87, 1048576},  // L2
    {0xD1, 1048576},  // L3
    {0xD6, 1048576},  // L3
    {0x22, 524288},  // L3
    {0x3E, 524288},  // L2
    {0x43, 524288},  // L2
    {0x7B, 524288},  // L2
    {0x7F, 524288},  // L2
    {0x80, 524288},  // L2
    {0x83, 524288},  // L2
    {0x86, 524288},  // L2
    {0xD0, 524288},  // L3
    {0x3D, 393216},  // L2
    {0x21, 262144},  // L2
    {0x3C, 262144},  // L2
    {0x3F, 262144},  // L2
    {0x42, 262144},  // L2
    {0x7A, 262144},  // L2
    {0x82, 262144},  // L2
    {0x3A, 196608},  // L2
    {0x1D, 131072},  // L2
    {0x39, 131072},  // L2
    {0x3B, 131072},  // L2
    {0x41, 131072},  // L2
    {0x79, 131072},  // L2
    {0x09, 32768},  // L1I
    {0x2C, 32768},  // L1D
    {0x30, 32768},  // L1I
    {0x68, 32768},  // L1D
    {0x0E, 24576},  // L1D
    {0x08, 16384},  // L1I
    {0x0C, 16384},  // L1D
    {0x0D, 16384},  // L1D
    {0x60, 16384},  // L1D
    {0x67, 16384},  // L1D
    {0x06, 8192},  // L1I
    {0x0A, 8192},  // L1D
    {0x66, 8192},  // L1D
    {0x00, 0},  // end
};

const int tableCacheCount = sizeof(tableCache) / sizeof(tableCache[0]);

// The low byte of EAX is a repeat count, not a descriptor; a register with
// bit 31 set holds no descriptors at all.
int descriptorCacheSize(const unsigned regs[4], const CacheDescriptor* table) {
    if ((regs[CPUID::EAX] & 0xFF) != 1) return -1;
    unsigned char bytes[16];
    int count = 0;
    for (int r = 0; r < 4; ++r) {
        if (regs[r] & 0x80000000u) continue;
        for (int b = (r == CPUID::EAX ? 1 : 0); b < 4; ++b)
            bytes[count++] = (unsigned char)(regs[r] >> (8 * b));
    }
    for (const CacheDescriptor* row = table; row->descriptor != 0; ++row)
        for (int i = 0; i < count; ++i)
            if (bytes[i] == row->descriptor) return row->size;
    return -1;
}

int ownGetCacheSize(const CacheDescriptor* table) {
    CPUID leaf(2);
    unsigned regs[4] = {leaf.reg(CPUID::EAX), leaf.reg(CPUID::EBX), leaf.reg(CPUID::ECX),
                        leaf.reg(CPUID::EDX)};
    return descriptorCacheSize(regs, table);
}

// ---------------------------------------------------------------- function 4

// Guards the walks over subfunctions against a processor that never reports
// the end of its list.
static const unsigned MAX_CACHE_LEAVES = 32;

long long cacheBytes(const CPUID& leaf) {
    long long sets = (long long)leaf.reg(CPUID::ECX) + 1;
    long long line = leaf.getBits(CPUID::EBX, 11, 0) + 1;
    long long partitions = leaf.getBits(CPUID::EBX, 21, 12) + 1;
    long long ways = leaf.getBits(CPUID::EBX, 31, 22) + 1;
    return sets * line * partitions * ways;
}

static int clampToInt(long long size) { return size > INT_MAX ? INT_MAX : (int)size; }

int getCacheSizeB(unsigned index) {
    CPUID leaf(4, index);
    if (leaf.getBits(CPUID::EAX, 4, 0) == CACHE_NONE) return -1;
    return clampToInt(cacheBytes(leaf));
}

int getMaxCacheSizeB() {
    if (!CPUID::validFunction(4)) return 0;
    int largest = 0;
    for (unsigned index = 0; index < MAX_CACHE_LEAVES; ++index) {
        int size = getCacheSizeB(index);
        if (size < 0) break;
        if (size > largest) largest = size;
    }
    return largest;
}

int largestDataCacheB(unsigned function) {
    if (!CPUID::validFunction(function)) return 0;
    long long largest = 0;
    for (unsigned index = 0; index < MAX_CACHE_LEAVES; ++index) {
        CPUID leaf(function, index);
        unsigned type = leaf.getBits(CPUID::EAX, 4, 0);
        if (type == CACHE_NONE) break;
        if (type == CACHE_INSTRUCTION) continue;
        long long size = cacheBytes(leaf);
        if (size > largest) largest = size;
    }
    return clampToInt(largest);
}

// ---------------------------------------------------------------- report lines

const char starLine[] =
    "*******************************************************************************\n";
const char doubleLine[] =
    "===============================================================================\n";
const char singleLine[] =
    "-------------------------------------------------------------------------------\n";
