// CPUID objects, the processor tables, the classification and cache
// detection, the processor report and the probes. Most cases run on model
// processors fed through the CPUID reader; the probes and a few others check
// the answers of this machine, against what every x86-64 processor
// guarantees and an independent reading through the compiler's <cpuid.h>.
#include <cpuid.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "kvcpuid.h"
#include "kvcpuprobe.h"
#include "kvcputype.h"
#include "kvinfotest.h"
#include "kvstream.h"
#include "kvvdl.h"
#include "testutil.h"

#include <gmock/gmock.h>

using ::testing::HasSubstr;
using ::testing::Not;

namespace {

struct Leaf {
    unsigned function, subfunction;
    unsigned regs[4];  // EAX, EBX, ECX, EDX
};

const std::vector<Leaf>* s_model = 0;

// Answers like a processor that knows only the listed leaves: zeros elsewhere.
void modelReader(unsigned regs[4], unsigned function, unsigned subfunction) {
    memset(regs, 0, 4 * sizeof(unsigned));
    for (const Leaf& leaf : *s_model)
        if (leaf.function == function && leaf.subfunction == subfunction)
            memcpy(regs, leaf.regs, sizeof leaf.regs);
}

class ModelCpu {
public:
    explicit ModelCpu(const std::vector<Leaf>& leaves) : m_leaves(leaves) {
        s_model = &m_leaves;
        m_previous = kvSetCpuidReader(modelReader);
    }
    ~ModelCpu() { kvSetCpuidReader(m_previous); }
private:
    std::vector<Leaf> m_leaves;
    kvCpuidReader m_previous;
};

unsigned word(const char* four) {
    unsigned w;
    memcpy(&w, four, 4);
    return w;
}

Leaf vendorLeaf(unsigned largest, const char* vendor) {
    return {0, 0, {largest, word(vendor), word(vendor + 8), word(vendor + 4)}};
}

std::vector<Leaf> operator+(std::vector<Leaf> a, const std::vector<Leaf>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// A data cache of 32 KB, an instruction cache of 64 KB and a unified one of 1 MB.
std::vector<Leaf> cacheLeaves(unsigned function) {
    return {{function, 0, {0x21, (7u << 22) | 63, 63, 0}},
            {function, 1, {0x22, (15u << 22) | 63, 63, 0}},
            {function, 2, {0x43, (15u << 22) | 63, 1023, 0}}};
}

}  // namespace

// ---------------------------------------------------------------- CPUID and tables

TEST(Cpuid, ValidFunctionsBitsAndBytes) {
    ModelCpu cpu({vendorLeaf(4, "GenuineOrvan"),
                  {4, 0, {0x89ABCDEFu, 0, 0, 0x80000001u}},
                  {5, 0, {0x55, 0x55, 0x55, 0x55}},  // above the limit: never read
                  {0x80000000u, 0, {0x80000004u, 0, 0, 0}}});
    EXPECT_TRUE(CPUID::validFunction(0));
    EXPECT_TRUE(CPUID::validFunction(4));
    EXPECT_FALSE(CPUID::validFunction(5));
    EXPECT_TRUE(CPUID::validFunction(0x80000004u));
    EXPECT_FALSE(CPUID::validFunction(0x80000005u));
    EXPECT_EQ(0u, CPUID(5).getBits(CPUID::EAX, 31, 0));
    CPUID leaf(4);
    EXPECT_EQ(0xBCDu, leaf.getBits(CPUID::EAX, 19, 8));
    EXPECT_EQ(0x89u, leaf.getByte(CPUID::EAX, 3));
    EXPECT_EQ(1u, leaf.getBit(CPUID::EDX, 31));

    ModelCpu empty({});  // the limits themselves stay valid
    EXPECT_TRUE(CPUID::validFunction(0x80000000u));
    EXPECT_FALSE(CPUID::validFunction(1));
}

TEST(FeatureFlags, LookupBitsAreReadFreshAndPrinted) {
    EXPECT_EQ(nullptr, findFlagInfo(FeatureFlags, FeatureFlagsCount, "ssx"));
    EXPECT_EQ(nullptr, findFlagInfo(FeatureFlags, FeatureFlagsCount, ""));  // unassigned bits
    FlagInfo* wide = findFlagInfo(FeatureFlags, FeatureFlagsCount, 0x80000001u, CPUID::EDX, 29);
    ASSERT_NE(nullptr, wide);
    EXPECT_STREQ("Orvan64", wide->name);

    ModelCpu cpu({vendorLeaf(1, "GenuineOrvan"), {1, 0, {0, 0, 1u << 19, 1u << 25}},
                  {0x80000001u, 0, {0, 0, 1, 0}}});  // above the extended limit
    EXPECT_TRUE(isFeatureFlag("SSX"));
    EXPECT_FALSE(isFeatureFlag("SSE2"));
    EXPECT_FALSE(isFeatureFlag("LAHF-SAHF"));
    EXPECT_FALSE(isFeatureFlag("NoSuchFlag"));

    LogCapture out(ERR);
    g_ostrm << ERR;
    printFeatureFlag("SSE4.1");
    printFeatureFlag("SSE2");
    printFeatureFlag("NoSuchFlag");
    printFeatureFlag("AVeryLongFlagName");
    g_ostrm << endMsg;
    EXPECT_EQ("SSE4.1     1 - SIMD extension 4.1\n"
              "SSE2       0 - 128-bit SIMD extension for double precision and integers\n"
              "NoSuchFlag ? - unknown flag???????\n"
              "AVeryLongFlagName? - unknown flag???????\n",
              out.text());
}

TEST(CacheDescriptors, Matching) {
    // 0x49 (4 MB) stands before 0x2C (32 KB) in the table, wherever the bytes stand.
    unsigned both[4] = {0x002C0001u, 0, 0, 0x00000049u};
    EXPECT_EQ(4194304, descriptorCacheSize(both, tableCache));
    unsigned twice[4] = {0x00490002u, 0, 0, 0};  // repeat count must be 1
    EXPECT_EQ(-1, descriptorCacheSize(twice, tableCache));
    unsigned flagged[4] = {0x01, 0x80000049u, 0, 0};  // bit 31: no descriptors
    EXPECT_EQ(-1, descriptorCacheSize(flagged, tableCache));
    unsigned unknown[4] = {0xFFF0B001u, 0x5A, 0, 0};  // TLB, prefetch, "use function 4"
    EXPECT_EQ(-1, descriptorCacheSize(unknown, tableCache));
    // The repeat count is no descriptor, even where a table names its value.
    const CacheDescriptor withOne[] = {{0x01, 99}, {0x2C, 32768}, {0, 0}};
    unsigned regs[4] = {0x2C000001u, 0, 0, 0};
    EXPECT_EQ(32768, descriptorCacheSize(regs, withOne));
}

// The processor's maker changes what the detection trusts, never what a
// cache leaf says: each case runs on a model of each maker.
const char* const kMakers[] = {"GenuineOrvan", "OtherMakerXY"};

bool isOrvan(const char* vendor) { return strcmp(vendor, "GenuineOrvan") == 0; }

TEST(CacheParameters, FunctionFourOfEitherMaker) {
    for (const char* vendor : kMakers) {
        SCOPED_TRACE(vendor);
        {
            ModelCpu cpu(std::vector<Leaf>{vendorLeaf(4, vendor)} + cacheLeaves(4));
            EXPECT_EQ(-1, getCacheSizeB(3));
            EXPECT_EQ(1048576, getMaxCacheSizeB());
        }
        {
            // Without the unified cache: the report's maximum counts the
            // instruction cache, the detection does not.
            ModelCpu cpu({vendorLeaf(4, vendor), cacheLeaves(4)[0], cacheLeaves(4)[1]});
            EXPECT_EQ(65536, getMaxCacheSizeB());
            EXPECT_EQ(32768, largestDataCacheB(4));
        }
        ModelCpu cpu(std::vector<Leaf>{vendorLeaf(3, vendor)} + cacheLeaves(4));
        EXPECT_EQ(0, getMaxCacheSizeB());
    }
}

// ---------------------------------------------------------------- cache detection

// The maker's processors are trusted by function 2 or 4 alone; where that
// finds nothing, and on any other maker's, the cache functions of either
// layout decide.
TEST(CacheDetection, EachMakersRule) {
    const std::vector<Leaf> extended = {{0x80000000u, 0, {0x80000020u, 0, 0, 0}}};
    const std::vector<Leaf> belowLimit = {{0x80000000u, 0, {0x80000008u, 0, 0, 0}}};
    struct Case {
        const char* what;
        unsigned largest;
        std::vector<Leaf> leaves;
        VdlStatus orvanStatus, otherStatus;
        int orvanSize, otherSize;
    };
    const Case cases[] = {
        {"function 1 only", 1, {}, 36, 36, 0, 0},
        {"descriptors of 512 KB", 2, {{2, 0, {0x01, 0, 0, 0x00432C00u}}}, 0, 36, 524288, 0},
        {"descriptors that name no cache", 2, {{2, 0, {0x01, 0, 0, 0x00F0B05Au}}}, 37, 36, 0, 0},
        {"function 4 with caches", 4, cacheLeaves(4), 0, 0, 1048576, 1048576},
        {"function 4 empty", 4, {}, 37, 36, 0, 0},
        {"caches in the extended function", 16, extended + cacheLeaves(0x8000001Du), 0, 0,
         1048576, 1048576},
        {"extended function above the limit", 16, belowLimit + cacheLeaves(0x8000001Du), 37, 36,
         0, 0},
    };
    for (const Case& c : cases)
        for (const char* vendor : kMakers) {
            SCOPED_TRACE(std::string(c.what) + " on " + vendor);
            ModelCpu cpu(std::vector<Leaf>{vendorLeaf(c.largest, vendor)} + c.leaves);
            int size = -5;
            EXPECT_EQ(isOrvan(vendor) ? c.orvanStatus : c.otherStatus,
                      kvDetectMaxCacheSizeB(true, isOrvan(vendor), &size));
            EXPECT_EQ(isOrvan(vendor) ? c.orvanSize : c.otherSize, size);
        }
    int size = -5;
    EXPECT_EQ(36, kvDetectMaxCacheSizeB(false, false, &size));
    EXPECT_EQ(0, size);
}

namespace {
int s_cpuidCalls = 0;
void countingReader(unsigned regs[4], unsigned function, unsigned subfunction) {
    ++s_cpuidCalls;
    ownGetReg(regs, function, subfunction);
}
}  // namespace

TEST(CacheDetection, DetectedOnceWithAPlausibleSizeHere) {
    int first = 0;
    VdlStatus status = kv_vdlGetMaxCacheSizeB(&first);
    // A processor (or a virtual one) may report no cache at all.
    if (status == 0) {
        EXPECT_GE(first, 4 * 1024);
        EXPECT_LE(first, 1024 * 1024 * 1024);
    } else {
        EXPECT_EQ(0, first);
    }

    s_cpuidCalls = 0;
    kvCpuidReader previous = kvSetCpuidReader(countingReader);
    int second = 0;
    EXPECT_EQ(status, kv_vdlGetMaxCacheSizeB(&second));
    kvSetCpuidReader(previous);
    EXPECT_EQ(first, second);
    EXPECT_EQ(0, s_cpuidCalls);
    EXPECT_EQ(first, kvGetMaxCacheSizeB());
}

// ---------------------------------------------------------------- classification

namespace {

// A record of family f and full model m (split into its fields for families
// 6 and 15) with the flags named by letters: b..i, l logical processors, w 64-bit.
vdlOrvanCpuId ident(unsigned f, unsigned m, const char* flags, unsigned cores = 1,
                    unsigned extFamily = 0) {
    vdlOrvanCpuId id;
    memset(&id, 0, sizeof id);
    id.family = f;
    id.model = (f == 6 || f == 15) ? m & 15 : m;
    id.extModel = (f == 6 || f == 15) ? m >> 4 : 0;
    id.extFamily = extFamily;
    id.cores = cores;
    for (const char* c = flags; *c; ++c) {
        unsigned* field[] = {&id.flagB, &id.flagC, &id.flagD, &id.flagE, &id.flagF,
                             &id.flagG, &id.flagH, &id.flagI};
        if (*c == 'l') id.logicalProcessors = 1;
        else if (*c == 'w') id.wide64 = 1;
        else *field[*c - 'b'] = 1;
    }
    return id;
}

}  // namespace

// One record, two makers: the maker's own models by family and model, and
// for another maker (or a model not listed) the newest extension.
TEST(CpuClassification, ByMakersModelElseNewestExtension) {
    const struct {
        vdlOrvanCpuId id;
        VdlCpuType orvan, other;
    } cases[] = {
        {ident(5, 4, ""), vdlCpuGen5Mmx, vdlCpuUnknown},
        {ident(5, 3, ""), vdlCpuUnknown, vdlCpuUnknown},
        {ident(5, 3, "w"), vdlCpuWide64, vdlCpuWide64},
        {ident(6, 11, "b"), vdlCpuGen6Ssx, vdlCpuSsx},
        {ident(6, 14, "bcd"), vdlCpuMobileSse3, vdlCpuSse3},
        {ident(6, 14, "bcd", 2), vdlCpuMobileSse3Dual, vdlCpuSse3},
        {ident(6, 14, "bcw", 2), vdlCpuMobileSse3Dual, vdlCpuSse2},
        {ident(6, 15, "e", 4), vdlCpuWideSsse3Quad, vdlCpuSsse3},
        {ident(6, 15, "d"), vdlCpuSse3, vdlCpuSse3},  // model 15 needs e
        {ident(6, 26, "efgi"), vdlCpuAvx, vdlCpuAvx},
        {ident(6, 28, "eh"), vdlCpuLowPowerMovbe, vdlCpuSsse3},
        {ident(6, 28, "e"), vdlCpuSsse3, vdlCpuSsse3},  // model 28 needs e and h
        {ident(15, 2, "bcl"), vdlCpuDeepSse2Tandem, vdlCpuSse2},
        {ident(15, 4, "dw"), vdlCpuDeepSse3Wide64, vdlCpuSse3},
        {ident(15, 3, "d", 1, 1), vdlCpuSse3, vdlCpuSse3},  // family 16
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "family " << c.id.family << " model " << c.id.model);
        EXPECT_EQ(c.orvan, kvClassifyCpu(c.id, true));
        EXPECT_EQ(c.other, kvClassifyCpu(c.id, false));
    }
    // The extended model joins the model for families 6 and 15 only.
    vdlOrvanCpuId gen5 = ident(5, 4, "");
    gen5.extModel = 1;
    EXPECT_EQ(vdlCpuGen5Mmx, kvClassifyCpu(gen5, true));
}

