// Instruction-set extensions of a processor, and what each processor type
// needs of them. Detection picks the highest extension level the processor
// runs; a requested type is runnable when no extension it needs is missing.
#ifndef VDL_COMMON_CPUTYPES_H
#define VDL_COMMON_CPUTYPES_H

#include "vdlcore.h"
#include "vdlcpuid.h"

#pragma GCC visibility push(hidden)

namespace vdl {

enum Feature : unsigned {
    featMmx = 1u << 0,
    featSsx = 1u << 1,
    featSse2 = 1u << 2,
    featSse3 = 1u << 3,
    featSsse3 = 1u << 4,
    featSse41 = 1u << 5,
    featSse42 = 1u << 6,
    featAvx = 1u << 7,
    featAvx2 = 1u << 8,
    featMovbe = 1u << 9,
    featWide64 = 1u << 10,
    featFma = 1u << 11,
    featVec512 = 1u << 12  // the 512-bit foundation, DQ, BW and VL sets
};

// Cumulative levels: code built for one level may use every older extension.
constexpr unsigned levelSsx = featMmx | featSsx;
constexpr unsigned levelSse2 = levelSsx | featSse2;
constexpr unsigned levelSse3 = levelSse2 | featSse3;
constexpr unsigned levelSsse3 = levelSse3 | featSsse3;
constexpr unsigned levelSse41 = levelSsse3 | featSse41;
constexpr unsigned levelSse42 = levelSse41 | featSse42;
constexpr unsigned levelAvx = levelSse42 | featAvx;
constexpr unsigned levelAvx2 = levelAvx | featAvx2 | featFma;
constexpr unsigned levelVec512 = levelAvx2 | featVec512;

inline unsigned detectFeatures(const CpuidView& cpu)
{
    const CpuidRegs f1 = cpu.regs(1);
    unsigned mask = 0;
    if (bit(f1.edx, 23)) mask |= featMmx;
    if (bit(f1.edx, 25)) mask |= featSsx;
    if (bit(f1.edx, 26)) mask |= featSse2;
    if (bit(f1.ecx, 0)) mask |= featSse3;
    if (bit(f1.ecx, 9)) mask |= featSsse3;
    if (bit(f1.ecx, 19)) mask |= featSse41;
    if (bit(f1.ecx, 20)) mask |= featSse42;
    if (bit(f1.ecx, 22)) mask |= featMovbe;
    // AVX state is usable only when the OS saves the XMM and YMM halves.
    const bool osSavesYmm = bit(f1.ecx, 27) && (cpu.xcr0() & 0x6u) == 0x6u;
    if (osSavesYmm && bit(f1.ecx, 28)) {
        mask |= featAvx;
        const CpuidRegs f7 = cpu.regs(7, 0);
        if (bit(f7.ebx, 5))
            mask |= featAvx2;
        if (bit(f1.ecx, 12))
            mask |= featFma;
        // 512-bit state: the opmask and both halves of the upper registers.
        const bool osSavesZmm = (cpu.xcr0() & 0xE0u) == 0xE0u;
        if (osSavesZmm && bit(f7.ebx, 16) && bit(f7.ebx, 17) && bit(f7.ebx, 30) &&
            bit(f7.ebx, 31))
            mask |= featVec512;
    }
    if (bit(cpu.regs(0x80000001u).edx, 29))
        mask |= featWide64;
    return mask;
}

inline bool hasAll(unsigned have, unsigned need)
{
    return (have & need) == need;
}

// Highest extension level first; a processor of any maker lands on the
// first level it fully runs.
inline VdlCpuType classify(unsigned features)
{
    static const struct { unsigned need; VdlCpuType type; } ladder[] = {
        {levelVec512, vdlCpuAvx512}, {levelAvx2, vdlCpuAvx2},   {levelAvx, vdlCpuAvx},
        {levelSse42, vdlCpuSse42}, {levelSse41, vdlCpuSse41},
        {levelSsse3, vdlCpuSsse3}, {levelSse3, vdlCpuSse3},
        {levelSse2, vdlCpuSse2},   {levelSsx, vdlCpuSsx},
        {featWide64, vdlCpuWide64},
    };
    for (const auto& step : ladder)
        if (hasAll(features, step.need))
            return step.type;
    return vdlCpuUnknown;
}

// Extensions a processor type's code path uses; false for an unknown code.
inline bool requiredFeatures(VdlCpuType type, unsigned* need)
{
    static const struct { VdlCpuType type; unsigned need; } table[] = {
        {vdlCpuUnknown, 0},
        {vdlCpuGen5, 0},
        {vdlCpuGen5Mmx, featMmx},
        {vdlCpuGen6, 0},
        {vdlCpuGen6Mmx, featMmx},
        {vdlCpuGen6Ssx, levelSsx},
        {vdlCpuDeepSse2, levelSse2},
        {vdlCpuDeepSse2Tandem, levelSse2},
        {vdlCpuDeepSse3, levelSse3},
        {vdlCpuMobileSse2, levelSse2},
        {vdlCpuMobileSse3, levelSse3},
        {vdlCpuMobileSse3Dual, levelSse3},
        {vdlCpuEmbeddedSsx, levelSsx},
        {vdlCpuEmbeddedSse2, levelSse2},
        {vdlCpuDeepSse3Wide64, levelSse3 | featWide64},
        {vdlCpuWideSsse3, levelSsse3},
        {vdlCpuWideSsse3Quad, levelSsse3},
        {vdlCpuWideSse41, levelSse41},
        {vdlCpuLowPowerMovbe, levelSsse3 | featMovbe},
        {vdlCpuWideSse42, levelSse42},
        {vdlCpuNextAvx, levelAvx},
        {vdlCpuSsx, levelSsx},
        {vdlCpuSse2, levelSse2},
        {vdlCpuSse3, levelSse3},
        {vdlCpuSsse3, levelSsse3},
        {vdlCpuSse41, levelSse41},
        {vdlCpuSse42, levelSse42},
        {vdlCpuAvx, levelAvx},
        {vdlCpuAvx2, levelAvx2},
        {vdlCpuAvx512, levelVec512},
        {vdlCpuWide64, featWide64},
    };
    for (const auto& row : table) {
        if (row.type == type) {
            *need = row.need;
            return true;
        }
    }
    return false;
}

// The code path a type's code runs: the widest whose extensions the type
// has. Without a 512-bit build its types run the 256-bit path.
inline int pathOfType(VdlCpuType type)
{
    unsigned need = 0;
    if (!requiredFeatures(type, &need))
        return 0;
#ifdef VDL_HAVE_512
    if (hasAll(need, levelVec512))
        return 2;
#endif
    return hasAll(need, levelAvx2) ? 1 : 0;
}

// Cores per package: function 4 where it describes caches, else the
// extended core count that the second maker reports, at least 1.
inline int coresOnDie(const CpuidView& cpu)
{
    const CpuidRegs f4 = cpu.regs(4, 0);
    if (bits(f4.eax, 4, 0) != 0)
        return static_cast<int>(bits(f4.eax, 31, 26)) + 1;
    if (cpu.valid(0x80000008u))
        return static_cast<int>(bits(cpu.regs(0x80000008u).ecx, 7, 0)) + 1;
    return 1;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
