// Processor detection against recorded CPUID answers, for the makers and
// generations that this machine cannot show.
#include <map>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "vdlcachesize.h"
#include "vdlcputypes.h"

namespace {

using vdl::CpuidRegs;

// Answers only what it was given. Like real processors, a request above the
// largest basic function repeats the data of the highest one.
class RecordedCpuid : public vdl::CpuidSource {
public:
    RecordedCpuid(unsigned maxBasic, unsigned maxExtended)
    {
        set(0, 0, {maxBasic, 0, 0, 0});
        set(0x80000000u, 0, {maxExtended, 0, 0, 0});
    }

    void set(unsigned function, unsigned sub, CpuidRegs r) { m_leaves[{function, sub}] = r; }

    CpuidRegs query(unsigned function, unsigned sub) const override
    {
        const unsigned maxBasic = m_leaves.at({0, 0}).eax;
        if (function < 0x80000000u && function > maxBasic)
            function = maxBasic;
        const auto it = m_leaves.find({function, sub});
        return it == m_leaves.end() ? CpuidRegs() : it->second;
    }

    unsigned long long xcr0() const override { return m_xcr0; }

    unsigned long long m_xcr0 = 0;

private:
    std::map<std::pair<unsigned, unsigned>, CpuidRegs> m_leaves;
};

// One function 4 (or 0x8000001D) subleaf: type, level, and the geometry.
CpuidRegs cacheLeaf(unsigned type, unsigned level, unsigned ways, unsigned sets)
{
    const unsigned line = 64, partitions = 1;
    return {type | (level << 5), ((ways - 1) << 22) | ((partitions - 1) << 12) | (line - 1),
            sets - 1, 0};
}

} // namespace

// Each processor answers only the leaves listed; the largest data or
// unified cache it reports, in bytes.
TEST(VdlCacheDetect, LargestCacheOfEachWayOfReportingIt)
{
    struct Leaf {
        unsigned function, sub;
        CpuidRegs regs;
    };
    const unsigned topology = 1u << 22;  // function 0x80000001 ecx: extended cache leaf present
    const struct {
        const char* what;
        unsigned maxBasic, maxExtended;
        std::vector<Leaf> leaves;
        int size;
    } cases[] = {
        {"function 4 skips instruction caches and stops at type 0", 4, 0x80000008u,
         {{4, 0, cacheLeaf(1, 1, 8, 64)}, {4, 1, cacheLeaf(2, 1, 16, 16384)}, {4, 2, cacheLeaf(3, 2, 16, 1024)},
          {4, 3, cacheLeaf(3, 3, 16, 8192)}, {4, 5, cacheLeaf(3, 4, 16, 65536)}},
         8 << 20},
        // Function 4 answers zeros here; without the topology flag the
        // extended cache leaf is not read, only the legacy one (512 KiB L2).
        {"second maker, no topology flag", 0x10, 0x8000001Fu,
         {{0x8000001Du, 0, cacheLeaf(1, 1, 8, 64)}, {0x8000001Du, 1, cacheLeaf(3, 3, 16, 32768)},
          {0x80000006u, 0, {0, 0, 512u << 16, 0}}},
         512 << 10},
        {"second maker, topology flag", 0x10, 0x8000001Fu,
         {{0x8000001Du, 0, cacheLeaf(1, 1, 8, 64)}, {0x8000001Du, 1, cacheLeaf(3, 3, 16, 32768)},
          {0x80000006u, 0, {0, 0, 512u << 16, 0}}, {0x80000001u, 0, {0, 0, topology, 0}}},
         32 << 20},
        {"legacy leaf takes the larger level", 1, 0x80000006u, {{0x80000006u, 0, {0, 0, 1024u << 16, 12u << 18}}},
         6 << 20},
        // Largest function 2: the request for function 4 repeats function
        // 2's answer and must not be decoded as a cache leaf. 0x43 (512 KiB)
        // and 0x7D (2 MiB) count; 0x49 sits in an invalid register.
        {"descriptors below function 4", 2, 0, {{2, 0, {0x002C4301u, 0x0000007Du, 0x80000049u, 0}}}, 2 << 20},
        {"nothing reported", 1, 0, {}, 0},
        {"count byte 0xEC and an instruction cache 0x30", 2, 0, {{2, 0, {0x000030ECu, 0, 0, 0}}}, 0},
        {"descriptor in a later register", 2, 0, {{2, 0, {0x00000001u, 0x0C0A0000u, 0, 0}}}, 16 << 10},
    };
    for (const auto& c : cases) {
        RecordedCpuid cpu(c.maxBasic, c.maxExtended);
        for (const Leaf& leaf : c.leaves)
            cpu.set(leaf.function, leaf.sub, leaf.regs);
        EXPECT_EQ(vdl::largestCacheSize(vdl::CpuidView(cpu)), c.size) << c.what;
    }
}

TEST(VdlCacheDetect, DescriptorTableIsLargestFirst)
{
    int count = 0;
    const vdl::CacheDescriptor* table = vdl::cacheDescriptors(&count);
    for (int i = 1; i < count; ++i)
        EXPECT_GE(table[i - 1].size, table[i].size) << i;
}

