#include <unistd.h>

#include <climits>
#include <cstring>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "vdlcore.h"
#include "vdlsr.h"

namespace {

const VdlStatus allStatuses[] = {
    vdlStsThreadsWrn, vdlStsLogNegArgWrn, vdlStsLogZeroArgWrn, vdlStsDivByZeroWrn, vdlStsGenericCodeWrn,
    vdlStsNoErr, vdlStsErr, vdlStsNullPtrErr, vdlStsSizeErr, vdlStsStepErr, vdlStsBadArgErr,
    vdlStsNoMemErr, vdlStsCpuNotSupportedErr, vdlStsCpuTypeErr, vdlStsNumThreadsErr,
    vdlStsNoCacheInfoErr, vdlStsDivByZeroErr, vdlStsOutOfRangeErr, vdlStsContextMatchErr};

const VdlCpuType allCpuTypes[] = {
    vdlCpuUnknown, vdlCpuGen5, vdlCpuGen5Mmx, vdlCpuGen6, vdlCpuGen6Mmx, vdlCpuGen6Ssx,
    vdlCpuDeepSse2, vdlCpuDeepSse2Tandem, vdlCpuDeepSse3, vdlCpuMobileSse2, vdlCpuMobileSse3,
    vdlCpuMobileSse3Dual, vdlCpuEmbeddedSsx, vdlCpuEmbeddedSse2, vdlCpuDeepSse3Wide64,
    vdlCpuWideSsse3, vdlCpuWideSsse3Quad, vdlCpuWideSse41, vdlCpuLowPowerMovbe,
    vdlCpuWideSse42, vdlCpuNextAvx, vdlCpuSsx, vdlCpuSse2, vdlCpuSse3, vdlCpuSsse3,
    vdlCpuSse41, vdlCpuSse42, vdlCpuAvx, vdlCpuAvx2, vdlCpuAvx512, vdlCpuWide64};

// The compiler's own processor detection is the independent judge here. The
// levels build on each other, so the first one missing ends the climb.
VdlCpuType expectedLevel()
{
    const struct { bool has; VdlCpuType type; } ladder[] = {
        {__builtin_cpu_supports("sse3") != 0, vdlCpuSse3},
        {__builtin_cpu_supports("ssse3") != 0, vdlCpuSsse3},
        {__builtin_cpu_supports("sse4.1") != 0, vdlCpuSse41},
        {__builtin_cpu_supports("sse4.2") != 0, vdlCpuSse42},
        {__builtin_cpu_supports("avx") != 0, vdlCpuAvx},
        {__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"), vdlCpuAvx2},
        {__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
             __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl"),
         vdlCpuAvx512},
    };
    VdlCpuType level = vdlCpuSse2;  // every 64-bit processor has it
    for (const auto& step : ladder) {
        if (!step.has)
            break;
        level = step.type;
    }
    return level;
}

} // namespace

TEST(VdlStatusString, EveryCodeHasItsOwnTextAndUnknownCodesShareOne)
{
    const std::string unknown = vdlGetStatusString(12345);
    EXPECT_FALSE(unknown.empty());
    std::set<std::string> seen;
    for (VdlStatus s : allStatuses) {
        ASSERT_NE(vdlGetStatusString(s), nullptr) << s;
        const std::string text = vdlGetStatusString(s);
        EXPECT_FALSE(text.empty()) << s;
        EXPECT_NE(text, unknown) << s;
        EXPECT_TRUE(seen.insert(text).second) << "text repeated for " << s;
    }
    // -2 stands for a missing library, never for a status of its own.
    for (VdlStatus s : {-2, 6, -15, INT_MIN, INT_MAX})
        EXPECT_EQ(unknown, vdlGetStatusString(s)) << s;
}

TEST(VdlCpu, CacheSizeAndCoresArePlausibleAndTypeIsTheHighestLevel)
{
    EXPECT_EQ(vdlGetCpuType(), expectedLevel());
    EXPECT_GE(vdlGetNumCoresOnDie(), 1);
    EXPECT_LT(vdlGetMaxCacheSizeB(nullptr), 0);
    int size = -1;
    // A processor (or a virtual one) may report no cache at all.
    if (vdlGetMaxCacheSizeB(&size) != vdlStsNoErr) {
        EXPECT_EQ(size, 0);
        return;
    }
    EXPECT_GE(size, 4 * 1024);
    EXPECT_LE(size, 1024 * 1024 * 1024);
    EXPECT_GE(size, sysconf(_SC_LEVEL2_CACHE_SIZE));  // not known: 0 or -1
}

TEST(VdlDispatch, InitSelectsTheDetectedTypeAndForcedTypesTheirPath)
{
    const VdlStatus status = vdlInit();
    EXPECT_EQ(vdlGetEnabledCpuType(), vdlGetCpuType());
    const int widest = expectedLevel() == vdlCpuAvx512 ? 2 : expectedLevel() == vdlCpuAvx2 ? 1 : 0;
    EXPECT_LE(vdlGetCodePath(), widest);  // a build may lack the widest path
    EXPECT_EQ(status, vdlGetCodePath() == 0 ? vdlStsGenericCodeWrn : vdlStsNoErr);

    ASSERT_EQ(vdlInitCpu(vdlCpuSse2), vdlStsNoErr);
    EXPECT_EQ(vdlGetCodePath(), 0);
    EXPECT_STREQ(vdlGetCodePathName(), "baseline");
    if (vdlInitCpu(vdlCpuAvx2) == vdlStsNoErr) {
        EXPECT_EQ(vdlGetCodePath(), 1);
        EXPECT_STREQ(vdlGetCodePathName(), "vec256");
        EXPECT_NE(std::strstr(vdlsrGetLibVersion()->Version, "vec256"), nullptr);
    }
    vdlInit();
}

// A type is taken when this processor runs it; a refusal keeps the type and
// the path in force.
TEST(VdlDispatch, InitCpuTakesWhatTheProcessorRunsAndRefusesTheRest)
{
    const VdlCpuType level = expectedLevel();
    const struct { VdlCpuType type; bool runs; } cases[] = {
        {vdlCpuUnknown, true}, {vdlCpuGen5, true}, {vdlCpuSsx, true}, {vdlCpuWide64, true},
        {vdlCpuDeepSse3Wide64, true}, {level, true},
        {vdlCpuSse3, level >= vdlCpuSse3}, {vdlCpuWideSse41, level >= vdlCpuSse41},
        {vdlCpuSse42, level >= vdlCpuSse42}, {vdlCpuNextAvx, level >= vdlCpuAvx},
        {vdlCpuAvx2, level >= vdlCpuAvx2}, {vdlCpuAvx512, level >= vdlCpuAvx512},
        {vdlCpuLowPowerMovbe, __builtin_cpu_supports("ssse3") && __builtin_cpu_supports("movbe")},
    };
    for (const auto& c : cases) {
        ASSERT_EQ(vdlInitCpu(vdlCpuSse2), vdlStsNoErr);
        EXPECT_EQ(vdlInitCpu(c.type), c.runs ? vdlStsNoErr : vdlStsCpuNotSupportedErr) << c.type;
        EXPECT_EQ(vdlGetEnabledCpuType(), c.runs ? c.type : vdlCpuSse2) << c.type;
        if (!c.runs) {
            EXPECT_EQ(vdlGetCodePath(), 0) << c.type;
        }
    }
    for (VdlCpuType t : allCpuTypes)
        EXPECT_NE(vdlInitCpu(t), vdlStsCpuTypeErr) << t;
    ASSERT_EQ(vdlInitCpu(vdlCpuSse2), vdlStsNoErr);
    for (VdlCpuType t : {-1, 12, 15, 18, 31, 39, 63, 73, 95, 97, 1000, INT_MIN}) {
        EXPECT_EQ(vdlInitCpu(t), vdlStsCpuTypeErr) << t;
        EXPECT_EQ(vdlGetEnabledCpuType(), vdlCpuSse2) << t;
    }
    vdlInit();
}

TEST(VdlThreads, RunsOnTheCallersThreadAndSaysSo)
{
    int n = 0;
    EXPECT_EQ(vdlSetNumThreads(0), vdlStsNoErr);
    vdlGetNumThreads(&n);
    EXPECT_EQ(n, 1);
    // More than one is kept but warned about, whatever the processor count.
    const int many = static_cast<int>(sysconf(_SC_NPROCESSORS_ONLN)) + 3;
    EXPECT_EQ(vdlSetNumThreads(many), vdlStsThreadsWrn);
    for (int bad : {-1, INT_MIN})
        EXPECT_EQ(vdlSetNumThreads(bad), vdlStsNumThreadsErr) << bad;
    vdlGetNumThreads(&n);
    EXPECT_EQ(n, many);
    EXPECT_EQ(vdlGetNumThreads(nullptr), vdlStsNullPtrErr);
    vdlSetNumThreads(1);
}

TEST(VdlVersion, RecordsAreFilledAndDistinct)
{
    const VdlLibraryVersion* s = vdlsGetLibVersion();
    const VdlLibraryVersion* sr = vdlsrGetLibVersion();
    for (const VdlLibraryVersion* v : {s, sr}) {
        ASSERT_NE(v, nullptr);
        ASSERT_TRUE(v->Name && v->Version && v->BuildDate);
        EXPECT_GT(std::strlen(v->Name), 0u);
        EXPECT_GT(std::strlen(v->Version), 0u);
        EXPECT_EQ(std::strlen(v->BuildDate), 11u) << v->BuildDate;  // "Mmm dd yyyy"
    }
    EXPECT_STRNE(s->Name, sr->Name);
}