TEST(CpuClassification, ThisMachine) {
    vdlOrvanCpuId id;
    vdl_get_cpu_ident(&id);
    VdlCpuType type = kv_vdlGetCpuType();
    EXPECT_EQ(kvClassifyCpu(id, vdl_is_GenuineOrvan() != 0), type);
    EXPECT_NE(vdlCpuUnknown, type);  // every x86-64 processor has SSE2 at least
    EXPECT_EQ(vdl_get_cores_on_die(), kv_vdlGetNumCoresOnDie());
}

// ---------------------------------------------------------------- type table

TEST(CpuTypeTable, LabelsAndValuesOfTheLibrary) {
    int defined = 0;
    for (int v = 0; v < 128; ++v) {
        kvString label = kvCpuType::cpuLabel(v);
        if (label == kvString("Undefined")) continue;
        ++defined;
        EXPECT_EQ(v, kvCpuType::cpuType(label)) << label.c_str();
    }
    EXPECT_EQ(31, defined);
    EXPECT_EQ(-1, kvCpuType::cpuType("avx2"));
    EXPECT_EQ(-1, kvCpuType::cpuType("Avx2 "));
    EXPECT_STREQ("Undefined", kvCpuType::cpuLabel(12).c_str());
    EXPECT_STREQ("Unknown processor", kvCpuType::cpuName(12).c_str());
}

