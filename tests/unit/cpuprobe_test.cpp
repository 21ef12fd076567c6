// Processor probes. What a processor reports differs between machines, so the
// probes are checked against what every x86-64 processor guarantees and
// against an independent reading of CPUID through the compiler's <cpuid.h>.
#include <cpuid.h>
#include <gtest/gtest.h>

#include <cstring>

#include "kvcpuprobe.h"

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
