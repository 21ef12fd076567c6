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

int onlineProcessors()
{
    return static_cast<int>(sysconf(_SC_NPROCESSORS_ONLN));
}

} // namespace

TEST(VdlStatusString, EveryCodeHasItsOwnText)
{
    const std::string unknown = vdlGetStatusString(12345);
    std::set<std::string> seen;
    for (VdlStatus s : allStatuses) {
        const char* text = vdlGetStatusString(s);
        ASSERT_NE(text, nullptr) << s;
        EXPECT_GT(std::strlen(text), 0u) << s;
        EXPECT_NE(text, unknown) << s;
        EXPECT_TRUE(seen.insert(text).second) << "text repeated for " << s;
        EXPECT_NE(s, -2) << "-2 stands for a missing library";
    }
}

TEST(VdlStatusString, UnknownCodesShareTheGenericText)
{
    const std::string unknown = vdlGetStatusString(12345);
    EXPECT_FALSE(unknown.empty());
    for (VdlStatus s : {-2, 6, -15, INT_MIN, INT_MAX})
        EXPECT_EQ(unknown, vdlGetStatusString(s)) << s;
}

TEST(VdlCpu, CacheSizeIsPlausible)
{
    int size = -1;
    // A processor (or a virtual one) may report no cache at all.
    if (vdlGetMaxCacheSizeB(&size) != vdlStsNoErr) {
        EXPECT_EQ(size, 0);
        return;
    }
    EXPECT_GE(size, 4 * 1024);
    EXPECT_LE(size, 1024 * 1024 * 1024);
    const long l2 = sysconf(_SC_LEVEL2_CACHE_SIZE);
    if (l2 > 0) {
        EXPECT_GE(size, l2);
    }
}

TEST(VdlCpu, NullPointerRefusedAndAtLeastOneCore)
{
    EXPECT_LT(vdlGetMaxCacheSizeB(nullptr), 0);
    EXPECT_GE(vdlGetNumCoresOnDie(), 1);
}

TEST(VdlCpu, TypeIsTheHighestExtensionLevel)
{
    EXPECT_EQ(vdlGetCpuType(), expectedLevel());
}

TEST(VdlDispatch, InitSelectsTheDetectedTypeAndItsPath)
{
    const VdlStatus status = vdlInit();
    EXPECT_EQ(vdlGetEnabledCpuType(), vdlGetCpuType());
    const int widest = expectedLevel() == vdlCpuAvx512 ? 2 : expectedLevel() == vdlCpuAvx2 ? 1 : 0;
    EXPECT_LE(vdlGetCodePath(), widest);  // a build may lack the widest path
    EXPECT_EQ(status, vdlGetCodePath() == 0 ? vdlStsGenericCodeWrn : vdlStsNoErr);
}

TEST(VdlDispatch, ForcedTypesSelectTheirPathAndRefusalsKeepIt)
{
    ASSERT_EQ(vdlInitCpu(vdlCpuSse2), vdlStsNoErr);
    EXPECT_EQ(vdlGetCodePath(), 0);
    EXPECT_STREQ(vdlGetCodePathName(), "baseline");
    if (vdlInitCpu(vdlCpuAvx2) == vdlStsNoErr) {
        EXPECT_EQ(vdlGetCodePath(), 1);
        EXPECT_STREQ(vdlGetCodePathName(), "vec256");
        EXPECT_NE(std::strstr(vdlsrGetLibVersion()->Version, "vec256"), nullptr);
    }
    const int before = vdlGetCodePath();
    const VdlCpuType type = vdlGetEnabledCpuType();
    if (expectedLevel() != vdlCpuAvx512) {
        EXPECT_EQ(vdlInitCpu(vdlCpuAvx512), vdlStsCpuNotSupportedErr);
        EXPECT_EQ(vdlGetCodePath(), before);
        EXPECT_EQ(vdlGetEnabledCpuType(), type);
    }
    vdlInit();
}