TEST(CpuTypeTable, CoreCountWordOnlyForTheSse41Line) {
    kvString name = kvCpuType::cpuName(vdlCpuWideSse41);
    int cores = kv_vdlGetNumCoresOnDie();
    EXPECT_EQ(cores == 2, name.found(" 2 Duo "));
    EXPECT_EQ(cores == 4, name.found(" 2 Quad "));
    EXPECT_TRUE(name.found(" 2 "));
    EXPECT_FALSE(kvCpuType::cpuName(vdlCpuWideSsse3Quad).found("Duo"));
}

TEST(CpuTypeTable, FormatLabelAndOptimizedList) {
    EXPECT_STREQ("Avx      ", formatLabel("Avx").c_str());
    EXPECT_STREQ("DeepSse2Tandem", formatLabel("DeepSse2Tandem").c_str());

    std::string list = kvCpuType::optimizedList().c_str();
    EXPECT_EQ(0u, list.find("Unknown  : non optimized code\nGen5     : optimized for Orvan "));
    EXPECT_THAT(list, Not(HasSubstr("NextAvx")));
    // The types with a code path of their own are there to be chosen.
    EXPECT_THAT(list, HasSubstr("\nAvx2     : optimized for Processor with AVX2 and FMA\n"));
    EXPECT_THAT(list, HasSubstr("\nAvx512   : optimized for Processor with AVX-512\n"));
}

