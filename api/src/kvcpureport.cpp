// The processor report of the pseudo-test __kvOrvanCpuTest: what CPUID says
// about identification, features, threads and caches. Each section reads its
// own function and is left out when the processor does not offer it.
#include <cstring>

#include "kvcpuid.h"
#include "kvcpuprobe.h"
#include "kvinfotest.h"
#include "kvstream.h"

namespace {

// Twelve characters from the words of function 0, in the order EBX, EDX, ECX.
kvString vendorString() {
    CPUID leaf(0);
    char text[13];
    unsigned words[3] = {leaf.reg(CPUID::EBX), leaf.reg(CPUID::EDX), leaf.reg(CPUID::ECX)};
    memcpy(text, words, 12);
    text[12] = 0;
    return text;
}

// 48 characters from functions 0x80000002 to 0x80000004, zero-terminated by
// the processor when shorter.
kvString brandString() {
    char text[49];
    for (unsigned i = 0; i < 3; ++i) {
        CPUID leaf(0x80000002u + i);
        for (int r = 0; r < 4; ++r) {
            unsigned word = leaf.reg(r);
            memcpy(text + 16 * i + 4 * r, &word, 4);
        }
    }
    text[48] = 0;
    return text;
}

kvString hex8(unsigned value) { return kvString::format("0x%08X", value); }
kvString left4(unsigned value) { return kvString::format("%-4d", (int)value); }

void printHeader() {
    kvString vendor = vendorString();
    g_ostrm << starLine;
    g_ostrm << "    Orvan(R) Processor Identification\n";
    g_ostrm << "    Got by CPUID Instruction Functions\n";
    if (vendor != "GenuineOrvan") {
        g_ostrm << "\n";
        g_ostrm << "    ATTENTION! It is not Genuine Orvan processor.\n";
        g_ostrm << "    Information below may be inadequate.\n";
    }
    g_ostrm << starLine << "\n";
    g_ostrm << PERF;
    g_ostrm << "Largest Standard Function " << hex8(CPUID::largestFunction()) << "\n";
    g_ostrm << "Largest Extended Function " << hex8(CPUID::largestExFunction()) << "\n";
    g_ostrm << endMsg;
    g_ostrm << "Vendor-ID      " << vendor << "\n";
    if (CPUID::validFunction(0x80000004u)) g_ostrm << "Brand String   " << brandString() << "\n";
}

void printSignature() {
    if (!CPUID::validFunction(1)) return;
    CPUID leaf(1);
    g_ostrm << "\n" << doubleLine << "    Processor Identification Signature\n\n";
    unsigned family = leaf.getBits(CPUID::EAX, 27, 20) + leaf.getBits(CPUID::EAX, 11, 8);
    unsigned model = (leaf.getBits(CPUID::EAX, 19, 16) << 4) + leaf.getBits(CPUID::EAX, 7, 4);
    g_ostrm << "Family   " << family << "\n";
    g_ostrm << "Model    " << model << "\n";
    g_ostrm << "Stepping " << leaf.getBits(CPUID::EAX, 3, 0) << "\n";
    g_ostrm << "Type     " << leaf.getBits(CPUID::EAX, 13, 12) << "\n";
    unsigned brandId = leaf.getBits(CPUID::EBX, 7, 0);
    if (brandId != 0) g_ostrm << "Brand ID " << kvString::format("0x%02X", brandId) << "\n";
}

// The SIMD levels and the 64-bit mode, the flags the library's code paths
// depend on.
void printFlags() {
    if (!CPUID::validFunction(1)) return;
    struct Position {
        unsigned function;
        int reg;
        int bit;
    };
    static const Position selected[] = {
        {1, CPUID::EDX, 23}, {1, CPUID::EDX, 25}, {1, CPUID::EDX, 26},
        {1, CPUID::ECX, 0},  {1, CPUID::ECX, 9},  {1, CPUID::ECX, 19},
        {1, CPUID::ECX, 20}, {1, CPUID::ECX, 21}, {0x80000001u, CPUID::EDX, 29},
    };
    g_ostrm << "\n" << doubleLine << "    Selected Feature Flags\n\n";
    for (const Position& p : selected) {
        FlagInfo* info = findFlagInfo(FeatureFlags, FeatureFlagsCount, p.function, p.reg, p.bit);
        printFeatureFlag(info ? info->name : "");
    }
}

void printMultiThreading() {
    if (!CPUID::validFunction(1)) return;
    CPUID leaf(1);
    unsigned logical = leaf.getBits(CPUID::EBX, 23, 16);
    unsigned cores = CPUID::validFunction(4) ? CPUID(4).getBits(CPUID::EAX, 31, 26) + 1 : 0;
    g_ostrm << "\n" << doubleLine << "    Multi Threading Features\n\n";
    if (leaf.getBit(CPUID::EDX, 28) && logical >= 2)
        g_ostrm << "Tandem Technology or Nucleus Multi-Processing is supported\n";
    else
        g_ostrm << "No support of Tandem Technology and Nucleus Multi-Processing\n";
    g_ostrm << "Logical Processors " << logical
            << " - Number of logical processors per physical package\n";
    if (cores != 0)
        g_ostrm << "Cores per Package  " << cores
                << " - Maximum number of processor cores per package\n";
}

// One cache of function 4; false past the last one.
bool printCacheParms(unsigned index) {
    CPUID leaf(4, index);
    unsigned type = leaf.getBits(CPUID::EAX, 4, 0);
    if (type == CACHE_NONE) return false;
    kvString title;
    switch (type) {
    case CACHE_DATA: title = "Data Cache"; break;
    case CACHE_INSTRUCTION: title = "Instruction Cache"; break;
    case CACHE_UNIFIED: title = "Unified Cache"; break;
    default: title << "Cache Type " << (int)type; break;
    }
    g_ostrm << "\n" << singleLine << "    " << title << "\n\n";
    g_ostrm << "Cache Level       " << leaf.getBits(CPUID::EAX, 7, 5) << "\n";
    g_ostrm << "Cache Size Kb     " << cacheBytes(leaf) / 1024 << "\n";
    g_ostrm << "Threads Sharing   " << left4(leaf.getBits(CPUID::EAX, 25, 14) + 1)
            << " - Maximum number of threads sharing this cache\n";
    g_ostrm << "Number of Sets    " << (long long)leaf.reg(CPUID::ECX) + 1 << "\n";
    g_ostrm << "Line Size         " << left4(leaf.getBits(CPUID::EBX, 11, 0) + 1)
            << " - System coherency line size\n";
    g_ostrm << "Line Partitions   " << left4(leaf.getBits(CPUID::EBX, 21, 12) + 1)
            << " - Physical line partitions\n";
    g_ostrm << "Associativity     " << left4(leaf.getBits(CPUID::EBX, 31, 22) + 1)
            << " - Ways of associativity\n";
    if (leaf.getBit(CPUID::EAX, 9)) g_ostrm << "Fully Associative cache\n";
    if (leaf.getBit(CPUID::EAX, 8)) g_ostrm << "Self Initializing cache level\n";
    if (leaf.getBit(CPUID::EDX, 1)) g_ostrm << "Cache is inclusive to lower cache levels\n";
    if (leaf.getBit(CPUID::EDX, 0)) g_ostrm << "WBINVD/INVD behavior on lower level caches\n";
    return true;
}

// A processor lists at most a handful of caches; the bound only guards
// against one that never reports the end of its list.
const unsigned MAX_CACHES = 32;

void printCacheParms() {
    if (!CPUID::validFunction(4)) return;
    g_ostrm << "\n" << doubleLine << "    Deterministic Cache Parameters\n";
    for (unsigned index = 0; index < MAX_CACHES && printCacheParms(index); ++index) {
    }
}

kvString associativityText(unsigned code) {
    switch (code) {
    case 0: return "Disabled";
    case 1: return "Direct mapped";
    case 2: return "2-Way";
    case 4: return "4-Way";
    case 6: return "8-Way";
    case 8: return "16-Way";
    case 15: return "Fully associative";
    default: return kvString::format("code 0x%02X", code);
    }
}

void printL2Features() {
    if (!CPUID::validFunction(0x80000006u)) return;
    CPUID leaf(0x80000006u);
    g_ostrm << "\n" << doubleLine << "    Extended L2 Cache Features\n\n";
    g_ostrm << "L2 Cache Size Kb       " << leaf.getBits(CPUID::ECX, 31, 16) << "\n";
    g_ostrm << "L2 Cache Line Size     " << leaf.getBits(CPUID::ECX, 7, 0) << "\n";
    g_ostrm << "L2 Cache Associativity " << associativityText(leaf.getBits(CPUID::ECX, 15, 12))
            << "\n";
}

void printCpuIdInfo() {
    printHeader();
    printSignature();
    printFlags();
    printMultiThreading();
    printCacheParms();
    printL2Features();
    g_ostrm << starLine;
}

}  // namespace

void __kvOrvanCpuTest::printInformation() {
    if (vdl_has_cpuid()) printCpuIdInfo();
}