TEST(VdlDispatch, InitCpuAcceptsRunnableTypes)
{
    const VdlCpuType runnable[] = {vdlCpuUnknown, vdlCpuGen5, vdlCpuSsx, vdlCpuSse2,
                                   vdlCpuWide64, vdlCpuDeepSse3Wide64, vdlGetCpuType()};
    for (VdlCpuType t : runnable) {
        EXPECT_EQ(vdlInitCpu(t), vdlStsNoErr) << t;
        EXPECT_EQ(vdlGetEnabledCpuType(), t);
    }
    vdlInit();
}

TEST(VdlDispatch, InitCpuFollowsTheProcessorsExtensions)
{
    const struct { VdlCpuType type; bool runs; } cases[] = {
        {vdlCpuSse3, expectedLevel() >= vdlCpuSse3},
        {vdlCpuWideSse41, expectedLevel() >= vdlCpuSse41},
        {vdlCpuSse42, expectedLevel() >= vdlCpuSse42},
        {vdlCpuNextAvx, expectedLevel() >= vdlCpuAvx},
        {vdlCpuAvx2, expectedLevel() >= vdlCpuAvx2},
        {vdlCpuAvx512, expectedLevel() >= vdlCpuAvx512},
        {vdlCpuLowPowerMovbe, __builtin_cpu_supports("ssse3") && __builtin_cpu_supports("movbe")},
    };
    for (const auto& c : cases)
        EXPECT_EQ(vdlInitCpu(c.type), c.runs ? vdlStsNoErr : vdlStsCpuNotSupportedErr) << c.type;
    vdlInit();
}

TEST(VdlDispatch, InitCpuKnowsEveryDeclaredTypeAndRefusesOtherCodes)
{
    for (VdlCpuType t : allCpuTypes)
        EXPECT_NE(vdlInitCpu(t), vdlStsCpuTypeErr) << t;
    ASSERT_EQ(vdlInitCpu(vdlCpuSse2), vdlStsNoErr);
    for (VdlCpuType t : {-1, 12, 15, 18, 31, 39, 63, 73, 95, 97, 1000, INT_MIN}) {
        EXPECT_EQ(vdlInitCpu(t), vdlStsCpuTypeErr) << t;
        EXPECT_EQ(vdlGetEnabledCpuType(), vdlCpuSse2);  // the selection stays
    }
    vdlInit();
}

TEST(VdlThreads, RunsOnTheCallersThreadAndSaysSo)
{
    int n = 0;
    EXPECT_EQ(vdlSetNumThreads(0), vdlStsNoErr);
    vdlGetNumThreads(&n);
    EXPECT_EQ(n, 1);
    EXPECT_EQ(vdlSetNumThreads(1), vdlStsNoErr);
    // More than one is kept but warned about, whatever the processor count.
    EXPECT_EQ(vdlSetNumThreads(onlineProcessors() + 3), vdlStsThreadsWrn);
    vdlGetNumThreads(&n);
    EXPECT_EQ(n, onlineProcessors() + 3);
    for (int bad : {-1, INT_MIN}) {
        EXPECT_EQ(vdlSetNumThreads(bad), vdlStsNumThreadsErr) << bad;
        vdlGetNumThreads(&n);
        EXPECT_EQ(n, onlineProcessors() + 3);
    }
    EXPECT_EQ(vdlGetNumThreads(nullptr), vdlStsNullPtrErr);
    vdlSetNumThreads(1);
}

TEST(VdlVersion, RecordsAreFilledAndDistinct)
{
    const VdlLibraryVersion* s = vdlsGetLibVersion();
    const VdlLibraryVersion* sr = vdlsrGetLibVersion();
    ASSERT_NE(s, nullptr);
    ASSERT_NE(sr, nullptr);
    for (const VdlLibraryVersion* v : {s, sr}) {
        ASSERT_NE(v->Name, nullptr);
        ASSERT_NE(v->Version, nullptr);
        ASSERT_NE(v->BuildDate, nullptr);
        EXPECT_GT(std::strlen(v->Name), 0u);
        EXPECT_GT(std::strlen(v->Version), 0u);
        EXPECT_EQ(std::strlen(v->BuildDate), 11u) << v->BuildDate;  // "Mmm dd yyyy"
    }
    EXPECT_STRNE(s->Name, sr->Name);
}