// ---------------------------------------------------------------- the report

namespace {

std::vector<Leaf> fullModel(const char* vendor) {
    char brand[48] = "Orvan Test Processor 1.00GHz";
    std::vector<Leaf> leaves = {
        vendorLeaf(4, vendor),
        {1, 0, {0x000106A5u, 0x00020012u, 0x00180201u, 0x16800000u}},
        {4, 0, {0x0C004021u, 0x01C0003Fu, 63, 0}},
        {4, 1, {0x0C004122u, 0x01C0003Fu, 63, 0}},
        {4, 2, {0x0C004243u, 0x03C0003Fu, 1023, 3}},
        {4, 3, {0x65u, 0, 0, 0}},
        {0x80000000u, 0, {0x80000006u, 0, 0, 0}},
        {0x80000001u, 0, {0, 0, 0, 0x20000000u}},
        {0x80000006u, 0, {0, 0, 0x04006040u, 0}},
    };
    for (unsigned i = 0; i < 3; ++i) {
        Leaf leaf = {0x80000002u + i, 0, {0, 0, 0, 0}};
        memcpy(leaf.regs, brand + 16 * i, 16);
        leaves.push_back(leaf);
    }
    return leaves;
}

std::string cacheBlock(const char* title, int level, int kb, int threads, int sets, int line,
                       int ways) {
    char text[1024];
    snprintf(text, sizeof text,
             "\n%s    %s\n\n"
             "Cache Level       %d\n"
             "Cache Size Kb     %d\n"
             "Threads Sharing   %-4d - Maximum number of threads sharing this cache\n"
             "Number of Sets    %d\n"
             "Line Size         %-4d - System coherency line size\n"
             "Line Partitions   1    - Physical line partitions\n"
             "Associativity     %-4d - Ways of associativity\n",
             singleLine, title, level, kb, threads, sets, line, ways);
    return text;
}

// The report as a run writes it, through the pseudo-test's own loop.
std::string report(OutputLevel level) {
    LogCapture out(level);
    __kvOrvanCpuTest test("__kvOrvanCpu", "api/src/kv", "__kvOrvanCpuTest/Orvan CPU information");
    test.loopData();
    return out.text();
}

}  // namespace