TEST(VdlCoresDetect, FromFunctionFourOrExtendedCount)
{
    RecordedCpuid orvan(4, 0x80000008u);
    orvan.set(4, 0, {1u | (7u << 26), 0, 0, 0});
    orvan.set(0x80000008u, 0, {0, 0, 0x3Fu, 0});
    EXPECT_EQ(vdl::coresOnDie(vdl::CpuidView(orvan)), 8);

    RecordedCpuid second(0x10, 0x80000008u);
    second.set(0x80000008u, 0, {0, 0, 0x0Fu, 0});
    EXPECT_EQ(vdl::coresOnDie(vdl::CpuidView(second)), 16);

    EXPECT_EQ(vdl::coresOnDie(vdl::CpuidView(RecordedCpuid(2, 0))), 1);
}

// The wide levels need their instructions and the state saved by the
// operating system (XCR0): AVX the YMM state, the 512-bit sets also the
// opmask and upper halves; the 256-bit path also needs fused multiply-add.
TEST(VdlTypeDetect, WideLevelsNeedTheirSetsAndTheStateSavedByTheOs)
{
    const unsigned edx = (1u << 23) | (1u << 25) | (1u << 26);
    const unsigned ecx = 1u | (1u << 9) | (1u << 19) | (1u << 20) | (1u << 27) | (1u << 28);
    const unsigned fma = 1u << 12, avx2 = 1u << 5;
    const unsigned sets512 = (1u << 16) | (1u << 17) | (1u << 30) | (1u << 31);
    const struct {
        unsigned ecx, leaf7, xcr0;
        VdlCpuType type;
    } cases[] = {
        {ecx, avx2, 0x3, vdlCpuSse42},  // XMM saved, YMM not
        {ecx, avx2, 0x7, vdlCpuAvx},
        {ecx | fma, avx2, 0x7, vdlCpuAvx2},
        {ecx | fma, avx2 | sets512, 0x7, vdlCpuAvx2},
        {ecx | fma, avx2 | sets512, 0xE7, vdlCpuAvx512},
        {ecx | fma, avx2 | (sets512 & ~(1u << 30)), 0xE7, vdlCpuAvx2},  // no BW
    };
    for (const auto& c : cases) {
        RecordedCpuid cpu(7, 0x80000001u);
        cpu.set(1, 0, {0, 0, c.ecx, edx});
        cpu.set(7, 0, {0, c.leaf7, 0, 0});
        cpu.m_xcr0 = c.xcr0;
        EXPECT_EQ(vdl::classify(vdl::detectFeatures(vdl::CpuidView(cpu))), c.type)
            << std::hex << c.ecx << " " << c.leaf7 << " " << c.xcr0;
    }
    unsigned need = 0;
    ASSERT_TRUE(vdl::requiredFeatures(vdlCpuNextAvx, &need));
    RecordedCpuid noYmm(7, 0x80000001u);
    noYmm.set(1, 0, {0, 0, ecx, edx});
    noYmm.m_xcr0 = 0x3;
    EXPECT_FALSE(vdl::hasAll(vdl::detectFeatures(vdl::CpuidView(noYmm)), need));
}

TEST(VdlTypeDetect, EachTypeRunsTheWidestPathItsExtensionsAllow)
{
    EXPECT_EQ(vdl::pathOfType(vdlCpuUnknown), 0);
    EXPECT_EQ(vdl::pathOfType(vdlCpuNextAvx), 0);
    EXPECT_EQ(vdl::pathOfType(vdlCpuAvx), 0);
    EXPECT_EQ(vdl::pathOfType(vdlCpuAvx2), 1);
#ifdef VDL_HAVE_512
    EXPECT_EQ(vdl::pathOfType(vdlCpuAvx512), 2);
#else
    EXPECT_EQ(vdl::pathOfType(vdlCpuAvx512), 1);
#endif
    EXPECT_EQ(vdl::pathOfType(12345), 0);
}

TEST(VdlTypeDetect, LadderStopsAtTheFirstMissingLevel)
{
    RecordedCpuid cpu(1, 0x80000001u);
    // SSE3 and SSE4.1 without SSSE3: the level is SSE3.
    cpu.set(1, 0, {0, 0, 1u | (1u << 19), (1u << 23) | (1u << 25) | (1u << 26)});
    EXPECT_EQ(vdl::classify(vdl::detectFeatures(vdl::CpuidView(cpu))), vdlCpuSse3);

    RecordedCpuid bare(1, 0x80000001u);
    EXPECT_EQ(vdl::classify(vdl::detectFeatures(vdl::CpuidView(bare))), vdlCpuUnknown);
    bare.set(0x80000001u, 0, {0, 0, 0, 1u << 29});
    EXPECT_EQ(vdl::classify(vdl::detectFeatures(vdl::CpuidView(bare))), vdlCpuWide64);
}

TEST(VdlTypeDetect, ModelTypesNeedTheirOwnExtensions)
{
    unsigned need = 0;
    ASSERT_TRUE(vdl::requiredFeatures(vdlCpuLowPowerMovbe, &need));
    EXPECT_FALSE(vdl::hasAll(vdl::levelAvx2, need));  // MOVBE is not part of a level
    EXPECT_TRUE(vdl::hasAll(vdl::levelSsse3 | vdl::featMovbe, need));
    EXPECT_FALSE(vdl::requiredFeatures(39, &need));
}