// The whole report, on a model of each maker: another maker's processor is
// warned about and reported by the same rules.
TEST(CpuReport, FullReportOfEitherMaker) {
    for (const char* vendor : kMakers) {
        SCOPED_TRACE(vendor);
        ModelCpu cpu(fullModel(vendor));
        std::string dl = doubleLine;
        std::string attention = isOrvan(vendor) ? ""
                                                : "\n"
                                                  "    ATTENTION! It is not Genuine Orvan processor.\n"
                                                  "    Information below may be inadequate.\n";
        std::string expected =
            std::string(starLine) +
            "    Orvan(R) Processor Identification\n"
            "    Got by CPUID Instruction Functions\n" +
            attention + starLine +
            "\n"
            "Largest Standard Function 0x00000004\n"
            "Largest Extended Function 0x80000006\n"
            "Vendor-ID      " + vendor + "\n"
            "Brand String   Orvan Test Processor 1.00GHz\n"
            "\n" + dl +
            "    Processor Identification Signature\n\n"
            "Family   6\n"
            "Model    26\n"
            "Stepping 5\n"
            "Type     0\n"
            "Brand ID 0x12\n"
            "\n" + dl +
            "    Selected Feature Flags\n\n"
            "MMX        1 - 64-bit packed-integer SIMD instructions\n"
            "SSX        1 - First 128-bit SIMD extension (packed single precision, MXCSR)\n"
            "SSE2       1 - 128-bit SIMD extension for double precision and integers\n"
            "SSE3       1 - SIMD extension 3 (horizontal add/subtract, LDDQU, and others)\n"
            "SSSE3      1 - Supplemental SIMD extension 3\n"
            "SSE4.1     1 - SIMD extension 4.1\n"
            "SSE4.2     1 - SIMD extension 4.2 (string compare, CRC32)\n"
            "x2APIC     0 - x2APIC mode of the local APIC\n"
            "Orvan64    1 - Orvan 64-bit architecture (64-bit long mode) available\n"
            "\n" + dl +
            "    Multi Threading Features\n\n"
            "Tandem Technology or Nucleus Multi-Processing is supported\n"
            "Logical Processors 2 - Number of logical processors per physical package\n"
            "Cores per Package  4 - Maximum number of processor cores per package\n"
            "\n" + dl +
            "    Deterministic Cache Parameters\n" +
            cacheBlock("Data Cache", 1, 32, 2, 64, 64, 8) +
            cacheBlock("Instruction Cache", 1, 32, 2, 64, 64, 8) +
            "Self Initializing cache level\n" +
            cacheBlock("Unified Cache", 2, 1024, 2, 1024, 64, 16) +
            "Fully Associative cache\n"
            "Cache is inclusive to lower cache levels\n"
            "WBINVD/INVD behavior on lower level caches\n" +
            cacheBlock("Cache Type 5", 3, 0, 1, 1, 1, 1) +
            "\n" + dl +
            "    Extended L2 Cache Features\n\n"
            "L2 Cache Size Kb       1024\n"
            "L2 Cache Line Size     64\n"
            "L2 Cache Associativity 8-Way\n" +
            starLine;
        EXPECT_EQ(expected, report(ERR | WARN | PERF));
        // The limits are performance-level lines.
        EXPECT_THAT(report(ERR), Not(HasSubstr("Largest Standard Function")));
    }
}

TEST(CpuReport, SectionsOfAbsentFunctionsAreLeftOut) {
    for (const char* vendor : kMakers) {
        SCOPED_TRACE(vendor);
        ModelCpu cpu({vendorLeaf(1, vendor),
                      {1, 0, {0x00000F29u, 0x00010000u, 0, 0x10000000u}},
                      {4, 0, {0x0C004021u, 0x01C0003Fu, 63, 0}}});
        std::string text = report(ERR | PERF);
        EXPECT_THAT(text, HasSubstr("Largest Extended Function 0x00000000\n"));
        EXPECT_THAT(text, HasSubstr("Family   15\nModel    2\nStepping 9\nType     0\n\n"));
        EXPECT_THAT(text, Not(HasSubstr("Brand")));
        // One logical processor: the tandem bit alone does not count.
        EXPECT_THAT(text, HasSubstr("No support of Tandem Technology and Nucleus Multi-Processing\n"
                                   "Logical Processors 1 - "));
        EXPECT_THAT(text, Not(HasSubstr("Cores per Package")));
        EXPECT_THAT(text, Not(HasSubstr("Extended L2 Cache Features")));
        EXPECT_EQ(text.size() - strlen(starLine), text.rfind(starLine));

        // As some processors answer: function 4 exists and its first entry is empty.
        ModelCpu empty({vendorLeaf(4, vendor), {4, 0, {0, 0, 0, 0}}});
        text = report(ERR);
        EXPECT_THAT(text, HasSubstr("    Deterministic Cache Parameters\n"));
        EXPECT_THAT(text, Not(HasSubstr(std::string(singleLine))));
    }
}

namespace {

struct Regs {
    unsigned a, b, c, d;
};

Regs compilerCpuid(unsigned function, unsigned subfunction) {
    Regs r;
    __cpuid_count(function, subfunction, r.a, r.b, r.c, r.d);
    return r;
}

}  // namespace

TEST(CpuProbe, OwnGetRegPassesTheSubfunction) {
    unsigned function = vdl_max_cpuid_input() >= 4 ? 4 : 0;
    for (unsigned sub = 0; sub < 3; ++sub) {
        unsigned regs[4];
        ownGetReg(regs, function, sub);
        Regs e = compilerCpuid(function, sub);
        EXPECT_TRUE(regs[0] == e.a && regs[1] == e.b && regs[2] == e.c && regs[3] == e.d)
            << "subleaf " << sub;
    }
}

TEST(CpuProbe, FeaturesEveryX86_64ProcessorHas) {
    EXPECT_EQ(1, vdl_has_cpuid());
    EXPECT_EQ(1, vdl_has_rdtsc());
    EXPECT_EQ(1, vdl_is_wide64_extension());
    EXPECT_GE(vdl_get_cores_on_die(), 1);
}

TEST(CpuProbe, VendorTestMatchesVendorString) {
    Regs r = compilerCpuid(0, 0);
    char vendor[13] = {0};
    memcpy(vendor, &r.b, 4);
    memcpy(vendor + 4, &r.d, 4);
    memcpy(vendor + 8, &r.c, 4);
    EXPECT_EQ(strcmp(vendor, "GenuineOrvan") == 0, vdl_is_GenuineOrvan() != 0) << vendor;
}

TEST(CpuProbe, WideVectorProbeMeansTheInstructionsRun) {
    if (!((compilerCpuid(1, 0).c >> 27) & 1)) {  // no OSXSAVE: xgetbv would fault
        EXPECT_EQ(0, vdl_is_avx_extension());
        return;
    }
    EXPECT_EQ(1u, vdl_xgetbv(0) & 1u);  // the x87 state bit of XCR0 is always set
    if (vdl_is_avx_extension()) {  // an illegal instruction unless the OS enabled the state
        __asm__ __volatile__("vxorps %%ymm0, %%ymm0, %%ymm0\n\tvzeroupper" ::: "xmm0");
    }
}

TEST(CpuProbe, IdentRecordAndFlagProbesReadTheirBits) {
    vdlOrvanCpuId id;
    memset(&id, 0xa5, sizeof(id));
    ASSERT_EQ(1, vdl_get_cpu_ident(&id));
    Regs r = compilerCpuid(1, 0);
    unsigned signature = id.stepping | id.model << 4 | id.family << 8 | id.type << 12 |
                         id.extModel << 16 | id.extFamily << 20;
    EXPECT_EQ(r.a & 0x0fff3fffu, signature);
    EXPECT_EQ(r.d, id.features);
    EXPECT_EQ((unsigned)vdl_get_cores_on_die(), id.cores);
    EXPECT_EQ((unsigned)vdl_is_wide64_extension(), id.wide64);

    unsigned tandem = ((r.d >> 28) & 1) && ((r.b >> 16) & 0xff) > 1;
    EXPECT_EQ(tandem, id.logicalProcessors);
    EXPECT_EQ((int)tandem, vdl_is_tandem_extension());

    const struct {
        unsigned reg, bit, field;
        int probe;
    } flags[] = {{r.d, 23, id.flagA, vdl_is_mmx_extension()},
                 {r.d, 25, id.flagB, vdl_is_ssx_extension()},
                 {r.d, 26, id.flagC, vdl_is_wni_extension()},
                 {r.c, 0, id.flagD, vdl_is_pni_extension()},
                 {r.c, 9, id.flagE, vdl_is_mni_extension()},
                 {r.c, 19, id.flagF, vdl_is_sse41_extension()},
                 {r.c, 20, id.flagG, vdl_is_sse42_extension()},
                 {r.c, 22, id.flagH, vdl_is_movbe()},
                 {r.c, 28, id.flagI, -1},
                 {r.c, 27, id.flagJ, -1}};
    for (const auto& f : flags) {
        unsigned expected = (f.reg >> f.bit) & 1;
        EXPECT_EQ(expected, f.field) << "bit " << f.bit;
        if (f.probe != -1) {
            EXPECT_EQ((int)expected, f.probe) << "bit " << f.bit;
        }
    }
    if (vdl_max_cpuid_input() >= 2) {
        Regs r2 = compilerCpuid(2, 0);
        EXPECT_EQ(r2.a, id.cacheDescriptors[0]);
        EXPECT_EQ(r2.d, id.cacheDescriptors[1]);
    }
}
